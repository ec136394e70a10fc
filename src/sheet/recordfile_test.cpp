// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "testing/recordfiletest.h"
#include "testing/sheettest.h"

#ifdef Q_OS_LINUX
namespace {
int diskSyncs = 0;
} // namespace

/// Takes the place of the system's, to count the calls.
extern "C" int fdatasync(int /*fileDescriptor*/) {
    ++diskSyncs;
    return 0;
}
#endif

namespace orv {
namespace {

TEST_F(RecordFileTest, BeginsWithTheHeaderOfTheFirmware) {
    const std::pair<double, QByteArray> cases[] = {
        {512.0, newerHeader}, {500.0, newerHeader}, {499.0, olderHeader}, {0.0, olderHeader}};
    for (const auto& [firmware, header] : cases) {
        EXPECT_EQ(file.start(trx(firmware)), QString());
        EXPECT_TRUE(file.isOpen());
        EXPECT_EQ(contents(), header) << "whole while the file is still open";
    }
    EXPECT_EQ(filesBesideTheLock(), 1);
}

TEST_F(RecordFileTest, FirstLineTellsDateAndTimeOfTheStart) {
    clock.advance(qint64{1000} * (5 * 3600 + 37 * 60 + 5));
    file.start(trx(412.0));
    clock.advance(60000);
    addRow();
    file.close();
    EXPECT_TRUE(contents().startsWith("Orvtemp.tmp\t11/21/26\t3:07:20 PM\r\n")) << contents().toStdString();
}

TEST_F(RecordFileTest, EachRowIsInTheFileAtOnce) {
    runWithARow();
    EXPECT_EQ(contents(), newerHeader + row);
    addRow();
    EXPECT_EQ(contents(), newerHeader + row + row);
    file.close();
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(contents(), newerHeader + row + row);
}

TEST_F(RecordFileTest, WithoutAnOpenFileARowGoesNowhere) {
    EXPECT_EQ(file.append(QStringLiteral("1")), QString());
    file.close();
    file.start(trx(500.0));
    file.close();
    EXPECT_EQ(file.append(QStringLiteral("1")), QString());
    EXPECT_EQ(contents(), newerHeader);
}

TEST_F(RecordFileTest, FolderThatDoesNotExistIsTold) {
    RecordFile lost(clock, path("nowhere/Orvtemp.tmp"));
    EXPECT_NE(lost.start(trx(500.0)), QString());
    EXPECT_FALSE(lost.isOpen());
    EXPECT_EQ(lost.append(QStringLiteral("1")), QString());
    lost.close();
}

#ifdef Q_OS_UNIX
TEST_F(RecordFileTest, FolderThatIsNotWritableIsTold) {
    const UnwritableFolder unwritable(folder.path());
    EXPECT_NE(file.start(trx(500.0)), QString());
    EXPECT_FALSE(file.isOpen());
}

TEST_F(RecordFileTest, UnsavedRowsThatCannotBeKeptAreNotDestroyed) {
    runWithARow();
    file.close();
    {
        allowEveryone(path("Orvtemp.tmp"));
        const UnwritableFolder unwritable(folder.path());
        const QString reason = file.start(trx(500.0));
        EXPECT_TRUE(reason.startsWith(QLatin1String("the rows of the run before could not be kept")))
            << qPrintable(reason);
        EXPECT_FALSE(file.isOpen());
    }
    EXPECT_EQ(contents(), newerHeader + row);
}

TEST_F(RecordFileTest, ARunWithoutARecordFileLeavesTheLockOfTheOneBefore) {
    leaveUnended();
    file.unendedRecovered();
    {
        const UnwritableFolder unwritable(folder.path());
        EXPECT_NE(file.start(trx(412.0)), QString());
        file.close();
    }
    EXPECT_TRUE(file.isUnended());
    EXPECT_EQ(file.unendedType(), trx(512.0));
    EXPECT_EQ(contents(), newerHeader + row);
}

TEST_F(RecordFileTest, AnUnendedRunThatCannotBeKeptStaysWithItsLock) {
    leaveUnended();
    {
        const UnwritableFolder unwritable(folder.path());
        QString keptAs;
        EXPECT_NE(file.keepUnended(keptAs), QString());
    }
    EXPECT_TRUE(file.isUnended());
    EXPECT_EQ(contents(), newerHeader + row);
}

TEST_F(RecordFileTest, FullDiskAtTheHeaderIsTold) {
    const FileSizeLimit limit(50);
    EXPECT_NE(file.start(trx(500.0)), QString());
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(contents(), QByteArray());
}

TEST_F(RecordFileTest, FullDiskLeavesTheLastWholeRow) {
    runWithARow();
    {
        const FileSizeLimit limit(static_cast<rlim_t>(newerHeader.size() + row.size() + 5));
        EXPECT_NE(file.append(QStringLiteral("2\t1/5/99\t9:05:08\t513")), QString());
        EXPECT_EQ(contents(), newerHeader + row);
        EXPECT_NE(file.append(QStringLiteral("3\t1/5/99\t9:05:09\t514")), QString());
        EXPECT_EQ(contents(), newerHeader + row);
    }
    EXPECT_EQ(file.append(QStringLiteral("4\t1/5/99\t9:05:10\t515")), QString());
    EXPECT_EQ(contents(), newerHeader + row + "4\t1/5/99\t9:05:10\t515\r\n");
}
#endif

#ifdef Q_OS_LINUX
TEST_F(RecordFileTest, RowsReachTheDiskWithTheFirstThatComesHalfASecondLater) {
    file.start(trx(500.0));
    diskSyncs = 0;
    file.syncWhenDue();
    clock.advance(10000);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 0) << "no row waits";
    addRow();
    EXPECT_EQ(file.syncWhenDue(), 900);
    clock.advance(499);
    addRow();
    EXPECT_EQ(file.syncWhenDue(), 401);
    clock.advance(1);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 0) << "the next row may be about to come";
    addRow();
    EXPECT_EQ(file.syncWhenDue(), std::nullopt);
    EXPECT_EQ(diskSyncs, 1);
    clock.advance(10000);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 1) << "nothing new waits";
}

TEST_F(RecordFileTest, ARowWithoutFollowersReachesTheDiskWithinASecond) {
    file.start(trx(500.0));
    diskSyncs = 0;
    addRow();
    EXPECT_EQ(file.syncWhenDue(), 900);
    clock.advance(899);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 0);
    clock.advance(1);
    EXPECT_EQ(file.syncWhenDue(), std::nullopt);
    EXPECT_EQ(diskSyncs, 1);
}

TEST_F(RecordFileTest, ClosingBringsWaitingRowsToTheDiskAndOnlyThen) {
    runWithARow();
    diskSyncs = 0;
    file.close();
    EXPECT_EQ(diskSyncs, 1);
    clock.advance(10000);
    file.syncWhenDue();
    file.close();
    EXPECT_EQ(diskSyncs, 1);
}
#endif

} // namespace
} // namespace orv
