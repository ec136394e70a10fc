// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/csvmetadata.h"
#include "formats/rowparser.h"
#include "formats/rowwriter.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QLocale>
#include <QTimeZone>

namespace orv {
namespace {

TableDescription tableOf(RowLayout layout) {
    TableDescription table;
    table.layout = layout;
    return table;
}

/// What a format makes of rows whose cells are separated by bars.
std::string written(FileFormat format, const TableDescription& table, std::initializer_list<const char*> rows,
                    TableReport* report = nullptr) {
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    RowParser parser(table);
    const auto writer = makeRowWriter(format, device);
    EXPECT_EQ(writer->begin(parser.table()), QString());
    for (const char* row : rows) {
        EXPECT_EQ(writer->add(parser.readJoined(QString::fromLatin1(row).replace(u'|', u'\t'))), QString());
    }
    EXPECT_EQ(writer->finish(parser.report), QString());
    if (report != nullptr) {
        *report = parser.report;
    }
    return device.data().toStdString();
}

std::string csv(const TableDescription& table, std::initializer_list<const char*> rows, TableReport* report = nullptr) {
    return written(FileFormat::Csv, table, rows, report);
}

std::string json(const TableDescription& table, std::initializer_list<const char*> rows) {
    return written(FileFormat::JsonLines, table, rows);
}

TEST(Csv, HasTheColumnsOfEachInstrument) {
    EXPECT_EQ(csv(tableOf(RowLayout::TrxNewer),
                  {"1|11/21/26|9:05:07|21000|14500|10000|30500", "2|11/21/26|23:59:59|0|65535|7|8"}),
              "record,time,scattering_100,scattering_125,scattering_150,reference\r\n"
              "1,2026-11-21T09:05:07,21000,14500,10000,30500\r\n"
              "2,2026-11-21T23:59:59,0,65535,7,8\r\n");
    EXPECT_EQ(csv(tableOf(RowLayout::TrxOlder), {"1|1/5/99|0:00:00|10|11|20|21|30|31"}),
              "record,time,scattering_100,reference_100,scattering_125,reference_125,scattering_150,reference_150\r\n"
              "1,1999-01-05T00:00:00,10,11,20,21,30,31\r\n");
    EXPECT_EQ(csv(tableOf(RowLayout::Glow), {"1|2/29/00|12:00:00|700"}), "record,time,fluorescence\r\n"
                                                                         "1,2000-02-29T12:00:00,700\r\n");
}

TEST(JsonLines, HaveAnObjectARow) {
    EXPECT_EQ(json(tableOf(RowLayout::TrxNewer), {"1|11/21/26|9:05:07|21000|14500|10000|30500"}),
              "{\"record\":1,\"time\":\"2026-11-21T09:05:07\",\"scattering_100\":21000,\"scattering_125\":14500,"
              "\"scattering_150\":10000,\"reference\":30500}\n");
    EXPECT_EQ(json(tableOf(RowLayout::TrxOlder), {"1|1/5/99|0:00:00|10|11|20|21|30|31"}),
              "{\"record\":1,\"time\":\"1999-01-05T00:00:00\",\"scattering_100\":10,\"reference_100\":11,"
              "\"scattering_125\":20,\"reference_125\":21,\"scattering_150\":30,\"reference_150\":31}\n");
    EXPECT_EQ(json(tableOf(RowLayout::Glow), {"x|never|12:00:00|"}),
              "{\"record\":null,\"time\":null,\"fluorescence\":null}\n");
}

TEST(RowParser, WhatCannotBeReadIsMissingAndCounted) {
    TableReport report;
    EXPECT_EQ(csv(tableOf(RowLayout::TrxNewer),
                  {
                      "1|11/21/26|9:05:07|1|2|3|4",     //
                      "2|21.11.26|9:05:08|1|2|3|4",     // no date of the instrument
                      "3|11/21/26|27:00:00|1|2|3|4",    // no time within a day
                      "3a|11/21/26|9:05:10|1|2|3|4",    //
                      "4|11/21/26|9:05:11|1x|2,5|-|4",  // a comma is no point
                      "5|11/21/26|9:05:12||1e400|3",    // too large, too few
                      "9|11/21/26|9:05:13|1.50|-2|3|+4" //
                  },
                  &report),
              "record,time,scattering_100,scattering_125,scattering_150,reference\r\n"
              "1,2026-11-21T09:05:07,1,2,3,4\r\n"
              "2,,1,2,3,4\r\n"
              "3,,1,2,3,4\r\n"
              ",2026-11-21T09:05:10,1,2,3,4\r\n"
              "4,2026-11-21T09:05:11,,,,4\r\n"
              "5,2026-11-21T09:05:12,,,3,\r\n"
              "9,2026-11-21T09:05:13,1.5,-2,3,4\r\n");
    EXPECT_EQ(report.rows, 7);
    EXPECT_TRUE(report.isIncomplete());
    EXPECT_EQ(report.sentences().join(u'\n').toStdString(), "2 times could not be read and are missing.\n"
                                                            "5 numbers could not be read and are missing.\n"
                                                            "2 values were not there and are missing.\n"
                                                            "3 record numbers are left out between rows.");
}

TEST(RowParser, NumbersThatBeginAnewAreNoGap) {
    TableReport report;
    csv(tableOf(RowLayout::Glow), {"19999|1/1/26|0:00:00|1", "20000|1/1/26|0:00:01|1", "1|1/1/26|0:00:02|1"}, &report);
    EXPECT_FALSE(report.isIncomplete());
    EXPECT_TRUE(report.sentences().isEmpty());
}

TEST(RowParser, CalculatesFromCountsWhereTheCalibrationIsKnown) {
    TableDescription table = tableOf(RowLayout::TrxOlder);
    ASSERT_TRUE(
        table.calculateWith({.glow = {}, .trx = std::array<Conversion::Line, 3>{{{50, 0.5}, {0, 1}, {10, 0.00001}}}}));
    EXPECT_EQ(csv(table, {"1|1/5/99|0:00:00|51|11|20|21|30|31", "2|1/5/99|0:00:00|50|11|x|21|10|31"}),
              "record,time,scattering_100,reference_100,scattering_125,reference_125,scattering_150,reference_150,"
              "b_100,b_125,b_150\r\n"
              "1,1999-01-05T00:00:00,51,11,20,21,30,31,0.5,20,0.0002\r\n"
              "2,1999-01-05T00:00:00,50,11,,21,10,31,0,,0\r\n");
    TableDescription glow = tableOf(RowLayout::Glow);
    EXPECT_FALSE(glow.calculateWith(table.calibration)) << "it is of another instrument";
    ASSERT_TRUE(glow.calculateWith({.glow = {{100, 0.012}}, .trx = {}}));
    EXPECT_EQ(csv(glow, {"1|1/5/99|0:00:00|1100"}), "record,time,fluorescence,concentration\r\n"
                                                    "1,1999-01-05T00:00:00,1100,12\r\n");
}

TEST(RowParser, TakesWhatTheSheetCalculatedWhereTheCalibrationIsNotKnown) {
    TableDescription table = tableOf(RowLayout::Glow);
    table.calculated = true;
    EXPECT_EQ(csv(table, {"1|1/5/99|0:00:00|12.5||||||700", // nine columns, then the counts
                          "2|1/5/99|0:00:00|100||||||100",  // 0, or the same by chance
                          "3|1/5/99|0:00:00|650"}),         // never converted
              "record,time,fluorescence,concentration\r\n"
              "1,1999-01-05T00:00:00,700,12.5\r\n"
              "2,1999-01-05T00:00:00,100,\r\n"
              "3,1999-01-05T00:00:00,650,\r\n");
}

TEST(RowParser, TakesARowAsItComesFromTheInstrument) {
    TableDescription table = tableOf(RowLayout::Glow);
    table.stamped = true;
    RowParser parser(table);
    const auto row =
        readDataLine(QStringLiteral("11/21/26\t32400\t700\r\n"), RowLayout::Glow, {.glow = {{100, 0.5}}, .trx = {}});
    ASSERT_TRUE(row);
    EXPECT_EQ(row->values, QStringList{QStringLiteral("300")});
    const QDateTime stamp(QDate(2026, 11, 21), QTime(12, 0, 1, 250), QTimeZone(3600));
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    const auto writer = makeRowWriter(FileFormat::JsonLines, device);
    writer->begin(table);
    writer->add(parser.read(41, *row, stamp));
    writer->note(QStringLiteral("The line was lost."), stamp);
    EXPECT_EQ(device.data().toStdString(),
              "{\"record\":41,\"time\":\"2026-11-21T12:00:00\",\"fluorescence\":700,"
              "\"computer_time\":\"2026-11-21T12:00:01.250+01:00\"}\n"
              "{\"computer_time\":\"2026-11-21T12:00:01.250+01:00\",\"note\":\"The line was lost.\"}\n");
}

TEST(Csv, IsTheSameUnderEveryLocale) {
    TableDescription table = tableOf(RowLayout::Glow);
    table.calculateWith({.glow = {{0.5, 0.25}}, .trx = {}});
    const auto rows = {"1|11/21/26|9:05:07|1234567.5", "1000000|11/21/26|9:05:07|8"};
    const std::string usual = csv(table, rows);
    const QByteArray metadata = csvMetadata(QStringLiteral("a.csv"), table, {}, {});
    QLocale::setDefault(QLocale(QLocale::German));
    const std::string german = csv(table, rows);
    const QByteArray germanMetadata = csvMetadata(QStringLiteral("a.csv"), table, {}, {});
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(german, usual);
    EXPECT_EQ(germanMetadata, metadata);
    EXPECT_EQ(usual, "record,time,fluorescence,concentration\r\n"
                     "1,2026-11-21T09:05:07,1234567.5,308641.75\r\n"
                     "1000000,2026-11-21T09:05:07,8,1.875\r\n");
}

TEST(CsvMetadata, SaysWhatIsKnownAndNothingElse) {
    TableDescription table = tableOf(RowLayout::Glow);
    table.firmware = 5.5;
    table.settings = LoggerSettings{.logEnabled = true, .samplesPerPoint = QStringLiteral("200")};
    table.clockOffset = -3;
    table.source = QStringLiteral("lake.txt");
    table.program = QStringLiteral("ORV Host 1.0.0");
    table.made = QDateTime(QDate(2026, 11, 21), QTime(9, 0), Qt::UTC);
    table.calculateWith({.glow = {{100, 0.012}}, .trx = {}});
    TableReport report;
    report.rows = 12;
    report.unreadableTimes = 1;
    EXPECT_EQ(csvMetadata(QStringLiteral("/home/a/lake.csv"), table, {firstHistoryLine(table)}, report).toStdString(),
              R"({
    "@context": "http://www.w3.org/ns/csvw",
    "dc:created": "2026-11-21T09:00:00.000Z",
    "dc:source": "lake.txt",
    "dc:title": "Rows of GLOW, firmware 5.5",
    "notes": [
        {
            "calibration": {
                "fluorescence_offset": 100,
                "fluorescence_scale": 0.012
            },
            "clock": {
                "secondsAheadOfComputer": -3
            },
            "instrument": {
                "firmware": 5.5,
                "type": "GLOW"
            },
            "settings": {
                "append": false,
                "autoStart": false,
                "auxAdc": false,
                "gain": false,
                "logEnabled": true,
                "samplesPerPoint": 200,
                "wakeUp": false
            }
        },
        {
            "history": [
                "2026-11-21T09:00:00.000Z: written by ORV Host 1.0.0 from lake.txt"
            ]
        },
        {
            "report": {
                "absentValues": 0,
                "cutOffLines": 0,
                "missingRecords": 0,
                "remarks": [
                    "1 time could not be read and is missing."
                ],
                "rows": 12,
                "rowsLeftOut": 0,
                "unreadableLines": 0,
                "unreadableNumbers": 0,
                "unreadableTimes": 1
            }
        }
    ],
    "tableSchema": {
        "columns": [
            {
                "datatype": "integer",
                "dc:description": "Begins anew where the rows before had been cleared.",
                "dc:title": "Record number",
                "name": "record",
                "schema:unitText": "1",
                "titles": "record"
            },
            {
                "datatype": {
                    "base": "dateTime",
                    "format": "yyyy-MM-ddTHH:mm:ss"
                },
                "dc:description": "As the instrument's own clock gives it: it knows no time zone, and a step of it lasts 4/3 s, so that rows may have the same time.",
                "dc:title": "Time by the instrument's clock",
                "name": "time",
                "titles": "time"
            },
            {
                "datatype": "number",
                "dc:description": "Raw counts, as received.",
                "dc:title": "Fluorescence",
                "name": "fluorescence",
                "schema:unitText": "count",
                "titles": "fluorescence"
            },
            {
                "datatype": "number",
                "dc:description": "(counts - offset) * scale, rounded down to five decimals; offset 100, scale 0.012.",
                "dc:title": "Concentration",
                "name": "concentration",
                "schema:unitText": "ug L-1",
                "titles": "concentration"
            }
        ]
    },
    "url": "lake.csv"
}
)");
}

TEST(CsvMetadata, OfValuesThatMayBeCalculatedNamesNoUnits) {
    TableDescription table = tableOf(RowLayout::TrxNewer);
    table.values = TableDescription::Values::Unknown;
    std::string units;
    for (const Column& column : columnsOf(table)) {
        units += (column.name + u'=' + column.units + u' ').toStdString();
    }
    EXPECT_EQ(units, "record=1 time= scattering_100= scattering_125= scattering_150= reference=count ");
    EXPECT_FALSE(csvMetadata(QStringLiteral("a.csv"), table, {}, {}).contains("firmware"));
}

} // namespace
} // namespace orv
