// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shuttersettings.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(ShutterSettings, ShownAndPutBack) {
    LoggerSettings record;
    record.append = true;
    record.gain = true;
    record.hoursBeforeBlock = QStringLiteral("24");
    record.samplesPerPoint = QStringLiteral("210");
    record.secondsBetweenPoints = QStringLiteral("3600");
    record.pointsPerBlock = QStringLiteral("60000");
    const ShutterSettings remembered = ShutterSettings::shown(record);

    ShutterSettings::temporary().show(record);
    for (const bool flag : {record.append.value(), record.logEnabled.value(), record.wakeUp.value(),
                            record.auxAdc.value(), record.gain.value(), record.autoStart.value()}) {
        EXPECT_FALSE(flag);
    }
    EXPECT_EQ(record.hoursBeforeBlock.value().toStdString(), "0");
    EXPECT_EQ(record.samplesPerPoint.value().toStdString(), "1");
    EXPECT_EQ(record.secondsBetweenPoints.value().toStdString(), "0");
    EXPECT_EQ(record.pointsPerBlock.value().toStdString(), "1");

    remembered.show(record);
    EXPECT_EQ(ShutterSettings::shown(record), remembered);
    EXPECT_TRUE(record.append);
    EXPECT_TRUE(record.gain);
    EXPECT_FALSE(record.wakeUp);
    EXPECT_EQ(record.hoursBeforeBlock.value().toStdString(), "24");
    EXPECT_EQ(record.samplesPerPoint.value().toStdString(), "210");
    EXPECT_EQ(record.secondsBetweenPoints.value().toStdString(), "3600");
    EXPECT_EQ(record.pointsPerBlock.value().toStdString(), "60000");
}

TEST(ShutterSettings, EachFlagIsItsOwn) {
    for (QProperty<bool> LoggerSettings::*flag :
         {&LoggerSettings::append, &LoggerSettings::logEnabled, &LoggerSettings::wakeUp, &LoggerSettings::auxAdc,
          &LoggerSettings::gain, &LoggerSettings::autoStart}) {
        LoggerSettings record;
        record.*flag = true;
        const ShutterSettings remembered = ShutterSettings::shown(record);
        ShutterSettings::temporary().show(record);
        EXPECT_FALSE((record.*flag).value());
        remembered.show(record);
        EXPECT_TRUE((record.*flag).value());
        EXPECT_EQ(ShutterSettings::shown(record), remembered);
    }
}

TEST(ShutterSettings, InWords) {
    EXPECT_EQ(
        ShutterSettings::temporary().text().toStdString(),
        "no control bit; samples per point 1, points per block 1, seconds between points 0, hours before a block 0");
    ShutterSettings settings;
    settings.flags = {true, false, true, false, false, false};
    settings.numbers = {QStringLiteral("10"), QString(), QStringLiteral("5"), QStringLiteral("0")};
    EXPECT_EQ(settings.text().toStdString(), "Append, Wake Up; samples per point 10, points per block none, seconds "
                                             "between points 5, hours before a block 0");
}

} // namespace
} // namespace orv
