// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QDateTime>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orv {

/// Calls that are due at a moment.
class Alarms {
public:
    /// Has `call` called at that moment, unless the last copy of what is returned has gone before.
    [[nodiscard]] Subscription add(qint64 due, std::function<void()> call);

    /// When the next one is due; nothing if there is none.
    std::optional<qint64> next();

    /// Calls what is due by now, each once, in the order of their moments; also what is added meanwhile, unless it is
    /// due later.
    void callDue(qint64 now);

private:
    struct Alarm {
        qint64 due;
        std::function<void()> call;
    };

    std::shared_ptr<Alarm> earliest();

    std::vector<std::weak_ptr<Alarm>> alarms_; ///< In the order in which they were added.
};

/// The program's only source of time. Handed in to whoever needs it, so that tests can set it.
class Clock {
public:
    virtual ~Clock() = default;

    /// The computer's local date and time.
    virtual QDateTime now() const = 0;

    /// Milliseconds of a clock that never jumps; only differences mean anything.
    virtual qint64 monotonicMilliseconds() const = 0;

    /// Has `call` called once from the event loop, so many milliseconds from now, unless the last copy of what is
    /// returned has gone before.
    [[nodiscard]] virtual Subscription callAfter(qint64 milliseconds, std::function<void()> call) = 0;

    /// Seconds since local midnight, with fractions, in single precision; falls back to 0 at midnight.
    float secondsSinceMidnight() const;
};

/// The computer's own clocks.
class SystemClock final : public Clock {
public:
    SystemClock();
    ~SystemClock() override;
    SystemClock(const SystemClock&) = delete;
    SystemClock& operator=(const SystemClock&) = delete;

    QDateTime now() const override;
    qint64 monotonicMilliseconds() const override;
    [[nodiscard]] Subscription callAfter(qint64 milliseconds, std::function<void()> call) override;

private:
    class Timer;

    std::unique_ptr<Timer> timer_;
};

} // namespace orv
