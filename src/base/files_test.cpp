// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include "testing/folder.h"

#include <QCoreApplication>
#include <QTranslator>

#include <cerrno>

namespace orv {
namespace {

class AppendWholeTest : public testing::Test {
protected:
    AppendWholeTest() { EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)); }

    OwnFolder folder;
    QFile file{folder.path("rows.txt")};
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
        EXPECT_EQ(appendWhole(file, "two\r\n"), systemWords(EFBIG));
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
    EXPECT_EQ(appendWhole(full, "one\r\n"), systemWords(ENOSPC));
}
#endif

const QDateTime moment(QDate(2026, 11, 21), QTime(9, 30, 15));

TEST(KeptFile, TakesADatedNameBesideItsOwn) {
    const std::pair<const char*, const char*> names[] = {
        {"Orvtemp.tmp", "Orvtemp-20261121-093015.tmp"},
        {"Untitled0.txt", "Untitled0-20261121-093015.txt"},
        {"lake.run.3.txt", "lake.run.3-20261121-093015.txt"},
        {"noending", "noending-20261121-093015"},
    };
    for (const auto& [name, keptAs] : names) {
        const OwnFolder folder;
        const QString path = folder.path(name);
        fill(path, "rows");
        EXPECT_EQ(keepUnderDatedName(path, moment), QString());
        EXPECT_EQ(folder.files().join(u'|').toStdString(), keptAs);
        EXPECT_EQ(contentsOf(folder.path(keptAs)), QByteArray("rows"));
    }
}

TEST(KeptFile, FilesKeptInTheSameSecondGetFurtherNumbers) {
    const OwnFolder folder;
    const QString path = folder.path("Orvtemp.tmp");
    for (const char* run : {"first", "second", "third"}) {
        fill(path, run);
        EXPECT_EQ(keepUnderDatedName(path, moment), QString());
    }
    EXPECT_EQ(contentsOf(folder.path("Orvtemp-20261121-093015.tmp")), QByteArray("first"));
    EXPECT_EQ(contentsOf(folder.path("Orvtemp-20261121-093015-2.tmp")), QByteArray("second"));
    EXPECT_EQ(contentsOf(folder.path("Orvtemp-20261121-093015-3.tmp")), QByteArray("third"));
}

/// A device whose system says that.
class FailedDevice : public QIODevice {
public:
    explicit FailedDevice(const char* text) { setErrorString(QString::fromLatin1(text)); }

protected:
    qint64 readData(char* /*data*/, qint64 /*most*/) override { return -1; }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }
};

TEST(ErrorText, EndsWithoutAFullStop) {
    const std::pair<const char*, const char*> cases[] = {{"File not found.", "File not found"},
                                                         {"No such file or directory", "No such file or directory"},
                                                         {"Access is denied. \r\n", "Access is denied"},
                                                         {"Line 1. Line 2.", "Line 1. Line 2"},
                                                         {"Please wait...", "Please wait"},
                                                         {"", "Unknown error"}};
    for (const auto& [said, told] : cases) {
        EXPECT_EQ(errorText(FailedDevice(said)).toStdString(), told);
    }
}

#ifdef Q_OS_UNIX
/// Of Qt's own texts and of the four that it translates for the system.
class BracketsAroundQt final : public QTranslator {
public:
    BracketsAroundQt() { QCoreApplication::installTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* text, const char* /*comment*/, int /*n*/) const override {
        return context[0] == 'Q' ? QStringLiteral("[%1]").arg(QString::fromUtf8(text)) : QString();
    }
};

TEST(ErrorText, IsEnglishInFilesWhateverLanguageQtSpeaks) {
    const OwnFolder folder;
    const BracketsAroundQt translator;
    EXPECT_EQ(FailedDevice("").errorString().toStdString(), "[Unknown error]");
    const std::pair<QString, const char*> cases[] = {
        {QString(), "Unknown error"},
        {qt_error_string(ENOENT), "No such file or directory"},
        {qt_error_string(EFBIG), "File too large"},
        {QStringLiteral("[Existing file rows.csv is not writable]"), "Existing file rows.csv is not writable"},
        {QStringLiteral("[Error while renaming: %1]").arg(qt_error_string(ENOENT)),
         "Error while renaming: No such file or directory"},
        {QStringLiteral("Something else"), "Something else"}};
    for (const auto& [said, english] : cases) {
        EXPECT_EQ(errorText(FailedDevice(said.toUtf8().constData())).toStdString(), english);
    }
    QFile missing(folder.path("missing"));
    ASSERT_FALSE(missing.open(QIODevice::ReadOnly));
    EXPECT_EQ(errorText(missing).toStdString(), "No such file or directory");
    EXPECT_EQ(errorText(missing).shown().toStdString(), "[No such file or directory]");
    EXPECT_EQ(systemErrorText(ENOENT).toStdString(), "No such file or directory");
    EXPECT_EQ(systemErrorText(ENOENT).shown().toStdString(), "[No such file or directory]");
}
#endif

TEST(KeptFile, NothingToKeepIsNoFailure) {
    const OwnFolder folder;
    EXPECT_EQ(keepUnderDatedName(folder.path("Orvtemp.tmp"), moment), QString());
    EXPECT_TRUE(folder.files().isEmpty());
}

#ifdef Q_OS_UNIX
TEST(KeptFile, FileThatCannotBeRenamedStaysAndTheReasonIsTold) {
    const OwnFolder folder;
    const QString path = folder.path("Orvtemp.tmp");
    fill(path, "rows");
    {
        const UnwritableFolder unwritable(folder.path());
        EXPECT_NE(keepUnderDatedName(path, moment), QString());
    }
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp");
    EXPECT_EQ(contentsOf(path), QByteArray("rows"));
}
#endif

} // namespace
} // namespace orv
