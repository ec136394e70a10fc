// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/folderplace.h"

#include "testing/sheettest.h"

#include <QCoreApplication>

namespace orv {
namespace {

struct TakenPlace : FolderPlace {
    TakenPlace() { take(); }
};

/// The tests stand in a folder of their own, where places are taken.
class FolderPlaceTest : public testing::Test {
protected:
    QString path(const char* name) const { return folder.path(name); }
    std::string files() const { return folder.files().join(u'|').toStdString(); }

    /// The lock file of a place as this living program writes it.
    QByteArray lockOfThisProgram() const {
        TakenPlace place;
        return contentsOf(path("orvhost.lock"));
    }

    void expectFree(const QByteArray& foundLock) {
        fill(path("orvhost.lock"), foundLock);
        TakenPlace place;
        EXPECT_EQ(place.number(), 1) << foundLock.toStdString();
        EXPECT_EQ(place.otherProgram(), QString());
        EXPECT_EQ(files(), "orvhost.lock");
    }

    OwnFolder folder;
};

TEST_F(FolderPlaceTest, NamesOfTheFirstPlaceArePlain) {
    EXPECT_EQ(FolderPlace::nameIn(1, QStringLiteral("log.ohp")), QStringLiteral("log.ohp"));
    EXPECT_EQ(FolderPlace::nameIn(2, QStringLiteral("log.ohp")), QStringLiteral("log-2.ohp"));
    EXPECT_EQ(FolderPlace::nameIn(9, QStringLiteral("Orvtemp.tmp")), QStringLiteral("Orvtemp-9.tmp"));
}

TEST_F(FolderPlaceTest, IsHeldForLifeAndLeavesNothing) {
    {
        TakenPlace place;
        EXPECT_EQ(place.number(), 1);
        EXPECT_EQ(place.otherProgram(), QString());
        EXPECT_EQ(files(), "orvhost.lock");
    }
    EXPECT_EQ(files(), "");
}

TEST_F(FolderPlaceTest, TheNextProgramHasTheNextPlaceAndKnowsWhoHasTheFirst) {
    TakenPlace first;
    TakenPlace second;
    TakenPlace third;
    EXPECT_EQ(second.number(), 2);
    EXPECT_EQ(third.number(), 3);
    const QString process = QStringLiteral("process %1").arg(QCoreApplication::applicationPid());
    EXPECT_EQ(second.otherProgram(), process);
    EXPECT_EQ(third.otherProgram(), process);
    EXPECT_EQ(files(), "orvhost-2.lock|orvhost-3.lock|orvhost.lock");
    EXPECT_EQ(first.number(), 1) << "trying has not disturbed it";
    EXPECT_FALSE(FolderPlace::hold(1));
    EXPECT_TRUE(FolderPlace::hold(4));
}

TEST_F(FolderPlaceTest, APlaceThatBecameFreeIsTakenAgain) {
    auto first = std::make_unique<TakenPlace>();
    TakenPlace second;
    first.reset();
    TakenPlace third;
    EXPECT_EQ(third.number(), 1);
}

TEST_F(FolderPlaceTest, TheTenthProgramHasNone) {
    std::vector<std::unique_ptr<TakenPlace>> places;
    for (int number = 1; number <= FolderPlace::mostPlaces; ++number) {
        places.push_back(std::make_unique<TakenPlace>());
        EXPECT_EQ(places.back()->number(), number);
    }
    TakenPlace tenth;
    EXPECT_EQ(tenth.number(), 0);
    EXPECT_FALSE(tenth.cannotLock());
    EXPECT_EQ(tenth.claim(), QStringLiteral("other programs use this folder"));
    EXPECT_NE(tenth.otherProgram(), QString());
}

TEST_F(FolderPlaceTest, ALockThatNobodyHoldsIsFreeWhateverItSays) {
    const QByteArray lock = lockOfThisProgram();
    QByteArrayList lines = lock.split('\n');
    ASSERT_EQ(lines.at(0), QByteArray::number(QCoreApplication::applicationPid()));
    ASSERT_GE(lines.size(), 5);
    const auto with = [&lines](int line, const char* text) {
        QByteArrayList changed = lines;
        changed[line] = text;
        return changed.join('\n');
    };
    expectFree(lock);                                            // a dead program's process id, given to this one
    expectFree(with(0, "4194305"));                              // of no process: beyond the most that Linux gives
    expectFree(with(4, "00000000-0000-0000-0000-000000000000")); // another boot
    expectFree(with(2, "oldname"));                              // the computer was renamed
    lines[2] = "oldname";
    expectFree(with(3, "0123456789abcdef0123456789abcdef")); // the disk came from another computer
    expectFree(QByteArray());                                // a power failure left it empty
    expectFree(QByteArray(64, '\0'));
}

TEST_F(FolderPlaceTest, AProgramOnThisComputerIsNamedWithoutItHoweverItIsCalled) {
    TakenPlace first;
    QByteArrayList lines = contentsOf(path("orvhost.lock")).split('\n');
    for (const QByteArray& name : {lines.at(2), lines.at(2).toUpper(), QByteArray("oldname"), QByteArray()}) {
        lines[2] = name;
        fill(path("orvhost.lock"), lines.join('\n')); // the file is locked as before
        TakenPlace second;
        EXPECT_EQ(second.otherProgram(), QStringLiteral("process %1").arg(QCoreApplication::applicationPid()))
            << name.constData();
    }
}

TEST_F(FolderPlaceTest, AProgramOnAnotherComputerIsNamedWithIt) {
    TakenPlace first;
    QByteArrayList lines = contentsOf(path("orvhost.lock")).split('\n');
    lines[2] = "labpc7";
    lines[3] = "0123456789abcdef0123456789abcdef";
    fill(path("orvhost.lock"), lines.join('\n')); // the file is locked as before
    TakenPlace second;
    EXPECT_EQ(second.number(), 2);
    EXPECT_EQ(second.otherProgram(),
              QStringLiteral("process %1 on the computer labpc7").arg(QCoreApplication::applicationPid()));
}

#ifdef Q_OS_UNIX
TEST_F(FolderPlaceTest, WhereNothingCanBeWrittenNoLockIsNeeded) {
    const UnwritableFolder unwritable(folder.path());
    TakenPlace place;
    EXPECT_EQ(place.number(), 1);
    EXPECT_EQ(place.otherProgram(), QString());
    EXPECT_EQ(files(), "");
}

TEST_F(FolderPlaceTest, ALockThatStaysInAFolderMadeUnwritableIsNoOtherProgram) {
    fill(path("orvhost.lock"), lockOfThisProgram());
    const UnwritableFolder unwritable(folder.path());
    TakenPlace place;
    EXPECT_EQ(place.otherProgram(), QString());
    EXPECT_NE(place.number(), 0);
}

TEST_F(FolderPlaceTest, OnAFullDiskThereIsNoPlace) {
    FolderPlace early;
    {
        const FileSizeLimit full(0);
        early.take();
    }
    EXPECT_EQ(early.number(), 0);
    EXPECT_TRUE(early.cannotLock());
    EXPECT_EQ(files(), "");
    TakenPlace later; // there is room again
    EXPECT_EQ(later.number(), 1);
    EXPECT_NE(early.claim(), QString()) << "not in the middle of another one's work";
    FolderPlace third;
    {
        const FileSizeLimit full(0);
        third.take();
    }
    EXPECT_EQ(third.number(), 0) << "the first place is taken, the second cannot be";
    EXPECT_TRUE(third.cannotLock());
    EXPECT_EQ(third.otherProgram(), QString());
}

TEST_F(FolderPlaceTest, APlaceHadWithoutALockIsClaimedBeforeItsFilesAreWritten) {
    FolderPlace early;
    {
        const UnwritableFolder unwritable(folder.path());
        early.take();
        EXPECT_EQ(early.claim(), QStringLiteral("no lock file can be made beside it"));
    }
    {
        TakenPlace later; // the folder has been made writable
        EXPECT_EQ(later.number(), 1);
        EXPECT_EQ(later.claim(), QString());
        EXPECT_EQ(early.claim(),
                  QStringLiteral("another program may use it (process %1)").arg(QCoreApplication::applicationPid()));
    }
    EXPECT_EQ(early.claim(), QString());
    EXPECT_FALSE(FolderPlace::hold(1)) << "locked from now on";
}
#endif

} // namespace
} // namespace orv
