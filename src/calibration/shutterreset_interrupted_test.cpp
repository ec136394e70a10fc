// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shutterreset.h"

#include "base/runtimeerror.h"
#include "testing/shutterbench.h"

#include <gtest/gtest.h>

#include <limits>

namespace orv {
namespace {

std::vector<ShutterMoment> momentsThatYield() {
    std::vector<ShutterMoment> moments;
    std::copy_if(shutterMoments.begin(), shutterMoments.end(), std::back_inserter(moments),
                 [](const ShutterMoment& moment) { return moment.yields; });
    return moments;
}

std::string nameOf(const testing::TestParamInfo<ShutterMoment>& info) {
    return info.param.name;
}

class ShutterInterrupted : public testing::TestWithParam<ShutterMoment>, public ShutterBench {
protected:
    /// Runs a reset and does something once at the moment.
    void runAndAt(const std::function<void()>& deed) {
        whenever = [this, deed] {
            if (!done && at(GetParam().step, GetParam().milliseconds)) {
                done = true;
                writesBefore = line->writes.size();
                deed();
            }
        };
        resetShutter();
        ASSERT_TRUE(done);
    }

    void expectEnded() {
        EXPECT_EQ(line->writes.size(), writesBefore) << "something was sent after the connection had gone";
        if (GetParam().temporarySent || QLatin1String(GetParam().name) == QLatin1String("BeforeSending")) {
            EXPECT_EQ(shown(), ShutterBench::original());
        }
        EXPECT_EQ(timer.interval(), StatusTimer::normalInterval);
        EXPECT_TRUE(timer.isRunning());
        EXPECT_EQ(commands.activity.value(), Activity::None);
        EXPECT_EQ(status.shutterProgress.value().toStdString(), "");
        EXPECT_EQ(status.shutterCountdown.value().toStdString(), "");
        EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    }

    void expectTold() {
        std::vector<Message> told;
        for (const Message& message : messages.shown) {
            if (message.title == QLatin1String("Reset Shutter")) {
                told.push_back(message);
            }
        }
        ASSERT_EQ(told.size(), 1U);
        const QString& text = told.front().text;
        EXPECT_EQ(text.contains(QStringLiteral("may still hold the temporary settings")), GetParam().temporarySent);
        EXPECT_EQ(text.contains(inWords(ShutterBench::original())), GetParam().temporarySent);
        EXPECT_EQ(text.contains(QStringLiteral("still has its own settings")), !GetParam().temporarySent);
    }

    bool done = false;
    qsizetype writesBefore = 0;
};

/// At the moments at which the operator's actions are handled.
class ShutterInterruptedByOperator : public ShutterInterrupted {};

TEST_P(ShutterInterrupted, ByAPulledCable) {
    qint64 pulledAt = 0;
    runAndAt([this, &pulledAt] {
        line->unplugged = true;
        pulledAt = clock.monotonicMilliseconds();
    });
    EXPECT_LE(stepBegan - pulledAt, 1010) << "noticed late"; // the last step is the empty text
    EXPECT_EQ(resets, 1);
    expectOffline();
    expectEnded();
    expectTold();
}

TEST_P(ShutterInterruptedByOperator, ByCloseAndResetOfTheLink) {
    qint64 closedAt = 0;
    runAndAt([this, &closedAt] {
        closedAt = clock.monotonicMilliseconds();
        fixit();
        // Everything is in order at once, whatever follows in the same handler.
        expectEnded();
    });
    EXPECT_LE(clock.monotonicMilliseconds() - closedAt, 2010) << "the wait under way is the last";
    expectEnded();
    expectTold();
}

TEST_P(ShutterInterruptedByOperator, ByAResetThatConnectsAgainLeavesTheNewConnectionAlone) {
    const LoggerSettings readAnew = shutterSettings();
    runAndAt([&] {
        fixit();
        connectAndRead();
        clock.advance(1300);
        commands.activity = Activity::Collecting;
        state.Ctrlscrn = Operation::Collecting;
        timer.setInterval(StatusTimer::slowInterval);
        settings.record = readAnew;
        writesBefore = line->writes.size();
    });
    EXPECT_EQ(line->writes.size(), writesBefore);
    EXPECT_EQ(shown(), readAnew);
    EXPECT_EQ(commands.activity.value(), Activity::Collecting);
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    EXPECT_EQ(timer.interval(), StatusTimer::slowInterval);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_TRUE(commands.runEnabled);
    expectTold();
}

TEST_P(ShutterInterruptedByOperator, ByTheEndOfTheProgramSaysNothing) {
    runAndAt([this] {
        events.ending = true;
        program.end();
    });
    EXPECT_EQ(line->writes.size(), writesBefore);
    EXPECT_FALSE(timer.isRunning());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(ShutterInterruptedByOperator, TheNextResetStartsAfresh) {
    runAndAt([this] { fixit(); });
    connectAndRead();
    live(1.0F);
    settings.record = ShutterBench::original();
    line->writes.clear();
    steps.clear();
    messages.shown.clear();
    whenever = [] {};
    progressTexts.clear();
    resetShutter();
    EXPECT_EQ(progressTexts.at(1).toStdString(), "Getting Settings 1");
    EXPECT_EQ(steps.size(), 5);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(written().contains("Pr"));
}

INSTANTIATE_TEST_SUITE_P(InEachWait, ShutterInterrupted, testing::ValuesIn(shutterMoments), nameOf);
INSTANTIATE_TEST_SUITE_P(InEachWait, ShutterInterruptedByOperator, testing::ValuesIn(momentsThatYield()), nameOf);

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
