// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"
#include "link/session.h"

#include <QProperty>
#include <QString>

#include <array>
#include <bitset>
#include <optional>
#include <span>
#include <vector>

namespace orv {

/// How the instrument collects by itself. The numbers are texts, as reported or as typed.
struct LoggerSettings {
    bool autoStart = false;            ///< Collect at power-up.
    bool gain = false;                 ///< Function not available.
    bool auxAdc = false;               ///< Function not available.
    bool logEnabled = false;           ///< Record in memory.
    bool wakeUp = false;               ///< After a block: ready for commands (true) or asleep.
    bool append = false;               ///< Add blocks to the memory instead of erasing it first.
    QString samplesPerPoint = {};      ///< Samples averaged into one point.
    QString hoursBeforeBlock = {};     ///< 0 is half a second.
    QString pointsPerBlock = {};       ///< 0..65535; 0 is continuous.
    QString secondsBetweenPoints = {}; ///< 0..65535.

    bool operator==(const LoggerSettings&) const = default;
};

/// The settings as options of `orv settings`: "--set autoStart=false --set gain=true ...".
QString asOptions(const LoggerSettings& settings);

/// What one of the ten settings is called, and where its value lies: in one of `flag` and `number`, the other is null.
struct Setting {
    char16_t letter; ///< Its tag in the report. A number is set by the same letter.
    int code;        ///< In `prefsState`, once its line was read.
    bool LoggerSettings::*flag;
    QString LoggerSettings::*number;
    const char* name;    ///< For those who ask for it in writing.
    const char* control; ///< Object name of its box on the settings screen.
    const char* caption; ///< Of that box, with the access key.
    const char* toolTip;
    int digits; ///< As many may be typed; 0 for a flag.

    /// The caption without the mark of its access key.
    Words plainCaption() const;
};

/// The ten settings in the order in which the instrument reports and takes them: the six flags, which are the control
/// bits, then the four numbers.
extern const std::array<Setting, 10> allSettings;
inline constexpr std::span<const Setting> flagSettings = std::span(allSettings).first<6>();
inline constexpr std::span<const Setting> numberSettings = std::span(allSettings).last<4>();

/// Some of `allSettings`, each at its place there.
using SettingSet = std::bitset<allSettings.size()>;

/// The place of a setting of `allSettings` there.
inline std::size_t placeOf(const Setting& setting) {
    return static_cast<std::size_t>(&setting - allSettings.data());
}

/// The settings of these letters, in this order: "TDQI".
std::vector<const Setting*> settingsInOrder(const char* letters);

/// The settings whose values differ. A number counts, not how it is written: what is empty counts as 0.
SettingSet settingsThatDiffer(const LoggerSettings& one, const LoggerSettings& other);

/// What a setting has, for the operator: "on", "off", or the number; an empty one is "0".
Words valueInWords(const Setting& setting, const LoggerSettings& settings);

/// How a setting of the instrument is other than wanted: "Append is off there, not on".
Words differenceInWords(const Setting& setting, const LoggerSettings& there, const LoggerSettings& wanted);

/// The captions of the settings in the order of the screen: "Wake Up", "Samples Per Second".
QList<Words> captionsOf(const SettingSet& settings);

/// The status lamp of the settings screen: what goes on with the settings.
enum class Lamp { Off, Reading, Sending, Sent, Read, Failed };

/// Offset and scale with which counts become a value, as typed.
struct CalibrationBoxes {
    QProperty<QString> offset{QStringLiteral("0")};
    QProperty<QString> scale{QStringLiteral("1")};
};

/// What the "Logger Settings" screen shows.
struct SettingsState {
    QProperty<LoggerSettings> record;

    /// What the instrument has, as its newest whole report tells; nothing before the first, while one is read, and from
    /// a sending on until its report.
    QProperty<std::optional<LoggerSettings>> reported;
    /// What the instrument has taken and has not reported back yet.
    std::optional<LoggerSettings> sent;
    /// How the last sending or reading went, for every tab: "Sent and read back at 9:30:15 AM". Empty before, and from
    /// the first line of a report to its last.
    QProperty<Words> exchange;
    /// Which settings are not as they were reported: changed, and not sent yet. None while no report is known.
    SettingSet unsent() const {
        return reported.value() ? settingsThatDiffer(record, *reported.value()) : SettingSet();
    }

    QProperty<bool> visible{false};
    QProperty<Lamp> lamp{Lamp::Off};
    /// The sampling-rate option whose number the record has, 1..4; 0 for none. While a report is read, that of before.
    QProperty<int> samplingOption{0};
    QProperty<QString> capacity;         ///< "Logger Capacity (% full)".
    QProperty<QString> memoryPointer;    ///< What it is computed from.
    QProperty<bool> syncTimeDate{false}; ///< "Sync Time/Date".
    /// It has been ticked, and the clock of this connection's instrument has not been set since.
    QProperty<bool> syncPending{false};
    /// The clock is set when a minute of the computer's clock begins, so that its seconds are right.
    QProperty<bool> atFullMinute{false};
    QProperty<QString> fullMinute;         ///< When it will be set so, "9:31:00 AM"; empty unless that is under way.
    QProperty<int> secondsToFullMinute{0}; ///< As long is waited for it; 0 once date and time are typed.
    /// The clock is not as "Sync Time/Date" wants it; never while no report is known.
    bool syncUnsent() const { return reported.value().has_value() && syncPending; }
    /// "Waiting for the full minute: 46 s."; empty unless that is so.
    Words fullMinuteWait() const;

    /// How the clock was set last on this connection.
    enum class ClockSet { NotYet, ToTheMinute, AtFullMinute };
    ClockSet clockSet = ClockSet::NotYet;
    /// The same in a sentence: "The instrument's clock was set ..."; empty if it was not. How far off it is is as last
    /// read, or, before that, as computed.
    QProperty<Words> clockSetting;
    /// It could not be read back, which is what `clockSetting` says then.
    bool clockUnread = false;
    qint64 clockAsked = 0; ///< When the instrument's clock was asked for last; monotonic milliseconds.
    QProperty<QString> computerDate;
    QProperty<QString> computerTime;
    QProperty<QString> loggerDate{StatusState::unknownLong()};
    QProperty<QString> loggerTime{StatusState::unknownLong()};
    /// The operator has been told that a clock reply cannot be read; false again once the clock is asked for.
    bool clockErrorTold = false;
    QProperty<bool> sendingMode{false}; ///< A mode is being sent or waits for the full minute with it.
    QProperty<Words> modeRemark;        ///< How the last saving or loading of a mode went; empty before.

    std::array<CalibrationBoxes, 3> trxCalibration; ///< Angles 100, 125, 150.
    CalibrationBoxes glowCalibration;
    QProperty<bool> trxProvideRawCounts{true};  ///< Else "Calc B Values".
    QProperty<bool> glowProvideRawCounts{true}; ///< Else "Calc Consentration in ug/L".
};

/// One way to choose how many samples are averaged: the option's caption and the number it stands for.
struct SamplingPreset {
    QString caption;
    QString samplesPerPoint;
};

/// The four sampling-rate options, first to fourth; the captions are data points per second.
std::array<SamplingPreset, 4> samplingPresets(bool glow);

/// What the "Processing" dialog shows.
struct ProgressState {
    QProperty<bool> visible{false};
    QProperty<int> maximum{100};
    QProperty<int> value{0};
    QProperty<Words> label{QStringLiteral("%")};
    QProperty<QString> valueLabel;

    /// How far each field that is read and each prompt moves the bar on.
    static constexpr int step = 10;

    /// Shows the dialog as newly loaded.
    void show() {
        label = QStringLiteral("%");
        valueLabel = QString();
        visible = true;
    }
};

} // namespace orv
