// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/datasheet.h"

namespace orv {

QString DataSheet::cell(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0) {
        return {};
    }
    const QByteArray& text = rows_[static_cast<std::size_t>(row)];
    qsizetype start = 0;
    for (; column > 0; --column) {
        const qsizetype tab = text.indexOf('\t', start);
        if (tab < 0) {
            return {};
        }
        start = tab + 1;
    }
    const qsizetype end = text.indexOf('\t', start);
    return QString::fromLatin1(text.constData() + start, (end < 0 ? text.size() : end) - start);
}

void DataSheet::writeCells(int row, int cells, QByteArray& text) const {
    const QByteArray& source = rows_[static_cast<std::size_t>(row)];
    qsizetype end = 0;
    for (; cells > 0; --cells) {
        const qsizetype tab = source.indexOf('\t', end);
        if (tab < 0) {
            break;
        }
        end = tab + 1;
    }
    if (cells == 0) {
        text.append(source.constData(), end);
    } else {
        text.append(source).append(cells, '\t');
    }
}

void DataSheet::setHeader(const Type& type, const QStringList& header) {
    if (type.layout() != type_.layout()) {
        rowsOfOtherLayout_ = rowCount();
    }
    type_ = type;
    header_ = header;
    ++headerChanges_;
    headerChanged.tell();
}

void DataSheet::appendRow(const QStringList& cells) {
    appendJoinedRow(cells.join(u'\t').toLatin1());
}

void DataSheet::appendJoinedRow(QByteArray row) {
    rows_.push_back(std::move(row));
    rowAppended.tell();
}

void DataSheet::removeRows() {
    rows_.clear();
    rowsOfOtherLayout_ = 0;
    ++removals_;
    rowsRemoved.tell();
}

} // namespace orv
