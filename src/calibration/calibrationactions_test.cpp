// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibrationactions.h"

#include "calibration/calibrationbench.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(CalibrationActions, ABatchOfTwoFromTheSheetToItsReports) {
    const QTemporaryDir folder;
    CalibrationBench bench;
    bench.add("SN 1", LightColour::Red);
    bench.add("SN 2", LightColour::Green);
    CalibrationBench::fill(bench.panel.reference, "10 20 30/1 2 3/0 0 0/0 0 0/0 0 0");

    bench.actions.select(0);
    bench.fillSheet({QStringLiteral("50 60 70")});
    bench.panel.selectedRow = 1;
    bench.actions.calcdp();
    bench.panel.selectedRow = 2;
    bench.actions.calcdp();
    bench.actions.next();
    EXPECT_EQ(bench.panel.colour.value(), LightColour::Green);
    EXPECT_EQ(bench.panel.worksheet.at(1, 0).value().toStdString(), "0");

    bench.actions.next();
    EXPECT_EQ(bench.panel.colour.value(), LightColour::Red);
    bench.answers.fileName = folder.filePath(QStringLiteral("one.Txt"));
    bench.actions.saveCalInfo();
    QFile report(bench.answers.fileName);
    ASSERT_TRUE(report.open(QIODevice::ReadOnly));
    const QByteArray bytes = report.readAll();
    EXPECT_TRUE(bytes.contains("\t650\r\nClean \t20\r\nPoint 1 \t2\r\n"));
    EXPECT_TRUE(bytes.contains("Sensor # SN 1 Red\r\n"));
    EXPECT_TRUE(bytes.contains("Clean  \t50\t60\t70\r\r\nPoint 1\t50\t60\t70\r\r\n"));
    EXPECT_TRUE(bench.messages.shown.empty());
}

} // namespace
} // namespace orv
