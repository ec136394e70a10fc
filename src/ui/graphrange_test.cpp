// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/graphpagetest.h"

#include <QTableView>

#include <cmath>

namespace orv {
namespace {

/// A range of rows on the curves, and their selection on the sheet.
class GraphRangeTest : public GraphPageTest {
protected:
    /// Drags with Shift from before one record to behind another.
    void choose(int first, int last) { drag(at(first - 0.4), at(last + 0.4), Qt::ShiftModifier); }
    QPointF at(double place) { return {pixel(place, 0).x(), middle().y()}; }
    bool isMeasured() { return find<QWidget>("PlotStatistics").isVisible(); }
    qsizetype selectedRows() { return grid.selectionModel()->selectedRows().size(); }

    QTableView& grid = find<QTableView>("fg1");
};

TEST_F(GraphRangeTest, OfACurveWithoutNumbersThereIsNoMean) {
    begin(20);
    choose(5, 5);
    EXPECT_EQ(text("PlotStatisticsCount3"), "0");
    EXPECT_EQ(text("PlotStatisticsMean3"), "-");
    EXPECT_EQ(text("PlotStatisticsMean1"), "1005.00");
    chooseArrangement(2);
    canvas().xAxis->setRange(4.5, 5.5);
    canvas().replot();
    EXPECT_TRUE(std::isfinite(canvas().graph(2)->valueAxis()->range().center()));
}

TEST_F(GraphRangeTest, ARangeGoesWithItsLastRow) {
    begin(20);
    choose(5, 10);
    ASSERT_TRUE(isMeasured());
    layOut("F", 310);
    appendAndDraw(1); // the rows before are of another type now, and not drawn
    EXPECT_FALSE(canvas().range());
    EXPECT_FALSE(isMeasured());
    EXPECT_FALSE(grid.selectionModel()->hasSelection());
    choose(21, 21);
    EXPECT_TRUE(isMeasured());
    drag(at(21.2), at(21.6), Qt::ShiftModifier);
    EXPECT_FALSE(isMeasured()) << "where there is no row";
    EXPECT_FALSE(canvas().range());
}

TEST_F(GraphRangeTest, TheStatisticsTellWhichRecordsTheyAreOf) {
    begin(50);
    choose(10, 20);
    EXPECT_EQ(text("PlotStatisticsWhat"), "11 rows, records 10 to 20");
    choose(7, 7);
    EXPECT_EQ(text("PlotStatisticsWhat"), "1 row, record 7");
    chooseAxis(1);
    const auto time = [this](int record) { return canvas().graph(0)->data()->at(record - 1)->key; };
    drag(at(time(4) - 0.1), at(time(8) + 0.1), Qt::ShiftModifier);
    EXPECT_EQ(text("PlotStatisticsWhat"), "5 rows, records 4 to 8");
    for (const char* row : {"51\t11/20/26\t23:59:50\t1\t2\t3\t4", "52\t11/20/26\t23:59:55\t1\t2\t3\t4"}) {
        sheet.appendJoinedRow(row); // a download, from before the run
    }
    page.refreshNow();
    drag(at(canvas().graph(0)->data()->at(0)->key - 0.1), at(time(2 + 2) + 0.1), Qt::ShiftModifier);
    EXPECT_EQ(text("PlotStatisticsWhat"), "4 rows") << "no two records name them all";
}

TEST_F(GraphRangeTest, TheCursorFollowsThePointerThatDrawsARange) {
    begin(50);
    moveTo(at(10));
    mouse(QEvent::MouseButtonPress, at(10), Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
    mouse(QEvent::MouseMove, at(20), Qt::NoButton, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(readout().substr(0, 24), "Row under the cursor|20|");
    const auto* line = qobject_cast<QCPItemStraightLine*>(canvas().item(0));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->point1->coords().x(), 20);
    mouse(QEvent::MouseMove, QPointF(at(30).x(), -20), Qt::NoButton, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(readout().substr(0, 24), "Row under the cursor|30|") << "also above the curves, as the range does";
    mouse(QEvent::MouseButtonRelease, at(30), Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier);
    EXPECT_EQ(text("PlotStatisticsCount1"), "21");
}

TEST_F(GraphRangeTest, ARangeThatIsDroppedTakesBackItsSelection) {
    begin(50);
    choose(10, 20);
    EXPECT_EQ(selectedRows(), 11);
    press(canvas(), Qt::Key_Escape);
    EXPECT_EQ(selectedRows(), 0);
    choose(10, 20);
    chooseAxis(1);
    EXPECT_FALSE(isMeasured());
    EXPECT_EQ(selectedRows(), 0) << "it lay on the other axis";
    chooseAxis(0);
    choose(10, 20);
    grid.selectRow(3);
    press(canvas(), Qt::Key_Escape);
    EXPECT_EQ(selectedRows(), 1) << "what was selected on the sheet since stays";
}

TEST_F(GraphRangeTest, TheLineBelowSaysHowARangeIsChosenWhileThatIsOn) {
    button("ChooseRange").setChecked(true);
    EXPECT_EQ(text("PlotNote"), "Dragging chooses a range; a click or Esc drops it.");
    button("ChooseRange").setChecked(false);
    EXPECT_TRUE(text("PlotNote").starts_with("Wheel zooms")) << text("PlotNote");
}

TEST_F(GraphRangeTest, ItsButtonStandsApartFromThoseOfTheMode) {
    const int within = showAll().geometry().left() - follow().geometry().right();
    EXPECT_GE(button("ChooseRange").geometry().left() - showAll().geometry().right(), within + 6);
}

TEST_F(GraphRangeTest, TheAxisOfRecordsHasWholeNumbersOnly) {
    const auto expectWhole = [this](const std::string& where) {
        canvas().replot();
        ASSERT_FALSE(canvas().xAxis->tickVector().isEmpty()) << where;
        for (const double tick : canvas().xAxis->tickVector()) {
            EXPECT_EQ(tick, std::round(tick)) << where;
        }
    };
    expectWhole("empty");
    begin(1);
    for (int rows = 1; rows < 60; ++rows) {
        expectWhole(std::to_string(rows) + " rows");
        appendAndDraw(1);
    }
    canvas().xAxis->setRange(10.9, 12.1);
    expectWhole("zoomed");
}

} // namespace
} // namespace orv
