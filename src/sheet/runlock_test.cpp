// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runlock.h"

#include "sheet/datasheet.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

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
    for (const QByteArray& found :
         {QByteArray(), QByteArray(7, '\0'), QByteArray("V"), QByteArray("V\t5"), QByteArray("V\t512"),
          QByteArray("X\t512\r\n"), QByteArray("V\tabc\r\n"), QByteArray("V\tinf\r\n"), QByteArray("V\tnan\r\n"),
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
    for (const char* elsewhere : {".", "..", "a/", "../a.tmp", "/a.tmp", ":a.tmp"}) {
        lock.put(type, QString::fromLatin1(elsewhere));
        EXPECT_EQ(lock.earlierFile(), QString()) << elsewhere;
    }
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

} // namespace
} // namespace orv
