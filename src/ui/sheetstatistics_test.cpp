// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sheetselectiontest.h"

#include <QScrollBar>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace orv {
namespace {

class SheetStatisticsTest : public SheetSelectionTest {};

TEST_F(SheetStatisticsTest, RowsOfAnotherTypeOfInstrumentAreNotCounted) {
    run({"10", "11"});
    program.closePort();
    sheet.setHeader({QStringLiteral("V"), 412.0}, headerRow(HeaderPlace::GridOnOpening, RowLayout::TrxOlder));
    for (const char* row : {"3\t11/21/26\t1:00:00\t5\t6\t7\t8\t9\t1", "4\t11/21/26\t1:00:01\t7\t6\t7\t8\t9\t1"}) {
        sheet.appendJoinedRow(row);
    }
    page.refreshNow();
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(figures(1), "2|6.00|1.41|5|7");
    EXPECT_EQ(find<QLabel>("SheetStatisticsMean2").accessibleName().toStdString(), "Mean of Ref 100");
    EXPECT_EQ(text("SheetStatisticsWhat"), "4 rows selected");
    EXPECT_EQ(text("SheetNotice"), "2 rows of another type of instrument are not counted.");
    copied();
    EXPECT_EQ(text("SheetNotice"),
              "4 rows and the header row copied. 2 rows are of another type of instrument, with other columns.");
    clickCell(0, 0);
    EXPECT_TRUE(
        waitFor([this] { return text("SheetNotice") == "1 row of another type of instrument is not counted."; }, 1000));
    EXPECT_TRUE(find<QLabel>("SheetStatisticsHint").isVisible()) << "nothing is left to be counted";
    sheetState.saved = SavedRows{.count = 4, .file = QStringLiteral("/a/lake.txt")};
    EXPECT_EQ(text("SheetNotice"), "Saved 4 rows to lake.txt") << "what is newer is told";
    clickCell(3, 0);
    EXPECT_EQ(figures(1), "1|7.00|-|7|7");
}

TEST_F(SheetStatisticsTest, TheStatisticsAreThoseOfEachColumnOfTheSelection) {
    run({"2", "4", "4", "4", "5", "5", "7", "9", "?"});
    EXPECT_TRUE(find<QLabel>("SheetStatisticsHint").isVisible());
    drag(at(0, 3), at(7, 4));
    EXPECT_EQ(figures(1), "8|5.00|2.14|2|9");
    EXPECT_EQ(figures(2), "8|20.00|0.00|20|20");
    EXPECT_EQ(figures(3), "||||");
    EXPECT_EQ(text("SheetStatisticsWhat"), "16 cells selected");
    EXPECT_EQ(find<QLabel>("SheetStatisticsMean1").accessibleName().toStdString(), "Mean of 100");
    clickCell(0, 3);
    EXPECT_TRUE(waitFor([this] { return find<QLabel>("SheetStatisticsHint").isVisible(); }, 1000))
        << "one number has no statistics";
    clickHeader(3);
    EXPECT_EQ(figures(1), "8|5.00|2.14|2|9") << "a line that could not be read is no row";
    EXPECT_EQ(text("SheetStatisticsWhat"), "1 column selected");
    clickCell(0, 0);
    clickCell(2, 0, Qt::ShiftModifier);
    waitFor([this] { return text("SheetStatisticsWhat") == "3 rows selected"; }, 1000);
    EXPECT_EQ(figures(1), "3|3.33|1.15|2|4");
    EXPECT_EQ(text("SheetStatisticsWhat"), "3 rows selected");
    program.clearAll();
    page.refreshNow();
    EXPECT_TRUE(find<QLabel>("SheetStatisticsHint").isVisible());
    EXPECT_EQ(text("SheetStatisticsHint"), "No rows yet.") << "the run goes on";
    program.closePort();
    EXPECT_EQ(text("SheetStatisticsHint"), "No rows yet. Collect or download data, or open a sheet.");
    program.bringBack();
    EXPECT_EQ(text("SheetStatisticsHint"), "Select cells, a row by its number or a column by its header: to copy "
                                           "them, and for their mean and standard deviation.");
}

TEST_F(SheetStatisticsTest, OneSelectedRowIsToldToo) {
    run({"10"});
    clickCell(0, 0);
    EXPECT_EQ(figures(1), "1|10.00|-|10|10");
    EXPECT_EQ(text("SheetStatisticsWhat"), "1 row selected");
    sheet.appendRow({QStringLiteral("?")});
    page.refreshNow();
    QCoreApplication::processEvents();
    clickCell(1, 0);
    waitFor([this] { return figures(1).starts_with('0'); }, 1000);
    EXPECT_EQ(figures(1), "0|-|-|-|-") << "one without numbers";
    EXPECT_EQ(text("SheetStatisticsWhat"), "1 row selected");
}

TEST_F(SheetStatisticsTest, NothingMovesUnderThePointerThatDrawsASelection) {
    run({"10", "11", "12", "13", "14", "15", "16", "17", "18", "19"});
    for (int row = 0; row < 50; ++row) {
        receiveRow();
    }
    page.refreshNow();
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    const QRect place = grid.geometry();
    QTest::mousePress(grid.viewport(), Qt::LeftButton, Qt::NoModifier, at(50, 0));
    for (int row = 51; row < 60; ++row) {
        moveTo(at(row, 0));
        pass(60); // the statistics follow
        ASSERT_EQ(grid.geometry(), place) << row;
    }
    EXPECT_TRUE(find<QLabel>("SheetStatisticsWhat").isVisible());
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, at(59, 0));
    EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 10);
    EXPECT_EQ(copied(Qt::ShiftModifier).substr(0, 3), "51\t");
    QCoreApplication::processEvents();
    EXPECT_EQ(text("SheetNotice"), "10 rows copied.");
    EXPECT_EQ(copied().substr(0, 4), "Data");
    EXPECT_EQ(text("SheetNotice"), "10 rows and the header row copied.");
    EXPECT_EQ(grid.geometry(), place);
    clickCell(55, 3);
    EXPECT_EQ(text("SheetNotice"), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.geometry(), place);
}

TEST_F(SheetStatisticsTest, CalculatedValuesHaveTheDecimalsThatTheirDeviationNeeds) {
    connectAndRead();
    for (const char* angle : {"0.00123", "0.00145", "-0.00101"}) {
        rows.addRow({.date = QStringLiteral("11/21/26"),
                     .time = QStringLiteral("1:00:00"),
                     .values = {QString::fromLatin1(angle), QStringLiteral("2.5"), QStringLiteral("7.25"),
                                QStringLiteral("30517")}});
    }
    page.refreshNow();
    grid.selectAll();
    EXPECT_EQ(figures(1), "3|0.00056|0.00136|-0.00101|0.00145");
    EXPECT_EQ(figures(2), "3|2.50000|0.00000|2.50000|2.50000");
    EXPECT_EQ(figures(4), "3|30517.00|0.00|30517|30517");
}

TEST_F(SheetStatisticsTest, ASelectionStaysWhileRowsCome) {
    run({"10", "12"});
    clickHeader(3);
    EXPECT_EQ(figures(1), "2|11.00|1.41|10|12");
    receiveRow();
    page.refreshNow();
    EXPECT_EQ(copied(), "100\n10\n12") << "what comes is not selected";
}

TEST_F(SheetStatisticsTest, AllOfALongSheetIsComputedAtOnce) {
    connectAndRead();
    for (int row = 1; row <= 20000; ++row) {
        rows.addRow(
            {.date = QStringLiteral("11/21/26"),
             .time = QStringLiteral("1:00:00"),
             .values = {QString::number(row), QStringLiteral("2.5"), QStringLiteral("3"), QStringLiteral("4")}});
    }
    page.refreshNow();
    grid.selectAll();
    EXPECT_EQ(figures(1), "20000|10000.50|5773.65|1|20000");
    EXPECT_EQ(figures(4), "20000|4.00|0.00|4|4");
}

TEST_F(SheetStatisticsTest, TheFirstRowOfAnotherTypeGetsTheRoomOfItsColumns) {
    connectAndRead("F310\r");
    sheet.appendJoinedRow("1\t11/21/26\t1:00:00\t5");
    page.refreshNow();
    grid.selectAll();
    auto& table = find<QWidget>("SheetStatistics");
    const int room = table.minimumHeight();
    sheet.setHeader({QStringLiteral("V"), 512.0}, headerRow(HeaderPlace::GridOnOpening, RowLayout::TrxNewer));
    EXPECT_EQ(table.minimumHeight(), room);
    sheet.appendJoinedRow("2\t11/21/26\t1:00:00\t5\t6\t7\t8");
    page.refreshNow();
    EXPECT_GT(table.minimumHeight(), room);
    EXPECT_TRUE(
        waitFor([this] { return text("SheetNotice") == "1 row of another type of instrument is not counted."; }, 1000))
        << "the row that was selected before";
}

} // namespace
} // namespace orv
