// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentmemory.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <cstdlib>

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

constexpr InstrumentMoment noon{1'795'262'400}; // 11/21/26 12:00:00

SimulatorOptions optionsOf(const char* device) {
    return parseSimulatorOptions(QString::fromLatin1(device)).options;
}

QByteArrayList fields(const QByteArray& line) {
    EXPECT_TRUE(line.endsWith("\r\n"));
    return line.chopped(2).split('\t');
}

TEST(DataLine, HasTheLayoutOfTypeAndFirmware) {
    EXPECT_EQ(fields(dataLine(optionsOf("sim:glow"), {noon, 0})).size(), 3);
    EXPECT_EQ(fields(dataLine(optionsOf("sim:trx?firmware=499"), {noon, 0})).size(), 8);
    EXPECT_EQ(fields(dataLine(optionsOf("sim:trx?firmware=500"), {noon, 0})).size(), 6);
}

TEST(DataLine, PutsEachAnglesReferenceBehindItOrOneAtTheEnd) {
    const auto isReference = [](const QByteArray& value) { return value.toInt() > 30000; };
    const QByteArrayList older = fields(dataLine(optionsOf("sim:trx?firmware=412"), {noon, 7}));
    const QByteArrayList newer = fields(dataLine(optionsOf("sim:trx?firmware=512"), {noon, 7}));
    for (const qsizetype index : {2, 4, 6}) {
        EXPECT_FALSE(isReference(older.at(index)));
        EXPECT_TRUE(isReference(older.at(index + 1)));
    }
    for (const qsizetype index : {2, 3, 4}) {
        EXPECT_FALSE(isReference(newer.at(index)));
    }
    EXPECT_TRUE(isReference(newer.at(5)));
}

TEST(DataLine, BeginsWithDateAndCount) {
    EXPECT_TRUE(dataLine(optionsOf("sim:glow"), {noon, 0}).startsWith("11/21/26\t32400\t"));
}

TEST(DataLine, ReadingsVarySlowlyAndFollowFromTheSeed) {
    const SimulatorOptions options = optionsOf("sim:trx");
    QByteArrayList before = fields(dataLine(options, {noon, 0}));
    for (quint32 number = 1; number < 2000; ++number) {
        const QByteArrayList now = fields(dataLine(options, {noon, number}));
        for (qsizetype index = 2; index < now.size(); ++index) {
            EXPECT_LT(std::abs(now.at(index).toInt() - before.at(index).toInt()), 40);
            EXPECT_GT(now.at(index).toInt(), 0);
            EXPECT_LT(now.at(index).toInt(), 65535);
        }
        before = now;
    }
    EXPECT_EQ(dataLine(options, {noon, 5}), dataLine(optionsOf("sim:trx?seed=1"), {noon, 5}));
    EXPECT_NE(dataLine(options, {noon, 5}), dataLine(optionsOf("sim:trx?seed=2"), {noon, 5}));
}

TEST(InstrumentMemory, HasOneEarlierRecordAMinute) {
    const InstrumentMemory memory(3, noon);
    EXPECT_EQ(memory.count(), 3);
    EXPECT_EQ(memory.at(0).moment.seconds, noon.seconds - 180);
    EXPECT_EQ(memory.at(2).moment.seconds, noon.seconds - 60);
    EXPECT_EQ(memory.at(2).number, 2U);
}

TEST(InstrumentMemory, AppendsAndErases) {
    InstrumentMemory memory(1, noon);
    memory.append({{42}, 9});
    EXPECT_EQ(memory.count(), 2);
    EXPECT_EQ(memory.at(1).moment.seconds, 42);
    EXPECT_EQ(memory.at(1).number, 9U);
    memory.erase();
    EXPECT_EQ(memory.count(), 0);
    memory.append({{43}, 10});
    EXPECT_EQ(memory.at(0).number, 10U);
}

TEST(InstrumentMemory, DropsPointsWhenFull) {
    InstrumentMemory memory(65524, noon);
    memory.append({noon, 1});
    memory.append({noon, 2});
    EXPECT_EQ(memory.count(), InstrumentMemory::capacity);
    EXPECT_EQ(memory.at(65524).number, 1U);
}

} // namespace
} // namespace orv
