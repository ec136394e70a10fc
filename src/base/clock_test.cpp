// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace orv {
namespace {

float secondsAt(QTime time) {
    return TestClock(QDateTime(QDate(2026, 11, 21), time)).secondsSinceMidnight();
}

TEST(Clock, countsSecondsFromMidnightWithFractions) {
    EXPECT_EQ(secondsAt(QTime(0, 0)), 0.0F);
    EXPECT_EQ(secondsAt(QTime(0, 0, 1, 500)), 1.5F);
    EXPECT_EQ(secondsAt(QTime(1, 0)), 3600.0F);
    EXPECT_EQ(secondsAt(QTime(12, 0, 0, 250)), 43200.25F);
    EXPECT_EQ(secondsAt(QTime(23, 59, 59, 500)), 86399.5F);
}

TEST(Clock, countsInSinglePrecision) {
    TestClock clock;
    static_assert(std::is_same_v<decltype(clock.secondsSinceMidnight()), float>);
    EXPECT_EQ(secondsAt(QTime(23, 59, 59, 1)), secondsAt(QTime(23, 59, 59, 2)));
    EXPECT_NE(secondsAt(QTime(0, 0, 59, 1)), secondsAt(QTime(0, 0, 59, 2)));
}

TEST(Clock, fallsBackToZeroAtMidnight) {
    TestClock clock(QDateTime(QDate(2026, 11, 21), QTime(23, 59, 59, 500)));
    clock.advance(500);
    EXPECT_EQ(clock.secondsSinceMidnight(), 0.0F);
    clock.advance(250);
    EXPECT_EQ(clock.secondsSinceMidnight(), 0.25F);
}

TEST(SystemClock, tellsTheComputersLocalTime) {
    const SystemClock clock;
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = clock.now();
    const QDateTime after = QDateTime::currentDateTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, after);
    EXPECT_EQ(now.timeSpec(), Qt::LocalTime);
}

TEST(SystemClock, hasAMonotonicClockInMilliseconds) {
    const SystemClock clock;
    const qint64 start = clock.monotonicMilliseconds();
    const QDateTime wallStart = clock.now();
    qint64 last = start;
    while (last - start < 20) {
        const qint64 now = clock.monotonicMilliseconds();
        ASSERT_GE(now, last);
        last = now;
        ASSERT_LT(wallStart.msecsTo(clock.now()), 5000) << "the monotonic clock stands still";
    }
    EXPECT_GE(wallStart.msecsTo(clock.now()), 15);
}

} // namespace
} // namespace orv
