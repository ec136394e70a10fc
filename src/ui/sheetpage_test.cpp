// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheetpage.h"

#include "testing/windowrig.h"

#include <QHeaderView>

namespace orv {
namespace {

QStringList header() {
    return {QStringLiteral("Data #"), QStringLiteral("Date"), QStringLiteral("Time"), QStringLiteral("Output")};
}

void layOut(DataSheet& sheet) {
    sheet.setHeader({.letter = QStringLiteral("F"), .firmware = 310.0}, header());
}

void append(DataSheet& sheet, int rows) {
    for (int row = 0; row < rows; ++row) {
        sheet.appendRow({QString::number(sheet.rowCount() + 1), QStringLiteral("11/21/26"), QStringLiteral("1:00:00"),
                         QStringLiteral("2400")});
    }
}

class SheetModelTest : public testing::Test {
protected:
    SheetModelTest() { layOut(sheet); }

    static std::string text(const QAbstractItemModel& model, int row, int column) {
        return model.data(model.index(row, column), Qt::DisplayRole).toString().toStdString();
    }

    DataSheet sheet;
};

TEST_F(SheetModelTest, ShowsWhatWasThereAtTheLastRefresh) {
    SheetModel model(sheet);
    append(sheet, 3);
    EXPECT_EQ(model.rowCount(), 0);
    model.refresh();
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 9);
    EXPECT_EQ(text(model, 2, 0), "3");
    EXPECT_EQ(text(model, 2, 3), "2400");
    EXPECT_EQ(text(model, 2, 8), "");
}

TEST_F(SheetModelTest, ARefreshInsertsOnlyTheNewRows) {
    append(sheet, 2);
    SheetModel model(sheet);
    int inserted = 0;
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, [&](const QModelIndex&, int first, int last) {
        ++inserted;
        EXPECT_EQ(first, 2);
        EXPECT_EQ(last, 6);
    });
    QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [&resets] { ++resets; });
    append(sheet, 5);
    model.refresh();
    model.refresh();
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(model.rowCount(), 7);
}

TEST_F(SheetModelTest, RemovedRowsGoAtARefreshAlsoIfAsManyHaveCome) {
    append(sheet, 4);
    SheetModel model(sheet);
    const auto noting = sheet.rowsRemoved.subscribe([&model] { model.noteRemoved(); });
    sheet.removeRows();
    EXPECT_EQ(text(model, 3, 0), "") << "a row that is no longer there reads as empty until then";
    append(sheet, 4);
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

class SheetPageTest : public WindowTest {
protected:
    SheetPageTest() {
        layOut(sheet);
        resizePage(400);
        openPage();
    }

    void openPage() { showPage(QStringLiteral("Output: Spread Sheet")); }

    void resizePage(int height) {
        openPage();
        pass(0);
        window->resize(window->width(), window->height() + height - page.height());
        pass(0);
        ASSERT_EQ(page.height(), height);
    }

    /// A row as a run adds it.
    void addRow() {
        append(sheet, 1);
        sheetState.counter = QString::number(sheet.rowCount());
        if (sheet.rowCount() > 11) {
            sheetState.topRow = sheet.rowCount() - 10;
        }
    }
    void addRows(int count) {
        for (int row = 0; row < count; ++row) {
            addRow();
        }
    }

    int shownRows() const { return grid.model()->rowCount(); }
    int topRow() const { return grid.rowAt(0); }

    static constexpr int drawingPatience = 5000; ///< Milliseconds.

    SheetPage& page = dynamic_cast<SheetPage&>(find<QWidget>("SheetPage"));
    QTableView& grid = find<QTableView>("fg1");
};

TEST_F(SheetPageTest, RowsAreDrawnAWhileAfterTheyHaveComeAndAllAtOnce) {
    int insertions = 0;
    QObject::connect(grid.model(), &QAbstractItemModel::rowsInserted, &grid, [&insertions] { ++insertions; });
    for (int row = 0; row < 30; ++row) {
        addRow();
        QCoreApplication::sendPostedEvents();
    }
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(text("SheetCounter"), "0");
    ASSERT_TRUE(waitFor([this] { return shownRows() == 30; }, drawingPatience));
    EXPECT_EQ(text("SheetCounter"), "30");
    EXPECT_EQ(insertions, 1);
}

TEST_F(SheetPageTest, AHiddenPageDrawsNothingUntilItIsShown) {
    resizePage(370);
    showPage(QStringLiteral("Status and Controls"));
    addRows(15);
    constexpr int longerThanARefresh = 400;
    pass(longerThanARefresh);
    EXPECT_EQ(shownRows(), 0);
    openPage();
    EXPECT_EQ(shownRows(), 15);
    EXPECT_EQ(text("SheetCounter"), "15");
    EXPECT_TRUE(waitFor([this] { return topRow() == 4; }, drawingPatience))
        << "grid row 5 behind the header, not " << topRow();
}

TEST_F(SheetPageTest, TheViewFollowsTheNewestRowFromTheTwelfthOn) {
    resizePage(370);
    addRows(11);
    page.refreshNow();
    EXPECT_EQ(topRow(), 0);
    addRow();
    page.refreshNow();
    EXPECT_EQ(topRow(), 1) << "the second data row";
    addRows(100);
    page.refreshNow();
    EXPECT_EQ(topRow(), 101);
}

TEST_F(SheetPageTest, TheHeaderRowChangesWithTheSheets) {
    QStringList trx = header();
    trx[3] = QStringLiteral("100");
    trx << QStringLiteral("125");
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 512.0}, trx);
    page.refreshNow();
    EXPECT_EQ(grid.model()->headerData(4, Qt::Horizontal).toString().toStdString(), "125");
    sheet.setHeader({.letter = QStringLiteral("F"), .firmware = 310.0}, header());
    page.refreshNow();
    EXPECT_EQ(grid.model()->headerData(4, Qt::Horizontal).toString().toStdString(), "");
}

TEST_F(SheetPageTest, ClearingEmptiesTheGridAndIsPassedOn) {
    int removalsHeard = 0;
    const auto counting = sheet.rowsRemoved.subscribe([&removalsHeard] { ++removalsHeard; });
    addRows(20);
    page.refreshNow();
    sheetState.topRow = 0;
    sheet.removeRows();
    page.refreshNow();
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(removalsHeard, 1);
    addRow();
    page.refreshNow();
    EXPECT_TRUE(waitFor([this] { return topRow() == 0; }, drawingPatience)) << topRow();
}

TEST_F(SheetPageTest, AsManyRowsInPlaceOfTheOldOnesAreFollowedToo) {
    resizePage(370);
    for (int round = 0; round < 2; ++round) {
        sheetState.topRow = 0;
        sheet.removeRows();
        addRows(50);
        page.refreshNow();
        EXPECT_TRUE(waitFor([this] { return topRow() == 39; }, drawingPatience)) << topRow();
    }
}

TEST_F(SheetPageTest, TheGridCannotBeEdited) {
    EXPECT_EQ(grid.editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_FALSE(grid.verticalHeader()->isVisibleTo(&page));
}

TEST_F(SheetPageTest, TheButtonsFollowWhatIsAllowed) {
    commands.saveAsEnabled = true;
    commands.clearAllEnabled = true;
    commands.activity = Activity::Collecting;
    EXPECT_TRUE(button("Command11").isEnabled());
    EXPECT_FALSE(button("ExportSheet").isEnabled()) << "there are no rows";
    EXPECT_FALSE(button("Command10").isEnabled());
    EXPECT_FALSE(button("Command9").isEnabled());
    commands.activity = Activity::None;
    commands.saveAsEnabled = false;
    EXPECT_FALSE(button("Command11").isEnabled());
    commands.sheetHoldsRows = true;
    EXPECT_TRUE(button("Command11").isEnabled()) << "rows can always be saved";
    EXPECT_TRUE(button("ExportSheet").isEnabled());
    commands.sheetHoldsRows = false;
    EXPECT_FALSE(button("ExportSheet").isEnabled());
}

TEST_F(SheetPageTest, CaptionsToolTipsAndTheFileName) {
    EXPECT_EQ(button("Command11").toolTip().toStdString(),
              "Save all Data on the Spread Sheet to a Tab Delimited Text File.");
    EXPECT_EQ(button("Command9").toolTip().toStdString(), "Clears the Spread Sheet of all data.");
    const auto caption = [this](const char* name) { return button(name).text().remove(u'&').toStdString(); };
    EXPECT_EQ(caption("Command11"), "Save As");
    EXPECT_EQ(caption("ExportSheet"), "Export");
    EXPECT_EQ(caption("Command10"), "Open");
    EXPECT_EQ(caption("Command9"), "Clear All");
    EXPECT_EQ(find<QLabel>("RecordsCounter").toolTip().toStdString(),
              "This is used to indicated how many records were automatically created over a long profile, or data "
              "gathering.");
    auto& name = find<QLineEdit>("Text37");
    EXPECT_EQ(name.text().toStdString(), "Untitled");
    EXPECT_EQ(name.toolTip().toStdString(),
              "Default File Name, and the file name used for auto-recording of long profiles.");
    retype(name, "bay");
    EXPECT_EQ(sheetState.fileName.value().toStdString(), "bay");
    sheetState.records = QStringLiteral("2");
    EXPECT_EQ(text("RecordsCounter"), "2");
}

TEST_F(SheetPageTest, TheFileNameIsReadableInTheSmallestWindow) {
    window->resize(window->minimumSizeHint());
    QCoreApplication::processEvents();
    EXPECT_LE(window->width(), 800);
    const auto& name = find<QLineEdit>("Text37");
    EXPECT_GE(name.width(), name.fontMetrics().horizontalAdvance(QStringLiteral("  Untitled  ")));
}

TEST_F(SheetPageTest, ACellVisitedAgainIsCurrentAgain) {
    addRows(4);
    const auto visitLastCell = [this] {
        for (const int column : {3, 4, 5}) {
            sheetState.currentColumn = column;
            sheetState.currentRow = 4;
        }
        page.refreshNow();
    };
    visitLastCell();
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(3, 5));
    grid.setCurrentIndex(grid.model()->index(0, 0)); // the operator's click
    append(sheet, 1);
    page.refreshNow();
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(0, 0)) << "a row that comes does not move it";
    visitLastCell();
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(3, 5));
}

} // namespace
} // namespace orv
