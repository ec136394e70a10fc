// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/table.h"

#include <QByteArray>

namespace orv {

/// Makes the lines of text formats, without their ends. All texts are ASCII and the same under every locale.
class RowText {
public:
    explicit RowText(const TableDescription& table);

    /// The names of the columns, separated by commas.
    QByteArray csvHeader() const;

    /// Appends a row: cells separated by commas; what is missing is empty.
    void addCsv(const TableRow& row, QByteArray& text);

    /// Appends a row as a JSON object: what is missing is null.
    void addJson(const TableRow& row, QByteArray& text);

private:
    bool addCell(const Column& column, const TableRow& row, QByteArray& text);
    void addTime(qint64 time, QByteArray& text);

    std::vector<Column> columns_;
    std::vector<QByteArray> keys_; ///< Of a JSON object, with colon.
    std::optional<qint64> day_;    ///< Since 1970; most rows have the day of the row before.
    QByteArray dayText_;           ///< "2026-11-21T"
};

/// Appends a number in plain decimal text with a point, without exponent, or nothing if it is missing; returns whether
/// it is there.
bool addNumber(double value, QByteArray& text);

} // namespace orv
