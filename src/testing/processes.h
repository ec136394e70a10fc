// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"
#include "link/systemport.h"
#include "simulator/ptyserver.h"
#include "testing/fakes.h"

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

/// The real port on a pseudo-terminal whose far end is served whenever the port is used. Waiting for input moves the
/// test's clock; nothing takes time of its own.
class ServedPort final : public Port {
public:
    ServedPort(std::unique_ptr<PtyServer>& server, TestClock& clock)
        : server_(server)
        , clock_(clock)
        , port_(server->path()) {}

    QString open() override { return port_.open(); }
    void close() override { port_.close(); }
    bool isOpen() const override { return port_.isOpen(); }
    void setDataTerminalReady(bool on) override { port_.setDataTerminalReady(on); }
    QByteArray readAll() override {
        serve();
        port_.waitForInput(0);
        return port_.readAll();
    }
    void write(const QByteArray& bytes) override {
        port_.write(bytes);
        serve();
    }
    void discardInput() override {
        port_.discardInput();
        serve();
    }
    qsizetype inputCount() override { return port_.inputCount(); }
    bool waitForInput(int milliseconds) override {
        if (port_.waitForInput(0)) {
            return true;
        }
        clock_.advance(milliseconds);
        serve();
        return port_.waitForInput(0);
    }
    QString failure() const override { return port_.failure(); }

    /// Makes a server for the instrument of a device name and a port to it.
    static std::unique_ptr<ServedPort> serve(const QString& device, TestClock& clock,
                                             std::unique_ptr<PtyServer>& server) {
        server = std::make_unique<PtyServer>(parseSimulatorOptions(device).options, clock);
        EXPECT_EQ(server->open().toStdString(), "");
        return std::make_unique<ServedPort>(server, clock);
    }

    /// Whether everything that has come is read.
    bool allIsRead() { return !port_.waitForInput(0); }

private:
    void serve() {
        if (server_) {
            server_->serve(0);
        }
    }

    std::unique_ptr<PtyServer>& server_;
    TestClock& clock_;
    SystemPort port_;
};

} // namespace orv
