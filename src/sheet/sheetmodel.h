// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QAbstractTableModel>

namespace orv {

/// The data sheet as a table for a view. It shows the rows that were there at the last refresh(), so that a view
/// follows a run a few times a second instead of at every row.
class SheetModel final : public QAbstractTableModel {
public:
    explicit SheetModel(const DataSheet& sheet, QObject* parent = nullptr);

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

} // namespace orv
