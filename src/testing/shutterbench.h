// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"

#include <array>

namespace orv {

/// A moment of a shutter reset, so long after one of its steps has begun.
struct ShutterMoment {
    const char* name;
    const char* step;
    int milliseconds;
    bool remembered;    ///< The settings from before have been read.
    bool temporarySent; ///< The instrument may hold the temporary settings.
};

/// One moment in each wait. With an instrument that answers, the settings are read after 1.2 s; a sending takes some
/// 60 ms; the shutter moves for 31 s.
inline constexpr std::array<ShutterMoment, 8> shutterMoments{
    {{"ReadingSettings", "Getting Settings", 450, false, false},
     {"BeforeSending", "Getting Settings", 1400, true, false},
     {"Sending", "Sending New Settings", 10, true, true},
     {"AfterSending", "Sending New Settings", 600, true, true},
     {"Moving", "Moving Shutter", 15'300, true, true},
     {"Polling", "Moving Shutter", 30'500, true, true},
     {"BeforeRestoring", "Restoring Orignal Settings", 900, true, true},
     {"Restoring", "Restoring Orignal Settings", 2030, true, true}}};

/// The program connected to a scattering meter on COM 1 whose settings are original(), for tests of the shutter reset.
class ShutterBench : public ProgramRig {
public:
    explicit ShutterBench(LineMaker makeLine = simulatedInstrument)
        : ProgramRig(std::move(makeLine)) {
        ports.setDevice(1, QStringLiteral("sim:trx"));
        connectAndRead();
        for (const char* item : {"B", "000111", "T", "30\r", "D", "2\r", "Q", "100\r", "I", "5\r"}) {
            line->write(item);
            clock.advance(100);
        }
        line->discardInput();
        sender.retrieveSettings();
        live(1);
        line->writes.clear();
        progressWatch = status.shutterProgress.addNotifier([this] { noteStep(); });
    }

    void noteStep() {
        const QString text = status.shutterProgress;
        progressTexts << text;
        QString words = text;
        while (!words.isEmpty() && (words.back().isDigit() || words.back() == u' ')) {
            words.chop(1);
        }
        if (steps.isEmpty() || steps.back() != words) {
            steps << words;
            stepBegan = clock.monotonicMilliseconds();
        }
    }

    bool at(const char* step, int milliseconds) const {
        return !steps.isEmpty() && steps.back() == QLatin1String(step) &&
               clock.monotonicMilliseconds() - stepBegan >= milliseconds;
    }

    QByteArray written() const { return line->writes.join(); }

    LoggerSettings shown() const { return settings.record; }

    /// What the instrument reports when asked now.
    QByteArray report() {
        line->blocks.clear();
        line->write("P");
        clock.advance(300);
        return line->blocks.join();
    }

    static LoggerSettings original() {
        return {.logEnabled = true,
                .wakeUp = true,
                .append = true,
                .samplesPerPoint = QStringLiteral("30"),
                .hoursBeforeBlock = QStringLiteral("2"),
                .pointsPerBlock = QStringLiteral("100"),
                .secondsBetweenPoints = QStringLiteral("5")};
    }

    QStringList progressTexts; ///< As they changed.
    QStringList steps;         ///< The same without their counts.
    qint64 stepBegan = 0;
    QPropertyNotifier progressWatch;
};

} // namespace orv
