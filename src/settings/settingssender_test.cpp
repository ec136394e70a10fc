// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sendingtest.h"

namespace orv {

namespace {

class SetPrefsTest : public SendingTest {};

const QByteArrayList wholeSending = {"B", "000000", "T", "30\r", "D", "24\r", "Q", "60000\r", "I", "3600\r", "P"};

TEST_F(SetPrefsTest, WhatWasRemarkedOnAModeGoesWithTheNextSettings) {
    settings.modeRemark = QStringLiteral("Moored was sent.");
    setprefs();
    EXPECT_EQ(settings.modeRemark.value().toStdString(), "");
}

TEST_F(SetPrefsTest, WritesEachItemAloneAndRequestsTheReport) {
    EXPECT_EQ(setprefs(), Outcome::Sent);
    EXPECT_EQ(written(), wholeSending);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SetPrefsTest, FinishesWithTheLampGreenAndTheTimerSlow) {
    status.status = QStringLiteral("before");
    com1.input = "left over";
    onWrite = [this](const QByteArray& bytes) {
        if (bytes == "P") {
            EXPECT_EQ(com1.inputCount(), 0);
            EXPECT_EQ(com1.discards, 1);
            EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
        }
    };
    setprefs();
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
    setprefs();
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
    setprefs();
    EXPECT_EQ(writes.at(1).bytes, "111111");
}

TEST_F(SetPrefsTest, SendsTextsAsTypedAndAnEmptyBoxAsABareReturn) {
    change(settings.record, [](LoggerSettings& record) {
        record.samplesPerPoint = QString();
        record.hoursBeforeBlock = QStringLiteral("007");
        record.pointsPerBlock = QStringLiteral("99999");
        record.secondsBetweenPoints = QStringLiteral(" 1.5");
    });
    EXPECT_EQ(setprefs(), Outcome::Sent);
    EXPECT_EQ(writes.at(3).bytes, "\r");
    EXPECT_EQ(writes.at(5).bytes, "007\r");
    EXPECT_EQ(writes.at(7).bytes, "99999\r");
    EXPECT_EQ(writes.at(9).bytes, " 1.5\r");
}

TEST_F(SetPrefsTest, GivesUpOnASilentInstrumentAfterOneItem) {
    answered = 0;
    progress.visible = true;
    status.status = QStringLiteral("before");
    EXPECT_EQ(setprefs(), Outcome::Failed);
    EXPECT_EQ(written(), QByteArrayList{"B"});
    EXPECT_EQ(sinceLastWrite(), 5000);
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
    EXPECT_EQ(setprefs(), Outcome::Failed);
    EXPECT_EQ(written(), wholeSending.first(GetParam() + 1));
    EXPECT_EQ(messages.shown, std::vector{sendingError()});
    EXPECT_EQ(progress.value.value(), 10 * GetParam());
    EXPECT_EQ(settings.lamp.value(), Lamp::Failed);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

INSTANTIATE_TEST_SUITE_P(EachItem, SetPrefsStopsAt, testing::Range(0, 10));

TEST_F(SetPrefsTest, TheLampSaysThatItFailedUntilTheNextIsAnswered) {
    answered = 3;
    setprefs();
    EXPECT_EQ(settings.lamp.value(), Lamp::Failed);
    answered = 1000;
    std::vector<Lamp> lamps;
    onWrite = [&](const QByteArray&) { lamps.push_back(settings.lamp); };
    setprefs();
    EXPECT_EQ(lamps.at(0), Lamp::Failed);
    EXPECT_EQ(lamps.at(1), Lamp::Sending);
    EXPECT_EQ(settings.lamp.value(), Lamp::Sent);
}

TEST_F(SetPrefsTest, TheLampSaysThatItFailedWhenTheConnectionEnds) {
    answered = 3;
    eachMillisecond = [this] {
        if (writes.size() == 4) {
            program.closePort();
        }
    };
    setprefs();
    EXPECT_EQ(settings.lamp.value(), Lamp::Failed);
}

TEST_F(SetPrefsTest, NothingHoldsTheWindowsMeanwhile) {
    answered = 3;
    const qint64 start = clock.monotonicMilliseconds();
    sender.applySettings();
    EXPECT_EQ(written(), QByteArrayList{"B"}) << "returns before the answer is read";
    EXPECT_EQ(clock.monotonicMilliseconds(), start);
    int looks = 0;
    int discardsBefore = com1.discards;
    eachMillisecond = [&] {
        if (!procedures.isIdle()) {
            ++looks;
            program.selectUpperTab(looks % 2 == 0 ? QStringLiteral("Status") : QStringLiteral("Data"));
        }
    };
    finish();
    EXPECT_EQ(looks, 4999);
    EXPECT_EQ(written(), wholeSending.first(4));
    EXPECT_EQ(com1.discards, discardsBefore);
}

TEST_F(SetPrefsTest, NeverSetsTheClockDuringAShutterReset) {
    settings.syncTimeDate = true;
    state.Ctrlscrn = Operation::ShutterReset;
    commands.activity = Activity::ResettingShutter;
    EXPECT_EQ(setprefs(), Outcome::Sent);
    EXPECT_EQ(written(), wholeSending);
    EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    EXPECT_EQ(commands.activity.value(), Activity::ResettingShutter);
}

TEST_F(SetPrefsTest, DoesNothingWithoutAConnection) {
    fixit();
    EXPECT_EQ(setprefs(), std::nullopt);
    EXPECT_TRUE(writes.empty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(timer.interval(), StatusTimer::normalInterval);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

/// A wait of a sending: for the answer to the write of that number, or, when it has been answered, for the time of the
/// next digit.
struct SendingMoment {
    std::size_t writes;
    bool answered;
};

void PrintTo(const SendingMoment& moment, std::ostream* out) {
    *out << moment.writes << (moment.answered ? "Answered" : "Unanswered");
}

struct Interruption {
    const char* name;
    void (*act)(ProgramRig& rig);
    Activity activity; ///< Afterwards.
    bool programLives;
    std::size_t messages;
};

void PrintTo(const Interruption& interruption, std::ostream* out) {
    *out << interruption.name;
}

const Interruption interruptions[] = {
    {"Reset", [](ProgramRig& rig) { rig.program.reset(); }, Activity::Connecting, true, 0},
    {"ClosePort", [](ProgramRig& rig) { rig.program.closePort(); }, Activity::None, true, 0},
    {"PulledCable", [](ProgramRig& rig) { rig.com1.unplugged = true; }, Activity::None, true, 1},
    {"Quit", [](ProgramRig& rig) { rig.program.quit(); }, Activity::None, false, 0},
    {"End", [](ProgramRig& rig) { rig.program.end(); }, Activity::None, false, 0},
};

class SendingInterrupted : public SendingTest,
                           public testing::WithParamInterface<std::tuple<SendingMoment, Interruption>> {};

TEST_P(SendingInterrupted, AtOnceAndForGood) {
    const auto& [moment, interruption] = GetParam();
    settings.syncTimeDate = true;
    answered = moment.writes - (moment.answered ? 0 : 1);
    sender.applySettings();
    while (writes.size() < moment.writes) {
        ASSERT_FALSE(procedures.isIdle());
        live(0.001);
    }
    live(0.1);
    ASSERT_EQ(writes.size(), moment.writes);
    ASSERT_TRUE(progress.visible);
    EXPECT_EQ(commands.activity.value(), moment.writes > 10 ? Activity::SettingClock : Activity::Sending);

    interruption.act(*this);
    const auto expectEnded = [&] {
        EXPECT_EQ(writes.size(), moment.writes);
        EXPECT_FALSE(progress.visible);
        EXPECT_EQ(timer.isRunning(), interruption.programLives);
        EXPECT_EQ(timer.interval(), interruption.programLives ? StatusTimer::normalInterval : 0);
        EXPECT_EQ(commands.activity.value(), interruption.activity);
        EXPECT_EQ(messages.shown.size(), interruption.messages);
        EXPECT_FALSE(shownAfter);
    };
    expectEnded();
    EXPECT_EQ(resets, interruption.programLives && QByteArray(interruption.name) != "ClosePort" ? 1 : 0);
    answered = 1000;
    live(6.0);
    if (interruption.activity == Activity::None) {
        EXPECT_TRUE(procedures.isIdle());
        expectEnded();
    }
    if (interruption.messages == 1) {
        expectOffline();
        EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Pulled.")));
    }
    EXPECT_EQ(writes.size(), moment.writes);
}

std::vector<SendingMoment> waitsOfASending() {
    std::vector<SendingMoment> moments;
    for (std::size_t write = 1; write <= 20; ++write) {
        const bool prompted = write <= 11 || write == 17;
        if (prompted) {
            moments.push_back({write, false});
        }
        if (write > 10) {
            moments.push_back({write, true});
        }
    }
    return moments;
}

INSTANTIATE_TEST_SUITE_P(InEachWait, SendingInterrupted,
                         testing::Combine(testing::ValuesIn(waitsOfASending()), testing::ValuesIn(interruptions)),
                         [](const auto& info) {
                             return testing::PrintToString(std::get<0>(info.param)) +
                                    testing::PrintToString(std::get<1>(info.param));
                         });

TEST_F(SetPrefsTest, ANewConnectionMadeInTheWaitGetsNothingOfTheOldSending) {
    settings.syncTimeDate = true;
    sender.applySettings();
    live(0.5);
    ASSERT_EQ(writes.size(), 13U) << "between the digits";
    writes.clear();
    program.reset();
    replies = {"V512\r"};
    finish();
    EXPECT_EQ(written(), QByteArrayList{"P"});
    EXPECT_EQ(commands.activity.value(), Activity::ReadingSettings);
    readReport();
    settings.syncTimeDate = false;
    writes.clear();
    apply();
    live(3.0);
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_EQ(written().join(), "B100110T30\rD24\rQ60000\rI5\rP");
    EXPECT_EQ(timer.interval(), StatusTimer::slowInterval);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SetPrefsTest, ListsEveryItemAndAnswerWhileRawCountsAreProvided) {
    change(settings.record, [](LoggerSettings& record) { record.hoursBeforeBlock = QString(); });
    int selections = 0;
    const auto counting = debug.list.lastSelected.subscribe([&selections] { ++selections; });
    setprefs();
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
    setprefs();
    EXPECT_TRUE(transcript().isEmpty());
}

TEST_F(SetPrefsTest, TheOptionOfTheConnectedTypeDecidesOnTheTranscript) {
    settings.trxProvideRawCounts = false;
    status.instrument = InstrumentType::Glow;
    setprefs();
    EXPECT_EQ(transcript().size(), 20);
}

TEST_F(SetPrefsTest, ListsTheTimeoutOnlyInTheServiceModeWithRawBuffer) {
    answered = 0;
    settings.trxProvideRawCounts = false;
    for (const bool serviceMode : {false, true}) {
        for (const bool rawBuffer : {false, true}) {
            state.trouble = serviceMode ? 1 : 0;
            debug.rawBuffer = rawBuffer;
            debug.showParsing = !rawBuffer;
            setprefs();
            EXPECT_EQ(transcript(), serviceMode && rawBuffer ? QStringList{QStringLiteral("Timeout")} : QStringList());
        }
    }
}

} // namespace

} // namespace orv
