// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "testing/sheettest.h"

#include <tuple>

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

class RunLockTest : public testing::Test {
protected:
    QString path(const char* name) const { return folder.path(name); }

    OwnFolder folder;
    const RunLock lock{folder.path("Orvtemp.tmp")};
};

TEST_F(RunLockTest, TellsTheTypeThatWasPut) {
    EXPECT_FALSE(lock.stands());
    EXPECT_EQ(lock.type(), DataSheet::Type());
    const std::pair<DataSheet::Type, const char*> cases[] = {
        {{.letter = QStringLiteral("V"), .firmware = 512.0}, "V\t512\r\n"},
        {{.letter = QStringLiteral("v"), .firmware = 412.5}, "v\t412.5\r\n"},
        {{.letter = QStringLiteral("F"), .firmware = 310.0}, "F\t310\r\n"},
        {{.letter = QStringLiteral("f"), .firmware = 0.0}, "f\t0\r\n"},
    };
    for (const auto& [type, bytes] : cases) {
        lock.put(type);
        EXPECT_TRUE(lock.stands());
        EXPECT_EQ(contentsOf(path("Orvtemp.tmp.lock")), QByteArray(bytes));
        EXPECT_EQ(lock.type(), type) << bytes;
    }
    lock.remove();
    EXPECT_FALSE(lock.stands());
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(RunLockTest, ALockThatCannotBeReadStandsWithoutAType) {
    for (const QByteArray& found : {QByteArray(), QByteArray(7, '\0'), QByteArray("V"), QByteArray("V\t5"),
                                    QByteArray("V\t512"), QByteArray("X\t512\r\n"), QByteArray("V\tabc\r\n"),
                                    QByteArray("V\t512\t7\t8\r\n"), QByteArray("\t\r\n"), QByteArray(100'000, 'V')}) {
        fill(path("Orvtemp.tmp.lock"), found);
        EXPECT_TRUE(lock.stands());
        EXPECT_EQ(lock.type(), DataSheet::Type()) << found.first(std::min<qsizetype>(found.size(), 20)).toStdString();
    }
}

TEST_F(RunLockTest, TellsTheEarlierFileThatWasPut) {
    const DataSheet::Type type{.letter = QStringLiteral("F"), .firmware = 310.0};
    EXPECT_EQ(lock.earlierFile(), QString());
    lock.put(type, QStringLiteral("Orvtemp-20261121-093015.tmp"));
    EXPECT_EQ(contentsOf(path("Orvtemp.tmp.lock")), QByteArray("F\t310\tOrvtemp-20261121-093015.tmp\r\n"));
    EXPECT_EQ(lock.type(), type);
    EXPECT_EQ(lock.earlierFile(), QStringLiteral("Orvtemp-20261121-093015.tmp"));
    lock.put({}, QStringLiteral("Orvtemp-20261121-093015.tmp"));
    EXPECT_EQ(lock.type(), DataSheet::Type());
    EXPECT_EQ(lock.earlierFile(), QStringLiteral("Orvtemp-20261121-093015.tmp")) << "of no known type";
    lock.put(type);
    EXPECT_EQ(lock.earlierFile(), QString());
}

TEST_F(RunLockTest, CanBeCopiedFromAnotherFile) {
    const RunLock other(path("Orvtemp-2.tmp"));
    other.put({.letter = QStringLiteral("F"), .firmware = 310.0});
    EXPECT_TRUE(lock.copyFrom(other));
    EXPECT_TRUE(other.stands());
    EXPECT_EQ(lock.type(), (DataSheet::Type{.letter = QStringLiteral("F"), .firmware = 310.0}));
    other.remove();
    EXPECT_FALSE(lock.copyFrom(other));
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp.lock");
}

const QByteArray newerHeader("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\n"
                             "Device File\r\n"
                             "\r\r\r\n"
                             "Data point\t\r\n"
                             "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n");
const QByteArray olderHeader("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\n"
                             "Device File\r\n"
                             "\r\r\r\n"
                             "Data point\t\r\n"
                             "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n");

DataSheet::Type trx(double firmware) {
    return {.letter = QStringLiteral("V"), .firmware = firmware};
}

class RecordFileTest : public testing::Test {
protected:
    QString path(const char* name) const { return folder.path(name); }
    QByteArray contents() const { return contentsOf(path("Orvtemp.tmp")); }
    QByteArray kept() const { return contentsOf(path("Orvtemp-20261121-093015.tmp")); }
    qsizetype filesBesideTheLock() const {
        return folder.files().size() - (QFile::exists(path("Orvtemp.tmp.lock")) ? 1 : 0);
    }
    QByteArray lockText() const { return contentsOf(path("Orvtemp.tmp.lock")); }
    void addRow() { ASSERT_EQ(file.append(rowText), QString()); }
    void runWithARow(double firmware = 500.0) {
        EXPECT_EQ(file.start(trx(firmware)), QString());
        addRow();
    }
    void leaveUnended() const {
        fill(path("Orvtemp.tmp"), newerHeader + row);
        fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    }

    OwnFolder folder;
    TestClock clock;
    RecordFile file{clock, folder.path("Orvtemp.tmp")};
    const QString rowText = QStringLiteral("1\t1/5/99\t9:05:07\t512");
    const QByteArray row = rowText.toLatin1() + "\r\n";
    const QByteArray none{"(no such file)"};
};

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

TEST_F(RecordFileTest, AnEarlierRunIsKeptUnderADatedNameIfARowOfItWasNotSaved) {
    // steps: n, o: a run with newer or older firmware; r: a row; c: close; s, d: saved, discarded.
    const std::tuple<const char*, QByteArray, QByteArray> cases[] = {
        {"nrco", newerHeader + row, olderHeader},
        {"nrnr", newerHeader + row, newerHeader + row}, // the run before was not closed
        {"nco", none, olderHeader},                     // it had no rows
        {"nrcsdn", none, newerHeader},
        {"nrsrcn", newerHeader + row + row, newerHeader},  // a row after the save
        {"nrdrcsn", newerHeader + row + row, newerHeader}, // a row cleared unsaved before it
        {"nrdnrsn", newerHeader + row, newerHeader},       // the first run's file is kept, the second's is not
    };
    for (const auto& [steps, keptFile, file] : cases) {
        SCOPED_TRACE(steps);
        QFile::remove(path("Orvtemp.tmp"));
        QFile::remove(path("Orvtemp-20261121-093015.tmp"));
        RecordFile run(clock, path("Orvtemp.tmp"));
        for (const char* step = steps; *step != '\0'; ++step) {
            switch (*step) {
            case 'n':
            case 'o':
                EXPECT_EQ(run.start(trx(*step == 'n' ? 500.0 : 412.0)), QString());
                break;
            case 'r':
                EXPECT_EQ(run.append(rowText), QString());
                break;
            case 'c':
                run.close();
                break;
            case 's':
                run.rowsSaved();
                break;
            default:
                run.rowsDiscarded();
            }
        }
        EXPECT_EQ(kept(), keptFile);
        EXPECT_EQ(contents(), file);
        EXPECT_EQ(filesBesideTheLock(), keptFile == none ? 1 : 2);
    }
}

TEST_F(RecordFileTest, AFileThatIsFoundIsKeptIfItHoldsMoreThanAHeader) {
    std::vector<QByteArray> headers{olderHeader, olderHeader.first(40)};
    for (qsizetype length = 0; length <= newerHeader.size(); ++length) {
        headers.push_back(newerHeader.first(length));
    }
    for (const QByteArray& found : headers) {
        fill(path("Orvtemp.tmp"), found);
        EXPECT_EQ(RecordFile(clock, path("Orvtemp.tmp")).start(trx(500.0)), QString());
        EXPECT_EQ(filesBesideTheLock(), 1) << found.toStdString();
    }
    for (const QByteArray& found :
         {olderHeader + row, QByteArray("1\n2\n3\n4\n5\n6\n"), QByteArray("one line\r\n"), QByteArray("x"),
          QByteArray("Orvtemp.tmp\tmy notes\r\n"), QByteArray("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nMy file\r\n"),
          newerHeader + "\n", QByteArray(3, '\0'), QByteArray(100000, 'x')}) {
        QFile::remove(path("Orvtemp-20261121-093015.tmp"));
        fill(path("Orvtemp.tmp"), found);
        RecordFile fresh(clock, path("Orvtemp.tmp"));
        fresh.rowsSaved(); // none of its own
        EXPECT_EQ(fresh.start(trx(500.0)), QString());
        EXPECT_EQ(kept(), found);
        EXPECT_EQ(contents(), newerHeader);
    }
}

TEST_F(RecordFileTest, ALockStandsBesideItWhileItIsWritten) {
    EXPECT_FALSE(file.isUnended());
    file.start({.letter = QStringLiteral("F"), .firmware = 310.0});
    EXPECT_EQ(lockText(), QByteArray("F\t310\r\n"));
    EXPECT_FALSE(file.isUnended()) << "it is this program's run";
    addRow();
    file.rowsSaved();
    file.rowsDiscarded();
    EXPECT_NE(lockText(), none) << "a save during the run does not end it";
    file.start(trx(512.0));
    EXPECT_EQ(lockText(), QByteArray("V\t512\r\n"));
    file.close();
    EXPECT_EQ(lockText(), none);
}

TEST_F(RecordFileTest, TheLockOutlastsARunUntilItsRowsAreSavedOrDiscarded) {
    for (const bool save : {true, false}) {
        runWithARow(512.0);
        file.close();
        EXPECT_EQ(lockText(), QByteArray("V\t512\r\n"));
        EXPECT_FALSE(file.isUnended()) << "its rows are on this program's sheet";
        {
            const RecordFile later(clock, path("Orvtemp.tmp"));
            EXPECT_TRUE(later.isUnended());
        }
        save ? file.rowsSaved() : file.rowsDiscarded();
        EXPECT_EQ(lockText(), none);
        EXPECT_EQ(contents(), newerHeader + row);
    }
}

TEST_F(RecordFileTest, ARunWhoseRowsAreSavedLeavesNoLock) {
    runWithARow(512.0);
    file.rowsSaved();
    file.close();
    EXPECT_EQ(lockText(), none);
    runWithARow(512.0);
    file.rowsSaved();
    addRow();
    file.close();
    EXPECT_NE(lockText(), none) << "but one with rows behind the save does";
}

TEST_F(RecordFileTest, TheLockNamesTheFileOfUnsavedRowsOfTheRunBefore) {
    const QByteArray naming("V\t412\tOrvtemp-20261121-093015.tmp\r\n");
    runWithARow(512.0);
    file.start(trx(412.0));
    EXPECT_EQ(lockText(), naming);
    file.close();
    EXPECT_EQ(lockText(), naming) << "without a row of its own, too";
    file.start(trx(412.0));
    EXPECT_EQ(lockText(), naming) << "and in the run after that";
    file.rowsSaved();
    EXPECT_EQ(lockText(), QByteArray("V\t412\r\n"));
    file.close();
    EXPECT_EQ(lockText(), none);
    EXPECT_EQ(kept(), newerHeader + row);
}

TEST_F(RecordFileTest, AProgramThatStartsLaterKeepsOnlyRowsThatWereNotSaved) {
    const struct {
        const char* steps; ///< n: a run; r: a row; c: close; s, p, d: saved, saved in part, discarded.
        bool keeps;
    } cases[] = {
        {"nrcs", false},     {"nrs", false},   {"nrsc", false}, {"nrrcs", false},  {"nrsrcs", false},
        {"nrcss", false},    {"nrcsd", false}, {"nrc", true},   {"nrcd", true},    {"nrsr", true},
        {"nrsrc", true},     {"nrsrd", true},  {"nrdrs", true}, {"nrp", true},     {"nrsrp", true},
        {"nrps", true},      {"nc", false},    {"ncs", false},  {"nrcsnrc", true}, {"nrcnrcs", false},
        {"nrcsnrcs", false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.steps);
        for (const QString& name : folder.files()) {
            QFile::remove(name);
        }
        RecordFile run(clock, path("Orvtemp.tmp"));
        for (const char* step = each.steps; *step != '\0'; ++step) {
            switch (*step) {
            case 'n':
                clock.advance(1000);
                EXPECT_EQ(run.start(trx(500.0)), QString());
                break;
            case 'r':
                EXPECT_EQ(run.append(rowText), QString());
                break;
            case 'c':
                run.close();
                break;
            case 's':
                run.rowsSaved();
                break;
            case 'p':
                run.rowsSavedInPart();
                break;
            default:
                run.rowsDiscarded();
            }
        }
        run.close();
        const QByteArray before = contents();
        const qsizetype keptBefore = folder.files().filter(QStringLiteral("Orvtemp-")).size();
        clock.advance(1000);
        RecordFile later(clock, path("Orvtemp.tmp"));
        later.rowsSaved(); // none of its own
        EXPECT_EQ(later.start(trx(500.0)), QString());
        const QStringList kept = folder.files().filter(QStringLiteral("Orvtemp-"));
        ASSERT_EQ(kept.size(), keptBefore + (each.keeps ? 1 : 0));
        if (each.keeps) {
            EXPECT_EQ(contentsOf(kept.back()), before);
        }
        EXPECT_FALSE(QFile::exists(path("Orvtemp.tmp.saved"))) << "the new run has none";
    }
}

TEST_F(RecordFileTest, WhatIsSavedIsRememberedByTheFileAsItWas) {
    const QString mark = path("Orvtemp.tmp.saved");
    const auto keeps = [this](const QByteArray& record, const QByteArray& marked) {
        QFile::remove(path("Orvtemp-20261121-093015.tmp"));
        fill(path("Orvtemp.tmp"), record);
        fill(path("Orvtemp.tmp.saved"), marked);
        EXPECT_EQ(RecordFile(clock, path("Orvtemp.tmp")).start(trx(500.0)), QString());
        return kept() == record;
    };
    runWithARow();
    file.close();
    file.rowsSaved();
    const QByteArray size = QByteArray::number((newerHeader + row).size());
    const QByteArray whole = size + "\tOrvtemp.tmp\t11/21/26\t9:30:15 AM\r\n";
    EXPECT_EQ(contentsOf(mark), whole);
    EXPECT_FALSE(keeps(newerHeader + row, whole));
    for (qsizetype length = 0; length < whole.size(); ++length) {
        EXPECT_TRUE(keeps(newerHeader + row, whole.first(length))) << "died while it was written, " << length;
    }
    EXPECT_TRUE(keeps(newerHeader + row + row, whole)) << "a row more";
    QByteArray otherRun = newerHeader + row;
    otherRun.replace("9:30:15", "9:30:16");
    EXPECT_TRUE(keeps(otherRun, whole));
    EXPECT_TRUE(keeps(newerHeader + row, whole + "x"));
    EXPECT_TRUE(keeps(QByteArray(3, '\0'), "3\t" + QByteArray(3, '\0')));
}

TEST_F(RecordFileTest, ASaveThatDiedBeforeItWasRememberedKeepsTheRows) {
    runWithARow();
    file.close();
    file.rowsSaved();
    QFile::remove(path("Orvtemp.tmp.saved")); // as if the program had died in front of it
    RecordFile later(clock, path("Orvtemp.tmp"));
    EXPECT_EQ(later.start(trx(500.0)), QString());
    EXPECT_EQ(kept(), newerHeader + row);
}

TEST_F(RecordFileTest, ASaveThatDiedBeforeTheLockWentIsNotOffered) {
    runWithARow();
    file.rowsSaved(); // the run goes on, so the lock stands
    const RecordFile later(clock, path("Orvtemp.tmp"));
    EXPECT_TRUE(later.isUnended());
    EXPECT_TRUE(later.isSaved());
    addRow();
    EXPECT_FALSE(later.isSaved());
}

TEST_F(RecordFileTest, ANewRunForgetsWhatWasSavedBeforeItEmptiesTheFile) {
    runWithARow();
    file.close();
    file.rowsSaved();
    QFile::remove(path("Orvtemp.tmp"));
    QDir().mkdir(path("Orvtemp.tmp")); // which cannot be emptied
    EXPECT_NE(file.start(trx(500.0)), QString());
    EXPECT_FALSE(QFile::exists(path("Orvtemp.tmp.saved")));
}

TEST_F(RecordFileTest, ARunThatIsTakenOverIsNotTakenForTheSavedOneThatWasHere) {
    runWithARow();
    file.close();
    file.rowsSaved();
    RecordFile next(clock, path("Orvtemp.tmp"));
    fill(path("Orvtemp-2.tmp"), newerHeader + row); // the same second, the same size
    fill(path("Orvtemp-2.tmp.lock"), "V\t512\r\n");
    next.takeUnendedFrom(path("Orvtemp-2.tmp"));
    EXPECT_TRUE(next.isUnended());
    EXPECT_FALSE(next.isSaved());
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock");
    next.start(trx(500.0));
    EXPECT_EQ(kept(), newerHeader + row);
}

TEST_F(RecordFileTest, ASavedRunInAnotherPlaceIsNotTakenOver) {
    RecordFile second(clock, path("Orvtemp-2.tmp"));
    EXPECT_EQ(second.start(trx(512.0)), QString());
    EXPECT_EQ(second.append(rowText), QString());
    second.rowsSaved(); // and dies
    file.takeUnendedFrom(path("Orvtemp-2.tmp"));
    EXPECT_FALSE(file.isUnended());
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp-2.tmp|Orvtemp-2.tmp.saved");
}

TEST_F(RecordFileTest, RecoveredRowsKeepTheLockUntilTheyAreSavedOrDiscarded) {
    for (const bool save : {true, false}) {
        leaveUnended();
        file.rowsDiscarded();
        file.rowsSaved();
        EXPECT_TRUE(file.isUnended()) << "not recovered yet";
        file.unendedRecovered();
        EXPECT_TRUE(file.isUnended());
        save ? file.rowsSaved() : file.rowsDiscarded();
        EXPECT_FALSE(file.isUnended());
        EXPECT_EQ(contents(), newerHeader + row) << "the file stays";
    }
    file.start(trx(512.0));
    EXPECT_EQ(kept(), newerHeader + row) << "even saved: it may hold what could not be read";
}

TEST_F(RecordFileTest, ARunAfterARecoveryKeepsTheFileAndTheLockIsItsOwn) {
    leaveUnended();
    file.unendedRecovered();
    EXPECT_EQ(file.start(trx(412.0)), QString());
    EXPECT_EQ(kept(), newerHeader + row);
    addRow();
    file.rowsSaved();
    EXPECT_EQ(lockText(), QByteArray("V\t412\r\n")) << "this run goes on";
    file.close();
    EXPECT_EQ(lockText(), none);
}

TEST_F(RecordFileTest, AnUnendedRunIsKeptUnderADatedNameBeforeItsLockGoes) {
    leaveUnended();
    QString keptAs;
    EXPECT_EQ(file.keepUnended(keptAs), QString());
    EXPECT_EQ(keptAs, path("Orvtemp-20261121-093015.tmp"));
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp-20261121-093015.tmp");
    EXPECT_EQ(kept(), newerHeader + row);
}

TEST_F(RecordFileTest, TakesOverAnotherFileAndKeepsItsOwn) {
    for (const bool hasRows : {false, true}) {
        fill(path("Orvtemp.tmp"), hasRows ? olderHeader + row : olderHeader);
        fill(path("Orvtemp-2.tmp"), newerHeader + row + row);
        fill(path("Orvtemp-2.tmp.lock"), "V\t512\r\n");
        file.takeUnendedFrom(path("Orvtemp-2.tmp"));
        EXPECT_TRUE(file.isUnended());
        EXPECT_EQ(file.unendedType(), trx(512.0));
        EXPECT_EQ(contents(), newerHeader + row + row);
        EXPECT_EQ(folder.files().join(u'|').toStdString(),
                  hasRows ? "Orvtemp-20261121-093015.tmp|Orvtemp.tmp|Orvtemp.tmp.lock"
                          : "Orvtemp.tmp|Orvtemp.tmp.lock");
    }
    EXPECT_EQ(kept(), olderHeader + row);
}

TEST_F(RecordFileTest, TakingOverCanBeInterruptedAnywhere) {
    // The lock has been copied, the file not yet moved.
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    fill(path("Orvtemp-2.tmp"), newerHeader + row);
    fill(path("Orvtemp-2.tmp.lock"), "V\t512\r\n");
    EXPECT_FALSE(file.hasUnendedRun());
    file.takeUnendedFrom(path("Orvtemp-2.tmp"));
    EXPECT_TRUE(file.hasUnendedRun());
    EXPECT_EQ(contents(), newerHeader + row);
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock");

    // The file has been moved, the other lock not yet removed.
    file.dropUnended();
    fill(path("Orvtemp-2.tmp.lock"), "V\t512\r\n");
    file.takeUnendedFrom(path("Orvtemp-2.tmp"));
    EXPECT_EQ(contents(), newerHeader + row);
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp");
}

TEST_F(RecordFileTest, AFileThatIsAnotherProgramsIsNotTouched) {
    fill(path("Orvtemp.tmp"), olderHeader);
    fill(path("Orvtemp.tmp.lock"), "V\t412\r\n");
    FolderPlace place;
    RecordFile claimed(clock, path("Orvtemp.tmp"), &place);
    auto other = std::make_unique<FolderPlace>();
    other->take();
    EXPECT_TRUE(claimed.start(trx(500.0)).startsWith(QStringLiteral("another program may use it (process ")));
    EXPECT_FALSE(claimed.isOpen());
    EXPECT_EQ(claimed.append(QStringLiteral("1")), QString());
    claimed.close();
    EXPECT_EQ(contents(), olderHeader);
    EXPECT_EQ(lockText(), QByteArray("V\t412\r\n"));
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock|orvhost.lock");
    other.reset();
    EXPECT_EQ(claimed.start(trx(500.0)), QString());
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
TEST_F(RecordFileTest, RowsReachTheDiskHalfASecondAfterTheFirstThatWaits) {
    file.start(trx(500.0));
    diskSyncs = 0;
    file.syncWhenDue();
    clock.advance(10000);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 0) << "no row waits";
    addRow();
    clock.advance(499);
    addRow();
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 0);
    clock.advance(1);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 1);
    clock.advance(10000);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 1) << "nothing new waits";
    addRow();
    clock.advance(500);
    file.syncWhenDue();
    EXPECT_EQ(diskSyncs, 2);
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
