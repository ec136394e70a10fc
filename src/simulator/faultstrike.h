// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/simulatoroptions.h"

namespace orv {

/// Decides where a cut or an unplugging strikes. With any other fault, and once it has struck, it never does.
class FaultStrike {
public:
    explicit FaultStrike(const SimulatorOptions& options);

    /// A dump or run of so many data lines begins.
    void beginCollection(qsizetype lines);

    /// How many bytes of the next line go out; fewer than its size if the fault strikes in it.
    qsizetype allowance(qsizetype lineSize);

    /// How long after the greeting it strikes, if it goes by time.
    std::optional<qint64> millisecondsAfterGreeting() const;

    /// It has struck.
    void disarm() { armed_ = false; }

private:
    FaultPoint point_;
    bool armed_;
    qsizetype lineToStrike_ = 0;
    qsizetype linesPassed_ = 0;
    qsizetype bytesLeft_ = 0;
};

} // namespace orv
