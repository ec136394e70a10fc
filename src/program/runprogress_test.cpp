// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/runprogress.h"

#include "testing/programrig.h"

namespace orv {
namespace {

class RunProgressTest : public ProgramTest {
protected:
    std::string text() const { return program.progress.text.value().toStdString(); }
    std::string late() const { return program.progress.late.value().toStdString(); }
    std::string step() const { return program.nextStep.text.value().toStdString(); }

    /// Settings of the instrument, not of the boxes.
    void letItHave(const char* hoursBeforeBlock, const char* secondsBetweenPoints) {
        LoggerSettings reported = settings.reported.value().value();
        reported.hoursBeforeBlock = QString::fromLatin1(hoursBeforeBlock);
        reported.secondsBetweenPoints = QString::fromLatin1(secondsBetweenPoints);
        settings.reported = reported;
    }

    void run(const QByteArray& pointsPerBlock = "0") {
        connectAndRead("V512\r", pointsPerBlock);
        letItHave("0", "0");
        program.run();
        receive("R\r\n");
    }

    void receiveRow() { receive("11/21/26\t2700\t10\t20\t30\t40\r\n"); }

    /// Rows so many seconds apart.
    void receiveRows(int count, double apart) {
        for (int row = 0; row < count; ++row) {
            live(apart);
            receiveRow();
        }
    }
};

TEST_F(RunProgressTest, TellsTheTimeAndTheRate) {
    EXPECT_EQ(text(), "");
    run();
    EXPECT_EQ(text(), "0 s");
    live(1.0);
    EXPECT_EQ(text(), "1 s");
    receiveRow();
    live(1.0);
    EXPECT_EQ(text(), "2 s");
    receiveRows(78, 0.125);
    live(1.25);
    EXPECT_EQ(text(), "13 s, 8.0 rows/s");
    receiveRows(50, 1.0);
    EXPECT_EQ(text(), "1 min 3 s, 1.0 rows/s");
    program.closePort();
    EXPECT_EQ(text(), "");
}

TEST_F(RunProgressTest, OfABoundedBlockItTellsWhatIsLeft) {
    run("60");
    receiveRows(12, 1.0);
    live(0.5);
    EXPECT_EQ(text(), "12 s, 1.0 rows/s, 11 of 60, 49 s left");
    live(0.5);
    EXPECT_EQ(text(), "13 s, 1.0 rows/s, 12 of 60, 48 s left");
}

TEST_F(RunProgressTest, OfMoreRowsThanTheBlockHasNoneIsLeft) {
    run("2");
    receiveRows(3, 1.0);
    live(1.0);
    EXPECT_EQ(text(), "4 s, 1.0 rows/s");
}

TEST_F(RunProgressTest, WhatIsTypedAndNotSentDoesNotCount) {
    connectAndRead("V512\r", "60");
    letItHave("0", "0");
    change(settings.record, [](LoggerSettings& record) { record.pointsPerBlock = QStringLiteral("12"); });
    program.run();
    receive("R\r\n");
    receiveRows(12, 1.0);
    live(1.0);
    EXPECT_EQ(text(), "13 s, 1.0 rows/s, 12 of 60, 48 s left");
}

TEST_F(RunProgressTest, SaysWhenARowIsLateByThreeIntervals) {
    run();
    receiveRows(10, 2.0);
    live(7.5);
    EXPECT_EQ(late(), "");
    EXPECT_EQ(step(), "Collecting. Reset ends the run.");
    live(1.5);
    EXPECT_EQ(late(), "No row for 9 s");
    EXPECT_EQ(text(), "29 s") << "the pace of before is none now";
    EXPECT_EQ(step(), "No row for 9 s. Reset ends the run.");
    live(1.0);
    EXPECT_EQ(late(), "No row for 10 s");
    receiveRow();
    EXPECT_EQ(late(), "") << "at once";
}

TEST_F(RunProgressTest, OfFastRowsASilenceOfSecondsCounts) {
    run();
    receiveRows(80, 0.0375);
    live(2.0);
    EXPECT_EQ(late(), "");
    live(3.0);
    EXPECT_NE(late(), "");
}

TEST_F(RunProgressTest, WaitsForTheFirstRowsAsLongAsTheSettingsSay) {
    connectAndRead();
    letItHave("1", "100");
    program.run();
    receive("R\r\n");
    live(3700.0);
    EXPECT_EQ(late(), "");
    live(12.0);
    EXPECT_EQ(late(), "No row for 1 h 1 min");
}

TEST_F(RunProgressTest, TellsThatNoRowHasComeYet) {
    const QProperty<bool>& noRowYet = program.progress.noRowYet;
    EXPECT_FALSE(noRowYet);
    for (const bool withRow : {true, false}) {
        run();
        EXPECT_TRUE(noRowYet);
        if (withRow) {
            receiveRow();
            EXPECT_FALSE(noRowYet);
        }
        program.closePort();
        EXPECT_FALSE(noRowYet);
    }
}

TEST_F(RunProgressTest, ADownloadToo) {
    connectAndRead();
    program.vwhp();
    receive("O\r\n11/21/26\t2700\t1\t20\t30\t40\r\n");
    ticks();
    live(1.0);
    EXPECT_EQ(text(), "1 s, 1 row");
    receive("EOF\r\n");
    ticks(2);
    EXPECT_EQ(text(), "");
}

TEST(RunProgressDisk, SaysWhenTheDiskIsNearlyFull) {
    ProgramRig rig;
    rig.freeSpace = 1'000'000'000;
    rig.connectAndRead();
    rig.program.run();
    EXPECT_EQ(rig.program.progress.disk.value().toStdString(), "");
    rig.freeSpace = 812'900'000;
    rig.live(9.0);
    EXPECT_EQ(rig.program.progress.disk.value().toStdString(), "") << "looked at every ten seconds";
    rig.live(1.0);
    EXPECT_EQ(rig.program.progress.disk.value().toStdString(), "812 MB are free on the disk");
    EXPECT_EQ(rig.program.nextStep.text.value().toStdString(),
              "Collecting. Reset ends the run. Only 812 MB are free on the disk.");
    rig.freeSpace = std::nullopt;
    rig.live(10.0);
    EXPECT_EQ(rig.program.progress.disk.value().toStdString(), "");
}

} // namespace
} // namespace orv
