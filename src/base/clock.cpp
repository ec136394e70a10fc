// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/clock.h"

#include <QDeadlineTimer>

namespace orv {

float Clock::secondsSinceMidnight() const {
    return static_cast<float>(now().time().msecsSinceStartOfDay() / 1000.0);
}

QDateTime SystemClock::now() const {
    return QDateTime::currentDateTime();
}

qint64 SystemClock::monotonicMilliseconds() const {
    return QDeadlineTimer::current(Qt::PreciseTimer).deadline();
}

} // namespace orv
