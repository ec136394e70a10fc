// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"

#include <QElapsedTimer>

namespace orv {

/// A clock that stands still until a test moves it. The day of a test stands still in any case; the time that never
/// jumps can also run by itself.
class TestClock final : public Clock {
public:
    explicit TestClock(const QDateTime& start = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)))
        : start_(start) {}

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 monotonicMilliseconds() const override { return elapsed_ + (running_.isValid() ? running_.elapsed() : 0); }

    void advance(qint64 milliseconds) { elapsed_ += milliseconds; }
    void run() { running_.start(); }

private:
    QDateTime start_;
    qint64 elapsed_ = 0;
    QElapsedTimer running_;
};

} // namespace orv
