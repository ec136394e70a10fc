// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sheettest.h"

namespace orv {

namespace {

constexpr const char* newerHeader = "Filename\t11/21/26\t9:30:15 AM\r\n"
                                    "Data File\r\n"
                                    "\r\r\r\n"
                                    "Data Point\tDate\tTime\t100\t125\t150\t150 REF\r\n";

TEST_F(DownloadTest, TextFileOfNewerTrxIsByteExact) {
    identify("V", "512");
    saveAsText();
    EXPECT_EQ(dump().toStdString(), newerHeader) << "the header stands before the dump arrives";
    replyAll({">O", "01/05/99\t24526\t10\t20\t30\t40", "12/31/26\t100\t11\t21\t31\t41", "EOF"});
    EXPECT_EQ(dump().toStdString(), std::string(newerHeader) + "1\t1/5/99\t9:05:01\t10\t\t20\t\t30\t40\r\n"
                                                               "2\t12/31/26\t0:02:13\t11\t\t21\t\t31\t41\r\n");
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadTest, TextFilesOfOlderTrxAndGlowAreByteExact) {
    const struct {
        const char* letter;
        const char* firmware;
        const char* record;
        const char* columns;
        const char* row;
    } cases[] = {{"v", "412", "01/05/99\t64799\t10\t15\t20\t25\t30\t35", "100\t100 REF\t125\t125 REF\t150\t150 REF",
                  "1\t1/5/99\t23:59:58\t10\t15\t20\t25\t30\t35"},
                 {"f", "310", "01/05/99\t24526\t700", "Output", "1\t1/5/99\t9:05:01\t700"}};
    for (const auto& each : cases) {
        identify(each.letter, each.firmware);
        state.Ctrlscrn = Operation::SettingsOpen;
        saveAsText();
        replyAll({">O", each.record, "EOF"});
        EXPECT_EQ(dump().toStdString(), std::string("Filename\t11/21/26\t9:30:15 AM\r\nData File\r\n\r\r\r\n"
                                                    "Data Point\tDate\tTime\t") +
                                            each.columns + "\r\n" + each.row + "\r\n");
    }
}

TEST_F(DownloadTest, FirmwareOf500IsTheNewerGeneration) {
    identify("V", "500");
    saveAsText("newer.txt");
    EXPECT_TRUE(dump("newer.txt").endsWith("\t100\t125\t150\t150 REF\r\n"));
    replyAll({">O", "EOF"});
    identify("V", "499");
    saveAsText("older.txt");
    EXPECT_TRUE(dump("older.txt").endsWith("\t100\t100 REF\t125\t125 REF\t150\t150 REF\r\n"));
}

TEST_F(DownloadTest, TextDownloadAsksAnnouncesAndStarts) {
    identify("V", "512");
    debug.comm2Output = true;
    status.notice = QStringLiteral("3 lines could not be read; they are in log.ohp");
    saveAsText();
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), "Save as|Stored Data.txt|.txt|*.txt");
    EXPECT_EQ(said(), "F2 Click\r");
    EXPECT_EQ(com1.allWritten(), QByteArray("O"));
    EXPECT_EQ(state.Ctrlscrn, Operation::SavingText);
    EXPECT_EQ(status.status.value(), QStringLiteral("Saving Sheet"));
    EXPECT_EQ(status.notice.value(), QString()) << "a remark on an earlier operation";
    EXPECT_TRUE(isTaking());
    EXPECT_TRUE(progress.visible);
    EXPECT_EQ(progress.label.value(), QStringLiteral("%"));
    EXPECT_EQ(progress.maximum, 200);
    EXPECT_EQ(progress.value, 0);
}

TEST_F(DownloadTest, ViewDownloadStartsWithoutAQuestion) {
    identify("V", "512");
    download.vwhp();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_EQ(com1.allWritten(), QByteArray("O"));
    EXPECT_EQ(state.Ctrlscrn, Operation::Importing);
    EXPECT_EQ(status.status.value(), QStringLiteral("Exporting Memory"));
    EXPECT_TRUE(isTaking());
    EXPECT_TRUE(progress.visible);
    EXPECT_EQ(progress.label.value(), QStringLiteral("%"));
    EXPECT_EQ(progress.maximum, 200);
}

TEST_F(DownloadTest, SheetKeepsItsRowsAndGetsTheRecordsBehindThem) {
    identify("V", "412");
    download.vwhp();
    replyAll({">O", "01/05/99\t24526\t10\t15\t20\t25\t30\t35", "EOF"});
    download.vwhp();
    replyAll({">O", "01/06/99\t100\t11\t16\t21\t26\t31\t36", "EOF"});
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|1/5/99|9:05:01|10|15|20|25|30|35");
    EXPECT_EQ(cells(1).join(u'|').toStdString(), "2|1/6/99|0:02:13|11|16|21|26|31|36");
    EXPECT_EQ(state.plc, 2);
    EXPECT_EQ(sheetState.counter.value(), QStringLiteral("2"));
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(DownloadTest, MemoryPointerSetsTheBarsMaximumUnlessItIsZero) {
    identify("F", "310");
    const auto maximumFor = [this](const char* pointer) {
        settings.memoryPointer = QString::fromLatin1(pointer);
        download.vwhp();
        reply("EOF");
        return progress.maximum.value();
    };
    progress.maximum = 77;
    EXPECT_EQ(maximumFor("0"), 77);
    EXPECT_EQ(maximumFor(""), 77);
    EXPECT_EQ(maximumFor("65525"), 65525);
    EXPECT_EQ(maximumFor("0"), 65525);
    EXPECT_EQ(maximumFor("99999999999"), std::numeric_limits<int>::max());
}

TEST_F(DownloadTest, ErasedRecordsAreDropped) {
    identify("F", "310");
    saveAsText();
    replyAll({">O", "65535", "01/05/99\t24526\t700", "65535", "65535", "01/05/99\t24526\t65535", "EOF"});
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t700\r\n2\t1/5/99\t9:05:01\t65535\r\n");
    EXPECT_EQ(status.notice.value(), QStringLiteral("Saved 2 records to dump.txt")) << "erased memory is none";
    download.vwhp();
    replyAll({">O", "65535", "01/05/99\t24526\t700", "65535", "EOF"});
    EXPECT_EQ(sheet.rowCount(), 1);
}

TEST_F(DownloadTest, ZeroEndsLikeEof) {
    identify("F", "310");
    for (const char* end : {"0", "EOF"}) {
        saveAsText();
        replyAll({">O", "01/05/99\t24526\t700", end});
        expectIdle();
        EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t700\r\n");
        EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
        download.vwhp();
        replyAll({">O", "01/05/99\t24526\t700", end});
        expectIdle();
        EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
    }
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadTest, OnlyAWholeReplyIsAnEnd) {
    identify("F", "310");
    download.vwhp();
    replyAll({">O", "00", "0 ", "EOF.", "eof", "065535"});
    EXPECT_TRUE(isTaking());
    reply("EOF");
    EXPECT_EQ(status.notice.value(), QStringLiteral("5 records could not be read; they are in log.ohp"));
}

TEST_F(DownloadTest, OpeningOfTheDumpResetsTheRecordCounter) {
    identify("F", "310");
    saveAsText();
    replyAll({"01/05/99\t24526\t700", "11/21/26\t25661", ">O", "01/05/99\t24526\t701", "01/05/99\t24526\t702", "EOF"});
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t700\r\n"
                          "1\t1/5/99\t9:05:01\t701\r\n"
                          "2\t1/5/99\t9:05:01\t702\r\n");
    EXPECT_EQ(status.notice.value(), QStringLiteral("Saved 3 records to dump.txt")) << "a late clock reply is none";
}

TEST_F(DownloadTest, OpeningWhosePromptWasTakenEarlierCountsToo) {
    identify("F", "310");
    saveAsText();
    replyAll({"O", "01/05/99\t24526\t701", "EOF"});
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t701\r\n");
    EXPECT_EQ(status.notice.value(), QStringLiteral("Saved 1 record to dump.txt"));
}

TEST_F(DownloadTest, CountersStartAfreshWithEachDownload) {
    identify("F", "310");
    saveAsText("one.txt");
    replyAll({">O", "01/05/99\t24526\t700", "bad", "EOF"});
    saveAsText("two.txt");
    replyAll({"01/05/99\t24526\t701", "EOF"});
    EXPECT_EQ(dumpRows("two.txt"), "1\t1/5/99\t9:05:01\t701\r\n");
    EXPECT_EQ(status.downloadedBytes.value(), QStringLiteral("21"));
    EXPECT_EQ(status.notice.value(), QStringLiteral("Saved 1 record to two.txt"));
}

TEST_F(DownloadTest, BytesAreCountedWithoutLineEnds) {
    identify("F", "310");
    settings.memoryPointer = QStringLiteral("40");
    saveAsText();
    reply(">O");
    EXPECT_EQ(progress.label.value(), QStringLiteral("Bytes Downloaded"));
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("2"));
    EXPECT_EQ(progress.value, 2);
    reply("01/05/99\t24526\t700");
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("20"));
    EXPECT_EQ(progress.value, 20);
    replyAll({"65535", "not a record"});
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("37"));
    EXPECT_EQ(status.downloadedBytes.value(), QStringLiteral("0")) << "only a whole download is shown there";
    reply("EOF");
    EXPECT_EQ(status.downloadedBytes.value(), QStringLiteral("40"));
}

TEST_F(DownloadTest, BarStaysWithinItsMaximum) {
    identify("F", "310");
    settings.memoryPointer = QStringLiteral("10");
    download.vwhp();
    replyAll({">O", "01/05/99\t24526\t700"});
    EXPECT_EQ(progress.label.value(), QStringLiteral("Bytes DownLoaded")) << "spelled in its own way";
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("20"));
    EXPECT_EQ(progress.value, 10);
}

TEST_F(DownloadTest, EverythingIsPutBackAtTheEnd) {
    identify("F", "310");
    for (const bool toFile : {true, false}) {
        if (toFile) {
            saveAsText();
        } else {
            download.vwhp();
        }
        replyAll({">O", "01/05/99\t24526\t700"});
        EXPECT_GT(progress.value, 0);
        reply("EOF");
        expectIdle();
        EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
        EXPECT_EQ(status.notice.value().toStdString(),
                  toFile ? "Saved 1 record to " + QFileInfo(answers.fileName).fileName().toStdString() : "");
        EXPECT_EQ(status.downloadedBytes.value(), QStringLiteral("23"));
        reply("01/05/99\t24526\t700");
        EXPECT_EQ(sheet.rowCount(), toFile ? 0 : 1) << "what comes later is no record";
    }
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t700\r\n");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadTest, ViewIsScrolledOnceAtTheEnd) {
    identify("F", "310");
    download.vwhp();
    for (int record = 0; record < 30; ++record) {
        reply("01/05/99\t24526\t700");
        EXPECT_EQ(sheetState.topRow, 0);
    }
    reply("EOF");
    EXPECT_EQ(sheetState.topRow, 20);
}

TEST_F(DownloadTest, ElevenRowsAreNotScrolledTwelveAre) {
    identify("F", "310");
    download.vwhp();
    for (int record = 0; record < 11; ++record) {
        reply("01/05/99\t24526\t700");
    }
    reply("EOF");
    EXPECT_EQ(sheetState.topRow, 0);
    download.vwhp();
    replyAll({"01/05/99\t24526\t700", "0"});
    EXPECT_EQ(sheetState.topRow, 2);
}

TEST_F(DownloadTest, LongSheetIsSavedAndClearedOnTheWay) {
    identify("F", "310");
    sheetState.fileName = path("lake");
    sheetState.records = QStringLiteral("4");
    download.vwhp();
    reply(">O");
    for (int record = 1; record <= 20012; ++record) {
        download.importtofg1(QStringLiteral("01/05/99\t24526\t%1").arg(record));
        ASSERT_EQ(state.plc, record % 20000);
    }
    reply("EOF");
    EXPECT_EQ(sheetState.records.value(), QStringLiteral("5"));
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "lake4.txt");
    const QByteArray saved = contentsOf(path("lake4.txt"));
    EXPECT_TRUE(saved.startsWith("F\t310 20000\r\nlake4.txt\r\n"));
    EXPECT_TRUE(saved.endsWith("20000\t1/5/99\t9:05:01\t20000\t\r"));
    EXPECT_EQ(sheet.rowCount(), 12);
    EXPECT_EQ(sheet.cell(0, 0), QStringLiteral("1"));
    EXPECT_EQ(sheet.cell(0, 3), QStringLiteral("20001"));
    EXPECT_EQ(sheetState.topRow, 2);
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadTest, RecordsThatCannotBeReadAreCountedAndToldAtTheEnd) {
    identify("V", "512");
    saveAsText();
    replyAll({">O", "01/05/99\t24526\t10\t20\t30", "01/05/99\t24526\t10\t20\t30\t40"});
    EXPECT_EQ(status.notice.value(), QString());
    reply("EOF");
    EXPECT_EQ(status.notice.value(), QStringLiteral("1 record could not be read; it is in log.ohp"));
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t10\t\t20\t\t30\t40\r\n") << "it takes no number";
    download.vwhp();
    replyAll({">O", "x", "01/05/99\t24526\t10\t20\t30\t40", "\t", "EOF"});
    EXPECT_EQ(status.notice.value(), QStringLiteral("2 records could not be read; they are in log.ohp"));
    EXPECT_EQ(sheet.rowCount(), 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadTest, ValuesAreConvertedAsTheSettingsAskAtThatMoment) {
    identify("F", "310");
    settings.glowCalibration.offset = QStringLiteral("100");
    settings.glowCalibration.scale = QStringLiteral("0.5");
    saveAsText();
    reply("01/05/99\t24526\t701");
    settings.glowProvideRawCounts = false;
    replyAll({"01/05/99\t24526\t701", "01/05/99\t24526\t100", "EOF"});
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t701\r\n"
                          "2\t1/5/99\t9:05:01\t300.5\r\n"
                          "3\t1/5/99\t9:05:01\t100\r\n");
}

TEST_F(DownloadTest, TicksComeOftenEnoughForTheShortestLines) {
    identify("F", "310");
    for (const bool toFile : {true, false}) {
        timer.setInterval(StatusTimer::slowInterval);
        if (toFile) {
            saveAsText();
        } else {
            download.vwhp();
        }
        EXPECT_EQ(timer.interval(), StatusTimer::normalInterval);
        EXPECT_TRUE(timer.isRunning());
        reply("EOF");
    }
}

TEST_F(DownloadTest, ReplacesAFileThatTheDialogHasAskedAbout) {
    identify("V", "512");
    fill(path("dump.txt"), QByteArray(5000, 'x'));
    saveAsText();
    reply("EOF");
    EXPECT_EQ(dump().toStdString(), newerHeader);
}

} // namespace

} // namespace orv
