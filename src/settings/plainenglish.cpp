// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/plainenglish.h"

#include "base/text.h"

#include <cmath>

namespace orv {

namespace {

/// How long the instrument waits before a block; empty for a negative number.
Words delayPhrase(double hours) {
    if (hours == 0.0) {
        return Words::tr(" half a second");
    }
    if (hours == 1.0) {
        return Words::tr(" an hour");
    }
    return hours > 1.0 ? Words::tr("%1 hours").arg(printedNumber(hours)) : Words();
}

Words sleepLine(double total) {
    const double hours = std::floor(total / 3600.0);
    const double minutes = std::floor((total - hours * 3600.0) / 60.0);
    const double seconds = std::floor(total - (minutes * 60.0 + hours * 3600.0));
    return Words::tr("Then the sensor will sleep for %1 hour(s), %2 minute(s), %3 second(s).")
        .arg(printedNumber(hours), printedNumber(minutes), printedNumber(seconds));
}

} // namespace

PlainEnglish inPlainEnglish(const LoggerSettings& record) {
    PlainEnglish text;
    const auto say = [&text](PlainEnglish::Line line, const char* sentence, const Words& value = {}) {
        const Words words = Words::tr(sentence);
        text.lines.at(line) = {words.english().replace(u'%', value),
                               QString(words.shown()).replace(u'%', value.shown())};
    };
    const Words delay = delayPhrase(leadingNumber(record.hoursBeforeBlock));
    if (record.autoStart) {
        say(PlainEnglish::Opening,
            QT_TRANSLATE_NOOP("orv", "     The Orv Sensor will start to collect data % after power up"), delay);
    } else {
        say(PlainEnglish::Opening, QT_TRANSLATE_NOOP("orv", "     The Orv Sensor will come up waiting for a command."));
        say(PlainEnglish::Run,
            QT_TRANSLATE_NOOP("orv", "If you press run, it will start to collect data% after you press run."), delay);
    }
    say(PlainEnglish::Binning, QT_TRANSLATE_NOOP("orv", "It will bin for % sample(s) to create 1 data point."),
        record.samplesPerPoint);
    text.lines[PlainEnglish::Sleep] = sleepLine(leadingNumber(record.secondsBetweenPoints));
    say(PlainEnglish::Wake,
        QT_TRANSLATE_NOOP("orv", "After this it wakes up and takes another data point. The process"));

    const double points = leadingNumber(record.pointsPerBlock);
    text.finiteBlock = points > 0.0;
    if (points == 0.0) {
        say(PlainEnglish::Block,
            QT_TRANSLATE_NOOP(
                "orv", "continues until power is shut off. All of the data collected is known as the data block"));
    }
    say(PlainEnglish::Logging, record.logEnabled
                                   ? QT_TRANSLATE_NOOP("orv", "The data point displayed will be saved in memory.")
                                   : QT_TRANSLATE_NOOP("orv", "The data point displayed will not be saved in memory."));
    if (text.finiteBlock) {
        say(PlainEnglish::Block, QT_TRANSLATE_NOOP("orv", "continues for % data points to create 1 data block."),
            record.pointsPerBlock);
        say(PlainEnglish::EndOfBlock,
            record.wakeUp
                ? QT_TRANSLATE_NOOP("orv", "After finishing a data block, the sensor will wait for new commands.")
                : QT_TRANSLATE_NOOP("orv",
                                    "After finishing a data block, the sensor will sleep until power is cycled."));
        say(PlainEnglish::NextBlock,
            QT_TRANSLATE_NOOP("orv", "If you decide to take another data block, data in memory will be %."),
            record.append ? Words::tr("appended") : Words::tr("erased"));
    }
    return text;
}

} // namespace orv
