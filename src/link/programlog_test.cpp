// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/programlog.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orv {
namespace {

class ProgramLogTest : public testing::Test {
protected:
    QByteArray content() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not readable)");
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("log.ohp"));
};

TEST_F(ProgramLogTest, isCreatedEmpty) {
    ProgramLog log;
    EXPECT_EQ(log.open(path), QString());
    EXPECT_EQ(content(), QByteArray());
}

TEST_F(ProgramLogTest, isEmptiedAtEveryStart) {
    {
        ProgramLog log;
        ASSERT_EQ(log.open(path), QString());
        ASSERT_EQ(log.write("from before"), QString());
    }
    ASSERT_EQ(content(), "from before\r\n");
    ProgramLog log;
    ASSERT_EQ(log.open(path), QString());
    EXPECT_EQ(content(), QByteArray());
}

TEST_F(ProgramLogTest, holdsEachBlockAtOnceFollowedByCarriageReturnAndLineFeed) {
    ProgramLog log;
    ASSERT_EQ(log.open(path), QString());
    EXPECT_EQ(log.write("V512\r"), QString());
    EXPECT_EQ(content(), "V512\r\r\n");
    EXPECT_EQ(log.write(QByteArray("a\nb\0\xfe", 5)), QString());
    EXPECT_EQ(content(), QByteArray("V512\r\r\na\nb\0\xfe\r\n", 14));
}

TEST_F(ProgramLogTest, saysWhyItCannotBeOpened) {
    ProgramLog log;
    EXPECT_NE(log.open(folder.filePath(QStringLiteral("missing/log.ohp"))), QString());
    EXPECT_NE(log.open(folder.path()), QString());
}

TEST_F(ProgramLogTest, ignoresBlocksWhileItIsNotOpen) {
    ProgramLog log;
    EXPECT_EQ(log.write("abc"), QString());
    ASSERT_NE(log.open(folder.filePath(QStringLiteral("missing/log.ohp"))), QString());
    EXPECT_EQ(log.write("abc"), QString());
}

TEST_F(ProgramLogTest, tellsAFailureToWriteOnce) {
    const QString full = QStringLiteral("/dev/full");
    if (!QFile::exists(full)) {
        GTEST_SKIP() << "no device that is always full";
    }
    ProgramLog log;
    ASSERT_EQ(log.open(full), QString());
    EXPECT_NE(log.write("abc"), QString());
    EXPECT_EQ(log.write("abc"), QString());
}

} // namespace
} // namespace orv
