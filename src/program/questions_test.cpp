// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

namespace orv {
namespace {

/// The operator answers late: everything goes on while a question stands.
class QuestionsTest : public ProgramTest {
protected:
    QuestionsTest() { answers.late = true; }

    std::string asked() { return std::exchange(answers.asked, {}).join(u'\n').toStdString(); }

    void expectNoneStands() {
        EXPECT_FALSE(answers.stands());
        EXPECT_FALSE(commands.asking);
    }

    /// A run whose sheet becomes long and is saved by itself while "Save As" stands; one row comes after that.
    void outgrowBesideSaveAs() {
        runWithRows(1);
        sheetState.fileName = path("Run");
        haveRows(19999);
        program.saveAs();
        receive("11/21/26\t2700\t5\t20\t30\t40\r\n"); // the 20000th
        EXPECT_EQ(sheet.rowCount(), 0);
        EXPECT_TRUE(messages.shown.empty());
        receive("11/21/26\t2700\t6\t20\t30\t40\r\n");
    }

    const std::string unsaved = "Save Data: Data not Saved. Do you wish to save it now ?";
};

TEST_F(QuestionsTest, ARunGoesOnBesideSaveAs) {
    runWithRows(2);
    program.saveAs();
    EXPECT_TRUE(answers.stands());
    receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
    EXPECT_EQ(sheet.rowCount(), 3);
    answers.answer(path("sheet.txt"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith("\r3\t11/21/26\t1:00:00\t3\t20\t30\t40\t\t\r"))
        << "what is on the sheet when the name is chosen";
    EXPECT_TRUE(messages.shown.empty());
    expectNoneStands();
}

TEST_F(QuestionsTest, NothingThatWouldDisturbCanBePressedWhileAQuestionStands) {
    connectAndRead();
    haveRows(2);
    const auto expectEnabled = [this](bool enabled) {
        for (const QProperty<bool>* command :
             {&commands.canAsk, &commands.canCommand, &commands.undisturbed, &commands.canRun, &commands.canClearAll,
              &commands.canSaveAs, &commands.canExport, &commands.canOpenSheet, &commands.canResetShutter}) {
            EXPECT_EQ(command->value(), enabled);
        }
        EXPECT_TRUE(commands.resetEnabled);
        EXPECT_TRUE(commands.closePortEnabled);
    };
    expectEnabled(true);
    program.saveAs();
    expectEnabled(false);
    answers.answer(QString());
    expectEnabled(true);
}

TEST_F(QuestionsTest, RowsThatWereSavedByThemselvesMeanwhileAreTold) {
    outgrowBesideSaveAs();
    answers.answer(path("sheet.txt"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith("\r\n1\t11/21/26\t1:00:00\t6\t20\t30\t40\t\t\r"));
    EXPECT_EQ(theMessage().text.toStdString(),
              "While you chose a name the sheet became long and was saved by itself: rows 1 to 20000 as " +
                  path("Run0.txt").toStdString() + ".\n\n" + path("sheet.txt").toStdString() + " has the rows since.");
}

TEST_F(QuestionsTest, TheFileThatWasSavedByItselfMeanwhileIsNotReplaced) {
    outgrowBesideSaveAs();
    const QByteArray automatic = contentsOf(path("Run0.txt"));
    answers.answer(path("Run0.txt"));
    EXPECT_EQ(contentsOf(path("Run0-20261121-093016.txt")), automatic);
    EXPECT_TRUE(contentsOf(path("Run0.txt")).endsWith("\r\n1\t11/21/26\t1:00:00\t6\t20\t30\t40\t\t\r"));
    EXPECT_TRUE(theMessage().text.endsWith(
        QStringLiteral(" has the rows since. The file of that name is kept under a name with date and time.")));
}

TEST_F(QuestionsTest, RowsAreSavedWholeAlsoAfterAnotherTypeWasConnectedMeanwhile) {
    runWithRows(2);
    program.saveAs();
    replies = {"F310\r"};
    program.reset();
    finish();
    ASSERT_EQ(state.type(), InstrumentType::Glow);
    answers.answer(path("sheet.txt"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).startsWith("V\t512 2\r\n"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith("\r2\t11/21/26\t1:00:00\t2\t20\t30\t40\t\t\r"));
}

TEST_F(QuestionsTest, ALineThatIsLostWithItsLastCharactersIsNoticed) {
    answers.late = false;
    runWithRows(2);
    timer.enable();
    live(5.0); // nothing waits for the disk any more
    com1.failsSilently = true;
    com1.input = "11/21/26\t27";
    live(0.1);
    EXPECT_EQ(messages.shown.size(), 1U);
    expectOffline();
}

TEST_F(QuestionsTest, ALineLeftInTheBufferDoesNotKeepTheTickAwakeOffline) {
    connectAndRead();
    timer.enable();
    com1.input = "one\r\ntwo\r\nthree\r\n";
    ticks();
    program.closePort();
    live(1.0);
    int ticksSeen = 0;
    const Subscription counting = timer.tick.subscribe([&ticksSeen] { ++ticksSeen; });
    live(10.0);
    EXPECT_EQ(ticksSeen, 0);
}

TEST_F(QuestionsTest, AResetLeavesSaveAsStandingAndConnectsAgain) {
    runWithRows(2);
    program.saveAs();
    replies = {"V512\r"};
    program.reset();
    finish();
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    ASSERT_TRUE(answers.stands());
    answers.answer(path("sheet.txt"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith("\r2\t11/21/26\t1:00:00\t2\t20\t30\t40\t\t\r"));
}

TEST_F(QuestionsTest, TheEndOfTheConnectionClosesTheDialogOfADownload) {
    const std::function<void()> ends[] = {[this] { program.closePort(); }, [this] { program.reset(); },
                                          [this] { com1.unplugged = true; }, [this] { program.end(); }};
    for (const auto& end : ends) {
        com1.unplugged = false;
        program.end();
        connectAndRead();
        com1.writes.clear();
        program.downloadText();
        ASSERT_TRUE(answers.stands());
        EXPECT_TRUE(progress.visible);
        timer.setInterval(0); // so that nobody but the wait can notice
        end();
        expectNoneStands();
        EXPECT_FALSE(progress.visible);
        EXPECT_FALSE(com1.allWritten().contains('O'));
        EXPECT_EQ(commands.activity.value(), procedures.isIdle() ? Activity::None : Activity::Connecting);
        messages.shown.clear();
    }
}

TEST_F(QuestionsTest, ADownloadBeginsWhenItsNameIsChosen) {
    connectAndRead();
    program.downloadText();
    live(20.0);
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    answers.answer(path("dump.txt"));
    EXPECT_EQ(state.Ctrlscrn, Operation::SavingText);
    EXPECT_TRUE(com1.allWritten().endsWith('O'));
    EXPECT_TRUE(progress.visible);
}

TEST_F(QuestionsTest, QuitTakesBackTheQuestionThatStands) {
    runWithRows(2);
    program.saveAs();
    asked();
    EXPECT_FALSE(quit());
    EXPECT_EQ(asked(), unsaved);
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting) << "until it is answered the run goes on";
    receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
    EXPECT_FALSE(quit());
    EXPECT_EQ(asked(), unsaved) << "a question that was taken back was not answered with No";
    EXPECT_TRUE(ports.isOpen());
    answers.answer(Question::yes());
    EXPECT_EQ(asked(), "Save as|Untitled.txt|.txt|*.txt");
    EXPECT_FALSE(quit());
    EXPECT_EQ(asked(), unsaved) << "neither was the dialog";
    EXPECT_TRUE(ports.isOpen());
    bool ended = false;
    const Subscription ending = program.ended.subscribe([&ended] { ended = true; });
    answers.answer(Question::no());
    EXPECT_TRUE(ended);
    expectNoneStands();
    EXPECT_FALSE(ports.isOpen());
    EXPECT_EQ(sheet.rowCount(), 3);
}

TEST_F(QuestionsTest, QuitActsInTheMiddleOfEverything) {
    const std::function<void()> begins[] = {
        [this] { program.autoConnect1(); },
        [this] {
            connectAndRead();
            program.resetShutter();
        },
        [this] {
            connectAndRead();
            settings.syncTimeDate = true;
            sender.applySettings();
        },
        [this] {
            connectAndRead();
            program.vwhp();
        },
    };
    for (const auto& begin : begins) {
        program.end();
        begin();
        live(0.4);
        const QByteArray written = com1.allWritten();
        EXPECT_TRUE(quit());
        EXPECT_TRUE(procedures.isIdle());
        EXPECT_FALSE(ports.isOpen());
        EXPECT_FALSE(timer.isRunning());
        EXPECT_EQ(commands.activity.value(), Activity::None);
        live(10.0);
        EXPECT_EQ(com1.allWritten(), written);
    }
}

TEST_F(QuestionsTest, WithoutAnAnswerAnUnendedRunStaysForTheNextStart) {
    fill(path("Orvtemp.tmp"), "Data Point\tDate\tTime\t100\tREF 100\t125\tREF 125\t150\tREF 150\r\n"
                              "1\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n");
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    program.load();
    program.offerUnendedRun();
    ASSERT_TRUE(answers.stands());
    EXPECT_TRUE(quit());
    expectNoneStands();
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(QFile::exists(path("Orvtemp.tmp.lock")));
}

TEST_F(QuestionsTest, OpenReplacesTheSheetWhenBothItsQuestionsAreAnswered) {
    runWithRows(2);
    receive(">");
    fill(path("other.txt"), "F\t310 1\r\nother.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n"
                            "1\t1/5/99\t9:05:07\t700\t\r");
    program.openSheet();
    answers.answer(path("other.txt"));
    EXPECT_EQ(sheet.rowCount(), 2);
    answers.answer(Question::no());
    EXPECT_EQ(sheet.rowCount(), 1);
    expectNoneStands();
}

} // namespace
} // namespace orv
