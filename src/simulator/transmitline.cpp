// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/transmitline.h"

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr qint64 bitsPerCharacter = 10;
constexpr qint64 millisecondsOfASecond = 1000;

} // namespace

TransmitLine::TransmitLine(int baud)
    : ticksPerMillisecond_(baud == 0 ? 1 : baud)
    , ticksPerCharacter_(baud == 0 ? 0 : bitsPerCharacter * millisecondsOfASecond) {}

void TransmitLine::send(const QByteArray& bytes, qint64 now) {
    advance(now);
    drainedAt_ = std::max(drainedAt_, now) + bytes.size() * ticksPerCharacter_;
    queued_ += bytes;
    advance(now);
}

void TransmitLine::advance(qint64 now) {
    const std::optional<qint64> next = nextArrival();
    if (!next || *next > now) {
        return;
    }
    qsizetype count = queued_.size();
    if (now < drainedAt_) {
        count = (now - *next) / ticksPerCharacter_ + 1;
    }
    arrived_ += queued_.left(count);
    queued_.remove(0, count);
}

void TransmitLine::abandon(qint64 now) {
    advance(now);
    queued_.clear();
    drainedAt_ = std::min(drainedAt_, now);
}

std::optional<qint64> TransmitLine::nextArrival() const {
    if (queued_.isEmpty()) {
        return std::nullopt;
    }
    return drainedAt_ - (queued_.size() - 1) * ticksPerCharacter_;
}

QByteArray TransmitLine::takeArrived() {
    return std::exchange(arrived_, {});
}

} // namespace orv
