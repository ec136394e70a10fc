// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/statustimer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(StatusTimer, standsStillUntilItIsEnabled) {
    StatusTimer timer([] {});
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(timer.interval(), 5);
    timer.enable();
    EXPECT_TRUE(timer.isRunning());
}

TEST(StatusTimer, ticksAgainAndAgain) {
    int ticks = 0;
    StatusTimer timer([&ticks] { ++ticks; });
    timer.enable();
    const QDeadlineTimer limit(2000);
    while (ticks < 3 && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    EXPECT_GE(ticks, 3);
}

TEST(StatusTimer, keepsItsIntervalWhenItIsEnabledAgain) {
    StatusTimer timer([] {});
    timer.setInterval(StatusTimer::slowInterval);
    timer.enable();
    EXPECT_EQ(timer.interval(), 10);
}

TEST(StatusTimer, isStoppedByAnIntervalOfZeroAndStartedByTheNextOne) {
    StatusTimer timer([] {});
    timer.enable();
    timer.setInterval(0);
    EXPECT_FALSE(timer.isRunning());
    timer.enable();
    EXPECT_FALSE(timer.isRunning());
    timer.setInterval(StatusTimer::normalInterval);
    EXPECT_TRUE(timer.isRunning());
}

} // namespace
} // namespace orv
