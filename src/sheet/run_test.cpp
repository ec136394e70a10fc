// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/run.h"

#include "testing/sheettest.h"

#include <gtest/gtest.h>

#include <limits>

namespace orv {

namespace {

class CollectionTest : public SheetTest {
protected:
    void startGlow(const char* pointsPerBlock = "0") {
        identify("F", "512");
        change(settings.record,
               [&](LoggerSettings& record) { record.pointsPerBlock = QString::fromLatin1(pointsPerBlock); });
        commands.runEnabled = true;
        collection.run1();
    }
    static QByteArray line(int value) { return "11/21/26\t2700\t" + QByteArray::number(value) + "\r\n"; }
};

TEST_F(CollectionTest, RunSendsItsCommandAndShowsRunning) {
    debug.comm2Output = true;
    status.notice = QStringLiteral("of the run before");
    startGlow();
    EXPECT_EQ(said(), "Run 1\rStart Running Profile\r");
    EXPECT_EQ(com1.allWritten(), QByteArray("R"));
    expectRunning();
    EXPECT_FALSE(commands.runEnabled);
    EXPECT_FALSE(commands.canRun);
    EXPECT_EQ(status.notice.value(), QString());
    EXPECT_EQ(sheet.rowCount(), 0);
}

TEST_F(CollectionTest, WatchForPromptsBeginsWithRunOnlyForBlocksOfOnePoint) {
    const struct {
        const char* points;
        int gatherstart;
    } cases[] = {{"1", 1}, {"01", 1}, {"1 point", 1}, {"0", 0}, {"2", 0}, {"", 0}, {"10", 0}, {"1.5", 0}};
    for (const auto& each : cases) {
        state.gatherstart = 0;
        startGlow(each.points);
        EXPECT_EQ(state.gatherstart, each.gatherstart) << each.points;
    }
}

TEST_F(CollectionTest, StartingARunKeepsTheRowsOfTheSheet) {
    startGlow();
    receive(line(1));
    collection.closeRecordFile();
    collection.run1();
    receive(line(2));
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|11/21/26|1:00:00|1|||||");
    EXPECT_EQ(cells(1).join(u'|').toStdString(), "2|11/21/26|1:00:00|2|||||");
}

TEST_F(CollectionTest, EachLineBecomesARowAndIsAnnounced) {
    startGlow();
    debug.comm2Output = true;
    receive(line(512));
    EXPECT_EQ(said(), "Profile Sub\r");
    EXPECT_EQ(state.gatherstart, 1);
    EXPECT_EQ(sheetState.counter.value().toStdString(), "1");
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|11/21/26|1:00:00|512|||||");
    EXPECT_TRUE(sheetState.unsaved);
    expectRunning();
}

TEST_F(CollectionTest, RowsOfBothTrxGenerations) {
    identify("V", "512");
    collection.run1();
    receive("11/21/26\t2700\t1\t2\t3\t4\r\n");
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|11/21/26|1:00:00|1|2|3|4||");
    identify("v", "412");
    receive("11/21/26\t2700\t1\t2\t3\t4\t5\t6\r\n");
    EXPECT_EQ(cells(1).join(u'|').toStdString(), "2|11/21/26|1:00:00|1|2|3|4|5|6");
}

TEST_F(CollectionTest, ConversionIsAskedOfTheScreenForEachRow) {
    startGlow();
    receive(line(512));
    settings.glowProvideRawCounts = false;
    settings.glowCalibration.offset = QStringLiteral("12");
    settings.glowCalibration.scale = QStringLiteral("0.001");
    receive(line(512));
    EXPECT_EQ(sheet.cell(0, 3).toStdString(), "512");
    EXPECT_EQ(sheet.cell(1, 3).toStdString(), "0.5");
}

TEST_F(CollectionTest, UnreadableDateIsKeptAsReceived) {
    startGlow();
    receive("99/99/99\t2700\t5\r\n");
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|99/99/99|1:00:00|5|||||");
}

TEST_F(CollectionTest, EchoAndShortLinesAreNeitherRowsNorCounted) {
    startGlow();
    receive(">R\r\n");
    receive("R\r\n");
    receive("123456789\r\n");
    receive("\r\n");
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(state.gatherstart, 0);
    expectRunning();
    receive(line(1));
    receive(">");
    expectEnded();
    EXPECT_EQ(status.notice.value(), QString());
}

TEST_F(CollectionTest, IncompleteLineWaitsForItsEnd) {
    startGlow();
    receive("11/21/26\t27");
    EXPECT_EQ(sheet.rowCount(), 0);
    receive("00\t7\r\n");
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|11/21/26|1:00:00|7|||||");
}

TEST_F(CollectionTest, LinesWithTooFewFieldsAreSkippedCountedAndToldAtTheEnd) {
    startGlow();
    receive("11/21/26\t2700\r\n");
    EXPECT_EQ(state.gatherstart, 1) << "data has begun to arrive";
    receive(line(1));
    EXPECT_EQ(status.notice.value(), QString());
    receive("no fields at all\r\n");
    receive("11/21/26 2700 5\r\n");
    EXPECT_EQ(sheet.rowCount(), 1);
    receive(">");
    expectEnded();
    EXPECT_EQ(status.notice.value().toStdString(), "2 lines could not be read; they are in log.ohp")
        << "a late clock reply is none";
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CollectionTest, CountOfUnreadLinesBeginsAfreshWithEachRun) {
    startGlow();
    receive("no fields at all\r\n");
    collection.closeRecordFile();
    EXPECT_EQ(status.notice.value().toStdString(), "1 line could not be read; it is in log.ohp");
    collection.run1();
    receive(line(1));
    receive(">");
    EXPECT_EQ(status.notice.value(), QString());
}

/// What arrives before a tick, and what the run is after it.
struct PromptStep {
    QByteArray arrives;
    int rows;
    bool ended;
};

struct PromptCase {
    const char* name;
    const char* pointsPerBlock;
    std::vector<PromptStep> steps;
};

QByteArray row(int value) {
    return "11/21/26\t2700\t" + QByteArray::number(value) + "\r\n";
}

const PromptCase promptCases[] = {
    {"WithTheLastLineEndsTheRun", "0", {{row(1), 1, false}, {row(2) + ">", 2, true}}},
    {"ApartFromTheLastLineEndsTheRunAtTheNextTick", "0", {{row(1), 1, false}, {row(2), 2, false}, {">", 2, true}}},
    {"BehindTheFirstLineEndsTheRun", "0", {{row(1) + ">", 1, false}, {"", 1, true}}},
    {"LetsEveryLineAheadOfItBecomeARowFirst",
     "0",
     {{row(1), 1, false},
      {row(2) + row(3) + "short\r\n" + row(4) + row(5) + ">", 2, false},
      {"", 3, false},
      {"", 3, false},
      {"", 4, false},
      {"", 5, true}}},
    {"OfABlockOfOnePointInOnePieceEndsTheRunBehindItsRows",
     "1",
     {{">R\r\n" + row(1) + row(2) + row(3) + ">", 0, false},
      {"", 1, false},
      {"", 2, false},
      {"", 3, true},
      {"", 3, true}}},
    {"OfALongerBlockInOnePieceEndsTheRunBehindItsRows",
     "3",
     {{">R\r\n" + row(1) + row(2) + row(3) + ">", 0, false},
      {"", 1, false},
      {"", 2, false},
      {"", 3, true},
      {"", 3, true}}},
    {"HasNoRowsOfTheRunBehindIt",
     "0",
     {{row(1), 1, false}, {row(2) + ">C\r\n" + row(3), 2, true}, {"", 2, true}, {"", 2, true}}},
    {"IsNoExclamationMark",
     "0",
     {{row(1), 1, false}, {"!", 1, false}, {"", 1, false}, {"\r\n", 1, false}, {row(2), 2, false}, {">", 2, true}}},
    {"AheadOfAnyRowDoesNotEndTheRun", "0", {{">", 0, false}, {"", 0, false}, {"R\r\n", 0, false}, {row(1), 1, false}}},
    {"LeftOverAndAnEchoDoNotEndABlockOfOnePoint",
     "1",
     {{">", 0, false}, {"R\r\n", 0, false}, {row(1), 1, false}, {">", 1, true}}},
    {"OfItsOnlyLineEndsABlockOfOnePoint", "1", {{">R\r\n", 0, false}, {row(1) + ">", 1, true}}},
    {"DoesNotEndABlockOfOnePointBetweenTwoPiecesOfItsLine",
     "1",
     {{">R\r\n11/21/26\t27", 0, false}, {"", 0, false}, {"00\t7\r\n", 1, false}, {">", 1, true}}},
};

class Prompt : public CollectionTest, public testing::WithParamInterface<PromptCase> {};

TEST_P(Prompt, InARun) {
    startGlow(GetParam().pointsPerBlock);
    for (const PromptStep& step : GetParam().steps) {
        SCOPED_TRACE(step.arrives.toStdString());
        receive(step.arrives);
        EXPECT_EQ(sheet.rowCount(), step.rows);
        step.ended ? expectEnded() : expectRunning();
    }
}

INSTANTIATE_TEST_SUITE_P(Prompts, Prompt, testing::ValuesIn(promptCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(CollectionTest, PromptFlagTellsWhichPromptWasSeenAndIsForgottenWithTheFirstRow) {
    startGlow("1");
    receive(">");
    EXPECT_EQ(state.Gatherstop, 1);
    receive("R\r\n");
    receive(line(1));
    EXPECT_EQ(state.Gatherstop, 0) << "the left-over prompt no longer counts";
    receive("!");
    EXPECT_EQ(state.Gatherstop, 3);
}

TEST_F(CollectionTest, SecondRunIsNotEndedByTheFirstOnesPrompt) {
    startGlow("1");
    receive(line(1) + ">");
    expectEnded();
    collection.run1();
    for (const QByteArray& arrives : {QByteArray(), QByteArray("R\r\n"), QByteArray(), line(2)}) {
        receive(arrives);
        expectRunning();
    }
    EXPECT_EQ(sheet.rowCount(), 2);
    receive(">");
    expectEnded();
    EXPECT_EQ(com1.allWritten(), QByteArray("RR"));
}

TEST_F(CollectionTest, ViewFollowsEveryRow) {
    startGlow();
    for (int row = 1; row <= 13; ++row) {
        receive(line(row));
        EXPECT_EQ(sheetState.topRow.value(), row > 11 ? row - 10 : 0) << row;
    }
}

TEST_F(CollectionTest, CounterOverflowEndsTheRunOnceWithAllRowsKept) {
    startGlow();
    receive(line(1));
    haveRows(32767);
    const QStringList filesBefore = folder.files();
    EXPECT_TRUE(filesBefore.contains(QStringLiteral("Orvtemp.tmp.lock")));
    receive(line(2));
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
    expectEnded();
    EXPECT_EQ(sheet.rowCount(), 32767);
    EXPECT_EQ(state.plc, std::numeric_limits<qint16>::max());
    EXPECT_TRUE(sheetState.unsaved);
    receive(line(3));
    EXPECT_EQ(sheet.rowCount(), 32767) << "the error does not come again with every further line";
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(folder.files(), filesBefore);
}

TEST_F(CollectionTest, EndingWithoutARunChangesNothing) {
    state.gatherstart = 1;
    state.Gatherstop = 1;
    commands.activity = Activity::Downloading;
    collection.closeRecordFile();
    collection.endIfPrompted();
    EXPECT_EQ(state.gatherstart, 1);
    EXPECT_EQ(state.Gatherstop, 1);
    EXPECT_EQ(commands.activity.value(), Activity::Downloading);
    EXPECT_FALSE(commands.runEnabled);
    EXPECT_EQ(status.status.value(), QStringLiteral("Offline"));
}

} // namespace

namespace {

DataRow row(const char* values) {
    return {.date = QStringLiteral("1/5/99"),
            .time = QStringLiteral("9:05:07"),
            .values = QString::fromLatin1(values).split(u' ')};
}

QStringList shown(const DebugState& debug) {
    return {debug.fluorometerOutput, debug.scatteringOutputs[0], debug.scatteringOutputs[1], debug.scatteringOutputs[2],
            debug.scatteringReference};
}

TEST(SensorOutputs, GlowFillsTheFluorometer) {
    DebugState debug;
    showOnDebugScreen(debug, row("77"), RowLayout::Glow);
    EXPECT_EQ(shown(debug), QStringList({QStringLiteral("77"), QString(), QString(), QString(), QString()}));
}

TEST(SensorOutputs, NewerTrxHasOneReference) {
    DebugState debug;
    showOnDebugScreen(debug, row("1 2 3 4"), RowLayout::TrxNewer);
    EXPECT_EQ(shown(debug).join(u' ').toStdString(), " 1 2 3 4");
}

TEST(SensorOutputs, OlderTrxShowsItsLastReference) {
    DebugState debug;
    showOnDebugScreen(debug, row("1 91 2 92 3 93"), RowLayout::TrxOlder);
    EXPECT_EQ(shown(debug).join(u' ').toStdString(), " 1 2 3 93");
}

TEST(SensorOutputs, AnUnknownInstrumentShowsNothing) {
    DebugState debug;
    showOnDebugScreen(debug, row("1 2 3"), RowLayout::Unknown);
    EXPECT_EQ(shown(debug).join(u' ').toStdString(), "    ");
}

} // namespace

} // namespace orv
