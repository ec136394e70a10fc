// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/systemport.h"
#include "simulator/ptyserver.h"
#include "testing/fakes.h"

namespace orv {

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
