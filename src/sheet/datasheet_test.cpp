// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/datasheet.h"

#include "testing/expected.h"
#include "testing/sheettest.h"

#include <limits>

namespace orv {
namespace {

QStringList texts(const char* joined) {
    return QString::fromLatin1(joined).split(u'|');
}

TEST(DataSheet, StartsEmptyWithoutType) {
    const DataSheet sheet;
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_TRUE(sheet.header().isEmpty());
    EXPECT_EQ(sheet.type().layout(), RowLayout::Unknown);
    EXPECT_EQ(sheet.cell(0, 0), QString());
}

TEST(DataSheet, CellsAreWhatWasAppended) {
    DataSheet sheet;
    sheet.appendRow(texts("1|1/5/99|9:05:07|x||end"));
    sheet.appendRow(texts("2"));
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_EQ(sheet.cell(0, 0).toStdString(), "1");
    EXPECT_EQ(sheet.cell(0, 2).toStdString(), "9:05:07");
    EXPECT_EQ(sheet.cell(0, 4), QString());
    EXPECT_EQ(sheet.cell(0, 5).toStdString(), "end");
    EXPECT_EQ(sheet.cell(1, 0).toStdString(), "2");
    for (const auto& [row, column] : {std::pair(1, 1), {1, 8}, {1, -1}, {2, 0}, {-1, 0}}) {
        EXPECT_EQ(sheet.cell(row, column), QString()) << "there is no such cell";
    }
    const QString received = QString::fromLatin1("\xb5\xff~");
    sheet.appendRow({received});
    EXPECT_EQ(sheet.cell(2, 0), received);
    sheet.appendRow(texts("|1/5/99"));
    EXPECT_EQ(sheet.cell(3, 0), QString());
}

TEST(DataSheet, WritesAsManyCellsAsAskedEachWithATab) {
    DataSheet sheet;
    sheet.appendRow(texts("1|2|3"));
    const auto written = [&sheet](int cells) {
        QByteArray text("before:");
        sheet.writeCells(0, cells, text);
        return text.toStdString();
    };
    EXPECT_EQ(written(0), "before:");
    EXPECT_EQ(written(2), "before:1\t2\t");
    EXPECT_EQ(written(3), "before:1\t2\t3\t");
    EXPECT_EQ(written(1), "before:1\t");
    EXPECT_EQ(written(4), "before:1\t2\t3\t\t");
    EXPECT_EQ(written(6), "before:1\t2\t3\t\t\t\t");
}

TEST(DataSheet, AHeaderReplacesTheWholeRowAndTheTypeAndStays) {
    DataSheet sheet;
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 412.0}, texts("a|b|c|d|e|f|g|h|i"));
    sheet.setHeader({.letter = QStringLiteral("f"), .firmware = 1.0}, texts("a|b"));
    EXPECT_EQ(sheet.header(), texts("a|b"));
    EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("f"), .firmware = 1.0}));
    EXPECT_EQ(sheet.type().layout(), RowLayout::Glow);
    sheet.appendRow(texts("1|2"));
    sheet.removeRows();
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheet.header(), texts("a|b")) << "it stays when the rows go";
    EXPECT_EQ(sheet.type().layout(), RowLayout::Glow);
}

TEST(DataSheet, EveryChangeIsToldAfterItHappened) {
    DataSheet sheet;
    QStringList told;
    const Subscription subscriptions[] = {
        sheet.headerChanged.subscribe([&] { told << QStringLiteral("header %1").arg(sheet.header().size()); }),
        sheet.rowAppended.subscribe([&] { told << QStringLiteral("row %1").arg(sheet.rowCount()); }),
        sheet.rowsRemoved.subscribe([&] { told << QStringLiteral("removed %1").arg(sheet.rowCount()); })};
    sheet.setHeader({}, texts("a|b"));
    sheet.appendRow(texts("1"));
    sheet.appendRow(texts("2"));
    sheet.removeRows();
    EXPECT_EQ(told.join(u',').toStdString(), "header 2,row 1,row 2,removed 0");
}

TEST(DataSheet, ChangesAreCountedForThoseWhoWereAway) {
    DataSheet sheet;
    sheet.setHeader({}, texts("a"));
    sheet.appendRow(texts("1"));
    EXPECT_EQ(sheet.headerChanges(), 1);
    EXPECT_EQ(sheet.removals(), 0);
    sheet.removeRows();
    sheet.setHeader({}, texts("b"));
    EXPECT_EQ(sheet.headerChanges(), 2);
    EXPECT_EQ(sheet.removals(), 1);
}

class TypeOfASheet : public testing::Test {
protected:
    void layOut(const char* letter, double firmware, const char* header) {
        sheet.setHeader({.letter = QString::fromLatin1(letter), .firmware = firmware}, texts(header));
    }
    std::string state() const {
        return sheet.type().letter.toStdString() + std::to_string(static_cast<int>(sheet.type().firmware)) + ' ' +
               sheet.columnNames().join(u'|').toStdString() + ' ' + std::to_string(sheet.rowsOfOtherLayout());
    }

    DataSheet sheet;
};

TEST_F(TypeOfASheet, RowsUnderTheHeaderOfAnotherLayoutAreCounted) {
    layOut("V", 512, "a|100");
    EXPECT_EQ(state(), "V512 a|100 0");
    sheet.appendRow(texts("1"));
    layOut("V", 600, "a|100.");
    EXPECT_EQ(state(), "V600 a|100. 0") << "the same columns";
    layOut("F", 310, "a|Output");
    sheet.appendRow(texts("2"));
    EXPECT_EQ(state(), "F310 a|Output 1");
    sheet.appendRow(texts("3"));
    EXPECT_EQ(state(), "F310 a|Output 1");
    layOut("V", 412, "a|100");
    sheet.appendRow(texts("4"));
    EXPECT_EQ(state(), "V412 a|100 3");
    sheet.removeRows();
    EXPECT_EQ(state(), "V412 a|100 0");
}

TEST_F(TypeOfASheet, StaysThatOfTheRowsUntilOneOfAnotherTypeComes) {
    layOut("V", 512, "a|100");
    sheet.appendRow(texts("1"));
    layOut("F", 310, "a|Output");
    EXPECT_EQ(state(), "V512 a|100 0");
    EXPECT_EQ(sheet.header().join(u'|').toStdString(), "a|Output");
    layOut("V", 512, "a|100");
    sheet.appendRow(texts("2"));
    EXPECT_EQ(state(), "V512 a|100 0") << "it was connected in between";
    layOut("F", 310, "a|Output");
    const int changes = sheet.headerChanges();
    sheet.removeRows();
    EXPECT_EQ(state(), "F310 a|Output 0");
    sheet.appendRow(texts("1"));
    EXPECT_EQ(state(), "F310 a|Output 0");
    EXPECT_EQ(sheet.headerChanges(), changes);
    layOut("V", 512, "a|100");
    sheet.appendRow(texts("2"));
    EXPECT_EQ(sheet.headerChanges(), changes + 2) << "once laid out, once taken on by the rows";
}

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
    constexpr const char* older = "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref";
    using Case = std::array<const char*, 3>;
    for (const auto& [letter, firmware, header] : {Case{"V", "412", older},
                                                   {"v", "499", older},
                                                   {"V", "500", newerOnClearing},
                                                   {"v", "512", newerOnClearing},
                                                   {"F", "512", glow},
                                                   {"f", "412", glow}}) {
        identify(letter, firmware);
        EXPECT_EQ(sheet.header().join(u'|').toStdString(), header) << letter << firmware;
        EXPECT_EQ(sheet.type().letter.toStdString(), letter);
        EXPECT_EQ(sheet.type().firmware, QString::fromLatin1(firmware).toDouble());
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
    EXPECT_EQ(errorOf([&] { rows.addRow(aRow()); }), RuntimeError::Kind::Overflow);
    EXPECT_EQ(state.plc, std::numeric_limits<qint16>::max());
    EXPECT_EQ(sheet.rowCount(), 32767);
    EXPECT_EQ(sheetState.counter.value().toStdString(), "32767");
}

TEST_F(SheetRowsTest, FirmwareIsTheLeadingNumberOfTheLabel) {
    const std::pair<const char*, double> cases[] = {
        {"512", 512.0}, {"________", 0.0}, {"5.12", 5.12}, {"412b", 412.0}, {"", 0.0}};
    expectEach(cases, [this](const char* label) {
        session.setFirmware(QString::fromLatin1(label));
        return rows.connectedType().firmware;
    });
}

} // namespace
} // namespace orv
