// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/runtimeerror.h"
#include "testing/sheettest.h"

#include <limits>

namespace orv {

namespace {

class SheetRowsTest : public SheetTest {
protected:
    static DataRow aRow() {
        return {.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:07"), .values = {QStringLiteral("512")}};
    }

    void clearedAs(const char* letter, const char* firmware, const char* header) {
        SCOPED_TRACE(std::string(letter) + " " + firmware);
        state.Vartemp = QString::fromLatin1(letter);
        session.setFirmware(QString::fromLatin1(firmware));
        rows.clearSpreadSheet();
        EXPECT_EQ(sheet.header().join(u'|').toStdString(), header);
    }
};

constexpr const char* olderOnClearing = "Data #|Date|Time|100|Ref1|125|Ref2|150|Ref3";
constexpr const char* newerOnClearing = "Data #|Date|Time|100|125|150|Ref";
constexpr const char* glow = "Data #|Date|Time|Output";

TEST_F(SheetRowsTest, ClearingWritesTheHeaderOfTheType) {
    clearedAs("V", "412", olderOnClearing);
    clearedAs("V", "499", olderOnClearing);
    clearedAs("V", "500", newerOnClearing);
    clearedAs("v", "512", newerOnClearing);
    clearedAs("v", "412", olderOnClearing);
    clearedAs("F", "512", glow);
    clearedAs("f", "412", glow);
    clearedAs("X", "512", newerOnClearing);
}

TEST_F(SheetRowsTest, ClearingWithoutAnInstrumentWritesTheOlderTrxHeaderForAnUnfilledLabel) {
    clearedAs("", "________", olderOnClearing);
    EXPECT_EQ(sheet.type().layout(), RowLayout::Unknown) << "the rows are of no known type";
    clearedAs("", "512", newerOnClearing);
}

TEST_F(SheetRowsTest, ClearingRemovesRowsCounterViewAndUnsavedState) {
    identify("F", "500");
    for (int row = 0; row < 12; ++row) {
        rows.addRow(aRow());
    }
    rows.followNewest();
    debug.comm2Output = true;
    rows.clearSpreadSheet();
    EXPECT_EQ(state.plc, 0);
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheetState.counter.value().toStdString(), "0");
    EXPECT_EQ(sheetState.topRow.value(), 0);
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_FALSE(commands.sheetHoldsRows);
    EXPECT_EQ(said(), "Clear Spread Sheet\r");
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(SheetRowsTest, ClearingKeepsTheTypeOfTheConnectedInstrument) {
    identify("v", "412");
    rows.clearSpreadSheet();
    EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("v"), .firmware = 412.0}));
}

TEST_F(SheetRowsTest, OpeningThePortWritesTheHeaderOfTheType) {
    const struct {
        const char* letter;
        const char* firmware;
        const char* header;
    } cases[] = {
        {"V", "412", "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref"},
        {"v", "499", "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref"},
        {"V", "500", "Data #|Date|Time|100|125|150|Ref"},
        {"v", "512", "Data #|Date|Time|100|125|150|Ref"},
        {"F", "512", glow},
        {"f", "412", glow},
    };
    for (const auto& each : cases) {
        identify(each.letter, each.firmware);
        EXPECT_EQ(sheet.header().join(u'|').toStdString(), each.header) << each.letter << each.firmware;
        EXPECT_EQ(sheet.type().letter.toStdString(), each.letter);
        EXPECT_EQ(sheet.type().firmware, QString::fromLatin1(each.firmware).toDouble());
    }
}

TEST_F(SheetRowsTest, OpeningThePortOfAnUnknownTypeChangesNothing) {
    identify("F", "512");
    for (const char* letter : {"", "X"}) {
        identify(letter, "412");
        EXPECT_EQ(sheet.header().join(u'|').toStdString(), glow);
        EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("F"), .firmware = 512.0}));
    }
}

TEST_F(SheetRowsTest, OpeningThePortKeepsTheRows) {
    identify("F", "512");
    rows.addRow(aRow());
    identify("V", "512");
    EXPECT_EQ(sheet.rowCount(), 1);
    EXPECT_EQ(state.plc, 1);
    EXPECT_TRUE(sheetState.unsaved);
}

TEST_F(SheetRowsTest, AddingARowCountsAndShowsIt) {
    rows.addRow(aRow());
    EXPECT_EQ(state.plc, 1);
    EXPECT_EQ(sheetState.counter.value().toStdString(), "1");
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_TRUE(commands.sheetHoldsRows);
    rows.addRow(aRow());
    EXPECT_EQ(sheetState.counter.value().toStdString(), "2");
    EXPECT_EQ(cells(1).join(u'|').toStdString(), "2|1/5/99|9:05:07|512|||||");
}

TEST_F(SheetRowsTest, ViewStaysWith11RowsAndFollowsFrom12On) {
    sheetState.topRow = 5;
    for (int row = 0; row < 11; ++row) {
        rows.addRow(aRow());
        rows.followNewest();
        EXPECT_EQ(sheetState.topRow.value(), 5);
    }
    rows.addRow(aRow());
    EXPECT_EQ(sheetState.topRow.value(), 5) << "moved only on request";
    rows.followNewest();
    EXPECT_EQ(sheetState.topRow.value(), 2);
    rows.addRow(aRow());
    rows.followNewest();
    EXPECT_EQ(sheetState.topRow.value(), 3);
}

TEST_F(SheetRowsTest, CounterThatIsFullOverflowsWithNothingChanged) {
    haveRows(std::numeric_limits<qint16>::max() - 1);
    rows.addRow(aRow());
    EXPECT_EQ(state.plc, std::numeric_limits<qint16>::max());
    try {
        rows.addRow(aRow());
        FAIL() << "no overflow";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.kind(), RuntimeError::Kind::Overflow);
    }
    EXPECT_EQ(state.plc, std::numeric_limits<qint16>::max());
    EXPECT_EQ(sheet.rowCount(), 32767);
    EXPECT_EQ(sheetState.counter.value().toStdString(), "32767");
}

TEST_F(SheetRowsTest, FirmwareIsTheLeadingNumberOfTheLabel) {
    const struct {
        const char* label;
        double firmware;
    } cases[] = {{"512", 512.0}, {"________", 0.0}, {"5.12", 5.12}, {"412b", 412.0}, {"", 0.0}};
    for (const auto& each : cases) {
        session.setFirmware(QString::fromLatin1(each.label));
        EXPECT_EQ(rows.connectedType().firmware, each.firmware) << each.label;
    }
}

} // namespace

} // namespace orv
