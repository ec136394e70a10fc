// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/port.h"
#include "simulator/simulatedinstrument.h"

#include <functional>
#include <memory>

namespace orv {

/// A port with a simulated instrument at its other end. Closing the port puts the instrument to sleep; it keeps its
/// settings, its clock and its memory as long as the port object lives.
class SimulatedPort final : public Port {
public:
    /// Sleeps so many milliseconds.
    using Sleep = std::function<void(int milliseconds)>;

    /// `clock` must live longer than the port. Without `sleep` the calling thread sleeps; a test with its own clock
    /// hands in what moves that clock.
    SimulatedPort(const SimulatorOptions& options, const Clock& clock, Sleep sleep = {});

    QString open() override;
    void close() override;
    bool isOpen() const override { return open_; }
    void setDataTerminalReady(bool on) override {
        if (open_) {
            instrument_->setWakeLine(on);
        }
    }
    QByteArray readAll() override { return open_ ? instrument_->takeArrived() : QByteArray(); }
    void write(const QByteArray& bytes) override {
        if (open_) {
            instrument_->receive(bytes);
        }
    }
    void discardInput() override {
        if (open_) {
            instrument_->discardArrived();
        }
    }

    /// As for every port, except that it counts no further than about 64 KB.
    qsizetype inputCount() override { return open_ ? instrument_->arrivedCount() : 0; }

    /// As for every port; on a closed or failed port it sleeps the whole time.
    bool waitForInput(int milliseconds) override;

    QString failure() const override;

private:
    const Clock& clock_;
    Sleep sleep_;
    std::unique_ptr<SimulatedInstrument> instrument_;
    bool open_ = false;
};

} // namespace orv
