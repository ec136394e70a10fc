// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheetpage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace orv {
namespace {

class SheetModelTest : public testing::Test {
protected:
    SheetModelTest() { sheet.setHeader({.letter = QStringLiteral("F"), .firmware = 310.0}, header()); }

    static QStringList header() {
        return {QStringLiteral("Data #"), QStringLiteral("Date"), QStringLiteral("Time"), QStringLiteral("Output")};
    }

    void append(int rows) {
        for (int row = 0; row < rows; ++row) {
            sheet.appendRow({QString::number(sheet.rowCount() + 1), QStringLiteral("11/21/26"),
                             QStringLiteral("1:00:00"), QStringLiteral("2400")});
        }
    }

    static std::string text(const QAbstractItemModel& model, int row, int column) {
        return model.data(model.index(row, column), Qt::DisplayRole).toString().toStdString();
    }

    DataSheet sheet;
};

TEST_F(SheetModelTest, ShowsWhatWasThereAtTheLastRefresh) {
    SheetModel model(sheet);
    append(3);
    EXPECT_EQ(model.rowCount(), 0);
    model.refresh();
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 9);
    EXPECT_EQ(text(model, 2, 0), "3");
    EXPECT_EQ(text(model, 2, 3), "2400");
    EXPECT_EQ(text(model, 2, 8), "");
}

TEST_F(SheetModelTest, ARefreshInsertsOnlyTheNewRows) {
    append(2);
    SheetModel model(sheet);
    int inserted = 0;
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, [&](const QModelIndex&, int first, int last) {
        ++inserted;
        EXPECT_EQ(first, 2);
        EXPECT_EQ(last, 6);
    });
    QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [&resets] { ++resets; });
    append(5);
    model.refresh();
    model.refresh();
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(model.rowCount(), 7);
}

TEST_F(SheetModelTest, RemovedRowsGoAtARefreshAlsoIfAsManyHaveCome) {
    append(4);
    SheetModel model(sheet);
    const auto noting = sheet.rowsRemoved.subscribe([&model] { model.noteRemoved(); });
    sheet.removeRows();
    EXPECT_EQ(text(model, 3, 0), "") << "a row that is no longer there reads as empty until then";
    append(4);
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [&resets] { ++resets; });
    model.refresh();
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(model.rowCount(), 4);
}

TEST_F(SheetModelTest, TheHeaderRowIsTheSheetsWithEmptyCellsBehindIt) {
    const SheetModel model(sheet);
    const auto title = [&model](int column) {
        return model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString();
    };
    EXPECT_EQ(title(0), "Data #");
    EXPECT_EQ(title(3), "Output");
    EXPECT_EQ(title(4), "");
    EXPECT_EQ(title(8), "");
    EXPECT_FALSE(model.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

class SheetPageTest : public SheetModelTest {
protected:
    SheetPageTest() {
        counting = sheet.rowsRemoved.subscribe([this] { ++removalsHeard; });
        page = std::make_unique<SheetPage>(sheet, shown, commands,
                                           SheetPage::Actions{.saveAs = [this] { pressed += "save "; },
                                                              .open = [this] { pressed += "open "; },
                                                              .clearAll = [this] { pressed += "clear "; }});
        page->resize(900, 400);
        grid = page->findChild<QTableView*>(QStringLiteral("fg1"));
    }

    /// A row as a run adds it.
    void addRow() {
        append(1);
        shown.counter = QString::number(sheet.rowCount());
        if (sheet.rowCount() > 11) {
            shown.topRow = sheet.rowCount() - 10;
        }
    }

    int shownRows() const { return grid->model()->rowCount(); }
    int topRow() const { return grid->rowAt(0); }

    template <typename Widget>
    Widget& find(const char* name) {
        return *page->findChild<Widget*>(QString::fromLatin1(name));
    }

    /// Lets events run until the condition holds. Returns whether it does.
    template <typename Condition>
    static bool waitFor(Condition reached) {
        constexpr int patience = 5000; // milliseconds
        QElapsedTimer passed;
        passed.start();
        while (!reached() && passed.elapsed() < patience) {
            QTimer wakeUp;
            wakeUp.start(1);
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        return reached();
    }

    SheetState shown;
    CommandState commands;
    std::string pressed;
    int removalsHeard = 0;
    Subscription counting;
    std::unique_ptr<SheetPage> page;
    QTableView* grid = nullptr;
};

TEST_F(SheetPageTest, RowsAreDrawnAWhileAfterTheyHaveComeAndAllAtOnce) {
    page->show();
    int insertions = 0;
    QObject::connect(grid->model(), &QAbstractItemModel::rowsInserted, grid, [&insertions] { ++insertions; });
    for (int row = 0; row < 30; ++row) {
        addRow();
        QCoreApplication::sendPostedEvents();
    }
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(find<QLabel>("SheetCounter").text().toStdString(), "30") << "the counter follows every row";
    ASSERT_TRUE(waitFor([this] { return shownRows() == 30; }));
    EXPECT_EQ(insertions, 1);
}

TEST_F(SheetPageTest, AHiddenPageDrawsNothingUntilItIsShown) {
    page->resize(900, 250);
    page->show();
    page->hide();
    for (int row = 0; row < 15; ++row) {
        addRow();
    }
    QTimer end;
    constexpr int longerThanARefresh = 400;
    end.setSingleShot(true);
    end.start(longerThanARefresh);
    while (end.isActive()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(find<QLabel>("SheetCounter").text().toStdString(), "15");
    page->show();
    EXPECT_EQ(shownRows(), 15);
    EXPECT_TRUE(waitFor([this] { return topRow() == 4; })) << "grid row 5 behind the header, not " << topRow();
}

TEST_F(SheetPageTest, TheViewFollowsTheNewestRowFromTheTwelfthOn) {
    page->resize(900, 250);
    page->show();
    for (int row = 0; row < 11; ++row) {
        addRow();
    }
    page->refreshNow();
    EXPECT_EQ(topRow(), 0);
    addRow();
    page->refreshNow();
    EXPECT_EQ(topRow(), 1) << "the second data row";
    for (int row = 0; row < 100; ++row) {
        addRow();
    }
    page->refreshNow();
    EXPECT_EQ(topRow(), 101);
}

TEST_F(SheetPageTest, TheHeaderRowChangesWithTheSheets) {
    page->show();
    QStringList trx = header();
    trx[3] = QStringLiteral("100");
    trx << QStringLiteral("125");
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 512.0}, trx);
    page->refreshNow();
    EXPECT_EQ(grid->model()->headerData(4, Qt::Horizontal).toString().toStdString(), "125");
    sheet.setHeader({.letter = QStringLiteral("F"), .firmware = 310.0}, header());
    page->refreshNow();
    EXPECT_EQ(grid->model()->headerData(4, Qt::Horizontal).toString().toStdString(), "");
}

TEST_F(SheetPageTest, ClearingEmptiesTheGridAndIsPassedOn) {
    page->show();
    for (int row = 0; row < 20; ++row) {
        addRow();
    }
    page->refreshNow();
    shown.topRow = 0;
    sheet.removeRows();
    page->refreshNow();
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(removalsHeard, 1);
    addRow();
    page->refreshNow();
    EXPECT_TRUE(waitFor([this] { return topRow() == 0; })) << topRow();
}

TEST_F(SheetPageTest, AsManyRowsInPlaceOfTheOldOnesAreFollowedToo) {
    page->resize(900, 250);
    page->show();
    for (int round = 0; round < 2; ++round) {
        shown.topRow = 0;
        sheet.removeRows();
        for (int row = 0; row < 50; ++row) {
            addRow();
        }
        page->refreshNow();
        EXPECT_TRUE(waitFor([this] { return topRow() == 39; })) << topRow();
    }
}

TEST_F(SheetPageTest, TheGridCannotBeEdited) {
    EXPECT_EQ(grid->editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_FALSE(grid->verticalHeader()->isVisibleTo(page.get()));
}

TEST_F(SheetPageTest, TheButtonsActAndFollowWhatIsAllowed) {
    commands.saveAsEnabled = true;
    commands.clearAllEnabled = true;
    find<QPushButton>("Command11").click();
    find<QPushButton>("Command10").click();
    find<QPushButton>("Command9").click();
    EXPECT_EQ(pressed, "save open clear ");
    commands.activity = Activity::Collecting;
    EXPECT_TRUE(find<QPushButton>("Command11").isEnabled());
    EXPECT_FALSE(find<QPushButton>("Command10").isEnabled());
    EXPECT_FALSE(find<QPushButton>("Command9").isEnabled());
    commands.activity = Activity::None;
    commands.saveAsEnabled = false;
    EXPECT_FALSE(find<QPushButton>("Command11").isEnabled());
    commands.sheetHoldsRows = true;
    EXPECT_TRUE(find<QPushButton>("Command11").isEnabled()) << "rows can always be saved";
}

TEST_F(SheetPageTest, CaptionsToolTipsAndTheFileName) {
    EXPECT_EQ(find<QPushButton>("Command11").toolTip().toStdString(),
              "Save all Data on the Spread Sheet to a Tab Delimited Text File. (Ctrl+Shift+S)");
    EXPECT_EQ(find<QPushButton>("Command9").toolTip().toStdString(), "Clears the Spread Sheet of all data.");
    const auto caption = [this](const char* name) { return find<QPushButton>(name).text().remove(u'&').toStdString(); };
    EXPECT_EQ(caption("Command11"), "Save As");
    EXPECT_EQ(caption("Command10"), "Open");
    EXPECT_EQ(caption("Command9"), "Clear All");
    EXPECT_EQ(find<QLabel>("RecordsCounter").toolTip().toStdString(),
              "This is used to indicated how many records were automatically created over a long profile, or data "
              "gathering.");
    auto& name = find<QLineEdit>("Text37");
    EXPECT_EQ(name.text().toStdString(), "Untitled");
    EXPECT_EQ(name.toolTip().toStdString(),
              "Default File Name, and the file name used for auto-recording of long profiles.");
    name.selectAll();
    for (const char letter : {'b', 'a', 'y'}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QString(QLatin1Char(letter)));
        QCoreApplication::sendEvent(&name, &press);
    }
    EXPECT_EQ(shown.fileName.value().toStdString(), "bay");
    shown.records = QStringLiteral("2");
    EXPECT_EQ(find<QLabel>("RecordsCounter").text().toStdString(), "2");
}

TEST_F(SheetPageTest, ACellVisitedAgainIsCurrentAgain) {
    for (int row = 0; row < 4; ++row) {
        addRow();
    }
    const auto visitLastCell = [this] {
        for (const int column : {3, 4, 5}) {
            shown.currentColumn = column;
            shown.currentRow = 4;
        }
        page->refreshNow();
    };
    visitLastCell();
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(3, 5));
    grid->setCurrentIndex(grid->model()->index(0, 0)); // the operator's click
    append(1);
    page->refreshNow();
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(0, 0)) << "a row that comes does not move it";
    visitLastCell();
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(3, 5));
}

} // namespace
} // namespace orv
