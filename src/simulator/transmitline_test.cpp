// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/transmitline.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

constexpr qint64 perMillisecond = 9600;

TEST(TransmitLine, NineHundredAndSixtyCharactersTakeExactlyOneSecond) {
    TransmitLine line(9600);
    line.send(QByteArray(1000, 'x'), 0);
    line.advance(1000 * perMillisecond - 1);
    EXPECT_EQ(line.arrivedCount(), 959);
    line.advance(1000 * perMillisecond);
    EXPECT_EQ(line.arrivedCount(), 960);
    EXPECT_EQ(line.nextArrival(), 1000 * perMillisecond + 10000);
}

TEST(TransmitLine, TheFirstCharacterTakesItsOwnTime) {
    TransmitLine line(9600);
    line.send("ab", 5 * perMillisecond);
    line.advance(6 * perMillisecond);
    EXPECT_EQ(line.arrivedCount(), 0);
    line.advance(7 * perMillisecond);
    EXPECT_EQ(line.takeArrived(), "a");
    EXPECT_EQ(line.takeArrived(), "");
    line.advance(8 * perMillisecond);
    EXPECT_EQ(line.takeArrived(), "b");
    EXPECT_EQ(line.nextArrival(), std::nullopt);
}

TEST(TransmitLine, PollingEveryFiveMillisecondsForAnHourDoesNotDrift) {
    TransmitLine line(9600);
    qint64 arrived = 0;
    line.send(QByteArray(96, 'x'), 0);
    for (qint64 millisecond = 5; millisecond <= 3'600'000; millisecond += 5) {
        line.advance(millisecond * perMillisecond);
        arrived += line.takeArrived().size();
        // Kept fed, as a dump does.
        if (line.drainedAt() < (millisecond + 50) * perMillisecond) {
            line.send(QByteArray(96, 'x'), millisecond * perMillisecond);
        }
    }
    EXPECT_EQ(arrived, 3600 * 960);
}

TEST(TransmitLine, AnOddBaudRateIsExactToo) {
    TransmitLine line(1234);
    line.send(QByteArray(1234, 'x'), 0);
    line.advance(10'000 * line.ticksPerMillisecond() - 1);
    EXPECT_EQ(line.arrivedCount(), 1233);
    line.advance(10'000 * line.ticksPerMillisecond());
    EXPECT_EQ(line.arrivedCount(), 1234);
}

TEST(TransmitLine, WithoutAPaceEverythingArrivesAtOnce) {
    TransmitLine line(0);
    line.send("abc", 7);
    EXPECT_EQ(line.takeArrived(), "abc");
    EXPECT_EQ(line.drainedAt(), 7);
}

TEST(TransmitLine, AbandonedCharactersDoNotArriveAndDoNotHoldUpLaterOnes) {
    TransmitLine line(9600);
    line.send(QByteArray(960, 'x'), 0);
    line.abandon(10 * perMillisecond);
    line.send("y", 10 * perMillisecond);
    line.advance(12 * perMillisecond);
    EXPECT_EQ(line.takeArrived(), "xxxxxxxxxy");
}

} // namespace
} // namespace orv
