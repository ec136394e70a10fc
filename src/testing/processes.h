// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

namespace orv {

constexpr int patience = 60'000; ///< Milliseconds that a test waits for something that must come.

/// How a program has ended that was left to itself.
struct Ended {
    QProcess::ExitStatus how = QProcess::CrashExit;
    int status = -1;
    std::string output;
    std::string error;
};

/// Runs a program to its end with arguments that are separated by spaces, in `folder`, with these environment variables
/// in the place of the test's; those without a value are removed.
Ended runToEnd(const QString& program, const QString& arguments, const QMap<QString, QString>& variables = {},
               const QString& folder = {});

/// An instrument, served by a process of its own on a pseudo-terminal.
class InstrumentProcess {
public:
    explicit InstrumentProcess(const QString& device);
    ~InstrumentProcess() { kill(); }
    InstrumentProcess(const InstrumentProcess&) = delete;
    InstrumentProcess& operator=(const InstrumentProcess&) = delete;

    void kill();

    QString path;

private:
    QProcess process_;
};

/// A pseudo-terminal whose far end is the test.
class FarEnd {
public:
    FarEnd();

    /// Adds what has arrived to `heard`.
    void listen();

    QString path;
    QByteArray heard;

private:
    FileDescriptor master_;
};

} // namespace orv
