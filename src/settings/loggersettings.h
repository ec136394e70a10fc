// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/session.h"

#include <QProperty>
#include <QString>

#include <array>

namespace orv {

/// `LoggerSettings`: how the instrument collects by itself. The controls of the settings screen are this record, so
/// the numbers are the text in their boxes, as reported or as typed.
struct LoggerSettings {
    QProperty<bool> autoStart{false};        ///< Collect at power-up.
    QProperty<bool> append{false};           ///< Add blocks to the memory instead of erasing it first.
    QProperty<bool> logEnabled{false};       ///< Record in memory.
    QProperty<bool> wakeUp{false};           ///< After a block: ready for commands (true) or asleep.
    QProperty<bool> auxAdc{false};           ///< Function not available.
    QProperty<bool> gain{false};             ///< Function not available.
    QProperty<QString> hoursBeforeBlock;     ///< `Text1`, hours; 0 is half a second.
    QProperty<QString> samplesPerPoint;      ///< `Text2`, samples averaged into one point.
    QProperty<QString> secondsBetweenPoints; ///< `Text3`, seconds, 0..65535.
    QProperty<QString> pointsPerBlock;       ///< `Text4`, 0..65535; 0 is continuous.
};

/// The status lamp of the settings screen: what goes on with the settings.
enum class Lamp { Off, Reading, Sending, Sent, Read };

/// Offset and scale with which counts become a value, as typed.
struct CalibrationBoxes {
    QProperty<QString> offset{QStringLiteral("0")};
    QProperty<QString> scale{QStringLiteral("1")};
};

/// What the "Logger Settings" screen shows.
struct SettingsState {
    LoggerSettings record;

    QProperty<bool> visible{false};
    QProperty<Lamp> lamp{Lamp::Off};
    QProperty<int> samplingOption{0};    ///< The selected sampling-rate option, 1..4; 0 for none.
    QProperty<QString> capacity;         ///< "Logger Capacity (% full)".
    QProperty<QString> memoryPointer;    ///< The raw value behind it.
    QProperty<bool> syncTimeDate{false}; ///< "Sync Time/Date".
    QProperty<QString> computerDate;
    QProperty<QString> computerTime;
    QProperty<QString> loggerDate{StatusState::unknownLong()};
    QProperty<QString> loggerTime{StatusState::unknownLong()};
    QProperty<QString> modeRemark; ///< How the last saving or loading of a mode went; empty before.

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
    QProperty<QString> label{QStringLiteral("%")};
    QProperty<QString> valueLabel;
    QProperty<QString> percentage; ///< Beside the "%" label during a download; empty otherwise.

    /// Shows the dialog as newly loaded.
    void show() {
        label = QStringLiteral("%");
        valueLabel = QString();
        percentage = QString();
        visible = true;
    }
};

} // namespace orv
