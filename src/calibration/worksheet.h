// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>

#include <array>

namespace orv {

/// The scattering channels of a sensor; channel 0, 1, 2 is the angle 100, 125, 150.
inline constexpr int channelCount = 3;

/// A row of three text boxes. Their names end with consecutive numbers, channel by channel.
struct BoxRow {
    const char* caption;
    int firstBox; ///< 18 for `Text18`, `Text19`, `Text20`.
};

/// The rows of measured values, in the order of their selectors `Option3` to `Option8`.
inline constexpr std::array<BoxRow, 6> worksheetRows{
    {{"Air", 33}, {"Clean", 18}, {"Point 1", 21}, {"Point 2", 24}, {"Point 3", 27}, {"Point 4", 30}}};

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

} // namespace orv
