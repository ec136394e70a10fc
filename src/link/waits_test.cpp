// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/waits.h"

#include "testing/programrig.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace orv {

namespace {

class TimedWaitTest : public ProgramTest {
protected:
    void startAt(QTime time) { clock = TestClock(QDateTime(QDate(2026, 11, 21), time)); }
};

TEST_F(TimedWaitTest, returnsAfterTheSecondsOfClockTime) {
    startAt(QTime(1, 0));
    const qint64 start = clock.monotonicMilliseconds();
    wait.waitsec(1.0F);
    EXPECT_EQ(clock.monotonicMilliseconds() - start, 1000);
    EXPECT_EQ(events.yields, 200);
}

TEST_F(TimedWaitTest, takesFractionsOfASecond) {
    startAt(QTime(1, 0));
    wait.waitsec(0.25F);
    EXPECT_EQ(clock.monotonicMilliseconds(), 250);
}

TEST_F(TimedWaitTest, neverReturnsEarlyAndAtMostAClockStepLate) {
    for (const QTime time : {QTime(0, 0), QTime(9, 30, 15, 7), QTime(18, 0, 0, 333), QTime(23, 59, 50, 1)}) {
        SCOPED_TRACE(time.toString().toStdString());
        startAt(time);
        wait.waitsec(0.2F);
        // Late in the day a single-precision count of seconds moves in steps of 8 ms.
        EXPECT_GE(clock.monotonicMilliseconds(), 192);
        EXPECT_LE(clock.monotonicMilliseconds(), 215);
    }
}

TEST_F(TimedWaitTest, doesNotYieldForZeroSeconds) {
    wait.waitsec(0.0F);
    EXPECT_EQ(events.yields, 0);
    wait.waitsec(-1.0F);
    EXPECT_EQ(events.yields, 0);
}

TEST_F(TimedWaitTest, sleepsForTheRestOfTheWaitWhenNothingHappens) {
    events.step = 100000;
    startAt(QTime(1, 0));
    wait.waitsec(0.5F);
    EXPECT_EQ(events.yields, 1);
    EXPECT_EQ(clock.monotonicMilliseconds(), 500);
    wait.waitsec(2.5F);
    EXPECT_EQ(events.yields, 4) << "no sleep is longer than a second";
    EXPECT_EQ(clock.monotonicMilliseconds(), 3000);
}

TEST_F(TimedWaitTest, neverReturnsAcrossMidnight) {
    startAt(QTime(23, 59, 59, 500));
    events.step = 1000;
    qint64 ended = 0;
    events.tick = [&] {
        if (events.yields == 200000) { // more than two days
            events.ending = true;
            ended = clock.monotonicMilliseconds();
        }
    };
    wait.waitsec(1.0F);
    EXPECT_TRUE(events.ending);
    EXPECT_EQ(clock.monotonicMilliseconds(), ended);
    EXPECT_EQ(events.yields, 200000);
}

TEST_F(TimedWaitTest, returnsWhenItEndsBeforeMidnight) {
    startAt(QTime(23, 59, 58));
    events.step = 100;
    wait.waitsec(1.0F);
    EXPECT_GE(clock.monotonicMilliseconds(), 990);
    EXPECT_LE(clock.monotonicMilliseconds(), 1100);
}

TEST_F(TimedWaitTest, returnsAtOnceWhenTheProgramIsEnding) {
    events.tick = [this] { events.ending = events.yields == 3; };
    wait.waitsec(10.0F);
    EXPECT_EQ(events.yields, 3);
    EXPECT_FALSE(wait.waitConnected(10.0F));
    EXPECT_EQ(events.yields, 3);
}

TEST_F(TimedWaitTest, tellsThatTheConnectionHasLasted) {
    ports.open();
    EXPECT_TRUE(wait.waitConnected(0.1F));
    EXPECT_EQ(clock.monotonicMilliseconds() / 10, 10);
    EXPECT_TRUE(wait.waitConnected(0.0F));
}

TEST_F(TimedWaitTest, endsWithTheConnection) {
    ports.open();
    events.tick = [this] {
        if (events.yields == 2) {
            ports.close();
        }
    };
    EXPECT_FALSE(wait.waitConnected(1.0F));
    EXPECT_EQ(events.yields, 2);
}

TEST_F(TimedWaitTest, tellsAConnectionThatWasClosedAndOpenedAgainApart) {
    ports.open();
    events.tick = [this] {
        if (events.yields == 2) {
            ports.close();
            ports.open();
        }
    };
    EXPECT_FALSE(wait.waitConnected(1.0F));
    EXPECT_TRUE(ports.isOpen());
}

TEST_F(TimedWaitTest, waitsItsFullTimeWithoutWatchingTheConnectionWhenNotAsked) {
    ports.open();
    events.tick = [this] { ports.close(); };
    startAt(QTime(1, 0));
    wait.waitsec(0.5F);
    EXPECT_EQ(clock.monotonicMilliseconds(), 500);
}

} // namespace

namespace {

TEST(StatusTimer, standsStillUntilItIsEnabled) {
    StatusTimer timer;
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(timer.interval(), 5);
    timer.enable();
    EXPECT_TRUE(timer.isRunning());
}

TEST(StatusTimer, ticksAgainAndAgain) {
    int ticks = 0;
    StatusTimer timer;
    const auto counting = timer.tick.subscribe([&ticks] { ++ticks; });
    timer.enable();
    const QDeadlineTimer limit(2000);
    while (ticks < 3 && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    EXPECT_GE(ticks, 3);
}

TEST(StatusTimer, keepsItsIntervalWhenItIsEnabledAgain) {
    StatusTimer timer;
    timer.setInterval(StatusTimer::slowInterval);
    timer.enable();
    EXPECT_EQ(timer.interval(), 10);
}

TEST(StatusTimer, isStoppedByAnIntervalOfZeroAndStartedByTheNextOne) {
    StatusTimer timer;
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
