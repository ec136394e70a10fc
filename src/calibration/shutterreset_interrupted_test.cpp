// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shutterreset.h"

#include "base/runtimeerror.h"
#include "testing/shutterbench.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace orv {
namespace {

struct Interruption {
    const char* name;
    void (*act)(ShutterBench& bench);
    Activity activity; ///< Afterwards.
    bool programLives;
};

const Interruption interruptions[] = {
    {"Reset", [](ShutterBench& bench) { bench.program.reset(); }, Activity::Connecting, true},
    {"ClosePort", [](ShutterBench& bench) { bench.program.closePort(); }, Activity::None, true},
    {"PulledCable", [](ShutterBench& bench) { bench.line->unplugged = true; }, Activity::None, true},
    {"Quit", [](ShutterBench& bench) { bench.program.quit(); }, Activity::None, false},
    {"End", [](ShutterBench& bench) { bench.program.end(); }, Activity::None, false},
};

class ShutterInterrupted : public testing::TestWithParam<std::tuple<ShutterMoment, Interruption>>, public ShutterBench {
protected:
    /// Runs a reset and interrupts it at the moment.
    void interrupt() {
        program.resetShutter();
        while (!at(moment.step, moment.milliseconds)) {
            ASSERT_FALSE(procedures.isIdle());
            live(0.001);
        }
        writesBefore = line->writes.size();
        interruption.act(*this);
    }

    void expectEnded() {
        EXPECT_EQ(line->writes.size(), writesBefore) << "something was sent after the interruption";
        if (moment.remembered) {
            EXPECT_EQ(shown(), ShutterBench::original());
        }
        EXPECT_EQ(timer.interval(), interruption.programLives ? StatusTimer::normalInterval : 0);
        EXPECT_EQ(timer.isRunning(), interruption.programLives);
        if (interruption.programLives) {
            EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
        }
        EXPECT_EQ(commands.activity.value(), interruption.activity);
        EXPECT_EQ(status.shutterProgress.value().toStdString(), "");
        EXPECT_EQ(status.shutterCountdown.value().toStdString(), "");
        EXPECT_FALSE(progress.visible);
    }

    /// The shutter's message comes first; of a pulled cable there is another.
    void expectTold() {
        ASSERT_EQ(messages.shown.size(), line->unplugged ? 2U : 1U);
        EXPECT_EQ(messages.shown.front().title.toStdString(), "Reset Shutter");
        const QString& text = messages.shown.front().text;
        EXPECT_EQ(text.contains(QStringLiteral("may still hold the temporary settings")), moment.temporarySent);
        EXPECT_EQ(text.contains(inWords(ShutterBench::original())), moment.temporarySent);
        EXPECT_EQ(text.contains(QStringLiteral("still has its own settings")), !moment.temporarySent);
    }

    const ShutterMoment& moment = std::get<0>(GetParam());
    const Interruption& interruption = std::get<1>(GetParam());
    qsizetype writesBefore = 0;
};

TEST_P(ShutterInterrupted, EndsAtOnceAndForGood) {
    interrupt();
    if (line->unplugged) {
        live(0.01); // while the timer runs the next tick notices it, after the lines that came before
        expectOffline();
    }
    expectEnded();
    expectTold();
    if (interruption.activity == Activity::None) {
        EXPECT_TRUE(procedures.isIdle());
        live(40.0);
        expectEnded();
        expectTold();
    }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<ShutterMoment, Interruption>>& info) {
    return std::string(std::get<0>(info.param).name) + std::get<1>(info.param).name;
}

INSTANTIATE_TEST_SUITE_P(InEachWait, ShutterInterrupted,
                         testing::Combine(testing::ValuesIn(shutterMoments), testing::ValuesIn(interruptions)), nameOf);

/// The interruption that connects again.
class ShutterInterruptedByReset : public ShutterInterrupted {};

TEST_P(ShutterInterruptedByReset, LeavesTheNewConnectionAlone) {
    interrupt();
    finish();
    live(2.0);
    EXPECT_EQ(line->writes.mid(writesBefore), (QByteArrayList{"P", "C"}));
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_TRUE(commands.canRun);
    EXPECT_TRUE(commands.canResetShutter);
    expectTold();
    if (!moment.temporarySent) {
        EXPECT_EQ(shown(), ShutterBench::original());
    } else if (!std::string(moment.name).starts_with("Sending") && !std::string(moment.name).starts_with("Restoring")) {
        EXPECT_EQ(shown(), shutterSettings()) << "as the instrument has reported";
    }
    const qsizetype writes = line->writes.size();
    live(40.0);
    EXPECT_EQ(line->writes.size(), writes);
}

TEST_P(ShutterInterruptedByReset, TheNextOneStartsAfresh) {
    interrupt();
    finish();
    live(2.0);
    line->writes.clear();
    steps.clear();
    messages.shown.clear();
    progressTexts.clear();
    resetShutter();
    EXPECT_EQ(progressTexts.at(1).toStdString(), "Getting Settings 1");
    EXPECT_EQ(steps.size(), 5);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(written().contains("Pr"));
}

INSTANTIATE_TEST_SUITE_P(InEachWait, ShutterInterruptedByReset,
                         testing::Combine(testing::ValuesIn(shutterMoments), testing::Values(interruptions[0])),
                         nameOf);

class ShutterEnds : public testing::Test, public ShutterBench {};

TEST_F(ShutterEnds, WhileReadingLeavesTheTimerRunning) {
    state.Timeout = std::numeric_limits<qint16>::max();
    resetShutter();
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(commands.canRun);
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_EQ(status.shutterProgress.value().toStdString(), "");
    EXPECT_TRUE(ports.isOpen());
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_TRUE(messages.shown[0].text.contains(QStringLiteral("still has its own settings")));
    EXPECT_TRUE(messages.shown[1].text.contains(QStringLiteral("Overflow")));
}

TEST_F(ShutterEnds, WhileRestoringPutsTheSettingsBackOnTheScreen) {
    int sendings = 0;
    line->written = [&sendings](const QByteArray& bytes) {
        if (bytes == "B" && ++sendings == 2) {
            throw RuntimeError(RuntimeError::Kind::InvalidArgument);
        }
    };
    resetShutter();
    EXPECT_EQ(shown(), ShutterBench::original());
    EXPECT_TRUE(timer.isRunning());
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_TRUE(messages.shown[0].text.contains(QStringLiteral("may still hold the temporary settings")));
    EXPECT_TRUE(messages.shown[1].text.contains(QStringLiteral("Invalid argument")));
}

TEST_F(ShutterEnds, TheHundredAndFiftiethReportLineEndsItLikeAReset) {
    state.Timeout = 145;
    resetShutter();
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_EQ(written(), "P");
    EXPECT_TRUE(timer.isRunning());
}

} // namespace
} // namespace orv
