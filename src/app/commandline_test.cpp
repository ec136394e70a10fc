// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"

#include "testing/folder.h"
#include "testing/processes.h"

#include <QDir>

#include <gtest/gtest.h>

namespace orv {

namespace {

class DocumentsFolder : public testing::Test {
protected:
    QString path(const char* name) const { return folder.path(name); }
    static std::string current() { return QDir(QDir::currentPath()).canonicalPath().toStdString(); }

    OwnFolder folder;
};

TEST_F(DocumentsFolder, AMissingFolderIsMadeAndNothingIsLeftInIt) {
    const QString entered = enterFirstWritable({path("home/Documents"), path("home")});
    EXPECT_EQ(entered.toStdString(), QDir::currentPath().toStdString());
    EXPECT_EQ(current(), QDir(path("home/Documents")).canonicalPath().toStdString());
    EXPECT_TRUE(QDir().isEmpty());
}

TEST_F(DocumentsFolder, AFolderThatTakesNoFilesIsPassedOver) {
    fill(path("file"), {});
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
    fill(path("file"), {});
    const std::string before = current();
    EXPECT_EQ(enterFirstWritable({path("file"), path("file/Documents")}).toStdString(), "");
    EXPECT_EQ(enterFirstWritable({}).toStdString(), "");
    EXPECT_EQ(current(), before);
}

TEST_F(DocumentsFolder, TheProgramLeavesItsFilesThere) {
    ASSERT_TRUE(QDir().mkpath(path("home")));
    ASSERT_TRUE(QDir().mkpath(path("elsewhere")));
    const Ended ended = runToEnd(QStringLiteral(ORVHOST_PATH),
                                 QStringLiteral("--documents --com1 sim:glow?rate=100&baud=0 --demo shown"),
                                 {{QStringLiteral("HOME"), path("home")},
                                  {QStringLiteral("XDG_CONFIG_HOME"), path("home/.config")},
                                  {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}},
                                 path("elsewhere"));
    EXPECT_EQ(ended.status, 0) << ended.error;
#ifdef Q_OS_LINUX // where the Documents folder follows from these variables
    EXPECT_TRUE(QFile::exists(path("home/Documents/shown/log.ohp")));
    EXPECT_TRUE(QFile::exists(path("home/Documents/shown/Orvtemp.tmp")));
#endif
    EXPECT_TRUE(QDir(path("elsewhere")).isEmpty());
}

CommandLine read(const QStringList& arguments) {
    return readCommandLine(QStringList{QStringLiteral("orvhost")} + arguments, QStringLiteral("1.2.3"));
}

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

TEST(CommandLine, ALanguageIsOneOfThoseThatThereAre) {
    EXPECT_EQ(read({}).language.toStdString(), "");
    EXPECT_EQ(read(words("--language fr")).language.toStdString(), "fr");
    for (const char* unknown : {"--language xx", "--language DE", "--language="}) {
        const CommandLine line = read(words(unknown));
        EXPECT_EQ(line.wish, CommandLine::Wish::Refuse) << unknown;
        EXPECT_TRUE(line.text.contains(QLatin1String("The languages are en, de, es, fr."))) << line.text.toStdString();
    }
}

TEST(CommandLine, WithoutOptionsTheSystemsOwnFirstTwoPortsAreUsed) {
    const CommandLine line = read({});
    EXPECT_EQ(line.wish, CommandLine::Wish::Run);
#ifdef Q_OS_WIN
    EXPECT_EQ((line.com1 + u' ' + line.com2).toStdString(), "COM1 COM2");
#else
    EXPECT_EQ((line.com1 + u' ' + line.com2).toStdString(), "ttyS0 ttyS1");
#endif
    EXPECT_FALSE(line.debugOutput);
    EXPECT_EQ(line.demoFolder.toStdString(), "");
    EXPECT_FALSE(line.documents);
    EXPECT_FALSE(line.fresh);
    EXPECT_FALSE(line.choosesPort);
}

TEST(CommandLine, EveryOptionIsTaken) {
    const CommandLine line =
        read(words("--com1 /dev/pts/3 --com2=sim:glow?rate=8 --debug-output --demo out/put --documents --fresh"));
    EXPECT_EQ(line.wish, CommandLine::Wish::Run);
    EXPECT_EQ(line.com1.toStdString(), "/dev/pts/3");
    EXPECT_EQ(line.com2.toStdString(), "sim:glow?rate=8");
    EXPECT_TRUE(line.debugOutput);
    EXPECT_EQ(line.demoFolder.toStdString(), "out/put");
    EXPECT_TRUE(line.documents);
    EXPECT_TRUE(line.fresh);
    EXPECT_TRUE(line.choosesPort);
}

TEST(CommandLine, HelpAndVersionAreTexts) {
    const CommandLine help = read({QStringLiteral("--help")});
    EXPECT_EQ(help.wish, CommandLine::Wish::ShowHelp);
    for (const char* option : {"--com1", "--com2", "--debug-output", "--demo", "--capture", "--documents", "--fresh",
                               "--help", "--version", "sim:trx"}) {
        EXPECT_TRUE(help.text.contains(QString::fromLatin1(option))) << option;
    }
    const CommandLine version = read({QStringLiteral("--version")});
    EXPECT_EQ(version.wish, CommandLine::Wish::ShowVersion);
    EXPECT_EQ(version.text.toStdString(), "orvhost 1.2.3\n");
}

TEST(CommandLine, WhatIsNotUnderstoodIsRefusedWithItsReason) {
    const std::pair<const char*, const char*> refused[] = {{"--com3 ttyS0", "com3"},
                                                           {"--capture=", "--capture needs a file"},
                                                           {"--loud", "loud"},
                                                           {"-x", "x"},
                                                           {"--com1", "com1"},
                                                           {"--demo", "demo"},
                                                           {"--demo=", "--demo needs a folder"},
                                                           {"--debug-output=yes", "debug-output"},
                                                           {"--documents=/tmp", "documents"},
                                                           {"ttyUSB0", "\"ttyUSB0\""},
                                                           {"--com1 ttyS0 sim:glow", "\"sim:glow\""},
                                                           {"--com1=", "is no device"},
                                                           {"--com2 /dev/", "\"/dev/\" is no device"},
                                                           {"--com1 sim:boat", "sim:boat"},
                                                           {"--com1 sim:", "sim:"},
                                                           {"--com2 sim:trx?rate=no", "rate"},
                                                           {"--com2 sim:trx?colour=red", "colour"},
                                                           {"--com1 sim:trx?fault=rust", "fault"},
                                                           {"--com1 sim:trx?after=50%", "after"}};
    for (const auto& [arguments, reason] : refused) {
        const CommandLine line = read(words(arguments));
        EXPECT_EQ(line.wish, CommandLine::Wish::Refuse) << arguments;
        EXPECT_TRUE(line.text.startsWith(QStringLiteral("orvhost: "))) << arguments;
        EXPECT_TRUE(line.text.contains(QString::fromLatin1(reason))) << arguments << ": " << qPrintable(line.text);
        EXPECT_TRUE(line.text.endsWith(u'\n')) << arguments;
    }
}

/// Runs the program where there is no window system to be had.
Ended orvhost(const char* arguments) {
    const Ended ended = runToEnd(QStringLiteral(ORVHOST_PATH), QString::fromLatin1(arguments),
                                 {{QStringLiteral("DISPLAY"), QString()},
                                  {QStringLiteral("WAYLAND_DISPLAY"), QString()},
                                  {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none-at-all")}});
    return ended;
}

TEST(OrvhostProgram, HelpAndVersionNeedNoDisplay) {
    for (const char* option : {"--help", "-h"}) {
        const Ended help = orvhost(option);
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.output.starts_with("Usage: orvhost [options]")) << help.output;
        EXPECT_NE(help.output.find("--debug-output"), std::string::npos) << help.output;
        EXPECT_EQ(help.error, "");
    }
    const Ended version = orvhost("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.starts_with("orvhost ")) << version.output;
    EXPECT_EQ(version.error, "");
}

TEST(OrvhostProgram, AWrongCommandLineEndsWithStatus2AndAMessageOnStandardError) {
    for (const char* arguments :
         {"--loud", "--com1 sim:boat", "--com2 sim:trx?rate=no", "--com1=", "stray", "--demo="}) {
        const Ended ended = orvhost(arguments);
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_TRUE(ended.error.starts_with("orvhost: ")) << arguments << ": " << ended.error;
        EXPECT_EQ(ended.output, "") << arguments;
    }
}

} // namespace

} // namespace orv
