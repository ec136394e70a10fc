// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/datasheet.h"

#include "base/runtimeerror.h"
#include "base/text.h"

#include <cmath>
#include <limits>
#include <utility>

namespace orv {

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

QByteArrayView DataSheet::cellBytes(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0) {
        return {};
    }
    const QByteArray& text = joinedRow(row);
    qsizetype start = 0;
    for (; column > 0; --column) {
        const qsizetype tab = text.indexOf('\t', start);
        if (tab < 0) {
            return {};
        }
        start = tab + 1;
    }
    const qsizetype end = text.indexOf('\t', start);
    return QByteArrayView(text).sliced(start, (end < 0 ? text.size() : end) - start);
}

QString DataSheet::cell(int row, int column) const {
    return QString::fromLatin1(cellBytes(row, column));
}

double DataSheet::number(int row, int column) const {
    const QByteArrayView text = cellBytes(row, column);
    constexpr qsizetype exactDigits = 15;
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    if (!text.empty() && text.size() <= exactDigits && std::ranges::all_of(text, isDigit)) {
        qint64 whole = 0; // most are
        for (const char digit : text) {
            whole = whole * 10 + (digit - '0');
        }
        return static_cast<double>(whole);
    }
    const double number = numberText(QString::fromLatin1(text)).value_or(noNumber);
    return std::isfinite(number) ? number : noNumber; // digits beyond what a number can hold read as infinite
}

int DataSheet::seriesOf(int row) const {
    const std::vector<int>& starts = contents_.seriesStarts;
    return static_cast<int>(std::ranges::upper_bound(starts, row) - starts.begin());
}

void DataSheet::writeCells(int row, int cells, QByteArray& text) const {
    const QByteArray& source = joinedRow(row);
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
    contents_.headerType = type;
    contents_.header = header;
    contents_.headerOfOtherLayout = !contents_.rows.empty() && type.layout() != contents_.type.layout();
    if (!contents_.headerOfOtherLayout) {
        takeHeader();
    }
    ++headerChanges_;
    headerChanged.tell();
}

void DataSheet::takeHeader() {
    contents_.headerOfOtherLayout = false;
    contents_.type = contents_.headerType;
    contents_.columnNames = contents_.header;
}

void DataSheet::appendRow(const QStringList& cells) {
    appendJoinedRow(cells.join(u'\t').toLatin1());
}

void DataSheet::appendJoinedRow(QByteArray row) {
    if (contents_.headerOfOtherLayout) {
        contents_.rowsOfOtherLayout = rowCount();
        takeHeader();
        ++headerChanges_;
    }
    if (std::exchange(contents_.seriesBegins, false) && rowCount() > 0) {
        contents_.seriesStarts.push_back(rowCount());
    }
    contents_.rows.push_back(std::move(row));
    rowAppended.tell();
}

DataSheet::Contents DataSheet::removeRows() {
    std::vector<QByteArray> rows = std::exchange(contents_.rows, {});
    Contents before = contents_;
    before.rows = std::move(rows);
    contents_.rowsOfOtherLayout = 0;
    contents_.rowsFromFile = 0;
    contents_.seriesStarts.clear();
    takeHeader();
    ++removals_;
    rowsRemoved.tell();
    return before;
}

void DataSheet::putBack(Contents contents) {
    contents_ = std::move(contents);
    ++headerChanges_;
    headerChanged.tell();
    if (rowCount() > 0) {
        rowAppended.tell();
    }
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
    session_.messages.show(operatorWarning(Words::tr("The instrument did not say what it is. Connect again.")));
    return false;
}

void SheetRows::layOutOnOpening() {
    const RowLayout layout = connectedLayout();
    if (layout != RowLayout::Unknown) {
        sheet_.setHeader(connectedType(), headerRow(HeaderPlace::GridOnOpening, layout));
    }
}

DataSheet::Contents SheetRows::clearSpreadSheet() {
    ports_.debugsay(QStringLiteral("Clear Spread Sheet"));
    return clear();
}

DataSheet::Contents SheetRows::clear() {
    DataSheet::Contents before = sheet_.removeRows();
    countRows();
    shown_.topRow = 0;
    shown_.unsaved = false;
    shown_.rowsInFile = 0;
    shown_.file = QString();
    shown_.hasOtherType = false;
    // While the firmware is not known it counts as the older generation.
    const InstrumentType type = session_.state.type();
    const double firmware = session_.state.firmware;
    const RowLayout layout =
        rowLayout(type == InstrumentType::Glow ? InstrumentType::Glow : InstrumentType::Trx, firmware);
    sheet_.setHeader(
        {.letter = type != InstrumentType::Unknown ? session_.state.Vartemp : QString(), .firmware = firmware},
        headerRow(HeaderPlace::GridOnClearing, layout));
    return before;
}

void SheetRows::putBack(DataSheet::Contents contents) {
    if (sheet_.rowCount() == 0) {
        sheet_.putBack(std::move(contents));
        countRows();
        followNewest();
    }
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
    shown_.saved = SavedRows();
    sheet_.setHeader(loaded.type, headerRow(HeaderPlace::GridOnClearing, loaded.type.layout()));
    for (QByteArray& row : loaded.rows) {
        sheet_.appendJoinedRow(std::move(row));
    }
    sheet_.noteRowsFromFile();
    shown_.rowsInFile = sheet_.rowCount();
    countRows();
    followNewest();
}

void SheetRows::recover(LoadedSheet recorded) {
    replaceBy(std::move(recorded));
    shown_.unsaved = sheet_.rowCount() > 0;
    shown_.rowsInFile = 0;
}

void SheetRows::followNewest() {
    if (sheet_.rowCount() > 11) {
        shown_.topRow = sheet_.rowCount() - 10;
    }
}

} // namespace orv
