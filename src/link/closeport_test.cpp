// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "testing/linkrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using Panel = ConnectionPanel;

TEST(ClosePort, takesBackWhatTheConnectionHasShown) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    StatusPanel& status = rig.session.status;
    status.instrument = QStringLiteral("TRX");
    status.date = QStringLiteral("1/5/99");
    status.time = QStringLiteral("3:05:09 PM");
    DebugPanel& debug = rig.debug;
    for (QProperty<bool>* frame :
         {&debug.debugFrameVisible, &debug.turbidityFrameVisible, &debug.fluorometerFrameVisible,
          &debug.transmissometerFrameVisible, &debug.outputFrameVisible}) {
        *frame = true;
    }
    CommandPanel& commands = rig.session.commands;
    commands.processingMenuVisible = true;
    commands.settingsMenuVisible = true;
    commands.activity = Activity::Collecting;
    rig.state.Portused = 1;

    rig.connection.closePort();

    EXPECT_EQ(status.status.value(), QStringLiteral("Offline"));
    EXPECT_EQ(status.firmware.value(), QString(8, u'_'));
    EXPECT_EQ(status.instrument.value(), QString(8, u'_'));
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
    for (const Panel::Item item : {Panel::Auto1, Panel::Auto2, Panel::Manual1, Panel::Manual2}) {
        EXPECT_TRUE(rig.items[item].enabled.value());
        EXPECT_FALSE(rig.items.checked(item));
    }
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_EQ(rig.state.portstatus, 2);
    EXPECT_EQ(rig.state.Rtn, QStringLiteral("wakeup!!!"));
    EXPECT_EQ(rig.state.Ctrlscrn, opstate::idle);
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
    EXPECT_FALSE(rig.items.checked(Panel::Auto1));
    EXPECT_EQ(rig.state.Portused, 0);
    EXPECT_EQ(rig.headerRows, 0);
    EXPECT_FALSE(rig.manual.panel.visible.value());
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
    EXPECT_EQ(rig.state.Ctrlscrn, opstate::idle);
    EXPECT_FALSE(rig.items.checked(Panel::Auto2));
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
    EXPECT_TRUE(rig.items.checked(Panel::Auto2));
    EXPECT_FALSE(rig.items.checked(Panel::Auto1)) << "the attempt that was overtaken must not touch the menu";
    EXPECT_EQ(rig.state.Ctrlscrn, opstate::identified);
}

} // namespace
} // namespace orv
