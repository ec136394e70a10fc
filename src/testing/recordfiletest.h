// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/recordfile.h"
#include "testing/fakes.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

namespace orv {

inline const QByteArray newerHeader("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\n"
                                    "Device File\r\n"
                                    "\r\r\r\n"
                                    "Data point\t\r\n"
                                    "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n");
inline const QByteArray olderHeader("Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\n"
                                    "Device File\r\n"
                                    "\r\r\r\n"
                                    "Data point\t\r\n"
                                    "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n");

inline DataSheet::Type trx(double firmware) {
    return {.letter = QStringLiteral("V"), .firmware = firmware};
}

/// A record file that the test writes by itself.
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
    /// What happens to a record file, a letter each: n, o: a run with newer or older firmware; r: a row; c: close;
    /// s, p, d: saved, saved in part, discarded. Each run begins so many milliseconds after what was before.
    void perform(const char* steps, RecordFile& run, qint64 milliseconds = 0) {
        for (; *steps != '\0'; ++steps) {
            switch (*steps) {
            case 'n':
            case 'o':
                clock.advance(milliseconds);
                EXPECT_EQ(run.start(trx(*steps == 'n' ? 500.0 : 412.0)), QString());
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

} // namespace orv
