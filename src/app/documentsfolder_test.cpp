// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/documentsfolder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orv {
namespace {

class DocumentsFolder : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }
    void TearDown() override { QDir::setCurrent(before_); }

    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    void makeFile(const char* name) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    static std::string current() { return QDir(QDir::currentPath()).canonicalPath().toStdString(); }

private:
    QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
};

TEST_F(DocumentsFolder, AMissingFolderIsMadeAndNothingIsLeftInIt) {
    const QString entered = enterFirstWritable({path("home/Documents"), path("home")});
    EXPECT_EQ(entered.toStdString(), QDir::currentPath().toStdString());
    EXPECT_EQ(current(), QDir(path("home/Documents")).canonicalPath().toStdString());
    EXPECT_TRUE(QDir().isEmpty());
}

TEST_F(DocumentsFolder, AFolderThatTakesNoFilesIsPassedOver) {
    makeFile("file");
    ASSERT_TRUE(QDir().mkpath(path("home")));
    QStringList uselessFolders{QString(), path("file"), path("file/Documents")};
#ifdef Q_OS_LINUX
    uselessFolders << QStringLiteral("/proc"); // a folder in which not even the administrator can make a file
#endif
    for (const QString& useless : uselessFolders) {
        EXPECT_NE(enterFirstWritable({useless, path("home")}).toStdString(), "") << qPrintable(useless);
        EXPECT_EQ(current(), QDir(path("home")).canonicalPath().toStdString()) << qPrintable(useless);
    }
}

TEST_F(DocumentsFolder, WithoutAnyTheCurrentFolderStays) {
    makeFile("file");
    const std::string before = current();
    EXPECT_EQ(enterFirstWritable({path("file"), path("file/Documents")}).toStdString(), "");
    EXPECT_EQ(enterFirstWritable({}).toStdString(), "");
    EXPECT_EQ(current(), before);
}

TEST_F(DocumentsFolder, TheProgramLeavesItsFilesThere) {
    constexpr int patience = 100'000; // milliseconds
    ASSERT_TRUE(QDir().mkpath(path("home")));
    ASSERT_TRUE(QDir().mkpath(path("elsewhere")));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), path("home"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path("home/.config"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(path("elsewhere"));
    process.start(QStringLiteral(ORVHOST_PATH),
                  {QStringLiteral("--documents"), QStringLiteral("--com1"), QStringLiteral("sim:glow?rate=100&baud=0"),
                   QStringLiteral("--demo"), QStringLiteral("shown")});
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
#ifdef Q_OS_LINUX // where the Documents folder follows from these variables
    EXPECT_TRUE(QFile::exists(path("home/Documents/shown/log.ohp")));
    EXPECT_TRUE(QFile::exists(path("home/Documents/shown/Orvtemp.tmp")));
#endif
    EXPECT_TRUE(QDir(path("elsewhere")).isEmpty());
}

} // namespace
} // namespace orv
