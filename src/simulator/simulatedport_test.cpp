// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedport.h"

#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <vector>

namespace orv {
namespace {

class SimulatedPortTest : public testing::Test {
protected:
    std::unique_ptr<SimulatedPort> make(const char* device) {
        auto port = std::make_unique<SimulatedPort>(parseSimulatorOptions(QString::fromLatin1(device)).options, clock);
        listening = port->stirred.subscribe([this, made = port.get()] {
            tellings.push_back(clock.monotonicMilliseconds());
            if (reads) {
                heard += made->readAll();
            }
        });
        return port;
    }

    std::unique_ptr<SimulatedPort> makeOpen(const char* device) {
        auto port = make(device);
        port->open();
        return port;
    }

    std::unique_ptr<SimulatedPort> makeAwake(const char* device) {
        auto port = makeOpen(device);
        wake(*port);
        tellings.clear();
        return port;
    }

    static void pulse(Port& port) {
        port.setDataTerminalReady(true);
        port.setDataTerminalReady(false);
    }

    QByteArray wake(Port& port) {
        pulse(port);
        return readFor(200);
    }

    QByteArray type(Port& port, const QByteArray& characters) {
        port.write(characters);
        return readFor(200);
    }

    /// What has been read within so long, each time that the port told.
    QByteArray readFor(int milliseconds) {
        heard.clear();
        clock.advance(milliseconds);
        return heard;
    }

    TestClock clock;
    bool reads = true;            ///< When the port tells.
    std::vector<qint64> tellings; ///< When.
    QByteArray heard;
    Subscription listening;
};

TEST_F(SimulatedPortTest, AClosedPortIsDeafAndEmpty) {
    const auto port = make("sim:trx");
    EXPECT_FALSE(port->isOpen());
    pulse(*port);
    clock.advance(1000);
    port->write("P");
    port->discardInput();
    clock.advance(1000);
    EXPECT_EQ(port->inputCount(), 0);
    EXPECT_EQ(port->readAll(), "");
    EXPECT_TRUE(tellings.empty());
    EXPECT_EQ(port->failure().toStdString(), "");
}

TEST_F(SimulatedPortTest, OpeningAloneWakesNothing) {
    const auto port = make("sim:trx");
    EXPECT_EQ(port->open().toStdString(), "");
    EXPECT_TRUE(port->isOpen());
    EXPECT_EQ(readFor(5000), "");
    EXPECT_EQ(wake(*port), "V512\r");
}

TEST_F(SimulatedPortTest, AReopenedPortFindsWhatTheInstrumentKept) {
    const auto port = makeAwake("sim:trx");
    type(*port, "Q17\r");
    port->write("R");
    port->close();
    EXPECT_FALSE(port->isOpen());
    port->open();
    EXPECT_EQ(readFor(5000), "");
    EXPECT_EQ(wake(*port), "V512\r");
    EXPECT_TRUE(type(*port, "P").contains("\r\nQ17\r\n"));
}

TEST_F(SimulatedPortTest, ADtrLineRaisedBeforeClosingDoesNotWakeAfterwards) {
    const auto port = makeOpen("sim:trx");
    port->setDataTerminalReady(true);
    port->close();
    port->open();
    port->setDataTerminalReady(false);
    EXPECT_EQ(readFor(1000), "");
}

TEST_F(SimulatedPortTest, TellsOfAnArrivalAtOnceAndThenEveryEightMilliseconds) {
    const auto port = makeOpen("sim:trx");
    pulse(*port);
    clock.advance(1000);
    // The greeting begins after 100 ms. Its characters arrive a little more than one millisecond apart.
    EXPECT_EQ(tellings, (std::vector<qint64>{102, 110}));
    tellings.clear();
    port->write("x");
    EXPECT_TRUE(tellings.empty()) << "never inside a call";
    clock.advance(1000);
    EXPECT_EQ(tellings, (std::vector<qint64>{1002, 1010}));
}

TEST_F(SimulatedPortTest, TellsOnceOfWhatNobodyReads) {
    const auto port = makeOpen("sim:trx");
    reads = false;
    pulse(*port);
    clock.advance(1000);
    EXPECT_EQ(tellings.size(), 1U);
    EXPECT_EQ(port->inputCount(), 5);
    port->write("xxx");
    clock.advance(1000);
    EXPECT_EQ(tellings.size(), 1U);
    EXPECT_EQ(port->readAll(), "V512\rx\r\n>x\r\n>x\r\n>");
    clock.advance(1000);
    EXPECT_EQ(tellings.size(), 1U) << "nothing is left";
    port->write("x");
    clock.advance(1000);
    EXPECT_EQ(tellings.size(), 2U);
    port->discardInput();
    port->write("x");
    clock.advance(1000);
    EXPECT_EQ(tellings.size(), 3U);
}

TEST_F(SimulatedPortTest, TellsThatAFullBufferIsFollowedByMore) {
    const auto port = makeAwake("sim:trx?records=20000&baud=0");
    EXPECT_EQ(type(*port, "O").count('\n'), 1 + 20000 + 1);
    EXPECT_GT(tellings.size(), 5U);
}

/// A clock that counts what it is asked to call.
class CountedClock final : public Clock {
public:
    explicit CountedClock(TestClock& clock)
        : clock_(clock) {}

    QDateTime now() const override { return clock_.now(); }
    qint64 monotonicMilliseconds() const override { return clock_.monotonicMilliseconds(); }
    [[nodiscard]] Subscription callAfter(qint64 milliseconds, std::function<void()> call) override {
        return clock_.callAfter(milliseconds, [this, call = std::move(call)] {
            ++calls;
            call();
        });
    }

    int calls = 0;

private:
    TestClock& clock_;
};

TEST_F(SimulatedPortTest, WhileNothingHappensTheClockCallsNobody) {
    CountedClock counted(clock);
    SimulatedPort port(parseSimulatorOptions(QStringLiteral("sim:trx")).options, counted);
    listening = port.stirred.subscribe([&port] { port.readAll(); });
    port.open();
    clock.advance(60'000);
    EXPECT_EQ(counted.calls, 0) << "asleep";
    wake(port);
    counted.calls = 0;
    clock.advance(60'000);
    EXPECT_EQ(counted.calls, 0) << "awake";
    port.write("R");
    clock.advance(500);
    counted.calls = 0;
    clock.advance(10'000);
    // Every half second 38 characters come within 40 ms.
    EXPECT_LE(counted.calls, 20 * 8);
    port.close();
    counted.calls = 0;
    clock.advance(60'000);
    EXPECT_EQ(counted.calls, 0) << "closed in a run";
}

TEST_F(SimulatedPortTest, DiscardsWhatHasArrivedAndNothingElse) {
    const auto port = makeOpen("sim:trx");
    reads = false;
    pulse(*port);
    clock.advance(103);
    port->discardInput();
    EXPECT_EQ(port->inputCount(), 0);
    reads = true;
    EXPECT_EQ(readFor(100), "12\r");
}

TEST_F(SimulatedPortTest, AnUnpluggedPortFailsUntilItIsOpenedAgain) {
    const auto port = makeAwake("sim:trx?fault=unplug&records=4&baud=0");
    port->write("O");
    EXPECT_EQ(port->readAll().count('\n'), 3);
    EXPECT_EQ(port->failure().toStdString(),
              "The cable of the simulated instrument was pulled out. Connecting again plugs it back in.");
    clock.advance(1000);
    EXPECT_EQ(tellings.size(), 1U);
    port->close();
    EXPECT_NE(port->failure().toStdString(), "");
    EXPECT_EQ(port->open().toStdString(), "");
    EXPECT_EQ(port->failure().toStdString(), "");
    EXPECT_EQ(wake(*port), "V512\r");
    EXPECT_EQ(port->failure().toStdString(), "");
}

TEST_F(SimulatedPortTest, TellsThatTheCableIsPulledEvenIfNobodyReads) {
    const auto port = makeAwake("sim:trx?fault=unplug&after=1500ms");
    reads = false;
    port->write("R");
    clock.advance(1300);
    EXPECT_EQ(tellings.size(), 1U);
    EXPECT_EQ(port->failure().toStdString(), "");
    tellings.clear();
    clock.advance(200);
    EXPECT_NE(port->failure().toStdString(), "");
    EXPECT_EQ(tellings.size(), 1U);
    clock.advance(60'000);
    EXPECT_EQ(tellings.size(), 1U);
}

} // namespace
} // namespace orv
