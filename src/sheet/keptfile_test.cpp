// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/keptfile.h"

#include "sheet/sheettest.h"

namespace orv {

namespace {

const QDateTime moment(QDate(2026, 11, 21), QTime(9, 30, 15));

TEST(KeptFile, TakesADatedNameBesideItsOwn) {
    const struct {
        const char* name;
        const char* kept;
    } cases[] = {
        {"Orvtemp.tmp", "Orvtemp-20261121-093015.tmp"},
        {"Untitled0.txt", "Untitled0-20261121-093015.txt"},
        {"lake.run.3.txt", "lake.run.3-20261121-093015.txt"},
        {"noending", "noending-20261121-093015"},
    };
    for (const auto& each : cases) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QString::fromLatin1(each.name));
        fill(path, "rows");
        EXPECT_EQ(keepUnderDatedName(path, moment), QString());
        EXPECT_EQ(filesIn(folder).join(u'|').toStdString(), each.kept);
        EXPECT_EQ(contentsOf(folder.filePath(QString::fromLatin1(each.kept))), QByteArray("rows"));
    }
}

TEST(KeptFile, FilesKeptInTheSameSecondGetFurtherNumbers) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Orvtemp.tmp"));
    for (const char* run : {"first", "second", "third"}) {
        fill(path, run);
        EXPECT_EQ(keepUnderDatedName(path, moment), QString());
    }
    EXPECT_EQ(contentsOf(folder.filePath(QStringLiteral("Orvtemp-20261121-093015.tmp"))), QByteArray("first"));
    EXPECT_EQ(contentsOf(folder.filePath(QStringLiteral("Orvtemp-20261121-093015-2.tmp"))), QByteArray("second"));
    EXPECT_EQ(contentsOf(folder.filePath(QStringLiteral("Orvtemp-20261121-093015-3.tmp"))), QByteArray("third"));
}

TEST(KeptFile, NothingToKeepIsNoFailure) {
    const QTemporaryDir folder;
    EXPECT_EQ(keepUnderDatedName(folder.filePath(QStringLiteral("Orvtemp.tmp")), moment), QString());
    EXPECT_TRUE(filesIn(folder).isEmpty());
}

#ifdef Q_OS_UNIX
TEST(KeptFile, FileThatCannotBeRenamedStaysAndTheReasonIsTold) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Orvtemp.tmp"));
    fill(path, "rows");
    {
        const UnwritableFolder unwritable(folder);
        EXPECT_NE(keepUnderDatedName(path, moment), QString());
    }
    EXPECT_EQ(filesIn(folder).join(u'|').toStdString(), "Orvtemp.tmp");
    EXPECT_EQ(contentsOf(path), QByteArray("rows"));
}
#endif

} // namespace

} // namespace orv
