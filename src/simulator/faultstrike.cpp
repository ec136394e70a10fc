// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/faultstrike.h"

namespace orv {

FaultStrike::FaultStrike(const SimulatorOptions& options)
    : point_(options.faultPoint)
    , armed_(options.fault == SimulatedFault::Cut || options.fault == SimulatedFault::Unplug) {}

void FaultStrike::beginCollection(qsizetype lines) {
    constexpr qint64 whole = 100;
    lineToStrike_ = lines * point_.amount / whole;
    linesPassed_ = 0;
    bytesLeft_ = point_.amount;
}

qsizetype FaultStrike::allowance(qsizetype lineSize) {
    if (!armed_) {
        return lineSize;
    }
    qsizetype allowed = lineSize;
    if (point_.unit == FaultPoint::Unit::Bytes && bytesLeft_ < lineSize) {
        allowed = bytesLeft_;
    } else if (point_.unit == FaultPoint::Unit::Percent && linesPassed_ == lineToStrike_) {
        allowed = lineSize / 2;
    }
    bytesLeft_ -= allowed;
    ++linesPassed_;
    return allowed;
}

std::optional<qint64> FaultStrike::millisecondsAfterGreeting() const {
    if (!armed_ || point_.unit != FaultPoint::Unit::Milliseconds) {
        return std::nullopt;
    }
    return point_.amount;
}

} // namespace orv
