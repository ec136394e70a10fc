// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sheettest.h"

#include "base/runtimeerror.h"

#include <QFileInfo>

#include <cerrno>

namespace orv {

namespace {

constexpr const char* record = "01/05/99\t24526\t700";
constexpr const char* stalled = "No data for 10 s. Reset stops the download.";

/// Ways in which a download does not come to its end.
class DownloadEndsTest : public DownloadTest {
protected:
    DownloadEndsTest() { identify("F", "310"); }

    std::string statusText() const { return status.status.value().toStdString(); }

    std::string incomplete(const char* records, const QString& where, const char* unread = "") const {
        return "The download is incomplete: it was ended before the instrument had sent everything. " +
               std::string(records) + " arrived and can be found " + where.toStdString() + "." + unread +
               "\n\nThe instrument still holds its data; download it again.";
    }
};

TEST_F(DownloadEndsTest, CancelledDialogSendsAndWritesNothing) {
    status.notice = QStringLiteral("kept");
    progress.maximum = 77;
    timer.setInterval(StatusTimer::slowInterval);
    download.saveAsText();
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(statusText(), "Ready");
    EXPECT_EQ(status.notice.value(), QStringLiteral("kept"));
    EXPECT_FALSE(isTaking());
    EXPECT_EQ(progress.maximum, 77);
    EXPECT_EQ(timer.interval(), StatusTimer::slowInterval);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadEndsTest, ProcessingDialogStandsBehindTheFileDialog) {
    bool wasShown = false;
    answers.whileAsked = [this, &wasShown] { wasShown = progress.visible; };
    download.saveAsText();
    EXPECT_TRUE(wasShown);
    EXPECT_FALSE(progress.visible);
}

TEST_F(DownloadEndsTest, ConnectionLostDuringTheFileDialogEndsItThere) {
    fill(path("dump.txt"), "older");
    for (const bool openedAgain : {false, true}) {
        answers.whileAsked = [this, openedAgain] {
            ports.close();
            if (openedAgain) {
                ports.open();
            }
        };
        saveAsText();
        EXPECT_EQ(com1.allWritten(), QByteArray());
        EXPECT_EQ(dump(), QByteArray("older"));
        EXPECT_FALSE(progress.visible);
        EXPECT_FALSE(isTaking());
        EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    }
}

TEST_F(DownloadEndsTest, InstrumentOfUnknownTypeGivesNoFile) {
    state.Vartemp.clear();
    saveAsText();
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(onlyMessage(), "The instrument did not say what it is. Connect again.");
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(DownloadEndsTest, FileThatCannotBeCreatedIsToldAndNothingIsSent) {
    saveAsText();
    replyAll({">O", record, "EOF"});
    state.Ctrlscrn = Operation::SettingsOpen;
    com1.writes.clear();
    saveAsText("nowhere/dump.txt");
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_EQ(onlyMessage(), "The stored data cannot be written to " + path("nowhere/dump.txt").toStdString() + ": " +
                                 wordsOfOpening(path("nowhere/dump.txt"), QIODevice::WriteOnly).toStdString() +
                                 ".\n\nNothing was asked of the instrument. The instrument still holds its data. Make "
                                 "room or choose another folder, and download it again.");
    expectDialogPutBack();
    EXPECT_FALSE(isTaking());
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(statusText(), "Ready");
}

TEST_F(DownloadEndsTest, StalledDumpIsToldAfterTenSecondsAndWaitedFor) {
    for (const bool toFile : {true, false}) {
        if (toFile) {
            saveAsText();
        } else {
            download.vwhp();
        }
        const std::string usual = toFile ? "Saving Sheet" : "Exporting Memory";
        replyAll({">O", record});
        standStill(9999);
        EXPECT_EQ(statusText(), usual);
        standStill(1);
        EXPECT_EQ(statusText(), stalled);
        standStill(3'600'000);
        EXPECT_TRUE(isTaking()) << "it goes on waiting";
        reply(record);
        EXPECT_EQ(statusText(), usual);
        standStill(9999);
        EXPECT_EQ(statusText(), usual);
        standStill(1);
        EXPECT_EQ(statusText(), stalled);
        reply("EOF");
        EXPECT_EQ(statusText(), "Ready");
    }
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t700\r\n2\t1/5/99\t9:05:01\t700\r\n");
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DownloadEndsTest, StallIsToldInTimeThoughTheTimerSleeps) {
    saveAsText();
    replyAll({">O", record});
    live(5.0);
    com1.input += "half a li"; // wakes the timer, which finds nothing to do
    live(4.9);
    EXPECT_EQ(statusText(), "Saving Sheet");
    live(0.2);
    EXPECT_EQ(statusText(), stalled);
}

TEST_F(DownloadEndsTest, InstrumentThatNeverAnswersIsToldToo) {
    clock.advance(100'000);
    download.vwhp();
    standStill(9999);
    EXPECT_EQ(statusText(), "Exporting Memory");
    standStill(1);
    EXPECT_EQ(statusText(), stalled);
}

TEST_F(DownloadEndsTest, TextFileKeepsWhatArrivedAndIsClosed) {
    saveAsText();
    replyAll({">O", record, record});
    const std::string before = dump().toStdString();
    download.endIncomplete();
    EXPECT_EQ(onlyMessage(), incomplete("2 records", QStringLiteral("in ") + path("dump.txt")));
    expectIdle();
    EXPECT_EQ(dumpRows(), "1\t1/5/99\t9:05:01\t700\r\n2\t1/5/99\t9:05:01\t700\r\n");
    EXPECT_EQ(status.downloadedBytes.value(), QStringLiteral("0"));
    reply(record);
    EXPECT_EQ(dump().toStdString(), before);
#ifdef Q_OS_LINUX
    const QStringList open = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System);
    for (const QString& descriptor : open) {
        EXPECT_NE(QFileInfo(QStringLiteral("/proc/self/fd/") + descriptor).symLinkTarget(), path("dump.txt"));
    }
#endif
}

TEST_F(DownloadEndsTest, SheetKeepsWhatArrived) {
    download.vwhp();
    reply(">O");
    for (int row = 0; row < 12; ++row) {
        reply(record);
    }
    download.endIncomplete();
    EXPECT_EQ(onlyMessage(), incomplete("12 records", QStringLiteral("on the sheet")));
    expectIdle();
    EXPECT_EQ(sheet.rowCount(), 12);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheetState.topRow, 2);
}

TEST_F(DownloadEndsTest, OneRecordIsNotTwo) {
    saveAsText();
    replyAll({">O", record});
    download.endIncomplete();
    EXPECT_EQ(onlyMessage(), incomplete("1 record", QStringLiteral("in ") + path("dump.txt")));
}

TEST_F(DownloadEndsTest, UnreadableRecordsAreToldWithTheIncompleteEnd) {
    saveAsText();
    replyAll({">O", record, "x", "y"});
    download.endIncomplete();
    EXPECT_EQ(onlyMessage(), incomplete("1 record", QStringLiteral("in ") + path("dump.txt"),
                                        " 2 records could not be read; log.ohp has what was received."));
}

TEST_F(DownloadEndsTest, RecordsOfAutomaticSavesAreNotSoughtOnTheSheet) {
    download.vwhp();
    for (int row = 0; row <= 20000; ++row) {
        download.importtofg1(QString::fromLatin1(record));
    }
    ASSERT_EQ(sheet.rowCount(), 1);
    download.endIncomplete();
    EXPECT_EQ(onlyMessage(), incomplete("20001 records", QStringLiteral("on the sheet and in the files that were saved "
                                                                        "automatically")));
}

TEST_F(DownloadEndsTest, WithoutADownloadThereIsNothingToEnd) {
    download.endIncomplete();
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    saveAsText();
    reply("EOF");
    download.endIncomplete();
    saveAsText();
    download.endIncomplete();
    ASSERT_EQ(messages.shown.size(), 1U);
    download.endIncomplete();
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(DownloadEndsTest, FullCounterEndsTheDownloadAndDropsTheRest) {
    download.vwhp();
    replyAll({">O", record});
    haveRows(32767);
    EXPECT_THROW(download.importtofg1(QString::fromLatin1(record)), RuntimeError);
    EXPECT_EQ(onlyMessage(), incomplete("1 record", QStringLiteral("on the sheet")));
    expectDialogPutBack();
    EXPECT_TRUE(isTaking()) << "the instrument is still sending";
    reply(record);
    EXPECT_EQ(sheet.rowCount(), 32767);
    reply("EOF");
    expectIdle();
    EXPECT_EQ(messages.shown.size(), 1U);
}

#ifdef Q_OS_UNIX
TEST_F(DownloadEndsTest, AFileThatIsRemovedMeanwhileIsNotCalledWhole) {
    saveAsText();
    replyAll({">O", record});
    QFile::remove(path("dump.txt"));
    replyAll({record, "EOF"});
    EXPECT_FALSE(download.isWhole());
    EXPECT_EQ(onlyMessage(), "The stored data cannot be written to " + path("dump.txt").toStdString() +
                                 ": it has been removed.\n\nIt may not have everything. The instrument still holds its "
                                 "data. Make room or choose another folder, and download it again.");
    EXPECT_EQ(statusText(), "Ready");
}

TEST_F(DownloadEndsTest, FullDiskStopsTheDownloadWithOneMessage) {
    saveAsText();
    replyAll({">O", record});
    const QByteArray whole = dump();
    {
        const FileSizeLimit limit(static_cast<rlim_t>(whole.size()) + 5);
        reply(record);
        EXPECT_EQ(statusText(), "Download stopped");
        expectDialogPutBack();
        EXPECT_EQ(dump(), whole) << "no half row is left";
        reply(record);
    }
    EXPECT_EQ(onlyMessage(), "The stored data cannot be written to " + path("dump.txt").toStdString() +
                                 ": File too large.\n\nIt holds 1 record. The instrument still holds its data. Press "
                                 "Reset, make room or choose another folder, and download it again.");
    reply(record);
    EXPECT_EQ(dump(), whole) << "a file with a gap would look whole";
}

TEST_F(DownloadEndsTest, NoCommandIsGivenIntoTheRestOfAStoppedDump) {
    saveAsText();
    replyAll({">O", record});
    const FileSizeLimit limit(static_cast<rlim_t>(dump().size()));
    reply(record);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(commands.canCommand);
    EXPECT_FALSE(commands.canRun);
    replyAll({record, "65535", ">O", "bad"});
    EXPECT_FALSE(commands.canCommand);
    EXPECT_EQ(progress.value, 0);
    standStill(10'000);
    EXPECT_EQ(statusText(), stalled);
    reply(record);
    EXPECT_EQ(statusText(), "Download stopped");
    reply("EOF");
    expectIdle();
    EXPECT_TRUE(commands.canCommand);
    EXPECT_EQ(statusText(), "Ready");
    EXPECT_EQ(status.downloadedBytes.value(), QStringLiteral("0"));
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(DownloadEndsTest, ResetAfterAFullDiskTellsNothingMore) {
    saveAsText();
    replyAll({">O", record});
    const FileSizeLimit limit(static_cast<rlim_t>(dump().size()));
    reply(record);
    download.endIncomplete();
    expectIdle();
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(DownloadEndsTest, DiskThatIsFullFromTheStartIsToldAndNothingIsSent) {
    {
        const FileSizeLimit limit(20);
        saveAsText();
    }
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_TRUE(onlyMessage().starts_with("The stored data cannot be written to "));
    EXPECT_FALSE(isTaking());
    EXPECT_EQ(dump(), QByteArray()) << "no half header is left";
}

#ifdef Q_OS_LINUX
TEST_F(DownloadEndsTest, DeviceWithoutSpaceIsToldInTheSystemsWords) {
    answers.fileName = QStringLiteral("/dev/full");
    download.saveAsText();
    EXPECT_TRUE(onlyMessage().starts_with(
        "The stored data cannot be written to /dev/full: " + systemWords(ENOSPC).toStdString() + "."));
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_FALSE(progress.visible);
}
#endif

TEST_F(DownloadEndsTest, FolderThatTakesNoFilesIsTold) {
    const UnwritableFolder unwritable(folder.path());
    saveAsText();
    EXPECT_TRUE(onlyMessage().find(": " + systemWords(EACCES).toStdString() + ".") != std::string::npos);
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_FALSE(progress.visible);
}
#endif

} // namespace

} // namespace orv
