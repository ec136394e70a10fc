// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedport.h"

#include <algorithm>

namespace orv {

SimulatedPort::SimulatedPort(const SimulatorOptions& options, Clock& clock)
    : clock_(clock)
    , mayBeUnplugged_(options.fault == SimulatedFault::Unplug)
    , instrument_(std::make_unique<SimulatedInstrument>(options, clock))
    , handedOverAt_(clock.monotonicMilliseconds() - handOverInterval) {}

Words SimulatedPort::open() {
    if (!open_) {
        instrument_->plugIn();
        open_ = true;
        inputTold_ = false;
        failureTold_ = false;
    }
    return {};
}

void SimulatedPort::close() {
    if (open_) {
        instrument_->sleep();
        open_ = false;
        alarm_.reset();
    }
}

void SimulatedPort::setDataTerminalReady(bool on) {
    if (open_) {
        instrument_->setWakeLine(on);
        watch();
    }
}

QByteArray SimulatedPort::readAll() {
    if (!open_) {
        return {};
    }
    QByteArray arrived = instrument_->takeArrived();
    inputTold_ = false;
    watch();
    return arrived;
}

void SimulatedPort::write(const QByteArray& bytes) {
    if (open_) {
        instrument_->receive(bytes);
        watch();
    }
}

QByteArray SimulatedPort::discardInput() {
    QByteArray dropped;
    while (inputCount() > 0) {
        dropped += readAll();
    }
    return dropped;
}

/// Has the instrument looked at when there may be something to tell.
void SimulatedPort::watch() {
    alarm_.reset();
    if (failureTold_ || (inputTold_ && !mayBeUnplugged_)) {
        return;
    }
    const qint64 now = clock_.monotonicMilliseconds();
    std::optional<qint64> next = instrument_->nextChange();
    if (instrument_->isUnplugged()) {
        next = now;
    }
    if (next) {
        const qint64 due = std::max({*next, handedOverAt_ + handOverInterval, now});
        alarm_ = clock_.callAfter(due - now, [this] { look(); });
    }
}

void SimulatedPort::look() {
    const bool hasInput = instrument_->arrivedCount() > 0;
    handedOverAt_ = hasInput ? clock_.monotonicMilliseconds() : handedOverAt_;
    const bool hasFailed = instrument_->isUnplugged();
    const bool news = (hasInput && !inputTold_) || hasFailed;
    inputTold_ = hasInput;
    failureTold_ = hasFailed;
    watch();
    if (news) {
        stirred.tell(); // at the end: whoever is told may do anything with the port
    }
}

Words SimulatedPort::failure() const {
    if (!instrument_->isUnplugged()) {
        return {};
    }
    return Words::tr("The cable of the simulated instrument was pulled out. Connecting again plugs it back in.");
}

} // namespace orv
