// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/abortrun.h"

#include "testing/linkrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using Panel = ConnectionPanel;

TEST(AbortRun, onlyAnnouncesItselfOnAClosedPort) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.items[Panel::Auto1].checked = true;
    rig.abortRun.abortrun();
    EXPECT_EQ(rig.com2.allWritten(), "Abort Run Function\r");
    EXPECT_FALSE(rig.session.commands.runEnabled.value());
    EXPECT_TRUE(rig.items.checked(Panel::Auto1));
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
    EXPECT_EQ(rig.state.Ctrlscrn, opstate::identified);
    EXPECT_TRUE(rig.items.checked(Panel::Auto1));
    EXPECT_TRUE(rig.items[Panel::Auto1].enabled.value());
    EXPECT_FALSE(rig.items[Panel::Manual1].enabled.value());
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
    EXPECT_TRUE(rig.items.checked(Panel::Auto2));
    EXPECT_EQ(rig.resets, 1);
}

TEST(AbortRun, showsTheManualDialogAgainAfterAManualConnection) {
    for (const int port : {1, 2}) {
        LinkRig rig;
        rig.connection.manualConnect(port);
        rig.replies = {"V512\r"};
        rig.manual.start();
        ASSERT_EQ(rig.state.Ctrlscrn, opstate::identified);
        rig.state.Portused = 0;
        rig.state.Gatherstop = 3;
        rig.state.gatherstart = 1;
        rig.abortRun.abortrun();
        EXPECT_FALSE(rig.ports.isOpen());
        EXPECT_EQ(rig.state.Portused, port);
        EXPECT_TRUE(rig.items.checked(port == 1 ? Panel::Manual1 : Panel::Manual2));
        EXPECT_TRUE(rig.manual.panel.visible.value());
        EXPECT_TRUE(rig.manual.panel.text.value().startsWith(
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
    EXPECT_TRUE(rig.manual.panel.visible.value());
    EXPECT_TRUE(rig.manual.panel.text.value().startsWith(QStringLiteral("To start manual connection on Comm 2")));
    EXPECT_TRUE(rig.manual.panel.proceedVisible.value());
    EXPECT_EQ(yields, 10) << "the attempt ends in its wait";
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_EQ(rig.state.Ctrlscrn, opstate::idle);
}

TEST(AbortRun, takesTheFirstCheckedItemAndNoOther) {
    LinkRig rig;
    rig.ports.open();
    rig.items[Panel::Auto2].checked = true;
    rig.items[Panel::Manual1].checked = true;
    rig.abortRun.abortrun();
    EXPECT_EQ(rig.resets, 1);
    EXPECT_TRUE(rig.items.checked(Panel::Auto2));
    EXPECT_FALSE(rig.items.checked(Panel::Manual1));
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
    EXPECT_TRUE(rig.manual.panel.visible.value());
    EXPECT_TRUE(rig.manual.panel.text.value().startsWith(
        QStringLiteral("Attempt to Auto Connect Via Comm 1 Failed!      Make sure")));
    EXPECT_EQ(rig.state.Portused, 1);
    EXPECT_TRUE(rig.ports.isOpen());
}

} // namespace
} // namespace orv
