// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetmodel.h"

namespace orv {

SheetModel::SheetModel(const DataSheet& sheet, QObject* parent)
    : QAbstractTableModel(parent)
    , sheet_(sheet)
    , shownRows_(sheet.rowCount()) {}

bool SheetModel::refresh() {
    if (removed_) {
        beginResetModel();
        removed_ = false;
        headerStale_ = false;
        shownRows_ = sheet_.rowCount();
        endResetModel();
        return true;
    }
    if (headerStale_) {
        headerStale_ = false;
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, DataSheet::columnCount - 1);
    }
    const int rows = sheet_.rowCount();
    if (rows > shownRows_) {
        beginInsertRows({}, shownRows_, rows - 1);
        shownRows_ = rows;
        endInsertRows();
    }
    return false;
}

int SheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int SheetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : DataSheet::columnCount;
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return sheet_.cell(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    default:
        return {};
    }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    }
    return role == Qt::DisplayRole ? sheet_.header().value(section) : QVariant();
}

} // namespace orv
