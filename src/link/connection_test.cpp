// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "testing/linkrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct ItemRow {
    bool enabled;
    bool checked;
};

void expectItems(const LinkRig& rig, const std::array<ItemRow, 4>& expected) {
    for (const ConnectItems::Item item :
         {ConnectItems::Auto1, ConnectItems::Auto2, ConnectItems::Manual1, ConnectItems::Manual2}) {
        SCOPED_TRACE(item);
        EXPECT_EQ(rig.items[item].enabled.value(), expected.at(static_cast<std::size_t>(item)).enabled);
        EXPECT_EQ(rig.items.checked(item), expected.at(static_cast<std::size_t>(item)).checked);
    }
}

TEST(ConnectItemsTest, selectsThePortOfTheLastCheckedItem) {
    ConnectItems items;
    EXPECT_EQ(items.checkedPort(), 0);
    items[ConnectItems::Auto1].checked = true;
    EXPECT_EQ(items.checkedPort(), 1);
    items[ConnectItems::Auto2].checked = true;
    EXPECT_EQ(items.checkedPort(), 2);
    items[ConnectItems::Manual1].checked = true;
    EXPECT_EQ(items.checkedPort(), 1);
    items[ConnectItems::Manual2].checked = true;
    EXPECT_EQ(items.checkedPort(), 2);
    items.uncheckAll();
    EXPECT_EQ(items.checkedPort(), 0);
}

TEST(Connecting, announcesEachStepForComm1) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.com2.allWritten(),
              "Auto Open 1\rOpen port 1\rLooking to see what port to open\rPresets for Opening Port\r");
}

TEST(Connecting, announcesEachStepForComm2AndTellsThatTheDebugOutputHoldsIt) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.connection.autoConnect2();
    EXPECT_EQ(rig.com2.allWritten(), "Auto Open 2\rOpen Port 2\rLooking to see what port to open\r"
                                     "Presets for Opening Port\r(reset)\r");
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_TRUE(rig.messages.shown[0].text.contains(QStringLiteral("\"Comm 2 Debug Output\"")));
    EXPECT_EQ(rig.session.status.status.value(), QStringLiteral("Offline"));
    EXPECT_TRUE(rig.ports.isDebugPortOpen());
}

TEST(Connecting, announcesAManualConnection) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.connection.manualConnect(1);
    rig.connection.manualConnect(2);
    EXPECT_EQ(rig.com2.allWritten(), "Manual 1 Start\rManual 2 Start\r");
}

TEST(Connecting, checksItsItemOnlyAfterTheAttemptOnComm1) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    bool checkedDuring = false;
    rig.com1.dtrChanged = [&](bool) { checkedDuring = checkedDuring || rig.items.checkedPort() != 0; };
    rig.connection.autoConnect1();
    EXPECT_FALSE(checkedDuring);
    EXPECT_EQ(rig.state.Portused, 1);
    expectItems(rig, {{{true, true}, {false, false}, {true, false}, {false, false}}});
}

TEST(Connecting, checksItsItemBeforeTheAttemptOnComm2) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    bool checkedDuring = true;
    rig.com2.dtrChanged = [&](bool) { checkedDuring = checkedDuring && rig.items.checked(ConnectItems::Auto2); };
    rig.connection.autoConnect2();
    EXPECT_EQ(rig.com2.dtr.size(), 2);
    EXPECT_TRUE(checkedDuring);
    EXPECT_EQ(rig.state.Portused, 2);
    expectItems(rig, {{{false, false}, {true, true}, {false, false}, {false, false}}});
}

TEST(Connecting, checksAManualItemAndOpensTheDialogOnly) {
    for (const int port : {1, 2}) {
        LinkRig rig;
        const ConnectItems::Item item = port == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2;
        rig.items[item].enabled = false;
        rig.connection.manualConnect(port);
        EXPECT_TRUE(rig.items.checked(item));
        EXPECT_TRUE(rig.items[item].enabled.value());
        EXPECT_EQ(rig.state.Portused, port);
        EXPECT_TRUE(rig.manual.shown.visible.value());
        EXPECT_FALSE(rig.ports.isOpen());
        EXPECT_TRUE(rig.manual.shown.text.value().contains(QStringLiteral("manual connection on Comm %1").arg(port)));
    }
}

TEST(Connecting, disablesTheOtherItemsDuringAManualConnection) {
    LinkRig rig;
    rig.connection.manualConnect(1);
    rig.replies = {"V512\r"};
    rig.manual.start();
    expectItems(rig, {{{false, false}, {false, false}, {false, true}, {false, false}}});
}

TEST(Connecting, usesPort2WithItsManualItemCheckedAfterAutomaticComm1) {
    LinkRig rig;
    rig.items[ConnectItems::Auto1].checked = true;
    rig.connection.manualConnect(2);
    rig.replies = {"V512\r"};
    rig.manual.start();
    EXPECT_EQ(rig.ports.selectedPort(), 2);
    EXPECT_TRUE(rig.com2.isOpen());
    EXPECT_FALSE(rig.com1.isOpen());
}

TEST(Connecting, opensPort2AgainByComm1AfterASessionOnPort2) {
    LinkRig rig;
    rig.replies = {"V512\r", "V512\r"};
    rig.connection.autoConnect2();
    rig.connection.closePort();
    rig.connection.autoConnect1();
    EXPECT_TRUE(rig.com2.isOpen());
    EXPECT_FALSE(rig.com1.isOpen());
    EXPECT_EQ(rig.state.Portused, 1);
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto1));
}

TEST(Connecting, opensPort1ByComm1OnceItsItemHasBeenChecked) {
    LinkRig rig;
    rig.replies = {"V512\r", "V512\r"};
    rig.connection.autoConnect2();
    rig.connection.closePort();
    rig.items[ConnectItems::Auto1].checked = true;
    rig.connection.autoConnect1();
    EXPECT_TRUE(rig.com1.isOpen());
}

TEST(Connecting, enablesTheButtonsAndShowsThatItConnects) {
    LinkRig rig;
    CommandState& commands = rig.session.commands;
    commands.resetShutterVisible = false;
    QString status;
    Activity activity = Activity::None;
    rig.com1.dtrChanged = [&](bool) {
        status = rig.session.status.status;
        activity = commands.activity;
        EXPECT_EQ(rig.state.portstatus, 1);
        EXPECT_TRUE(commands.closePortEnabled.value());
    };
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_EQ(status, QStringLiteral("Connecting..."));
    EXPECT_EQ(activity, Activity::Connecting);
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(commands.resetEnabled.value());
    EXPECT_TRUE(commands.runEnabled.value());
    EXPECT_TRUE(commands.clearAllEnabled.value());
    EXPECT_TRUE(commands.saveAsEnabled.value());
    EXPECT_TRUE(commands.resetShutterEnabled.value());
    EXPECT_TRUE(commands.resetShutterVisible.value());
    EXPECT_TRUE(commands.closePortEnabled.value());
}

TEST(Connecting, onlyAnnouncesWhileThePortIsOpen) {
    LinkRig rig;
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    rig.tickDebugOutput();
    const quint64 connection = rig.ports.connectionNumber();
    rig.com1.writes.clear();
    rig.connection.openport1();
    rig.connection.openport2();
    EXPECT_EQ(rig.com2.allWritten(), "Open port 1\rOpen Port 2\r");
    EXPECT_EQ(rig.ports.connectionNumber(), connection);
    EXPECT_TRUE(rig.com1.writes.empty());
    EXPECT_EQ(rig.com1.dtr.size(), 2);
    EXPECT_TRUE(rig.items[ConnectItems::Auto1].enabled.value());
}

TEST(Connecting, endsLikeAResetWhenThePortCannotBeOpened) {
    LinkRig rig;
    rig.com1.openReason = QStringLiteral("Reason.");
    rig.connection.autoConnect1();
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.messages.shown[0].text, QStringLiteral("COM 1 (ttyA) could not be opened.\n\nReason."));
    EXPECT_EQ(rig.resets, 1);
    EXPECT_EQ(rig.session.status.status.value(), QStringLiteral("Offline"));
    EXPECT_EQ(rig.session.commands.activity.value(), Activity::None);
    EXPECT_EQ(rig.state.Portused, 0);
    expectItems(rig, {{{true, false}, {true, false}, {true, false}, {true, false}}});
    EXPECT_EQ(rig.yield.yields, 0);
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(Connecting, closesTheDialogWhenAManualConnectionCannotOpenThePort) {
    LinkRig rig;
    rig.com2.openReason = QStringLiteral("Reason.");
    rig.connection.manualConnect(2);
    rig.manual.proceed();
    rig.manual.start();
    EXPECT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.resets, 1);
    EXPECT_EQ(rig.state.Seeking, 0);
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(Connecting, isToldOnceWhenTheLineFailsInTheWakeUpPulse) {
    LinkRig rig;
    rig.com1.dtrChanged = [&](bool on) {
        if (on) {
            rig.com1.failureReason = QStringLiteral("Gone.");
        }
    };
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.resets, 1);
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_FALSE(rig.manual.shown.visible.value());
    EXPECT_EQ(rig.session.status.status.value(), QStringLiteral("Offline"));
}

TEST(Connecting, isToldOnceWhenTheLineFailsWhileItWaitsForTheReply) {
    LinkRig rig;
    rig.com2.waited = [&](int milliseconds) {
        rig.clock.advance(milliseconds);
        rig.com2.failureReason = QStringLiteral("Gone.");
    };
    int endings = 0;
    rig.connection.pollingEnded = [&endings] { ++endings; };
    rig.connection.autoConnect2();
    EXPECT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.resets, 1);
    EXPECT_EQ(endings, 1);
    EXPECT_FALSE(rig.connection.isPolling());
    EXPECT_FALSE(rig.manual.shown.visible.value());
    expectItems(rig, {{{true, false}, {true, false}, {true, false}, {true, false}}});
}

} // namespace
} // namespace orv
