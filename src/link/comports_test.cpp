// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/comports.h"

#include "testing/linkrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

const QString title = QStringLiteral("ORV Host Program");

TEST(ComPorts, areBothClosedAtTheStartWithPortOneSelected) {
    LinkRig rig;
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_FALSE(rig.ports.isDebugPortOpen());
    EXPECT_EQ(rig.ports.selectedPort(), 1);
    EXPECT_EQ(rig.ports.device(1), QStringLiteral("ttyA"));
    EXPECT_EQ(rig.ports.device(2), QStringLiteral("ttyB"));
}

TEST(ComPorts, openTheSelectedPort) {
    LinkRig rig;
    rig.ports.selectPort(2);
    EXPECT_TRUE(rig.ports.open());
    EXPECT_TRUE(rig.com2.isOpen());
    EXPECT_FALSE(rig.com1.isOpen());
    EXPECT_TRUE(rig.session.commands.portOpen.value());
    rig.ports.close();
    EXPECT_FALSE(rig.com2.isOpen());
    EXPECT_FALSE(rig.session.commands.portOpen.value());
}

TEST(ComPorts, stayOnTheOpenPortWhenAnotherIsSelected) {
    LinkRig rig;
    rig.ports.open();
    rig.ports.selectPort(2);
    EXPECT_TRUE(rig.ports.open());
    EXPECT_TRUE(rig.com1.isOpen());
    EXPECT_FALSE(rig.com2.isOpen());
}

TEST(ComPorts, numberEachConnectionAnew) {
    LinkRig rig;
    const quint64 start = rig.ports.connectionNumber();
    rig.ports.open();
    const quint64 first = rig.ports.connectionNumber();
    EXPECT_NE(first, start);
    rig.ports.open();
    EXPECT_EQ(rig.ports.connectionNumber(), first);
    rig.ports.close();
    const quint64 closed = rig.ports.connectionNumber();
    EXPECT_NE(closed, first);
    rig.ports.close();
    EXPECT_EQ(rig.ports.connectionNumber(), closed);
    rig.ports.open();
    EXPECT_NE(rig.ports.connectionNumber(), first);
}

TEST(ComPorts, passEveryOperationToTheOpenPort) {
    LinkRig rig;
    rig.ports.open();
    rig.ports.setDataTerminalReady(true);
    rig.ports.setDataTerminalReady(false);
    EXPECT_EQ(rig.com1.dtr, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    rig.com1.input = "abc";
    EXPECT_EQ(rig.ports.inputCount(), 3);
    EXPECT_TRUE(rig.ports.waitForInput(1));
    EXPECT_EQ(rig.ports.readAll(), "abc");
    EXPECT_EQ(rig.ports.readAll(), QByteArray());
    EXPECT_FALSE(rig.ports.waitForInput(1));
    rig.ports.write("P");
    rig.ports.write("B1");
    EXPECT_EQ(rig.com1.allWritten(), "PB1");
    rig.com1.input = "abc";
    rig.ports.discardInput();
    EXPECT_EQ(rig.ports.inputCount(), 0);
}

TEST(ComPorts, touchNoPortWhileClosed) {
    LinkRig rig;
    rig.ports.open();
    rig.ports.close();
    rig.com1.input = "abc";
    rig.ports.setDataTerminalReady(true);
    rig.ports.write("P");
    rig.ports.discardInput();
    EXPECT_EQ(rig.ports.readAll(), QByteArray());
    EXPECT_EQ(rig.ports.inputCount(), 0);
    EXPECT_FALSE(rig.ports.waitForInput(1));
    EXPECT_FALSE(rig.ports.checkFailure());
    EXPECT_TRUE(rig.com1.dtr.isEmpty());
    EXPECT_TRUE(rig.com1.writes.empty());
    EXPECT_EQ(rig.com1.discards, 0);
}

TEST(ComPorts, tellWhyAPortCannotBeOpened) {
    LinkRig rig;
    rig.com2.openReason = QStringLiteral("There is no such device. Plug it in.");
    rig.ports.selectPort(2);
    EXPECT_FALSE(rig.ports.open());
    EXPECT_FALSE(rig.ports.isOpen());
    EXPECT_FALSE(rig.session.commands.portOpen.value());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(
        rig.messages.shown[0],
        (Message{title, QStringLiteral("COM 2 (ttyB) could not be opened.\n\nThere is no such device. Plug it in."),
                 Message::Icon::Exclamation}));
    rig.com2.openReason.clear();
    EXPECT_TRUE(rig.ports.open());
    EXPECT_EQ(rig.messages.shown.size(), 1U);
}

TEST(ComPorts, keepAPercentSignInADeviceName) {
    LinkRig rig;
    rig.ports.setDevice(1, QStringLiteral("tty%2"));
    rig.com2.openReason = QStringLiteral("Reason.");
    rig.ports.open();
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.messages.shown[0].text, QStringLiteral("COM 1 (tty%2) could not be opened.\n\nReason."));
}

TEST(ComPorts, refuseTheInstrumentThePortOfTheDebugOutput) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.ports.selectPort(2);
    EXPECT_FALSE(rig.ports.open());
    EXPECT_TRUE(rig.ports.isDebugPortOpen());
    EXPECT_TRUE(rig.com2.isOpen());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(
        rig.messages.shown[0].text,
        QStringLiteral("COM 2 (ttyB) could not be opened.\n\nThe debug output (\"Comm 2 Debug Output\") is using it. "
                       "Connect the instrument to the other port, or clear the box."));
    rig.ports.closeDebugPort();
    EXPECT_TRUE(rig.ports.open());
    EXPECT_TRUE(rig.com2.isOpen());
    EXPECT_EQ(rig.messages.shown.size(), 1U);
}

TEST(ComPorts, refuseTheDebugOutputThePortOfTheInstrument) {
    LinkRig rig;
    rig.ports.selectPort(2);
    rig.ports.open();
    EXPECT_FALSE(rig.ports.openDebugPort());
    EXPECT_FALSE(rig.ports.isDebugPortOpen());
    EXPECT_TRUE(rig.ports.isOpen());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.messages.shown[0].text,
              QStringLiteral(
                  "The debug output on COM 2 (ttyB) could not be opened.\n\nThe instrument is connected on it. Use "
                  "\"Close Port\" first, or connect the instrument to COM 1."));
    rig.ports.close();
    EXPECT_TRUE(rig.ports.openDebugPort());
}

TEST(ComPorts, noticeThatBothNumbersMeanOneDevice) {
    LinkRig rig;
    rig.ports.setDevice(1, QStringLiteral("ttyB"));
    rig.tickDebugOutput();
    EXPECT_FALSE(rig.ports.open());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_TRUE(rig.messages.shown[0].text.startsWith(QStringLiteral(
        "COM 1 (ttyB) could not be opened.\n\nThe debug output (\"Comm 2 Debug Output\") is using it.")));
}

TEST(ComPorts, serveInstrumentAndDebugOutputSideBySide) {
    LinkRig rig;
    rig.tickDebugOutput();
    EXPECT_TRUE(rig.ports.open());
    EXPECT_TRUE(rig.ports.openDebugPort());
    EXPECT_TRUE(rig.messages.shown.empty());
    rig.ports.write("P");
    rig.ports.debugsay(QStringLiteral("Hello"));
    EXPECT_EQ(rig.com1.allWritten(), "P");
    EXPECT_EQ(rig.com2.allWritten(), "Hello\r");
    rig.ports.close();
    EXPECT_TRUE(rig.ports.isDebugPortOpen());
}

TEST(ComPorts, tellWhyTheDebugPortCannotBeOpened) {
    LinkRig rig;
    rig.ports.setDevice(2, QStringLiteral("tty%1"));
    rig.com2.openReason = QStringLiteral("It is used by another program. Close that program, then connect again.");
    EXPECT_FALSE(rig.ports.openDebugPort());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.messages.shown[0],
              (Message{title,
                       QStringLiteral("The debug output on COM 2 (tty%1) could not be opened.\n\nIt is used by another "
                                      "program. Close that program, then tick \"Comm 2 Debug Output\" again."),
                       Message::Icon::Exclamation}));
}

TEST(DebugOutput, writesTheTextAndCarriageReturnWhileItsBoxIsTicked) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.ports.debugsay(QStringLiteral("Form Loading"));
    rig.ports.debugsay(QString());
    rig.ports.debugsay(QStringLiteral("\u00ff"));
    EXPECT_EQ(rig.com2.allWritten(), "Form Loading\r\r\xff\r");
}

TEST(DebugOutput, writesNothingWhileItsBoxIsCleared) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.debug.comm2Output = false;
    rig.ports.debugsay(QStringLiteral("Form Loading"));
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_TRUE(rig.com2.isOpen());
}

TEST(DebugOutput, isIgnoredWhileItsPortIsClosed) {
    LinkRig rig;
    rig.debug.comm2Output = true;
    rig.ports.debugsay(QStringLiteral("Form Loading"));
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_FALSE(rig.com2.isOpen());
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(DebugOutput, endsWithOneMessageWhenItsPortFails) {
    LinkRig rig;
    rig.tickDebugOutput();
    rig.com2.failureReason = QStringLiteral("The device is gone.");
    rig.ports.debugsay(QStringLiteral("one"));
    rig.ports.debugsay(QStringLiteral("two"));
    EXPECT_TRUE(rig.com2.writes.empty());
    EXPECT_FALSE(rig.com2.isOpen());
    EXPECT_FALSE(rig.ports.isDebugPortOpen());
    EXPECT_FALSE(rig.debug.comm2Output.value());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.messages.shown[0],
              (Message{title,
                       QStringLiteral("The debug output on COM 2 has stopped.\n\nThe device is gone.\n\nTick \"Comm 2 "
                                      "Debug Output\" to try again."),
                       Message::Icon::Exclamation}));
    rig.tickDebugOutput();
    rig.ports.debugsay(QStringLiteral("three"));
    EXPECT_EQ(rig.com2.allWritten(), "three\r");
}

TEST(PortFailure, closesThePortAndIsToldOnceAfterTheReset) {
    LinkRig rig;
    rig.ports.open();
    EXPECT_FALSE(rig.ports.checkFailure());
    rig.com1.failureReason = QStringLiteral("The device is gone.");
    std::size_t messagesAtReset = 99;
    bool openAtReset = true;
    rig.ports.portFailed = [&] {
        messagesAtReset = rig.messages.shown.size();
        openAtReset = rig.ports.isOpen();
    };
    EXPECT_TRUE(rig.ports.checkFailure());
    EXPECT_FALSE(rig.ports.checkFailure());
    EXPECT_EQ(messagesAtReset, 0U);
    EXPECT_FALSE(openAtReset);
    EXPECT_FALSE(rig.com1.isOpen());
    EXPECT_FALSE(rig.session.commands.portOpen.value());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(
        rig.messages.shown[0],
        (Message{title,
                 QStringLiteral("The connection on COM 1 (ttyA) was lost.\n\nThe device is gone.\n\nAll rows received "
                                "so far are kept. Check the cable, then connect again."),
                 Message::Icon::Exclamation}));
}

TEST(PortFailure, isToldWithoutAListenerToo) {
    LinkRig rig;
    rig.ports.portFailed = nullptr;
    rig.ports.selectPort(2);
    rig.ports.open();
    rig.com2.failureReason = QStringLiteral("Gone.");
    EXPECT_TRUE(rig.ports.checkFailure());
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_TRUE(rig.messages.shown[0].text.startsWith(QStringLiteral("The connection on COM 2 (ttyB) was lost.")));
}

} // namespace
} // namespace orv
