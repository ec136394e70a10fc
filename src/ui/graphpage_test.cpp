// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/graphpagetest.h"

#include <QSet>
#include <QTableView>

#include <cmath>
#include <set>

namespace orv {
namespace {

TEST_F(GraphPageTest, AnEmptySheetIsSaid) {
    EXPECT_TRUE(hint().starts_with("No rows yet.")) << hint();
    begin(1);
    EXPECT_EQ(hint(), "");
    sheet.removeRows();
    page.refreshNow();
    EXPECT_TRUE(hint().starts_with("No rows yet.")) << hint();
    EXPECT_EQ(readout(), "Newest row||||||||");
    const auto* words = canvas().findChild<QCPItemText*>();
    ASSERT_NE(words, nullptr);
    EXPECT_GT(words->layer()->index(), canvas().layer(QStringLiteral("axes"))->index()) << "no frame goes through them";
}

TEST_F(GraphPageTest, EachValueColumnIsACurveWithItsNameAndColour) {
    begin(20);
    ASSERT_EQ(canvas().graphCount(), 4);
    EXPECT_EQ(curve(1).text().toStdString(), "100");
    EXPECT_EQ(curve(4).text().toStdString(), "Ref");
    EXPECT_EQ(curve(4).accessibleName().toStdString(), "Curve Ref");
    std::set<QRgb> colours;
    for (int graph = 0; graph < 4; ++graph) {
        colours.insert(canvas().graph(graph)->pen().color().rgb());
        EXPECT_FALSE(curve(graph + 1).icon().isNull());
        EXPECT_EQ(canvas().graph(graph)->dataCount(), 20);
    }
    EXPECT_EQ(colours.size(), 4U);
    EXPECT_TRUE(std::isnan(canvas().graph(2)->data()->at(4)->value)) << "a cell that is no number is a gap";

    sheet.removeRows();
    layOut("F", 310);
    page.refreshNow();
    EXPECT_EQ(canvas().graphCount(), 1);
    EXPECT_EQ(curve(1).text().toStdString(), "Output");
    EXPECT_THROW(curve(2), std::out_of_range);
}

TEST_F(GraphPageTest, RowsAreDrawnAWhileAfterTheyHaveComeAndAllAtOnce) {
    begin(1);
    append(40);
    settle();
    const auto points = [this] { return canvas().graph(0)->dataCount(); };
    EXPECT_EQ(points(), 1);
    waitFor([&points] { return points() > 1; }, 20'000);
    EXPECT_EQ(points(), 41);
}

TEST_F(GraphPageTest, AHiddenPageDoesNothing) {
    begin(3);
    settle();
    showPage(QStringLiteral("Status and Controls"));
    settle();
    const int before = canvas().drawings();
    append(50);
    commands.activity = Activity::Collecting;
    layOut("V", 600);
    constexpr int longerThanADrawing = 500;
    pass(longerThanADrawing);
    EXPECT_EQ(canvas().drawings(), before);
    EXPECT_EQ(canvas().graph(0)->dataCount(), 3);
    showPage(QStringLiteral("Output: Graphical"));
    EXPECT_EQ(canvas().graph(0)->dataCount(), 53);
    EXPECT_GT(canvas().drawings(), before);
}

TEST_F(GraphPageTest, ALoadedSheetIsShownWholeAndARunIsFollowed) {
    begin(3000);
    EXPECT_TRUE(showAll().isChecked());
    EXPECT_LT(places().lower, 1);
    EXPECT_GT(places().upper, 3000);
    commands.activity = Activity::Collecting;
    appendAndDraw(10);
    EXPECT_TRUE(follow().isChecked());
    EXPECT_FALSE(showAll().isChecked());
    EXPECT_GT(places().lower, 1990);
    EXPECT_GT(places().upper, 3010);
    appendAndDraw(100);
    EXPECT_GT(places().upper, 3110);
    commands.activity = Activity::None;
    page.refreshNow();
    EXPECT_TRUE(follow().isChecked());
}

TEST_F(GraphPageTest, ZoomingAndDraggingStopFollowingAndFollowResumes) {
    beginRun(2000);
    const auto expectStopped = [this] {
        const QCPRange chosen = places();
        EXPECT_FALSE(follow().isChecked());
        EXPECT_FALSE(showAll().isChecked());
        appendAndDraw(50);
        EXPECT_EQ(places(), chosen);
        follow().click();
        EXPECT_TRUE(follow().isChecked());
        EXPECT_GT(places().upper, sheet.rowCount());
        appendAndDraw(50);
        EXPECT_GT(places().upper, sheet.rowCount());
    };
    QCPRange before = places();
    wheel(middle());
    EXPECT_LT(places().size(), before.size());
    expectStopped();
    before = places();
    drag(middle(), middle() + QPointF(60, 0));
    EXPECT_LT(places().lower, before.lower);
    EXPECT_NEAR(places().size(), before.size(), 1e-6);
    expectStopped();
    canvas().setFocus();
    press(canvas(), Qt::Key_Plus);
    expectStopped();
    follow().click();
    EXPECT_TRUE(follow().isChecked()) << "pressing it again does not stop";
}

TEST_F(GraphPageTest, TheWheelWithCtrlZoomsTheValues) {
    begin(100);
    const QCPRange placesBefore = places();
    const QCPRange valuesBefore = canvas().yAxis->range();
    wheel(middle(), Qt::ControlModifier);
    EXPECT_EQ(places(), placesBefore);
    EXPECT_LT(canvas().yAxis->range().size(), valuesBefore.size());
    wheel(middle());
    EXPECT_LT(places().size(), placesBefore.size());
}

TEST_F(GraphPageTest, ADoubleClickShowsAllAlsoWhatComes) {
    beginRun(2000);
    wheel(middle());
    doubleClick(middle());
    EXPECT_TRUE(showAll().isChecked());
    EXPECT_LT(places().lower, 1);
    EXPECT_GT(places().upper, 2000);
    appendAndDraw(500);
    EXPECT_LT(places().lower, 1);
    EXPECT_GT(places().upper, 2500);
    wheel(middle());
    showAll().click();
    EXPECT_LT(places().lower, 1);
    EXPECT_TRUE(showAll().isChecked());
    press(canvas(), Qt::Key_End);
    EXPECT_TRUE(follow().isChecked());
    press(canvas(), Qt::Key_Home);
    EXPECT_TRUE(showAll().isChecked());
}

TEST_F(GraphPageTest, TheReadoutTellsTheRowUnderThePointerElseTheNewest) {
    begin(20);
    EXPECT_EQ(readout(), "Newest row|20|11/21/26|0:00:10|1020|2020|3000|4000|");
    moveTo(pixel(5.3, 2000));
    EXPECT_EQ(readout(), "Row under the cursor|5|11/21/26|0:00:02|1005|2005|?|4000|");
    moveTo(pixel(5.6, 2000));
    EXPECT_EQ(readout(), "Row under the cursor|6|11/21/26|0:00:03|1006|2006|3000|4000|");
    appendAndDraw(1);
    EXPECT_EQ(readout().substr(0, 23), "Row under the cursor|6|") << "it stays while rows come";
    moveTo(QPointF(1, 1));
    EXPECT_EQ(readout().substr(0, 14), "Newest row|21|") << "outside of the curves";
    moveTo(pixel(3, 2000));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&canvas(), &leave);
    EXPECT_EQ(readout().substr(0, 14), "Newest row|21|");
    moveTo(pixel(3, 2000));
    sheet.removeRows();
    page.refreshNow();
    EXPECT_EQ(readout(), "Newest row||||||||");
}

TEST_F(GraphPageTest, TheRowUnderTheCursorStaysWhenTheClockIsSetBack) {
    layOut("V", 512);
    chooseAxis(1);
    commands.activity = Activity::Collecting;
    appendAndDraw(200);
    canvas().emphasise(1);
    moveTo(pixel(canvas().graph(0)->data()->at(150)->key, 1150));
    const std::string before = readout();
    EXPECT_EQ(before.substr(0, 23), "Row under the cursor|15") << before;
    for (int row = 0; row < 3; ++row) {
        const double earliest = canvas().graph(0)->data()->at(0)->key;
        sheet.appendRow({QString::number(201 + row), QStringLiteral("11/20/26"), timeText(row), QStringLiteral("7"),
                         QStringLiteral("7"), QStringLiteral("7"), QStringLiteral("7")});
        page.refreshNow();
        EXPECT_EQ(canvas().graph(0)->dataCount(), 201 + row);
        EXPECT_LE(canvas().graph(0)->data()->at(0)->key, earliest);
        EXPECT_EQ(readout(), before);
        const auto* line = qobject_cast<QCPItemStraightLine*>(canvas().item(0));
        ASSERT_NE(line, nullptr);
        EXPECT_TRUE(line->visible());
        EXPECT_GT(canvas().graph(1)->pen().widthF(), canvas().graph(0)->pen().widthF());
    }
    press(canvas(), Qt::Key_Right);
    EXPECT_NE(readout(), before);
    EXPECT_EQ(readout().substr(0, 23), "Row under the cursor|15") << "the row after";
    commands.activity = Activity::None;
    sheet.removeRows();
    appendAndDraw(200);
    EXPECT_EQ(readout().substr(0, 15), "Newest row|200|") << "other rows, though there are as many";
}

TEST_F(GraphPageTest, TheKeyboardMovesTheCursorRowByRow) {
    begin(21);
    press(canvas(), Qt::Key_Right);
    EXPECT_EQ(readout().substr(0, 24), "Row under the cursor|11|") << "it begins in the middle";
    press(canvas(), Qt::Key_Right);
    EXPECT_EQ(readout().substr(0, 24), "Row under the cursor|12|");
    for (int i = 0; i < 30; ++i) {
        press(canvas(), Qt::Key_Left);
    }
    EXPECT_EQ(readout().substr(0, 23), "Row under the cursor|1|");
}

TEST_F(GraphPageTest, RowsAtOnePlaceAreToldApartByTheirValues) {
    layOut("V", 512);
    for (const char* value : {"1004", "1005"}) {
        sheet.appendRow(
            {QStringLiteral("4"), QStringLiteral("11/21/26"), QString::fromLatin1(value), QString::fromLatin1(value)});
    }
    append(20);
    page.refreshNow();
    curve(2).click();
    curve(3).click();
    curve(4).click();
    moveTo(pixel(4, 1004));
    EXPECT_EQ(text("ReadoutTime"), "1004");
    moveTo(pixel(4, 1005));
    EXPECT_EQ(text("ReadoutTime"), "1005");
}

TEST_F(GraphPageTest, RowsOfOneSecondStandSideBySideAlsoWhenTheyAreDrawnOneByOne) {
    layOut("V", 512);
    chooseAxis(1);
    for (const int second : {7, 7, 7, 8}) {
        const QString row = QString::number(sheet.rowCount() + 1);
        sheet.appendRow({row, QStringLiteral("11/21/26"), timeText(second), row});
        page.refreshNow();
    }
    std::vector<double> values;
    std::vector<double> places;
    for (const QCPGraphData& point : *canvas().graph(0)->data()) {
        values.push_back(point.value);
        places.push_back(std::round((point.key - canvas().graph(0)->data()->at(0)->key) * 300));
    }
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(places, (std::vector<double>{0, 100, 200, 300}));
}

TEST_F(GraphPageTest, TheTimeAxisNeverRepeatsALabel) {
    layOut("V", 512);
    chooseAxis(1);
    appendAndDraw(200);
    settle();
    for (int zoom = 0; zoom < 40; ++zoom) {
        const QVector<QString> labels = canvas().xAxis->tickVectorLabels();
        EXPECT_EQ(QSet<QString>(labels.begin(), labels.end()).size(), labels.size())
            << QStringList(labels.begin(), labels.end()).join(u'|').toStdString();
        ASSERT_FALSE(labels.isEmpty());
        for (qsizetype tick = 0; tick < labels.size(); ++tick) {
            const QString label = labels[tick].section(u'\n', 0, 0);
            const QTime time = QTime::fromString(label, label.contains(u'.') ? QStringLiteral("h:mm:ss.zzz")
                                                                             : QStringLiteral("h:mm:ss"));
            const double seconds = std::fmod(canvas().xAxis->tickVector()[tick], 86400.0);
            EXPECT_NEAR(time.msecsSinceStartOfDay() / 1000.0, seconds, 1e-3) << label.toStdString();
        }
        EXPECT_TRUE(labels.front().endsWith(QLatin1String("\n11/21/26"))) << labels.front().toStdString();
        canvas().xAxis->scaleRange(0.7);
        canvas().replot();
    }
}

TEST_F(GraphPageTest, TheCurvesOfTwoRunsAreNotJoined) {
    layOut("V", 512);
    sheet.beginSeries();
    append(3);
    sheet.beginSeries();
    appendAndDraw(2);
    sheet.beginSeries();
    appendAndDraw(1);
    std::string drawn;
    for (const QCPGraphData& point : *canvas().graph(0)->data()) {
        drawn += std::isnan(point.value) ? "| " : std::to_string(std::lround(point.value)) + ' ';
    }
    EXPECT_EQ(drawn, "1001 1002 1003 | 1004 1005 | 1006 ");
}

TEST_F(GraphPageTest, StackedEachShownCurveHasAPaneWithItsScale) {
    begin(50);
    chooseArrangement(1);
    const auto panes = [this] {
        QStringList all;
        for (QCPAxisRect* pane : canvas().axisRects()) {
            all << pane->axis(QCPAxis::atLeft)->label() +
                       (pane->axis(QCPAxis::atBottom)->tickLabels() ? QStringLiteral("*") : QString());
        }
        return all.join(u' ').toStdString();
    };
    EXPECT_EQ(panes(), "100 125 150 Ref*") << "one axis of places, below";
    settle();
    for (int graph = 0; graph < 4; ++graph) {
        EXPECT_EQ(canvas().graph(graph)->keyAxis()->range(), places());
    }
    EXPECT_EQ(canvas().graph(0)->valueAxis()->axisRect()->left(), canvas().axisRect()->left())
        << "all begin below each other";
    EXPECT_NEAR(canvas().graph(0)->valueAxis()->range().upper, 1050, 10);
    EXPECT_NEAR(canvas().graph(1)->valueAxis()->range().lower, 2001, 10);
    wheel(canvas().graph(0)->valueAxis()->axisRect()->rect().center());
    EXPECT_FALSE(showAll().isChecked());
    EXPECT_EQ(canvas().graph(0)->keyAxis()->range(), places()) << "zoomed in one, zoomed in all";
    EXPECT_EQ(canvas().graph(1)->keyAxis()->range(), places());
    curve(2).click();
    EXPECT_EQ(panes(), "100 150 Ref*");
    appendAndDraw(50);
    layOut("V", 412);
    appendAndDraw(1);
    chooseArrangement(0);
    EXPECT_EQ(panes(), "Value*");
    EXPECT_EQ(canvas().graph(0)->valueAxis(), canvas().yAxis);
}

TEST_F(GraphPageTest, ChangeLaysEachCurveByItsMeanOverWhatIsSeen) {
    begin(100);
    chooseArrangement(2);
    EXPECT_EQ(canvas().yAxis->label().toStdString(), "Change");
    EXPECT_NEAR(canvas().yAxis->range().upper, 49.5 * 1.1, 1e-9);
    const auto level = [this](int graph) { return canvas().graph(graph)->valueAxis()->range().center(); };
    canvas().replot();
    EXPECT_NEAR(level(0), 1050.5, 1e-9);
    EXPECT_NEAR(level(1), 2050.5, 1e-9);
    EXPECT_NEAR(level(2), 3000, 1e-9) << "a gap is no number";
    EXPECT_NEAR(level(3), 4000, 1e-9);
    canvas().xAxis->setRange(10.5, 20.5);
    canvas().replot();
    EXPECT_NEAR(level(0), 1015.5, 1e-9) << "also of a part that was zoomed to";
    chooseArrangement(0);
    EXPECT_EQ(canvas().axisRect()->axes().size(), 4);
}

TEST_F(GraphPageTest, TheCursorGoesThroughAllPanes) {
    begin(50);
    for (const int arrangement : {0, 1, 2}) {
        chooseArrangement(arrangement);
        settle();
        const QCPAxis* values = canvas().graph(1)->valueAxis();
        const QPointF at(canvas().xAxis->coordToPixel(20), values->coordToPixel(2020));
        moveTo(at);
        int upright = 0;
        int level = 0;
        for (int index = 0; index < canvas().itemCount(); ++index) {
            const auto* line = qobject_cast<QCPItemStraightLine*>(canvas().item(index));
            if (line != nullptr && line->visible()) {
                const QPointF along = line->point2->pixelPosition() - line->point1->pixelPosition();
                (std::abs(along.x()) < 0.1 ? upright : level) += 1;
                if (std::abs(along.x()) < 0.1) {
                    EXPECT_NEAR(line->point1->pixelPosition().x(), at.x(), 0.5);
                } else if (line->clipAxisRect() == values->axisRect()) {
                    EXPECT_NEAR(line->point1->pixelPosition().y(), at.y(), 0.5);
                }
            }
        }
        EXPECT_EQ(upright, arrangement == 1 ? 4 : 1) << arrangement;
        EXPECT_EQ(level, upright) << arrangement;
        EXPECT_EQ(text("ReadoutRecord"), "20") << arrangement;
    }
}

TEST_F(GraphPageTest, ARangeIsMeasuredAndItsRowsAreSelected) {
    begin(50);
    const auto expectRange = [this](const char* how) {
        EXPECT_EQ(text("PlotStatisticsCount1"), "11") << how;
        EXPECT_EQ(text("PlotStatisticsMean1"), "1015.00") << how;
        EXPECT_EQ(text("PlotStatisticsDeviation1"), "3.32") << how;
        EXPECT_EQ(text("PlotStatisticsMean2"), "2015.00") << how;
        const auto& grid = find<QTableView>("fg1");
        EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 11) << how;
        EXPECT_TRUE(grid.selectionModel()->isRowSelected(9)) << how;
        EXPECT_TRUE(grid.selectionModel()->isRowSelected(19)) << how;
        press(canvas(), Qt::Key_Escape);
        EXPECT_FALSE(find<QWidget>("PlotStatistics").isVisible()) << how;
        grid.selectionModel()->clear();
    };
    EXPECT_FALSE(find<QWidget>("PlotStatistics").isVisible());
    const QCPRange before = places();
    drag(pixel(9.6, 2500), pixel(20.4, 2600), Qt::ShiftModifier);
    EXPECT_EQ(places(), before) << "the curves stay";
    expectRange("with Shift");
    button("ChooseRange").click();
    settle();
    drag(pixel(20.4, 2500), pixel(9.6, 2600));
    settle();
    expectRange("with the button, backwards");
    button("ChooseRange").click();
    moveTo(pixel(10, 2500));
    press(canvas(), Qt::Key_Space);
    for (int step = 0; step < 10; ++step) {
        press(canvas(), Qt::Key_Right);
    }
    press(canvas(), Qt::Key_Space);
    expectRange("by keys");
    drag(pixel(9.6, 2500), pixel(20.4, 2600), Qt::ShiftModifier);
    curve(1).click();
    EXPECT_EQ(text("PlotStatisticsMean1"), "2015.00") << "what is switched off is not measured";
    sheet.removeRows();
    page.refreshNow();
    EXPECT_FALSE(find<QWidget>("PlotStatistics").isVisible());
}

TEST_F(GraphPageTest, RowsThatHaveGoneSinceTheCurvesWereDrawnAreNeitherReadOutNorSelected) {
    begin(50);
    moveTo(pixel(10, 1010));
    sheet.removeRows(); // by an automatic save
    append(30);
    moveTo(pixel(20, 1020));
    EXPECT_EQ(text("ReadoutTitle"), "Newest row");
    EXPECT_EQ(text("ReadoutRecord"), "30");
    settle();
    sheet.removeRows();
    append(40);
    drag(pixel(9.6, 1010), pixel(20.4, 1020), Qt::ShiftModifier);
    EXPECT_FALSE(find<QWidget>("PlotStatistics").isVisible());
    EXPECT_FALSE(find<QTableView>("fg1").selectionModel()->hasSelection());
    sheet.removeRows();
    append(10);
    for (const int key : {Qt::Key_Right, Qt::Key_Space, Qt::Key_Right, Qt::Key_Right, Qt::Key_Space}) {
        press(canvas(), key);
    }
    EXPECT_EQ(text("ReadoutTitle"), "Row under the cursor");
}

TEST_F(GraphPageTest, TheAxisIsTheRecordNumberOrTheTime) {
    begin(20);
    sheet.appendRow({QStringLiteral("21"), QStringLiteral("11/21/26"), QStringLiteral("27:00:00")});
    page.refreshNow();
    EXPECT_EQ(canvas().xAxis->label().toStdString(), "Record");
    EXPECT_TRUE(note().starts_with("Wheel")) << note();
    wheel(middle());
    chooseAxis(1);
    EXPECT_EQ(canvas().xAxis->label().toStdString(), "Time");
    EXPECT_EQ(canvas().graph(0)->dataCount(), 20);
    EXPECT_EQ(note(), "1 row without a readable time is not drawn.");
    EXPECT_TRUE(showAll().isChecked()) << "what was zoomed to is a part of the other axis";
    EXPECT_GT(places().lower, 1e9);
    chooseAxis(0);
    EXPECT_EQ(canvas().graph(0)->dataCount(), 21);
    EXPECT_LT(places().upper, 30);
}

TEST_F(GraphPageTest, RowsOfAnotherLayoutAreToldNotDrawn) {
    begin(7);
    page.refreshNow();
    const std::string newest = readout();
    layOut("F", 310);
    page.refreshNow();
    EXPECT_TRUE(note().starts_with("Wheel")) << note();
    EXPECT_EQ(canvas().graph(0)->dataCount(), 7) << "until a row of the other type comes";
    EXPECT_EQ(readout(), newest);
    appendAndDraw(1);
    EXPECT_EQ(note(), "7 rows of another type of instrument are not drawn.");
    EXPECT_EQ(hint(), "");
    EXPECT_EQ(readout(), "Newest row|8|11/21/26|0:00:04|1008|");
}

TEST_F(GraphPageTest, CurvesAreSwitchedByClickAndByKey) {
    begin(50);
    const double highest = canvas().yAxis->range().upper;
    EXPECT_GT(highest, 4000);
    clickAt(curve(4), QPoint(8, curve(4).height() / 2));
    EXPECT_FALSE(curve(4).isChecked());
    EXPECT_FALSE(canvas().graph(3)->visible());
    EXPECT_LT(canvas().yAxis->range().upper, 3500) << "the others get the room";
    press(curve(3), Qt::Key_Space);
    EXPECT_FALSE(canvas().graph(2)->visible());
    layOut("V", 600);
    appendAndDraw(1);
    EXPECT_FALSE(canvas().graph(2)->visible()) << "it stays off under a new header row of as many columns";
    EXPECT_FALSE(curve(3).isChecked());
    curve(1).click();
    curve(2).click();
    EXPECT_EQ(hint(), "All curves are switched off.");
    press(curve(3), Qt::Key_Space);
    EXPECT_TRUE(canvas().graph(2)->visible());
    EXPECT_EQ(hint(), "");
}

TEST_F(GraphPageTest, TheCurveInTheLegendThatHasTheFocusIsDrawnThicker) {
    begin(50);
    window->activateWindow();
    QCoreApplication::processEvents();
    curve(2).setFocus();
    QCoreApplication::processEvents();
    EXPECT_GT(canvas().graph(1)->pen().widthF(), canvas().graph(0)->pen().widthF());
    canvas().setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas().graph(1)->pen().widthF(), canvas().graph(0)->pen().widthF());
}

TEST_F(GraphPageTest, FollowsThePaletteWhileItIsShown) {
    begin(50);
    const auto corner = [this] { return canvas().grab().toImage().pixelColor(3, 3); };
    const QColor lightCurve = canvas().graph(0)->pen().color();
    setColours(QColor(30, 30, 30), Qt::white);
    page.refreshNow();
    EXPECT_EQ(corner(), QColor(30, 30, 30));
    EXPECT_NE(canvas().graph(0)->pen().color(), lightCurve);
    EXPECT_EQ(canvas().xAxis->tickLabelColor(), QColor(Qt::white));
    setColours(Qt::white, Qt::black);
    page.refreshNow();
    EXPECT_EQ(corner(), QColor(Qt::white));
    EXPECT_EQ(canvas().graph(0)->pen().color(), lightCurve);
}

TEST_F(GraphPageTest, FollowsTheFont) {
    QFont font = page.font();
    font.setPointSize(font.pointSize() + 5);
    page.setFont(font);
    EXPECT_EQ(canvas().xAxis->tickLabelFont().pointSize(), font.pointSize());
}

TEST_F(GraphPageTest, CurvesAreSmoothExceptWhileRowsCome) {
    for (const Activity activity : {Activity::None, Activity::Downloading, Activity::None}) {
        commands.activity = activity;
        EXPECT_EQ(canvas().notAntialiasedElements().testFlag(QCP::aePlottables), activity != Activity::None);
    }
}

TEST_F(GraphPageTest, EverythingCanBeOperatedAndFits) {
    layOut("v", 412);
    appendAndDraw(3);
    expectOperableAndFits(page);
    EXPECT_FALSE(canvas().accessibleName().isEmpty());
    EXPECT_TRUE((canvas().focusPolicy() & Qt::TabFocus) != 0);
    QStringList order;
    for (QWidget* widget = page.nextInFocusChain(); widget != &page; widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && page.isAncestorOf(widget)) {
            order << widget->objectName();
        }
    }
    EXPECT_EQ(order.join(u' ').toStdString(),
              "PlotAxis PlotArrangement Follow ShowAll ChooseRange Plot Curve1 Curve2 Curve3 Curve4 Curve5 Curve6 "
              "SavePicture CopyPicture PrintPicture");
}

} // namespace
} // namespace orv
