// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/fileappend.h"

#include "sheet/sheettest.h"

namespace orv {

namespace {

class AppendWholeTest : public testing::Test {
protected:
    AppendWholeTest() { EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)); }

    QTemporaryDir folder;
    QFile file{folder.filePath(QStringLiteral("rows.txt"))};
};

TEST_F(AppendWholeTest, EveryAppendReachesTheSystemAtOnce) {
    EXPECT_EQ(appendWhole(file, "one\r\n"), QString());
    EXPECT_EQ(contentsOf(file.fileName()), QByteArray("one\r\n"));
    EXPECT_EQ(appendWhole(file, QByteArray()), QString());
    EXPECT_EQ(appendWhole(file, QByteArray("t\0o\r\n", 5)), QString());
    EXPECT_EQ(contentsOf(file.fileName()), QByteArray("one\r\nt\0o\r\n", 10));
}

TEST_F(AppendWholeTest, ClosedFileFailsWithAReason) {
    file.close();
    EXPECT_FALSE(appendWhole(file, "one").isEmpty());
    EXPECT_EQ(contentsOf(file.fileName()), QByteArray());
}

#ifdef Q_OS_UNIX
TEST_F(AppendWholeTest, FullDiskLeavesTheFileAsItWasAndTheNextAppendGoesOnThere) {
    ASSERT_EQ(appendWhole(file, "one\r\n"), QString());
    for (const rlim_t space : {rlim_t{5}, rlim_t{7}, rlim_t{9}}) {
        const FileSizeLimit limit(space);
        EXPECT_EQ(appendWhole(file, "two\r\n").toStdString(), "File too large");
        EXPECT_EQ(contentsOf(file.fileName()), QByteArray("one\r\n"));
    }
    EXPECT_EQ(appendWhole(file, "three\r\n"), QString());
    EXPECT_EQ(contentsOf(file.fileName()), QByteArray("one\r\nthree\r\n"));
}
#endif

#ifdef Q_OS_LINUX
TEST(AppendWhole, DeviceWithoutSpaceIsToldInTheSystemsWords) {
    QFile full(QStringLiteral("/dev/full"));
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    EXPECT_EQ(appendWhole(full, "one\r\n").toStdString(), "No space left on device");
}
#endif

} // namespace

} // namespace orv
