// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "sheet/datasheet.h"
#include "ui/statisticstable.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <array>
#include <functional>
#include <vector>

namespace orv {

/// The data sheet as a table for a view. It shows the rows that were there at the last refresh(), so that a view
/// follows a run a few times a second instead of at every row.
class SheetModel final : public QAbstractTableModel {
public:
    explicit SheetModel(const DataSheet& sheet);

    /// Brings the table up to date with the sheet; cheap if nothing has changed. Returns whether rows were removed
    /// since, so that the table has been replaced as a whole.
    bool refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The sheet's rows have been removed or its header row has changed.
    void noteRemoved() { removed_ = true; }
    void noteHeader() { headerStale_ = true; }

private:
    const DataSheet& sheet_;
    int shownRows_ = 0;
    bool removed_ = false;
    bool headerStale_ = false;
};

/// The grid of the data sheet, in which the operator selects cells, rows (by their record number, or Shift+Space) and
/// columns (by their header, or Ctrl+Space), to copy them or to have their statistics. A line is drawn over the first
/// row of a run or a download that follows another.
class SheetGrid final : public QTableView {
public:
    explicit SheetGrid(const DataSheet& sheet);

    Signal<> selected; ///< The selection has become another.

    SheetModel& rows() { return model_; }

    /// Shows the rows from that one on, which are new, with the part of the sheet that `bringIntoView` chooses, and
    /// paints no others that are on the screen already: by itself the grid would paint all cells for each row that
    /// comes.
    void showRowsFrom(int first, const std::function<void()>& bringIntoView);

    /// Puts what is selected on the clipboard: a line for each row, cells separated by tabs, and before it, if wanted,
    /// a line with the names of the newest row's columns, which the header row of an instrument that has no rows yet
    /// may hide. Between selected cells those that are not selected are empty; columns at the right without a name and
    /// without a text are left out. Returns whether anything is selected; if not, nothing happens.
    bool copy(bool withHeader) const;

    /// Selects the next cell, or the one before, that contains the text, in lower or upper case, and goes on at the
    /// other end of the sheet. Returns whether there is one.
    bool findText(const QString& text, bool forward);

    /// Selects these rows and brings the first of them into view.
    void selectRows(const std::vector<RowRange>& ranges);

    /// Selects the rows, or the columns, of all cells that are selected.
    void extendToRows() { extend(QItemSelectionModel::Rows); }
    void extendToColumns() { extend(QItemSelectionModel::Columns); }

    /// The numbers of each value column of which more than one cell is selected; of whole rows those of each with a
    /// name. Rows of another type of instrument are left out: their columns mean something else.
    std::vector<StatisticsTable::Line> statistics() const;

    /// What is selected: rows if all cells of each are, else columns, else cells. Columns without a name count nowhere.
    struct Selected {
        enum class Kind { Rows, Columns, Cells } kind = Kind::Cells;
        int count = 0;
        int rows = 0;            ///< Of which a cell is selected.
        int rowsOfOtherType = 0; ///< Those among them that are of another type of instrument than the newest.
    };
    Selected whatIsSelected() const;
    /// The rows that are selected, if all their cells are and no others; else none.
    std::vector<RowRange> selectedWholeRows() const;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;

private:
    /// Of each column the rows that are selected.
    using SelectedRows = std::array<std::vector<bool>, DataSheet::columnCount>;

    SelectedRows selectedRows() const;
    void extend(QItemSelectionModel::SelectionFlag to);

    const DataSheet& sheet_;
    SheetModel model_;
    bool rowPressed_ = false; ///< The pointer went down on a record number.
};

} // namespace orv
