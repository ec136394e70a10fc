// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "testing/sheettest.h"

#include <tuple>

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

/// Such a row as it stands on the sheet.
std::string newerCells(int number) {
    return std::to_string(number) + "\t11/21/26\t9:05:07\t100\t125\t150\t40\n";
}

QByteArray newerRows(int count) {
    QByteArray rows;
    for (int number = 1; number <= count; ++number) {
        rows += newerRow(number);
    }
    return rows;
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
    const QByteArray two = newer + newerRow(1) + newerRow(2);
    const std::tuple<QByteArray, DataSheet::Type, std::string> cases[] = {
        {two, type("V", 512.0), newerCells(1) + newerCells(2)},
        {QByteArray(two).replace("\r\n", "\n"), type("V", 512.0), newerCells(1) + newerCells(2)},
        {newer + newerRow(501) + newerRow(502), type("V", 512.0), newerCells(501) + newerCells(502)},
        {older + "1\t1/5/99\t9:05:07\t1\t2\t3\t4\t5\t6\r\n", type("v", 412.0),
         "1\t1/5/99\t9:05:07\t1\t2\t3\t4\t5\t6\n"},
        {older + "1\t1/5/99\t9:05:07\t700\r\n", type("F", 310.0), "1\t1/5/99\t9:05:07\t700\n"},
        {QByteArray(), type("V", 512.0), ""},
        {newer, type("V", 512.0), ""},
        {older, type("V", 512.0), ""},
    };
    for (const auto& [bytes, type, rows] : cases) {
        const RecordedRows found = read(bytes, type);
        expectWhole(found);
        EXPECT_EQ(found.sheet.type, type);
        EXPECT_EQ(text(found), rows);
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
    for (const QByteArray& last :
         {newerRow(2, ""), newerRow(2, "\r"), QByteArray(100'000, '\0'), QByteArray(65536, 'x')}) {
        const RecordedRows found = read(newer + newerRow(1) + last);
        EXPECT_TRUE(found.cutOff);
        EXPECT_EQ(found.sheet.rows.size(), 1U);
        EXPECT_EQ(found.unreadableLines, 0);
    }
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
        EXPECT_EQ(text(found), newerCells(1) + newerCells(3));
        EXPECT_FALSE(found.cutOff);
    }
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
    const std::tuple<QByteArray, DataSheet::Type, DataSheet::Type, std::string> cases[] = {
        {newer + newerRow(1), type("", 0.0), type("V", 500.0), newerCells(1)},
        {older + "1\ta\tb\t1\t2\t3\t4\t5\t6\r\n", type("", 0.0), type("V", 0.0), "1\ta\tb\t1\t2\t3\t4\t5\t6\n"},
        {older + "1\ta\tb\t700\r\n", type("", 0.0), type("F", 0.0), "1\ta\tb\t700\n"},
        {newer + "1\ta\tb\t700\r\n", type("", 0.0), type("F", 500.0), "1\ta\tb\t700\n"},
        {older + "1\ta\tb\t700\r\n", type("V", 512.0), type("F", 0.0), "1\ta\tb\t700\n"},
        {newer + newerRow(1), type("F", 310.0), type("V", 500.0), newerCells(1)},
    };
    for (const auto& [bytes, lock, expected, row] : cases) {
        const RecordedRows found = read(bytes, lock);
        EXPECT_TRUE(found.typeGuessed);
        EXPECT_EQ(found.sheet.type, expected) << row;
        EXPECT_EQ(text(found), row);
        EXPECT_EQ(found.unreadableLines, 0);
    }
}

TEST_F(RecordedRowsTest, RowsFromBeforeTheSheetWasClearedAreLeftOut) {
    const RecordedRows longest = read(newer + newerRows(32767));
    expectWhole(longest);
    EXPECT_EQ(longest.sheet.rows.size(), 32767U);
    const QByteArray bytes = newer + newerRows(20000);
    const RecordedRows full = read(bytes);
    expectWhole(full);
    EXPECT_EQ(full.sheet.rows.size(), 20000U);
    const RecordedRows found = read(bytes + newerRow(1) + newerRow(2));
    EXPECT_TRUE(found.hasEarlierRows);
    EXPECT_EQ(text(found), newerCells(1) + newerCells(2));
    const RecordedRows firstLost = read(bytes + "?\r\n" + newerRow(2));
    EXPECT_TRUE(firstLost.hasEarlierRows);
    EXPECT_EQ(firstLost.sheet.rows.size(), 1U);
}

TEST_F(RecordedRowsTest, NumbersThatBeginAnewForgetWhatWasMissingBefore) {
    for (const QByteArray& before : {newerRow(1), newerRow(1) + newerRow(3)}) {
        const RecordedRows found = read(newer + before + newerRow(1));
        EXPECT_TRUE(found.hasEarlierRows);
        EXPECT_EQ(found.missingRows, 0);
        EXPECT_EQ(text(found), newerCells(1));
    }
}

TEST_F(RecordedRowsTest, OfAVeryLongFileTheEndIsRead) {
    QByteArray bytes = newer;
    const QByteArray sheetful = newerRows(20000);
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
} // namespace orv
