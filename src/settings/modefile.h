// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingspanel.h"

#include <QByteArray>

#include <optional>

namespace orv {

/// A collection mode: the settings without the memory pointer, as plain values. Numbers are texts as typed.
struct Mode {
    QString samplesPerPoint;
    QString hoursBeforeBlock;
    QString pointsPerBlock;
    QString secondsBetweenPoints;
    bool logEnabled = false;
    bool wakeUp = false;
    bool auxAdc = false;
    bool gain = false;
    bool append = false;
    bool autoStart = false;

    bool operator==(const Mode&) const = default;

    /// The mode that stands in the record.
    static Mode of(const LoggerSettings& record);

    void putInto(LoggerSettings& record) const;
};

/// The content of a mode file: ten lines ended by CR LF, the values in the order in which Mode declares them, the
/// texts as typed, the flags in number print form (" 0" or " 1").
QByteArray modeFileContent(const Mode& mode);

/// The mode of a mode file's content; nothing if it has fewer than ten lines. Lines may end with CR LF or LF, the last
/// one with neither; blanks around a value and further lines are passed over. A flag line that reads 0 is 0, any other
/// is 1.
std::optional<Mode> readModeFile(const QByteArray& content);

} // namespace orv
