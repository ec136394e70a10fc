// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sheetselectiontest.h"

#include <QScrollBar>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace orv {
namespace {

TEST_F(SheetSelectionTest, CellsAreCopiedWithTheHeaderRowAndWithoutIt) {
    run({"10", "11", "12"});
    EXPECT_EQ(copied(), "nothing") << "nothing is selected";
    drag(at(0, 2), at(1, 4));
    EXPECT_EQ(copied(), "Time\t100\t125\n1:00:00\t10\t20\n1:00:00\t11\t20");
    EXPECT_EQ(copied(Qt::ShiftModifier), "1:00:00\t10\t20\n1:00:00\t11\t20");
    clickCell(2, 3);
    clickCell(0, 5, Qt::ControlModifier);
    EXPECT_EQ(copied(), "100\t150\n\t30\n12\t") << "what lies between is not selected";
}

TEST_F(SheetSelectionTest, RowsGoUnderTheirOwnNamesWhenAnotherInstrumentHasBeenConnected) {
    run({"10", "11"});
    sheet.setHeader({QStringLiteral("F"), 310.0}, headerRow(HeaderPlace::GridOnOpening, RowLayout::Glow));
    page.refreshNow();
    ASSERT_EQ(grid.model()->headerData(3, Qt::Horizontal).toString().toStdString(), "Output");
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(),
              std::string(header) + "1\t11/21/26\t1:00:00\t10\t20\t30\t40\n2\t11/21/26\t1:00:00\t11\t20\t30\t40");
    EXPECT_EQ(figures(1), "2|10.50|0.71|10|11");
    EXPECT_EQ(find<QLabel>("SheetStatisticsMean1").accessibleName().toStdString(), "Mean of 100");
    EXPECT_EQ(find<QLabel>("SheetStatisticsMean4").accessibleName().toStdString(), "Mean of Ref");
}

TEST_F(SheetSelectionTest, TheColumnsShareTheWidthAsTheOperatorDragsTheirBorders) {
    run({"10"});
    auto& columns = *grid.horizontalHeader();
    const auto width = [&columns](int column) { return columns.sectionSize(column); };
    const int all = columns.length();
    EXPECT_EQ(all, grid.viewport()->width());
    EXPECT_LE(std::abs(width(0) - width(8)), 1) << "alike at first";
    const int both = width(1) + width(2);
    const auto dragBorder = [&columns](int column, int by) {
        const QPoint from(columns.sectionViewportPosition(column) + columns.sectionSize(column) - 1, 5);
        QTest::mousePress(columns.viewport(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, from + QPoint(by, 0), columns.viewport()->mapToGlobal(from + QPoint(by, 0)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(columns.viewport(), &move);
        QTest::mouseRelease(columns.viewport(), Qt::LeftButton, Qt::NoModifier, from + QPoint(by, 0));
    };
    const int before = width(1);
    dragBorder(1, 30);
    EXPECT_EQ(width(1), before + 30);
    EXPECT_EQ(width(1) + width(2), both);
    dragBorder(1, 1000);
    EXPECT_EQ(width(2), columns.minimumSectionSize()) << "a column never goes";
    EXPECT_EQ(width(1) + width(2), both);
    const int last = width(8);
    dragBorder(8, -20);
    EXPECT_EQ(width(8), last) << "the right border stays";
    EXPECT_EQ(columns.length(), all);
    EXPECT_FALSE(grid.selectionModel()->hasSelection()) << "a border is no header";
    dragBorder(1, -both);
    EXPECT_EQ(width(1), columns.minimumSectionSize());
    dragBorder(1, both / 2);
    const double share = static_cast<double>(width(1)) / all;
    window->resize(window->width() + 200, window->height());
    QCoreApplication::processEvents();
    EXPECT_EQ(columns.length(), grid.viewport()->width());
    EXPECT_GT(columns.length(), all);
    EXPECT_NEAR(static_cast<double>(width(1)) / columns.length(), share, 0.01);
    dragBorder(1, -both);
    dragBorder(2, -both);
    window->resize(window->minimumSizeHint());
    QCoreApplication::processEvents();
    EXPECT_EQ(columns.length(), grid.viewport()->width());
    EXPECT_GE(std::min(width(1), width(2)), columns.minimumSectionSize());
}

TEST_F(SheetSelectionTest, WhatHasGoneSinceTheGridWasDrawnIsNotCopied) {
    run({"10", "11", "12"});
    drag(at(0, 3), at(2, 3));
    sheet.removeRows(); // by an automatic save
    EXPECT_EQ(copied(), "nothing");
    EXPECT_EQ(copied(Qt::ShiftModifier), "nothing");
    receiveRow();
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(Qt::ShiftModifier), "1\t11/21/26\t1:00:00\t10\t20\t30\t40") << "also what has just come";
}

TEST_F(SheetSelectionTest, ARecordNumberStandsForItsRow) {
    run({"10", "11", "12"});
    clickCell(1, 0);
    EXPECT_EQ(copied(), std::string(header) + "2\t11/21/26\t1:00:00\t11\t20\t30\t40");
    drag(at(1, 0), at(2, 0));
    EXPECT_EQ(copied(Qt::ShiftModifier), "2\t11/21/26\t1:00:00\t11\t20\t30\t40\n3\t11/21/26\t1:00:00\t12\t20\t30\t40");
    clickCell(0, 3);
    EXPECT_EQ(copied(), "100\n10") << "another cell stands for itself";
    key(Qt::Key_A, Qt::ControlModifier);
    clickCell(1, 0);
    EXPECT_EQ(copied(Qt::ShiftModifier), "2\t11/21/26\t1:00:00\t11\t20\t30\t40") << "also out of many rows";
}

TEST_F(SheetSelectionTest, AHeaderStandsForItsColumnAndKeysDoTheSame) {
    run({"10", "11", "12"});
    clickHeader(3);
    EXPECT_EQ(copied(), "100\n10\n11\n12");
    clickCell(1, 4);
    key(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(copied(), "125\n20\n20\n20");
    clickCell(1, 4);
    key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(copied(Qt::ShiftModifier), "2\t11/21/26\t1:00:00\t11\t20\t30\t40");
    clickCell(1, 3);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(copied(), "100\n11\n12");
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(copied().starts_with(std::string(header) + "1\t11/21/26\t1:00:00\t10\t20")) << copied();
}

TEST_F(SheetSelectionTest, TheViewGoesAlongWithTheKeysButNotWithAVisitedCell) {
    run({"10", "11"});
    for (int row = 0; row < 98; ++row) {
        receiveRow();
    }
    program.sheet.run.closeRecordFile();
    page.refreshNow();
    QCoreApplication::processEvents();
    const auto sees = [this](int row) {
        return grid.viewport()->rect().contains(grid.visualRect(grid.model()->index(row, 3)));
    };
    clickCell(95, 3);
    for (int page = 0; page < 20; ++page) {
        key(Qt::Key_PageUp, Qt::ShiftModifier);
    }
    EXPECT_TRUE(sees(0));
    EXPECT_FALSE(sees(95));
    EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 96);
    sheetState.currentRow = 90;
    page.refreshNow();
    EXPECT_TRUE(sees(0));
}

TEST_F(SheetSelectionTest, OnlyDraggingMovesTheViewByItself) {
    run({"10", "11"});
    const auto press = [this](Qt::MouseButton button) {
        QTest::mousePress(grid.viewport(), button, Qt::NoModifier, at(0, 3));
        return grid.hasAutoScroll();
    };
    EXPECT_TRUE(press(Qt::LeftButton));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, at(0, 3));
    EXPECT_FALSE(grid.hasAutoScroll());
    EXPECT_FALSE(press(Qt::RightButton)) << "its release goes to the menu";
}

TEST_F(SheetSelectionTest, TheMenuHasWhatTheKeysDo) {
    run({"10"});
    QStringList items;
    for (const QAction* action : grid.actions()) {
        items << (action->isSeparator() ? QStringLiteral("-") : action->text() + u'=' + action->shortcut().toString());
    }
    EXPECT_EQ(items.join(u'|').toStdString(),
              "&Copy=Ctrl+C|Copy &Without Header=Ctrl+Shift+C|-|Select &Rows=Shift+Space|Select Co&lumns=Ctrl+Space|"
              "Select &All=Ctrl+A|-|&Find=Ctrl+F");
    EXPECT_EQ(grid.contextMenuPolicy(), Qt::ActionsContextMenu);
    clickCell(0, 3);
    item("CopyCells").trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "100\n10");
}

TEST_F(SheetSelectionTest, ATextIsFoundForwardsAndBackwardsAndRoundTheEnd) {
    run({"10", "711", "12", "711"});
    EXPECT_FALSE(find<QWidget>("FindBar").isVisible());
    key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(find<QWidget>("FindBar").isVisible());
    EXPECT_TRUE(find<QLineEdit>("FindBox").hasFocus());
    type(find<QLineEdit>("FindBox"), "711");
    const auto current = [this] {
        return std::to_string(grid.currentIndex().row()) + ' ' + std::to_string(grid.currentIndex().column());
    };
    for (const char* place : {"1 3", "3 3", "1 3"}) {
        key(Qt::Key_Return);
        EXPECT_EQ(current(), place);
        EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 1);
    }
    click("FindPrevious");
    EXPECT_EQ(current(), "3 3");
    click("FindNext");
    EXPECT_EQ(current(), "1 3");
    EXPECT_EQ(text("FindResult"), "Record 2");
    retype(find<QLineEdit>("FindBox"), "712");
    click("FindNext");
    EXPECT_EQ(text("FindResult"), "Not found.");
    EXPECT_EQ(current(), "1 3");
    find<QLineEdit>("FindBox").setFocus();
    key(Qt::Key_Escape);
    EXPECT_FALSE(find<QWidget>("FindBar").isVisible());
    EXPECT_TRUE(grid.hasFocus());
}

TEST_F(SheetSelectionTest, ASearchInARunSaysThatTheSheetFollowsTheRun) {
    run({"10", "711"});
    for (int row = 0; row < 60; ++row) {
        receiveRow();
    }
    item("FindText").trigger();
    type(find<QLineEdit>("FindBox"), "711");
    click("FindNext");
    EXPECT_EQ(text("FindResult"), "Record 2 (the sheet follows the run)");
    const auto& sheet = find<QTableView>("fg1");
    const auto isSeen = [&sheet] {
        return sheet.viewport()->rect().intersects(sheet.visualRect(sheet.currentIndex()));
    };
    receiveRow();
    page.refreshNow();
    EXPECT_FALSE(isSeen());
    program.reset();
    program.closePort();
    finish();
    EXPECT_EQ(text("FindResult"), "Record 2") << "it follows no more";
    EXPECT_TRUE(isSeen());
    click("FindNext");
    EXPECT_EQ(text("FindResult"), "Record 2");
}

TEST_F(SheetSelectionTest, ASearchWhoseLineIsClosedMovesNothingWhenTheRunEnds) {
    run({"10", "711"});
    for (int row = 0; row < 60; ++row) {
        receiveRow();
    }
    item("FindText").trigger();
    type(find<QLineEdit>("FindBox"), "711");
    click("FindNext");
    click("CloseFind");
    receiveRow();
    page.refreshNow();
    program.reset();
    program.closePort();
    finish();
    const auto& sheet = find<QTableView>("fg1");
    EXPECT_FALSE(sheet.viewport()->rect().intersects(sheet.visualRect(sheet.currentIndex())));
}

TEST_F(SheetSelectionTest, OnAnotherPageTheKeysOfTheSheetDoNothing) {
    run({"10"});
    clickCell(0, 3);
    find<QTabBar>("TabStrip1").setFocus();
    EXPECT_EQ(copied(), "100\n10") << "wherever the focus is on this page";
    showPage(QStringLiteral("Output: Graphical"));
    EXPECT_EQ(copied(), "nothing");
    key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_FALSE(find<QWidget>("FindBar").isVisibleTo(&page));
}

TEST_F(SheetSelectionTest, WhatIsClearedIsBroughtBackByTheButton) {
    run({"10", "11"});
    program.reset();
    program.closePort();
    finish();
    EXPECT_FALSE(button("BringBack").isVisible());
    click("Command9");
    page.refreshNow();
    EXPECT_EQ(text("SheetNotice"), "2 rows cleared.");
    EXPECT_EQ(button("BringBack").text().toStdString(), "&Bring them back");
    clickAt(button("BringBack"), button("BringBack").rect().center());
    page.refreshNow();
    EXPECT_EQ(grid.model()->rowCount(), 2);
    EXPECT_FALSE(button("BringBack").isVisible());
    EXPECT_EQ(text("SheetNotice"), "");
}

TEST_F(SheetSelectionTest, ASaveIsToldBelowTheSheetAndInTheTitle) {
    const auto title = [this] { return window->windowTitle().toStdString(); };
    run({"10", "11"});
    EXPECT_EQ(title(), "ORV Host Program");
    answers.fileName = path("lake.txt");
    program.saveAs();
    EXPECT_EQ(text("SheetNotice"), "Saved 2 rows to lake.txt");
    EXPECT_EQ(find<QLabel>("SheetNotice").toolTip(), path("lake.txt"));
    EXPECT_EQ(title(), "lake.txt - ORV Host Program");
    receiveRow();
    EXPECT_EQ(title(), "lake.txt* - ORV Host Program") << "a row that the file has not";
    EXPECT_EQ(text("SheetNotice"), "Saved 2 rows to lake.txt. Rows have come since.");
    program.saveAs();
    EXPECT_EQ(text("SheetNotice"), "Saved 3 rows to lake.txt");
    program.clearAll();
    EXPECT_EQ(title(), "ORV Host Program");
    EXPECT_EQ(text("SheetNotice"), "3 rows cleared.");
}

TEST_F(SheetSelectionTest, WhatStandsBelowTheSheetDoesNotWidenTheWindow) {
    run({"10.12345678", "-65535.12345678"});
    const int width = window->minimumSizeHint().width();
    sheetState.saved = SavedRows{.count = 20000, .file = QString(300, u'x')};
    item("FindText").trigger();
    item("SelectAllCells").trigger();
    EXPECT_EQ(figures(2), "2|20.00|0.00|20|20");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->minimumSizeHint().width(), width);
    EXPECT_LE(width, 782);
}

TEST_F(SheetSelectionTest, AFigureStaysWhereItIsWhenItIsSelected) {
    run({"10", "10"});
    const QModelIndex cell = grid.model()->index(0, 4);
    // The pixel rows of the cell that its figures are in.
    const auto figuresIn = [this, &cell] {
        const QImage picture = grid.viewport()->grab(grid.visualRect(cell).adjusted(2, 2, -2, -2)).toImage();
        std::vector<int> contrasts;
        for (int y = 0; y < picture.height(); ++y) {
            contrasts.push_back(0);
            for (int x = 0; x < picture.width(); ++x) {
                const int lighter = picture.pixelColor(x, y).lightness() - picture.pixelColor(0, 0).lightness();
                contrasts.back() = std::max(contrasts.back(), std::abs(lighter));
            }
        }
        const int most = *std::max_element(contrasts.begin(), contrasts.end());
        std::string rows;
        for (const int contrast : contrasts) {
            rows += contrast * 2 > most ? 'x' : '-';
        }
        return rows;
    };
    const std::string before = figuresIn();
    EXPECT_NE(before.find('x'), std::string::npos);
    clickCell(0, 0);
    QCoreApplication::processEvents();
    ASSERT_TRUE(grid.selectionModel()->isSelected(cell));
    EXPECT_EQ(figuresIn(), before);
}

TEST_F(SheetSelectionTest, ALineTellsTheRowsOfTwoRunsApart) {
    run({"10", "11"});
    receive(">");
    ticks(2);
    program.run();
    receive("R\r\n");
    receiveRow();
    page.refreshNow();
    QCoreApplication::processEvents();
    const QImage picture = grid.viewport()->grab().toImage();
    const auto lineAbove = [&](int row) {
        const QRect cell = grid.visualRect(grid.model()->index(row, 1));
        const QColor text = grid.palette().color(QPalette::Text);
        return picture.pixelColor(cell.left() + 2, cell.top()) == text &&
               picture.pixelColor(cell.center().x(), cell.top()) == text;
    };
    EXPECT_FALSE(lineAbove(1));
    EXPECT_TRUE(lineAbove(2));
    EXPECT_EQ(grid.model()->data(grid.model()->index(2, 0), Qt::AccessibleDescriptionRole).toString().toStdString(),
              "Another run or download begins here.");
}

} // namespace
} // namespace orv
