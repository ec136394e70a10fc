// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"
#include "testing/linkrig.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

TEST(ClosePort, takesBackWhatTheConnectionHasShown) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    StatusState& status = rig.session.status;
    status.instrument = InstrumentType::Trx;
    status.date = QStringLiteral("1/5/99");
    status.time = QStringLiteral("3:05:09 PM");
    DebugState& debug = rig.debug;
    for (QProperty<bool>* frame :
         {&debug.debugFrameVisible, &debug.turbidityFrameVisible, &debug.fluorometerFrameVisible,
          &debug.transmissometerFrameVisible, &debug.outputFrameVisible}) {
        *frame = true;
    }
    CommandState& commands = rig.session.commands;
    commands.processingMenuVisible = true;
    commands.settingsMenuVisible = true;
    commands.activity = Activity::Collecting;
    rig.state.Portused = 1;

    rig.connection.closePort();

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
        EXPECT_TRUE(rig.items[item].enabled.value());
        EXPECT_FALSE(rig.items.checked(item));
    }
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_EQ(rig.state.portstatus, 2);
    EXPECT_EQ(rig.state.Rtn, QStringLiteral("wakeup!!!"));
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(rig.state.Tmr, 1);
    EXPECT_EQ(rig.state.Portused, 1);
    EXPECT_EQ(rig.state.Vartemp, QStringLiteral("V"));
    EXPECT_EQ(rig.recordFilesClosed, 1);
    EXPECT_EQ(rig.resets, 0);
}

TEST(ClosePort, announcesItselfAndClosesTheRecordFileBeforeThePort) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    rig.tickDebugOutput();
    rig.connection.closePort();
    EXPECT_EQ(rig.com2.allWritten(), "Close Port\r(record file)\rLooking to see what port to open\r");
}

TEST(ClosePort, doesNoHarmWhileThePortIsClosed) {
    LinkRig rig;
    rig.state.Rtn = QStringLiteral("kept");
    rig.connection.closePort();
    EXPECT_EQ(rig.state.Rtn, QStringLiteral("kept"));
    EXPECT_EQ(rig.state.portstatus, 2);
    EXPECT_TRUE(rig.com1.dtr.isEmpty());
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(ClosePort, listsTheInputCountOnlyInTheServiceModeWithShowParsing) {
    for (const bool serviceMode : {false, true}) {
        for (const bool showParsing : {false, true}) {
            LinkRig rig;
            rig.ports.open();
            rig.state.trouble = serviceMode ? 1 : 0;
            rig.debug.showParsing = showParsing;
            rig.connection.closePort();
            const std::deque<QString> expected =
                serviceMode && showParsing ? std::deque<QString>{QStringLiteral("0")} : std::deque<QString>{};
            EXPECT_EQ(rig.debug.list.entries(), expected);
        }
    }
}

TEST(ClosePort, hidesResetShutterUntilTheNextConnection) {
    LinkRig rig;
    rig.replies = {"V512\r", "V512\r"};
    rig.connection.autoConnect1();
    rig.connection.closePort();
    EXPECT_FALSE(rig.session.commands.resetShutterVisible.value());
    rig.connection.autoConnect1();
    EXPECT_TRUE(rig.session.commands.resetShutterVisible.value());
    EXPECT_TRUE(rig.session.commands.resetShutterEnabled.value());
}

TEST(ClosePort, endsAConnectionInItsWakeUpPulseWithoutAnotherWord) {
    LinkRig rig;
    int yields = 0;
    rig.yield.tick = [&] {
        if (++yields == 10) {
            rig.connection.closePort();
        }
    };
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_EQ(yields, 10);
    EXPECT_TRUE(rig.com1.writes.empty());
    EXPECT_EQ(rig.com1.dtr, QStringList{QStringLiteral("on")});
    EXPECT_EQ(rig.session.status.status.value(), QStringLiteral("Offline"));
    EXPECT_EQ(rig.session.commands.activity.value(), Activity::None);
    EXPECT_FALSE(rig.items.checked(ConnectItems::Auto1));
    EXPECT_EQ(rig.state.Portused, 0);
    EXPECT_EQ(rig.headerRows, 0);
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(ClosePort, endsAConnectionBetweenReplyAndRequestWithoutAnotherWord) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    rig.yield.tick = [&] {
        if (rig.state.Vartemp == QLatin1String("V") && rig.ports.isOpen()) {
            rig.connection.closePort();
        }
    };
    rig.connection.autoConnect2();
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_EQ(rig.headerRows, 0);
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Idle);
    EXPECT_FALSE(rig.items.checked(ConnectItems::Auto2));
}

TEST(ClosePort, leavesTheNextConnectionToItself) {
    LinkRig rig;
    int yields = 0;
    rig.yield.tick = [&] {
        rig.tick();
        if (++yields == 10) {
            rig.connection.closePort();
            rig.connection.autoConnect2();
        }
    };
    rig.replies = {"F412\r"};
    rig.connection.autoConnect1();
    EXPECT_TRUE(rig.com1.writes.empty());
    EXPECT_EQ(rig.com2.allWritten(), "P");
    EXPECT_EQ(rig.state.Portused, 2);
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto2));
    EXPECT_FALSE(rig.items.checked(ConnectItems::Auto1)) << "the attempt that was overtaken must not touch the menu";
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
}

} // namespace

namespace {

TEST(AbortRun, onlyAnnouncesItselfOnAClosedPort) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.items[ConnectItems::Auto1].checked = true;
    rig.abortRun.abortrun();
    EXPECT_EQ(rig.com2.allWritten(), "Abort Run Function\r");
    EXPECT_FALSE(rig.session.commands.runEnabled.value());
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto1));
    EXPECT_EQ(rig.resets, 0);
}

TEST(AbortRun, resetsAndWakesTheInstrumentAgainOnComm1) {
    LinkRig rig;
    rig.replies = {"V512\r", "V512\r"};
    rig.connection.autoConnect1();
    rig.tickDebugOutput();
    rig.com1.writes.clear();
    rig.com1.dtr.clear();
    rig.abortRun.abortrun();
    EXPECT_EQ(rig.com2.allWritten(), "Abort Run Function\r(reset)\rPassed fix it for comm1\rOpen port 1\r"
                                     "Looking to see what port to open\rPresets for Opening Port\r");
    EXPECT_EQ(rig.com1.dtr, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    EXPECT_EQ(rig.com1.allWritten(), "P") << "nothing but the wake-up stops the instrument";
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto1));
    EXPECT_TRUE(rig.items[ConnectItems::Auto1].enabled.value());
    EXPECT_FALSE(rig.items[ConnectItems::Manual1].enabled.value());
    EXPECT_TRUE(rig.session.commands.runEnabled.value());
    EXPECT_EQ(rig.resets, 1);
}

TEST(AbortRun, resetsAndWakesTheInstrumentAgainOnComm2) {
    LinkRig rig;
    rig.ports.setDevice(1, QStringLiteral("ttyB"));
    rig.ports.setDevice(2, QStringLiteral("ttyA"));
    rig.replies = {"F412\r", "F412\r"};
    rig.connection.autoConnect2();
    rig.com1.writes.clear();
    rig.abortRun.abortrun();
    EXPECT_EQ(rig.com1.allWritten(), "P");
    EXPECT_EQ(rig.ports.selectedPort(), 2);
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto2));
    EXPECT_EQ(rig.resets, 1);
}

TEST(AbortRun, showsTheManualDialogAgainAfterAManualConnection) {
    for (const int port : {1, 2}) {
        LinkRig rig;
        rig.connection.manualConnect(port);
        rig.replies = {"V512\r"};
        rig.manual.start();
        ASSERT_EQ(rig.state.Ctrlscrn, Operation::Identified);
        rig.state.Portused = 0;
        rig.state.Gatherstop = 3;
        rig.state.gatherstart = 1;
        rig.abortRun.abortrun();
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

TEST(AbortRun, keepsTheManualDialogThatItShowsDuringAManualAttempt) {
    LinkRig rig;
    rig.connection.manualConnect(2);
    rig.manual.proceed();
    int yields = 0;
    rig.yield.tick = [&] {
        if (++yields == 10) {
            rig.abortRun.abortrun();
        }
    };
    rig.manual.start();
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_TRUE(rig.manual.shown.text.value().startsWith(QStringLiteral("To start manual connection on Comm 2")));
    EXPECT_TRUE(rig.manual.shown.proceedVisible.value());
    EXPECT_EQ(yields, 10) << "the attempt ends in its wait";
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Idle);
}

TEST(AbortRun, takesTheFirstCheckedItemAndNoOther) {
    LinkRig rig;
    rig.ports.open();
    rig.items[ConnectItems::Auto2].checked = true;
    rig.items[ConnectItems::Manual1].checked = true;
    rig.abortRun.abortrun();
    EXPECT_EQ(rig.resets, 1);
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto2));
    EXPECT_FALSE(rig.items.checked(ConnectItems::Manual1));
    EXPECT_EQ(rig.ports.selectedPort(), 2);
}

TEST(AbortRun, onlyEnablesRunWhenNoItemIsChecked) {
    LinkRig rig;
    rig.ports.open();
    rig.abortRun.abortrun();
    EXPECT_TRUE(rig.session.commands.runEnabled.value());
    EXPECT_TRUE(rig.ports.isOpen());
    EXPECT_EQ(rig.resets, 0);
}

TEST(AbortRun, endsInTheFailureDialogWhenNothingAnswers) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    rig.abortRun.abortrun();
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_TRUE(rig.manual.shown.text.value().startsWith(
        QStringLiteral("Attempt to Auto Connect Via Comm 1 Failed!      Make sure")));
    EXPECT_EQ(rig.state.Portused, 1);
    EXPECT_TRUE(rig.ports.isOpen());
}

} // namespace

} // namespace orv
