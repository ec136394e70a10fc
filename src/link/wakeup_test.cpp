// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

struct ReplyRow {
    const char* name;
    std::deque<QByteArray> blocks;
    const char* type;
    const char* firmware;
};

using WakeUp = ProgramTest;

TEST_F(WakeUp, takesTypeAndFirmwareFromTheFirstReply) {
    const ReplyRow rows[] = {
        {"at once", {"V512\r"}, "V", "512"},
        {"fluorometer", {"F412\r"}, "F", "412"},
        {"three blocks", {"V", "51", "2\r"}, "V", "512"},
        {"by the character", {"F", "4", "1", "2", "\r"}, "F", "412"},
        {"CR alone in the latest block", {"V512", "\r"}, "V", "512"},
        {"both letters in a block", {"FV5\r"}, "V", "5"},
        {"both letters in a block, V first", {"VF5\r"}, "V", "F5"},
        {"V after F in a later block", {"F5", "V\r"}, "F", "5V"},
        {"letter only", {"V\r"}, "V", ""},
        {"more behind the CR in its block", {"V512\r\n"}, "V", "512\r"},
        {"letter not first", {"xV512\r"}, "V", "512"},
        {"letter after other blocks", {"xx", "V512\r"}, "V", "512"},
        {"letter after a NUL", {QByteArray("\0V512\r", 6)}, "V", "512"},
        {"noise, then by the character", {QByteArray(1, '\0'), "\xff", "F", "4", "1", "2", "\r"}, "F", "412"},
        {"CR before the letter in its block", {"x\rV51", "2\r"}, "V", "512"},
        {"noise that reads like the letter", {"VV512\r"}, "V", "512"},
        {"two greetings in a block", {"V512\rV512\r"}, "V", "512\rV512"},
        {"late within the limit", std::deque<QByteArray>(4900), "V", "512"},
    };
    for (const ReplyRow& row : rows) {
        SCOPED_TRACE(row.name);
        ProgramRig rig;
        rig.replies = row.blocks;
        if (row.blocks.size() > 100) {
            rig.replies.emplace_back("V512\r");
        }
        rig.autoConnect();
        EXPECT_EQ(rig.state.Vartemp, QLatin1String(row.type));
        EXPECT_EQ(rig.status.firmware.value(), QLatin1String(row.firmware));
        EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
        EXPECT_EQ(rig.com1.allWritten(), "P");
        EXPECT_EQ(rig.sheet.type().letter, QLatin1String(row.type));
        EXPECT_EQ(rig.identifications, 1);
        EXPECT_NE(rig.sheet.type().layout(), RowLayout::Unknown) << "the header row is laid out";
    }
}

TEST_F(WakeUp, goesOnWithoutATypeWhenTheReplyHasNeitherLetter) {
    for (const QByteArray& reply : {QByteArray("512\r"), QByteArray("\r"), QByteArray("v512\r"), QByteArray("f\r")}) {
        ProgramRig rig;
        rig.state.Vartemp = QStringLiteral("V");
        rig.replies = {reply};
        rig.autoConnect();
        EXPECT_EQ(rig.state.Vartemp, QString());
        EXPECT_EQ(rig.status.firmware.value(), StatusState::unknownShort());
        EXPECT_EQ(rig.state.Ctrlscrn, Operation::Identified);
        EXPECT_EQ(rig.com1.allWritten(), "P");
    }
}

TEST_F(WakeUp, pulsesDataTerminalReadyForOneSecond) {
    std::vector<qint64> moments;
    com1.dtrChanged = [&](bool) { moments.push_back(clock.monotonicMilliseconds()); };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_EQ(com1.dtr, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    ASSERT_EQ(moments.size(), 2U);
    EXPECT_NEAR(static_cast<double>(moments[1] - moments[0]), 1000.0, 10.0);
}

TEST_F(WakeUp, ignoresWhatArrivesDuringThePulse) {
    com1.dtrChanged = [&](bool on) {
        if (on) {
            com1.input = "F111\rold\r\nF2";
        } else {
            com1.input += "F333\r";
        }
    };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_EQ(com1.discards, 1);
    EXPECT_EQ(state.Vartemp, QStringLiteral("V"));
    EXPECT_EQ(status.firmware.value(), QStringLiteral("512"));
}

TEST_F(WakeUp, startsWithAnEmptyReplyEvenWhenALineCameAtTheEndOfThePulse) {
    timer.enable();
    clock.advance(1); // ticks come a millisecond before and after the pulse ends
    com1.dtrChanged = [&](bool on) { com1.input = on ? "" : "boot\r\n"; };
    eachMillisecond = [&] {
        if (com1.dtr.size() == 1) {
            com1.input = "boot\r\n";
        }
    };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_EQ(status.firmware.value(), QStringLiteral("512"));
}

TEST_F(WakeUp, asksForTheStatusAFifthOfASecondAfterTheReply) {
    qint64 dropped = 0;
    qint64 asked = 0;
    com1.dtrChanged = [&](bool) { dropped = clock.monotonicMilliseconds(); };
    com1.written = [&](const QByteArray&) { asked = clock.monotonicMilliseconds(); };
    replies = {"V512\r"};
    autoConnect();
    EXPECT_NEAR(static_cast<double>(asked - dropped), 201.0, 10.0);
    ASSERT_EQ(com1.writes.size(), 1);
    EXPECT_EQ(com1.writes[0], "P");
}

TEST_F(WakeUp, enablesTheTimerAndEmptiesTheReceiveBufferAtItsEnd) {
    timer.setInterval(StatusTimer::slowInterval);
    replies = {"V512\r"};
    autoConnect();
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(timer.interval(), 10);
    EXPECT_EQ(state.Tmr, 1);
}

TEST_F(WakeUp, listsTheTypeOnlyInTheServiceModeWithShowParsing) {
    for (const bool serviceMode : {false, true}) {
        ProgramRig rig;
        rig.state.trouble = serviceMode ? 1 : 0;
        rig.debug.showParsing = true;
        rig.replies = {"F412\r"};
        rig.autoConnect();
        const std::deque<QString> expected =
            serviceMode ? std::deque<QString>{QStringLiteral("F")} : std::deque<QString>{};
        EXPECT_EQ(rig.debug.list.entries(), expected);
    }
}

TEST_F(WakeUp, letsNoTickReadThePortWhileItWaitsForTheReply) {
    timer.enable();
    int ticksSeen = 0;
    const Subscription counting = timer.tick.subscribe([&] {
        ++ticksSeen;
        EXPECT_LT(com1.dtr.size(), 2) << "only in the pulse and after it";
    });
    eachMillisecond = [&] {
        com1.input += com1.dtr.size() == 1 ? "x" : "";
        timer.wake();
    };
    replies.resize(1000);
    replies.emplace_back("V512\r");
    const Subscription ended = program.link.connection.identified.subscribe([&] { com1.dtr.clear(); });
    com1.read = [&](const QByteArray& block) { com1.dtr = block.contains('\r') ? QStringList() : com1.dtr; };
    autoConnect();
    EXPECT_GT(ticksSeen, 190);
    EXPECT_EQ(status.firmware.value(), QStringLiteral("512"));
    EXPECT_FALSE(timer.isHeld());
}

TEST_F(WakeUp, understandsAnInstrumentWhosePowerMakesNoise) {
    for (const int seed : {1, 2, 3, 4, 5, 6, 7, 8, 9}) {
        ProgramRig rig(simulatedInstrument);
        rig.ports.setDevice(1, QStringLiteral("sim:trx?fault=noise&seed=%1").arg(seed));
        rig.autoConnect();
        EXPECT_FALSE(rig.line->blocks.join().startsWith('V'));
        EXPECT_EQ(rig.state.Vartemp, QStringLiteral("V"));
        EXPECT_EQ(rig.status.firmware.value(), QStringLiteral("512"));
        EXPECT_EQ(rig.sheet.type().layout(), RowLayout::TrxNewer);
    }
}

TEST_F(WakeUp, listsWhatStandsBeforeTheLetterOnlyInTheServiceModeWithShowParsing) {
    using List = std::deque<QString>;
    const QString noise = QString::fromLatin1(QByteArray("\0\xfex", 3));
    for (const bool serviceMode : {false, true}) {
        for (const bool showParsing : {false, true}) {
            ProgramRig rig;
            rig.state.trouble = serviceMode ? 1 : 0;
            rig.debug.showParsing = showParsing;
            rig.replies = {QByteArray("\0\xfe", 2), "xF4", "12\r"};
            rig.autoConnect();
            EXPECT_EQ(rig.debug.list.entries(),
                      serviceMode && showParsing ? (List{noise, QStringLiteral("F")}) : List());
            EXPECT_EQ(rig.state.firmware, 412.0);
        }
    }
}

TEST_F(WakeUp, beginsEachAttemptOfAManualConnectionWithAnEmptyReply) {
    program.link.connection.manualConnect(1);
    manual.proceed();
    QString between = QStringLiteral("unseen");
    eachMillisecond = [&] {
        const qint64 sinceThePulse = clock.monotonicMilliseconds() - 1000;
        if (sinceThePulse == 4000) {
            com1.input = "F3"; // not the whole of it: the power failed again
        } else if (sinceThePulse == 5500) {
            between = state.Rtn;
            com1.input = "V512\r";
        }
    };
    pressStart();
    EXPECT_EQ(between, QString());
    EXPECT_EQ(state.Vartemp, QStringLiteral("V"));
    EXPECT_EQ(status.firmware.value(), QStringLiteral("512"));
    EXPECT_EQ(state.firmware, 512.0);
}

TEST_F(WakeUp, failsAfterFiveSecondsOfSilence) {
    qint64 dropped = 0;
    com2.dtrChanged = [&](bool) { dropped = clock.monotonicMilliseconds(); };
    autoConnect(2);
    EXPECT_NEAR(static_cast<double>(clock.monotonicMilliseconds() - dropped), 5000.0, 5.0);
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_EQ(
        manual.shown.text.value(),
        QStringLiteral("Attempt to Auto Connect Via Comm 2 Failed!      Make sure that this cable is DTR enabled, "
                       "that power is supplied to the instrument, and that you selected the right Comm Port. Click "
                       "Retry when ready."));
    EXPECT_EQ(state.Portused, 2);
    EXPECT_TRUE(ports.isOpen());
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_EQ(identifications, 0);
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(timer.isRunning());
}

TEST_F(WakeUp, failsOnComm1WithAnEmptyTextAndThePortNumberOfBefore) {
    state.Portused = 2;
    int portAtDialog = 0;
    const auto notifier = manual.shown.visible.addNotifier([&] { portAtDialog = state.Portused; });
    autoConnect();
    EXPECT_EQ(manual.shown.text.value(), QString());
    EXPECT_EQ(portAtDialog, 2);
    EXPECT_EQ(state.Portused, 1) << "set when the attempt has returned";
    EXPECT_TRUE(items.checked(ConnectItems::Auto1));
}

TEST_F(WakeUp, failsWithAReplyThatNeverEnds) {
    replies = {"F412"};
    const qint64 start = clock.monotonicMilliseconds();
    autoConnect(2);
    EXPECT_GE(clock.monotonicMilliseconds() - start, 6000);
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_EQ(state.Vartemp, QStringLiteral("F"));
    EXPECT_EQ(status.firmware.value(), QStringLiteral("41")) << "the last character is taken for the CR";
    EXPECT_TRUE(com2.writes.empty());
}

TEST_F(WakeUp, failsWithALetterAloneAndAnEmptyFirmware) {
    replies = {"F"};
    autoConnect(2);
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_EQ(status.firmware.value(), QString());
}

TEST_F(WakeUp, isBoundedWhileGarbageKeepsComing) {
    eachMillisecond = [&] { com2.input = "x"; };
    autoConnect(2);
    EXPECT_TRUE(manual.shown.visible.value());
    EXPECT_LT(clock.monotonicMilliseconds(), 6100);
}

TEST_F(WakeUp, isNotRepeatedByRetryWhileThePortStaysOpen) {
    autoConnect(2);
    replies = {"V512\r"};
    const qint64 before = clock.monotonicMilliseconds();
    pressRetry();
    EXPECT_EQ(clock.monotonicMilliseconds(), before);
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_TRUE(manual.shown.visible.value());
}

TEST_F(WakeUp, isRepeatedByRetryAfterClosePort) {
    autoConnect(2);
    program.closePort();
    replies = {"V512\r"};
    pressRetry();
    EXPECT_EQ(com2.allWritten(), "P");
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(manual.shown.visible.value());
}

TEST_F(WakeUp, isEndedByQuitOfTheFailureDialog) {
    autoConnect(2);
    manual.quit();
    EXPECT_EQ(resets, 1);
    expectOffline();
}

TEST_F(WakeUp, endsWithTheProgramInThePulseAndAfterIt) {
    for (const qint64 moment : {1, 500, 999, 1001, 3000, 5999}) {
        ProgramRig rig;
        rig.eachMillisecond = [&] {
            if (rig.clock.monotonicMilliseconds() == moment) {
                rig.program.end();
                EXPECT_TRUE(rig.procedures.isIdle()) << "within the call";
            }
        };
        rig.autoConnect(2);
        EXPECT_EQ(rig.clock.monotonicMilliseconds(), moment);
        EXPECT_TRUE(rig.com2.writes.empty());
        EXPECT_FALSE(rig.com2.isOpen());
        EXPECT_FALSE(rig.manual.shown.visible.value());
        EXPECT_EQ(rig.identifications, 0);
    }
}

} // namespace
} // namespace orv
