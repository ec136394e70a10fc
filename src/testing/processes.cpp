// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/processes.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>

#include <array>

#include <fcntl.h>
#include <unistd.h>

namespace orv {

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

} // namespace orv
