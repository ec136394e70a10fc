// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "testing/linkrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct ReplyRow {
    const char* name;
    std::deque<QByteArray> blocks;
    const char* type;
    const char* firmware;
};

TEST(WakeUp, takesTypeAndFirmwareFromTheFirstReply) {
    const ReplyRow rows[] = {
        {"at once", {"V512\r"}, "V", "512"},
        {"fluorometer", {"F412\r"}, "F", "412"},
        {"three blocks", {"V", "51", "2\r"}, "V", "512"},
        {"by the character", {"F", "4", "1", "2", "\r"}, "F", "412"},
        {"CR alone in the latest block", {"V512", "\r"}, "V", "512"},
        {"both letters in a block", {"FV5\r"}, "V", "V5"},
        {"V after F in a later block", {"F5", "V\r"}, "F", "5V"},
        {"letter only", {"V\r"}, "V", ""},
        {"more behind the CR in its block", {"V512\r\n"}, "V", "512\r"},
        {"letter not first", {"xV512\r"}, "V", "V512"},
        {"letter after other blocks", {"xx", "V512\r"}, "V", "xV512"},
        {"late within the limit", std::deque<QByteArray>(4900), "V", "512"},
    };
    for (const ReplyRow& row : rows) {
        SCOPED_TRACE(row.name);
        LinkRig rig;
        rig.replies = row.blocks;
        if (row.blocks.size() > 100) {
            rig.replies.emplace_back("V512\r");
        }
        rig.connection.autoConnect1();
        EXPECT_EQ(rig.state.Vartemp, QLatin1String(row.type));
        EXPECT_EQ(rig.session.status.firmware.value(), QLatin1String(row.firmware));
        EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
        EXPECT_EQ(rig.com1.allWritten(), "P");
        EXPECT_EQ(rig.typeAtHeaderRow, QLatin1String(row.type));
        EXPECT_EQ(rig.headerRows, 1);
    }
}

TEST(WakeUp, goesOnWithoutATypeWhenTheReplyHasNeitherLetter) {
    for (const QByteArray& reply : {QByteArray("512\r"), QByteArray("\r"), QByteArray("v512\r"), QByteArray("f\r")}) {
        LinkRig rig;
        rig.state.Vartemp = QStringLiteral("V");
        rig.replies = {reply};
        rig.connection.autoConnect1();
        EXPECT_EQ(rig.state.Vartemp, QString());
        EXPECT_EQ(rig.session.status.firmware.value(), StatusState::unknownShort());
        EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
        EXPECT_EQ(rig.com1.allWritten(), "P");
    }
}

TEST(WakeUp, pulsesDataTerminalReadyForOneSecond) {
    LinkRig rig;
    std::vector<qint64> moments;
    rig.com1.dtrChanged = [&](bool) { moments.push_back(rig.clock.monotonicMilliseconds()); };
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.com1.dtr, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    ASSERT_EQ(moments.size(), 2U);
    EXPECT_NEAR(static_cast<double>(moments[1] - moments[0]), 1000.0, 10.0);
}

TEST(WakeUp, ignoresWhatArrivesDuringThePulse) {
    LinkRig rig;
    rig.com1.dtrChanged = [&](bool on) {
        if (on) {
            rig.com1.input = "F111\rold\r\nF2";
        } else {
            rig.com1.input += "F333\r";
        }
    };
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.com1.discards, 1);
    EXPECT_EQ(rig.state.Vartemp, QStringLiteral("V"));
    EXPECT_EQ(rig.session.status.firmware.value(), QStringLiteral("512"));
}

TEST(WakeUp, startsWithAnEmptyReplyEvenWhenALineCameAtTheEndOfThePulse) {
    LinkRig rig;
    const qint64 pulseEnd = rig.clock.monotonicMilliseconds() + 1000;
    rig.yield.tick = [&] {
        if (rig.clock.monotonicMilliseconds() >= pulseEnd - 10) {
            rig.com1.input = "boot\r\n";
        }
        rig.tick();
    };
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.session.status.firmware.value(), QStringLiteral("512"));
}

TEST(WakeUp, asksForTheStatusAFifthOfASecondAfterTheReply) {
    LinkRig rig;
    qint64 dropped = 0;
    qint64 asked = 0;
    rig.com1.dtrChanged = [&](bool) { dropped = rig.clock.monotonicMilliseconds(); };
    rig.com1.written = [&](const QByteArray&) { asked = rig.clock.monotonicMilliseconds(); };
    rig.replies = {"V512\r"};
    rig.connection.autoConnect1();
    EXPECT_NEAR(static_cast<double>(asked - dropped), 201.0, 10.0);
    ASSERT_EQ(rig.com1.writes.size(), 1U);
    EXPECT_EQ(rig.com1.writes[0], "P");
}

TEST(WakeUp, enablesTheTimerAndEmptiesTheReceiveBufferAtItsEnd) {
    LinkRig rig;
    rig.timer.setInterval(StatusTimer::slowInterval);
    rig.replies = {"V512\r"};
    EXPECT_EQ(rig.state.Tmr, 1);
    rig.connection.autoConnect1();
    EXPECT_TRUE(rig.timer.isRunning());
    EXPECT_EQ(rig.timer.interval(), 10);
    EXPECT_EQ(rig.state.Tmr, 1);
    EXPECT_GT(rig.yield.yields, 0);
}

TEST(WakeUp, listsTheTypeOnlyInTheServiceModeWithShowParsing) {
    for (const bool serviceMode : {false, true}) {
        LinkRig rig;
        rig.state.trouble = serviceMode ? 1 : 0;
        rig.debug.showParsing = true;
        rig.replies = {"F412\r"};
        rig.connection.autoConnect1();
        const std::deque<QString> expected =
            serviceMode ? std::deque<QString>{QStringLiteral("F")} : std::deque<QString>{};
        EXPECT_EQ(rig.debug.list.entries(), expected);
    }
}

TEST(WakeUp, dispatchesNoTickButKeepsTheWindowsAliveWhileItPolls) {
    LinkRig rig;
    int ends = 0;
    rig.connection.pollingEnded = [&] {
        ++ends;
        EXPECT_FALSE(rig.connection.isPolling());
    };
    rig.yield.whileResponsive = [&](bool manualDialogLives) {
        EXPECT_FALSE(manualDialogLives);
        EXPECT_TRUE(rig.connection.isPolling());
    };
    rig.replies.resize(1000);
    rig.replies.emplace_back("V512\r");
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.ticksWhilePolling, 0);
    EXPECT_GE(rig.yield.responsive, 99);
    EXPECT_LE(rig.yield.responsive, 101);
    EXPECT_EQ(ends, 1);
}

TEST(WakeUp, letsThePortWaitAMillisecondInEachPass) {
    LinkRig rig;
    rig.com1.waited = [&](int milliseconds) {
        EXPECT_EQ(milliseconds, 1);
        rig.clock.advance(milliseconds);
    };
    rig.connection.autoConnect1();
}

TEST(WakeUp, failsAfterFiveSecondsOfSilence) {
    LinkRig rig;
    qint64 dropped = 0;
    rig.com2.dtrChanged = [&](bool) { dropped = rig.clock.monotonicMilliseconds(); };
    rig.connection.autoConnect2();
    EXPECT_NEAR(static_cast<double>(rig.clock.monotonicMilliseconds() - dropped), 5000.0, 5.0);
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_EQ(
        rig.manual.shown.text.value(),
        QStringLiteral("Attempt to Auto Connect Via Comm 2 Failed!      Make sure that this cable is DTR enabled, "
                       "that power is supplied to the instrument, and that you selected the right Comm Port. Click "
                       "Retry when ready."));
    EXPECT_EQ(rig.state.Portused, 2);
    EXPECT_TRUE(rig.ports.isOpen());
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_EQ(rig.headerRows, 0);
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(rig.session.commands.activity.value(), Activity::None);
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_FALSE(rig.timer.isRunning());
}

TEST(WakeUp, failsOnComm1WithAnEmptyTextAndThePortNumberOfBefore) {
    LinkRig rig;
    rig.state.Portused = 2;
    int portAtDialog = 0;
    const auto notifier = rig.manual.shown.visible.addNotifier([&] { portAtDialog = rig.state.Portused; });
    rig.connection.autoConnect1();
    EXPECT_EQ(rig.manual.shown.text.value(), QString());
    EXPECT_EQ(portAtDialog, 2);
    EXPECT_EQ(rig.state.Portused, 1) << "set when the attempt has returned";
    EXPECT_TRUE(rig.items.checked(ConnectItems::Auto1));
}

TEST(WakeUp, failsWithAReplyThatNeverEnds) {
    LinkRig rig;
    rig.replies = {"F412"};
    const qint64 start = rig.clock.monotonicMilliseconds();
    rig.connection.autoConnect2();
    EXPECT_GE(rig.clock.monotonicMilliseconds() - start, 6000);
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_EQ(rig.state.Vartemp, QStringLiteral("F"));
    EXPECT_EQ(rig.session.status.firmware.value(), QStringLiteral("41")) << "the last character is taken for the CR";
    EXPECT_TRUE(rig.com2.writes.empty());
}

TEST(WakeUp, failsWithALetterAloneAndAnEmptyFirmware) {
    LinkRig rig;
    rig.replies = {"F"};
    rig.connection.autoConnect2();
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_EQ(rig.session.status.firmware.value(), QString());
}

TEST(WakeUp, isBoundedWhileGarbageKeepsComing) {
    LinkRig rig;
    rig.com2.waited = [&](int milliseconds) {
        rig.clock.advance(milliseconds);
        rig.com2.input = "x";
    };
    rig.connection.autoConnect2();
    EXPECT_TRUE(rig.manual.shown.visible.value());
    EXPECT_LT(rig.clock.monotonicMilliseconds(), 6100);
}

TEST(WakeUp, isNotRepeatedByRetryWhileThePortStaysOpen) {
    LinkRig rig;
    rig.connection.autoConnect2();
    rig.replies = {"V512\r"};
    const int yields = rig.yield.yields;
    rig.manual.retry();
    EXPECT_EQ(rig.yield.yields, yields);
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_TRUE(rig.manual.shown.visible.value());
}

TEST(WakeUp, isRepeatedByRetryAfterClosePort) {
    LinkRig rig;
    rig.connection.autoConnect2();
    rig.connection.closePort();
    rig.replies = {"V512\r"};
    rig.manual.retry();
    EXPECT_EQ(rig.com2.allWritten(), "P");
    EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(rig.manual.shown.visible.value());
}

TEST(WakeUp, isEndedByQuitOfTheFailureDialog) {
    LinkRig rig;
    rig.connection.autoConnect2();
    rig.manual.quit();
    EXPECT_EQ(rig.resets, 1);
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_EQ(rig.session.status.status.value(), QStringLiteral("Offline"));
}

TEST(WakeUp, endsWithTheProgram) {
    LinkRig rig;
    rig.yield.whileResponsive = [&](bool) { rig.yield.ending = true; };
    rig.connection.autoConnect2();
    EXPECT_EQ(rig.yield.responsive, 1);
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_FALSE(rig.manual.shown.visible.value());
    EXPECT_EQ(rig.headerRows, 0);
}

TEST(WakeUp, endsWithTheProgramInThePulse) {
    LinkRig rig;
    rig.yield.tick = [&] { rig.yield.ending = rig.yield.yields == 4; };
    rig.connection.autoConnect2();
    EXPECT_EQ(rig.yield.yields, 4);
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_FALSE(rig.manual.shown.visible.value());
}

} // namespace
} // namespace orv
