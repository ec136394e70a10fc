// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runrecovery.h"

#include "sheet/folderplace.h"
#include "testing/sheettest.h"

namespace orv {

namespace {

const QByteArray start("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n");
const QByteArray newer(start + "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n");
const QByteArray older(start + "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n");

DataSheet::Type type(const char* letter, double firmware) {
    return {.letter = QString::fromLatin1(letter), .firmware = firmware};
}

QByteArray newerRow(int number, const char* end = "\r\n") {
    return QByteArray::number(number) + "\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40" + end;
}

class RecordedRowsTest : public testing::Test {
protected:
    RecordedRows read(const QByteArray& bytes, const DataSheet::Type& typeOfLock = type("V", 512.0)) {
        const QString path = folder.path("Orvtemp.tmp");
        fill(path, bytes);
        RecordedRows found = readRecordedRows(path, typeOfLock);
        EXPECT_EQ(contentsOf(path), bytes);
        EXPECT_EQ(found.sheet.error, QString());
        return found;
    }

    static std::string text(const RecordedRows& found) {
        QByteArray all;
        for (const QByteArray& row : found.sheet.rows) {
            all += row + '\n';
        }
        return all.toStdString();
    }

    static void expectWhole(const RecordedRows& found) {
        EXPECT_FALSE(found.cutOff);
        EXPECT_EQ(found.unreadableLines, 0);
        EXPECT_FALSE(found.typeGuessed);
        EXPECT_FALSE(found.hasEarlierRows);
    }

    OwnFolder folder;
};

TEST_F(RecordedRowsTest, RowsOfEachLayoutBecomeTheSheetsCells) {
    const RecordedRows trx = read(newer + newerRow(1) + newerRow(2));
    expectWhole(trx);
    EXPECT_EQ(trx.sheet.type, type("V", 512.0));
    EXPECT_EQ(text(trx), "1\t11/21/26\t9:05:07\t100\t125\t150\t40\n2\t11/21/26\t9:05:07\t100\t125\t150\t40\n");

    const RecordedRows olderTrx = read(older + "1\t1/5/99\t9:05:07\t1\t2\t3\t4\t5\t6\r\n", type("v", 412.0));
    expectWhole(olderTrx);
    EXPECT_EQ(olderTrx.sheet.type, type("v", 412.0));
    EXPECT_EQ(text(olderTrx), "1\t1/5/99\t9:05:07\t1\t2\t3\t4\t5\t6\n");

    const RecordedRows glow = read(older + "1\t1/5/99\t9:05:07\t700\r\n", type("F", 310.0));
    expectWhole(glow);
    EXPECT_EQ(glow.sheet.type, type("F", 310.0));
    EXPECT_EQ(text(glow), "1\t1/5/99\t9:05:07\t700\n");
}

TEST_F(RecordedRowsTest, ThereMayBeNone) {
    for (const QByteArray& bytes : {QByteArray(), newer, older}) {
        const RecordedRows found = read(bytes);
        expectWhole(found);
        EXPECT_EQ(text(found), "");
    }
    const RecordedRows nowhere = readRecordedRows(folder.path("nowhere"), type("V", 512.0));
    expectWhole(nowhere);
    EXPECT_EQ(nowhere.sheet.error, QString());
    EXPECT_EQ(text(nowhere), "");
}

/// However much of the file has reached the disk: every whole line is a row, and nothing else is.
TEST_F(RecordedRowsTest, FileCutAnywhereHasItsWholeLines) {
    const QByteArray whole = newer + newerRow(1) + newerRow(2) + newerRow(3);
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        const QByteArray bytes = whole.first(size);
        const RecordedRows found = read(bytes);
        const auto rows = std::max<qsizetype>(0, bytes.count('\n') - newer.count('\n'));
        EXPECT_EQ(static_cast<qsizetype>(found.sheet.rows.size()), rows) << size;
        EXPECT_EQ(found.cutOff, size > 0 && !bytes.endsWith('\n')) << size;
        EXPECT_EQ(found.unreadableLines, 0) << size;
    }
}

TEST_F(RecordedRowsTest, ALastLineWithoutAnEndIsLeftOutEvenIfItLooksWhole) {
    for (const char* end : {"", "\r"}) {
        const RecordedRows found = read(newer + newerRow(1) + newerRow(2, end));
        EXPECT_TRUE(found.cutOff);
        EXPECT_EQ(found.sheet.rows.size(), 1U);
    }
}

TEST_F(RecordedRowsTest, LinesMayEndWithALineFeedOnly) {
    QByteArray bytes = newer + newerRow(1) + newerRow(2);
    const RecordedRows found = read(bytes.replace("\r\n", "\n"));
    expectWhole(found);
    EXPECT_EQ(found.sheet.rows.size(), 2U);
    EXPECT_EQ(found.sheet.rows[1], QByteArray("2\t11/21/26\t9:05:07\t100\t125\t150\t40"));
}

TEST_F(RecordedRowsTest, LinesThatAreNoRowsAreCountedAndTheOthersKept) {
    for (const QByteArray& bad : {
             QByteArray("2\t11/21/26\t9:05:07\t100\t\t125\t\t150\r\n"),        // a field too few
             QByteArray("2\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\t7\r\n"), // one too many
             QByteArray("2\t11/21/26\t9:05:07\t700\r\n"),                      // of another layout
             QByteArray("2\t11/21/26\t9:05:07\t100\t7\t125\t\t150\t40\r\n"),   // a reference where none can be
             QByteArray("2\t11/21/26\t9:05:07\t100\t\t125\t7\t150\t40\r\n"),
             QByteArray("x\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n"),
             QByteArray("0\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n"),
             QByteArray("-1\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n"),
             QByteArray("32768\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n"),
             QByteArray("\t\r\n"),
             QByteArray(4096, '\0') + "\r\n",
             QByteArray("2\t11/21/26\t9:05:07\t100\t\t125\t\t150\t4") + '\0' + "\r\n",
             QByteArray(200'000, 'x') + "\r\n",
         }) {
        const RecordedRows found = read(newer + newerRow(1) + bad + newerRow(3));
        EXPECT_EQ(found.unreadableLines, 1) << bad.left(80).toStdString();
        EXPECT_EQ(text(found), "1\t11/21/26\t9:05:07\t100\t125\t150\t40\n3\t11/21/26\t9:05:07\t100\t125\t150\t40\n");
        EXPECT_FALSE(found.cutOff);
    }
}

TEST_F(RecordedRowsTest, ABlockOfNulCharactersAtTheEndIsACutLine) {
    const RecordedRows found = read(newer + newerRow(1) + QByteArray(100'000, '\0'));
    EXPECT_TRUE(found.cutOff);
    EXPECT_EQ(found.sheet.rows.size(), 1U);
}

TEST_F(RecordedRowsTest, AnOverlongLineWithoutAnEndIsACutLine) {
    const RecordedRows found = read(newer + newerRow(1) + QByteArray(65536, 'x'));
    EXPECT_TRUE(found.cutOff);
    EXPECT_EQ(found.unreadableLines, 0);
}

TEST_F(RecordedRowsTest, AHeaderThatIsDamagedCostsNoRow) {
    QByteArray damaged = newer;
    damaged.replace("Device File", QByteArray(11, '\0'));
    const RecordedRows found = read(damaged + newerRow(1));
    EXPECT_EQ(found.unreadableLines, 1);
    EXPECT_EQ(found.sheet.rows.size(), 1U);
    const RecordedRows without = read(newerRow(1) + newerRow(2));
    EXPECT_EQ(without.unreadableLines, 0);
    EXPECT_EQ(without.sheet.rows.size(), 2U);
}

TEST_F(RecordedRowsTest, WithoutATypeTheRowsAndTheHeaderTellIt) {
    const struct {
        QByteArray bytes;
        DataSheet::Type lock;
        DataSheet::Type expected;
        const char* row;
    } cases[] = {
        {newer + newerRow(1), type("", 0.0), type("V", 500.0), "1\t11/21/26\t9:05:07\t100\t125\t150\t40\n"},
        {older + "1\ta\tb\t1\t2\t3\t4\t5\t6\r\n", type("", 0.0), type("V", 0.0), "1\ta\tb\t1\t2\t3\t4\t5\t6\n"},
        {older + "1\ta\tb\t700\r\n", type("", 0.0), type("F", 0.0), "1\ta\tb\t700\n"},
        {newer + "1\ta\tb\t700\r\n", type("", 0.0), type("F", 500.0), "1\ta\tb\t700\n"},
        {older + "1\ta\tb\t700\r\n", type("V", 512.0), type("F", 0.0), "1\ta\tb\t700\n"},
        {newer + newerRow(1), type("F", 310.0), type("V", 500.0), "1\t11/21/26\t9:05:07\t100\t125\t150\t40\n"},
    };
    for (const auto& each : cases) {
        const RecordedRows found = read(each.bytes, each.lock);
        EXPECT_TRUE(found.typeGuessed);
        EXPECT_EQ(found.sheet.type, each.expected) << each.row;
        EXPECT_EQ(text(found), each.row);
        EXPECT_EQ(found.unreadableLines, 0);
    }
}

TEST_F(RecordedRowsTest, RowsFromBeforeTheSheetWasClearedAreLeftOut) {
    QByteArray bytes = newer;
    for (int number = 1; number <= 20000; ++number) {
        bytes += newerRow(number);
    }
    const RecordedRows full = read(bytes);
    expectWhole(full);
    EXPECT_EQ(full.sheet.rows.size(), 20000U);
    const RecordedRows found = read(bytes + newerRow(1) + newerRow(2));
    EXPECT_TRUE(found.hasEarlierRows);
    EXPECT_EQ(text(found), "1\t11/21/26\t9:05:07\t100\t125\t150\t40\n2\t11/21/26\t9:05:07\t100\t125\t150\t40\n");
    const RecordedRows firstLost = read(bytes + "?\r\n" + newerRow(2));
    EXPECT_TRUE(firstLost.hasEarlierRows);
    EXPECT_EQ(firstLost.sheet.rows.size(), 1U);
}

TEST_F(RecordedRowsTest, TheLongestSheetFits) {
    QByteArray bytes = newer;
    for (int number = 1; number <= 32767; ++number) {
        bytes += newerRow(number);
    }
    const RecordedRows found = read(bytes);
    expectWhole(found);
    EXPECT_EQ(found.sheet.rows.size(), 32767U);
}

TEST_F(RecordedRowsTest, ARunThatBeganOnAFilledSheetKeepsItsNumbers) {
    const RecordedRows found = read(newer + newerRow(501) + newerRow(502));
    expectWhole(found);
    EXPECT_EQ(text(found), "501\t11/21/26\t9:05:07\t100\t125\t150\t40\n502\t11/21/26\t9:05:07\t100\t125\t150\t40\n");
}

TEST_F(RecordedRowsTest, OfAVeryLongFileTheEndIsRead) {
    QByteArray bytes = newer;
    QByteArray sheetful;
    for (int number = 1; number <= 20000; ++number) {
        sheetful += newerRow(number);
    }
    while (bytes.size() < qsizetype{17} * 1024 * 1024) {
        bytes += sheetful;
    }
    const RecordedRows found = read(bytes + newerRow(1), type("", 0.0));
    EXPECT_TRUE(found.hasEarlierRows);
    EXPECT_EQ(found.sheet.type, type("V", 500.0)) << "the header was read too";
    EXPECT_EQ(found.unreadableLines, 0);
    EXPECT_EQ(found.sheet.rows.size(), 1U);
}

TEST_F(RecordedRowsTest, AFileThatCannotBeReadIsNoEmptyOne) {
    const QString path = folder.path("Orvtemp.tmp");
    QDir().mkdir(path);
    EXPECT_NE(readRecordedRows(path, type("V", 512.0)).sheet.error, QString());
}

} // namespace

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

    std::string asked() const { return answers.asked.join(u'\n').toStdString(); }
    std::string fileNames() const { return folder.files().join(u'|').toStdString(); }
    std::string toldText() const { return messages.shown.empty() ? "" : messages.shown.back().text.toStdString(); }
};

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
    identify("V", "512");
    collection.run1();
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(recordFile.isOpen());
}

TEST_F(RunRecoveryTest, YesBringsTheRowsToTheSheetUnsaved) {
    leave(header + twoRows);
    answers.yes = true;
    recovery.offer();
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
    leave(header + twoRows);
    answers.yes = true;
    recovery.offer();
    answers.fileName = path("sheet.txt");
    EXPECT_EQ(files.saveas(), SheetFiles::Outcome::Saved);
    EXPECT_EQ(contentsOf(path("sheet.txt")),
              QByteArray("V\t512 2\r\nsheet.txt\r\n\r\r\r\nData Point\tDate\tTime\t100\t125\t150\tREF 150\r\n"
                         "1\t11/21/26\t9:05:07\t100\t125\t150\t40\t\t\r"
                         "2\t11/21/26\t9:05:08\t101\t126\t151\t41\t\t\r"));
    EXPECT_EQ(fileNames(), "Orvtemp.tmp|sheet.txt");
    answers.asked.clear();
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty());
    identify("V", "512");
    collection.run1();
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), header + twoRows);
}

TEST_F(RunRecoveryTest, UnsavedRowsAreOfferedAgainByTheNextProgram) {
    leave(header + twoRows);
    answers.yes = true;
    recovery.offer();
    RecordFile later(clock, path("Orvtemp.tmp"));
    RunRecovery next({.session = session, .rows = rows, .files = files, .recordFile = later, .questions = answers});
    sheetState.unsaved = false; // its sheet is empty
    answers.asked.clear();
    next.offer();
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(sheet.rowCount(), 2);
}

TEST_F(RunRecoveryTest, ARunOnRecoveredRowsLosesNeither) {
    leave(header + twoRows);
    answers.yes = true;
    recovery.offer();
    identify("V", "512");
    collection.run1();
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), header + twoRows);
    receive("R\r\n11/21/26\t2700\t7\t8\t9\t10\r\n");
    program.tick();
    EXPECT_EQ(cells(2).join(u'|').toStdString(), "3|11/21/26|1:00:00|7|8|9|10||");
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + "3\t11/21/26\t1:00:00\t7\t\t8\t\t9\t10\r\n");
    answers.fileName = path("sheet.txt");
    files.saveas();
    EXPECT_TRUE(QFile::exists(path("Orvtemp.tmp.lock"))) << "the run goes on";
    collection.closeRecordFile();
    EXPECT_EQ(fileNames(), "Orvtemp-20261121-093015.tmp|Orvtemp.tmp|orvhost.lock|sheet.txt");
}

TEST_F(RunRecoveryTest, UnsavedRowsOfARunThatEndedAreOffered) {
    identify("V", "512");
    collection.run1();
    receive("R\r\n11/21/26\t2700\t7\t8\t9\t10\r\n");
    program.tick();
    receive(">");
    expectEnded();
    recovery.offer();
    EXPECT_TRUE(answers.asked.isEmpty()) << "they are on the sheet";
    RecordFile later(clock, path("Orvtemp.tmp"));
    RunRecovery next({.session = session, .rows = rows, .files = files, .recordFile = later, .questions = answers});
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
    identify("V", "512");
    collection.run1();
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp.lock")), QByteArray("V\t512\tOrvtemp-20261120-120000.tmp\r\n"))
        << "and after a further run without a row";
    answers.fileName = path("sheet.txt");
    files.saveas();
    collection.closeRecordFile();
    EXPECT_EQ(fileNames(), "Orvtemp-20261120-120000.tmp|Orvtemp.tmp|orvhost.lock|sheet.txt");
}

TEST_F(RunRecoveryTest, RowsThatTheRecordFileLacksAreTold) {
    QByteArray gap = twoRows;
    leave(header + gap.replace("\n2\t", "\n9\t"));
    answers.yes = true;
    recovery.offer();
    EXPECT_NE(toldText().find("The numbers of the rows have gaps: 7 rows are missing in the record file.\n"),
              std::string::npos)
        << toldText();
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
    leave(damaged, QByteArray());
    answers.yes = true;
    recovery.offer();
    EXPECT_EQ(sheet.rowCount(), 2);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(toldText(), "The rows of the last run are on the sheet.\n\n"
                          "The last line was cut off and has been left out.\n"
                          "1 line could not be read and left out.\n"
                          "The instrument's type was told by the rows; the sheet says TRX with firmware 500.\n\n"
                          "Nothing is lost: the record file " +
                              path("Orvtemp.tmp").toStdString() +
                              " has everything. The next run keeps it under a name with date and time.");
    answers.fileName = path("sheet.txt");
    files.saveas();
    identify("V", "512");
    collection.run1();
    EXPECT_EQ(contentsOf(path("Orvtemp-20261121-093015.tmp")), damaged);
}

TEST_F(RunRecoveryTest, RowsTakenOffTheSheetDuringTheRunAreTold) {
    leave(header + twoRows + twoRows);
    answers.yes = true;
    recovery.offer();
    EXPECT_EQ(asked(), "ORV Host Program: The last run in this folder did not end. Load its 2 rows into the sheet?");
    EXPECT_NE(toldText().find("The sheet was saved or cleared during the run; rows from before that are left out."),
              std::string::npos);
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp")), header + twoRows + twoRows);
}

TEST_F(RunRecoveryTest, ARunThatBeganOnAFilledSheetIsTold) {
    leave(header + "501\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n");
    answers.yes = true;
    recovery.offer();
    EXPECT_EQ(state.plc, 1);
    EXPECT_NE(toldText().find("The run began with row 501."), std::string::npos);
}

TEST_F(RunRecoveryTest, ClearAllForgetsTheRecoveredRowsButNotTheFile) {
    leave(header + twoRows);
    answers.yes = true;
    recovery.offer();
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
    leave(glow + "1\t1/5/99\t9:05:07\t700\r\n", "F\t310\r\n");
    answers.yes = true;
    recovery.offer();
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
