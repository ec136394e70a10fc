// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sendingtest.h"

namespace orv {

namespace {

class WaitPromptTest : public SendingTest {
protected:
    /// What the instrument sends, a piece for each pass that would find nothing.
    void arrive(const QByteArrayList& pieces) {
        pieces_ = pieces;
        com1.waited = [this](int milliseconds) {
            ++passes;
            clock.advance(milliseconds);
            if (!pieces_.isEmpty()) {
                com1.input = pieces_.takeFirst();
            }
        };
    }

    QString reply() const { return state.Rtn; }

    PromptDialogue dialogue{program.link, settings, progress};

private:
    QByteArrayList pieces_;
};

TEST_F(WaitPromptTest, JoinsAReplyOverSeveralPasses) {
    arrive({"0", "", "0001", "1", ">"});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral("000011"));
    EXPECT_EQ(passes, 5);
}

TEST_F(WaitPromptTest, TakesAPointForThePrompt) {
    arrive({"B."});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral("B"));
}

TEST_F(WaitPromptTest, TakesTheFirstOfTwoPrompts) {
    arrive({"ab.cd>"});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral("ab"));
}

TEST_F(WaitPromptTest, APromptWithNothingBeforeItIsNone) {
    for (const char* prompt : {">", "."}) {
        arrive({prompt});
        EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::TimedOut);
        EXPECT_EQ(reply(), QString());
    }
}

TEST_F(WaitPromptTest, APromptLeftOverFromBeforeDoesNotEndTheWait) {
    arrive({">", "B", "."});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral(">B"));
    EXPECT_EQ(passes, 3);
}

TEST_F(WaitPromptTest, AnOldReplyIsNotTakenForANewOne) {
    state.Rtn = QStringLiteral("old");
    rxbuffer = "old>";
    status.bufferCount = 4;
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::TimedOut);
    EXPECT_EQ(reply(), QString());
    EXPECT_TRUE(rxbuffer.isEmpty());
    EXPECT_EQ(status.bufferCount.value(), 0);
}

TEST_F(WaitPromptTest, TheLastOfFiveThousandPassesStillCounts) {
    QByteArrayList pieces(4999, QByteArray());
    arrive(pieces << "B>");
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(passes, 5000);
    passes = 0;
    pieces = QByteArrayList(5000, QByteArray());
    arrive(pieces << "B>");
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::TimedOut);
    EXPECT_EQ(passes, 5000);
}

TEST_F(WaitPromptTest, WaitsUpToAMillisecondInEachPass) {
    std::vector<int> waits;
    com1.waited = [&waits](int milliseconds) { waits.push_back(milliseconds); };
    dialogue.waitprompt();
    EXPECT_EQ(waits, std::vector<int>(5000, 1));
}

TEST_F(WaitPromptTest, TheBarStaysWithinItsMaximum) {
    progress.value = 95;
    arrive({"x>"});
    dialogue.waitprompt();
    EXPECT_EQ(progress.value.value(), 100);
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("100"));
}

TEST_F(WaitPromptTest, ListsWhatEachPassRead) {
    arrive({"00", "0>"});
    dialogue.waitprompt();
    EXPECT_EQ(transcript(), (QStringList{QStringLiteral("00"), QStringLiteral("0>")}));
}

TEST_F(WaitPromptTest, WhatCameBeforeThePlugWasPulledStillCounts) {
    com1.failureReason = QStringLiteral("gone");
    com1.input = "B>";
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::ConnectionLost);
    EXPECT_EQ(passes, 1);
}

} // namespace

namespace {

class SetPrefsTest : public SendingTest {};

const QByteArrayList wholeSending = {"B", "000000", "T", "30\r", "D", "24\r", "Q", "60000\r", "I", "3600\r", "P"};

TEST_F(SetPrefsTest, WritesEachItemAloneAndRequestsTheReport) {
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(written(), wholeSending);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SetPrefsTest, FinishesWithTheLampGreenAndTheTimerSlow) {
    com1.input = "left over";
    onWrite = [this](const QByteArray& bytes) {
        if (bytes == "P") {
            EXPECT_EQ(com1.discards, 1);
            EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
        }
    };
    sender.setprefs();
    EXPECT_EQ(settings.lamp.value(), Lamp::Sent);
    EXPECT_EQ(timer.interval(), 10);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    EXPECT_EQ(progress.value.value(), 0);
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("0"));
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_EQ(status.status.value(), QStringLiteral("before"));
    EXPECT_FALSE(shownAfter);
}

TEST_F(SetPrefsTest, StandsStillAndAdvancesTheBarByTenAPrompt) {
    timer.enable();
    progress.value = 70;
    progress.maximum = 5;
    QList<int> bar;
    onWrite = [this, &bar](const QByteArray& bytes) {
        if (bytes == "P") {
            return;
        }
        bar << progress.value;
        EXPECT_EQ(progress.maximum.value(), 100);
        EXPECT_EQ(timer.interval(), 0);
        EXPECT_FALSE(timer.isRunning());
        EXPECT_EQ(commands.activity.value(), Activity::Sending);
        EXPECT_FALSE(commands.canCommand.value());
        EXPECT_EQ(settings.lamp.value(), bar.size() == 1 ? Lamp::Off : Lamp::Sending);
    };
    QStringList labels;
    const auto watch = progress.valueLabel.addNotifier([this, &labels] { labels << progress.valueLabel; });
    sender.setprefs();
    EXPECT_EQ(bar, (QList<int>{0, 10, 20, 30, 40, 50, 60, 70, 80, 90}));
    EXPECT_EQ(labels, QStringLiteral("10 20 30 40 50 60 70 80 90 100 0").split(QLatin1Char(' ')));
}

TEST_F(SetPrefsTest, BuildsTheControlBitsInTheInstrumentsOrder) {
    const std::pair<LoggerSettings, const char*> table[] = {
        {{.autoStart = true}, "100000"},  {{.gain = true}, "010000"},   {{.auxAdc = true}, "001000"},
        {{.logEnabled = true}, "000100"}, {{.wakeUp = true}, "000010"}, {{.append = true}, "000001"}};
    for (const auto& [record, bits] : table) {
        EXPECT_EQ(controlBits(record).toStdString(), bits);
    }
    settings.record = {true, true, true, true, true, true, {}, {}, {}, {}};
    sender.setprefs();
    EXPECT_EQ(writes.at(1).bytes, "111111");
}

TEST_F(SetPrefsTest, SendsTextsAsTypedAndAnEmptyBoxAsABareReturn) {
    change(settings.record, [](LoggerSettings& record) {
        record.samplesPerPoint = QString();
        record.hoursBeforeBlock = QStringLiteral("007");
        record.pointsPerBlock = QStringLiteral("99999");
        record.secondsBetweenPoints = QStringLiteral(" 1.5");
    });
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(writes.at(3).bytes, "\r");
    EXPECT_EQ(writes.at(5).bytes, "007\r");
    EXPECT_EQ(writes.at(7).bytes, "99999\r");
    EXPECT_EQ(writes.at(9).bytes, " 1.5\r");
}

TEST_F(SetPrefsTest, GivesUpOnASilentInstrumentAfterOneItem) {
    answered = 0;
    progress.visible = true;
    state.Ctrlscrn = Operation::SettingsOpen;
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::Failed);
    EXPECT_EQ(written(), QByteArrayList{"B"});
    EXPECT_EQ(passes, 5000);
    EXPECT_EQ(messages.shown, std::vector{sendingError()});
    EXPECT_EQ(shownAfter, 1U);
    EXPECT_FALSE(progress.visible.value());
    EXPECT_EQ(timer.interval(), 10);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_EQ(settings.record.value().samplesPerPoint, QStringLiteral("30"));
    EXPECT_EQ(com1.discards, 0);
}

class SetPrefsStopsAt : public SendingTest, public testing::WithParamInterface<int> {};

TEST_P(SetPrefsStopsAt, SendsNothingAfterTheUnansweredItem) {
    answered = static_cast<std::size_t>(GetParam());
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::Failed);
    EXPECT_EQ(written(), wholeSending.first(GetParam() + 1));
    EXPECT_EQ(messages.shown, std::vector{sendingError()});
    EXPECT_EQ(progress.value.value(), 10 * GetParam());
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

INSTANTIATE_TEST_SUITE_P(EachItem, SetPrefsStopsAt, testing::Range(0, 10));

TEST_F(SetPrefsTest, DoesNotYieldButKeepsTheWindowsAlive) {
    answered = 3;
    int pollingSeen = 0;
    events.whileResponsive = [this, &pollingSeen](bool manualDialogLives) {
        EXPECT_FALSE(manualDialogLives);
        pollingSeen += sender.isPolling() ? 1 : 0;
    };
    sender.setprefs();
    EXPECT_EQ(events.yields, 0);
    EXPECT_EQ(events.responsive, 3 + 500); // once a prompt, then every 10 ms of 5000 ms
    EXPECT_EQ(pollingSeen, events.responsive);
    EXPECT_FALSE(sender.isPolling());
}

TEST_F(SetPrefsTest, NeverSetsTheClockDuringAShutterReset) {
    settings.syncTimeDate = true;
    state.Ctrlscrn = Operation::ShutterReset;
    commands.activity = Activity::ResettingShutter;
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(written(), wholeSending);
    EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    EXPECT_EQ(commands.activity.value(), Activity::ResettingShutter);
}

TEST_F(SetPrefsTest, DoesNothingWithoutAConnection) {
    timer.enable();
    ports.close();
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::ConnectionLost);
    EXPECT_TRUE(writes.empty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(timer.interval(), StatusTimer::normalInterval);
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

TEST_F(SetPrefsTest, APulledCableEndsItWithOneMessage) {
    answered = 4;
    progress.visible = true;
    onWrite = [this](const QByteArray& /*bytes*/) {
        if (writes.size() == 5) {
            com1.failureReason = QStringLiteral("gone");
        }
    };
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::ConnectionLost);
    EXPECT_EQ(written(), wholeSending.first(5));
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("gone")));
    EXPECT_FALSE(shownAfter);
    EXPECT_FALSE(progress.visible.value());
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(timer.interval(), StatusTimer::normalInterval);
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

TEST_F(SetPrefsTest, EndsWhenTheConnectionIsReplacedMeanwhile) {
    answered = 1;
    events.whileResponsive = [this](bool /*manualDialogLives*/) {
        if (writes.size() == 2) {
            ports.close();
            ports.open();
        }
    };
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::ConnectionLost);
    EXPECT_EQ(writes.size(), 2U);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(timer.isRunning());
}

TEST_F(SetPrefsTest, LeavesTheTimerStillWhenTheProgramEnds) {
    answered = 2;
    events.whileResponsive = [this](bool /*manualDialogLives*/) { events.ending = writes.size() == 3; };
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::ConnectionLost);
    EXPECT_EQ(writes.size(), 3U);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(timer.isRunning());
}

TEST_F(SetPrefsTest, ListsEveryItemAndAnswerWhileRawCountsAreProvided) {
    change(settings.record, [](LoggerSettings& record) { record.hoursBeforeBlock = QString(); });
    int selections = 0;
    const auto counting = debug.list.lastSelected.subscribe([&selections] { ++selections; });
    sender.setprefs();
    EXPECT_EQ(transcript(), (QStringList{QStringLiteral("B"),
                                         QStringLiteral("B."),
                                         QStringLiteral("000000"),
                                         QStringLiteral("000000>"),
                                         QStringLiteral("T"),
                                         QStringLiteral("T."),
                                         QStringLiteral("30"),
                                         QStringLiteral("30\r>"),
                                         QStringLiteral("D"),
                                         QStringLiteral("D."),
                                         QString(),
                                         QStringLiteral("\r>"),
                                         QStringLiteral("Q"),
                                         QStringLiteral("Q."),
                                         QStringLiteral("60000"),
                                         QStringLiteral("60000\r>"),
                                         QStringLiteral("I"),
                                         QStringLiteral("I."),
                                         QStringLiteral("3600"),
                                         QStringLiteral("3600\r>")}));
    EXPECT_EQ(selections, 10);
}

TEST_F(SetPrefsTest, ListsNothingWhileValuesAreCalculated) {
    settings.trxProvideRawCounts = false;
    sender.setprefs();
    EXPECT_TRUE(transcript().isEmpty());
}

TEST_F(SetPrefsTest, TheOptionOfTheConnectedTypeDecidesOnTheTranscript) {
    settings.trxProvideRawCounts = false;
    status.instrument = InstrumentType::Glow;
    sender.setprefs();
    EXPECT_EQ(transcript().size(), 20);
}

TEST_F(SetPrefsTest, ListsTheTimeoutByTheDebugScreensOwnOption) {
    answered = 0;
    sender.setprefs();
    EXPECT_EQ(transcript(), QStringList{QStringLiteral("B")});
    settings.trxProvideRawCounts = false;
    debug.rawBuffer = true;
    sender.setprefs();
    EXPECT_EQ(transcript(), (QStringList{QStringLiteral("B"), QStringLiteral("Timeout")}));
}

} // namespace

} // namespace orv
