// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

#include "testing/programtest.h"

namespace orv {
namespace {

class RecordedInhibitor final : public SleepInhibitor {
public:
    void take() override { calls += "take "; }
    void release() override { calls += "release "; }

    std::string calls;
};

TEST(AwakeWhileCollecting, HoldsForRunsAndDownloadsOnly) {
    CommandState commands;
    RecordedInhibitor inhibitor;
    const AwakeWhileCollecting awake(commands, inhibitor);
    for (const Activity activity : {Activity::None, Activity::Connecting, Activity::Sending, Activity::SettingClock,
                                    Activity::ResettingShutter, Activity::None}) {
        commands.activity = activity;
        EXPECT_EQ(inhibitor.calls, "");
    }
    for (const Activity activity : {Activity::Collecting, Activity::Downloading}) {
        for (const Activity next : {Activity::None, Activity::Connecting, Activity::Sending}) {
            inhibitor.calls.clear();
            commands.activity = activity;
            EXPECT_EQ(inhibitor.calls, "take ");
            commands.activity = next;
            EXPECT_EQ(inhibitor.calls, "take release ");
        }
    }
    inhibitor.calls.clear();
    commands.activity = Activity::Collecting;
    commands.activity = Activity::Downloading;
    EXPECT_EQ(inhibitor.calls, "take ");
}

class AwakeProgram : public ProgramTest {
protected:
    RecordedInhibitor inhibitor;
    AwakeWhileCollecting awake{program.session.commands, inhibitor};
};

TEST_F(AwakeProgram, ConnectingAndReadingTheSettingsLetTheComputerSleep) {
    connectAndRead();
    EXPECT_EQ(inhibitor.calls, "");
}

TEST_F(AwakeProgram, ARunKeepsItAwakeUntilItsReset) {
    runWithRows(3);
    EXPECT_EQ(inhibitor.calls, "take ");
    replies = {"V512\r"};
    program.reset();
    EXPECT_EQ(inhibitor.calls, "take release ");
}

TEST_F(AwakeProgram, ARunKeepsItAwakeUntilThePortIsClosed) {
    runWithRows(3);
    program.closePort();
    EXPECT_EQ(inhibitor.calls, "take release ");
}

TEST_F(AwakeProgram, ARunKeepsItAwakeUntilTheCableIsPulled) {
    runWithRows(3);
    com1.failureReason = QStringLiteral("The device is gone.");
    program.tick();
    EXPECT_EQ(inhibitor.calls, "take release ");
}

TEST_F(AwakeProgram, ARunKeepsItAwakeUntilTheProgramEnds) {
    runWithRows(3);
    program.end();
    EXPECT_EQ(inhibitor.calls, "take release ");
}

TEST_F(AwakeProgram, ADownloadKeepsItAwakeUntilItsEnd) {
    connectAndRead();
    answers.fileName = folder.path("dump.txt");
    program.downloadText();
    EXPECT_EQ(inhibitor.calls, "take ");
    receive("O\r\n11/21/26\t2700\t1\t20\t30\t40\r\nEOF\r\n");
    ticks(4);
    EXPECT_EQ(inhibitor.calls, "take release ");
}

} // namespace
} // namespace orv
