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

class ShutterResetTest : public testing::Test, public ShutterBench {};

TEST_F(ShutterResetTest, TheWholeSequence) {
    const int linesBefore = state.Timeout;
    program.resetShutter();
    EXPECT_EQ(written(), "P") << "returns before the answer is read";
    int readsItself = 0;
    eachMillisecond = [&] {
        if (commands.activity.value() == Activity::Sending || at("Moving Shutter", 0)) {
            ++readsItself;
            EXPECT_FALSE(timer.isRunning());
        }
    };
    finish();
    EXPECT_GT(readsItself, 31'000);

    EXPECT_EQ(join(steps), "Getting Settings|Sending New Settings|Moving Shutter|Restoring Orignal Settings|");
    EXPECT_EQ(written(), QByteArray("P") + temporaryItems + "Pr" + originalItems + "P");
    EXPECT_EQ(shown(), ShutterBench::original());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(commands.runEnabled);
    EXPECT_EQ(commands.activity.value(), Activity::ReadingSettings) << "the last report is to be read";
    EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(state.Timeout - linesBefore, 12) << "the report of the temporary settings reached the screen";
    EXPECT_EQ(status.shutterCountdown.value().toStdString(), "");
}

TEST_F(ShutterResetTest, SettingsThatAreReadOtherwiseThanBeforeAreTold) {
    line->write("D");
    clock.advance(100);
    line->write("20\r"); // as if a character of the report were lost or doubled
    clock.advance(100);
    line->discardInput();
    resetShutter();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text.english().toStdString(),
              "The settings that the instrument gave at the beginning of the shutter reset are not those that it gave "
              "before: Delay Before Data Blocks (hours) is 20 there, not 2. They were sent back as it gave them "
              "last.\n\nLook at the settings screen; if they are wrong, correct them and press \"Apply Settings\".");
    EXPECT_TRUE(messages.shown[0].withoutWindow.contains(QStringLiteral("hoursBeforeBlock=2 ")));
    EXPECT_EQ(shown().hoursBeforeBlock, QStringLiteral("20"));
    live(1.0);
    resetShutter();
    EXPECT_EQ(messages.shown.size(), 1U) << "they are known now";
}

TEST_F(ShutterResetTest, CanBeUsedAgainWhenTheRestoredSettingsHaveBeenRead) {
    const int linesBefore = state.Timeout;
    resetShutter();
    EXPECT_FALSE(commands.canResetShutter);
    EXPECT_FALSE(commands.canRun);
    EXPECT_FALSE(commands.canCommand);
    eachMillisecond = [&] {
        EXPECT_EQ(commands.resetShutterEnabled.value(), settings.lamp.value() == Lamp::Read) << "not by a part of them";
    };
    live(1.0);
    eachMillisecond = {};
    EXPECT_EQ(state.Timeout - linesBefore, 12 + 12);
    EXPECT_TRUE(commands.canResetShutter);
    EXPECT_TRUE(commands.canRun);
    EXPECT_EQ(shown(), ShutterBench::original());
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen) << "the clock has been read";
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_TRUE(report().contains("S0\r\nG0\r\nA0\r\nL1\r\nW1\r\nM1\r\nT30\r\nD2\r\nQ100\r\nI5\r\n"));

    line->writes.clear();
    steps.clear();
    progressTexts.clear();
    resetShutter();
    EXPECT_EQ(written(), QByteArray("P") + temporaryItems + "Pr" + originalItems + "P");
    EXPECT_EQ(progressTexts.at(1).toStdString(), "Getting Settings 1") << "the count starts afresh";
}

TEST_F(ShutterResetTest, SaysWhenTheRestoredSettingsAreNotReported) {
    int reports = 0;
    line->written = [this, &reports](const QByteArray& bytes) {
        if (bytes == "P" && ++reports == 3) {
            line->silent = true;
        }
    };
    resetShutter();
    live(9.9);
    EXPECT_EQ(commands.activity.value(), Activity::ReadingSettings);
    EXPECT_NE(status.status.value().toStdString(), "No answer for 10 s. Reset connects again.");
    live(0.2);
    EXPECT_EQ(status.status.value().toStdString(), "No answer for 10 s. Reset connects again.");
    EXPECT_FALSE(commands.canResetShutter);
    EXPECT_FALSE(commands.canRun);
    line->silent = false;
    program.reset();
    finish();
    live(2.0);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_EQ(shown(), ShutterBench::original());
    EXPECT_TRUE(commands.canResetShutter);
}

TEST_F(ShutterResetTest, AModeThatIsSentBackIsStillThere) {
    settings.modeRemark = QStringLiteral("Moored was sent.");
    resetShutter();
    EXPECT_EQ(settings.modeRemark.value().toStdString(), "Moored was sent.");
}

TEST_F(ShutterResetTest, RestoresEachFlag) {
    line->write("B");
    line->write("111111");
    clock.advance(100);
    line->discardInput();
    sender.retrieveSettings();
    live(1.0);
    line->writes.clear();
    resetShutter();
    EXPECT_EQ(written(), QByteArray("P") + temporaryItems + "PrB111111T30\rD2\rQ100\rI5\rP");
    EXPECT_TRUE(report().contains("S1\r\nG1\r\nA1\r\nL1\r\nW1\r\nM1\r\nT30\r\n"));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ShutterResetTest, AnOldReportDoesNotAllowItOnANewConnection) {
    resetShutter();
    fixit();
    autoConnect();
    commands.resetShutterEnabled = false;
    live(2.0);
    EXPECT_EQ(settings.lamp.value(), Lamp::Read);
    EXPECT_FALSE(commands.resetShutterEnabled);
}

TEST_F(ShutterResetTest, WhatIsDisabledMeanwhile) {
    bool looked = false;
    eachMillisecond = [&] {
        if (!at("Moving Shutter", 0)) {
            return;
        }
        looked = true;
        EXPECT_EQ(commands.activity.value(), Activity::ResettingShutter);
        EXPECT_FALSE(commands.runEnabled);
        EXPECT_FALSE(commands.resetShutterEnabled);
        EXPECT_FALSE(timer.isRunning());
        EXPECT_EQ(status.status.value().toStdString(), "Resetting Shutter");
        EXPECT_EQ(state.Ctrlscrn, Operation::ShutterReset);
    };
    resetShutter();
    EXPECT_TRUE(looked);
}

TEST_F(ShutterResetTest, SaysSoAndKeepsItsCodeWhileTheReportIsRead) {
    int looks = 0;
    eachMillisecond = [&] {
        if (at("Getting Settings", 350) && steps.size() == 1) {
            ++looks;
            EXPECT_EQ(status.status.value().toStdString(), "Resetting Shutter");
            EXPECT_EQ(state.Ctrlscrn, Operation::ShutterReset);
        }
    };
    resetShutter();
    EXPECT_GT(looks, 0);
}

TEST_F(ShutterResetTest, WhatArrivedBeforeItIsNoAnswer) {
    line->silent = true;
    settings.record = ShutterBench::original();
    line->input = "P\r\nS0\r\nT77\r\n";
    resetShutter();
    EXPECT_EQ(shown(), ShutterBench::original());
}

TEST_F(ShutterResetTest, TheScreenShowsTheTemporarySettingsWhileTheyAreSent) {
    LoggerSettings sent;
    line->written = [this, &sent](const QByteArray& bytes) {
        if (bytes == "B" && sent == LoggerSettings()) {
            sent = shown();
        }
    };
    resetShutter();
    EXPECT_EQ(sent, shutterSettings());
}

TEST_F(ShutterResetTest, EachStepIsOnTheScreenBeforeItsCommandIsSent) {
    QStringList shownAt;
    line->written = [this, &shownAt](const QByteArray& bytes) {
        if (bytes == "B" || bytes == "r") {
            shownAt << status.shutterProgress.value();
        }
    };
    resetShutter();
    EXPECT_EQ(join(shownAt), "Sending New Settings|Moving Shutter|Restoring Orignal Settings");
}

TEST_F(ShutterResetTest, TheClockIsNotSetEvenIfTheBoxIsTicked) {
    settings.syncTimeDate = true;
    resetShutter();
    EXPECT_FALSE(written().contains('U'));
    EXPECT_EQ(shown(), ShutterBench::original());
}

TEST_F(ShutterResetTest, RetriesAreCountedBesideTheStep) {
    progressTexts.clear();
    resetShutter();
    EXPECT_EQ(join(progressTexts.mid(0, 3)), "Getting Settings|Getting Settings 1|Getting Settings 2");
    EXPECT_EQ(progressTexts.at(12).toStdString(), "Getting Settings 12") << "one line a pass, twelve lines";
    EXPECT_EQ(progressTexts.at(13).toStdString(), "Sending New Settings");
}

TEST_F(ShutterResetTest, TheMoveCountsDownBesideTheStep) {
    QStringList counted;
    const auto watch = status.shutterCountdown.addNotifier([&] {
        counted << status.shutterCountdown.value();
        EXPECT_EQ(status.shutterProgress.value().toStdString(), "Moving Shutter");
    });
    resetShutter();
    ASSERT_EQ(counted.size(), 31);
    EXPECT_EQ(counted.front().toStdString(), "30 s");
    EXPECT_EQ(counted.at(29).toStdString(), "1 s");
    EXPECT_EQ(counted.back().toStdString(), "");
}

TEST_F(ShutterResetTest, ThePollsEndWithThePromptAlone) {
    // The shutter stops 31 s after the command, 1 s into the polls.
    resetShutter();
    const qint64 polled = stepBegan; // the last step ends the run
    EXPECT_LT(polled, 45'000);
}

TEST_F(ShutterResetTest, AClosedPortIsOnlyAnnounced) {
    fixit();
    resetShutter();
    EXPECT_TRUE(written().isEmpty());
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ShutterResetTest, ASilentInstrumentGoesThroughEveryStep) {
    line->silent = true;
    settings.record = ShutterBench::original();
    const qint64 start = clock.monotonicMilliseconds();
    resetShutter();

    EXPECT_EQ(join(steps), "Getting Settings|Sending New Settings|Moving Shutter|Restoring Orignal Settings|");
    EXPECT_EQ(written(), "PBrB");
    // 21 retries of 0.1 s, 0.5 s, a sending given up after 5 s, 1 s, 30 s, polls of 1 ms up to the count of 30001 that
    // begins at 21, 2 s, another sending.
    const qint64 expected = 2100 + 500 + 5000 + 1000 + 30'000 + 29'980 + 2000 + 5000;
    const qint64 passed = clock.monotonicMilliseconds() - start;
    EXPECT_GE(passed, expected);
    EXPECT_LT(passed, expected + 500);
    EXPECT_TRUE(commands.canRun);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(shown(), ShutterBench::original());
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");

    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(messages.shown[0].text.toStdString(), "Error Sending Prefs. Error Code 1");
    EXPECT_EQ(messages.shown[2].title.toStdString(), "Reset Shutter");
    EXPECT_TRUE(messages.shown[2].text.contains(QStringLiteral("could not be sent back")));
}

TEST_F(ShutterResetTest, PollsAreCountedOnFromTheRetries) {
    line->silent = true;
    progressTexts.clear();
    resetShutter();
    EXPECT_TRUE(progressTexts.contains(QStringLiteral("Getting Settings 21")));
    EXPECT_FALSE(progressTexts.contains(QStringLiteral("Getting Settings 22")));
    EXPECT_TRUE(progressTexts.contains(QStringLiteral("Moving Shutter 100")));
    EXPECT_TRUE(progressTexts.contains(QStringLiteral("Moving Shutter 30000")));
    EXPECT_FALSE(progressTexts.contains(QStringLiteral("Moving Shutter 30100")));
}

TEST_F(ShutterResetTest, TheOperatorMayLookAtThePagesMeanwhile) {
    line->silent = true;
    const qint64 start = clock.monotonicMilliseconds();
    int looks = 0;
    eachMillisecond = [&] {
        const bool status = ++looks % 2 == 0;
        program.selectUpperTab(status ? QStringLiteral("Status") : QStringLiteral("Data"));
        EXPECT_EQ(program.pages.shown.value(), pageOfCaption(program.pages.upperCaption));
    };
    resetShutter();
    EXPECT_EQ(looks, clock.monotonicMilliseconds() - start);
    EXPECT_GE(looks, 75'580);
    EXPECT_EQ(written(), "PBrB");
}

/// How long the step "Moving Shutter" takes when this arrives, each so many milliseconds after its beginning.
qint64 movingTime(const std::vector<std::pair<int, QByteArray>>& arrivals) {
    ShutterBench bench;
    bench.line->silent = true;
    auto next = arrivals.begin();
    qint64 began = 0;
    qint64 ended = 0;
    bench.eachMillisecond = [&] {
        if (bench.at("Moving Shutter", 0)) {
            began = bench.stepBegan;
        } else if (ended == 0 && bench.at("Restoring Orignal Settings", 0)) {
            ended = bench.stepBegan;
        }
        while (next != arrivals.end() && bench.at("Moving Shutter", next->first)) {
            bench.line->input += next++->second;
        }
    };
    bench.resetShutter();
    EXPECT_EQ(next, arrivals.end());
    return ended - began;
}

TEST(ShutterPolls, EndWithThePromptAloneOrAtTheirLimit) {
    // The count of 30001 goes on from 21 retries; the 30 waits of a second are some milliseconds longer.
    const qint64 limit = movingTime({});
    EXPECT_GE(limit, 30'000 + 29'980);
    EXPECT_LT(limit, 30'000 + 29'980 + 200);
    EXPECT_EQ(movingTime({{20'000, ">"}}), limit) << "what comes before the polls is no answer";
    EXPECT_EQ(movingTime({{30'500, "r\r\n>"}, {31'500, ">"}}), 31'500);

    std::vector<std::pair<int, QByteArray>> blocks;
    for (int milliseconds = 31'000; milliseconds < 36'000; ++milliseconds) {
        blocks.emplace_back(milliseconds, "x");
    }
    // A block and its millisecond are one poll, except where a count is shown between them.
    EXPECT_NEAR(static_cast<double>(movingTime(blocks)), static_cast<double>(limit), 50.0);
}

TEST(ShutterPolls, EndAtTheCountOf30001) {
    ShutterBench bench;
    bench.line->silent = true;
    qint64 began = 0;
    qint64 ended = 0;
    bench.line->discarded = [&] {
        if (bench.at("Moving Shutter", 0)) {
            began = bench.clock.monotonicMilliseconds(); // the shutter has moved
        }
    };
    bench.eachMillisecond = [&] {
        if (ended == 0 && bench.at("Restoring Orignal Settings", 0)) {
            ended = bench.stepBegan;
        }
    };
    bench.resetShutter();
    EXPECT_EQ(ended - began, 30'001 - 21) << "the retries have been counted";
}

TEST_F(ShutterResetTest, AnnouncesItself) {
    ports.setDevice(2, QStringLiteral("sim:glow"));
    TestPort* const instrument = line;
    tickDebugOutput();
    TestPort* const debugPort = std::exchange(line, instrument);
    resetShutter();
    const QByteArray said = debugPort->writes.join();
    EXPECT_TRUE(said.startsWith("Reset Shutter\rGet Prefs\r"));
    EXPECT_EQ(said.count("Get Prefs\r"), 12);
}

} // namespace

} // namespace orv
