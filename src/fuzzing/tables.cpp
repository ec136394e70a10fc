// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/csvmetadata.h"
#include "formats/rowtext.h"
#include "formats/tablereader.h"
#include "fuzzing/fuzzing.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace orv::fuzzing {

namespace {

/// Two texts of one row: as many cells as columns, and an object with all their names.
void writeRow(RowText& text, const TableRow& row, const std::vector<Column>& columns) {
    QByteArray csv;
    text.addCsv(row, csv);
    const auto count = static_cast<qsizetype>(columns.size());
    require(csv.count(',') == count - 1, "a line of CSV has other cells than columns",
            [&csv] { return QString::fromLatin1(csv); });
    QByteArray json;
    text.addJson(row, json);
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    require(object.size() == count, "a row is no JSON object of all columns",
            [&json] { return QString::fromLatin1(json); });
    const QByteArrayList cells = csv.split(',');
    for (qsizetype at = 0; at < count; ++at) {
        const Column& column = columns[static_cast<std::size_t>(at)];
        const QJsonValue value = object.value(column.name);
        require(value.isNull() == cells[at].isEmpty(), "CSV and JSON do not miss the same");
        if (value.isDouble()) {
            require(value.toDouble() == cells[at].toDouble(), "CSV and JSON have different numbers",
                    [&json] { return QString::fromLatin1(json); });
        }
    }
}

} // namespace

void tables(Input input) {
    const int manner = input.byte();
    const OpenedTable opened = openTable(memoryFile(input.rest()));
    if (!opened.reader) {
        require(opened.error.endsWith(u'.'), "it is not told what is wrong");
        return;
    }
    require(opened.error.isEmpty(), "a table that was opened is wrong");
    TableDescription table = opened.reader->table();
    require(table.layout != RowLayout::Unknown, "a table has no columns");
    if ((manner & 1) != 0) {
        constexpr Conversion::Line line{.offset = 12.5, .scale = 0.03};
        table.calculateWith({.glow = line, .trx = {{line, {.offset = 0.0, .scale = 1e308}, {}}}});
    }
    opened.reader->describe(table);
    const auto columns = columnsOf(table);
    RowText text(table);
    TableRow row;
    qint64 rows = 0;
    qint64 timeless = 0;
    qint64 missing = 0; // numbers of counts and records
    while (opened.reader->next(row)) {
        ++rows;
        timeless += row.time ? 0 : 1;
        missing += row.record ? 0 : 1;
        for (int value = 0; value < valueCount(table.layout); ++value) {
            const double number = row.values.at(static_cast<std::size_t>(value));
            require(!std::isinf(number), "a value is infinite");
            missing += std::isnan(number) ? 1 : 0;
        }
        writeRow(text, row, columns);
    }
    require(!opened.reader->next(row), "there is a row after the last");
    require(opened.reader->error().isEmpty(), "a file that can be read was not");
    const TableReport& report = opened.reader->report();
    require(report.rows == rows && report.unreadableTimes == timeless &&
                report.unreadableValues + report.absentValues == missing,
            "the report does not add up");
    require(report.missingRecords >= 0 && report.unreadableLines >= 0, "the report has less than nothing");
    for (const QString& sentence : report.sentences()) {
        require(sentence.endsWith(u'.'), "the report is no sentence", [&sentence] { return sentence; });
    }
    require((manner & 14) != 0 ||
                QJsonDocument::fromJson(csvMetadata(QStringLiteral("a.csv"), table, {}, report)).isObject(),
            "the metadata is no JSON"); // it takes long
}

} // namespace orv::fuzzing
