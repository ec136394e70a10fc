// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/comports.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using ComPorts = ProgramTest;

TEST_F(ComPorts, areBothClosedAtTheStartWithPortOneSelected) {
    EXPECT_FALSE(ports.isOpen());
    EXPECT_FALSE(ports.isDebugPortOpen());
    EXPECT_EQ(ports.selectedPort(), 1);
    EXPECT_EQ(ports.device(1), QStringLiteral("ttyA"));
    EXPECT_EQ(ports.device(2), QStringLiteral("ttyB"));
}

TEST_F(ComPorts, openTheSelectedPort) {
    ports.selectPort(2);
    EXPECT_TRUE(ports.open());
    EXPECT_TRUE(com2.isOpen());
    EXPECT_FALSE(com1.isOpen());
    EXPECT_TRUE(commands.portOpen.value());
    ports.close();
    EXPECT_FALSE(com2.isOpen());
    EXPECT_FALSE(commands.portOpen.value());
}

TEST_F(ComPorts, stayOnTheOpenPortWhenAnotherIsSelected) {
    ports.open();
    ports.selectPort(2);
    EXPECT_TRUE(ports.open());
    EXPECT_TRUE(com1.isOpen());
    EXPECT_FALSE(com2.isOpen());
}

TEST_F(ComPorts, tellWhenTheInstrumentsPortHasBeenClosed) {
    int closings = 0;
    const Subscription listening = ports.closed.subscribe([&] {
        ++closings;
        EXPECT_FALSE(ports.isOpen());
        EXPECT_FALSE(com1.isOpen());
    });
    ports.close();
    ports.open();
    ports.open();
    EXPECT_EQ(closings, 0);
    ports.close();
    EXPECT_EQ(closings, 1);
    ports.close();
    EXPECT_EQ(closings, 1);
    ports.open();
    com1.failureReason = QStringLiteral("Pulled.");
    EXPECT_EQ(closings, 2);
}

TEST_F(ComPorts, tellOfTheOpenInstrumentsPortAlone) {
    int tellings = 0;
    const Subscription listening = ports.stirred.subscribe([&tellings] { ++tellings; });
    com1.stirred.tell();
    EXPECT_EQ(tellings, 0);
    ports.open();
    com1.stirred.tell();
    EXPECT_EQ(tellings, 1);
    com2.stirred.tell();
    EXPECT_EQ(tellings, 1);
    ports.close();
    com1.stirred.tell();
    EXPECT_EQ(tellings, 1);
    ports.selectPort(2);
    ports.open();
    com2.stirred.tell();
    EXPECT_EQ(tellings, 2);
}

TEST_F(ComPorts, dropWhatComesToTheDebugPort) {
    tickDebugOutput();
    com2.input = QByteArray(5000, 'x');
    EXPECT_EQ(com2.inputCount(), 0);
    ports.open();
    com1.input = "kept";
    EXPECT_EQ(ports.readAll(), "kept");
    ports.closeDebugPort();
    com2.input = "y";
    EXPECT_EQ(com2.inputCount(), 1) << "a closed port is left alone";
    EXPECT_TRUE(ports.openDebugPort());
    ports.closeDebugPort();
    ports.close();
    ports.selectPort(2);
    ports.open();
    com2.input = "from the instrument";
    EXPECT_EQ(ports.readAll(), "from the instrument");
}

TEST_F(ComPorts, passEveryOperationToTheOpenPort) {
    ports.open();
    ports.setDataTerminalReady(true);
    ports.setDataTerminalReady(false);
    EXPECT_EQ(com1.dtr, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    com1.input = "abc";
    EXPECT_EQ(ports.inputCount(), 3);
    EXPECT_EQ(ports.readAll(), "abc");
    EXPECT_EQ(ports.readAll(), QByteArray());
    ports.write("P");
    ports.write("B1");
    EXPECT_EQ(com1.allWritten(), "PB1");
    com1.input = "abc";
    ports.discardInput();
    EXPECT_EQ(ports.inputCount(), 0);
}

TEST_F(ComPorts, touchNoPortWhileClosed) {
    ports.open();
    ports.close();
    com1.input = "abc";
    ports.setDataTerminalReady(true);
    ports.write("P");
    ports.discardInput();
    EXPECT_EQ(ports.readAll(), QByteArray());
    EXPECT_EQ(ports.inputCount(), 0);
    EXPECT_FALSE(ports.checkFailure());
    EXPECT_TRUE(com1.dtr.isEmpty());
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(com1.discards, 0);
}

TEST_F(ComPorts, tellWhyAPortCannotBeOpened) {
    com2.openReason = QStringLiteral("There is no such device. Plug it in.");
    ports.selectPort(2);
    EXPECT_FALSE(ports.open());
    EXPECT_FALSE(ports.isOpen());
    EXPECT_FALSE(commands.portOpen.value());
    EXPECT_EQ(theMessage(), operatorWarning(QStringLiteral(
                                "COM 2 (ttyB) could not be opened.\n\nThere is no such device. Plug it in.")));
    com2.openReason.clear();
    EXPECT_TRUE(ports.open());
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ComPorts, keepAPercentSignInADeviceName) {
    ports.setDevice(1, QStringLiteral("tty%2"));
    com2.openReason = QStringLiteral("Reason.");
    ports.open();
    EXPECT_EQ(theMessage().text, QStringLiteral("COM 1 (tty%2) could not be opened.\n\nReason."));
}

TEST_F(ComPorts, refuseTheInstrumentThePortOfTheDebugOutput) {
    tickDebugOutput();
    ports.selectPort(2);
    EXPECT_FALSE(ports.open());
    EXPECT_TRUE(ports.isDebugPortOpen());
    EXPECT_TRUE(com2.isOpen());
    EXPECT_EQ(
        theMessage().text,
        QStringLiteral("COM 2 (ttyB) could not be opened.\n\nThe debug output (\"Comm 2 Debug Output\") is using it. "
                       "Connect the instrument to the other port, or clear the box."));
    ports.closeDebugPort();
    EXPECT_TRUE(ports.open());
    EXPECT_TRUE(com2.isOpen());
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ComPorts, refuseTheDebugOutputThePortOfTheInstrument) {
    ports.selectPort(2);
    ports.open();
    EXPECT_FALSE(ports.openDebugPort());
    EXPECT_FALSE(ports.isDebugPortOpen());
    EXPECT_TRUE(ports.isOpen());
    EXPECT_EQ(theMessage().text,
              QStringLiteral(
                  "The debug output on COM 2 (ttyB) could not be opened.\n\nThe instrument is connected on it. Use "
                  "\"Close Port\" first, or connect the instrument to COM 1."));
    ports.close();
    EXPECT_TRUE(ports.openDebugPort());
}

TEST_F(ComPorts, noticeThatBothNumbersMeanOneDevice) {
    ports.setDevice(1, QStringLiteral("ttyB"));
    tickDebugOutput();
    EXPECT_FALSE(ports.open());
    EXPECT_TRUE(theMessage().text.startsWith(QStringLiteral(
        "COM 1 (ttyB) could not be opened.\n\nThe debug output (\"Comm 2 Debug Output\") is using it.")));
}

TEST_F(ComPorts, serveInstrumentAndDebugOutputSideBySide) {
    tickDebugOutput();
    EXPECT_TRUE(ports.open());
    EXPECT_TRUE(ports.openDebugPort());
    EXPECT_TRUE(messages.shown.empty());
    ports.write("P");
    ports.debugsay(QStringLiteral("Hello"));
    EXPECT_EQ(com1.allWritten(), "P");
    EXPECT_EQ(said(), "Hello\r");
    ports.close();
    EXPECT_TRUE(ports.isDebugPortOpen());
}

TEST_F(ComPorts, tellWhyTheDebugPortCannotBeOpened) {
    ports.setDevice(2, QStringLiteral("tty%1"));
    com2.openReason = QStringLiteral("It is used by another program. Close that program, then connect again.");
    EXPECT_FALSE(ports.openDebugPort());
    EXPECT_EQ(theMessage(), operatorWarning(QStringLiteral(
                                "The debug output on COM 2 (tty%1) could not be opened.\n\nIt is used by another "
                                "program. Close that program, then tick \"Comm 2 Debug Output\" again.")));
}

using DebugOutput = ProgramTest;

TEST_F(DebugOutput, writesTheTextAndCarriageReturnWhileItsBoxIsTicked) {
    tickDebugOutput();
    ports.debugsay(QStringLiteral("Form Loading"));
    ports.debugsay(QString());
    ports.debugsay(QStringLiteral("\u00ff"));
    EXPECT_EQ(said(), "Form Loading\r\r\xff\r");
}

TEST_F(DebugOutput, writesNothingWhileItsBoxIsCleared) {
    tickDebugOutput();
    debug.comm2Output = false;
    ports.debugsay(QStringLiteral("Form Loading"));
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_TRUE(com2.isOpen());
}

TEST_F(DebugOutput, isIgnoredWhileItsPortIsClosed) {
    debug.comm2Output = true;
    ports.debugsay(QStringLiteral("Form Loading"));
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_FALSE(com2.isOpen());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DebugOutput, endsWithOneMessageWhenItsPortFails) {
    tickDebugOutput();
    com2.failureReason = QStringLiteral("The device is gone.");
    ports.debugsay(QStringLiteral("one"));
    ports.debugsay(QStringLiteral("two"));
    EXPECT_TRUE(com2.writes.empty());
    EXPECT_FALSE(com2.isOpen());
    EXPECT_FALSE(ports.isDebugPortOpen());
    EXPECT_FALSE(debug.comm2Output.value());
    EXPECT_EQ(theMessage(), operatorWarning(QStringLiteral(
                                "The debug output on COM 2 has stopped.\n\nThe device is gone.\n\nTick \"Comm 2 "
                                "Debug Output\" to try again.")));
    tickDebugOutput();
    ports.debugsay(QStringLiteral("three"));
    EXPECT_EQ(said(), "three\r");
}

using PortFailure = ProgramTest;

TEST_F(PortFailure, closesThePortAndIsToldOnceAfterTheReset) {
    connect();
    EXPECT_FALSE(ports.checkFailure());
    com1.failureReason = QStringLiteral("The device is gone.");
    std::size_t messagesAtReset = 99;
    bool openAtReset = true;
    const auto reset = status.status.addNotifier([&] {
        messagesAtReset = messages.shown.size();
        openAtReset = ports.isOpen();
    });
    EXPECT_TRUE(ports.checkFailure());
    EXPECT_FALSE(ports.checkFailure());
    EXPECT_EQ(messagesAtReset, 0U);
    EXPECT_FALSE(openAtReset);
    EXPECT_FALSE(com1.isOpen());
    EXPECT_FALSE(commands.portOpen.value());
    EXPECT_EQ(
        theMessage(),
        withoutWindow(operatorWarning(QStringLiteral("The connection on COM 1 (ttyA) was lost.\n\nThe device is "
                                                     "gone.\n\nAll rows received so far are kept. Check the cable, "
                                                     "then connect again.")),
                      QStringLiteral("The connection on COM 1 (ttyA) was lost.\n\nThe device is gone.\n\nLook at "
                                     "the cable and the adapter.")));
}

TEST_F(PortFailure, isToldWithTheNumberOfItsPort) {
    ports.selectPort(2);
    ports.open();
    com2.failureReason = QStringLiteral("Gone.");
    EXPECT_FALSE(ports.isOpen()) << "without a tick";
    EXPECT_TRUE(theMessage().text.startsWith(QStringLiteral("The connection on COM 2 (ttyB) was lost.")));
}

} // namespace
} // namespace orv
