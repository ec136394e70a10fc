// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/processes.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>

namespace orv {
namespace {

Ended run(const QString& arguments) {
    return runToEnd(QStringLiteral(ORVSIM_PATH), arguments);
}

QString firstLine(QProcess& process) {
    QByteArray line;
    while (!line.endsWith('\n') && process.waitForReadyRead(patience)) {
        line += process.readLine();
    }
    return QFile::decodeName(line.trimmed());
}

TEST(Orvsim, HelpAndVersionExitWithZero) {
    const Ended version = run(QStringLiteral("--version"));
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.starts_with("orvsim "));
    const Ended help = run(QStringLiteral("--help"));
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("--link"), std::string::npos);
}

TEST(Orvsim, BadArgumentsExitWithTwoAndAMessage) {
    for (const char* arguments :
         {"sim:boat", "sim:trx?rate=no", "--loud", "--help-all", "--link=", "sim:trx sim:glow"}) {
        const Ended ended = run(QString::fromLatin1(arguments));
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_TRUE(ended.error.starts_with("orvsim: "));
        EXPECT_EQ(ended.output, "");
    }
}

TEST(Orvsim, ServesUntilItIsTerminated) {
    const OwnFolder folder;
    const QString link = folder.path("instrument");
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
    const OwnFolder folder;
    const QString path = folder.path("precious");
    fill(path, {});
    const Ended ended = run(QStringLiteral("--link ") + path);
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.error.find("precious"), std::string::npos);
    EXPECT_TRUE(QFileInfo::exists(path));
}

} // namespace
} // namespace orv
