// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/devices.h"

#include "link/systemport.h"
#include "simulator/replay.h"
#include "simulator/simulatedport.h"
#include "testing/fakes.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

TEST(Devices, AreNamesPathsAndSimulatedInstruments) {
    for (const char* device : {"ttyUSB0", "/dev/ttyUSB0", "/dev/pts/12", "COM3", "\\\\.\\COM12", "./link", "sim:trx",
                               "sim:glow", "sim:trx?firmware=412&rate=8&records=5000&points=20&fault=silent&baud=0"}) {
        EXPECT_EQ(deviceProblem(QString::fromLatin1(device)).toStdString(), "") << device;
    }
    for (const char* device : {"", " ", "tty USB0", "/dev/tty\tS0", "/dev/ttyS0\n", "/", "sim:", "sim:TRX", "sim:trx?",
                               "sim:trx?rate", "sim:trx?rate=8&rate=9", "sim:glow firmware=3", "sim:replay",
                               "sim:replay?file=none.jsonl", "sim:replay?file=/"}) {
        EXPECT_NE(deviceProblem(QString::fromLatin1(device)).toStdString(), "") << device;
    }
}

TEST(Devices, HaveAPortOfTheirKind) {
    TestClock clock;
    const auto simulated = makePort(QStringLiteral("sim:glow?baud=0"), clock);
    EXPECT_NE(dynamic_cast<SimulatedPort*>(simulated.get()), nullptr);
    EXPECT_EQ(simulated->open().toStdString(), "");
    const auto replay = makePort(QStringLiteral("sim:replay?file=none.jsonl"), clock);
    EXPECT_NE(dynamic_cast<ReplayPort*>(replay.get()), nullptr);
    EXPECT_NE(replay->open().toStdString(), "");
    const auto real = makePort(QStringLiteral("/dev/no-such-device"), clock);
    EXPECT_NE(dynamic_cast<SystemPort*>(real.get()), nullptr);
    EXPECT_NE(real->open().toStdString(), "");
}

} // namespace

} // namespace orv
