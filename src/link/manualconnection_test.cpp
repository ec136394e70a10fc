// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/manualconnection.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct DialogText {
    ConnectItems::Item item;
    const char* text;
};

constexpr DialogText dialogTexts[] = {
    {ConnectItems::Manual1,
     "To start manual connection on Comm 1, click Proceed. If you wish to exit connection proccess click Quit"},
    {ConnectItems::Manual2,
     "To start manual connection on Comm 2, click Proceed. If you wish to exit connection proccess click Quit"},
    {ConnectItems::Auto1,
     "Attempt to Auto Connect Via Comm 1 Failed!      Make sure that this cable is DTR enabled, that power "
     "is supplied to the instrument, and that you selected the right Comm Port. Click Retry when ready."},
    {ConnectItems::Auto2,
     "Attempt to Auto Connect Via Comm 2 Failed!      Make sure that this cable is DTR enabled, that power "
     "is supplied to the instrument, and that you selected the right Comm Port. Click Retry when ready."},
};

using ManualConnection = ProgramTest;

TEST_F(ManualConnection, opensWithTheTextOfTheCheckedItem) {
    for (const DialogText& row : dialogTexts) {
        ProgramRig rig;
        rig.items[row.item].checked = true;
        rig.manual.show();
        EXPECT_EQ(rig.manual.shown.text.value(), QLatin1String(row.text));
        EXPECT_TRUE(rig.manual.shown.visible.value());
    }
}

TEST_F(ManualConnection, opensWithoutTextWhenNoItemIsChecked) {
    manual.shown.text = QStringLiteral("from before");
    manual.show();
    EXPECT_EQ(manual.shown.text.value(), QString());
    EXPECT_TRUE(manual.shown.visible.value());
}

TEST_F(ManualConnection, opensWithProceedAndRetryButWithoutStart) {
    ManualConnectionState& shown = manual.shown;
    shown.startVisible = true;
    shown.startEnabled = false;
    shown.proceedVisible = false;
    shown.retryEnabled = false;
    manual.show();
    EXPECT_FALSE(shown.startVisible.value());
    EXPECT_TRUE(shown.startEnabled.value());
    EXPECT_TRUE(shown.proceedVisible.value());
    EXPECT_TRUE(shown.retryEnabled.value());
}

TEST_F(ManualConnection, asksForAPowerCycleOnProceed) {
    manual.show();
    manual.proceed();
    EXPECT_FALSE(manual.shown.proceedVisible.value());
    EXPECT_TRUE(manual.shown.startVisible.value());
    EXPECT_EQ(manual.shown.text.value(), QStringLiteral("Shut power off of sensor. Press (Start) then turn power on."));
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_FALSE(ports.isOpen());
}

TEST_F(ManualConnection, seeksOnThePortInUseOnStartAndGoesAway) {
    for (const int port : {1, 2}) {
        ProgramRig rig;
        rig.replies = {"V512\r"};
        TestPort& used = port == 1 ? rig.com1 : rig.com2;
        used.dtrChanged = [&rig](bool) {
            EXPECT_EQ(rig.state.Seeking, 1);
            EXPECT_FALSE(rig.manual.shown.retryEnabled.value());
            EXPECT_FALSE(rig.manual.shown.startEnabled.value());
            EXPECT_TRUE(rig.manual.shown.visible.value());
        };
        rig.program.manualConnect(port);
        rig.manual.proceed();
        rig.pressStart();
        EXPECT_EQ(used.dtr.size(), 2);
        EXPECT_TRUE(used.isOpen());
        EXPECT_EQ(rig.state.Seeking, 0) << "no longer once it has returned";
        EXPECT_FALSE(rig.manual.shown.visible.value());
    }
}

TEST_F(ManualConnection, saysWhileItSeeksThatTheDialogEndsIt) {
    const std::string wait = "Waiting for the instrument. \"Quit\" in the dialog ends it.";
    const std::function<void(ProgramRig&)> ends[] = {
        [](ProgramRig& rig) { rig.com1.input = "V512\r"; },
        [](ProgramRig& rig) { rig.manual.quit(); },
        [](ProgramRig& rig) { rig.program.closePort(); },
        [](ProgramRig& rig) { rig.com1.failureReason = QStringLiteral("Gone."); },
    };
    for (const auto& end : ends) {
        ProgramRig rig;
        const QProperty<Words>& notice = rig.status.notice;
        rig.program.manualConnect(1);
        EXPECT_EQ(notice.value().toStdString(), "");
        rig.manual.proceed();
        EXPECT_EQ(notice.value().toStdString(), "");
        int waits = 0;
        rig.eachMillisecond = [&] {
            if (++waits <= 2000) {
                EXPECT_EQ(notice.value().toStdString(), wait);
            }
            if (waits == 2000) {
                end(rig);
            }
        };
        rig.pressStart();
        EXPECT_GE(waits, 2000);
        EXPECT_EQ(notice.value().toStdString(), "");
    }
    ProgramRig rig;
    rig.com1.openReason = QStringLiteral("Reason.");
    rig.program.manualConnect(1);
    rig.pressStart();
    EXPECT_EQ(rig.status.notice.value().toStdString(), "");
}

TEST_F(ManualConnection, opensThePortInUseOnRetryAndStays) {
    com2.dtrChanged = [this](bool) { EXPECT_EQ(state.Seeking, 0); };
    replies = {"V512\r"};
    program.manualConnect(2);
    pressRetry();
    EXPECT_EQ(com2.dtr.size(), 2);
    EXPECT_TRUE(manual.shown.visible.value());
}

TEST_F(ManualConnection, opensNothingWhileNoPortWasEverUsed) {
    state.Portused = 0;
    manual.show();
    pressRetry();
    EXPECT_FALSE(com1.isOpen());
    EXPECT_FALSE(com2.isOpen());
}

TEST_F(ManualConnection, resetsEverythingOnQuit) {
    items[ConnectItems::Manual1].checked = true;
    state.Seeking = 1;
    ports.open();
    manual.show();
    manual.quit();
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(ManualConnection, resetsWhenItsWindowIsClosedBeforeTheInstrumentIsConnected) {
    manual.show();
    manual.closed();
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(ManualConnection, onlyGoesAwayWhenItsWindowIsClosedWithTheInstrumentConnected) {
    for (const Operation operation :
         {Operation::Identified, Operation::Ready, Operation::SettingsOpen, Operation::Collecting}) {
        ProgramRig rig;
        rig.ports.open();
        rig.manual.show();
        rig.state.Ctrlscrn = operation;
        rig.manual.closed();
        EXPECT_EQ(rig.resets, 0);
        EXPECT_TRUE(rig.ports.isOpen());
        EXPECT_FALSE(rig.manual.shown.visible.value());
    }
}

TEST_F(ManualConnection, onlyGoesAwayWhenItsWindowIsClosedAfterADownload) {
    ports.open();
    commands.processingMenuVisible = true;
    state.Ctrlscrn = Operation::Idle;
    manual.show();
    manual.closed();
    EXPECT_EQ(resets, 0);
    EXPECT_TRUE(ports.isOpen());
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(ManualConnection, connectsWhenThePowerComesOnAfterAnyTime) {
    program.manualConnect(2);
    manual.proceed();
    replies.resize(60000); // a minute of silence
    replies.emplace_back("F412\r");
    pressStart();
    EXPECT_EQ(com2.allWritten(), "P");
    EXPECT_EQ(state.Vartemp, QStringLiteral("F"));
    EXPECT_EQ(status.firmware.value(), QStringLiteral("412"));
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_EQ(state.Seeking, 0);
    EXPECT_EQ(resets, 0);
    EXPECT_FALSE(manual.shown.visible.value());
    EXPECT_TRUE(ports.isOpen());
    EXPECT_GE(clock.monotonicMilliseconds(), 60000);
}

TEST_F(ManualConnection, seeksWithoutLimitUntilQuit) {
    program.manualConnect(1);
    manual.proceed();
    eachMillisecond = [this] {
        EXPECT_TRUE(manual.shown.visible.value());
        if (clock.monotonicMilliseconds() == 60000) {
            EXPECT_TRUE(timer.isHeld());
            manual.quit();
        }
    };
    pressStart();
    EXPECT_EQ(clock.monotonicMilliseconds(), 60000) << "the wait ends at once";
    EXPECT_FALSE(timer.isHeld());
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(identifications, 0);
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(ManualConnection, endsWhenItsWindowIsClosedWhileItSeeks) {
    program.manualConnect(1);
    manual.proceed();
    eachMillisecond = [this] {
        if (timer.isHeld()) {
            manual.closed();
        }
    };
    pressStart();
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_TRUE(com1.writes.empty());
}

TEST_F(ManualConnection, looksForTheTypeLetterAfreshInEachAttempt) {
    program.manualConnect(1);
    replies.emplace_back("F");
    replies.resize(6000);
    replies.emplace_back("V512\r");
    pressStart();
    EXPECT_EQ(state.Vartemp, QStringLiteral("V"));
}

TEST_F(ManualConnection, leavesNoEndlessSearchBehindForALaterAutomaticAttempt) {
    autoConnect(2); // silent: the port stays open
    manual.proceed();
    pressStart(); // does nothing on an open port
    EXPECT_EQ(state.Seeking, 0) << "cleared by the end of Start alone";
    program.closePort();
    const qint64 start = clock.monotonicMilliseconds();
    autoConnect(2);
    EXPECT_LT(clock.monotonicMilliseconds() - start, 6100) << "the attempt had no limit";
    EXPECT_TRUE(manual.shown.visible.value());
}

TEST_F(ManualConnection, endsTheSearchWhenThePortIsClosedInTheWakeUpPulse) {
    program.manualConnect(1);
    bool bounded = false;
    eachMillisecond = [&] {
        if (clock.monotonicMilliseconds() == 50) {
            program.closePort();
            autoConnect(2);
            bounded = manual.shown.visible.value();
        }
    };
    pressStart();
    EXPECT_LT(clock.monotonicMilliseconds(), 6200) << "the automatic attempt had no limit";
    EXPECT_TRUE(bounded);
    EXPECT_TRUE(manual.shown.visible.value()) << "the dialog of the failed attempt must stay";
    EXPECT_TRUE(com1.writes.empty());
}

} // namespace
} // namespace orv
