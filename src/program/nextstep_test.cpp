// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/nextstep.h"

#include "testing/programrig.h"

namespace orv {
namespace {

class NextStepTest : public ProgramTest {
protected:
    std::string step() const { return program.nextStep.text.value().toStdString(); }
};

TEST_F(NextStepTest, GoesWithTheOperatorFromThePortToTheSavedSheet) {
    EXPECT_EQ(step(), "Choose a port and press Connect.");
    program.connectPort(1);
    EXPECT_EQ(step(), "Waking the instrument on COM 1 (ttyA). This takes a few seconds.");
    live(1.5);
    com1.input = "V512\r";
    finish();
    EXPECT_EQ(step(), "Reading the instrument's settings.");
    receive(settingsReport());
    ticks(12);
    EXPECT_EQ(step(), "Press Run to collect. Reset ends a run.");
    program.run();
    EXPECT_EQ(step(), "Collecting. Reset ends the run.");
    receive("R\r\n11/21/26\t2700\t10\t20\t30\t40\r\n");
    ticks();
    EXPECT_EQ(step(), "Collecting. Reset ends the run.");
    program.closePort();
    EXPECT_EQ(step(), "1 row, not saved. Save As is on the page Output: Spread Sheet.");
    answers.fileName = path("sheet.txt");
    program.saveAs();
    EXPECT_EQ(step(), "Choose a port and press Connect.");
}

TEST_F(NextStepTest, SaysThatTheSheetHasRowsOfAnotherType) {
    runWithRows(2);
    program.closePort();
    connectAndRead("F310\r");
    const std::string sentence = "The sheet has rows of another type of instrument. Clear All is on the page Output: "
                                 "Spread Sheet.";
    EXPECT_EQ(step(), sentence);
    program.clearAll();
    EXPECT_EQ(step(), "Press Run to collect. Reset ends a run.");
    program.bringBack();
    EXPECT_EQ(step(), sentence);
    program.clearAll();
    program.closePort();
    connectAndRead();
    EXPECT_EQ(step(), "Press Run to collect. Reset ends a run.") << "no row is there";
}

TEST_F(NextStepTest, CountsTheRowsThatAreNotSaved) {
    runWithRows(3);
    receive(">\r\n");
    EXPECT_EQ(step(), "3 rows, not saved. Save As is on the page Output: Spread Sheet.");
}

TEST_F(NextStepTest, CountsOnlyTheRowsThatNoFileHasIfAFileHasTheOthers) {
    runWithRows(3);
    answers.fileName = path("sheet.txt");
    program.saveAs();
    receive("11/21/26\t2701\t10\t20\t30\t40\r\n");
    ticks();
    receive(">\r\n");
    EXPECT_EQ(step(), "1 of 4 rows, not saved. Save As is on the page Output: Spread Sheet.");
    program.clearAll();
    program.bringBack();
    EXPECT_EQ(step(), "1 of 4 rows, not saved. Save As is on the page Output: Spread Sheet.");
    program.closePort();
    program.openSheet();
    connectAndRead();
    program.run();
    receive("R\r\n11/21/26\t2700\t10\t20\t30\t40\r\n");
    ticks();
    program.closePort();
    EXPECT_EQ(step(), "1 of 4 rows, not saved. Save As is on the page Output: Spread Sheet.");
}

TEST_F(NextStepTest, RowsAfterAClearedOnesFileAreInNoFile) {
    runWithRows(3);
    answers.fileName = path("sheet.txt");
    program.saveAs();
    program.clearAll();
    program.closePort();
    runWithRows(5);
    program.closePort();
    EXPECT_EQ(step(), "5 rows, not saved. Save As is on the page Output: Spread Sheet.");
}

TEST_F(NextStepTest, RecoveredRowsAreInNoSheetFile) {
    LoadedSheet recorded;
    recorded.type = {.letter = QStringLiteral("V"), .firmware = 512};
    recorded.rows = {"1\t11/21/26\t1:00:00\t1\t2\t3\t4", "2\t11/21/26\t1:00:00\t1\t2\t3\t4"};
    program.sheet.rows.recover(recorded);
    EXPECT_EQ(step(), "2 rows, not saved. Save As is on the page Output: Spread Sheet.");
    connectAndRead();
    program.run();
    receive("R\r\n11/21/26\t2700\t10\t20\t30\t40\r\n");
    ticks();
    program.closePort();
    EXPECT_EQ(step(), "3 rows, not saved. Save As is on the page Output: Spread Sheet.");
}

TEST_F(NextStepTest, SaysAFailureUntilItsPortHasAnotherDevice) {
    runWithRows(3);
    com1.unplugged = true;
    live(1.0);
    EXPECT_EQ(step(), "COM 1 (ttyA) was lost. Check the cable, then press Connect. 3 rows, not saved.");
    program.link.portChoices.choose(2, QStringLiteral("ttyD"));
    EXPECT_TRUE(step().starts_with("COM 1 (ttyA) was lost.")) << step();
    program.link.portChoices.choose(1, QStringLiteral("ttyC"));
    EXPECT_EQ(step(), "3 rows, not saved. Save As is on the page Output: Spread Sheet.");
}

TEST_F(NextStepTest, SaysWhatGoesOn) {
    const std::pair<Activity, const char*> sentences[] = {
        {Activity::Connecting, ""},
        {Activity::ReadingSettings, "Reading the instrument's settings."},
        {Activity::Collecting, "Collecting. Reset ends the run."},
        {Activity::Downloading, "Downloading. Reset stops it; what has arrived is kept."},
        {Activity::Sending, "Sending the settings."},
        {Activity::SettingClock, "Setting the instrument's clock."},
        {Activity::ResettingShutter, "Moving the shutter."},
    };
    for (const auto& [activity, sentence] : sentences) {
        commands.activity = activity;
        EXPECT_EQ(step(), sentence);
    }
}

TEST_F(NextStepTest, SendsTheOperatorToWhatWaitsForHim) {
    program.manualConnect(1);
    EXPECT_EQ(step(), "The dialog Manual Connection says how to go on.");
    manual.proceed();
    manual.start();
    EXPECT_EQ(step(), "Switch the instrument's power on.");
    manual.quit();
    EXPECT_EQ(step(), "Choose a port and press Connect.");
    answers.late = true;
    haveRows(1);
    program.openSheet();
    EXPECT_EQ(step(), "A question waits for your answer.");
}

TEST_F(NextStepTest, SaysWhenTheInstrumentHasNotSaidWhatItIs) {
    connect("X\r");
    commands.activity = Activity::None;
    EXPECT_EQ(step(), "The instrument has not said what it is. Press Reset to ask again.");
}

} // namespace
} // namespace orv
