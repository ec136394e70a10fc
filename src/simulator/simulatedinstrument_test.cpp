// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedinstrument.h"

#include "testing/expected.h"
#include "testing/fakes.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <algorithm>

namespace orv {
namespace {

/// An instrument and the clock that it goes by.
class InstrumentBench {
public:
    explicit InstrumentBench(const char* device)
        : instrument(parseSimulatorOptions(QString::fromLatin1(device)).options, clock) {}

    /// Lets time pass in steps of 5 ms and returns what has arrived meanwhile.
    QByteArray listen(qint64 milliseconds) {
        constexpr qint64 step = 5;
        QByteArray heard = instrument.takeArrived();
        for (qint64 passed = 0; passed < milliseconds; passed += step) {
            clock.advance(std::min(step, milliseconds - passed));
            heard += instrument.takeArrived();
        }
        return heard;
    }

    /// Wakes the instrument and returns its greeting.
    QByteArray wake() {
        instrument.setWakeLine(true);
        instrument.setWakeLine(false);
        constexpr qint64 longEnough = 200;
        return listen(longEnough);
    }

    /// Types characters and returns what has arrived after so long.
    QByteArray type(const char* characters, qint64 milliseconds = 200) {
        instrument.receive(characters);
        return listen(milliseconds);
    }

    /// Types the first of each pair and compares what has arrived with the second.
    void expectReplies(std::initializer_list<std::pair<const char*, const char*>> dialogue) {
        expectEach(dialogue, [this](const char* typed) { return type(typed); });
    }

    TestClock clock;
    SimulatedInstrument instrument;
};

/// Such an instrument that has been woken.
class AwakeBench : public InstrumentBench {
public:
    explicit AwakeBench(const char* device)
        : InstrumentBench(device) {
        wake();
    }
};

/// The lines of a text whose lines all end with CR LF, and what follows the last line end.
QByteArrayList linesOf(const QByteArray& text) {
    QByteArrayList lines = text.split('\n');
    for (qsizetype index = 0; index + 1 < lines.size(); ++index) {
        lines[index].chop(lines.at(index).endsWith('\r') ? 1 : 0);
    }
    return lines;
}

constexpr const char* report = "S0\r\nG0\r\nA0\r\nL0\r\nW1\r\nM1\r\nT10\r\nD0\r\nQ0\r\nI0\r\nMP200\r\n";

TEST(SimulatedInstrument, GreetsWhenDtrHasBeenRaisedAndDropped) {
    InstrumentBench bench("sim:trx");
    EXPECT_EQ(bench.listen(1000), "");
    EXPECT_EQ(bench.type("P"), "");
    bench.instrument.setWakeLine(false);
    EXPECT_EQ(bench.listen(1000), "");
    bench.instrument.setWakeLine(true);
    EXPECT_EQ(bench.listen(1000), "");
    bench.instrument.setWakeLine(false);
    EXPECT_EQ(bench.listen(SimulatedInstrument::wakeUpMilliseconds), "");
    EXPECT_EQ(bench.listen(100), "V512\r");
}

TEST(SimulatedInstrument, GreetsWithTypeAndFirmware) {
    EXPECT_EQ(InstrumentBench("sim:trx?firmware=412").wake(), "V412\r");
    EXPECT_EQ(InstrumentBench("sim:glow").wake(), "F310\r");
    EXPECT_EQ(InstrumentBench("sim:glow?firmware=7").wake(), "F7\r");
}

TEST(SimulatedInstrument, TheGreetingSurvivesADiscardRightAfterTheWakeUpPulse) {
    InstrumentBench bench("sim:trx?baud=0");
    bench.instrument.setWakeLine(true);
    bench.instrument.setWakeLine(false);
    bench.instrument.discardArrived();
    EXPECT_EQ(bench.listen(200), "V512\r");
}

TEST(SimulatedInstrument, EachReplyEndsWithThePromptThatOpensTheNextLine) {
    AwakeBench bench("sim:trx");
    QByteArray heard = bench.type("P");
    EXPECT_EQ(heard, QByteArray("P\r\n") + report + ">");
    heard += bench.type("C");
    heard += bench.type("x");
    heard += bench.type("O", 100);
    const QByteArrayList lines = linesOf(heard);
    EXPECT_EQ(lines.at(12), ">C");
    EXPECT_EQ(lines.at(14), ">x");
    EXPECT_EQ(lines.at(15), ">O");
}

TEST(SimulatedInstrument, ClockReply) {
    AwakeBench bench("sim:trx");
    bench.clock.advance(4800);
    EXPECT_EQ(bench.type("C"), "C\r\n11/21/26\t25665\r\n>");
}

TEST(SimulatedInstrument, ValuesAreEchoedAnsweredAndKept) {
    AwakeBench bench("sim:glow");
    bench.expectReplies({{"B", "B."},
                         {"110101", "110101>"},
                         {"T", "T."},
                         {"55\r", "55\r>"},
                         {"D", "D."},
                         {"\r", "\r>"},
                         {"Q", "Q."},
                         {"0020\r", "0020\r>"},
                         {"I", "I."},
                         {"3\r", "3\r>"}});
    const QByteArray kept = "P\r\nS1\r\nG1\r\nA0\r\nL1\r\nW0\r\nM1\r\nT55\r\nD0\r\nQ20\r\nI3\r\nMP200\r\n>";
    EXPECT_EQ(bench.type("P"), kept);
    bench.instrument.sleep();
    bench.wake();
    EXPECT_EQ(bench.type("P"), kept);
}

TEST(SimulatedInstrument, ClockRunsFromWhatItWasSetTo) {
    AwakeBench bench("sim:trx");
    bench.expectReplies({{"U", "U."}, {"010599", "010599."}});
    EXPECT_EQ(bench.type("1507", 0), "");
    bench.clock.advance(8000);
    EXPECT_EQ(bench.instrument.takeArrived(), "1507>");
    EXPECT_EQ(bench.type("C"), "C\r\n01/05/99\t40821\r\n>");
}

TEST(SimulatedInstrument, PacesItsOutput) {
    AwakeBench bench("sim:trx");
    bench.instrument.receive("O");
    bench.clock.advance(1000);
    EXPECT_EQ(bench.instrument.arrivedCount(), 960);
    EXPECT_EQ(bench.listen(1000).size(), 1920);
}

TEST(SimulatedInstrument, ADumpKeepsThePaceForAnHour) {
    AwakeBench bench("sim:trx?records=65525&erased=200000");
    bench.instrument.receive("O");
    qint64 heard = 0;
    for (int step = 0; step < 3600 * 200; ++step) {
        bench.clock.advance(5);
        heard += bench.instrument.takeArrived().size();
    }
    EXPECT_EQ(heard, 3600 * 960);
}

TEST(SimulatedInstrument, DumpsItsRecordsOldestFirst) {
    AwakeBench bench("sim:glow?records=3&baud=0");
    const QByteArrayList lines = linesOf(bench.type("O", 0));
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines.at(0), "O");
    EXPECT_TRUE(lines.at(1).startsWith("11/21/26\t25526\t")) << lines.at(1).constData();
    EXPECT_TRUE(lines.at(2).startsWith("11/21/26\t25571\t"));
    EXPECT_TRUE(lines.at(3).startsWith("11/21/26\t25616\t"));
    EXPECT_EQ(lines.at(4), "EOF");
    EXPECT_EQ(lines.at(5), ">");
}

TEST(SimulatedInstrument, DumpsErasedMemoryAndTheOtherEnd) {
    AwakeBench bench("sim:trx?records=0&erased=2&end=0");
    bench.expectReplies({{"O", "O\r\n65535\r\n65535\r\n0\r\n>"}, {"x", "x\r\n>"}});
}

TEST(SimulatedInstrument, AnUnpacedDumpComesWholeThoughInPieces) {
    AwakeBench bench("sim:trx?records=65525&baud=0");
    bench.instrument.receive("O");
    QByteArray heard;
    while (const qsizetype count = bench.instrument.arrivedCount()) {
        EXPECT_LT(count, 66000);
        heard += bench.instrument.takeArrived();
    }
    EXPECT_EQ(heard.count('\n'), 1 + 65525 + 1);
    EXPECT_TRUE(heard.endsWith("EOF\r\n>"));
}

TEST(SimulatedInstrument, DiscardingDropsAllPiecesOfAnUnpacedDump) {
    AwakeBench bench("sim:trx?records=65525&baud=0");
    bench.instrument.receive("O");
    bench.instrument.discardArrived();
    EXPECT_EQ(bench.type("x"), "x\r\n>");
}

TEST(SimulatedInstrument, ABlockEndsWithThePrompt) {
    AwakeBench bench("sim:trx?points=3&rate=10");
    EXPECT_EQ(bench.type("R", 90), "R\r\n");
    const QByteArrayList lines = linesOf(bench.listen(1000));
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.at(0).count('\t'), 5);
    EXPECT_EQ(lines.at(3), ">");
    EXPECT_EQ(bench.listen(10000), "");
    EXPECT_EQ(linesOf(bench.type("R", 1000)).size(), 5);
}

TEST(SimulatedInstrument, SamplesAtItsRateWithoutDrift) {
    AwakeBench bench("sim:glow?rate=3");
    QByteArray heard = bench.type("R", 3'600'000);
    heard += bench.listen(50);
    EXPECT_EQ(heard.count('\n'), 1 + 3 * 3600);
}

TEST(SimulatedInstrument, SamplesAsItsSettingsSay) {
    AwakeBench bench("sim:trx");
    EXPECT_EQ(bench.type("R", 10'100).count('\n'), 1 + 20);
    bench.wake();
    bench.type("T210\rI1\r");
    EXPECT_EQ(bench.type("R", 24'100).count('\n'), 1 + 5);
    bench.wake();
    bench.type("T10\rI0\rD1\rQ1\r");
    EXPECT_EQ(bench.type("R", 3'600'400), "R\r\n");
    EXPECT_TRUE(bench.listen(200).endsWith("\r\n>"));
}

TEST(SimulatedInstrument, ASlowLineHoldsUpThePointsWithoutAGap) {
    AwakeBench bench("sim:trx?rate=1000");
    bench.type("R", 1000);
    EXPECT_EQ(bench.listen(10'000).size(), 9600);
    // A host that does not read for a day finds 64 KB, and the line goes on from there.
    bench.clock.advance(86'400'000);
    EXPECT_LT(bench.instrument.arrivedCount(), 66000);
}

TEST(SimulatedInstrument, DoesNotHearWhatComesWhileItRunsOrDumps) {
    AwakeBench bench("sim:trx?points=1&records=1");
    bench.instrument.receive("RP");
    EXPECT_EQ(bench.type("C", 700).count("\r\n"), 2);
    bench.instrument.receive("O");
    EXPECT_EQ(linesOf(bench.type("P", 700)).size(), 4);
}

TEST(SimulatedInstrument, HearsWhatComesWhileAReplyIsOnItsWay) {
    AwakeBench bench("sim:trx");
    bench.instrument.receive("P");
    EXPECT_TRUE(bench.type("x").endsWith("MP200\r\n>x\r\n>"));
}

TEST(SimulatedInstrument, LogsPointsBehindItsRecords) {
    AwakeBench bench("sim:glow?records=2&points=3&baud=0&rate=100");
    bench.type("B000111");
    const QByteArrayList run = linesOf(bench.type("R", 100));
    EXPECT_TRUE(bench.type("P").endsWith("MP5\r\n>"));
    const QByteArrayList dump = linesOf(bench.type("O"));
    ASSERT_EQ(dump.size(), 8);
    EXPECT_EQ(dump.mid(3, 3), run.mid(1, 3));
}

TEST(SimulatedInstrument, ErasesItsMemoryFirstWhenAppendIsOff) {
    AwakeBench bench("sim:glow?records=2&points=3&baud=0&rate=100");
    bench.type("B000010");
    bench.type("R");
    EXPECT_TRUE(bench.type("P").endsWith("MP2\r\n>")) << "without logging the memory stays";
    bench.type("B000110");
    const QByteArrayList run = linesOf(bench.type("R", 100));
    EXPECT_TRUE(bench.type("P").endsWith("MP3\r\n>"));
    EXPECT_EQ(linesOf(bench.type("O")).mid(1, 3), run.mid(1, 3));
}

TEST(SimulatedInstrument, AWakeUpPulseEndsARunADumpAndAnEntry) {
    AwakeBench bench("sim:trx");
    for (const auto& [typed, lasting] : {std::pair("R", 2000), {"O", 500}, {"B00", 200}}) {
        bench.type(typed, lasting);
        EXPECT_EQ(bench.wake(), "V512\r") << typed;
        EXPECT_EQ(bench.listen(2000), "") << typed;
    }
    EXPECT_EQ(bench.type("C", 30).left(3), "C\r\n");
}

TEST(SimulatedInstrument, MovesItsShutterInItsTime) {
    AwakeBench bench("sim:trx");
    EXPECT_EQ(bench.type("r"), "r\r\n>");
    bench.type("B000000T1\rD0\rQ1\rI0\r");
    EXPECT_EQ(bench.type("r", 30'000), "r\r\n");
    EXPECT_EQ(bench.type("P", 900), "");
    EXPECT_EQ(bench.listen(200), ">");
    EXPECT_EQ(bench.type("x"), "x\r\n>");
}

TEST(SimulatedInstrument, SleepDropsWhatHasNotBeenTaken) {
    AwakeBench bench("sim:trx");
    bench.instrument.receive("P");
    bench.clock.advance(20);
    bench.instrument.sleep();
    EXPECT_EQ(bench.listen(1000), "");
    EXPECT_EQ(bench.type("P"), "");
    EXPECT_EQ(bench.wake(), "V512\r");
}

TEST(SimulatedInstrument, TellsWhenSomethingHappensNext) {
    InstrumentBench bench("sim:trx");
    EXPECT_EQ(bench.instrument.nextChange(), std::nullopt);
    bench.instrument.wake();
    EXPECT_EQ(bench.instrument.nextChange(), 100);
    bench.clock.advance(100);
    EXPECT_EQ(bench.instrument.nextChange(), 102);
    bench.clock.advance(2);
    EXPECT_LE(bench.instrument.nextChange(), 102);
    bench.listen(100);
    EXPECT_EQ(bench.instrument.nextChange(), std::nullopt);
    bench.type("R", 100);
    EXPECT_EQ(bench.instrument.nextChange(), bench.clock.monotonicMilliseconds() + 400);
}

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

constexpr qint64 perMillisecond = 9600;

TEST(TransmitLine, NineHundredAndSixtyCharactersTakeExactlyOneSecond) {
    TransmitLine line(9600);
    line.send(QByteArray(1000, 'x'), 0);
    line.advance(1000 * perMillisecond - 1);
    EXPECT_EQ(line.arrivedCount(), 959);
    line.advance(1000 * perMillisecond);
    EXPECT_EQ(line.arrivedCount(), 960);
    EXPECT_EQ(line.nextArrival(), 1000 * perMillisecond + 10000);
}

TEST(TransmitLine, TheFirstCharacterTakesItsOwnTime) {
    TransmitLine line(9600);
    line.send("ab", 5 * perMillisecond);
    line.advance(6 * perMillisecond);
    EXPECT_EQ(line.arrivedCount(), 0);
    line.advance(7 * perMillisecond);
    EXPECT_EQ(line.takeArrived(), "a");
    EXPECT_EQ(line.takeArrived(), "");
    line.advance(8 * perMillisecond);
    EXPECT_EQ(line.takeArrived(), "b");
    EXPECT_EQ(line.nextArrival(), std::nullopt);
}

TEST(TransmitLine, PollingEveryFiveMillisecondsForAnHourDoesNotDrift) {
    TransmitLine line(9600);
    qint64 arrived = 0;
    line.send(QByteArray(96, 'x'), 0);
    for (qint64 millisecond = 5; millisecond <= 3'600'000; millisecond += 5) {
        line.advance(millisecond * perMillisecond);
        arrived += line.takeArrived().size();
        // Kept fed, as a dump does.
        if (line.drainedAt() < (millisecond + 50) * perMillisecond) {
            line.send(QByteArray(96, 'x'), millisecond * perMillisecond);
        }
    }
    EXPECT_EQ(arrived, 3600 * 960);
}

TEST(TransmitLine, AnOddBaudRateIsExactToo) {
    TransmitLine line(1234);
    line.send(QByteArray(1234, 'x'), 0);
    line.advance(10'000 * line.ticksPerMillisecond() - 1);
    EXPECT_EQ(line.arrivedCount(), 1233);
    line.advance(10'000 * line.ticksPerMillisecond());
    EXPECT_EQ(line.arrivedCount(), 1234);
}

TEST(TransmitLine, WithoutAPaceEverythingArrivesAtOnce) {
    TransmitLine line(0);
    line.send("abc", 7);
    EXPECT_EQ(line.takeArrived(), "abc");
    EXPECT_EQ(line.drainedAt(), 7);
}

TEST(TransmitLine, AbandonedCharactersDoNotArriveAndDoNotHoldUpLaterOnes) {
    TransmitLine line(9600);
    line.send(QByteArray(960, 'x'), 0);
    line.abandon(10 * perMillisecond);
    line.send("y", 10 * perMillisecond);
    line.advance(12 * perMillisecond);
    EXPECT_EQ(line.takeArrived(), "xxxxxxxxxy");
}

} // namespace
} // namespace orv
