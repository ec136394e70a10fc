// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plotdata.h"
#include "testing/programrig.h"

#include <limits>

namespace orv {
namespace {

const char* const question = "Save Data: Data not Saved. Do you wish to save it now ?";

TEST_F(ProgramTest, QuitWithNothingUnsavedAsksNothing) {
    tickDebugOutput();
    EXPECT_TRUE(quit());
    EXPECT_EQ(said(), "Exit\r");
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(ProgramTest, QuitWithUnsavedRowsAnsweredNoMayEnd) {
    runWithRows(2);
    tickDebugOutput();
    answers.yes = false;
    answers.fileName = folder.path("sheet.txt");
    EXPECT_TRUE(quit());
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), question);
    EXPECT_EQ(said(), "Exit\r");
    EXPECT_FALSE(QFile::exists(folder.path("sheet.txt")));
}

TEST_F(ProgramTest, QuitWithUnsavedRowsAnsweredYesSavesThem) {
    runWithRows(2);
    tickDebugOutput();
    answers.yes = true;
    answers.fileName = folder.path("sheet.txt");
    EXPECT_TRUE(quit());
    EXPECT_EQ(said(), "Exit\rSave Spread Sheet\rSaving TRX(S) Sheet\r");
    EXPECT_TRUE(contentsOf(folder.path("sheet.txt")).startsWith("V\t512 2\r\nsheet.txt\r\n"));
    EXPECT_TRUE(quit());
    EXPECT_EQ(answers.asked.count(QString::fromLatin1(question)), 1) << "what is saved is not asked about again";
}

TEST_F(ProgramTest, QuitIsGivenUpWhenTheSaveIsCancelled) {
    runWithRows(2);
    answers.yes = true;
    EXPECT_FALSE(quit());
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), std::string(question) + "\nSave as|Untitled.txt|.txt|*.txt");
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting) << "the run goes on";
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ProgramTest, QuitIsGivenUpWhenTheSaveFails) {
    runWithRows(2);
    answers.yes = true;
    answers.fileName = folder.path("nowhere/sheet.txt");
    EXPECT_FALSE(quit());
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheet.rowCount(), 2);
}

TEST_F(ProgramTest, ClosingTheWindowAsksWithoutAnnouncingAnExit) {
    runWithRows(1);
    tickDebugOutput();
    EXPECT_TRUE(leave());
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), question);
    EXPECT_EQ(said(), "");
}

constexpr const char* waitingLine = "11/21/26\t2700\t3\t20\t30\t40\r\n";

TEST_F(ProgramTest, QuitAsksAboutTheRowsOfLinesThatWait) {
    runWithRows(0);
    com1.input += waitingLine;
    answers.yes = true;
    EXPECT_FALSE(quit()) << "the saving is cancelled";
    EXPECT_TRUE(answers.asked.join(u'\n').startsWith(QString::fromLatin1(question)));
    EXPECT_EQ(sheet.rowCount(), 1);
}

TEST_F(ProgramTest, TheEndTurnsLinesThatWaitIntoRows) {
    runWithRows(2);
    com1.input += waitingLine;
    program.end();
    EXPECT_EQ(sheet.rowCount(), 3);
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("\r\n3\t11/21/26\t1:00:00\t3\t\t20\t\t30\t40\r\n"));
}

TEST_F(ProgramTest, TheEndLeavesARunWhole) {
    program.load();
    runWithRows(3);
    program.closePort();
    EXPECT_TRUE(QFile::exists(folder.path("Orvtemp.tmp.lock"))) << "a program that dies now has its rows offered";
    program.end();
    EXPECT_FALSE(QFile::exists(folder.path("Orvtemp.tmp.lock"))) << "the operator has been asked";
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("\r\n3\t11/21/26\t1:00:00\t3\t\t20\t\t30\t40\r\n"));
    EXPECT_FALSE(com1.isOpen());
    EXPECT_FALSE(timer.isRunning());
}

TEST_F(ProgramTest, ARunKeepsTheRowsOfTheOneBeforeUnlessTheyAreSaved) {
    runWithRows(1);
    receive(">");
    answers.fileName = folder.path("sheet.txt");
    program.saveAs();
    program.run();
    EXPECT_EQ(folder.files().join(u' ').toStdString(), "Orvtemp.tmp Orvtemp.tmp.lock orvhost.lock sheet.txt")
        << "saved rows need no second file";
    receive("R\r\n11/21/26\t2700\t2\t20\t30\t40\r\n");
    program.tick();
    receive(">");
    program.clearAll();
    program.saveAs();
    program.run();
    EXPECT_EQ(folder.files().join(u' ').toStdString(),
              "Orvtemp-20261121-093016.tmp Orvtemp.tmp Orvtemp.tmp.lock orvhost.lock sheet.txt")
        << "rows that were cleared unsaved are kept";
}

TEST_F(ProgramTest, DayAfterDayOnlyRunsThatWereNotSavedAreKept) {
    for (int day = 0; day < 8; ++day) {
        ProgramRig rig;
        QDir::setCurrent(folder.path());
        rig.clock.set(QDateTime(QDate(2026, 11, 1 + day), QTime(9, 30)));
        rig.program.load();
        rig.program.offerUnendedRun(); // of the one that died, answered with No
        rig.runWithRows(2);
        if (day % 2 == 0) {
            rig.receive(">");
        }
        rig.answers.yes = day != 3;
        rig.answers.fileName = path("sheet.txt");
        if (day == 5) {
            continue; // it dies
        }
        EXPECT_TRUE(rig.quit());
        EXPECT_EQ(rig.answers.asked.size(), day == 3 ? 1 : day == 6 ? 3 : 2);
        EXPECT_EQ(rig.messages.shown.empty(), day != 6);
    }
    EXPECT_EQ(folder.files().filter(QStringLiteral("Orvtemp")).join(u' ').toStdString(),
              "Orvtemp-20261105-093001.tmp Orvtemp-20261107-093000.tmp Orvtemp.tmp Orvtemp.tmp.saved");
}

TEST_F(ProgramTest, SavedRowsStayWhatTheyAreWhileAnotherInstrumentIsConnected) {
    runWithRows(2);
    receive(">");
    answers.fileName = path("sheet.txt");
    program.saveAs();
    const QByteArray saved = contentsOf(path("sheet.txt"));
    PlotData curves(sheet);
    for (const QByteArray& greeting : {QByteArray("F310\r"), QByteArray("V412\r"), QByteArray("V512\r")}) {
        program.closePort();
        connectAndRead(greeting);
        curves.update();
        EXPECT_EQ(curves.pointCount(), 2);
        ASSERT_EQ(curves.curveCount(), 4);
        EXPECT_EQ(curves.name(1).toStdString(), "125");
        EXPECT_EQ(curves.value(1, 0), 20.0);
        program.saveAs();
        EXPECT_EQ(contentsOf(path("sheet.txt")).toStdString(), saved.toStdString()) << greeting.toStdString();
    }
    EXPECT_TRUE(messages.shown.empty());
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
    curves.update();
    EXPECT_EQ(curves.pointCount(), 3);
}

TEST_F(ProgramTest, ClearAllWorksOfflineWhenTheSheetHoldsRows) {
    EXPECT_FALSE(commands.canClearAll);
    runWithRows(2);
    EXPECT_FALSE(commands.canClearAll) << "rows arrive";
    fixit();
    expectOffline();
    EXPECT_TRUE(commands.canClearAll);
    program.clearAll();
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_FALSE(commands.canClearAll);
    answers.late = true;
    haveRows(1);
    EXPECT_TRUE(commands.canClearAll);
    program.saveAs();
    EXPECT_FALSE(commands.canClearAll) << "a question stands";
}

/// The ways from one session to the next, at which errors that are told once are forgotten.
class NextSession : public ProgramTest, public testing::WithParamInterface<bool> {
protected:
    void reconnect() {
        messages.shown.clear();
        if (GetParam()) {
            program.closePort();
            connectAndRead();
        } else {
            replies = {"V512\r"};
            program.reset();
            finish();
            receive(settingsReport());
            ticks(12);
        }
        EXPECT_TRUE(messages.shown.empty());
    }
};

TEST_P(NextSession, TellsAnErrorOfATickAgain) {
    connectAndRead();
    state.Timeout = std::numeric_limits<qint16>::max();
    for (int session = 0; session < 2; ++session) {
        state.Ctrlscrn = Operation::Ready;
        receive("S1\r\n");
        EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
        state.Ctrlscrn = Operation::Ready;
        receive("S1\r\n");
        EXPECT_EQ(messages.shown.size(), 1U);
        state.Timeout = 0;
        reconnect();
        state.Timeout = std::numeric_limits<qint16>::max();
    }
}

TEST_P(NextSession, TellsASaveThatFailsAgain) {
    runWithRows(1);
    sheetState.fileName = path("nowhere/lake");
    haveRows(19999);
    receive("11/21/26\t2700\t1\t20\t30\t40\r\n");
    EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The sheet could not be saved as ")));
    haveRows(20499);
    receive("11/21/26\t2700\t1\t20\t30\t40\r\n");
    EXPECT_EQ(messages.shown.size(), 1U);
    reconnect();
    program.run();
    receive("R\r\n");
    haveRows(20999);
    receive("11/21/26\t2700\t1\t20\t30\t40\r\n");
    EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The sheet could not be saved as ")));
}

#ifdef Q_OS_UNIX
TEST_P(NextSession, TellsALogThatCannotBeWrittenAgain) {
    program.load();
    connectAndRead();
    const FileSizeLimit full(1);
    const auto expectTold = [this] {
        EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The log file log.ohp can no longer be written: ")));
    };
    receive("a\r\n");
    receive("b\r\n");
    expectTold();
    messages.shown.clear();
    if (GetParam()) {
        program.closePort();
    } else {
        fixit();
    }
    program.autoConnect1();
    receive("noise");
    receive("more");
    expectTold();
    // The same attempt goes on until the instrument is known.
    messages.shown.clear();
    replies = {"V512\r"};
    finish();
    receive("c\r\n");
    EXPECT_TRUE(messages.shown.empty());
}
#endif

INSTANTIATE_TEST_SUITE_P(AfterClosePortAndAReset, NextSession, testing::Bool());

class PortThatCannotBeOpened : public ProgramTest {
protected:
    PortThatCannotBeOpened() {
        com1.openReason = QStringLiteral("There is no such device. Plug the adapter in.");
        com2.openReason = com1.openReason;
    }

    void expectRefused(const char* port) {
        const Message& message = theMessage();
        EXPECT_EQ(message.title.toStdString(), "ORV Host Program");
        EXPECT_TRUE(message.text.contains(QString::fromLatin1(port))) << qPrintable(message.text);
        EXPECT_TRUE(message.text.contains(com1.openReason)) << qPrintable(message.text);
        expectOffline();
        EXPECT_FALSE(manual.shown.visible);
    }
};

TEST_F(PortThatCannotBeOpened, IsToldByAutoConnect1) {
    autoConnect();
    expectRefused("COM 1 (ttyA)");
    EXPECT_EQ(state.Portused, 0);
}

TEST_F(PortThatCannotBeOpened, IsToldByAutoConnect2) {
    autoConnect(2);
    expectRefused("COM 2 (ttyB)");
}

TEST_F(PortThatCannotBeOpened, IsToldByAManualStart) {
    program.manualConnect(2);
    manual.proceed();
    pressStart();
    expectRefused("COM 2 (ttyB)");
}

TEST_F(PortThatCannotBeOpened, CanBeOpenedLater) {
    autoConnect();
    com1.openReason.clear();
    connectAndRead();
    EXPECT_TRUE(commands.canRun);
}

TEST_F(ProgramTest, APortThatFailsInARunIsToldOnceAndLosesNothing) {
    program.load();
    runWithRows(2);
    com1.input = "11/21/26\t2700\t3\t20\t30\t40\r\n11/21/26\t2700\t4\t20\t30\t40\r\n11/21/26\t27";
    com1.failureReason = QStringLiteral("The device is gone.");
    ticks(10);
    EXPECT_EQ(theMessage().title.toStdString(), "ORV Host Program");
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("COM 1 (ttyA)")));
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("The device is gone.")));
    expectOffline();
    EXPECT_EQ(sheet.rowCount(), 4) << "every complete line received is a row";
    EXPECT_EQ(state.plc, 4);
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp"))
                    .endsWith("\r\n3\t11/21/26\t1:00:00\t3\t\t20\t\t30\t40\r\n"
                              "4\t11/21/26\t1:00:00\t4\t\t20\t\t30\t40\r\n"));
    EXPECT_TRUE(timer.isRunning());
    messages.shown.clear();
    connectAndRead();
    EXPECT_TRUE(messages.shown.empty()) << "the next session is none the worse";
    EXPECT_EQ(sheet.rowCount(), 4);
}

TEST_F(ProgramTest, APortThatFailsDuringTheWakeUpPulseEndsTheConnection) {
    com1.dtrChanged = [this](bool on) {
        if (on) {
            com1.failureReason = QStringLiteral("The device is gone.");
        }
    };
    autoConnect();
    EXPECT_EQ(messages.shown.size(), 1U);
    expectOffline();
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(state.Portused, 0);
}

TEST_F(ProgramTest, AResetDuringTheWakeUpPulseEndsTheConnectionThere) {
    bool reset = false;
    eachMillisecond = [this, &reset] {
        if (!std::exchange(reset, true)) {
            fixit();
        }
    };
    autoConnect(2);
    expectOffline();
    EXPECT_TRUE(com2.writes.empty()) << "nothing more is sent";
    EXPECT_EQ(com2.dtr.join(u' ').toStdString(), "on");
}

TEST_F(ProgramTest, ClosePortEndsARunWhole) {
    runWithRows(2);
    program.closePort();
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("\r\n2\t11/21/26\t1:00:00\t2\t\t20\t\t30\t40\r\n"));
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_FALSE(commands.resetShutterVisible);
    EXPECT_FALSE(commands.canRun);
    EXPECT_EQ(sheet.rowCount(), 2);
}

TEST_F(ProgramTest, TheResetButtonStopsARunAndConnectsAgain) {
    runWithRows(2);
    tickDebugOutput();
    sheetState.records = QStringLiteral("3");
    com1.writes.clear();
    com1.dtr.clear();
    replies = {"V512\r"};
    program.reset();
    finish();
    EXPECT_EQ(sheetState.records.value().toStdString(), "0");
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_EQ(com1.dtr.join(u' ').toStdString(), "on off");
    EXPECT_EQ(com1.allWritten().toStdString(), "P");
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_TRUE(items.checked(ConnectItems::Auto1));
    const std::string announced = said();
    EXPECT_TRUE(announced.starts_with("Abort Run\rAbort Run Function\rReset Everything AKA FIXIT\r")) << announced;
    EXPECT_TRUE(announced.ends_with("Passed fix it for comm1\rOpen port 1\rLooking to see what port to open\r"
                                    "Presets for Opening Port\r"))
        << announced;
}

TEST_F(ProgramTest, TheResetButtonOnAClosedPortOnlySaysSo) {
    tickDebugOutput();
    sheetState.records = QStringLiteral("3");
    program.reset();
    EXPECT_EQ(said(), "Abort Run\rAbort Run Function\r");
    EXPECT_EQ(sheetState.records.value().toStdString(), "0");
}

TEST_F(ProgramTest, TheSecondWayToStopLeavesTheRecordsLabel) {
    tickDebugOutput();
    sheetState.records = QStringLiteral("3");
    abort2();
    EXPECT_EQ(said(), "Abort 2\rAbort Run Function\r");
    EXPECT_EQ(sheetState.records.value().toStdString(), "3");
}

TEST_F(ProgramTest, ClosePortTurnsLinesThatWaitIntoRowsFirst) {
    runWithRows(2);
    com1.input += "11/21/26\t2700\t3\t20\t30\t40\r\n11/21/26\t2700\t4\t20\t30\t40\r\n";
    program.closePort();
    EXPECT_EQ(state.plc, 4);
    EXPECT_EQ(status.notice.value().toStdString(), "");
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("\r\n4\t11/21/26\t1:00:00\t4\t\t20\t\t30\t40\r\n"));
}

TEST_F(ProgramTest, ARunOnALoadedSheetOfAnotherTypeIsSavedWhole) {
    connectAndRead();
    const QString glow = folder.path("glow.txt");
    fill(glow, "F\t310 1\r\nglow.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n1\t1/5/99\t9:05:07\t700\t\r");
    answers.fileName = glow;
    program.openSheet();
    ASSERT_EQ(state.plc, 1);
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
    const QString saved = folder.path("saved.txt");
    answers.fileName = saved;
    program.saveAs();
    EXPECT_TRUE(contentsOf(saved).startsWith("V\t512 2\r\n"));
    EXPECT_TRUE(contentsOf(saved).endsWith("\r2\t11/21/26\t1:00:00\t11\t22\t33\t44\t\t\r"));
}

TEST_F(ProgramTest, ARunOfOnlyUnreadableLinesEndsAtThePromptAndTellsThem) {
    connectAndRead();
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\r\n>"); // a clock reply that was still on its way, and its prompt
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    receive("\r\n11/21/26\t2700\t11\t22\r\n");
    ticks(2);
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    receive(">");
    EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
    EXPECT_EQ(status.notice.value().toStdString(), "1 line could not be read; it is in log.ohp");
}

TEST_F(ProgramTest, ALateClockReplyIsNoUnreadableLine) {
    for (const QByteArray& greeting : {QByteArray("V512\r"), QByteArray("F310\r")}) {
        connectAndRead(greeting);
        program.clearAll();
        program.run();
        receive("11/21/26\t2700\r\n>R\r\n");
        ticks(2);
        receive(greeting == "V512\r" ? "11/21/26\t2700\t11\t22\t33\t44\r\n" : "11/21/26\t2700\t700\r\n");
        receive(">");
        EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
        EXPECT_EQ(sheet.rowCount(), 1);
        EXPECT_EQ(status.notice.value().toStdString(), "");
        program.run();
        receive("R\r\n");
        receive("11/21/26\t2700\t1\t2\t3\t4\r\n");
        receive("11/21/26\t2700\r\n>"); // among the rows it is one that was cut short
        ticks(2);
        EXPECT_EQ(status.notice.value().toStdString(), "1 line could not be read; it is in log.ohp");
        answers.fileName = path("sheet.txt");
        program.saveAs();
        program.closePort();
    }
}

TEST_F(ProgramTest, TheEndOfTheProgramDoesNotSpeakOfItsSheet) {
    const auto view = [this] {
        connectAndRead();
        program.vwhp();
        receive("O\r\n"); // behind the prompt from before
        receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
    };
    const std::string begin = "The download is incomplete: it was ended before the instrument had sent everything.";
    const std::string end = "\n\nThe instrument still holds its data; download it again.";
    view();
    EXPECT_TRUE(quit());
    EXPECT_EQ(theMessage().text.toStdString(), begin + end);
    messages.shown.clear();
    sheetState.fileName = path("lake");
    view();
    haveRows(19999);
    receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
    receive("11/21/26\t2700\r\n");
    EXPECT_TRUE(quit());
    EXPECT_EQ(theMessage().text.toStdString(),
              begin +
                  " What was saved automatically stays. 1 record could not be read; log.ohp has what was received." +
                  end);
    messages.shown.clear();
    view();
    program.closePort();
    EXPECT_EQ(theMessage().text.toStdString(), begin + " 1 record arrived and can be found on the sheet." + end);
    messages.shown.clear();
    connectAndRead();
    answers.fileName = path("dump.txt");
    program.downloadText();
    receive("O\r\n"); // behind the prompt from before
    receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
    EXPECT_TRUE(quit());
    EXPECT_EQ(theMessage().text.toStdString(),
              begin + " 1 record arrived and can be found in " + path("dump.txt").toStdString() + "." + end);
}

TEST_F(ProgramTest, AnInstrumentThatDidNotSayWhatItIsIsAskedForNothing) {
    answers.fileName = path("dump.txt");
    for (const QByteArray& greeting : {QByteArray("512\r"), QByteArray("X512\r"), QByteArray("v512\r")}) {
        connectAndRead(greeting);
        com1.writes.clear();
        const std::function<void()> begins[] = {[this] { program.run(); }, [this] { program.vwhp(); },
                                                [this] { program.downloadText(); }};
        for (const auto& begin : begins) {
            messages.shown.clear();
            begin();
            EXPECT_EQ(theMessage().text.toStdString(), "The instrument did not say what it is. Connect again.");
            EXPECT_EQ(theMessage().title.toStdString(), "ORV Host Program");
            EXPECT_TRUE(com1.writes.empty());
            EXPECT_EQ(commands.activity.value(), Activity::None);
            EXPECT_FALSE(progress.visible);
            EXPECT_TRUE(commands.canRun);
        }
        receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
        EXPECT_EQ(sheet.rowCount(), 0);
        program.closePort();
    }
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "");
    EXPECT_TRUE(quit());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(ProgramTest, AnAttemptThatFailedLeavesNothingToRun) {
    connectAndRead();
    program.closePort();
    autoConnect();
    ASSERT_TRUE(commands.canRun) << "the port is open";
    com1.writes.clear();
    program.run();
    EXPECT_EQ(theMessage().text.toStdString(), "The instrument did not say what it is. Connect again.");
    EXPECT_TRUE(com1.writes.empty());
}

TEST_F(ProgramTest, EachRunTellsTheErrorThatEndsIt) {
    connectAndRead();
    for (std::size_t run = 1; run <= 2; ++run) {
        haveRows(32767);
        program.run();
        receive("R\r\n");
        receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
        ASSERT_EQ(messages.shown.size(), run);
        EXPECT_TRUE(messages.shown.back().text.contains(QStringLiteral("Overflow")));
        ticks(2);
    }
}

} // namespace
} // namespace orv
