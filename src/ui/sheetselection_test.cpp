// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"
#include "ui/sheetpage.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace orv {
namespace {

/// The sheet as an operator handles it, with the pointer and the keyboard.
class SheetSelectionTest : public WindowTest {
protected:
    SheetSelectionTest() {
        showPage(QStringLiteral("Output: Spread Sheet"));
        comeForward();
    }

    void run(std::initializer_list<const char*> angles) {
        connectAndRead();
        window->settingsWindow()->close();
        program.run();
        receive("R\r\n");
        for (const char* angle : angles) {
            receive(QByteArray("11/21/26\t2700\t") + angle + "\t20\t30\t40\r\n");
        }
        page.refreshNow();
        comeForward();
        grid.setFocus();
        QCoreApplication::processEvents();
        ASSERT_TRUE(window->isActiveWindow());
    }

    void comeForward() {
        QCoreApplication::processEvents(); // a window that has just been shown takes the focus
        QApplication::setActiveWindow(window.get());
        window->setFocus();
        QCoreApplication::processEvents();
    }

    QPoint at(int row, int column) const { return grid.visualRect(grid.model()->index(row, column)).center(); }
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers, at(row, column));
    }
    void moveTo(QPoint to) {
        QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(grid.viewport(), &move);
    }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(grid.viewport(), Qt::LeftButton, Qt::NoModifier, from);
        moveTo(to);
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    }
    void clickHeader(int column) {
        const QPoint place(grid.columnViewportPosition(column) + 5, 5);
        QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
        QCoreApplication::processEvents();
    }

    std::string copied(Qt::KeyboardModifiers more = Qt::NoModifier) {
        QGuiApplication::clipboard()->setText(QStringLiteral("nothing"));
        key(Qt::Key_C, Qt::ControlModifier | more);
        return QGuiApplication::clipboard()->text().toStdString();
    }

    /// A line of the statistics: count, mean, ....
    std::string figures(int line) {
        waitFor([this] { return find<QLabel>("SheetStatisticsHint").isHidden(); }, 1000);
        QStringList texts;
        for (const char* name : {"Count", "Mean", "Deviation", "Minimum", "Maximum"}) {
            const auto* label =
                window->findChild<QLabel*>(QStringLiteral("SheetStatistics%1%2").arg(QLatin1String(name)).arg(line));
            texts << (label != nullptr && label->isVisible() ? label->text() : QString());
        }
        return texts.join(u'|').toStdString();
    }

    SheetPage& page = dynamic_cast<SheetPage&>(find<QWidget>("SheetPage"));
    QTableView& grid = find<QTableView>("fg1");
};

constexpr const char* header = "Data #\tDate\tTime\t100\t125\t150\tRef\n";

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

TEST_F(SheetSelectionTest, TheStatisticsAreThoseOfEachColumnOfTheSelection) {
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

TEST_F(SheetSelectionTest, OneSelectedRowIsToldToo) {
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

TEST_F(SheetSelectionTest, NothingMovesUnderThePointerThatDrawsASelection) {
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

TEST_F(SheetSelectionTest, CalculatedValuesHaveTheDecimalsThatTheirDeviationNeeds) {
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

TEST_F(SheetSelectionTest, ASelectionStaysWhileRowsCome) {
    run({"10", "12"});
    clickHeader(3);
    EXPECT_EQ(figures(1), "2|11.00|1.41|10|12");
    receiveRow();
    page.refreshNow();
    EXPECT_EQ(copied(), "100\n10\n12") << "what comes is not selected";
}

TEST_F(SheetSelectionTest, AllOfALongSheetIsComputedAtOnce) {
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
