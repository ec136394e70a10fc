// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentsettings.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

qint64 samplingTime(InstrumentKind kind, int samples) {
    InstrumentSettings settings;
    settings.samplesPerPoint = samples;
    return settings.samplingMilliseconds(kind);
}

TEST(InstrumentSettings, FlagsStandInTheirFixedOrder) {
    InstrumentSettings settings;
    settings.setFlags("100000");
    EXPECT_TRUE(settings.autoStart);
    EXPECT_FALSE(settings.append);
    settings.setFlags("011000");
    EXPECT_TRUE(settings.gain && settings.auxAdc);
    EXPECT_FALSE(settings.autoStart);
    settings.setFlags("000110");
    EXPECT_TRUE(settings.logEnabled && settings.wakeUp);
    settings.setFlags("000001");
    EXPECT_TRUE(settings.append);
    EXPECT_FALSE(settings.wakeUp);
}

TEST(InstrumentSettings, ReportHasItsOrder) {
    InstrumentSettings settings;
    settings.setFlags("101001");
    settings.samplesPerPoint = 30;
    settings.hoursBeforeBlock = 24;
    settings.pointsPerBlock = 65535;
    settings.secondsBetweenPoints = 7;
    EXPECT_EQ(settings.report(1234), "S1\r\nG0\r\nA1\r\nL0\r\nW0\r\nM1\r\nT30\r\nD24\r\nQ65535\r\nI7\r\nMP1234\r\n");
}

TEST(InstrumentSettings, ShutterNeedsItsOwnSettings) {
    InstrumentSettings settings;
    settings.setFlags("000000");
    settings.samplesPerPoint = 1;
    settings.pointsPerBlock = 1;
    EXPECT_TRUE(settings.allowShutter());
    for (const char letter : {'T', 'D', 'Q', 'I'}) {
        InstrumentSettings other = settings;
        *other.number(letter) = 2;
        EXPECT_FALSE(other.allowShutter()) << letter;
    }
    settings.setFlags("000001");
    EXPECT_FALSE(settings.allowShutter());
}

TEST(InstrumentSettings, PresetsGiveTheirRates) {
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 10), 500);
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 30), 1000);
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 100), 2000);
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 210), 4000);
    EXPECT_EQ(samplingTime(InstrumentKind::Glow, 25), 200);
    EXPECT_EQ(samplingTime(InstrumentKind::Glow, 55), 333);
    EXPECT_EQ(samplingTime(InstrumentKind::Glow, 90), 500);
    EXPECT_EQ(samplingTime(InstrumentKind::Glow, 200), 1000);
}

TEST(InstrumentSettings, OtherNumbersOfSamplesTakeWhatLiesBetween) {
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 0), 50);
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 1), 50);
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 20), 750);
    EXPECT_EQ(samplingTime(InstrumentKind::Trx, 420), 8000);
    EXPECT_EQ(samplingTime(InstrumentKind::Glow, 1), 8);
    EXPECT_EQ(samplingTime(InstrumentKind::Glow, 65535), 327675);
}

} // namespace
} // namespace orv
