// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/rowtext.h"

#include "formats/csvmetadata.h"

#include <QLocale>

#include <charconv>
#include <cmath>

namespace orv {

namespace {

void addWhole(qint64 value, QByteArray& text) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    text.append(digits.data(), end - digits.data());
}

} // namespace

bool addNumber(double value, QByteArray& text) {
    constexpr double largestWhole = 1e15; // below it every whole number has a double of its own
    if (!std::isfinite(value)) {
        return false;
    }
    if (std::abs(value) < largestWhole && value == std::trunc(value)) {
        addWhole(static_cast<qint64>(value), text);
    } else {
        text += QByteArray::number(value, 'f', QLocale::FloatingPointShortest);
    }
    return true;
}

RowText::RowText(const TableDescription& table)
    : columns_(columnsOf(table)) {
    for (const Column& column : columns_) {
        keys_.push_back('"' + column.name.toLatin1() + "\":");
    }
}

QByteArray RowText::csvHeader() const {
    QByteArray header;
    for (const Column& column : columns_) {
        if (!header.isEmpty()) {
            header += ',';
        }
        header += column.name.toLatin1();
    }
    return header;
}

void RowText::addCsv(const TableRow& row, QByteArray& text) {
    bool first = true;
    for (const Column& column : columns_) {
        if (!std::exchange(first, false)) {
            text += ',';
        }
        addCell(column, row, text);
    }
}

void RowText::addJson(const TableRow& row, QByteArray& text) {
    for (std::size_t at = 0; at < columns_.size(); ++at) {
        text += at == 0 ? '{' : ',';
        text += keys_[at];
        const bool quoted = columns_[at].kind == Column::Kind::Time || columns_[at].kind == Column::Kind::Stamp;
        const qsizetype before = text.size();
        if (quoted) {
            text += '"';
        }
        if (!addCell(columns_[at], row, text)) {
            text.truncate(before);
            text += "null";
        } else if (quoted) {
            text += '"';
        }
    }
    text += '}';
}

bool RowText::addCell(const Column& column, const TableRow& row, QByteArray& text) {
    switch (column.kind) {
    case Column::Kind::Record:
        if (row.record) {
            addWhole(*row.record, text);
        }
        return row.record.has_value();
    case Column::Kind::Time:
        if (row.time) {
            addTime(*row.time, text);
        }
        return row.time.has_value();
    case Column::Kind::Stamp:
        if (row.stamp.isValid()) {
            text += isoWithZone(row.stamp).toLatin1();
        }
        return row.stamp.isValid();
    case Column::Kind::Value:
    case Column::Kind::Calculated:
        break;
    }
    return addNumber(column.valueOf(row), text);
}

void RowText::addTime(qint64 time, QByteArray& text) {
    const qint64 second = ((time % secondsPerDay) + secondsPerDay) % secondsPerDay;
    const qint64 day = (time - second) / secondsPerDay;
    if (day_ != day) {
        day_ = day;
        dayText_ = QDate(1970, 1, 1).addDays(day).toString(Qt::ISODate).toLatin1() + 'T';
    }
    const auto digit = [](qint64 value) { return static_cast<char>('0' + value % 10); };
    const qint64 hours = second / 3600;
    const qint64 minutes = second / 60 % 60;
    const qint64 seconds = second % 60;
    const std::array<char, 8> clock{digit(hours / 10),   digit(hours),  ':', digit(minutes / 10), digit(minutes), ':',
                                    digit(seconds / 10), digit(seconds)};
    text += dayText_;
    text.append(clock.data(), clock.size());
}

} // namespace orv
