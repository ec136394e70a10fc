// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sheettest.h"

namespace orv {

namespace {

QByteArray recordHeader(bool newer) {
    return QByteArray("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n") +
           (newer ? "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n" : "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n");
}

class CollectionFilesTest : public SheetTest {
protected:
    void start(const char* letter, const char* firmware) {
        identify(letter, firmware);
        collection.run1();
    }
    QByteArray record() const { return contentsOf(path("Orvtemp.tmp")); }
    QByteArray keptRecord() const { return contentsOf(path("Orvtemp-20261121-093015.tmp")); }
    static QByteArray line(int value) { return "11/21/26\t2700\t" + QByteArray::number(value) + "\r\n"; }
    static QByteArray row(int number, int value) {
        return QByteArray::number(number) + "\t11/21/26\t1:00:00\t" + QByteArray::number(value) + "\r\n";
    }
};

TEST_F(CollectionFilesTest, RecordFileOfNewerTrx) {
    start("V", "512");
    receive("11/21/26\t2700\t10\t20\t30\t40\r\n");
    receive("11/21/26\t32400\t11\t21\t31\t41\t\r\n>");
    expectEnded();
    EXPECT_EQ(record(), recordHeader(true) + "1\t11/21/26\t1:00:00\t10\t\t20\t\t30\t40\r\n"
                                             "2\t11/21/26\t12:00:00\t11\t\t21\t\t31\t41\r\n");
}

TEST_F(CollectionFilesTest, RecordFileOfOlderTrx) {
    start("V", "412");
    receive("11/21/26\t2700\t10\t15\t20\t25\t30\t35\r\n");
    receive("xx\t32400\t11\t16\t21\t26\t31\t36\r\n>");
    expectEnded();
    EXPECT_EQ(record(), recordHeader(false) + "1\t11/21/26\t1:00:00\t10\t15\t20\t25\t30\t35\r\n"
                                              "2\txx\t12:00:00\t11\t16\t21\t26\t31\t36\r\n");
}

TEST_F(CollectionFilesTest, RecordFileOfGlow) {
    start("F", "512");
    settings.glowProvideRawCounts = false;
    settings.glowCalibration.scale = QStringLiteral("0.5");
    receive(line(701));
    receive("11/21/26\t2700\r\n");
    receive(line(0));
    receive(">");
    expectEnded();
    EXPECT_EQ(record(), recordHeader(true) + "1\t11/21/26\t1:00:00\t350.5\r\n" + row(2, 0));
}

TEST_F(CollectionFilesTest, EachRowIsInTheRecordFileBeforeTheNextArrives) {
    start("F", "412");
    EXPECT_EQ(record(), recordHeader(false));
    receive(line(1));
    EXPECT_EQ(record(), recordHeader(false) + row(1, 1));
    receive(line(2));
    EXPECT_EQ(record(), recordHeader(false) + row(1, 1) + row(2, 2));
}

TEST_F(CollectionFilesTest, EndingTheRunFromOutsideClosesTheRecordFileEvenWithoutARow) {
    start("F", "412");
    collection.closeRecordFile();
    EXPECT_FALSE(recordFile.isOpen());
    EXPECT_EQ(record(), recordHeader(false));
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(commands.runEnabled);
    EXPECT_EQ(state.gatherstart, 0);

    collection.run1();
    receive(line(1));
    state.Gatherstop = 3;
    collection.closeRecordFile();
    collection.closeRecordFile();
    EXPECT_FALSE(recordFile.isOpen());
    EXPECT_EQ(record(), recordHeader(false) + row(1, 1));
    EXPECT_EQ(state.Gatherstop, 0);
    receive(line(2));
    EXPECT_EQ(record(), recordHeader(false) + row(1, 1));
}

TEST_F(CollectionFilesTest, SecondRunKeepsTheFirstOnesUnsavedRecord) {
    start("F", "412");
    receive(line(1) + ">");
    program.tick();
    collection.run1();
    receive("R\r\n");
    receive(line(2));
    EXPECT_EQ(keptRecord(), recordHeader(false) + row(1, 1));
    EXPECT_EQ(record(), recordHeader(false) + row(2, 2)) << "row numbers go on as on the sheet";
}

TEST_F(CollectionFilesTest, SecondRunReplacesTheFirstOnesSavedRecord) {
    start("F", "412");
    receive(line(1) + ">");
    program.tick();
    answers.fileName = path("lake.txt");
    ASSERT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    rows.clearSpreadSheet();
    collection.run1();
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock|lake.txt|orvhost.lock");
}

TEST_F(CollectionFilesTest, RecordOfRowsClearedUnsavedIsKept) {
    start("F", "412");
    receive(line(1) + ">");
    program.tick();
    rows.clearSpreadSheet();
    answers.fileName = path("lake.txt");
    ASSERT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    collection.run1();
    EXPECT_EQ(keptRecord(), recordHeader(false) + row(1, 1));
}

TEST_F(CollectionFilesTest, RecordOfAFailedSaveIsKept) {
    start("F", "412");
    receive(line(1) + ">");
    program.tick();
    answers.fileName = path("nowhere/lake.txt");
    ASSERT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Failed);
    collection.run1();
    EXPECT_EQ(keptRecord(), recordHeader(false) + row(1, 1));
}

TEST_F(CollectionFilesTest, The20000thRowSavesCountsAndClears) {
    start("F", "412");
    sheetState.fileName = path("lake");
    sheetState.records = QStringLiteral("3");
    haveRows(19998);
    receive(line(1));
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock|orvhost.lock");
    EXPECT_EQ(sheet.rowCount(), 19999);
    debug.comm2Output = true;
    receive(line(2));
    EXPECT_EQ(folder.files().join(u'|').toStdString(),
              "Orvtemp.tmp|Orvtemp.tmp.lock|Orvtemp.tmp.saved|lake3.txt|orvhost.lock");
    const QByteArray saved = contentsOf(path("lake3.txt"));
    EXPECT_TRUE(saved.startsWith(
        "F\t412 20000\r\nlake3.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n1\t1/5/99\t9:05:01\t9\t\r"));
    EXPECT_TRUE(saved.endsWith("19999\t11/21/26\t1:00:00\t1\t\r20000\t11/21/26\t1:00:00\t2\t\r"));
    EXPECT_EQ(saved.count('\r'), 4 + 2 + 20000);
    EXPECT_EQ(sheetState.records.value().toStdString(), "4");
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(state.plc, 0);
    EXPECT_EQ(sheetState.counter.value().toStdString(), "0");
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(said(), "Profile Sub\rSave Spread Sheet\rSaving Flour Sheet\rClear Spread Sheet\r");
    expectRunning();
    receive(line(3));
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|11/21/26|1:00:00|3|||||");
    EXPECT_EQ(record(), recordHeader(false) + row(19999, 1) + row(20000, 2) + row(1, 3));
}

TEST_F(CollectionFilesTest, AutomaticSaveKeepsAnOlderFileUnderADatedName) {
    start("F", "412");
    fill(path("Untitled0.txt"), "older");
    haveRows(19999);
    receive(line(1));
    EXPECT_EQ(contentsOf(path("Untitled0-20261121-093015.txt")), QByteArray("older"));
    EXPECT_TRUE(contentsOf(path("Untitled0.txt")).startsWith("F\t412 20000\r\nUntitled0.txt\r\n"));
    EXPECT_EQ(sheetState.records.value().toStdString(), "1");
}

TEST_F(CollectionFilesTest, RunEndsWithThePromptOfTheRowThatIsSavedAutomatically) {
    start("F", "412");
    receive(line(1));
    haveRows(19999);
    receive(line(2) + ">");
    expectEnded();
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheetState.records.value().toStdString(), "1");
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.saved|Untitled0.txt|orvhost.lock")
        << "saved rows are not offered";
}

TEST_F(CollectionFilesTest, RecordOfAutomaticallySavedRowsNeedNotBeKept) {
    start("F", "412");
    haveRows(19999);
    receive(line(1));
    collection.closeRecordFile();
    collection.run1();
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock|Untitled0.txt|orvhost.lock");
}

TEST_F(CollectionFilesTest, AutomaticSaveThatFailsKeepsTheRowsTellsOnceAndIsTriedAgainLater) {
    start("F", "412");
    sheetState.fileName = path("nowhere/lake");
    haveRows(19999);
    receive(line(1));
    EXPECT_TRUE(theMessage().text.contains(path("nowhere/lake0.txt")));
    for (int value = 2; value <= 500; ++value) {
        receive(line(value));
    }
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 20499);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheetState.records.value().toStdString(), "0");
    expectRunning();
    sheetState.fileName = path("lake");
    receive(line(501));
    EXPECT_TRUE(contentsOf(path("lake0.txt")).startsWith("F\t412 20500\r\nlake0.txt\r\n"));
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheetState.records.value().toStdString(), "1");
    EXPECT_EQ(messages.shown.size(), 1U);

    haveRows(19999);
    receive(line(1));
    EXPECT_EQ(sheetState.records.value().toStdString(), "2") << "the next sheet is saved at 20000 rows again";
}

TEST_F(CollectionFilesTest, RecordFileThatCannotBeCreatedIsToldOnceAndRowsGoOn) {
    recordFile.setPath(path("nowhere/Orvtemp.tmp"));
    identify("F", "412");
    for (std::size_t runs = 1; runs <= 2; ++runs) {
        collection.run1();
        ASSERT_EQ(messages.shown.size(), runs);
        EXPECT_EQ(messages.shown.back().title.toStdString(), "ORV Host Program");
        EXPECT_TRUE(
            messages.shown.back().text.startsWith(QLatin1String("The record file Orvtemp.tmp cannot be written: ")));
        receive(line(5));
        receive(line(5));
        EXPECT_EQ(messages.shown.size(), runs);
        EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
        collection.closeRecordFile();
    }
    EXPECT_EQ(sheet.rowCount(), 4);
}

#ifdef Q_OS_UNIX
TEST_F(CollectionFilesTest, RecordFileThatIsRemovedIsToldOnceWithinASecondAndRowsGoOn) {
    const auto aSecondPasses = [this] {
        clock.advance(1000);
        ticks();
    };
    start("F", "412");
    receive(line(1));
    QFile::remove(path("Orvtemp.tmp"));
    aSecondPasses();
    EXPECT_TRUE(theMessage().text.startsWith(
        QLatin1String("The record file Orvtemp.tmp cannot be written: it has been removed.")));
    receive(line(2));
    aSecondPasses();
    receive(">");
    expectEnded();
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 2);
    messages.shown.clear();
    collection.run1();
    receive(line(3));
    aSecondPasses();
    EXPECT_TRUE(messages.shown.empty()) << "the next run has a record file";
}

TEST_F(CollectionFilesTest, FullDiskIsToldOnceAndRowsGoOnToTheSheet) {
    start("F", "412");
    receive(line(1));
    {
        const FileSizeLimit limit(static_cast<rlim_t>(record().size() + 3));
        receive(line(2));
        receive(line(3));
    }
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(record(), recordHeader(false) + row(1, 1));
    EXPECT_EQ(sheet.rowCount(), 3);
    expectRunning();
    receive(line(4));
    EXPECT_EQ(record(), recordHeader(false) + row(1, 1) + row(4, 4));
    receive(">");
    expectEnded();
    EXPECT_EQ(messages.shown.size(), 1U);
}
#endif

} // namespace

} // namespace orv
