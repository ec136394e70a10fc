// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/recordfiletest.h"
#include "testing/sheettest.h"

#include <tuple>

namespace orv {
namespace {

TEST_F(RecordFileTest, AnEarlierRunIsKeptUnderADatedNameIfARowOfItWasNotSaved) {
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
        perform(steps, run);
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
        const char* steps;
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
        perform(each.steps, run, 1000);
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

} // namespace
} // namespace orv
