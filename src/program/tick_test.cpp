// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

namespace orv {
namespace {

struct Letter {
    const char* letter;
    const char* label;
    bool outputFrame;
    bool fluorometerFrame;
};

class IdentifiedTick : public ProgramTest, public testing::WithParamInterface<Letter> {};

TEST_P(IdentifiedTick, ShowsTheTypeAndMovesToReady) {
    tickDebugOutput();
    state.Ctrlscrn = Operation::Identified;
    state.Vartemp = QString::fromLatin1(GetParam().letter);
    program.tick();
    EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    EXPECT_EQ(instrumentName(status.instrument).toStdString(), GetParam().label);
    EXPECT_EQ(debug.outputFrameVisible.value(), GetParam().outputFrame);
    EXPECT_EQ(debug.fluorometerFrameVisible.value(), GetParam().fluorometerFrame);
    EXPECT_EQ(said(), "Version Detected\r");
    program.tick();
    EXPECT_EQ(said(), "") << "identified once";
}

INSTANTIATE_TEST_SUITE_P(Letters, IdentifiedTick,
                         testing::Values(Letter{"V", "TRX", true, false}, Letter{"v", "TRX", true, false},
                                         Letter{"F", "GLOW", false, true}, Letter{"f", "GLOW", false, true},
                                         Letter{"", "________", false, false}, Letter{"X", "________", false, false}));

TEST_F(ProgramTest, TheTickThatIdentifiesTakesTheFirstLineOfTheReportToo) {
    tickDebugOutput();
    connect();
    said();
    receive("P\r\nS1\r\n");
    EXPECT_EQ(said(), "Version Detected\rGet Prefs\r");
    EXPECT_EQ(state.Rtn.toStdString(), "P");
    EXPECT_EQ(state.Timeout, 1);
}

TEST_F(ProgramTest, LinesThatMayComeTogetherBecomeRowsInOneTick) {
    runWithRows(1);
    const QByteArray line = "11/21/26\t33307\t21877\t14556\t10059\t30512\r\n";
    receive(line + line + line);
    EXPECT_EQ(sheet.rowCount(), 2) << "one line a tick";
    ticks(2);
    EXPECT_EQ(sheet.rowCount(), 4);
    program.link.poll.linesTogether = 2;
    receive(line + line + line + "11/2");
    EXPECT_EQ(sheet.rowCount(), 7);
    EXPECT_EQ(rxbuffer, "11/2");
}

TEST_F(ProgramTest, ReadyWithoutAReplyATickCallsNothing) {
    tickDebugOutput();
    connect();
    program.tick();
    said();
    com1.writes.clear();
    receive("S1 without its end");
    ticks(5);
    EXPECT_EQ(said(), "");
    EXPECT_EQ(state.Timeout, 0);
    EXPECT_EQ(status.status.value().toStdString(), "Connecting...");
    EXPECT_TRUE(com1.writes.empty());
    receive("\r\n");
    EXPECT_EQ(said(), "Get Prefs\r");
}

TEST_F(ProgramTest, EachTickTakesOneLineAndAResetKeepsTheirCount) {
    connect();
    com1.input = "S1\r\nG0\r\nA0\r\n";
    program.tick();
    EXPECT_EQ(state.Timeout, 1);
    EXPECT_EQ(rxbuffer.toStdString(), "G0\r\nA0\r\n");
    ticks(2);
    fixit();
    program.tick();
    EXPECT_EQ(state.Timeout, 3);
}

TEST_F(ProgramTest, TheEndOfTheReportIsFollowedByTheClockInTheSameTick) {
    tickDebugOutput();
    connect();
    program.tick();
    said();
    com1.writes.clear();
    receive("MP200\r\n");
    EXPECT_EQ(said(), "Get Prefs\rCheck Orv Sensor Time\r");
    EXPECT_EQ(com1.allWritten().toStdString(), "C");
    EXPECT_EQ(state.Ctrlscrn, Operation::ClockCheck);
    program.tick();
    EXPECT_EQ(said(), "Check Orv Sensor Time\r") << "at every tick until the clock has come";
}

TEST_F(ProgramTest, TheTickThatReadsTheClockShowsTheComputersTimeToo) {
    connect();
    program.tick();
    receive("MP200\r\n");
    EXPECT_EQ(settings.computerTime.value().toStdString(), "");
    receive("11/21/26\t32400\r\n");
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(status.date.value().toStdString(), "11/21/26");
    EXPECT_EQ(status.time.value().toStdString(), "0:00:00 PM");
    EXPECT_EQ(settings.computerDate.value().toStdString(), "11/21/26");
    EXPECT_EQ(settings.computerTime.value().toStdString(), "9:30:16 AM");
    constexpr qint64 afternoon = qint64{4} * 3600 * 1000;
    clock.advance(afternoon);
    program.tick();
    EXPECT_EQ(settings.computerTime.value().toStdString(), "1:30:16 PM");
}

TEST_F(ProgramTest, TheClockOfTheNextInstrumentIsToBeSetAgainNotThatOfAClosedConnection) {
    connectAndRead();
    settings.syncTimeDate = true;
    settings.syncPending = false; // as when it has been set
    program.closePort();
    EXPECT_FALSE(settings.syncPending.value());
    connectAndRead();
    EXPECT_TRUE(settings.syncPending.value());
}

TEST_F(ProgramTest, WhatWasRemarkedOnOneInstrumentDoesNotStandBesideTheNext) {
    connectAndRead();
    settings.modeRemark = QStringLiteral("Moored was sent.");
    status.notice = QStringLiteral("Saved 40 records to lake.txt");
    replies = {"V512\r"};
    program.reset();
    finish();
    ASSERT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_EQ(settings.modeRemark.value().toStdString(), "Moored was sent.");
    EXPECT_EQ(status.notice.value().toStdString(), "Saved 40 records to lake.txt");
    program.closePort();
    EXPECT_EQ(status.notice.value().toStdString(), "");
    connectAndRead();
    EXPECT_EQ(settings.modeRemark.value().toStdString(), "");
    EXPECT_EQ(status.notice.value().toStdString(), "");
    for (const auto& connectNow : {std::function<void()>([this] { program.autoConnect1(); }),
                                   std::function<void()>([this] { program.connectPort(2); }),
                                   std::function<void()>([this] { program.manualConnect(1); })}) {
        program.closePort();
        status.notice = QStringLiteral("Saved 40 records to lake.txt");
        connectNow();
        EXPECT_EQ(status.notice.value().toStdString(), "");
        finish();
    }
}

TEST_F(ProgramTest, AClockThatHasBeenSetIsNotToBeSetAgainAfterAReset) {
    connectAndRead();
    settings.syncTimeDate = true;
    settings.syncPending = false; // as when it has been set
    replies = {"V512\r"};
    program.reset();
    finish();
    ASSERT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_FALSE(settings.syncPending.value());
    settings.syncTimeDate = false;
    settings.syncTimeDate = true; // for another setting
    replies = {"V512\r"};
    program.reset();
    finish();
    EXPECT_TRUE(settings.syncPending.value());
}

TEST_F(ProgramTest, AResetOfAnAttemptThatFoundNobodyIsNoReasonToTakeTheNextInstrumentForTheOneBefore) {
    connectAndRead();
    settings.syncTimeDate = true;
    settings.syncPending = false; // as when it has been set
    settings.modeRemark = QStringLiteral("Moored was sent.");
    program.closePort();
    autoConnect(); // nobody answers
    ASSERT_EQ(status.status.value().toStdString(), "No answer from COM 1");
    replies = {"V512\r"}; // its power is switched on
    program.reset();
    finish();
    ASSERT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(settings.syncPending.value());
    EXPECT_EQ(settings.modeRemark.value().toStdString(), "");
}

TEST_F(ProgramTest, AfterAResetAnotherPortIsAnotherInstrument) {
    connectAndRead();
    settings.syncTimeDate = true;
    settings.syncPending = false;
    replies = {};
    program.reset();
    finish();
    program.link.connection.fixit();
    replies = {"V512\r"};
    program.connectPort(2);
    finish();
    ASSERT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(settings.syncPending.value());
}

TEST_F(ProgramTest, CollectingTakesEachReplyLineAndIsSilentWithoutOne) {
    connectAndRead();
    program.run();
    tickDebugOutput();
    ticks(3);
    EXPECT_EQ(said(), "");
    receive("R\r\n11/21/26\t2700\t1\t2\t3\t4\r\n");
    EXPECT_EQ(said(), "Profile Sub\r");
    EXPECT_EQ(sheet.rowCount(), 0) << "the echo is no row";
    program.tick();
    EXPECT_EQ(said(), "Profile Sub\r");
    EXPECT_EQ(sheet.rowCount(), 1);
}

TEST_F(ProgramTest, APromptByItselfEndsTheRunAtItsTick) {
    runWithRows(2);
    receive(">");
    EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_TRUE(commands.canRun);
}

TEST_F(ProgramTest, APromptTogetherWithLinesEndsTheRunBehindTheLastOfThem) {
    runWithRows(1);
    com1.input = "11/21/26\t2700\t2\t2\t3\t4\r\n11/21/26\t2700\t3\t2\t3\t4\r\n>";
    program.tick();
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    program.tick();
    EXPECT_EQ(sheet.rowCount(), 3);
    EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
}

TEST_F(ProgramTest, ABlockThatEndsBeforeAllItsRowsIsTold) {
    const auto run = [this](const QByteArray& lines) {
        program.run();
        receive("R\r\n");
        com1.input = lines;
        ticks(5);
        EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
        return status.notice.value().toStdString();
    };
    const QByteArray line = "11/21/26\t2700\t1\t2\t3\t4\r";
    connectAndRead("V512\r", "3");
    EXPECT_EQ(run(line + '\n' + line + line + "\n>"),
              "The instrument ended the run after 2 of 3 rows; log.ohp has what came")
        << "one line's end was lost";
    EXPECT_EQ(run(line + '\n' + line + '\n' + line + "\n>"), "");
    EXPECT_EQ(run(line + "\n11/21/26\t2700\t1\t2\r\n>"), "1 line could not be read; it is in log.ohp");
    program.run();
    receive("R\r\n" + line + "\n");
    program.closePort();
    EXPECT_EQ(status.notice.value().toStdString(), "") << "the operator ended it";
}

TEST_F(ProgramTest, ABlockOfOnePointIsNotEndedByThePromptLeftOver) {
    connectAndRead("V512\r", "1");
    ASSERT_EQ(rxbuffer.toStdString(), ">");
    program.run();
    EXPECT_EQ(state.gatherstart, 1);
    receive("R\r\n");
    ticks(3);
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    receive("11/21/26\t2700\t1\t2\t3\t4\r\n>");
    EXPECT_EQ(sheet.rowCount(), 1);
    EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
}

TEST_F(ProgramTest, ADownloadIntoTheSheetIsFedByTheTick) {
    connectAndRead();
    program.vwhp();
    receive("O\r\n");
    receive("11/20/26\t2700\t1\t2\t3\t4\r\n");
    EXPECT_EQ(sheet.rowCount(), 1);
    receive("EOF\r\n>");
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
}

TEST_F(ProgramTest, ADownloadIntoAFileIsFedByTheTick) {
    connectAndRead();
    answers.fileName = folder.path("stored.txt");
    program.downloadText();
    receive("O\r\n");
    receive("11/20/26\t2700\t1\t2\t3\t4\r\n");
    receive("EOF\r\n>");
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_TRUE(contentsOf(folder.path("stored.txt")).endsWith("\r\n1\t11/20/26\t1:00:00\t1\t\t2\t\t3\t4\r\n"));
    EXPECT_EQ(sheet.rowCount(), 0);
}

TEST_F(ProgramTest, WithAnyOtherCodeATickOnlyPolls) {
    program.load();
    connectAndRead();
    tickDebugOutput();
    for (const int code : {0, 1, 999, 24, 63, -23}) {
        state.Ctrlscrn = static_cast<Operation>(code);
        state.Tmr = 1;
        fill(folder.path("log.ohp"), "");
        receive("11/21/26\t2700\t1\t2\t3\t4\r\n");
        EXPECT_EQ(state.Rtn.toStdString(), "11/21/26\t2700\t1\t2\t3\t4") << code;
        EXPECT_EQ(state.Ctrlscrn, static_cast<Operation>(code));
        EXPECT_EQ(said(), "") << code;
        EXPECT_EQ(sheet.rowCount(), 0) << code;
        EXPECT_TRUE(contentsOf(folder.path("log.ohp")).endsWith("11/21/26\t2700\t1\t2\t3\t4\r\n\r\n")) << code;
    }
}

TEST_F(ProgramTest, WithoutAnOpenPortATickPollsNothing) {
    com1.input = "S1\r\n";
    state.Rtn = QStringLiteral("wakeup!!!");
    ticks(3);
    EXPECT_EQ(state.Rtn.toStdString(), "wakeup!!!");
    EXPECT_EQ(com1.input->toStdString(), "S1\r\n");
}

TEST_F(ProgramTest, NoTickTakesTheReplyOfTheWakeUp) {
    program.load();
    state.Ctrlscrn = Operation::SettingsOpen;
    eachMillisecond = [this] { timer.wake(); };
    replies = {"", "V4", "12\r"};
    autoConnect();
    EXPECT_EQ(status.firmware.value().toStdString(), "412");
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), "") << "what no tick has read";
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
}

TEST_F(ProgramTest, TicksGoOnDuringTheWakeUpPulse) {
    program.load();
    int taken = 0;
    eachMillisecond = [this, &taken] {
        if (!com1.dtr.isEmpty() && com1.dtr.back() == QLatin1String("on") && com1.input->isEmpty()) {
            ++taken;
            com1.input = "noise\r\n";
        }
    };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_GT(taken, 190) << "the ticks poll while the pulse lasts";
    EXPECT_EQ(status.firmware.value().toStdString(), "512");
}

TEST_F(ProgramTest, AnErrorOfATickIsToldOnceAndTheProgramGoesOn) {
    tickDebugOutput();
    connect();
    program.tick();
    said();
    state.Timeout = std::numeric_limits<qint16>::max();
    for (int line = 0; line < 4; ++line) {
        receive("S1\r\n");
    }
    EXPECT_EQ(theMessage().title.toStdString(), "ORV Host Program");
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Reading the settings")));
    EXPECT_TRUE(ports.isOpen());
    EXPECT_EQ(state.Timeout, std::numeric_limits<qint16>::max());
    EXPECT_EQ(said(), "Get Prefs\rGet Prefs\rGet Prefs\rGet Prefs\r");
}

TEST_F(ProgramTest, ACounterThatIsFullEndsTheRunWithOneMessage) {
    runWithRows(1);
    haveRows(32767);
    for (int line = 0; line < 3; ++line) {
        receive("11/21/26\t2700\t1\t2\t3\t4\r\n");
    }
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_EQ(sheet.rowCount(), 32767);
}

} // namespace
} // namespace orv
