// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/pages.h"
#include "sheet/folderplace.h"
#include "testing/programrig.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace orv {

namespace {

const QByteArray header("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n"
                        "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n");
const QByteArray oneRow("1\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n");

/// A program started in a folder where another one lives or has died.
class ProgramPlace : public ProgramTest {
protected:
    void leaveRun(const char* record, const char* lock) {
        fill(folder.path(record), header + oneRow);
        fill(folder.path(lock), "V\t512\r\n");
    }

    std::string names() const { return folder.files().join(u' ').toStdString(); }
};

TEST_F(ProgramPlace, TheQuestionIsNotAskedBeforeTheWindowIsThere) {
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    program.load();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(timer.isRunning());
    answers.yes = true;
    program.offerUnendedRun();
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(),
              "ORV Host Program: The last run in this folder did not end. Load its 1 row into the sheet?");
    EXPECT_EQ(sheet.rowCount(), 1);
}

TEST_F(ProgramPlace, RecoveredRowsAreOfferedForSavingAtTheEnd) {
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    program.load();
    answers.yes = true;
    program.offerUnendedRun();
    answers.asked.clear();
    answers.yes = false;
    EXPECT_EQ(names(), "Orvtemp.tmp Orvtemp.tmp.lock log.ohp orvhost.lock");
    EXPECT_TRUE(quit());
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(names(), "Orvtemp.tmp log.ohp orvhost.lock") << "what was not wanted is not offered again";
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")), header + oneRow) << "but it is there";
}

TEST_F(ProgramPlace, ARunOfAnInstrumentFollowsOnRecoveredRows) {
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    program.load();
    answers.yes = true;
    program.offerUnendedRun();
    connectAndRead();
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\t11\t22\t33\t44\r\n");
    EXPECT_EQ(state.plc, 2);
    EXPECT_EQ(sheet.cell(1, 0), QStringLiteral("2"));
    EXPECT_EQ(sheet.header().value(6), QStringLiteral("Ref"));
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("\r\n2\t11/21/26\t1:00:00\t11\t\t22\t\t33\t44\r\n"));
    EXPECT_EQ(folder.files().filter(QStringLiteral("Orvtemp-2026")).size(), 1);
}

TEST_F(ProgramPlace, AnotherInstrumentHasRecoveredRowsSavedAside) {
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    program.load();
    answers.yes = true;
    program.offerUnendedRun();
    connectAndRead("F310\r");
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_FALSE(QFile::exists(folder.path("Orvtemp.tmp.lock")));
    EXPECT_EQ(folder.files().filter(QStringLiteral("Untitled-2026")).size(), 1);
}

TEST_F(ProgramPlace, TheSecondProgramSaysSoAndWritesFilesOfItsOwn) {
    FolderPlace first;
    first.take();
    fill(folder.path("log.ohp"), "the first one's");
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    program.load();
    program.offerUnendedRun();
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_EQ(theMessage().title.toStdString(), "ORV Host Program");
    EXPECT_EQ(
        theMessage().text.toStdString(),
        QStringLiteral("Another ORV Host Program uses this folder (process %1): %2\n\nIts log and record file are "
                       "left alone. This program writes log-2.ohp and Orvtemp-2.tmp instead.")
            .arg(QCoreApplication::applicationPid())
            .arg(QDir::currentPath())
            .toStdString());
    runWithRows(1);
    receive("11/21/26\t2700\t1\r\n");
    QByteArray written = contentsOf(folder.path("Orvtemp-2.tmp"));
    EXPECT_EQ(written.replace("9:30:16 AM", "9:30:15 AM"), header + "1\t11/21/26\t1:00:00\t1\t\t20\t\t30\t40\r\n")
        << "its first line has the plain name too";
    EXPECT_TRUE(contentsOf(folder.path("log-2.ohp")).contains("11/21/26\t2700\t1\t20\t30\t40\r\n"));
    program.closePort();
    EXPECT_EQ(status.notice.value().toStdString(), "1 line could not be read; it is in log-2.ohp");
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), QByteArray("the first one's"));
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")), header + oneRow);
    EXPECT_EQ(names(), "Orvtemp-2.tmp Orvtemp-2.tmp.lock Orvtemp.tmp Orvtemp.tmp.lock log-2.ohp log.ohp orvhost-2.lock "
                       "orvhost.lock")
        << "its row is not saved yet";
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ProgramPlace, ARunThatDiedInTheSecondPlaceIsOfferedByTheOnlyProgram) {
    leaveRun("Orvtemp-2.tmp", "Orvtemp-2.tmp.lock");
    fill(folder.path("orvhost-2.lock"), QByteArray());
    program.load();
    answers.yes = true;
    program.offerUnendedRun();
    EXPECT_EQ(sheet.rowCount(), 1);
    EXPECT_EQ(names(), "Orvtemp.tmp Orvtemp.tmp.lock log.ohp orvhost.lock");
}

#ifdef Q_OS_UNIX
TEST_F(ProgramPlace, AProgramStartedOnAFullDiskSaysSoAndWritesNoFiles) {
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    {
        const FileSizeLimit full(0);
        program.load();
        program.offerUnendedRun();
        EXPECT_TRUE(answers.asked.isEmpty());
        EXPECT_TRUE(theMessage().text.contains(QDir::currentPath()));
        EXPECT_TRUE(theMessage().text.endsWith(
            QStringLiteral("Make room on the disk, or choose another folder, and start the program again.")));
        runWithRows(2);
    }
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_TRUE(messages.shown[1].text.contains(QStringLiteral("no lock file can be made in this folder")));
    EXPECT_EQ(names(), "Orvtemp.tmp Orvtemp.tmp.lock");
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")), header + oneRow);
}

TEST_F(ProgramPlace, ARunIsRecordedOnceThereIsRoomForAProgramStartedOnAFullDisk) {
    leaveRun("Orvtemp.tmp", "Orvtemp.tmp.lock");
    {
        const FileSizeLimit full(0);
        program.load();
    }
    runWithRows(1);
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("\r\n1\t11/21/26\t1:00:00\t1\t\t20\t\t30\t40\r\n"));
    EXPECT_TRUE(QFile::exists(folder.path("log.ohp")));
    const QStringList kept = folder.files().filter(QStringLiteral("Orvtemp-2026"));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contentsOf(folder.path(qPrintable(kept[0]))), header + oneRow);
}
#endif

TEST_F(ProgramPlace, AProgramWithoutAPlaceWorksWithoutFiles) {
    std::vector<std::unique_ptr<FolderPlace>> others;
    for (int number = 1; number <= FolderPlace::mostPlaces; ++number) {
        others.push_back(std::make_unique<FolderPlace>());
        others.back()->take();
    }
    const QStringList before = folder.files();
    program.load();
    program.offerUnendedRun();
    EXPECT_TRUE(theMessage().text.endsWith(QStringLiteral("This program works without such files. Start it in "
                                                          "another folder, so that log and record file are kept.")));
    runWithRows(2);
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_TRUE(messages.shown[1].text.contains(QStringLiteral("other programs use this folder")));
    EXPECT_EQ(folder.files(), before);
}

} // namespace

namespace {

TEST_F(ProgramTest, NothingIsSavedOverTheFilesThatTheProgramWrites) {
    program.load();
    runWithRows(3);
    ASSERT_TRUE(QFile::link(folder.path("Orvtemp.tmp"), folder.path("link.txt")));
    for (const char* name : {"Orvtemp.tmp", "log.ohp", "Orvtemp.tmp.lock", "link.txt"}) {
        messages.shown.clear();
        answers.fileName = folder.path(name);
        const QByteArray before = contentsOf(folder.path("Orvtemp.tmp"));
        program.saveAs();
        EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")), before) << name;
        EXPECT_TRUE(sheetState.unsaved.value()) << name;
        ASSERT_EQ(messages.shown.size(), 1U) << name;
        EXPECT_TRUE(messages.shown[0].text.endsWith(QStringLiteral("Save again under another name.")));
    }
    const QByteArray before = contentsOf(folder.path("Orvtemp.tmp"));
    receive("11/21/26\t2700\t4\t20\t30\t40\r\n");
    const QByteArray after = contentsOf(folder.path("Orvtemp.tmp"));
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_EQ(after.count("\r\n"), before.count("\r\n") + 1) << "the run's record goes on";
    messages.shown.clear();
    answers.fileName = folder.path("mine.txt");
    program.saveAs();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(sheetState.unsaved.value());
}

} // namespace

namespace {

TEST(PageState, EachCaptionNamesItsPage) {
    const std::pair<const char*, Page> captions[] = {
        {"Status and Controls", Page::Status},
        {"Output: Spread Sheet", Page::Sheet},
        {"Output: Graphical", Page::Graphical},
        {"Debug Screen", Page::Debug},
        {"Testing", Page::Testing},
        {"Calibration", Page::Calibration},
    };
    for (const auto& [caption, page] : captions) {
        EXPECT_EQ(pageOfCaption(QString::fromLatin1(caption)), page) << caption;
    }
}

TEST(PageState, AnyOtherTextNamesNoPage) {
    for (const char* caption : {"", "Status", "status and controls", "Status and Controls ", "Output: Spread  Sheet",
                                "Output: &Graphical", "Debug", "Form Loading"}) {
        EXPECT_EQ(pageOfCaption(QString::fromLatin1(caption)), Page::None) << caption;
    }
}

TEST(PageState, TheStripsHaveTheirTabsInOrder) {
    EXPECT_EQ(upperCaptions().join(u'|').toStdString(), "Status and Controls|Output: Spread Sheet|Output: Graphical");
    EXPECT_EQ(lowerCaptions().join(u'|').toStdString(), "Debug Screen|Testing|Calibration");
}

TEST(PageState, StartsOnTheStatusPageWithoutServiceMode) {
    const PageState shown;
    EXPECT_EQ(shown.shown.value(), Page::Status);
    EXPECT_EQ(pageOfCaption(shown.upperCaption), Page::Status);
    EXPECT_FALSE(shown.serviceMode);
}

} // namespace

} // namespace orv
