// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/datasheet.h"

#include "base/runtimeerror.h"

#include <limits>
#include <utility>

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
    headerType_ = type;
    header_ = header;
    headerOfOtherLayout_ = !rows_.empty() && type.layout() != type_.layout();
    if (!headerOfOtherLayout_) {
        takeHeader();
    }
    ++headerChanges_;
    headerChanged.tell();
}

void DataSheet::takeHeader() {
    headerOfOtherLayout_ = false;
    type_ = headerType_;
    columnNames_ = header_;
}

void DataSheet::appendRow(const QStringList& cells) {
    appendJoinedRow(cells.join(u'\t').toLatin1());
}

void DataSheet::appendJoinedRow(QByteArray row) {
    if (headerOfOtherLayout_) {
        rowsOfOtherLayout_ = rowCount();
        takeHeader();
        ++headerChanges_;
    }
    rows_.push_back(std::move(row));
    rowAppended.tell();
}

void DataSheet::removeRows() {
    rows_.clear();
    rowsOfOtherLayout_ = 0;
    rowsFromFile_ = 0;
    takeHeader();
    ++removals_;
    rowsRemoved.tell();
}

SheetRows::SheetRows(Session& session, ComPorts& ports, DataSheet& sheet, SheetState& shown)
    : session_(session)
    , ports_(ports)
    , sheet_(sheet)
    , shown_(shown) {}

RowLayout SheetRows::connectedLayout() const {
    return connectedType().layout();
}

bool SheetRows::instrumentIsKnown() const {
    if (connectedLayout() != RowLayout::Unknown) {
        return true;
    }
    session_.messages.show(operatorWarning(QStringLiteral("The instrument did not say what it is. Connect again.")));
    return false;
}

void SheetRows::layOutOnOpening() {
    const RowLayout layout = connectedLayout();
    if (layout != RowLayout::Unknown) {
        sheet_.setHeader(connectedType(), headerRow(HeaderPlace::GridOnOpening, layout));
    }
}

void SheetRows::clearSpreadSheet() {
    ports_.debugsay(QStringLiteral("Clear Spread Sheet"));
    clear();
}

void SheetRows::clear() {
    sheet_.removeRows();
    countRows();
    shown_.topRow = 0;
    shown_.unsaved = false;
    // While the firmware is not known it counts as the older generation.
    const InstrumentType type = session_.state.type();
    const double firmware = session_.state.firmware;
    const RowLayout layout =
        rowLayout(type == InstrumentType::Glow ? InstrumentType::Glow : InstrumentType::Trx, firmware);
    sheet_.setHeader(
        {.letter = type != InstrumentType::Unknown ? session_.state.Vartemp : QString(), .firmware = firmware},
        headerRow(HeaderPlace::GridOnClearing, layout));
}

void SheetRows::countRows() {
    const int count = sheet_.rowCount();
    session_.state.plc = static_cast<qint16>(count);
    shown_.counter = QString::number(count);
    session_.commands.sheetHoldsRows = count > 0;
}

int SheetRows::addRow(const DataRow& row) {
    const int number = sheet_.rowCount() + 1;
    if (number > std::numeric_limits<qint16>::max()) {
        throw RuntimeError(RuntimeError::Kind::Overflow);
    }
    sheet_.appendRow(sheetCells(number, row));
    countRows();
    shown_.unsaved = true;
    return number;
}

void SheetRows::replaceBy(LoadedSheet loaded) {
    clear();
    sheet_.setHeader(loaded.type, headerRow(HeaderPlace::GridOnClearing, loaded.type.layout()));
    for (QByteArray& row : loaded.rows) {
        sheet_.appendJoinedRow(std::move(row));
    }
    sheet_.noteRowsFromFile();
    countRows();
    followNewest();
}

void SheetRows::recover(LoadedSheet recorded) {
    replaceBy(std::move(recorded));
    shown_.unsaved = sheet_.rowCount() > 0;
}

void SheetRows::followNewest() {
    if (sheet_.rowCount() > 11) {
        shown_.topRow = sheet_.rowCount() - 10;
    }
}

} // namespace orv
