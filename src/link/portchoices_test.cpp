// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/portchoices.h"

#include "link/port.h"
#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

class PortChoicesTest : public ProgramTest {
protected:
    std::string listed() const {
        std::string all;
        for (const PortChoice& choice : choices.shown.list.value()) {
            all += choice.device.toStdString() + "|" + choice.description.toStdString() + "\n";
        }
        return all;
    }

    void plug(const char* name) { portList.plugged.push_back({QString::fromLatin1(name), {}, {}}); }

    std::string device(int portNumber) const { return choices.shown[portNumber].device.value().toStdString(); }
    std::string problem(int portNumber) const { return choices.shown[portNumber].problem.value().toStdString(); }
    bool isLocked(int portNumber) const { return !choices.shown[portNumber].lock.value().isEmpty(); }
    std::string simulation() const { return choices.shown.simulation.value().toStdString(); }

    void choose(int portNumber, const char* text) { choices.choose(portNumber, QString::fromLatin1(text)); }

    PortChoices& choices = program.link.portChoices;
};

const char* const simulated = "sim:trx|simulated scattering meter\nsim:glow|simulated fluorometer\n";

TEST_F(PortChoicesTest, TheSimulatedInstrumentsAreOfferedWhereThereIsNoPort) {
    EXPECT_EQ(listed(), simulated);
    choices.refresh();
    EXPECT_EQ(listed(), simulated);
    PortChoices without{ports, nullptr, {}};
    without.refresh();
    without.refreshIfChanged();
    EXPECT_EQ(without.shown.list.value().size(), 2);
}

TEST_F(PortChoicesTest, PortsAreListedByNameAndNumber) {
    for (const char* name : {"ttyUSB10", "ttyUSB9", "ttyS0", "rfcomm", "ttyUSB0", "99999999999999999999"}) {
        plug(name);
    }
    choices.refresh();
    EXPECT_EQ(listed(),
              std::string("99999999999999999999|\nrfcomm|\nttyS0|\nttyUSB0|\nttyUSB9|\nttyUSB10|\n") + simulated);
}

TEST_F(PortChoicesTest, WhatAnAdapterSaysOfItselfIsShownOnOneLine) {
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    portList.plugged = {{text("a"), text("FT232R USB UART"), text("FTDI")},
                        {text("b"), text("Prolific Adapter"), text("PROLIFIC")},
                        {text("c"), text(" two\n lines\t"), text(" ")},
                        {text("d"), text(""), text("Maker")},
                        {text("e"), text(""), text("")},
                        {text("f"), text("100%1 real"), text("%2")}};
    choices.refresh();
    EXPECT_EQ(listed(), std::string("a|FT232R USB UART, FTDI\nb|Prolific Adapter\nc|two lines\nd|Maker\ne|\n"
                                    "f|100%1 real, %2\n") +
                            simulated);
}

TEST_F(PortChoicesTest, PortsComeAndGoAndTheChoiceStays) {
    plug("ttyUSB0");
    choices.refresh();
    choose(1, "ttyUSB0");
    portList.plugged.clear();
    choices.refresh();
    EXPECT_EQ(listed(), simulated);
    EXPECT_EQ(device(1), "ttyUSB0");
    plug("ttyUSB0");
    choices.refresh();
    EXPECT_EQ(listed(), std::string("ttyUSB0|\n") + simulated);
    EXPECT_EQ(device(1), "ttyUSB0");
}

TEST_F(PortChoicesTest, AListThatStaysTheSameIsToldToNobody) {
    plug("ttyUSB0");
    choices.refresh();
    int changes = 0;
    const auto notifier = choices.shown.list.addNotifier([&changes] { ++changes; });
    choices.refresh();
    EXPECT_EQ(changes, 0);
    portList.plugged[0].description = QStringLiteral("Adapter");
    choices.refresh();
    EXPECT_EQ(changes, 1);
}

TEST_F(PortChoicesTest, PortsAreListedAnewOnlyWhereThatCanMatter) {
    portList.changed = false;
    choices.refreshIfChanged();
    EXPECT_EQ(portList.listings, 0);
    portList.changed = true;
    choices.refreshIfChanged();
    EXPECT_EQ(portList.listings, 1);
    ports.open();
    choices.refreshIfChanged();
    EXPECT_EQ(portList.listings, 2) << "COM 2 can still be changed";
    ports.openDebugPort();
    choices.refreshIfChanged();
    EXPECT_EQ(portList.listings, 2);
    choices.refresh();
    EXPECT_EQ(portList.listings, 3);
}

TEST_F(PortChoicesTest, AChoiceIsTheDeviceOfTheNextOpening) {
    EXPECT_EQ(device(1), "ttyA");
    EXPECT_EQ(device(2), "ttyB");
    choose(1, "  other \t");
    EXPECT_EQ(device(1), "other");
    EXPECT_EQ(ports.device(1).toStdString(), "other");
    EXPECT_EQ(problem(1), "");
    ports.open();
    EXPECT_TRUE(com2.isOpen()) << "the rig's line of every device but ttyA";
    EXPECT_FALSE(com1.isOpen());
}

TEST_F(PortChoicesTest, ADeviceSetByTheProgramIsShown) {
    ports.setDevice(2, QStringLiteral("/dev/pts/3"));
    EXPECT_EQ(device(2), "/dev/pts/3");
}

TEST_F(PortChoicesTest, AMalformedNameIsRefusedAndTheEarlierChoiceStays) {
    choose(1, "my %1 port");
    EXPECT_EQ(problem(1), "\"my %1 port\" is no device. COM 1 stays ttyA.");
    EXPECT_EQ(problem(2), "");
    EXPECT_EQ(device(1), "ttyA");
    choose(2, " ");
    EXPECT_EQ(problem(2), "\"\" is no device. COM 2 stays ttyB.");
    choose(1, "ttyA");
    EXPECT_EQ(problem(1), "");
    choose(1, "my port");
    choose(1, "ttyC");
    EXPECT_EQ(problem(1), "");
    EXPECT_EQ(device(1), "ttyC");
}

TEST_F(PortChoicesTest, OneDeviceCannotStandBehindBothPorts) {
    choose(1, "/dev/ttyB");
    EXPECT_EQ(problem(1),
              "COM 2 is set to ttyB already. Choose another device here, or change COM 2 first. COM 1 stays ttyA.");
    EXPECT_EQ(device(1), "ttyA");
    choose(2, "ttyA");
    EXPECT_EQ(problem(2),
              "COM 1 is set to ttyA already. Choose another device here, or change COM 1 first. COM 2 stays ttyB.");
    choose(1, "/dev/ttyA");
    EXPECT_EQ(problem(1), "") << "the other name of the port's own device";
    EXPECT_EQ(device(1), "/dev/ttyA");
}

TEST_F(PortChoicesTest, EachPortCanHaveASimulatedInstrumentOfItsOwn) {
    choose(1, "sim:trx");
    choose(2, "sim:trx");
    EXPECT_EQ(device(1), "sim:trx");
    EXPECT_EQ(device(2), "sim:trx");
    EXPECT_EQ(problem(2), "");
}

TEST_F(PortChoicesTest, AStartValueThatIsOnBothPortsCanBeKept) {
    ports.setDevice(1, QStringLiteral("ttyB"));
    choose(1, "ttyB");
    EXPECT_EQ(problem(1), "");
    choose(1, "ttyA");
    EXPECT_EQ(device(1), "ttyA");
}

TEST_F(PortChoicesTest, APortOfTheInstrumentKeepsItsDeviceUntilItIsClosed) {
    ports.open();
    EXPECT_EQ(choices.shown[1].lock.value().toStdString(),
              "COM 1 is open. \"Close Port\" in the menu \"Operation\" lets you choose another device.");
    EXPECT_FALSE(isLocked(2));
    choose(1, "ttyC");
    choose(1, "no device");
    EXPECT_EQ(device(1), "ttyA");
    EXPECT_EQ(problem(1), "");
    choose(2, "ttyC");
    EXPECT_EQ(device(2), "ttyC");
    ports.selectPort(2); // for the next opening
    ports.close();
    EXPECT_FALSE(isLocked(1));
    ports.open();
    EXPECT_FALSE(isLocked(1));
    EXPECT_TRUE(isLocked(2));
}

TEST_F(PortChoicesTest, APortOfTheDebugOutputKeepsItsDevice) {
    tickDebugOutput();
    EXPECT_EQ(choices.shown[2].lock.value().toStdString(),
              "The debug output uses COM 2. Clear \"Comm 2 Debug Output\" on the debug screen to free it.");
    EXPECT_FALSE(isLocked(1));
    choose(2, "ttyC");
    EXPECT_EQ(device(2), "ttyB");
    debug.comm2Output = false;
    EXPECT_TRUE(isLocked(2)) << "its port stays open";
    debug.comm2Output = true;
    com2.failureReason = QStringLiteral("Gone.");
    ports.debugsay(QStringLiteral("text"));
    EXPECT_FALSE(isLocked(2));
}

TEST_F(PortChoicesTest, APortThatCouldNotBeOpenedCanBeChanged) {
    com1.openReason = com2.openReason = QStringLiteral("Reason.");
    ports.open();
    ports.openDebugPort();
    EXPECT_FALSE(isLocked(1));
    EXPECT_FALSE(isLocked(2));
}

TEST_F(PortChoicesTest, APortThatIsLostCanBeChanged) {
    ports.open();
    com1.failureReason = QStringLiteral("Gone.");
    EXPECT_FALSE(ports.isOpen());
    EXPECT_FALSE(isLocked(1));
}

TEST_F(PortChoicesTest, NothingCanBeChangedDuringAnAttemptNorAfterItsFailureUntilQuit) {
    int waits = 0;
    eachMillisecond = [&] { waits += isLocked(1) ? 1 : 0; };
    autoConnect();
    EXPECT_GT(waits, 0);
    EXPECT_TRUE(manual.shown.visible);
    EXPECT_TRUE(isLocked(1)) << "the port is still open";
    manual.quit();
    EXPECT_FALSE(isLocked(1));
}

TEST_F(PortChoicesTest, NothingCanBeChangedWhileAManualConnectionSeeks) {
    program.manualConnect(2);
    EXPECT_FALSE(isLocked(2)) << "nothing has been opened yet";
    replies.resize(500);
    replies.emplace_back("V512\r");
    eachMillisecond = [this] {
        EXPECT_TRUE(isLocked(2));
        EXPECT_FALSE(isLocked(1));
    };
    pressStart();
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_TRUE(isLocked(2));
}

TEST_F(PortChoicesTest, AComplaintGoesWhenThePortIsOpened) {
    choose(1, "no device");
    EXPECT_NE(problem(1), "");
    ports.open();
    EXPECT_EQ(problem(1), "");
}

TEST_F(PortChoicesTest, ASimulatedInstrumentIsTold) {
    EXPECT_EQ(simulation(), "");
    choose(2, "sim:glow");
    EXPECT_EQ(simulation(), "Simulated instrument on COM 2");
    choose(1, "sim:trx?rate=8");
    EXPECT_EQ(simulation(), "Simulated instruments on COM 1 and COM 2");
    choose(2, "ttyB");
    EXPECT_EQ(simulation(), "Simulated instrument on COM 1");
}

TEST_F(PortChoicesTest, OnceConnectedOnlyTheConnectedInstrumentCounts) {
    choose(2, "sim:glow");
    ports.open();
    EXPECT_EQ(simulation(), "") << "a real instrument is connected";
    ports.close();
    EXPECT_EQ(simulation(), "Simulated instrument on COM 2");
    ports.selectPort(2);
    ports.open();
    EXPECT_EQ(simulation(), "Simulated instrument on COM 2");
    choose(1, "sim:trx");
    EXPECT_EQ(simulation(), "Simulated instrument on COM 2");
    ports.close();
    choose(2, "ttyB");
    ports.open();
    EXPECT_EQ(simulation(), "");
    ports.close();
    tickDebugOutput();
    EXPECT_EQ(simulation(), "Simulated instrument on COM 1") << "the debug output is no instrument";
}

TEST(DeviceName, OneDeviceMayHaveTwoNames) {
    const auto same = [](const char* one, const char* other) {
        return sameDevice(QString::fromLatin1(one), QString::fromLatin1(other));
    };
    EXPECT_TRUE(same("ttyUSB0", "ttyUSB0"));
    EXPECT_TRUE(same("ttyUSB0", "/dev/ttyUSB0"));
    EXPECT_TRUE(same("/dev/pts/3", "pts/3"));
    EXPECT_FALSE(same("ttyUSB0", "ttyUSB1"));
    EXPECT_FALSE(same("sim:trx", "sim:trx"));
}

} // namespace
} // namespace orv
