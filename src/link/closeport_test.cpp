// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"
#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

using ClosePort = ProgramTest;

TEST_F(ClosePort, takesBackWhatTheConnectionHasShown) {
    replies = {"V512\r"};
    autoConnect();
    status.instrument = InstrumentType::Trx;
    status.date = QStringLiteral("1/5/99");
    status.time = QStringLiteral("3:05:09 PM");
    for (QProperty<bool>* frame :
         {&debug.debugFrameVisible, &debug.turbidityFrameVisible, &debug.fluorometerFrameVisible,
          &debug.transmissometerFrameVisible, &debug.outputFrameVisible}) {
        *frame = true;
    }
    commands.processingMenuVisible = true;
    commands.settingsMenuVisible = true;
    commands.activity = Activity::Collecting;
    state.Portused = 1;

    program.closePort();

    EXPECT_EQ(status.status.value(), QStringLiteral("Offline"));
    EXPECT_EQ(status.firmware.value(), QString(8, u'_'));
    EXPECT_EQ(instrumentName(status.instrument), QString(8, u'_'));
    EXPECT_EQ(status.date.value(), QString(16, u'_'));
    EXPECT_EQ(status.time.value(), QString(16, u'_'));
    EXPECT_FALSE(debug.debugFrameVisible.value());
    EXPECT_FALSE(debug.turbidityFrameVisible.value());
    EXPECT_FALSE(debug.fluorometerFrameVisible.value());
    EXPECT_FALSE(debug.transmissometerFrameVisible.value());
    EXPECT_FALSE(debug.outputFrameVisible.value());
    EXPECT_FALSE(commands.processingMenuVisible.value());
    EXPECT_FALSE(commands.settingsMenuVisible.value());
    EXPECT_FALSE(commands.resetShutterVisible.value());
    EXPECT_FALSE(commands.closePortEnabled.value());
    EXPECT_EQ(commands.activity.value(), Activity::None);
    for (const ConnectItems::Item item :
         {ConnectItems::Auto1, ConnectItems::Auto2, ConnectItems::Manual1, ConnectItems::Manual2}) {
        EXPECT_TRUE(items[item].enabled.value());
        EXPECT_FALSE(items.checked(item));
    }
    EXPECT_FALSE(ports.isOpen());
    EXPECT_EQ(state.portstatus, 2);
    EXPECT_EQ(state.Rtn, QStringLiteral("wakeup!!!"));
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(state.Tmr, 1);
    EXPECT_EQ(state.Portused, 1);
    EXPECT_EQ(state.Vartemp, QStringLiteral("V"));
    EXPECT_EQ(resets, 0);
}

TEST_F(ClosePort, announcesItselfAndClosesTheRecordFileBeforeThePort) {
    runWithRows(1);
    tickDebugOutput();
    com1.input = "11/21/26\t2700\t2\t20\t30\t40\r\n";
    program.closePort();
    EXPECT_EQ(said(), "Close Port\rProfile Sub\rLooking to see what port to open\r") << "no reset";
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
}

TEST_F(ClosePort, doesNoHarmWhileThePortIsClosed) {
    state.Rtn = QStringLiteral("kept");
    program.closePort();
    EXPECT_EQ(state.Rtn, QStringLiteral("kept"));
    EXPECT_EQ(state.portstatus, 2);
    EXPECT_TRUE(com1.dtr.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ClosePort, listsTheInputCountOnlyInTheServiceModeWithShowParsing) {
    for (const bool serviceMode : {false, true}) {
        for (const bool showParsing : {false, true}) {
            ProgramRig rig;
            rig.ports.open();
            rig.state.trouble = serviceMode ? 1 : 0;
            rig.debug.showParsing = showParsing;
            rig.program.closePort();
            const std::deque<QString> expected =
                serviceMode && showParsing ? std::deque<QString>{QStringLiteral("0")} : std::deque<QString>{};
            EXPECT_EQ(rig.debug.list.entries(), expected);
        }
    }
}

TEST_F(ClosePort, hidesResetShutterUntilTheNextConnection) {
    replies = {"V512\r", "V512\r"};
    autoConnect();
    program.closePort();
    EXPECT_FALSE(commands.resetShutterVisible.value());
    autoConnect();
    EXPECT_TRUE(commands.resetShutterVisible.value());
    EXPECT_TRUE(commands.resetShutterEnabled.value());
}

TEST_F(ClosePort, endsAConnectionInItsWakeUpPulseWithoutAnotherWord) {
    eachMillisecond = [&] {
        if (clock.monotonicMilliseconds() == 50) {
            program.closePort();
        }
    };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_EQ(clock.monotonicMilliseconds(), 50) << "the attempt ends in its wait";
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(com1.dtr, QStringList{QStringLiteral("on")});
    EXPECT_EQ(status.status.value(), QStringLiteral("Offline"));
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_FALSE(items.checked(ConnectItems::Auto1));
    EXPECT_EQ(state.Portused, 0);
    EXPECT_EQ(identifications, 0);
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(ClosePort, endsAConnectionBetweenReplyAndRequestWithoutAnotherWord) {
    replies = {"V512\r"};
    eachMillisecond = [&] {
        if (state.Vartemp == QLatin1String("V") && ports.isOpen()) {
            program.closePort();
        }
    };
    autoConnect(2);
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_EQ(identifications, 0);
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_FALSE(items.checked(ConnectItems::Auto2));
}

TEST_F(ClosePort, leavesTheNextConnectionToItself) {
    timer.enable();
    eachMillisecond = [&] {
        if (clock.monotonicMilliseconds() == 50) {
            program.closePort();
            autoConnect(2);
        }
    };
    replies = {"F412\r"};
    autoConnect();
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(com2.allWritten(), "P");
    EXPECT_EQ(state.Portused, 2);
    EXPECT_TRUE(items.checked(ConnectItems::Auto2));
    EXPECT_FALSE(items.checked(ConnectItems::Auto1)) << "the attempt that was overtaken must not touch the menu";
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
}

} // namespace

namespace {

using AbortRun = ProgramTest;

TEST_F(AbortRun, onlyAnnouncesItselfOnAClosedPort) {
    tickDebugOutput();
    items[ConnectItems::Auto1].checked = true;
    abort2();
    EXPECT_EQ(said(), "Abort 2\rAbort Run Function\r") << "no reset";
    EXPECT_EQ(resets, 0);
    EXPECT_FALSE(commands.runEnabled.value());
    EXPECT_TRUE(items.checked(ConnectItems::Auto1));
}

TEST_F(AbortRun, resetsAndWakesTheInstrumentAgainOnComm1) {
    replies = {"V512\r", "V512\r"};
    autoConnect();
    tickDebugOutput();
    com1.writes.clear();
    com1.dtr.clear();
    abort2();
    EXPECT_EQ(saidBriefly(), "Abort 2\rAbort Run Function\r(reset)\rPassed fix it for comm1\rOpen port 1\r"
                             "Looking to see what port to open\rPresets for Opening Port\r");
    EXPECT_EQ(com1.dtr, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    EXPECT_EQ(com1.allWritten(), "P") << "nothing but the wake-up stops the instrument";
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(items.checked(ConnectItems::Auto1));
    EXPECT_TRUE(items[ConnectItems::Auto1].enabled.value());
    EXPECT_FALSE(items[ConnectItems::Manual1].enabled.value());
    EXPECT_TRUE(commands.runEnabled.value());
    EXPECT_EQ(resets, 1);
}

TEST_F(AbortRun, resetsAndWakesTheInstrumentAgainOnComm2) {
    ports.setDevice(1, QStringLiteral("ttyB"));
    ports.setDevice(2, QStringLiteral("ttyA"));
    replies = {"F412\r", "F412\r"};
    autoConnect(2);
    com1.writes.clear();
    abort2();
    EXPECT_EQ(com1.allWritten(), "P");
    EXPECT_EQ(ports.selectedPort(), 2);
    EXPECT_TRUE(items.checked(ConnectItems::Auto2));
    EXPECT_EQ(com1.dtr.size(), 4) << "closed and opened again";
    EXPECT_EQ(resets, 1);
}

TEST_F(AbortRun, showsTheManualDialogAgainAfterAManualConnection) {
    for (const int port : {1, 2}) {
        ProgramRig rig;
        rig.program.manualConnect(port);
        rig.replies = {"V512\r"};
        rig.pressStart();
        ASSERT_EQ(rig.state.Ctrlscrn, Operation::Identified);
        rig.state.Portused = 0;
        rig.state.Gatherstop = 3;
        rig.state.gatherstart = 1;
        rig.abort2();
        EXPECT_FALSE(rig.ports.isOpen());
        EXPECT_EQ(rig.state.Portused, port);
        EXPECT_TRUE(rig.items.checked(port == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2));
        EXPECT_TRUE(rig.manual.shown.visible.value());
        EXPECT_TRUE(rig.manual.shown.text.value().startsWith(
            QStringLiteral("To start manual connection on Comm %1, click Proceed.").arg(port)));
        EXPECT_EQ(rig.resets, 1);
        EXPECT_EQ(rig.state.gatherstart, 0);
        EXPECT_EQ(rig.state.Gatherstop, 0);
    }
}

TEST_F(AbortRun, keepsTheManualDialogThatItShowsDuringAManualAttempt) {
    program.manualConnect(2);
    manual.proceed();
    eachMillisecond = [&] {
        if (clock.monotonicMilliseconds() == 50) {
            abort2();
        }
    };
    pressStart();
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_TRUE(manual.shown.text.value().startsWith(QStringLiteral("To start manual connection on Comm 2")));
    EXPECT_TRUE(manual.shown.proceedVisible.value());
    EXPECT_EQ(clock.monotonicMilliseconds(), 50) << "the attempt ends in its wait";
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
}

TEST_F(AbortRun, takesTheFirstCheckedItemAndNoOther) {
    ports.open();
    items[ConnectItems::Auto2].checked = true;
    items[ConnectItems::Manual1].checked = true;
    abort2();
    EXPECT_EQ(resets, 1);
    EXPECT_TRUE(items.checked(ConnectItems::Auto2));
    EXPECT_FALSE(items.checked(ConnectItems::Manual1));
    EXPECT_EQ(ports.selectedPort(), 2);
}

TEST_F(AbortRun, actsForTheAutomaticItemOfThePortInUseWhenNoItemIsChecked) {
    for (const int port : {1, 2}) {
        ProgramRig rig;
        rig.ports.selectPort(port);
        rig.ports.open();
        rig.replies = {"V512\r"};
        rig.abort2();
        EXPECT_EQ(rig.resets, 1);
        EXPECT_TRUE(rig.items.checked(port == 1 ? ConnectItems::Auto1 : ConnectItems::Auto2));
        EXPECT_EQ(rig.ports.selectedPort(), port);
        EXPECT_EQ((port == 1 ? rig.com1 : rig.com2).allWritten(), "P");
        EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
    }
}

/// "Auto Connect Comm 1" checks its item only when the attempt has ended.
TEST_F(AbortRun, beginsTheAttemptOnComm1AnewAtEachOfItsMoments) {
    for (const qint64 moment : {1, 500, 999, 1001, 3000, 5999, 6050}) {
        SCOPED_TRACE(moment);
        ProgramRig rig;
        bool again = true;
        rig.eachMillisecond = [&] {
            if (rig.clock.monotonicMilliseconds() >= moment && std::exchange(again, false)) {
                EXPECT_FALSE(rig.items.firstChecked());
                rig.program.reset();
                EXPECT_EQ(rig.com1.dtr.back(), QStringLiteral("on")) << "the pulse has begun within the call";
                rig.replies = {"V512\r"};
            }
        };
        if (moment > 6000) {
            rig.replies.resize(4900);
            rig.replies.emplace_back("F412\r"); // in the fifth of a second before the request
        }
        rig.autoConnect();
        EXPECT_FALSE(again);
        EXPECT_EQ(rig.resets, 1);
        EXPECT_TRUE(rig.items.checked(ConnectItems::Auto1));
        EXPECT_EQ(rig.state.Vartemp, QStringLiteral("V"));
        EXPECT_EQ(rig.com1.allWritten(), "P") << "once";
        EXPECT_EQ(rig.identifications, 1);
        EXPECT_FALSE(rig.manual.shown.visible.value());
    }
}

TEST_F(AbortRun, connectsAgainAfterRetryInTheDialogOfAFailedAttempt) {
    autoConnect();
    pressRetry();
    replies = {"V512\r"};
    program.reset();
    finish();
    EXPECT_EQ(com1.allWritten(), "P");
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
}

TEST_F(AbortRun, endsInTheFailureDialogWhenNothingAnswers) {
    replies = {"V512\r"};
    autoConnect();
    abort2();
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_TRUE(manual.shown.text.value().startsWith(
        QStringLiteral("Attempt to Auto Connect Via Comm 1 Failed!      Make sure")));
    EXPECT_EQ(state.Portused, 1);
    EXPECT_TRUE(ports.isOpen());
}

} // namespace

} // namespace orv
