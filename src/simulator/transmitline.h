// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

namespace orv {

/// The line from the instrument to the host: what is sent arrives at the pace of the line, ten bits a character.
///
/// Time is counted in ticks, a whole number of which make a millisecond and a character, so that no rounding adds up.
/// Every call takes a time that is not before the one of the call before it.
class TransmitLine {
public:
    /// `baud` 0: every character arrives at the moment it is sent.
    explicit TransmitLine(int baud);

    qint64 ticksPerMillisecond() const { return ticksPerMillisecond_; }

    /// Queues bytes after those still on their way.
    void send(const QByteArray& bytes, qint64 now);

    /// Moves what has arrived by now to the host's end.
    void advance(qint64 now);

    /// Drops what has not arrived by now.
    void abandon(qint64 now);

    /// When everything sent so far will have arrived; in the past if it has.
    qint64 drainedAt() const { return drainedAt_; }

    /// When the next character arrives; nothing if none is on its way.
    std::optional<qint64> nextArrival() const;

    qsizetype arrivedCount() const { return arrived_.size(); }

    /// Removes and returns what has arrived.
    QByteArray takeArrived();

private:
    qint64 ticksPerMillisecond_;
    qint64 ticksPerCharacter_;
    qint64 drainedAt_ = 0;
    QByteArray queued_;
    QByteArray arrived_;
};

} // namespace orv
