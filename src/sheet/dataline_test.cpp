// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/dataline.h"

#include "settings/loggersettings.h"

#include <gtest/gtest.h>

#include <tuple>

namespace orv {
namespace {

TEST(RowLayout, TypeLetterInEitherCaseAndFirmwareGenerationDecide) {
    const std::tuple<const char*, double, RowLayout> cases[] = {
        {"V", 499.0, RowLayout::TrxOlder}, {"V", 499.9, RowLayout::TrxOlder}, {"V", 500.0, RowLayout::TrxNewer},
        {"V", 512.0, RowLayout::TrxNewer}, {"V", 0.0, RowLayout::TrxOlder},   {"v", 412.0, RowLayout::TrxOlder},
        {"v", 500.0, RowLayout::TrxNewer}, {"F", 412.0, RowLayout::Glow},     {"F", 512.0, RowLayout::Glow},
        {"f", 0.0, RowLayout::Glow},       {"", 512.0, RowLayout::Unknown},   {"X", 512.0, RowLayout::Unknown},
        {"VF", 512.0, RowLayout::Unknown},
    };
    for (const auto& [letter, firmware, layout] : cases) {
        EXPECT_EQ(rowLayout(instrumentType(QString::fromLatin1(letter)), firmware), layout)
            << letter << ' ' << firmware;
    }
}

TEST(RowLayout, ValuesAfterDateAndTimeCount) {
    EXPECT_EQ(valueCount(RowLayout::Glow), 1);
    EXPECT_EQ(valueCount(RowLayout::TrxOlder), 6);
    EXPECT_EQ(valueCount(RowLayout::TrxNewer), 4);
    EXPECT_EQ(valueCount(RowLayout::Unknown), 6);
}

TEST(HeaderRows, EachPlaceNamesTheColumnsItsOwnWay) {
    const std::tuple<HeaderPlace, RowLayout, const char*> cases[] = {
        {HeaderPlace::GridOnOpening, RowLayout::TrxOlder, "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref"},
        {HeaderPlace::GridOnOpening, RowLayout::TrxNewer, "Data #|Date|Time|100|125|150|Ref"},
        {HeaderPlace::GridOnOpening, RowLayout::Glow, "Data #|Date|Time|Output"},
        {HeaderPlace::GridOnClearing, RowLayout::TrxOlder, "Data #|Date|Time|100|Ref1|125|Ref2|150|Ref3"},
        {HeaderPlace::GridOnClearing, RowLayout::TrxNewer, "Data #|Date|Time|100|125|150|Ref"},
        {HeaderPlace::GridOnClearing, RowLayout::Glow, "Data #|Date|Time|Output"},
        {HeaderPlace::SheetFile, RowLayout::TrxOlder, "Data Point|Date|Time|100|REF 100|125|REF 125|150|REF 150"},
        {HeaderPlace::SheetFile, RowLayout::TrxNewer, "Data Point|Date|Time|100|125|150|REF 150"},
        {HeaderPlace::SheetFile, RowLayout::Glow, "Data Point|Date|Time|Counts"},
    };
    for (const auto& [place, layout, header] : cases) {
        EXPECT_TRUE(headerRow(place, RowLayout::Unknown).isEmpty());
        EXPECT_EQ(headerRow(place, layout).join(u'|').toStdString(), header);
    }
}

QString joined(const std::optional<DataRow>& row) {
    return row ? (QStringList{row->date, row->time} + row->values).join(u'|') : QStringLiteral("(no row)");
}

std::string read(const char* line, RowLayout layout, const Conversion& conversion = {}) {
    return joined(readDataLine(QString::fromLatin1(line), layout, conversion)).toStdString();
}

TEST(DataLine, FieldsOfEachLayoutBecomeTheRow) {
    const std::tuple<RowLayout, const char*, const char*> cases[] = {
        {RowLayout::Glow, "11/21/26\t24530\t512", "11/21/26|9:05:06|512"},
        {RowLayout::TrxNewer, "11/21/26\t24530\t1\t2\t3\t4", "11/21/26|9:05:06|1|2|3|4"},
        {RowLayout::TrxOlder, "11/21/26\t24530\t1\t2\t3\t4\t5\t6", "11/21/26|9:05:06|1|2|3|4|5|6"},
        // An empty field is a cell too.
        {RowLayout::TrxNewer, "11/21/26\t24530\t1\t\t3\t", "11/21/26|9:05:06|1||3|"},
        // A tab after the last field and further fields are left out.
        {RowLayout::Glow, "11/21/26\t24530\t512\t", "11/21/26|9:05:06|512"},
        {RowLayout::Glow, "11/21/26\t24530\t512\t7\t8", "11/21/26|9:05:06|512"},
        {RowLayout::TrxNewer, "11/21/26\t24530\t1\t2\t3\t4\t", "11/21/26|9:05:06|1|2|3|4"},
        {RowLayout::TrxNewer, "11/21/26\t24530\t1\t2\t3\t4\t5\t6", "11/21/26|9:05:06|1|2|3|4"},
        {RowLayout::TrxOlder, "11/21/26\t24530\t1\t2\t3\t4\t5\t6\t7", "11/21/26|9:05:06|1|2|3|4|5|6"},
        // Too few fields are no row.
        {RowLayout::Glow, "", "(no row)"},
        {RowLayout::Glow, "11/21/26\t24530", "(no row)"},
        {RowLayout::Glow, "11/21/26 24530 512", "(no row)"},
        {RowLayout::TrxNewer, "11/21/26\t24530\t1\t2\t3", "(no row)"},
        {RowLayout::TrxOlder, "11/21/26\t24530\t1\t2\t3\t4\t5", "(no row)"},
        {RowLayout::TrxOlder, "11/21/26\t24530\t1\t2\t3\t4", "(no row)"},
        {RowLayout::Unknown, "11/21/26\t24530", "(no row)"},
        // Any line break ends the last field.
        {RowLayout::Glow, "11/21/26\t24530\t512\r", "11/21/26|9:05:06|512"},
        {RowLayout::Glow, "11/21/26\t24530\t512\nnoise", "11/21/26|9:05:06|512"},
        {RowLayout::TrxNewer, "11/21/26\t24530\t1\t2\r\t3\t4", "(no row)"},
        // Without an identified type one to six values are taken.
        {RowLayout::Unknown, "11/21/26\t24530\t1", "11/21/26|9:05:06|1"},
        {RowLayout::Unknown, "11/21/26\t24530\t1\t2\t3\t4", "11/21/26|9:05:06|1|2|3|4"},
        {RowLayout::Unknown, "11/21/26\t24530\t1\t2\t3\t4\t5\t6\t7", "11/21/26|9:05:06|1|2|3|4|5|6"},
        // The date is short, or as received if it is none.
        {RowLayout::Glow, "01/05/1999\t0\t1", "1/5/99|0:00:00|1"},
        {RowLayout::Glow, " 1-5-29 \t0\t1", "1/5/29|0:00:00|1"},
        {RowLayout::Glow, "13/45/26\t0\t1", "13/45/26|0:00:00|1"},
        {RowLayout::Glow, " ~#! \t0\t1", " ~#! |0:00:00|1"},
        {RowLayout::Glow, "\t0\t1", "|0:00:00|1"},
    };
    for (const auto& [layout, line, row] : cases) {
        EXPECT_EQ(read(line, layout), row) << line;
    }
}

TEST(DataLine, TimeCountIs24HourTimeOrAsReceivedIfItIsNone) {
    const auto timeOf = [](const std::string& count) {
        return read(("11/21/26\t" + count + "\t1").c_str(), RowLayout::Glow);
    };
    const std::pair<const char*, std::string> counts[] = {
        {"0", "0:00:00"},      {"2700", "1:00:00"},    {"32400", "12:00:00"}, {"35100", "13:00:00"},
        {"24530", "9:05:06"},  {"64799", "23:59:58"},  {" 2700 ", "1:00:00"}, {"999", "0:22:11"},
        {"64800", "24:00:00"}, {"2700.75", "1:00:01"},
    };
    for (const auto& [count, time] : counts) {
        EXPECT_EQ(timeOf(count), "11/21/26|" + time + "|1");
    }
    for (const std::string none : {"12x", "", "1e300"}) {
        EXPECT_EQ(timeOf(none), "11/21/26|" + none + "|1");
    }
}

TEST(ConvertedValue, IsCutToFiveDecimalsAsPlainText) {
    const std::tuple<const char*, double, double, const char*> cases[] = {
        {"1000", 100.0, 0.001, "0.9"},
        {"1000", 1.0, 0.123456789, "123.33333"},
        {"150", 50.0, 2.0, "200"},
        {"50", 50.0, 2.0, "50"},
        {"60", 50.0, 0.0, "60"},
        {"51", 50.0, 0.0000099, "51"},
        {"51", 50.0, 0.00001, "0.00001"},
        {"40", 50.0, 0.1, "-1"},
        {"49", 50.0, 0.0000001, "-0.00001"},
        {"0", 0.0, 1.0, "0"},
        {"65535", 0.0, 1e12, "65535000000000000"},
        {"2.5", 0.0, 1.0, "2.5"},
        {"1", 0.0, 1e308, "1"},
        {"0042", 42.0, 1.0, "0042"},
    };
    for (const auto& [counts, offset, scale, value] : cases) {
        EXPECT_EQ(convertedValue(QString::fromLatin1(counts), {.offset = offset, .scale = scale}).toStdString(), value)
            << counts << ' ' << offset << ' ' << scale;
    }
    for (const char* text : {"", "abc", "12x", "1 2"}) {
        EXPECT_EQ(convertedValue(QString::fromLatin1(text), {.offset = 5.0, .scale = 2.0}).toStdString(), text);
    }
}

TEST(DataLine, GlowConversionChangesItsOneValue) {
    const Conversion conversion{.glow = Conversion::Line{.offset = 12.0, .scale = 0.5}, .trx = {}};
    EXPECT_EQ(read("11/21/26\t0\t512", RowLayout::Glow, conversion), "11/21/26|0:00:00|250");
    EXPECT_EQ(read("11/21/26\t0\t12", RowLayout::Glow, conversion), "11/21/26|0:00:00|12");
    EXPECT_EQ(read("11/21/26\t0\t1\t2\t3\t4", RowLayout::TrxNewer, conversion), "11/21/26|0:00:00|1|2|3|4");
}

TEST(DataLine, TrxConversionChangesTheAnglesOfBothGenerationsButNoReference) {
    Conversion conversion;
    conversion.trx = {Conversion::Line{.offset = 0.0, .scale = 10.0}, Conversion::Line{.offset = 1.0, .scale = 100.0},
                      Conversion::Line{.offset = 2.0, .scale = 1000.0}};
    EXPECT_EQ(read("11/21/26\t0\t5\t6\t7\t8", RowLayout::TrxNewer, conversion), "11/21/26|0:00:00|50|500|5000|8");
    EXPECT_EQ(read("11/21/26\t0\t5\t6\t7\t8\t9\t10", RowLayout::TrxOlder, conversion),
              "11/21/26|0:00:00|50|6|600|8|7000|10");
    EXPECT_EQ(read("11/21/26\t0\t0\t1\t2\t8", RowLayout::TrxNewer, conversion), "11/21/26|0:00:00|0|1|2|8");
    EXPECT_EQ(read("11/21/26\t0\t5", RowLayout::Glow, conversion), "11/21/26|0:00:00|5");
    EXPECT_EQ(read("11/21/26\t0\t5\t6\t7\t8", RowLayout::Unknown, conversion), "11/21/26|0:00:00|5|6|7|8");
}

TEST(RequestedConversion, FollowsTheScreensOptionsAndBoxes) {
    SettingsState settings;
    settings.glowCalibration.offset = QStringLiteral("12.5 counts");
    settings.glowCalibration.scale = QStringLiteral(".02");
    const char* const offsets[] = {"1", "", "x"};
    for (std::size_t angle = 0; angle < 3; ++angle) {
        settings.trxCalibration.at(angle).offset = QString::fromLatin1(offsets[angle]);
        settings.trxCalibration.at(angle).scale = QString::number(angle + 2);
    }
    EXPECT_FALSE(requestedConversion(settings).glow);
    EXPECT_FALSE(requestedConversion(settings).trx);

    settings.glowProvideRawCounts = false;
    Conversion conversion = requestedConversion(settings);
    ASSERT_TRUE(conversion.glow);
    EXPECT_EQ(conversion.glow->offset, 12.5);
    EXPECT_EQ(conversion.glow->scale, 0.02);
    EXPECT_FALSE(conversion.trx);

    settings.trxProvideRawCounts = false;
    conversion = requestedConversion(settings);
    ASSERT_TRUE(conversion.trx);
    EXPECT_EQ(conversion.trx->at(0).offset, 1.0);
    EXPECT_EQ(conversion.trx->at(1).offset, 0.0);
    EXPECT_EQ(conversion.trx->at(2).offset, 0.0);
    EXPECT_EQ(conversion.trx->at(0).scale, 2.0);
    EXPECT_EQ(conversion.trx->at(2).scale, 4.0);
}

TEST(RecordLine, TrxHasSixValuesWithTheNewerGenerationsReferenceLast) {
    const auto line = [](std::initializer_list<const char*> values, RowLayout layout) {
        DataRow row{.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:07"), .values = {}};
        for (const char* value : values) {
            row.values << QString::fromLatin1(value);
        }
        return recordLine(7, row, layout).toStdString();
    };
    EXPECT_EQ(line({"512"}, RowLayout::Glow), "7\t1/5/99\t9:05:07\t512");
    EXPECT_EQ(line({"1", "2", "3", "4", "5", "6"}, RowLayout::TrxOlder), "7\t1/5/99\t9:05:07\t1\t2\t3\t4\t5\t6");
    EXPECT_EQ(line({"1", "2", "3", "4"}, RowLayout::TrxNewer), "7\t1/5/99\t9:05:07\t1\t\t2\t\t3\t4");
    EXPECT_EQ(line({"1", "2"}, RowLayout::Unknown), "7\t1/5/99\t9:05:07\t1\t2");
}

TEST(SheetCells, AreNumberDateTimeAndValues) {
    const DataRow row{
        .date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:07"), .values = {QStringLiteral("5")}};
    EXPECT_EQ(sheetCells(20000, row).join(u'|').toStdString(), "20000|1/5/99|9:05:07|5");
}

} // namespace
} // namespace orv
