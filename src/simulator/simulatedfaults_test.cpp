// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/instrumentbench.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(SimulatedFaults, ASilentInstrumentNeverAnswers) {
    InstrumentBench bench("sim:trx?fault=silent");
    EXPECT_EQ(bench.wake(), "");
    EXPECT_EQ(bench.type("P", 60'000), "");
    EXPECT_EQ(bench.instrument.nextChange(), std::nullopt);
}

TEST(SimulatedFaults, ALateInstrumentGreetsAndAnswersLate) {
    InstrumentBench bench("sim:trx?fault=late&records=0");
    EXPECT_EQ(bench.wake(), "");
    EXPECT_EQ(bench.listen(2900), "");
    EXPECT_EQ(bench.listen(100), "V512\r");
    for (const auto& [typed, answer] : {std::pair("B", "."), {"000000", ">"}}) {
        EXPECT_EQ(bench.type(typed, 3000), typed);
        EXPECT_EQ(bench.listen(10), answer);
    }
    EXPECT_EQ(bench.type("O", 2900), "O");
    EXPECT_EQ(bench.listen(200), "\r\nEOF\r\n>");
}

TEST(SimulatedFaults, WhatALateInstrumentIsSentMeanwhileIsTakenThen) {
    AwakeBench bench("sim:trx?fault=late&delay=0.5");
    bench.listen(500);
    bench.instrument.receive("xy");
    EXPECT_EQ(bench.listen(600), "x\r\n>y");
    EXPECT_EQ(bench.listen(600), "\r\n>");
}

TEST(SimulatedFaults, GarbageStandsBetweenTheBytes) {
    const auto dump = [](const char* fault) {
        return AwakeBench(qPrintable(QStringLiteral("sim:trx?baud=0&records=50") + QLatin1String(fault))).type("O");
    };
    const QByteArray expected = dump("");
    const QByteArray heard = dump("&fault=garbage");
    EXPECT_GT(heard.size(), expected.size() + 20);
    EXPECT_EQ(heard, dump("&fault=garbage"));
    EXPECT_NE(heard, dump("&fault=garbage&seed=2"));
    qsizetype found = 0;
    for (const char byte : heard) {
        found += found < expected.size() && byte == expected.at(found) ? 1 : 0;
    }
    EXPECT_EQ(found, expected.size()) << "all that should come does come, in its order";
}

TEST(SimulatedFaults, NoCarriageReturnBehindTheGreeting) {
    InstrumentBench bench("sim:glow?fault=nocr");
    EXPECT_EQ(bench.wake(), "F310");
    EXPECT_EQ(bench.type("x"), "x\r\n>");
}

TEST(SimulatedFaults, NoiseStandsBeforeTheGreetingAndSomeDataLines) {
    const auto isNoise = [](char byte) { return byte == '\0' || static_cast<unsigned char>(byte) > 127; };
    const auto heard = [](const char* options) {
        InstrumentBench bench(qPrintable(QStringLiteral("sim:trx?records=80") + QLatin1String(options)));
        const QByteArray greeting = bench.wake();
        return std::pair(greeting, bench.type("P") + bench.type("O", 10'000));
    };
    for (const char* options : {"&seed=1", "&seed=2"}) {
        const auto [plainGreeting, plain] = heard(options);
        auto [greeting, rest] = heard(qPrintable(QLatin1String("&fault=noise") + QLatin1String(options)));
        EXPECT_EQ(greeting.front(), '\0');
        greeting.removeIf(isNoise);
        EXPECT_EQ(greeting, plainGreeting);
        int spoilt = 0;
        for (const QByteArray& line : linesOf(rest)) {
            const auto firstPlain = std::ranges::find_if_not(line, isNoise);
            EXPECT_TRUE(std::none_of(firstPlain, line.end(), isNoise)) << "between lines alone";
            spoilt += firstPlain == line.begin() ? 0 : 1;
        }
        EXPECT_GT(spoilt, 3);
        EXPECT_LT(spoilt, 30);
        rest.removeIf(isNoise);
        EXPECT_EQ(rest, plain);
    }
}

TEST(SimulatedFaults, ACutDumpStopsInMidLineAndTheInstrumentIsDead) {
    for (const auto& [after, lines] : {std::pair("10%", 20), {"50%", 100}, {"99%", 198}}) {
        AwakeBench bench(qPrintable(QStringLiteral("sim:trx?fault=cut&after=") + QLatin1String(after)));
        const QByteArray heard = bench.type("O", 60'000);
        EXPECT_EQ(heard.count('\n'), 1 + lines) << after;
        EXPECT_FALSE(heard.endsWith('\n'));
        EXPECT_EQ(bench.type("P"), "");
        EXPECT_FALSE(bench.instrument.isUnplugged());
    }
}

TEST(SimulatedFaults, ACutLineWorksAgainAfterTheNextWakeUp) {
    AwakeBench bench("sim:trx?fault=cut&records=4&baud=0");
    EXPECT_FALSE(bench.type("O").endsWith(">"));
    EXPECT_EQ(bench.wake(), "V512\r");
    EXPECT_TRUE(bench.type("O").endsWith("EOF\r\n>"));
}

TEST(SimulatedFaults, ARunIsCutToo) {
    EXPECT_EQ(AwakeBench("sim:trx?fault=cut&points=10&after=30%").type("R", 60'000).count('\n'), 1 + 3);
    EXPECT_EQ(AwakeBench("sim:trx?fault=cut").type("R", 60'000).count('\n'), 1 + 50);
}

TEST(SimulatedFaults, ABlockCutAtItsEndHasNoPrompt) {
    const QByteArray heard = AwakeBench("sim:trx?fault=cut&points=2&after=100%").type("R", 10'000);
    EXPECT_EQ(heard.count('\n'), 3);
    EXPECT_TRUE(heard.endsWith("\r\n"));
}

TEST(SimulatedFaults, CutAfterSoManyBytes) {
    EXPECT_EQ(AwakeBench("sim:trx?fault=cut&after=1234").type("O", 60'000).size(), 3 + 1234);
}

TEST(SimulatedFaults, UnplugShowsWhenWhatWentBeforeHasArrived) {
    AwakeBench bench("sim:trx?fault=unplug&after=93");
    bench.instrument.receive("O");
    bench.clock.advance(99);
    EXPECT_FALSE(bench.instrument.isUnplugged());
    bench.clock.advance(1);
    EXPECT_EQ(bench.instrument.arrivedCount(), 3 + 93);
    EXPECT_TRUE(bench.instrument.isUnplugged());
    bench.listen(10'000);
    EXPECT_EQ(bench.wake(), "");
    bench.instrument.plugIn();
    EXPECT_FALSE(bench.instrument.isUnplugged());
    EXPECT_EQ(bench.wake(), "V512\r");
    EXPECT_TRUE(bench.type("O", 20'000).endsWith("EOF\r\n>"));
}

TEST(SimulatedFaults, UnplugSoLongAfterTheGreeting) {
    AwakeBench bench("sim:trx?fault=unplug&after=1500ms");
    bench.type("R", 1390);
    EXPECT_FALSE(bench.instrument.isUnplugged());
    bench.listen(10);
    EXPECT_TRUE(bench.instrument.isUnplugged());
    EXPECT_EQ(bench.listen(5000), "");
}

TEST(SimulatedFaults, CutSoLongAfterTheGreetingEvenWhenIdle) {
    AwakeBench bench("sim:trx?fault=cut&after=1500ms");
    EXPECT_EQ(bench.type("x", 2000), "x\r\n>");
    EXPECT_EQ(bench.type("x", 2000), "");
}

} // namespace
} // namespace orv
