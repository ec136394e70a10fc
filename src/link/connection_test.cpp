// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct ItemRow {
    bool enabled;
    bool checked;
};

void expectItems(const ProgramRig& rig, const std::array<ItemRow, 4>& expected) {
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

using Connecting = ProgramTest;

TEST_F(Connecting, announcesEachStepForComm1) {
    tickDebugOutput();
    replies = {"V512\r"};
    autoConnect();
    EXPECT_EQ(said(), "Auto Open 1\rOpen port 1\rLooking to see what port to open\rPresets for Opening Port\r");
}

TEST_F(Connecting, announcesEachStepForComm2AndTellsThatTheDebugOutputHoldsIt) {
    tickDebugOutput();
    autoConnect(2);
    EXPECT_EQ(saidBriefly(), "Auto Open 2\rOpen Port 2\rLooking to see what port to open\r"
                             "Presets for Opening Port\r(reset)\r");
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("\"Comm 2 Debug Output\"")));
    EXPECT_EQ(status.status.value(), QStringLiteral("Offline"));
    EXPECT_TRUE(ports.isDebugPortOpen());
}

TEST_F(Connecting, announcesAManualConnection) {
    tickDebugOutput();
    program.manualConnect(1);
    program.manualConnect(2);
    EXPECT_EQ(said(), "Manual 1 Start\rManual 2 Start\r");
}

TEST_F(Connecting, checksItsItemOnlyAfterTheAttemptOnComm1) {
    replies = {"V512\r"};
    bool checkedDuring = false;
    com1.dtrChanged = [&](bool) { checkedDuring = checkedDuring || items.checkedPort() != 0; };
    autoConnect();
    EXPECT_FALSE(checkedDuring);
    EXPECT_EQ(state.Portused, 1);
    expectItems(*this, {{{true, true}, {false, false}, {true, false}, {false, false}}});
}

TEST_F(Connecting, checksItsItemBeforeTheAttemptOnComm2) {
    replies = {"V512\r"};
    bool checkedDuring = true;
    com2.dtrChanged = [&](bool) { checkedDuring = checkedDuring && items.checked(ConnectItems::Auto2); };
    autoConnect(2);
    EXPECT_EQ(com2.dtr.size(), 2);
    EXPECT_TRUE(checkedDuring);
    EXPECT_EQ(state.Portused, 2);
    expectItems(*this, {{{false, false}, {true, true}, {false, false}, {false, false}}});
}

TEST_F(Connecting, checksAManualItemAndOpensTheDialogOnly) {
    for (const int port : {1, 2}) {
        ProgramRig rig;
        const ConnectItems::Item item = port == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2;
        rig.items[item].enabled = false;
        rig.program.manualConnect(port);
        EXPECT_TRUE(rig.items.checked(item));
        EXPECT_TRUE(rig.items[item].enabled.value());
        EXPECT_EQ(rig.state.Portused, port);
        EXPECT_TRUE(rig.manual.shown.visible.value());
        EXPECT_FALSE(rig.ports.isOpen());
        EXPECT_TRUE(rig.manual.shown.text.value().contains(QStringLiteral("manual connection on Comm %1").arg(port)));
    }
}

TEST_F(Connecting, disablesTheOtherItemsDuringAManualConnection) {
    program.manualConnect(1);
    replies = {"V512\r"};
    pressStart();
    expectItems(*this, {{{false, false}, {false, false}, {false, true}, {false, false}}});
}

TEST_F(Connecting, usesPort2WithItsManualItemCheckedAfterAutomaticComm1) {
    items[ConnectItems::Auto1].checked = true;
    program.manualConnect(2);
    replies = {"V512\r"};
    pressStart();
    EXPECT_EQ(ports.selectedPort(), 2);
    EXPECT_TRUE(com2.isOpen());
    EXPECT_FALSE(com1.isOpen());
}

TEST_F(Connecting, byTheButtonIsOnItsPortAlsoWhileAManualConnectionOfTheOtherWaits) {
    for (const int portNumber : {1, 2}) {
        program.manualConnect(3 - portNumber);
        replies = {"V512\r"};
        program.connectPort(portNumber);
        EXPECT_FALSE(manual.shown.visible);
        finish();
        EXPECT_EQ(ports.selectedPort(), portNumber);
        EXPECT_EQ(com1.isOpen(), portNumber == 1);
        EXPECT_EQ(com2.isOpen(), portNumber == 2);
        program.closePort();
    }
}

TEST_F(Connecting, opensPort2AgainByComm1AfterASessionOnPort2) {
    replies = {"V512\r", "V512\r"};
    autoConnect(2);
    program.closePort();
    autoConnect();
    EXPECT_TRUE(com2.isOpen());
    EXPECT_FALSE(com1.isOpen());
    EXPECT_EQ(state.Portused, 1);
    EXPECT_TRUE(items.checked(ConnectItems::Auto1));
}

TEST_F(Connecting, opensPort1ByComm1OnceItsItemHasBeenChecked) {
    replies = {"V512\r", "V512\r"};
    autoConnect(2);
    program.closePort();
    items[ConnectItems::Auto1].checked = true;
    autoConnect();
    EXPECT_TRUE(com1.isOpen());
}

TEST_F(Connecting, enablesTheButtonsAndShowsThatItConnects) {
    commands.resetShutterVisible = false;
    QString shown;
    Activity activity = Activity::None;
    com1.dtrChanged = [&](bool) {
        shown = status.status;
        activity = commands.activity;
        EXPECT_EQ(state.portstatus, 1);
        EXPECT_TRUE(commands.closePortEnabled.value());
    };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_EQ(shown, QStringLiteral("Connecting..."));
    EXPECT_EQ(activity, Activity::Connecting);
    EXPECT_EQ(commands.activity.value(), Activity::ReadingSettings);
    EXPECT_TRUE(commands.resetEnabled.value());
    EXPECT_TRUE(commands.runEnabled.value());
    EXPECT_TRUE(commands.clearAllEnabled.value());
    EXPECT_TRUE(commands.saveAsEnabled.value());
    EXPECT_TRUE(commands.resetShutterEnabled.value());
    EXPECT_TRUE(commands.resetShutterVisible.value());
    EXPECT_TRUE(commands.closePortEnabled.value());
}

TEST_F(Connecting, onlyAnnouncesWhileThePortIsOpen) {
    replies = {"V512\r"};
    autoConnect();
    tickDebugOutput();
    com1.writes.clear();
    const Subscription closing = ports.closed.subscribe([] { ADD_FAILURE() << "closed"; });
    for (const int port : {1, 2}) {
        state.Portused = static_cast<quint8>(port);
        pressRetry();
    }
    EXPECT_EQ(said(), "Open port 1\rOpen Port 2\r");
    EXPECT_TRUE(com1.isOpen());
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(com1.dtr.size(), 2);
    EXPECT_TRUE(items[ConnectItems::Auto1].enabled.value());
}

TEST_F(Connecting, endsLikeAResetWhenThePortCannotBeOpened) {
    com1.openReason = QStringLiteral("Reason.");
    autoConnect();
    EXPECT_EQ(theMessage().text, QStringLiteral("COM 1 (ttyA) could not be opened.\n\nReason."));
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_EQ(state.Portused, 0);
    EXPECT_EQ(clock.monotonicMilliseconds(), 0);
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(Connecting, closesTheDialogWhenAManualConnectionCannotOpenThePort) {
    com2.openReason = QStringLiteral("Reason.");
    program.manualConnect(2);
    manual.proceed();
    pressStart();
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(Connecting, forgetsAtEachEndHowTheInstrumentsClockStood) {
    const std::function<void()> ends[] = {[this] { program.closePort(); }, [this] { fixit(); }, [this] { abort2(); }};
    for (const auto& end : ends) {
        connectAndRead();
        status.clockOffset = 40;
        end();
        EXPECT_FALSE(status.clockOffset.value());
        program.closePort();
    }
}

TEST_F(Connecting, isToldOnceWhenTheLineFailsInTheWakeUpPulse) {
    com1.dtrChanged = [&](bool on) {
        if (on) {
            com1.failureReason = QStringLiteral("Gone.");
        }
    };
    autoConnect();
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_FALSE(manual.shown.visible.value());
}

TEST_F(Connecting, isToldOnceWhenTheLineFailsWhileItWaitsForTheReply) {
    eachMillisecond = [&] {
        if (timer.isHeld()) {
            com2.failureReason = QStringLiteral("Gone.");
        }
    };
    autoConnect(2);
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_FALSE(timer.isHeld());
    EXPECT_FALSE(manual.shown.visible.value());
}

} // namespace
} // namespace orv
