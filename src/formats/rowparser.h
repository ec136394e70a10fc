// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/table.h"

#include <QDate>

#include <span>

namespace orv {

/// Makes numbers of a row's texts and counts what cannot be read: that is missing in the table, never guessed.
class RowParser {
public:
    explicit RowParser(TableDescription table);

    /// A row as the sheet and our files have it: record number, date, time, values; and behind the sheet's nine
    /// columns, from sheetcolumn::firstCount on, the counts from which calculated values were made.
    TableRow read(std::span<const QStringView> cells);

    /// The same cells joined by tabs.
    TableRow readJoined(QStringView cells);

    /// A row that has just come from the instrument.
    TableRow read(int number, const DataRow& row, const QDateTime& stamp = {});

    /// What could not be read so far. Who feeds the parser may add what he knows beside.
    TableReport report = {};

    const TableDescription& table() const { return table_; }

private:
    std::optional<qint64> time(QStringView date, QStringView time);
    double number(QStringView text);
    void calculate(TableRow& row, std::span<const QStringView> cells);

    TableDescription table_;
    std::size_t valueCount_;
    int lastRecord_ = 0;
    QString lastDate_; ///< Most rows have the date of the row before.
    std::optional<qint64> lastDay_;
};

} // namespace orv
