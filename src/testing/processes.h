// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"

#include <QByteArray>
#include <QProcess>
#include <QString>

namespace orv {

constexpr int patience = 60'000; ///< Milliseconds that a test waits for something that must come.

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
