// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/filedescriptor.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>

namespace orv {
namespace {

constexpr int patience = 20'000; // milliseconds

struct Ended {
    int status = -1;
    QByteArray output;
    QByteArray error;
};

Ended run(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(ORVSIM_PATH), arguments);
    EXPECT_TRUE(process.waitForFinished(patience));
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QString firstLine(QProcess& process) {
    QByteArray line;
    while (!line.endsWith('\n') && process.waitForReadyRead(patience)) {
        line += process.readLine();
    }
    return QFile::decodeName(line.trimmed());
}

TEST(Orvsim, HelpAndVersionExitWithZero) {
    const Ended version = run({QStringLiteral("--version")});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.startsWith("orvsim "));
    const Ended help = run({QStringLiteral("--help")});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.contains("--link"));
}

TEST(Orvsim, BadArgumentsExitWithTwoAndAMessage) {
    const QList<QStringList> bad{{QStringLiteral("sim:boat")}, {QStringLiteral("sim:trx?rate=no")},
                                 {QStringLiteral("--loud")},   {QStringLiteral("--help-all")},
                                 {QStringLiteral("--link=")},  {QStringLiteral("sim:trx"), QStringLiteral("sim:glow")}};
    for (const QStringList& arguments : bad) {
        const Ended ended = run(arguments);
        EXPECT_EQ(ended.status, 2) << qPrintable(arguments.join(u' '));
        EXPECT_TRUE(ended.error.startsWith("orvsim: "));
        EXPECT_EQ(ended.output, "");
    }
}

TEST(Orvsim, ServesUntilItIsTerminated) {
    QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("instrument"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere"), link)) << "left over from a server that was killed";
    QProcess process;
    process.start(QStringLiteral(ORVSIM_PATH),
                  {QStringLiteral("sim:glow?firmware=99"), QStringLiteral("--link"), link});
    const QString path = firstLine(process);
    ASSERT_TRUE(path.startsWith(QStringLiteral("/dev/"))) << qPrintable(path);
    EXPECT_EQ(QFileInfo(link).symLinkTarget().toStdString(), path.toStdString());

    const FileDescriptor host(::open(QFile::encodeName(link).constData(), O_RDWR | O_NOCTTY));
    ASSERT_TRUE(host.isOpen());
    ASSERT_EQ(::tcflush(host.get(), TCIFLUSH), 0);
    QByteArray heard;
    while (!heard.endsWith('\r')) {
        pollfd polled{host.get(), POLLIN, 0};
        ASSERT_EQ(::poll(&polled, 1, patience), 1);
        char character = 0;
        ASSERT_EQ(::read(host.get(), &character, 1), 1);
        heard += character;
    }
    EXPECT_EQ(heard, "F99\r");

    process.terminate();
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_FALSE(QFileInfo(link).isSymbolicLink());
}

TEST(Orvsim, DoesNotReplaceAFileByItsLink) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("precious"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const Ended ended = run({QStringLiteral("--link"), path});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.error.contains("precious"));
    EXPECT_TRUE(QFileInfo::exists(path));
}

} // namespace
} // namespace orv
