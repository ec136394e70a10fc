// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QDeadlineTimer>

namespace orv {

/// The program's only source of time. Handed in to whoever needs it, so that tests can set it.
class Clock {
public:
    virtual ~Clock() = default;

    /// The computer's local date and time.
    virtual QDateTime now() const = 0;

    /// Milliseconds of a clock that never jumps; only differences mean anything.
    virtual qint64 monotonicMilliseconds() const = 0;

    /// Seconds since local midnight, with fractions, in single precision; falls back to 0 at midnight.
    float secondsSinceMidnight() const { return static_cast<float>(now().time().msecsSinceStartOfDay() / 1000.0); }
};

/// The computer's own clocks.
class SystemClock final : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
    qint64 monotonicMilliseconds() const override { return QDeadlineTimer::current(Qt::PreciseTimer).deadline(); }
};

} // namespace orv
