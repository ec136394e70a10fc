// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/widgets.h"

#include <QAbstractTableModel>
#include <QTableView>

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

/// The page "Output: Spread Sheet". The grid and the count of rows are drawn about five times a second, and not at all
/// while another page is shown.
class SheetPage final : public QWidget {
public:
    explicit SheetPage(Program& program);

    /// Draws what has changed now, for screenshots and tests.
    void refreshNow();

private:
    QLayout* makeBar(Program& program);
    void schedule();
    void bringIntoView();
    /// Shows the rows from that one on, which are new, and paints no others that are on the screen already.
    void showRowsFrom(int first);

    SheetState& shown_;
    SheetModel model_;
    QTableView* grid_;
    QLabel* counter_;
    Redrawing redrawing_;
    bool stale_ = false;
    int shownTop_ = 0;
    bool visitPending_ = false; ///< A procedure has visited a cell since the grid was drawn.
    std::vector<Subscription> subscriptions_;
    Bindings bindings_;
};

} // namespace orv
