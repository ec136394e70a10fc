// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/processes.h"

#include "testing/folder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace orv {

bool comesTrue(const std::function<bool()>& condition, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    constexpr int lookInterval = 5; // milliseconds
    QTimer looking;                 // what is waited for need not come as an event
    looking.start(lookInterval);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

QProcessEnvironment environmentWith(const QMap<QString, QString>& variables) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto variable = variables.begin(); variable != variables.end(); ++variable) {
        environment.insert(variable.key(), variable.value());
        if (variable.value().isNull()) {
            environment.remove(variable.key());
        }
    }
    return environment;
}

Ended runToEnd(const QString& program, const QString& arguments, const QMap<QString, QString>& variables,
               const QString& folder) {
    QProcess process;
    process.setProcessEnvironment(environmentWith(variables));
    process.setWorkingDirectory(folder);
    process.start(program, arguments.split(u' ', Qt::SkipEmptyParts));
    EXPECT_TRUE(process.waitForFinished(patience)) << qPrintable(program) << " does not end";
    return {process.exitStatus(), process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

InstrumentProcess::InstrumentProcess(const QString& device) {
    process_.start(QCoreApplication::applicationDirPath() + QStringLiteral("/orvsim"), {device});
    QByteArray line;
    while (!line.endsWith('\n') && process_.waitForReadyRead(patience)) {
        line += process_.readLine();
    }
    path = QFile::decodeName(line.trimmed());
    EXPECT_TRUE(path.startsWith(QStringLiteral("/dev/"))) << qPrintable(path);
}

void InstrumentProcess::kill() {
    process_.kill();
    process_.waitForFinished(patience);
}

PrivateBus::PrivateBus() {
    fill(folder_.filePath(QStringLiteral("bus.conf")),
         "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
         " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
         "<busconfig><type>session</type><listen>" +
             address().toUtf8() +
             "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/><allow "
             "receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>\n");
}

void PrivateBus::start() {
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--nofork"), QStringLiteral("--print-address"), QStringLiteral("--config-file"),
                   folder_.filePath(QStringLiteral("bus.conf"))});
    ASSERT_TRUE(daemon_.waitForReadyRead(patience))
        << "dbus-daemon is needed (package dbus-daemon): " << daemon_.errorString().toStdString()
        << daemon_.readAllStandardError().toStdString();
}

void PrivateBus::stop() {
    if (daemon_.state() != QProcess::NotRunning) {
        daemon_.terminate();
        EXPECT_TRUE(daemon_.waitForFinished(patience));
    }
    QFile::remove(socketPath());
}

void PrivateDisplay::start() {
    server_.start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                   QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    QByteArray number;
    while (!number.endsWith('\n') && server_.waitForReadyRead(patience)) {
        number += server_.readAllStandardOutput();
    }
    ASSERT_TRUE(number.endsWith('\n')) << "Xvfb is needed (package xvfb): " << server_.errorString().toStdString()
                                       << server_.readAllStandardError().toStdString();
    name_ = u':' + QString::fromLatin1(number).trimmed();
}

void PrivateDisplay::stop() {
    if (server_.state() != QProcess::NotRunning) {
        server_.terminate();
        EXPECT_TRUE(server_.waitForFinished(patience));
    }
}

FarEnd::FarEnd()
    : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    std::array<char, 128> name{};
    if (::grantpt(master_.get()) == 0 && ::unlockpt(master_.get()) == 0 &&
        ::ptsname_r(master_.get(), name.data(), name.size()) == 0) {
        path = QFile::decodeName(name.data());
    }
    EXPECT_FALSE(path.isEmpty()) << "this system has no pseudo-terminals";
}

void FarEnd::listen() {
    std::array<char, 4096> buffer{};
    ssize_t size = 0;
    while ((size = ::read(master_.get(), buffer.data(), buffer.size())) > 0) {
        heard.append(buffer.data(), size);
    }
}

void FarEnd::listenUntil(qsizetype characters) {
    const QDeadlineTimer deadline(patience);
    for (listen(); heard.size() < characters && !deadline.hasExpired(); listen()) {
        pollfd line{.fd = master_.get(), .events = POLLIN, .revents = 0};
        ::poll(&line, 1, 1);
    }
    EXPECT_GE(heard.size(), characters);
}

void FarEnd::send(const QByteArray& bytes) {
    EXPECT_EQ(::write(master_.get(), bytes.constData(), static_cast<size_t>(bytes.size())), bytes.size());
}

} // namespace orv
