// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/faultstrike.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

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
