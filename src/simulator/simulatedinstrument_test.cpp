// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedinstrument.h"

#include "testing/instrumentbench.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <algorithm>

namespace orv {
namespace {

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
