// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/rowparser.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace orv {

namespace {

constexpr std::size_t mostCells = sheetcolumn::firstCount + mostCounts;
constexpr qint64 julianDayOf1970 = 2440588;

/// The number of a text of one to nine digits; nothing for any other text.
std::optional<int> digits(QStringView text) {
    if (text.empty() || text.size() > 9) {
        return std::nullopt;
    }
    int number = 0;
    for (const QChar character : text) {
        if (character < u'0' || character > u'9') {
            return std::nullopt;
        }
        number = number * 10 + (character.unicode() - u'0');
    }
    return number;
}

/// The value, or missing if it is infinite or no number.
double finite(double value) {
    return std::isfinite(value) ? value : missingValue;
}

QStringView cellAt(std::span<const QStringView> cells, std::size_t at) {
    return at < cells.size() ? cells[at] : QStringView();
}

} // namespace

RowParser::RowParser(TableDescription table)
    : table_(std::move(table))
    , valueCount_(static_cast<std::size_t>(valueCount(table_.layout))) {}

TableRow RowParser::readJoined(QStringView joined) {
    std::array<QStringView, mostCells> cells;
    std::size_t count = 0;
    for (; count < cells.size(); ++count) {
        const qsizetype tab = joined.indexOf(u'\t');
        cells.at(count) = tab < 0 ? joined : joined.first(tab);
        if (tab < 0) {
            return read(std::span(cells).first(count + 1));
        }
        joined = joined.sliced(tab + 1);
    }
    return read(cells);
}

TableRow RowParser::read(int number, const DataRow& row, const QDateTime& stamp) {
    std::array<QStringView, mostCells> cells;
    const QString record = QString::number(number);
    cells[sheetcolumn::record] = record;
    cells[sheetcolumn::date] = row.date;
    cells[sheetcolumn::time] = row.time;
    const auto put = [&cells](const QStringList& texts, std::size_t first) {
        for (qsizetype at = 0; at < std::min<qsizetype>(texts.size(), mostCounts); ++at) {
            cells.at(first + static_cast<std::size_t>(at)) = texts[at];
        }
    };
    put(row.values, sheetcolumn::firstValue);
    put(row.counts, sheetcolumn::firstCount);
    TableRow read = this->read(cells);
    read.stamp = stamp;
    return read;
}

TableRow RowParser::read(std::span<const QStringView> cells) {
    TableRow row;
    ++report.rows;
    const QStringView record = cellAt(cells, sheetcolumn::record).trimmed();
    row.record = digits(record);
    if (row.record) {
        // A number that does not go on is a sheet that began anew.
        if (lastRecord_ > 0 && *row.record > lastRecord_ + 1) {
            report.missingRecords += *row.record - lastRecord_ - 1;
        }
        lastRecord_ = *row.record;
    } else {
        ++(record.isEmpty() ? report.absentValues : report.unreadableValues);
    }
    row.time = time(cellAt(cells, sheetcolumn::date), cellAt(cells, sheetcolumn::time));
    if (!row.time) {
        ++report.unreadableTimes;
    }
    const bool hasCounts = !cellAt(cells, sheetcolumn::firstCount).isEmpty();
    const std::size_t first = hasCounts ? sheetcolumn::firstCount : sheetcolumn::firstValue;
    for (std::size_t at = 0; at < valueCount_; ++at) {
        row.values.at(at) = number(cellAt(cells, first + at));
    }
    if (table_.calculated) {
        calculate(row, cells);
    }
    return row;
}

void RowParser::calculate(TableRow& row, std::span<const QStringView> cells) {
    const auto lines = table_.calibration.lines(table_.layout);
    const auto columns = convertedValues(table_.layout);
    for (std::size_t at = 0; at < columns.size(); ++at) {
        const std::size_t column = columns[at];
        if (!lines.empty()) {
            row.calculated.at(at) = finite(calculatedValue(row.values.at(column), lines[at]));
            continue;
        }
        // The sheet leaves the counts where a result is 0, so a cell that is like its counts says nothing.
        const QStringView cell = cellAt(cells, sheetcolumn::firstValue + column);
        const QStringView counts = cellAt(cells, sheetcolumn::firstCount + column);
        if (!counts.isEmpty() && cell != counts) {
            row.calculated.at(at) = number(cell);
        }
    }
}

std::optional<qint64> RowParser::time(QStringView date, QStringView time) {
    if (date != lastDate_ || lastDate_.isNull()) {
        lastDate_ = date.toString();
        const auto day = instrumentDate(date);
        lastDay_ = day ? std::optional(day->toJulianDay() - julianDayOf1970) : std::nullopt;
    }
    if (!lastDay_) {
        return std::nullopt;
    }
    const auto moment = sheetTime(time);
    return moment ? std::optional(*lastDay_ * secondsPerDay + moment->msecsSinceStartOfDay() / 1000) : std::nullopt;
}

double RowParser::number(QStringView text) {
    if (const auto whole = digits(text)) {
        return *whole;
    }
    const QStringView trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        ++report.absentValues;
        return missingValue;
    }
    const auto value = numberText(trimmed);
    if (!value || !std::isfinite(*value)) {
        ++report.unreadableValues;
        return missingValue;
    }
    return *value;
}

} // namespace orv
