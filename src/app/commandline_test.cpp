// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"

#include "link/systemport.h"
#include "simulator/simulatedport.h"
#include "testing/testclock.h"

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

namespace {

CommandLine read(const QStringList& arguments) {
    return readCommandLine(QStringList{QStringLiteral("orvhost")} + arguments, QStringLiteral("1.2.3"));
}

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

TEST(CommandLine, WithoutOptionsTheSystemsOwnFirstTwoPortsAreUsed) {
    const CommandLine line = read({});
    EXPECT_EQ(line.wish, CommandLine::Wish::Run);
#ifdef Q_OS_WIN
    EXPECT_EQ(line.com1.toStdString(), "COM1");
    EXPECT_EQ(line.com2.toStdString(), "COM2");
#else
    EXPECT_EQ(line.com1.toStdString(), "ttyS0");
    EXPECT_EQ(line.com2.toStdString(), "ttyS1");
#endif
    EXPECT_FALSE(line.debugOutput);
    EXPECT_EQ(line.demoFolder.toStdString(), "");
    EXPECT_FALSE(line.documents);
}

TEST(CommandLine, EveryOptionIsTaken) {
    const CommandLine line =
        read(words("--com1 /dev/pts/3 --com2=sim:glow?rate=8 --debug-output --demo out/put --documents"));
    EXPECT_EQ(line.wish, CommandLine::Wish::Run);
    EXPECT_EQ(line.com1.toStdString(), "/dev/pts/3");
    EXPECT_EQ(line.com2.toStdString(), "sim:glow?rate=8");
    EXPECT_TRUE(line.debugOutput);
    EXPECT_EQ(line.demoFolder.toStdString(), "out/put");
    EXPECT_TRUE(line.documents);
}

TEST(CommandLine, HelpAndVersionAreTexts) {
    const CommandLine help = read({QStringLiteral("--help")});
    EXPECT_EQ(help.wish, CommandLine::Wish::ShowHelp);
    for (const char* option :
         {"--com1", "--com2", "--debug-output", "--demo", "--documents", "--help", "--version", "sim:trx"}) {
        EXPECT_TRUE(help.text.contains(QString::fromLatin1(option))) << option;
    }
    const CommandLine version = read({QStringLiteral("--version")});
    EXPECT_EQ(version.wish, CommandLine::Wish::ShowVersion);
    EXPECT_EQ(version.text.toStdString(), "orvhost 1.2.3\n");
}

TEST(CommandLine, WhatIsNotUnderstoodIsRefusedWithItsReason) {
    const std::pair<const char*, const char*> refused[] = {
        {"--com3 ttyS0", "com3"},
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
        {"--com1 sim:trx?after=50%", "after"},
    };
    for (const auto& [arguments, reason] : refused) {
        const CommandLine line = read(words(arguments));
        EXPECT_EQ(line.wish, CommandLine::Wish::Refuse) << arguments;
        EXPECT_TRUE(line.text.startsWith(QStringLiteral("orvhost: "))) << arguments;
        EXPECT_TRUE(line.text.contains(QString::fromLatin1(reason))) << arguments << ": " << qPrintable(line.text);
        EXPECT_TRUE(line.text.endsWith(u'\n')) << arguments;
    }
}

TEST(CommandLine, DevicesAreNamesPathsAndSimulatedInstruments) {
    for (const char* device : {"ttyUSB0", "/dev/ttyUSB0", "/dev/pts/12", "COM3", "\\\\.\\COM12", "./link", "sim:trx",
                               "sim:glow", "sim:trx?firmware=412&rate=8&records=5000&points=20&fault=silent&baud=0"}) {
        EXPECT_EQ(deviceProblem(QString::fromLatin1(device)).toStdString(), "") << device;
    }
    for (const char* device : {"", " ", "tty USB0", "/dev/tty\tS0", "/dev/ttyS0\n", "/", "sim:", "sim:TRX", "sim:trx?",
                               "sim:trx?rate", "sim:trx?rate=8&rate=9", "sim:glow firmware=3"}) {
        EXPECT_NE(deviceProblem(QString::fromLatin1(device)).toStdString(), "") << device;
    }
}

TEST(CommandLine, ADevicesPortIsOfItsKind) {
    const TestClock clock;
    const auto simulated = makePort(QStringLiteral("sim:glow?baud=0"), clock);
    EXPECT_NE(dynamic_cast<SimulatedPort*>(simulated.get()), nullptr);
    EXPECT_EQ(simulated->open().toStdString(), "");
    const auto real = makePort(QStringLiteral("/dev/no-such-device"), clock);
    EXPECT_NE(dynamic_cast<SystemPort*>(real.get()), nullptr);
    EXPECT_NE(real->open().toStdString(), "");
}

struct Ended {
    QProcess::ExitStatus how = QProcess::CrashExit;
    int status = -1;
    std::string output;
    std::string error;
};

/// Runs the program where there is no window system to be had.
Ended orvhost(const QStringList& arguments) {
    constexpr int patience = 60'000; // milliseconds
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none-at-all"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORVHOST_PATH), arguments);
    EXPECT_TRUE(process.waitForFinished(patience));
    return {process.exitStatus(), process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

TEST(OrvhostProgram, HelpAndVersionNeedNoDisplay) {
    for (const char* option : {"--help", "-h"}) {
        const Ended help = orvhost(words(option));
        EXPECT_EQ(help.how, QProcess::NormalExit);
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.output.starts_with("Usage: orvhost [options]")) << help.output;
        EXPECT_NE(help.output.find("--debug-output"), std::string::npos) << help.output;
        EXPECT_EQ(help.error, "");
    }
    const Ended version = orvhost(words("--version"));
    EXPECT_EQ(version.how, QProcess::NormalExit);
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.starts_with("orvhost ")) << version.output;
    EXPECT_EQ(version.error, "");
}

TEST(OrvhostProgram, AWrongCommandLineEndsWithStatus2AndAMessageOnStandardError) {
    for (const char* arguments :
         {"--loud", "--com1 sim:boat", "--com2 sim:trx?rate=no", "--com1=", "stray", "--demo="}) {
        const Ended ended = orvhost(words(arguments));
        EXPECT_EQ(ended.how, QProcess::NormalExit) << arguments;
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_TRUE(ended.error.starts_with("orvhost: ")) << arguments << ": " << ended.error;
        EXPECT_EQ(ended.output, "") << arguments;
    }
}

} // namespace

} // namespace orv
