// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/plainenglish.h"

#include "base/text.h"

#include <cmath>

namespace orv {

namespace {

/// How long the instrument waits before a block; empty for a negative number.
QString delayPhrase(double hours) {
    if (hours == 0.0) {
        return QStringLiteral(" half a second");
    }
    if (hours == 1.0) {
        return QStringLiteral(" an hour");
    }
    return hours > 1.0 ? printedNumber(hours) + QStringLiteral(" hours") : QString();
}

QString sleepLine(double total) {
    const double hours = std::floor(total / 3600.0);
    const double minutes = std::floor((total - hours * 3600.0) / 60.0);
    const double seconds = std::floor(total - (minutes * 60.0 + hours * 3600.0));
    return QStringLiteral("Then the sensor will sleep for %1 hour(s), %2 minute(s), %3 second(s).")
        .arg(printedNumber(hours), printedNumber(minutes), printedNumber(seconds));
}

} // namespace

PlainEnglish inPlainEnglish(const LoggerSettings& record) {
    PlainEnglish text;
    auto& lines = text.lines;
    const QString delay = delayPhrase(leadingNumber(record.hoursBeforeBlock));
    if (record.autoStart) {
        lines[PlainEnglish::Opening] = QStringLiteral("     The Orv Sensor will start to collect data ") + delay +
                                       QStringLiteral(" after power up");
    } else {
        lines[PlainEnglish::Opening] = QStringLiteral("     The Orv Sensor will come up waiting for a command.");
        lines[PlainEnglish::Run] = QStringLiteral("If you press run, it will start to collect data") + delay +
                                   QStringLiteral(" after you press run.");
    }
    lines[PlainEnglish::Binning] = QStringLiteral("It will bin for ") + record.samplesPerPoint +
                                   QStringLiteral(" sample(s) to create 1 data point.");
    lines[PlainEnglish::Sleep] = sleepLine(leadingNumber(record.secondsBetweenPoints));
    lines[PlainEnglish::Wake] = QStringLiteral("After this it wakes up and takes another data point. The process");

    const double points = leadingNumber(record.pointsPerBlock);
    text.finiteBlock = points > 0.0;
    if (text.finiteBlock) {
        lines[PlainEnglish::Block] = QStringLiteral("continues for ") + record.pointsPerBlock +
                                     QStringLiteral(" data points to create 1 data block.");
    } else if (points == 0.0) {
        lines[PlainEnglish::Block] =
            QStringLiteral("continues until power is shut off. All of the data collected is known as the data block");
    }
    lines[PlainEnglish::Logging] = record.logEnabled
                                       ? QStringLiteral("The data point displayed will be saved in memory.")
                                       : QStringLiteral("The data point displayed will not be saved in memory.");
    if (text.finiteBlock) {
        lines[PlainEnglish::EndOfBlock] =
            record.wakeUp
                ? QStringLiteral("After finishing a data block, the sensor will wait for new commands.")
                : QStringLiteral("After finishing a data block, the sensor will sleep until power is cycled.");
        lines[PlainEnglish::NextBlock] =
            record.append ? QStringLiteral("If you decide to take another data block, data in memory will be appended.")
                          : QStringLiteral("If you decide to take another data block, data in memory will be erased.");
    }
    return text;
}

} // namespace orv
