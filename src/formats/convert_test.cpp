// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/convert.h"

#include "formats/tablereader.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

const QByteArray newerSheet = "V\t512 2\r\nlake.txt\r\n\r\r\r\n"
                              "Data Point\tDate\tTime\t100\t125\t150\tREF 150\r\n"
                              "1\t1/5/99\t9:05:07\t10\t20\t30\t40\t\t\r"
                              "2\t1/5/99\t9:05:08\t11\t21\t31\t41\t\t\r";
const QByteArray olderSheet = "V\t412 1\r\nlake.txt\r\n\r\r\r\n"
                              "Data Point\tDate\tTime\t100\tREF 100\t125\tREF 125\t150\tREF 150\r\n"
                              "1\t1/5/99\t9:05:07\t10\t11\t20\t21\t30\t\r";
const QByteArray glowSheet = "F\t5.5 1\r\nlake.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n"
                             "1\t1/5/99\t9:05:07\t700\t\r";
const QByteArray newerRecord = "Orvtemp.tmp\t11/21/26\t9:00:00 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n"
                               "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n"
                               "1\t1/5/99\t9:05:07\t10\t\t20\t\t30\t40\r\n"
                               "noise\r\n"
                               "3\t1/5/99\t9:05:08\t11\t\t21\t\t31\t41\r\n"
                               "4\t1/5/99\t9:05:0";
const QByteArray olderRecord = "Orvtemp.tmp\t11/21/26\t9:00:00 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n"
                               "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n"
                               "20000\t1/5/99\t9:05:07\t10\t11\t20\t21\t30\t31\r\n"
                               "1\t1/5/99\t9:05:08\t12\t13\t22\t23\t32\t33\r\n";
const QByteArray newerDownload = "Filename\t11/21/26\t9:00:00 AM\r\nData File\r\n\r\r\r\n"
                                 "Data Point\tDate\tTime\t100\t125\t150\t150 REF\r\n"
                                 "40000\t1/5/99\t9:05:07\t10\t\t20\t\t30\t40\r\n";
const QByteArray olderDownload = "Filename\t11/21/26\t9:00:00 AM\r\nData File\r\n\r\r\r\n"
                                 "Data Point\tDate\tTime\t100\t100 REF\t125\t125 REF\t150\t150 REF\r\n"
                                 "1\t1/5/99\t9:05:07\t10\t11\t20\t21\t30\t31\r\n";
const QByteArray glowDownload = "Filename\t11/21/26\t9:00:00 AM\r\nData File\r\n\r\r\r\n"
                                "Data Point\tDate\tTime\tOutput\r\n"
                                "1\t1/5/99\t9:05:07\t700\r\n";

const std::string newerHeader = "record,time,scattering_100,scattering_125,scattering_150,reference\r\n";
const std::string olderHeader = "record,time,scattering_100,reference_100,scattering_125,reference_125,scattering_150,"
                                "reference_150\r\n";
const std::string glowHeader = "record,time,fluorescence\r\n";

class ConvertTest : public testing::Test {
protected:
    /// Converts files of these contents into "out.csv" and returns it, or the reason why not.
    std::string convert(const std::vector<QByteArray>& inputs, const ConvertOptions& options = {}) {
        QStringList names;
        for (const QByteArray& input : inputs) {
            names << folder.path(("in" + std::to_string(names.size() + 1) + ".txt").c_str());
            fill(names.back(), input);
        }
        const auto writer =
            makeRowWriter(FileFormat::Csv, {.name = folder.path("out.csv"), .existing = OutputFile::Existing::Replace});
        const Converted converted = convertFiles(names, *writer, options);
        report = converted.report;
        return converted.error.isEmpty() ? contentsOf(folder.path("out.csv")).toStdString()
                                         : QString(converted.error).remove(folder.path() + u'/').toStdString();
    }

    std::string sentences() const { return report.sentences().join(u'\n').toStdString(); }

    OwnFolder folder;
    TableReport report;
};

TEST_F(ConvertTest, EveryFileOfOursIsKnownByWhatItHolds) {
    EXPECT_EQ(convert({newerSheet}), newerHeader + "1,1999-01-05T09:05:07,10,20,30,40\r\n"
                                                   "2,1999-01-05T09:05:08,11,21,31,41\r\n");
    EXPECT_EQ(sentences(), "");
    EXPECT_EQ(convert({glowSheet}), glowHeader + "1,1999-01-05T09:05:07,700\r\n");
    EXPECT_EQ(convert({olderRecord}), olderHeader + "20000,1999-01-05T09:05:07,10,11,20,21,30,31\r\n"
                                                    "1,1999-01-05T09:05:08,12,13,22,23,32,33\r\n");
    EXPECT_EQ(sentences(), "");
    EXPECT_EQ(convert({newerDownload}), newerHeader + "40000,1999-01-05T09:05:07,10,20,30,40\r\n");
    EXPECT_EQ(convert({olderDownload}), olderHeader + "1,1999-01-05T09:05:07,10,11,20,21,30,31\r\n");
    EXPECT_EQ(convert({glowDownload}), glowHeader + "1,1999-01-05T09:05:07,700\r\n");
}

TEST_F(ConvertTest, WhatIsMissingIsTold) {
    EXPECT_EQ(convert({olderSheet}), olderHeader + "1,1999-01-05T09:05:07,10,11,20,21,30,\r\n");
    EXPECT_EQ(sentences(), "1 value was not there and is missing.\n"
                           "A sheet file has no column for the last reference of the older TRX.");
    EXPECT_EQ(convert({newerRecord}), newerHeader + "1,1999-01-05T09:05:07,10,20,30,40\r\n"
                                                    "3,1999-01-05T09:05:08,11,21,31,41\r\n");
    EXPECT_EQ(sentences(), "1 line could not be read as a row and is left out.\n"
                           "1 record number is left out between rows.\n"
                           "1 last line had no end and is left out.");
    EXPECT_TRUE(report.isIncomplete());
}

TEST_F(ConvertTest, SeveralFilesBecomeOne) {
    EXPECT_EQ(convert({newerSheet, newerRecord, newerDownload}), newerHeader +
                                                                     "1,1999-01-05T09:05:07,10,20,30,40\r\n"
                                                                     "2,1999-01-05T09:05:08,11,21,31,41\r\n"
                                                                     "1,1999-01-05T09:05:07,10,20,30,40\r\n"
                                                                     "3,1999-01-05T09:05:08,11,21,31,41\r\n"
                                                                     "40000,1999-01-05T09:05:07,10,20,30,40\r\n");
    EXPECT_EQ(report.rows, 5);
    const QByteArray metadata = contentsOf(folder.path("out.csv-metadata.json"));
    EXPECT_TRUE(metadata.contains("\"dc:source\": \"in1.txt, in2.txt, in3.txt\"")) << metadata.toStdString();
    EXPECT_FALSE(metadata.contains("\"firmware\"")) << "only one of them tells it";
}

TEST_F(ConvertTest, CountsBecomeValuesIfTheOperatorSaysSo) {
    EXPECT_EQ(convert({glowSheet}, {.holdCounts = true}), glowHeader + "1,1999-01-05T09:05:07,700\r\n");
    EXPECT_TRUE(contentsOf(folder.path("out.csv-metadata.json")).contains("Raw counts, as received."));
    EXPECT_EQ(convert({glowSheet}, {.calibration = Conversion{.glow = {{100, 0.5}}, .trx = {}}}),
              "record,time,fluorescence,concentration\r\n1,1999-01-05T09:05:07,700,300\r\n");
    EXPECT_EQ(convert({newerSheet}, {.calibration = Conversion{.glow = {{100, 0.5}}, .trx = {}}}),
              "in1.txt could not be converted. The calibration values are of another type of instrument.");
}

TEST_F(ConvertTest, FilesThatCannotBeConvertedLeaveNothing) {
    EXPECT_EQ(convert({newerSheet, glowSheet}), "in2.txt could not be converted. Its columns are others than those of "
                                                "in1.txt. Convert it into a file of its own.");
    EXPECT_EQ(convert({"nonsense"}).substr(0, 45), "in1.txt could not be converted. It is not a s");
    EXPECT_EQ(convert({newerDownload.left(newerDownload.indexOf("40000"))}),
              "in1.txt could not be converted. It holds no rows.");
    EXPECT_EQ(convert({}), "There is no file to convert.");
    EXPECT_FALSE(QFile::exists(folder.path("out.csv")));
    EXPECT_EQ(openTable(folder.path()).error, QStringLiteral("It is a folder or a device, not a file."));
    EXPECT_EQ(openTable(folder.path("none")).error, QStringLiteral("It cannot be read: No such file or directory."));
}

TEST_F(ConvertTest, ASheetThatIsConvertedIntoASheetIsTheSame) {
    fill(folder.path("in.txt"), newerSheet);
    const auto writer = makeRowWriter(FileFormat::Sheet, {.name = folder.path("lake.txt")});
    EXPECT_EQ(convertFiles({folder.path("in.txt")}, *writer, {}).error, QString());
    EXPECT_EQ(contentsOf(folder.path("lake.txt")).toStdString(), newerSheet.toStdString().substr(0, 200));
}

TEST_F(ConvertTest, WhatASheetHasNoColumnForIsTold) {
    fill(folder.path("older.txt"), olderRecord);
    fill(folder.path("newer.txt"), newerDownload);
    constexpr std::pair<const char*, const char*> told[] = {
        {"older.txt", "2 last references of the older TRX have no column in a sheet file and are left out; .csv, .nc "
                      "and .jsonl have one."},
        {"newer.txt", ""}};
    for (const auto& [name, sentence] : told) {
        const auto writer = makeRowWriter(FileFormat::Sheet,
                                          {.name = folder.path("lake.txt"), .existing = OutputFile::Existing::Replace});
        const Converted converted = convertFiles({folder.path(name)}, *writer, {});
        EXPECT_EQ(converted.error, QString());
        EXPECT_EQ(converted.report.sentences().join(u' ').toStdString(), sentence);
        EXPECT_EQ(converted.report.isIncomplete(), *sentence != '\0') << name;
    }
}

} // namespace
} // namespace orv
