// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedport.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace orv {

namespace {

void sleepOfThread(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace

SimulatedPort::SimulatedPort(const SimulatorOptions& options, const Clock& clock, Sleep sleep)
    : clock_(clock)
    , sleep_(sleep ? std::move(sleep) : sleepOfThread)
    , instrument_(std::make_unique<SimulatedInstrument>(options, clock)) {}

QString SimulatedPort::open() {
    if (!open_) {
        instrument_->plugIn();
        open_ = true;
    }
    return {};
}

void SimulatedPort::close() {
    if (open_) {
        instrument_->sleep();
        open_ = false;
    }
}

bool SimulatedPort::waitForInput(int milliseconds) {
    qint64 remaining = milliseconds;
    while (inputCount() == 0 && remaining > 0) {
        qint64 step = remaining;
        if (open_) {
            if (const std::optional<qint64> change = instrument_->nextChange()) {
                step = std::clamp<qint64>(*change - clock_.monotonicMilliseconds(), 1, remaining);
            }
        }
        sleep_(static_cast<int>(step));
        remaining -= step;
    }
    return inputCount() > 0;
}

QString SimulatedPort::failure() const {
    if (!instrument_->isUnplugged()) {
        return {};
    }
    return QStringLiteral("The cable of the simulated instrument was pulled out. Connecting again plugs it back in.");
}

} // namespace orv
