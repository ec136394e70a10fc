// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>

#include <functional>

namespace orv {

/// `Timer1`: the one periodic timer that drives everything while the program waits for the instrument.
class StatusTimer {
public:
    static constexpr int normalInterval = 5; ///< Milliseconds.
    static constexpr int slowInterval = 10;  ///< Milliseconds, after settings were sent or the clock was set.

    explicit StatusTimer(const std::function<void()>& tick) {
        timer_.setObjectName(QStringLiteral("Timer1"));
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(normalInterval);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, tick);
    }

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
