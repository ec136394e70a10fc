// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/port.h"
#include "simulator/simulatedinstrument.h"

#include <memory>

namespace orv {

/// A port with a simulated instrument at its other end. Closing the port puts the instrument to sleep; it keeps its
/// settings, its clock and its memory as long as the port object lives.
///
/// Like a serial adapter it tells of what has come at most every `handOverInterval`, at once after a pause; what has
/// been told is told again only once something has been read. While nothing can come it is still.
class SimulatedPort final : public Port {
public:
    /// `clock` must live longer than the port.
    SimulatedPort(const SimulatorOptions& options, Clock& clock);

    Words open() override;
    void close() override;
    bool isOpen() const override { return open_; }
    void setDataTerminalReady(bool on) override;
    QByteArray readAll() override;
    void write(const QByteArray& bytes) override;
    QByteArray discardInput() override;

    /// As for every port, except that it counts no further than about 64 KB.
    qsizetype inputCount() override { return open_ ? instrument_->arrivedCount() : 0; }

    Words failure() const override;

private:
    void watch();
    void look();

    Clock& clock_;
    const bool mayBeUnplugged_;
    std::unique_ptr<SimulatedInstrument> instrument_;
    bool open_ = false;
    bool inputTold_ = false; ///< Of characters that still wait to be read.
    bool failureTold_ = false;
    qint64 handedOverAt_; ///< Monotonic milliseconds.
    Subscription alarm_;
};

} // namespace orv
