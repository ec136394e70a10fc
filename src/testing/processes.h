// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

#include <functional>

#include <gtest/gtest.h>

namespace orv {

constexpr int patience = 60'000; ///< Milliseconds that a test waits for something that must come.

/// Handles events until it is so, or until the time is over. Whether it is so.
bool comesTrue(const std::function<bool()>& condition, int milliseconds = patience);

/// The test's environment with these variables; those without a value are removed.
QProcessEnvironment environmentWith(const QMap<QString, QString>& variables);

/// How a program has ended that was left to itself.
struct Ended {
    QProcess::ExitStatus how = QProcess::CrashExit;
    int status = -1;
    std::string output;
    std::string error;
};

/// Runs a program to its end with arguments that are separated by spaces, in `folder`, in `environmentWith(variables)`.
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

/// A message bus of the test's own.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus() { stop(); }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// The test fails if there is no program for it.
    void start();
    void stop();

    QString socketPath() const { return folder_.filePath(QStringLiteral("bus")); }
    QString address() const { return QStringLiteral("unix:path=") + socketPath(); }

private:
    QTemporaryDir folder_;
    QProcess daemon_;
};

/// A display of the test's own, for programs that show their windows with the xcb platform.
class PrivateDisplay {
public:
    PrivateDisplay() = default;
    ~PrivateDisplay() { stop(); }
    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    /// The test fails if there is no program for it.
    void start();
    void stop();

    /// What DISPLAY has to be.
    QString name() const { return name_; }

private:
    QProcess server_;
    QString name_;
};

/// A pseudo-terminal whose far end is the test.
class FarEnd {
public:
    FarEnd();

    /// Adds what has arrived to `heard`.
    void listen();
    /// The same, until so many characters have arrived in all; not for ever.
    void listenUntil(qsizetype characters);

    void send(const QByteArray& bytes);

    /// The terminal is gone.
    void hangUp() { master_.reset(); }

    QString path;
    QByteArray heard;

private:
    FileDescriptor master_;
};

} // namespace orv
