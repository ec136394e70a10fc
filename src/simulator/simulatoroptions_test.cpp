// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatoroptions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace orv {
namespace {

SimulatorOptions parsed(const char* device) {
    const ParsedSimulatorOptions result = parseSimulatorOptions(QString::fromLatin1(device));
    EXPECT_EQ(result.error.toStdString(), "") << device;
    return result.options;
}

TEST(SimulatorOptions, DefaultsOfTheTwoTypes) {
    EXPECT_EQ(parsed("sim:trx"), SimulatorOptions());
    SimulatorOptions glow;
    glow.kind = InstrumentKind::Glow;
    glow.firmware = 310;
    EXPECT_EQ(parsed("sim:glow"), glow);
}

TEST(SimulatorOptions, EveryOptionIsStored) {
    SimulatorOptions expected;
    expected.firmware = 412;
    expected.baud = 0;
    expected.linesPerThousandSeconds = 8500;
    expected.records = 5000;
    expected.pointsPerBlock = 20;
    expected.erasedRecords = 3;
    expected.dumpEndsWithZero = true;
    expected.shutterMilliseconds = 2250;
    expected.seed = 4294967295U;
    expected.fault = SimulatedFault::Late;
    expected.delayMilliseconds = 500;
    EXPECT_EQ(parsed("sim:trx?firmware=412&baud=0&rate=8.5&records=5000&points=20&erased=3&end=0&shutter=2.25"
                     "&seed=4294967295&fault=late&delay=0.5"),
              expected);
}

TEST(SimulatorOptions, FaultsByName) {
    int fault = 0; // in the order of the enumeration
    for (const char* name : {"none", "silent", "late", "garbage", "cut", "unplug", "nocr", "noise"}) {
        EXPECT_EQ(parsed(("sim:glow?fault=" + std::string(name)).c_str()).fault, SimulatedFault{fault++}) << name;
    }
}

TEST(SimulatorOptions, FaultPoints) {
    EXPECT_EQ(parsed("sim:trx?fault=cut").faultPoint, (FaultPoint{FaultPoint::Unit::Percent, 50}));
    EXPECT_EQ(parsed("sim:trx?fault=cut&after=99%").faultPoint, (FaultPoint{FaultPoint::Unit::Percent, 99}));
    EXPECT_EQ(parsed("sim:trx?after=120&fault=unplug").faultPoint, (FaultPoint{FaultPoint::Unit::Bytes, 120}));
    EXPECT_EQ(parsed("sim:trx?fault=unplug&after=1500ms").faultPoint,
              (FaultPoint{FaultPoint::Unit::Milliseconds, 1500}));
}

TEST(SimulatorOptions, ErasedMemoryAndLimits) {
    EXPECT_EQ(parsed("sim:trx?end=eof").dumpEndsWithZero, false);
    EXPECT_EQ(parsed("sim:trx?rate=0.001").linesPerThousandSeconds, 1);
    EXPECT_EQ(parsed("sim:trx?rate=1000").linesPerThousandSeconds, 1'000'000);
    EXPECT_EQ(parsed("sim:trx?records=65525").records, 65525);
}

TEST(SimulatorOptions, WhatIsMalformedIsToldWithWhatIsAllowed) {
    const std::string options =
        "firmware, baud, rate, records, points, erased, end, shutter, seed, fault, delay, after.";
    const std::pair<const char*, std::string> cases[] = {
        {"sim:", "It must begin with sim:trx or sim:glow."},
        {"sim:TRX", "It must begin with sim:trx or sim:glow."},
        {"sim:trxx?rate=1", "It must begin with sim:trx or sim:glow."},
        {"ttyUSB0", "It must begin with sim:trx or sim:glow."},
        {"sim:trx?", "There is no option \"\". The options are " + options},
        {"sim:trx?speed=2", "There is no option \"speed\". The options are " + options},
        {"sim:trx?firmware=", "The option firmware must be a whole number from 0 to 99999, not \"\"."},
        {"sim:trx?firmware", "The option firmware must be a whole number from 0 to 99999, not \"\"."},
        {"sim:trx?firmware=5x", "The option firmware must be a whole number from 0 to 99999, not \"5x\"."},
        {"sim:trx?baud=-1", "The option baud must be a whole number from 0 to 1000000, not \"-1\"."},
        {"sim:trx?baud=99999999999999999999999",
         "The option baud must be a whole number from 0 to 1000000, not \"99999999999999999999999\"."},
        {"sim:trx?rate=0", "The option rate must be a number from 0.001 to 1000, not \"0\"."},
        {"sim:trx?rate=1e3", "The option rate must be a number from 0.001 to 1000, not \"1e3\"."},
        {"sim:trx?rate=.5", "The option rate must be a number from 0.001 to 1000, not \".5\"."},
        {"sim:trx?rate=1.", "The option rate must be a number from 0.001 to 1000, not \"1.\"."},
        {"sim:trx?rate=0.0001", "The option rate must be a number from 0.001 to 1000, not \"0.0001\"."},
        {"sim:trx?rate=1.2.3", "The option rate must be a number from 0.001 to 1000, not \"1.2.3\"."},
        {"sim:trx?records=65526", "The option records must be a whole number from 0 to 65525, not \"65526\"."},
        {"sim:trx?points=65536", "The option points must be a whole number from 0 to 65535, not \"65536\"."},
        {"sim:trx?erased=x", "The option erased must be a whole number from 0 to 1000000, not \"x\"."},
        {"sim:trx?end=EOF", "The option end must be eof or 0, not \"EOF\"."},
        {"sim:trx?shutter=3601", "The option shutter must be a number of seconds from 0 to 3600, not \"3601\"."},
        {"sim:trx?seed=4294967296", "The option seed must be a whole number from 0 to 4294967295, not \"4294967296\"."},
        {"sim:trx?fault=fire",
         "The option fault must be one of none, silent, late, garbage, cut, unplug, nocr, noise, not \"fire\"."},
        {"sim:trx?rate=2&rate=3", "The option rate is given twice."},
        {"sim:trx?delay=2", "The option delay needs fault=late."},
        {"sim:trx?fault=late&delay=a", "The option delay must be a number of seconds from 0 to 3600, not \"a\"."},
        {"sim:trx?after=2", "The option after needs fault=cut or fault=unplug."},
        {"sim:trx?fault=cut&after=101%", "The option after must be a number of bytes, 0% to 100% or a number of "
                                         "milliseconds (\"1500ms\"), not \"101%\"."},
    };
    for (const auto& [device, message] : cases) {
        EXPECT_EQ(parseSimulatorOptions(QString::fromLatin1(device)).error.toStdString(),
                  '"' + std::string(device) + "\" names no simulated instrument. " + message);
    }
}

TEST(SimulatorOptions, NamesSimulatorLooksAtThePrefixOnly) {
    EXPECT_TRUE(namesSimulator(QStringLiteral("sim:anything")));
    EXPECT_FALSE(namesSimulator(QStringLiteral("/dev/ttyS0")));
    EXPECT_FALSE(namesSimulator(QStringLiteral("COM3")));
}

FaultStrike strikeOf(const char* device) {
    return FaultStrike(parseSimulatorOptions(QString::fromLatin1(device)).options);
}

/// The line in which the fault strikes when all are 40 bytes long, and how much of it goes out.
std::pair<int, qsizetype> strikesAt(FaultStrike& fault, int lines) {
    fault.beginCollection(lines);
    for (int line = 0; line <= lines; ++line) {
        const qsizetype allowed = fault.allowance(40);
        if (allowed != 40) {
            return {line, allowed};
        }
    }
    return {-1, 0};
}

TEST(FaultStrike, StrikesInTheLineAfterTheShare) {
    for (const auto& [after, line] : {std::pair("0%", 0), {"10%", 20}, {"50%", 100}, {"99%", 198}, {"100%", 200}}) {
        FaultStrike fault = strikeOf(qPrintable(QStringLiteral("sim:trx?fault=cut&after=") + QLatin1String(after)));
        EXPECT_EQ(strikesAt(fault, 200), std::pair(line, qsizetype{20})) << after;
    }
}

TEST(FaultStrike, StrikesAfterSoManyBytes) {
    FaultStrike fault = strikeOf("sim:trx?fault=unplug&after=121");
    EXPECT_EQ(strikesAt(fault, 200), std::pair(3, qsizetype{1}));
    FaultStrike atOnce = strikeOf("sim:trx?fault=unplug&after=0");
    EXPECT_EQ(strikesAt(atOnce, 200), std::pair(0, qsizetype{0}));
}

TEST(FaultStrike, CountsAnewForEachCollectionUntilItHasStruck) {
    FaultStrike fault = strikeOf("sim:trx?fault=cut&after=10");
    EXPECT_EQ(strikesAt(fault, 2), std::pair(0, qsizetype{10}));
    EXPECT_EQ(strikesAt(fault, 2), std::pair(0, qsizetype{10}));
    fault.disarm();
    EXPECT_EQ(strikesAt(fault, 2), std::pair(-1, qsizetype{0}));
}

TEST(FaultStrike, ByTimeItLeavesTheLinesAlone) {
    FaultStrike fault = strikeOf("sim:trx?fault=cut&after=1500ms");
    EXPECT_EQ(fault.millisecondsAfterGreeting(), 1500);
    EXPECT_EQ(strikesAt(fault, 5), std::pair(-1, qsizetype{0}));
    fault.disarm();
    EXPECT_EQ(fault.millisecondsAfterGreeting(), std::nullopt);
}

TEST(FaultStrike, OtherFaultsNeverStrike) {
    FaultStrike fault = strikeOf("sim:trx?fault=garbage");
    EXPECT_EQ(strikesAt(fault, 5), std::pair(-1, qsizetype{0}));
    EXPECT_EQ(fault.millisecondsAfterGreeting(), std::nullopt);
}

} // namespace
} // namespace orv
