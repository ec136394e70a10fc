// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentclock.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

constexpr qint64 second = 1000;
constexpr qint64 hour = 3600 * second;

TEST(InstrumentClock, RunsFromTheComputersTime) {
    const InstrumentClock clock(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15, 400)), 5000);
    EXPECT_EQ(clock.at(5000).text(), "11/21/26\t25661");
    EXPECT_EQ(clock.at(5000 + 4 * second).text(), "11/21/26\t25664");
    EXPECT_EQ(clock.at(5000 + 24 * hour).text(), "11/22/26\t25661");
}

TEST(InstrumentClock, CountsSixtyFourThousandEightHundredADay) {
    InstrumentClock clock(QDateTime(QDate(2026, 1, 1), QTime(0, 0)), 0);
    EXPECT_EQ(clock.at(0).text(), "01/01/26\t0");
    EXPECT_EQ(clock.at(hour).text(), "01/01/26\t2700");
    EXPECT_EQ(clock.at(12 * hour).text(), "01/01/26\t32400");
    EXPECT_EQ(clock.at(24 * hour - second).text(), "01/01/26\t64799");
}

TEST(InstrumentClock, RunsFromWhatItWasSetTo) {
    InstrumentClock clock(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)), 0);
    clock.set("010599", "1507", 1000);
    EXPECT_EQ(clock.at(1000).text(), "01/05/99\t40815");
    EXPECT_EQ(clock.at(1000 + 9 * hour).text(), "01/06/99\t315");
}

TEST(InstrumentClock, YearsBelowThirtyAreOfThisCentury) {
    InstrumentClock clock(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)), 0);
    clock.set("022900", "0000", 0);
    EXPECT_EQ(clock.at(0).text(), "02/29/00\t0");
    clock.set("022830", "2359", 0);
    EXPECT_EQ(clock.at(second * 60).text(), "03/01/30\t0");
}

TEST(InstrumentClock, WhatIsNoDateOrTimeLeavesItAsItWas) {
    InstrumentClock clock(QDateTime(QDate(2026, 11, 21), QTime(0, 0)), 0);
    clock.set("023026", "1200", 0);
    clock.set("000000", "1200", 0);
    clock.set("010126", "2400", 0);
    clock.set("010126", "1260", 0);
    EXPECT_EQ(clock.at(0).text(), "11/21/26\t0");
}

} // namespace
} // namespace orv
