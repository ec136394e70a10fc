// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shutterreset.h"

#include "base/runtimeerror.h"
#include "testing/shutterbench.h"

#include <gtest/gtest.h>

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

class ShutterInterrupted : public testing::TestWithParam<ShutterMoment> {
protected:
    /// Runs a reset and does something once at the moment.
    void runAndAt(const std::function<void()>& deed) {
        bench.whenever = [this, deed] {
            if (!done && bench.at(GetParam().step, GetParam().milliseconds)) {
                done = true;
                writesBefore = bench.port->writes.size();
                deed();
            }
        };
        bench.shutter.shutterreset();
        ASSERT_TRUE(done);
    }

    void expectEnded() {
        EXPECT_EQ(bench.port->writes.size(), writesBefore) << "something was sent after the connection had gone";
        if (GetParam().temporarySent || QLatin1String(GetParam().name) == QLatin1String("BeforeSending")) {
            EXPECT_EQ(bench.shown(), ShutterBench::original());
        }
        EXPECT_EQ(bench.timer.interval(), StatusTimer::normalInterval);
        EXPECT_TRUE(bench.timer.isRunning());
        EXPECT_EQ(bench.session.commands.activity.value(), Activity::None);
        EXPECT_EQ(bench.session.status.shutterProgress.value().toStdString(), "");
        EXPECT_EQ(bench.session.status.shutterCountdown.value().toStdString(), "");
        EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::Idle);
    }

    void expectTold() {
        std::vector<Message> told;
        for (const Message& message : bench.messages.shown) {
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

    ShutterBench bench;
    bool done = false;
    qsizetype writesBefore = 0;
};

/// At the moments at which the operator's actions are handled.
class ShutterInterruptedByOperator : public ShutterInterrupted {};

TEST_P(ShutterInterrupted, ByAPulledCable) {
    qint64 pulledAt = 0;
    runAndAt([this, &pulledAt] {
        bench.port->unplugged = true;
        pulledAt = bench.clock.monotonicMilliseconds();
    });
    EXPECT_LE(bench.stepBegan - pulledAt, 1010) << "noticed late"; // the last step is the empty text
    EXPECT_FALSE(bench.ports.isOpen());
    EXPECT_EQ(bench.resets, 1);
    expectEnded();
    expectTold();
}

TEST_P(ShutterInterruptedByOperator, ByCloseAndResetOfTheLink) {
    qint64 closedAt = 0;
    runAndAt([this, &closedAt] {
        closedAt = bench.clock.monotonicMilliseconds();
        bench.fixit();
        // Everything is in order at once, whatever follows in the same handler.
        expectEnded();
    });
    EXPECT_LE(bench.clock.monotonicMilliseconds() - closedAt, 2010) << "the wait under way is the last";
    expectEnded();
    expectTold();
}

TEST_P(ShutterInterruptedByOperator, ByAResetThatConnectsAgainLeavesTheNewConnectionAlone) {
    const LoggerSettings readAnew = shutterSettings();
    runAndAt([&] {
        bench.fixit();
        bench.connect();
        bench.clock.advance(1300);
        bench.session.commands.activity = Activity::Collecting;
        bench.session.state.Ctrlscrn = Operation::Collecting;
        bench.timer.setInterval(StatusTimer::slowInterval);
        bench.settings.record = readAnew;
        writesBefore = bench.port->writes.size();
    });
    EXPECT_EQ(bench.port->writes.size(), writesBefore);
    EXPECT_EQ(bench.shown(), readAnew);
    EXPECT_EQ(bench.session.commands.activity.value(), Activity::Collecting);
    EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::Collecting);
    EXPECT_EQ(bench.timer.interval(), StatusTimer::slowInterval);
    EXPECT_EQ(bench.session.status.status.value().toStdString(), "Ready");
    EXPECT_TRUE(bench.session.commands.runEnabled);
    expectTold();
}

TEST_P(ShutterInterruptedByOperator, ByTheEndOfTheProgramSaysNothing) {
    runAndAt([this] {
        bench.yield.ending = true;
        bench.timer.setInterval(0);
        bench.ports.close();
    });
    EXPECT_EQ(bench.port->writes.size(), writesBefore);
    EXPECT_FALSE(bench.timer.isRunning());
    EXPECT_TRUE(bench.messages.shown.empty());
}

TEST_P(ShutterInterruptedByOperator, TheNextResetStartsAfresh) {
    runAndAt([this] { bench.fixit(); });
    bench.connect();
    bench.live(1.0F);
    bench.settings.record = ShutterBench::original();
    bench.port->writes.clear();
    bench.steps.clear();
    bench.messages.shown.clear();
    bench.whenever = [] {};
    QStringList counted;
    const auto watch = bench.session.status.shutterProgress.addNotifier(
        [&] { counted << bench.session.status.shutterProgress.value(); });
    bench.shutter.shutterreset();
    EXPECT_EQ(counted.at(1).toStdString(), "Getting Settings 1");
    EXPECT_EQ(bench.steps.size(), 5);
    EXPECT_TRUE(bench.messages.shown.empty());
    EXPECT_TRUE(bench.written().contains("Pr"));
}

INSTANTIATE_TEST_SUITE_P(InEachWait, ShutterInterrupted, testing::ValuesIn(shutterMoments), nameOf);
INSTANTIATE_TEST_SUITE_P(InEachWait, ShutterInterruptedByOperator, testing::ValuesIn(momentsThatYield()), nameOf);

TEST(ShutterRuntimeError, WhileReadingLeavesTheTimerRunning) {
    ShutterBench bench;
    bench.getprefs = [](const QString&) { throw RuntimeError(RuntimeError::Kind::Overflow); };
    EXPECT_THROW(bench.shutter.shutterreset(), RuntimeError);
    EXPECT_TRUE(bench.timer.isRunning());
    EXPECT_EQ(bench.session.commands.activity.value(), Activity::None);
    EXPECT_TRUE(bench.session.commands.canRun);
    EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(bench.session.status.status.value().toStdString(), "Ready");
    EXPECT_EQ(bench.session.status.shutterProgress.value().toStdString(), "");
    EXPECT_TRUE(bench.ports.isOpen());
    ASSERT_EQ(bench.messages.shown.size(), 1U);
    EXPECT_TRUE(bench.messages.shown.front().text.contains(QStringLiteral("still has its own settings")));
}

TEST(ShutterRuntimeError, WhileRestoringPutsTheSettingsBackOnTheScreen) {
    ShutterBench bench;
    int sendings = 0;
    bench.setprefs = [&] {
        if (++sendings == 2) {
            throw RuntimeError(RuntimeError::Kind::InvalidArgument);
        }
        return bench.sender.setprefs();
    };
    EXPECT_THROW(bench.shutter.shutterreset(), RuntimeError);
    EXPECT_EQ(bench.shown(), ShutterBench::original());
    EXPECT_TRUE(bench.timer.isRunning());
    ASSERT_EQ(bench.messages.shown.size(), 1U);
    EXPECT_TRUE(bench.messages.shown.front().text.contains(QStringLiteral("may still hold the temporary settings")));
}

TEST(ShutterTimeOut, TheHundredAndFiftiethReportLineEndsItLikeAReset) {
    ShutterBench bench;
    bench.session.state.Timeout = 145;
    bench.shutter.shutterreset();
    EXPECT_EQ(bench.resets, 1);
    EXPECT_EQ(bench.written(), "P");
    EXPECT_TRUE(bench.timer.isRunning());
    EXPECT_EQ(bench.session.commands.activity.value(), Activity::None);
    EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::Idle);
}

} // namespace
} // namespace orv
