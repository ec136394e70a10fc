// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shuttersettings.h"

#include <QStringList>

namespace orv {

namespace {

struct Flag {
    QProperty<bool> LoggerSettings::*box;
    const char* caption;
};

const std::array<Flag, 6> flagBoxes{{{&LoggerSettings::append, "Append"},
                                     {&LoggerSettings::logEnabled, "Log Enabled"},
                                     {&LoggerSettings::wakeUp, "Wake Up"},
                                     {&LoggerSettings::auxAdc, "Aux ADC"},
                                     {&LoggerSettings::gain, "Gain"},
                                     {&LoggerSettings::autoStart, "Auto Start"}}};

const std::array<QProperty<QString> LoggerSettings::*, 4> numberBoxes{
    &LoggerSettings::samplesPerPoint, &LoggerSettings::pointsPerBlock, &LoggerSettings::secondsBetweenPoints,
    &LoggerSettings::hoursBeforeBlock};

} // namespace

ShutterSettings ShutterSettings::temporary() {
    const QString none = QStringLiteral("0");
    const QString one = QStringLiteral("1");
    return {.flags = {}, .numbers = {one, one, none, none}};
}

ShutterSettings ShutterSettings::shown(const LoggerSettings& record) {
    ShutterSettings settings;
    for (std::size_t flag = 0; flag < flagBoxes.size(); ++flag) {
        settings.flags.at(flag) = record.*flagBoxes.at(flag).box;
    }
    for (std::size_t number = 0; number < numberBoxes.size(); ++number) {
        settings.numbers.at(number) = record.*numberBoxes.at(number);
    }
    return settings;
}

void ShutterSettings::show(LoggerSettings& record) const {
    for (std::size_t flag = 0; flag < flagBoxes.size(); ++flag) {
        record.*flagBoxes.at(flag).box = flags.at(flag);
    }
    for (std::size_t number = 0; number < numberBoxes.size(); ++number) {
        record.*numberBoxes.at(number) = numbers.at(number);
    }
}

QString ShutterSettings::text() const {
    QStringList ticked;
    for (std::size_t flag = 0; flag < flagBoxes.size(); ++flag) {
        if (flags.at(flag)) {
            ticked << QString::fromLatin1(flagBoxes.at(flag).caption);
        }
    }
    const auto number = [this](std::size_t index) {
        return numbers.at(index).isEmpty() ? QStringLiteral("none") : numbers.at(index);
    };
    return QStringLiteral(
               "%1; samples per point %2, points per block %3, seconds between points %4, hours before a block "
               "%5")
        .arg(ticked.isEmpty() ? QStringLiteral("no control bit") : ticked.join(QLatin1String(", ")), number(0),
             number(1), number(2), number(3));
}

} // namespace orv
