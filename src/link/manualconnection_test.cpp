// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/manualconnection.h"

#include "testing/linkrig.h"

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

TEST(ManualConnection, opensWithTheTextOfTheCheckedItem) {
    for (const DialogText& row : dialogTexts) {
        LinkRig rig;
        rig.items[row.item].checked = true;
        rig.manual.show();
        EXPECT_EQ(rig.manual.shown.text.value(), QLatin1String(row.text));
        EXPECT_TRUE(rig.manual.shown.visible.value());
    }
}

TEST(ManualConnection, opensWithoutTextWhenNoItemIsChecked) {
    LinkRig rig;
    rig.manual.shown.text = QStringLiteral("from before");
    rig.manual.show();
    EXPECT_EQ(rig.manual.shown.text.value(), QString());
    EXPECT_TRUE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, opensWithProceedAndRetryButWithoutStart) {
    LinkRig rig;
    ManualConnectionState& shown = rig.manual.shown;
    shown.startVisible = true;
    shown.startEnabled = false;
    shown.proceedVisible = false;
    shown.retryEnabled = false;
    rig.manual.show();
    EXPECT_FALSE(shown.startVisible.value());
    EXPECT_TRUE(shown.startEnabled.value());
    EXPECT_TRUE(shown.proceedVisible.value());
    EXPECT_TRUE(shown.retryEnabled.value());
}

TEST(ManualConnection, asksForAPowerCycleOnProceed) {
    LinkRig rig;
    rig.manual.show();
    rig.manual.proceed();
    EXPECT_FALSE(rig.manual.shown.proceedVisible.value());
    EXPECT_TRUE(rig.manual.shown.startVisible.value());
    EXPECT_EQ(rig.manual.shown.text.value(),
              QStringLiteral("Shut power off of sensor. Press (Start) then turn power on."));
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_FALSE(rig.ports.isOpen());
}

TEST(ManualConnection, seeksOnThePortInUseOnStartAndGoesAway) {
    for (const int port : {1, 2}) {
        LinkRig rig;
        rig.state.Portused = static_cast<quint8>(port);
        int opened = 0;
        rig.manual.openport = [&](int portNumber) {
            opened = portNumber;
            EXPECT_EQ(rig.state.Seeking, 1);
            EXPECT_FALSE(rig.manual.shown.retryEnabled.value());
            EXPECT_FALSE(rig.manual.shown.startEnabled.value());
            EXPECT_TRUE(rig.manual.shown.visible.value());
        };
        rig.manual.show();
        rig.manual.proceed();
        rig.manual.start();
        EXPECT_EQ(opened, port);
        EXPECT_FALSE(rig.manual.shown.visible.value());
    }
}

TEST(ManualConnection, saysWhileItSeeksThatTheDialogEndsIt) {
    const std::string wait = "Waiting for the instrument. \"Quit\" in the dialog ends it.";
    const std::function<void(LinkRig&)> ends[] = {
        [](LinkRig& rig) { rig.com1.input = "V512\r"; },
        [](LinkRig& rig) { rig.manual.quit(); },
        [](LinkRig& rig) { rig.connection.closePort(); },
        [](LinkRig& rig) { rig.com1.failureReason = QStringLiteral("Gone."); },
    };
    for (const auto& end : ends) {
        LinkRig rig;
        const QProperty<QString>& notice = rig.session.status.notice;
        rig.connection.manualConnect(1);
        EXPECT_EQ(notice.value().toStdString(), "");
        rig.manual.proceed();
        EXPECT_EQ(notice.value().toStdString(), "");
        int waits = 0;
        rig.com1.waited = [&](int milliseconds) {
            rig.clock.advance(milliseconds);
            EXPECT_EQ(notice.value().toStdString(), wait);
            if (++waits == 100) {
                end(rig);
            }
        };
        rig.manual.start();
        EXPECT_GE(waits, 100);
        EXPECT_EQ(notice.value().toStdString(), "");
    }
    LinkRig rig;
    rig.com1.openReason = QStringLiteral("Reason.");
    rig.connection.manualConnect(1);
    rig.manual.start();
    EXPECT_EQ(rig.session.status.notice.value().toStdString(), "");
}

TEST(ManualConnection, seeksNoLongerOnceStartHasReturned) {
    LinkRig rig;
    rig.manual.openport = [](int) {};
    rig.manual.start();
    EXPECT_EQ(rig.state.Seeking, 0);
}

TEST(ManualConnection, opensThePortInUseOnRetryAndStays) {
    LinkRig rig;
    int opened = 0;
    rig.manual.openport = [&opened](int portNumber) { opened = portNumber; };
    rig.state.Portused = 2;
    rig.manual.show();
    rig.manual.retry();
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(rig.state.Seeking, 0);
    EXPECT_TRUE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, opensNothingWhileNoPortWasEverUsed) {
    LinkRig rig;
    rig.state.Portused = 0;
    rig.manual.show();
    rig.manual.retry();
    EXPECT_FALSE(rig.com1.isOpen());
    EXPECT_FALSE(rig.com2.isOpen());
}

TEST(ManualConnection, resetsEverythingOnQuit) {
    LinkRig rig;
    rig.items[ConnectItems::Manual1].checked = true;
    rig.state.Seeking = 1;
    rig.ports.open();
    rig.manual.show();
    rig.manual.quit();
    EXPECT_EQ(rig.state.Seeking, 0);
    EXPECT_FALSE(rig.items.checked(ConnectItems::Manual1));
    EXPECT_EQ(rig.resets, 1);
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, resetsWhenItsWindowIsClosedBeforeTheInstrumentIsConnected) {
    LinkRig rig;
    rig.manual.show();
    rig.manual.closed();
    EXPECT_EQ(rig.resets, 1);
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, onlyGoesAwayWhenItsWindowIsClosedWithTheInstrumentConnected) {
    for (const Operation operation :
         {Operation::Identified, Operation::Ready, Operation::SettingsOpen, Operation::Collecting}) {
        LinkRig rig;
        rig.ports.open();
        rig.manual.show();
        rig.state.Ctrlscrn = operation;
        rig.manual.closed();
        EXPECT_EQ(rig.resets, 0);
        EXPECT_TRUE(rig.ports.isOpen());
        EXPECT_FALSE(rig.manual.shown.visible.value());
    }
}

TEST(ManualConnection, onlyGoesAwayWhenItsWindowIsClosedAfterADownload) {
    LinkRig rig;
    rig.ports.open();
    rig.session.commands.processingMenuVisible = true;
    rig.state.Ctrlscrn = Operation::Idle;
    rig.manual.show();
    rig.manual.closed();
    EXPECT_EQ(rig.resets, 0);
    EXPECT_TRUE(rig.ports.isOpen());
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, connectsWhenThePowerComesOnAfterAnyTime) {
    LinkRig rig;
    rig.connection.manualConnect(2);
    rig.manual.proceed();
    rig.replies.resize(60000); // a minute of silence
    rig.replies.emplace_back("F412\r");
    rig.manual.start();
    EXPECT_EQ(rig.com2.allWritten(), "P");
    EXPECT_EQ(rig.state.Vartemp, QStringLiteral("F"));
    EXPECT_EQ(rig.session.status.firmware.value(), QStringLiteral("412"));
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
    EXPECT_EQ(rig.state.Seeking, 0);
    EXPECT_FALSE(rig.manual.shown.visible.value());
    EXPECT_EQ(rig.resets, 0);
    EXPECT_GE(rig.clock.monotonicMilliseconds(), 60000);
}

TEST(ManualConnection, seeksWithoutLimitUntilQuit) {
    LinkRig rig;
    rig.connection.manualConnect(1);
    rig.manual.proceed();
    int endings = 0;
    rig.connection.pollingEnded = [&endings] { ++endings; };
    rig.yield.whileResponsive = [&rig](bool manualDialogLives) {
        EXPECT_TRUE(manualDialogLives);
        EXPECT_TRUE(rig.connection.isPolling());
        EXPECT_TRUE(rig.manual.shown.visible.value());
        if (rig.clock.monotonicMilliseconds() > 60000) {
            rig.manual.quit();
        }
    };
    rig.manual.start();
    EXPECT_GT(rig.clock.monotonicMilliseconds(), 60000);
    EXPECT_LT(rig.clock.monotonicMilliseconds(), 60100) << "the loop ends at once";
    EXPECT_FALSE(rig.connection.isPolling());
    EXPECT_EQ(endings, 1);
    EXPECT_EQ(rig.resets, 1);
    EXPECT_TRUE(rig.com1.writes.empty());
    EXPECT_EQ(rig.headerRows, 0);
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(rig.session.status.status.value(), QStringLiteral("Offline"));
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, endsWhenItsWindowIsClosedWhileItSeeks) {
    LinkRig rig;
    rig.connection.manualConnect(1);
    rig.manual.proceed();
    rig.yield.whileResponsive = [&rig](bool) { rig.manual.closed(); };
    rig.manual.start();
    EXPECT_EQ(rig.resets, 1);
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_TRUE(rig.com1.writes.empty());
}

TEST(ManualConnection, looksForTheTypeLetterAfreshInEachAttempt) {
    LinkRig rig;
    rig.connection.manualConnect(1);
    rig.replies.emplace_back("F");
    rig.replies.resize(6000);
    rig.replies.emplace_back("V512\r");
    rig.manual.start();
    EXPECT_EQ(rig.state.Vartemp, QStringLiteral("V"));
}

TEST(ManualConnection, leavesNoEndlessSearchBehindForALaterAutomaticAttempt) {
    LinkRig rig;
    rig.connection.autoConnect2(); // silent: the port stays open
    rig.manual.proceed();
    rig.manual.start(); // does nothing on an open port
    rig.connection.closePort();
    int calls = 0;
    rig.yield.whileResponsive = [&](bool) { rig.yield.ending = ++calls > 2000; };
    rig.connection.autoConnect2();
    EXPECT_FALSE(rig.yield.ending) << "the attempt had no limit";
    EXPECT_TRUE(rig.manual.shown.visible.value());
}

TEST(ManualConnection, endsTheSearchWhenThePortIsClosedInTheWakeUpPulse) {
    LinkRig rig;
    rig.connection.manualConnect(1);
    int yields = 0;
    bool bounded = false;
    rig.yield.tick = [&] {
        if (++yields == 10) {
            rig.connection.closePort();
            rig.connection.autoConnect2();
            bounded = rig.manual.shown.visible.value();
        }
    };
    int calls = 0;
    rig.yield.whileResponsive = [&](bool) { rig.yield.ending = ++calls > 2000; };
    rig.manual.start();
    EXPECT_FALSE(rig.yield.ending) << "the automatic attempt had no limit";
    EXPECT_TRUE(bounded);
    EXPECT_TRUE(rig.manual.shown.visible.value()) << "the dialog of the failed attempt must stay";
    EXPECT_TRUE(rig.com1.writes.empty());
}

} // namespace
} // namespace orv
