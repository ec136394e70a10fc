// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/observe.h"
#include "link/comports.h"

#include <QTimer>

namespace orv {

/// The two ways in which a waiting procedure lets the rest of the program live.
class EventYield {
public:
    virtual ~EventYield() = default;

    /// Processes every pending event once; if there is none, sleeps until one arrives, at most `milliseconds`.
    /// Timer ticks and handlers run inside.
    virtual void processEvents(int milliseconds) = 0;

    /// Called by loops that do not yield: lets the windows repaint and answer the window system, but handles no
    /// input of the operator, except that of the Manual Connection dialog when `manualDialogLives`.
    virtual void keepResponsive(bool manualDialogLives) = 0;

    /// The operator has ended the program: waits return at once so that everything can unwind.
    virtual bool programEnding() const = 0;
};

/// The one way in which the program waits and lets the user interface run.
class TimedWait {
public:
    TimedWait(const Clock& clock, EventYield& events, const ComPorts& ports);

    /// Waits for `seconds` (fractions allowed) on the clock of seconds since midnight, processing events meanwhile;
    /// 0 returns without yielding. A wait that runs across midnight never ends, because the clock falls back to 0.
    /// Returns early only when the program is ending.
    void waitsec(float seconds);

    /// Waits like waitsec, but no longer than the instrument's connection lasts, and tells whether that is still the
    /// one from before the wait. If not, the caller's procedure has been overtaken by a reset, a close or a failure
    /// and must end without sending.
    [[nodiscard]] bool waitConnected(float seconds);

private:
    template <typename Ended>
    void waitUnless(float seconds, Ended ended);

    const Clock& clock_;
    EventYield& events_;
    const ComPorts& ports_;
};

/// `Timer1`: the one periodic timer that drives everything while the program waits for the instrument.
class StatusTimer {
public:
    static constexpr int normalInterval = 5; ///< Milliseconds.
    static constexpr int slowInterval = 10;  ///< Milliseconds, after settings were sent or the clock was set.

    StatusTimer() {
        timer_.setObjectName(QStringLiteral("Timer1"));
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(normalInterval);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick.tell(); });
    }

    Signal<> tick;

    /// Lets the timer run at its interval; an interval of 0 keeps it still.
    void enable() { setInterval(interval_); }

    /// Milliseconds between ticks; 0 stops the timer.
    void setInterval(int milliseconds) {
        interval_ = milliseconds;
        if (milliseconds == 0) {
            timer_.stop();
        } else {
            timer_.start(milliseconds);
        }
    }

    int interval() const { return interval_; }
    bool isRunning() const { return timer_.isActive(); }

private:
    QTimer timer_;
    int interval_ = normalInterval;
};

} // namespace orv
