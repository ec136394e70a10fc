// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedport.h"

#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace orv {
namespace {

class SimulatedPortTest : public testing::Test {
protected:
    std::unique_ptr<SimulatedPort> make(const char* device) {
        return std::make_unique<SimulatedPort>(parseSimulatorOptions(QString::fromLatin1(device)).options, clock,
                                               [this](int milliseconds) {
                                                   slept.push_back(milliseconds);
                                                   clock.advance(milliseconds);
                                               });
    }

    std::unique_ptr<SimulatedPort> makeOpen(const char* device) {
        auto port = make(device);
        port->open();
        return port;
    }

    std::unique_ptr<SimulatedPort> makeAwake(const char* device) {
        auto port = makeOpen(device);
        wake(*port);
        return port;
    }

    static void pulse(Port& port) {
        port.setDataTerminalReady(true);
        port.setDataTerminalReady(false);
    }

    QByteArray wake(Port& port) {
        pulse(port);
        return readFor(port, 200);
    }

    QByteArray readFor(Port& port, int milliseconds) {
        QByteArray heard;
        const qint64 end = clock.monotonicMilliseconds() + milliseconds;
        while (clock.monotonicMilliseconds() < end) {
            port.waitForInput(static_cast<int>(end - clock.monotonicMilliseconds()));
            heard += port.readAll();
        }
        return heard;
    }

    int sleptAltogether() const { return std::accumulate(slept.begin(), slept.end(), 0); }

    TestClock clock;
    std::vector<int> slept;
};

TEST_F(SimulatedPortTest, AClosedPortIsDeafAndEmpty) {
    const auto port = make("sim:trx");
    EXPECT_FALSE(port->isOpen());
    pulse(*port);
    clock.advance(1000);
    port->write("P");
    port->discardInput();
    EXPECT_EQ(port->inputCount(), 0);
    EXPECT_EQ(port->readAll(), "");
    EXPECT_FALSE(port->waitForInput(7));
    EXPECT_EQ(sleptAltogether(), 7);
    EXPECT_EQ(port->failure().toStdString(), "");
}

TEST_F(SimulatedPortTest, OpeningAloneWakesNothing) {
    const auto port = make("sim:trx");
    EXPECT_EQ(port->open().toStdString(), "");
    EXPECT_TRUE(port->isOpen());
    EXPECT_EQ(readFor(*port, 5000), "");
    EXPECT_EQ(wake(*port), "V512\r");
}

TEST_F(SimulatedPortTest, AReopenedPortFindsWhatTheInstrumentKept) {
    const auto port = makeAwake("sim:trx");
    port->write("Q17\r");
    readFor(*port, 200);
    port->write("R");
    port->close();
    EXPECT_FALSE(port->isOpen());
    port->open();
    EXPECT_EQ(readFor(*port, 5000), "");
    EXPECT_EQ(wake(*port), "V512\r");
    port->write("P");
    EXPECT_TRUE(readFor(*port, 200).contains("\r\nQ17\r\n"));
}

TEST_F(SimulatedPortTest, ADtrLineRaisedBeforeClosingDoesNotWakeAfterwards) {
    const auto port = makeOpen("sim:trx");
    port->setDataTerminalReady(true);
    port->close();
    port->open();
    port->setDataTerminalReady(false);
    EXPECT_EQ(readFor(*port, 1000), "");
}

TEST_F(SimulatedPortTest, WaitsNoLongerThanNeeded) {
    const auto port = makeOpen("sim:trx");
    pulse(*port);
    EXPECT_TRUE(port->waitForInput(10'000));
    EXPECT_EQ(sleptAltogether(), 102);
    EXPECT_EQ(slept.size(), 2U);
    EXPECT_TRUE(port->waitForInput(10'000));
    EXPECT_EQ(sleptAltogether(), 102);
    EXPECT_EQ(port->inputCount(), 1);
}

TEST_F(SimulatedPortTest, WaitsAtMostAsLongAsTold) {
    const auto port = makeOpen("sim:trx");
    EXPECT_FALSE(port->waitForInput(40));
    EXPECT_EQ(sleptAltogether(), 40);
    EXPECT_EQ(slept.size(), 1U);
    EXPECT_FALSE(port->waitForInput(0));
    pulse(*port);
    EXPECT_FALSE(port->waitForInput(99));
    EXPECT_EQ(sleptAltogether(), 139);
}

TEST_F(SimulatedPortTest, WithoutASleepOfItsOwnTheThreadSleeps) {
    const SystemClock realClock;
    SimulatedPort port(SimulatorOptions(), realClock);
    port.open();
    const qint64 start = realClock.monotonicMilliseconds();
    EXPECT_FALSE(port.waitForInput(20));
    EXPECT_GE(realClock.monotonicMilliseconds() - start, 19);
    pulse(port);
    EXPECT_TRUE(port.waitForInput(5000));
    EXPECT_LT(realClock.monotonicMilliseconds() - start, 4000);
}

TEST_F(SimulatedPortTest, AClockThatStandsStillDoesNotHangAWait) {
    SimulatedPort port(SimulatorOptions(), clock);
    port.open();
    pulse(port);
    EXPECT_FALSE(port.waitForInput(3));
}

TEST_F(SimulatedPortTest, DiscardsWhatHasArrivedAndNothingElse) {
    const auto port = makeOpen("sim:trx");
    pulse(*port);
    clock.advance(103);
    port->discardInput();
    EXPECT_EQ(port->inputCount(), 0);
    EXPECT_EQ(readFor(*port, 100), "12\r");
}

TEST_F(SimulatedPortTest, AnUnpluggedPortFailsUntilItIsOpenedAgain) {
    const auto port = makeAwake("sim:trx?fault=unplug&records=4&baud=0");
    port->write("O");
    EXPECT_EQ(port->readAll().count('\n'), 3);
    EXPECT_EQ(port->failure().toStdString(),
              "The cable of the simulated instrument was pulled out. Connecting again plugs it back in.");
    port->close();
    EXPECT_NE(port->failure().toStdString(), "");
    EXPECT_EQ(port->open().toStdString(), "");
    EXPECT_EQ(port->failure().toStdString(), "");
    EXPECT_EQ(wake(*port), "V512\r");
}

} // namespace
} // namespace orv
