// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shutterreset.h"

#include "base/runtimeerror.h"
#include "testing/shutterbench.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

TEST(ShutterSettings, InWords) {
    EXPECT_EQ(
        inWords(shutterSettings()).toStdString(),
        "no control bit; samples per point 1, points per block 1, seconds between points 0, hours before a block 0");
    EXPECT_EQ(inWords({.wakeUp = true,
                       .append = true,
                       .samplesPerPoint = QStringLiteral("10"),
                       .hoursBeforeBlock = QStringLiteral("0"),
                       .secondsBetweenPoints = QStringLiteral("5")})
                  .toStdString(),
              "Append, Wake Up; samples per point 10, points per block none, seconds between points 5, hours before a "
              "block 0");
    EXPECT_EQ(inWords({true, true, true, true, true, true, {}, {}, {}, {}}).section(u';', 0, 0).toStdString(),
              "Append, Log Enabled, Wake Up, Aux ADC, Gain, Auto Start");
}

constexpr const char* temporaryItems = "B000000T1\rD0\rQ1\rI0\r";
constexpr const char* originalItems = "B000111T30\rD2\rQ100\rI5\r";

std::string join(const QStringList& list) {
    return list.join(u'|').toStdString();
}

TEST(ShutterReset, TheWholeSequence) {
    ShutterBench bench;
    bench.shutter.shutterreset();

    EXPECT_EQ(join(bench.steps), "Getting Settings|Sending New Settings|Moving Shutter|Restoring Orignal Settings|");
    EXPECT_EQ(bench.written(), QByteArray("P") + temporaryItems + "Pr" + originalItems + "P");
    EXPECT_EQ(bench.shown(), ShutterBench::original());
    EXPECT_TRUE(bench.messages.shown.empty());
    EXPECT_TRUE(bench.session.commands.runEnabled);
    EXPECT_EQ(bench.session.commands.activity.value(), Activity::None);
    EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::Ready) << "the last report is to be read";
    EXPECT_TRUE(bench.timer.isRunning());
    EXPECT_EQ(bench.linesOfTicks, 0) << "the report of the temporary settings reached the screen";
    EXPECT_EQ(bench.session.status.shutterCountdown.value().toStdString(), "");
    EXPECT_FALSE(bench.timerRunningWhilePolling);
}

TEST(ShutterReset, CanBeUsedAgainWhenTheRestoredSettingsHaveBeenRead) {
    ShutterBench bench;
    bench.shutter.shutterreset();
    EXPECT_FALSE(bench.session.commands.canResetShutter);
    bench.live(1.0F);
    EXPECT_EQ(bench.linesOfTicks, 12);
    EXPECT_TRUE(bench.session.commands.canResetShutter);
    EXPECT_EQ(bench.shown(), ShutterBench::original());
    EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::SettingsOpen) << "the clock has been read";
    EXPECT_EQ(bench.session.status.status.value().toStdString(), "Ready");
    EXPECT_TRUE(bench.report().contains("S0\r\nG0\r\nA0\r\nL1\r\nW1\r\nM1\r\nT30\r\nD2\r\nQ100\r\nI5\r\n"));

    bench.port->writes.clear();
    bench.steps.clear();
    QStringList counted;
    const auto watch = bench.session.status.shutterProgress.addNotifier(
        [&] { counted << bench.session.status.shutterProgress.value(); });
    bench.shutter.shutterreset();
    EXPECT_EQ(bench.written(), QByteArray("P") + temporaryItems + "Pr" + originalItems + "P");
    EXPECT_EQ(counted.at(1).toStdString(), "Getting Settings 1") << "the count starts afresh";
}

TEST(ShutterReset, AnOldReportDoesNotAllowItOnANewConnection) {
    ShutterBench bench;
    bench.shutter.shutterreset();
    bench.fixit();
    bench.connect();
    bench.session.commands.resetShutterEnabled = false;
    bench.settings.lamp = Lamp::Read;
    EXPECT_FALSE(bench.session.commands.resetShutterEnabled);
}

TEST(ShutterReset, WhatIsDisabledMeanwhile) {
    ShutterBench bench;
    bool looked = false;
    bench.whenever = [&] {
        if (!bench.at("Moving Shutter", 0)) {
            return;
        }
        looked = true;
        const CommandState& commands = bench.session.commands;
        EXPECT_EQ(commands.activity.value(), Activity::ResettingShutter);
        EXPECT_FALSE(commands.runEnabled);
        EXPECT_FALSE(commands.resetShutterEnabled);
        EXPECT_FALSE(bench.timer.isRunning());
        EXPECT_EQ(bench.session.status.status.value().toStdString(), "Resetting Shutter");
        EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::ShutterReset);
    };
    bench.shutter.shutterreset();
    EXPECT_TRUE(looked);
}

TEST(ShutterReset, SaysSoAndKeepsItsCodeWhileTheReportIsRead) {
    ShutterBench bench;
    int looks = 0;
    bench.whenever = [&] {
        if (bench.at("Getting Settings", 350) && bench.steps.size() == 1) {
            ++looks;
            EXPECT_EQ(bench.session.status.status.value().toStdString(), "Resetting Shutter");
            EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::ShutterReset);
        }
    };
    bench.shutter.shutterreset();
    EXPECT_GT(looks, 0);
}

TEST(ShutterReset, WhatArrivedBeforeItIsNoAnswer) {
    ShutterBench bench("sim:trx?fault=silent");
    bench.settings.record = ShutterBench::original();
    bench.port->arrived = "P\r\nS0\r\nT77\r\n";
    bench.shutter.shutterreset();
    EXPECT_EQ(bench.shown(), ShutterBench::original());
}

TEST(ShutterReset, APromptOfTheTimeBeforeThePollsDoesNotEndThem) {
    ShutterBench bench("sim:trx?fault=silent");
    bool came = false;
    qint64 moveBegan = 0;
    bench.whenever = [&] {
        if (!came && bench.at("Moving Shutter", 20'000)) {
            came = true;
            moveBegan = bench.stepBegan;
            bench.port->arrived = ">";
        }
    };
    qint64 restoring = 0;
    const auto restored = bench.session.status.shutterProgress.addNotifier([&] {
        if (bench.session.status.shutterProgress.value() == QLatin1String("Restoring Orignal Settings")) {
            restoring = bench.clock.monotonicMilliseconds();
        }
    });
    bench.shutter.shutterreset();
    EXPECT_TRUE(came);
    EXPECT_GE(restoring - moveBegan, 59'900) << "the polls went on to their limit";
}

TEST(ShutterReset, TheScreenShowsTheTemporarySettingsWhileTheyAreSent) {
    ShutterBench bench;
    LoggerSettings sent;
    bench.setprefs = [&] {
        if (sent == LoggerSettings()) {
            sent = bench.shown();
        }
        return bench.sender.setprefs();
    };
    bench.shutter.shutterreset();
    EXPECT_EQ(sent, shutterSettings());
}

TEST(ShutterReset, TheClockIsNotSetEvenIfTheBoxIsTicked) {
    ShutterBench bench;
    bench.settings.syncTimeDate = true;
    bench.shutter.shutterreset();
    EXPECT_FALSE(bench.written().contains('U'));
    EXPECT_EQ(bench.shown(), ShutterBench::original());
}

TEST(ShutterReset, RetriesAreCountedBesideTheStep) {
    ShutterBench bench;
    QStringList counted;
    const auto watch = bench.session.status.shutterProgress.addNotifier(
        [&] { counted << bench.session.status.shutterProgress.value(); });
    bench.shutter.shutterreset();
    EXPECT_EQ(join(counted.mid(0, 3)), "Getting Settings|Getting Settings 1|Getting Settings 2");
    EXPECT_EQ(counted.at(12).toStdString(), "Getting Settings 12") << "one line a pass, twelve lines";
    EXPECT_EQ(counted.at(13).toStdString(), "Sending New Settings");
}

TEST(ShutterReset, TheMoveCountsDownBesideTheStep) {
    ShutterBench bench;
    QStringList counted;
    const auto watch = bench.session.status.shutterCountdown.addNotifier([&] {
        counted << bench.session.status.shutterCountdown.value();
        EXPECT_EQ(bench.session.status.shutterProgress.value().toStdString(), "Moving Shutter");
    });
    bench.shutter.shutterreset();
    ASSERT_EQ(counted.size(), 31);
    EXPECT_EQ(counted.front().toStdString(), "30 s");
    EXPECT_EQ(counted.at(29).toStdString(), "1 s");
    EXPECT_EQ(counted.back().toStdString(), "");
}

TEST(ShutterReset, ThePollsEndWithThePromptAlone) {
    // The shutter stops 31 s after the command, 1 s into the polls.
    ShutterBench bench;
    bench.shutter.shutterreset();
    const qint64 polled = bench.stepBegan; // the last step ends the run
    EXPECT_LT(polled, 45'000);
}

TEST(ShutterReset, AClosedPortIsOnlyAnnounced) {
    ShutterBench bench;
    bench.fixit();
    bench.shutter.shutterreset();
    EXPECT_TRUE(bench.written().isEmpty());
    EXPECT_EQ(bench.session.commands.activity.value(), Activity::None);
    EXPECT_TRUE(bench.messages.shown.empty());
}

TEST(ShutterReset, ASilentInstrumentGoesThroughEveryStep) {
    ShutterBench bench("sim:trx?fault=silent");
    bench.settings.record = ShutterBench::original();
    const qint64 start = bench.clock.monotonicMilliseconds();
    bench.shutter.shutterreset();

    EXPECT_EQ(join(bench.steps), "Getting Settings|Sending New Settings|Moving Shutter|Restoring Orignal Settings|");
    EXPECT_EQ(bench.written(), "PBrB");
    // 21 retries of 0.1 s, 0.5 s, a sending given up after 5 s, 1 s, 30 s, polls of 1 ms up to the count of 30001 that
    // begins at 21, 2 s, another sending.
    const qint64 expected = 2100 + 500 + 5000 + 1000 + 30'000 + 29'980 + 2000 + 5000;
    const qint64 passed = bench.clock.monotonicMilliseconds() - start;
    EXPECT_GE(passed, expected);
    EXPECT_LT(passed, expected + 500);
    EXPECT_TRUE(bench.session.commands.canRun);
    EXPECT_TRUE(bench.timer.isRunning());
    EXPECT_EQ(bench.shown(), ShutterBench::original());
    EXPECT_EQ(bench.session.state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(bench.session.status.status.value().toStdString(), "Ready");

    ASSERT_EQ(bench.messages.shown.size(), 3U);
    EXPECT_EQ(bench.messages.shown[0].text.toStdString(), "Error Sending Prefs. Error Code 1");
    EXPECT_EQ(bench.messages.shown[2].title.toStdString(), "Reset Shutter");
    EXPECT_TRUE(bench.messages.shown[2].text.contains(QStringLiteral("could not be sent back")));
}

TEST(ShutterReset, PollsAreCountedOnFromTheRetries) {
    ShutterBench bench("sim:trx?fault=silent");
    QStringList counted;
    const auto watch = bench.session.status.shutterProgress.addNotifier(
        [&] { counted << bench.session.status.shutterProgress.value(); });
    bench.shutter.shutterreset();
    EXPECT_TRUE(counted.contains(QStringLiteral("Getting Settings 21")));
    EXPECT_FALSE(counted.contains(QStringLiteral("Getting Settings 22")));
    EXPECT_TRUE(counted.contains(QStringLiteral("Moving Shutter 100")));
    EXPECT_TRUE(counted.contains(QStringLiteral("Moving Shutter 30000")));
    EXPECT_FALSE(counted.contains(QStringLiteral("Moving Shutter 30100")));
}

TEST(ShutterReset, TheWindowLivesWhilePolling) {
    ShutterBench bench("sim:trx?fault=silent");
    bench.shutter.shutterreset();
    // Every 10 ms of the 30 s of polls and of the two sendings of 5 s.
    EXPECT_GE(bench.yield.responsive, 3900);
    EXPECT_LE(bench.yield.responsive, 4100);
    EXPECT_FALSE(bench.timerRunningWhilePolling);
}

TEST(ShutterReset, APromptAmongOtherCharactersDoesNotEndThePolls) {
    ShutterBench bench("sim:trx?fault=silent");
    auto* fake = new FakePort;
    bench.makePort = [fake](TestClock& clock) {
        fake->waited = [&clock](int milliseconds) { clock.advance(milliseconds); };
        return std::unique_ptr<Port>(fake);
    };
    bench.fixit();
    bench.ports.setDevice(1, QStringLiteral("fake"));
    bench.connect();
    bench.setprefs = [&bench] {
        bench.session.state.Ctrlscrn = Operation::Ready;
        return SettingsSender::Outcome::Sent;
    };
    bool together = false;
    bool alone = false;
    bench.port->waited = [&](int) {
        if (!together && bench.at("Moving Shutter", 30'500)) {
            fake->input = "r\r\n>";
            together = true;
        } else if (together && !alone && bench.at("Moving Shutter", 31'500)) {
            fake->input = ">";
            alone = true;
        }
    };
    qint64 moved = 0;
    qint64 moveBegan = 0;
    const auto moveWatch = bench.session.status.shutterCountdown.addNotifier([&] {
        if (moveBegan == 0) {
            moveBegan = bench.clock.monotonicMilliseconds();
        }
    });
    const auto restored = bench.session.status.shutterProgress.addNotifier([&] {
        if (bench.session.status.shutterProgress.value() == QLatin1String("Restoring Orignal Settings")) {
            moved = bench.clock.monotonicMilliseconds() - moveBegan;
        }
    });
    bench.shutter.shutterreset();
    EXPECT_TRUE(alone);
    EXPECT_GE(moved, 31'500);
    EXPECT_LT(moved, 32'000);
}

TEST(ShutterReset, AnnouncesItself) {
    ShutterBench bench;
    auto* debugPort = new FakePort;
    bench.makePort = [debugPort](TestClock&) { return std::unique_ptr<Port>(debugPort); };
    bench.ports.setDevice(2, QStringLiteral("debug"));
    WatchedPort* const instrument = bench.port;
    bench.ports.openDebugPort();
    bench.port = instrument;
    bench.debug.comm2Output = true;
    bench.shutter.shutterreset();
    EXPECT_TRUE(debugPort->allWritten().startsWith("Reset Shutter\rGet Prefs\r"));
    EXPECT_EQ(debugPort->allWritten().count("Get Prefs\r"), 12);
}

} // namespace

} // namespace orv
