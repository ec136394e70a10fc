// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"

namespace orv {

/// A clock that stands still until a test moves it.
class TestClock final : public Clock {
public:
    explicit TestClock(const QDateTime& start = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)))
        : start_(start) {}

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 monotonicMilliseconds() const override { return elapsed_; }

    void advance(qint64 milliseconds) { elapsed_ += milliseconds; }

private:
    QDateTime start_;
    qint64 elapsed_ = 0;
};

} // namespace orv
