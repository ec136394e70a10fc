// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"

#include <QProperty>
#include <QString>
#include <QStringList>

#include <array>

namespace orv {

/// The scattering channels of a sensor; channel 0, 1, 2 is the angle 100, 125, 150.
inline constexpr int channelCount = 3;
inline constexpr std::array<const char*, channelCount> channelAngles{"100", "125", "150"};

/// A row of three text boxes. Their names end with consecutive numbers, channel by channel.
struct BoxRow {
    const char* caption; ///< In English, as the report has it.
    int firstBox;        ///< 18 for `Text18`, `Text19`, `Text20`.
};

/// The rows of measured values, in the order of their selectors `Option3` to `Option8`.
inline constexpr std::array<BoxRow, 6> worksheetRows{{{QT_TRANSLATE_NOOP("orv", "Air"), 33},
                                                      {QT_TRANSLATE_NOOP("orv", "Clean"), 18},
                                                      {QT_TRANSLATE_NOOP("orv", "Point 1"), 21},
                                                      {QT_TRANSLATE_NOOP("orv", "Point 2"), 24},
                                                      {QT_TRANSLATE_NOOP("orv", "Point 3"), 27},
                                                      {QT_TRANSLATE_NOOP("orv", "Point 4"), 30}}};

/// The rows of the reference frame "KP 7".
inline constexpr std::array<BoxRow, 5> referenceRows{
    {{"Clean", 2}, {"Point 1", 5}, {"Point 2", 8}, {"Point 3", 11}, {"Point 4", 14}}};

inline constexpr int cleanRow = 1;

/// The labels of the derived points, channel by channel.
inline constexpr std::array<int, channelCount> resultLabels{57, 59, 61};

inline QString boxName(const BoxRow& row, int channel) {
    return QStringLiteral("Text%1").arg(row.firstBox + channel);
}

/// The texts of a grid of boxes, by row and channel.
template <std::size_t Rows>
class BoxGrid {
public:
    static constexpr int rowCount = static_cast<int>(Rows);

    QProperty<QString>& at(int row, int channel) { return boxes_.at(index(row)).at(index(channel)); }
    const QProperty<QString>& at(int row, int channel) const { return boxes_.at(index(row)).at(index(channel)); }

private:
    static std::size_t index(int number) { return static_cast<std::size_t>(number); }

    std::array<std::array<QProperty<QString>, channelCount>, Rows> boxes_;
};

/// The colour of an instrument's light source, by the number of its selector.
enum class LightColour : quint8 { None = 0, Red = 9, Blue = 10, Green = 11 };

struct Light {
    LightColour colour;
    const char* name;       ///< In English, as the report has it.
    const char* caption;    ///< Of its selector, with the access key.
    const char* wavelength; ///< Nanometres.
    int referenceColumn;    ///< Where its values stand in the reference frame.
};

/// The lights, in the order of their selectors.
inline constexpr std::array<Light, 3> lights{
    {{LightColour::Red, "Red", QT_TRANSLATE_NOOP("orv", "&Red"), "650", 1},
     {LightColour::Blue, "Blue", QT_TRANSLATE_NOOP("orv", "&Blue"), "440", 0},
     {LightColour::Green, "Green", QT_TRANSLATE_NOOP("orv", "&Green"), "532", 2}}};

/// What is kept of each instrument of a calibration batch, in memory only. It starts as zeros.
class CalibrationTable {
public:
    static constexpr int instrumentCount = 7;
    static constexpr int fieldCount = channelCount * static_cast<int>(worksheetRows.size());

    /// Where the value of a worksheet row and channel is kept.
    static constexpr int field(int row, int channel) { return static_cast<int>(worksheetRows.size()) * channel + row; }

    /// Throw RuntimeError SubscriptOutOfRange for an instrument outside 0..6.
    qint16& value(int instrument, int row, int channel);
    LightColour& colour(int instrument);

private:
    struct Instrument {
        std::array<qint16, static_cast<std::size_t>(fieldCount)> values{};
        LightColour colour = LightColour::None;
    };

    Instrument& at(int instrument);

    std::array<Instrument, static_cast<std::size_t>(instrumentCount)> instruments_;
};

/// What the page "Calibration TRX(S)" shows and what its controls ask for.
struct CalibrationState {
    static constexpr int noRow = -1;
    static constexpr int noInstrument = -1;

    QProperty<QString> instrumentName;                         ///< `Text17`, as typed.
    QProperty<LightColour> colour{LightColour::None};          ///< `Option9`, `Option10`, `Option11`.
    QProperty<Words> message;                                  ///< `Text36`.
    QProperty<QStringList> instruments;                        ///< `List2`; the position is the instrument's index.
    QProperty<QString> totalEntered{QStringLiteral("0")};      ///< `Label70`.
    QProperty<qint16> current{0};                              ///< Index of the instrument shown; also `Label71`.
    QProperty<int> highlighted{noInstrument};                  ///< The same in `List2`, once one has been shown.
    QProperty<Words> worksheetCaption{Words::tr("Worksheet")}; ///< `Frame16`: the entry of that instrument.
    QProperty<int> selectedRow{noRow};                         ///< The row whose selector is on, 0..5.
    BoxGrid<worksheetRows.size()> worksheet;                   ///< Measured values, as text.
    BoxGrid<referenceRows.size()> reference;                   ///< "KP 7", as typed.
    std::array<QProperty<QString>, channelCount> results;      ///< The derived points.

    /// The list entry of the instrument shown; empty if there is none.
    QString currentEntry() const { return instruments.value().value(current.value()); }
};

/// Moves values between the worksheet and the calibration table.
class WorksheetStore {
public:
    WorksheetStore(CalibrationTable& table, CalibrationState& shown);

    /// Keeps the 18 boxes for the current instrument: the number each begins with (0 if none), rounded half to even.
    /// Throws RuntimeError SubscriptOutOfRange (the current instrument is none of the seven; nothing is kept) or
    /// Overflow (outside -32768..32767; the boxes before it are kept: Clean to Point 4, each with its three channels,
    /// then Air).
    void storecal();

    /// Shows what is kept of the current instrument in the 18 boxes and selects its colour; an instrument without one
    /// leaves the selection. Throws RuntimeError SubscriptOutOfRange, with nothing changed.
    void showcal();

    /// Keeps the colour of the newest entry of the list. Throws RuntimeError SubscriptOutOfRange unless the list has
    /// one to seven entries.
    void setcalcolour(LightColour colour);

private:
    CalibrationTable& table_;
    CalibrationState& shown_;
};

} // namespace orv
