// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runrecovery.h"

#include "sheet/folderplace.h"
#include "testing/sheettest.h"

namespace orv {

namespace {

const QByteArray header("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n"
                        "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n");
const QByteArray
    twoRows("1\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n2\t11/21/26\t9:05:08\t101\t\t126\t\t151\t41\r\n");

/// A folder in which a program died during a run, and the sheet's procedures of the next program.
class RunRecoveryTest : public SheetTest {
protected:
    void leave(const QByteArray& record, const QByteArray& lock = "V\t512\r\n") {
        fill(path("Orvtemp.tmp"), record);
        fill(path("Orvtemp.tmp.lock"), lock);
    }

    /// Such a folder, and the operator says yes.
    void recover(const QByteArray& record = header + twoRows, const QByteArray& lock = "V\t512\r\n") {
        leave(record, lock);
        answers.yes = true;
        recovery.offer();
    }

    void beginRun() {
        identify("V", "512");
        collection.run1();
    }

    std::string asked() const { return answers.asked.join(u'\n').toStdString(); }
    std::string fileNames() const { return folder.files().join(u'|').toStdString(); }
    std::string toldText() const { return messages.shown.empty() ? "" : messages.shown.back().text.toStdString(); }
};

TEST_F(RunRecoveryTest, ARunThatDiedWithAllItsRowsSavedIsForgottenSilently) {
    beginRun();
    receive("R\r\n11/21/26\t2700\t7\t8\t9\t10\r\n");
    program.tick();
    answers.fileName = path("sheet.txt");
    ASSERT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    answers.asked.clear();
    RecordFile later(clock, path("Orvtemp.tmp"));
    ASSERT_TRUE(later.isUnended());
    RunRecovery next(program.link, rows, files, later);
    next.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(later.isUnended());
}

TEST_F(RunRecoveryTest, WithoutALockNothingIsAskedOrTouched) {
    recovery.offer();
    EXPECT_EQ(fileNames(), "");
    fill(path("Orvtemp.tmp"), header + twoRows);
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows);
    EXPECT_EQ(sheet.rowCount(), 0);
}

TEST_F(RunRecoveryTest, NothingIsAskedDuringARun) {
    beginRun();
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(recordFile.isOpen());
}

TEST_F(RunRecoveryTest, YesBringsTheRowsToTheSheetUnsaved) {
    recover();
    EXPECT_EQ(asked(), "ORV Host Program: The last run in this folder did not end. Load its 2 rows into the sheet?");
    EXPECT_TRUE(messages.shown.empty()) << "there is nothing to add";
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_EQ(cells(1).join(u'|').toStdString(), "2|11/21/26|9:05:08|101|126|151|41||");
    EXPECT_EQ(sheet.header().join(u'|').toStdString(), "Data #|Date|Time|100|125|150|Ref");
    EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("V"), .firmware = 512.0}));
    EXPECT_EQ(state.plc, 2);
    EXPECT_EQ(sheetState.counter.value(), QStringLiteral("2"));
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_TRUE(commands.canSaveAs);
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows);
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|Orvtemp.tmp.lock") << "the next program offers them too, should this one die";
}

TEST_F(RunRecoveryTest, SavedRowsAreNotOfferedAgainAndTheFileIsKept) {
    recover();
    answers.fileName = path("sheet.txt");
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    EXPECT_EQ(contentsOf(path("sheet.txt")),
              QByteArray("V\t512 2\r\nsheet.txt\r\n\r\r\r\nData Point\tDate\tTime\t100\t125\t150\tREF 150\r\n"
                         "1\t11/21/26\t9:05:07\t100\t125\t150\t40\t\t\r"
                         "2\t11/21/26\t9:05:08\t101\t126\t151\t41\t\t\r"));
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|sheet.txt");
    answers.asked.clear();
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    beginRun();
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), header + twoRows);
}

TEST_F(RunRecoveryTest, UnsavedRowsAreOfferedAgainByTheNextProgram) {
    recover();
    RecordFile later(clock, path("Orvtemp.tmp"));
    RunRecovery next(program.link, rows, files, later);
    sheetState.unsaved = false; // its sheet is empty
    answers.asked.clear();
    next.offer();
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(sheet.rowCount(), 2);
}

TEST_F(RunRecoveryTest, ARunOnRecoveredRowsLosesNeither) {
    recover();
    beginRun();
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), header + twoRows);
    receive("R\r\n11/21/26\t2700\t7\t8\t9\t10\r\n");
    program.tick();
    EXPECT_EQ(cells(2).join(u'|').toStdString(), "3|11/21/26|1:00:00|7|8|9|10||");
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + "3\t11/21/26\t1:00:00\t7\t\t8\t\t9\t10\r\n");
    answers.fileName = path("sheet.txt");
    files.saveas();
    EXPECT_TRUE(QFile::exists(path("Orvtemp.tmp.lock"))) << "the run goes on";
    collection.closeRecordFile();
    EXPECT_EQ(fileNames(), "Orvtemp-20261121-093015.tmp|Orvtemp.tmp|Orvtemp.tmp.saved|orvhost.lock|sheet.txt");
}

TEST_F(RunRecoveryTest, UnsavedRowsOfARunThatEndedAreOffered) {
    beginRun();
    receive("R\r\n11/21/26\t2700\t7\t8\t9\t10\r\n");
    program.tick();
    receive(">");
    expectEnded();
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty()) << "they are on the sheet";
    RecordFile later(clock, path("Orvtemp.tmp"));
    RunRecovery next(program.link, rows, files, later);
    sheetState.unsaved = false; // its sheet is empty
    answers.yes = true;
    next.offer();
    EXPECT_EQ(asked(), "ORV Host Program: The last run in this folder did not end. Load its 1 row into the sheet?");
    EXPECT_EQ(sheet.rowCount(), 1);
}

TEST_F(RunRecoveryTest, ARunThatDiedBeforeItsFirstRowHasTheOneBeforeOffered) {
    for (const bool yes : {false, true}) {
        leave(header, "V\t512\tOrvtemp-20261120-120000.tmp\r\n");
        fill(path("Orvtemp-20261120-120000.tmp"), header + twoRows);
        answers.asked.clear();
        answers.yes = yes;
        recovery.offer();
        EXPECT_EQ(asked(),
                  "ORV Host Program: The last run in this folder did not end. Load its 2 rows into the sheet?");
        EXPECT_EQ(contentsOf(path("Orvtemp-20261120-120000.tmp")), header + twoRows);
        if (!yes) {
            EXPECT_EQ(toldText(), "The record file of the last run is kept as " +
                                      path("Orvtemp-20261120-120000.tmp").toStdString() + ".");
            EXPECT_EQ(fileNames(), "Orvtemp-20261120-120000.tmp|Orvtemp.tmp");
        }
    }
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_EQ(fileNames(), "Orvtemp-20261120-120000.tmp|Orvtemp.tmp|Orvtemp.tmp.lock") << "offered again";
    beginRun();
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp.lock")), QByteArray("V\t512\tOrvtemp-20261120-120000.tmp\r\n"))
        << "and after a further run without a row";
    answers.fileName = path("sheet.txt");
    files.saveas();
    collection.closeRecordFile();
    EXPECT_EQ(fileNames(), "Orvtemp-20261120-120000.tmp|Orvtemp.tmp|Orvtemp.tmp.saved|orvhost.lock|sheet.txt");
}

TEST_F(RunRecoveryTest, WhatTheSheetLacksIsTold) {
    const std::pair<QByteArray, const char*> cases[] = {
        {QByteArray(twoRows).replace("\n2\t", "\n9\t"),
         "The numbers of the rows have gaps: 7 rows are missing in the record file.\n"},
        {twoRows + twoRows, "The sheet was saved or cleared during the run; rows from before that are left out."},
        {"501\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n", "The run began with row 501."},
    };
    for (const auto& [rowsOfFile, told] : cases) {
        sheetState.unsaved = false;
        answers.asked.clear();
        recover(header + rowsOfFile);
        EXPECT_EQ(sheet.rowCount(), rowsOfFile.startsWith("501") ? 1 : 2);
        EXPECT_EQ(asked(), std::string("ORV Host Program: The last run in this folder did not end. Load its ") +
                               (sheet.rowCount() == 1 ? "1 row" : "2 rows") + " into the sheet?");
        EXPECT_EQ(state.plc, sheet.rowCount());
        EXPECT_NE(toldText().find(told), std::string::npos) << toldText();
        EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + rowsOfFile);
    }
}

TEST_F(RunRecoveryTest, NoKeepsTheFileUnderADatedNameAndTellsWhere) {
    fill(path("Orvtemp-20261121-093015.tmp"), "of the same second");
    leave(header + twoRows);
    recovery.offer();
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(fileNames(), "Orvtemp-20261121-093015-2.tmp|Orvtemp-20261121-093015.tmp");
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015-2.tmp")), header + twoRows);
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), QByteArray("of the same second"));
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(toldText(), "The record file of the last run is kept as " +
                              path("Orvtemp-20261121-093015-2.tmp").toStdString() + ".");
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_FALSE(sheetState.unsaved);
}

TEST_F(RunRecoveryTest, OneRowIsOneRow) {
    leave(header + twoRows.first(twoRows.indexOf('\n') + 1));
    recovery.offer();
    EXPECT_EQ(asked(), "ORV Host Program: The last run in this folder did not end. Load its 1 row into the sheet?");
}

TEST_F(RunRecoveryTest, ARunWithoutRowsIsForgottenSilently) {
    leave(header);
    recovery.offer();
    EXPECT_EQ(fileNames(), "Orvtemp.tmp");
    QFile::remove(path("Orvtemp.tmp"));
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    recovery.offer();
    EXPECT_EQ(fileNames(), "");
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(RunRecoveryTest, AFileWithoutOneReadableRowIsKeptAndTold) {
    const QByteArray cut = header + "1\t11/21/26\t9:0";
    leave(cut);
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_EQ(fileNames(), "Orvtemp-20261121-093015.tmp");
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), cut);
    EXPECT_EQ(toldText(),
              "The last run in this folder did not end, and its record file has no row that can be read. The "
              "record file of the last run is kept as " +
                  path("Orvtemp-20261121-093015.tmp").toStdString() + ".");
}

TEST_F(RunRecoveryTest, WhatIsLeftOutIsToldInOneMessageAndKept) {
    const QByteArray damaged = header + "nonsense\r\n" + twoRows + "3\t11/21/26\t9:05:0";
    recover(damaged, QByteArray());
    EXPECT_EQ(sheet.rowCount(), 2);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(toldText(), "The rows of the last run are on the sheet.\n\n"
                          "The last line was cut off and has been left out.\n"
                          "1 line could not be read and was left out.\n"
                          "The instrument's type was told by the rows; the sheet says TRX with firmware 500.\n\n"
                          "Nothing is lost: the record file " +
                              path("Orvtemp.tmp").toStdString() +
                              " has everything. The next run keeps it under a name with date and time.");
    answers.fileName = path("sheet.txt");
    files.saveas();
    beginRun();
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), damaged);
}

TEST_F(RunRecoveryTest, ClearAllForgetsTheRecoveredRowsButNotTheFile) {
    recover();
    rows.clearSpreadSheet();
    EXPECT_EQ(fileNames(), "Orvtemp.tmp");
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows);
}

TEST_F(RunRecoveryTest, RowsThatCameMeanwhileAreOfferedForSavingFirst) {
    leave(header + twoRows);
    identify("F", "310");
    rows.addRow({.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:01"), .values = {QStringLiteral("7")}});
    answers.yes = true; // and the save dialog is cancelled
    recovery.offer();
    EXPECT_EQ(answers.asked.size(), 3);
    EXPECT_EQ(sheet.rowCount(), 1) << "nothing is lost";
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|Orvtemp.tmp.lock");
    answers.fileName = path("sheet.txt");
    recovery.offer();
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_TRUE(contentsOf(path("sheet.txt")).startsWith("F\t310 1\r\n"));
    EXPECT_TRUE(recordFile.isUnended()) << "the save was of other rows";
}

TEST_F(RunRecoveryTest, AGlowRunIsLaidOutAsGlow) {
    QByteArray glow = header;
    glow.replace("\tREF1", "").replace("\tREF2", "");
    recover(glow + "1\t1/5/99\t9:05:07\t700\r\n", "F\t310\r\n");
    EXPECT_EQ(sheet.header().join(u'|').toStdString(), "Data #|Date|Time|Output");
    answers.fileName = path("sheet.txt");
    files.saveas();
    EXPECT_EQ(contentsOf(path("sheet.txt")),
              QByteArray("F\t310 1\r\nsheet.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n"
                         "1\t1/5/99\t9:05:07\t700\t\r"));
}

TEST_F(RunRecoveryTest, ARecordFileThatCannotBeReadStays) {
    QDir().mkdir(path("Orvtemp.tmp"));
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(recordFile.isUnended());
}

#ifdef Q_OS_UNIX
TEST_F(RunRecoveryTest, AFileThatCannotBeKeptStaysAndIsTold) {
    leave(header + twoRows);
    allowEveryone(path("Orvtemp.tmp"));
    {
        const UnwritableFolder unwritable(folder.path());
        recovery.offer();
    }
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(QString::fromStdString(toldText()).startsWith(QStringLiteral("The record file ")));
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|Orvtemp.tmp.lock");
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows);
}
#endif

TEST_F(RunRecoveryTest, ARunLeftInAnotherPlaceIsTakenOverIfThatIsFree) {
    fill(path("Orvtemp-3.tmp"), header + twoRows);
    fill(path("Orvtemp-3.tmp.lock"), "V\t512\r\n");
    recovery.takeOverFromFreePlaces(3);
    EXPECT_EQ(fileNames(), "Orvtemp-3.tmp|Orvtemp-3.tmp.lock") << "its own place";
    {
        FolderPlace first;
        first.take();
        FolderPlace second;
        second.take();
        FolderPlace third; // a living program
        third.take();
        recovery.takeOverFromFreePlaces(1);
        EXPECT_FALSE(recordFile.isUnended());
    }
    recovery.takeOverFromFreePlaces(1);
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|Orvtemp.tmp.lock");
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows);
}

TEST_F(RunRecoveryTest, ATakeoverThatWasInterruptedIsFinished) {
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    fill(path("Orvtemp-2.tmp"), header + twoRows);
    fill(path("Orvtemp-2.tmp.lock"), "V\t512\r\n");
    recovery.takeOverFromFreePlaces(1);
    answers.yes = true;
    recovery.offer();
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|Orvtemp.tmp.lock");
}

TEST_F(RunRecoveryTest, OfTwoRunsThatDiedOneIsRecoveredAtATime) {
    leave(header + twoRows);
    fill(path("Orvtemp-2.tmp"), header);
    fill(path("Orvtemp-2.tmp.lock"), "V\t512\r\n");
    recovery.takeOverFromFreePlaces(1);
    EXPECT_EQ(fileNames(), "Orvtemp-2.tmp|Orvtemp-2.tmp.lock|Orvtemp.tmp|Orvtemp.tmp.lock");
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows);
}

} // namespace

} // namespace orv
