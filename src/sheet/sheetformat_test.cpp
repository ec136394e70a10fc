// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetformat.h"

#include "sheet/sheetfiles.h"
#include "testing/sheettest.h"

namespace orv {
namespace {

const QByteArray newerFile = "V\t512 2\r\nlake.txt\r\n\r\r\r\n"
                             "Data Point\tDate\tTime\t100\t125\t150\tREF 150\r\n"
                             "1\t1/5/99\t9:05:07\t10\t20\t30\t40\t\t\r"
                             "2\t1/5/99\t9:05:08\t11\t21\t31\t41\t\t\r";
const QByteArray glowFile = "f\t5.5 1\r\nlake.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n"
                            "1\t1/5/99\t9:05:07\t700\t\r";

std::string rowsOf(const LoadedSheet& sheet) {
    QByteArray all;
    for (const QByteArray& row : sheet.rows) {
        all += QByteArray(row).replace('\t', '|') + '\n';
    }
    return all.toStdString();
}

const std::string newerRows = "1|1/5/99|9:05:07|10|20|30|40|\n2|1/5/99|9:05:08|11|21|31|41|\n";

void expectNewer(const QByteArray& file) {
    const LoadedSheet loaded = parseSheetFile(file);
    EXPECT_EQ(loaded.error.toStdString(), "");
    EXPECT_EQ(loaded.type, (DataSheet::Type{.letter = QStringLiteral("V"), .firmware = 512.0}));
    EXPECT_EQ(rowsOf(loaded), newerRows);
}

void expectRefused(const QByteArray& file, const char* opening) {
    const LoadedSheet loaded = parseSheetFile(file);
    EXPECT_TRUE(loaded.error.startsWith(QLatin1String(opening))) << file.left(60).toStdString() << "\n"
                                                                 << loaded.error.toStdString();
    EXPECT_TRUE(loaded.rows.empty());
}

TEST(LoadedSheet, ReadsWhatThisProgramWrites) {
    expectNewer(newerFile);
    const LoadedSheet glow = parseSheetFile(glowFile);
    EXPECT_EQ(glow.type, (DataSheet::Type{.letter = QStringLiteral("f"), .firmware = 5.5}));
    EXPECT_EQ(rowsOf(glow), "1|1/5/99|9:05:07|700\n");
}

TEST(LoadedSheet, ReadsAnyLineEnd) {
    const QByteArray bare =
        QByteArray(newerFile).replace("\r\n\r\r\r\n", "\n\n").replace("\r\n", "\n").replace('\r', '\n');
    ASSERT_FALSE(bare.contains('\r'));
    expectNewer(bare);
    expectNewer(QByteArray(bare).replace('\n', "\r\n"));
    expectNewer(QByteArray(bare).replace('\n', '\r'));
    expectNewer(QByteArray(newerFile).replace('\r', "\r\n").replace("\r\n\n", "\r\n"));
}

TEST(LoadedSheet, ReadsWhatASpreadsheetMakesOfIt) {
    expectNewer(
        "V\t512 2\t\t\t\t\t\t\t\r\nlake.txt\t\t\t\t\t\t\t\r\n\t\t\t\t\t\t\t\r\n\t\t\t\t\t\t\t\r\n\t\t\t\t\t\t\t\r\n"
        "Data Point\tDate\tTime\t100\t125\t150\tREF 150\t\r\n"
        "1\t1/5/99\t9:05:07\t10\t20\t30\t40\t\r\n"
        "2\t1/5/99\t9:05:08\t11\t21\t31\t41\t\r\n"
        "\t\t\t\t\t\t\t\r\n"); // every line padded to the widest
    expectNewer("V\t512 2\nlake.txt\n\n\n\nData Point\tDate\tTime\t100\t125\t150\tREF 150\n"
                "1\t1/5/99\t9:05:07\t10\t20\t30\t40\n"
                "2\t1/5/99\t9:05:08\t11\t21\t31\t41\n"); // empty cells at the end left out
    expectNewer("\"V\"\t\"512 2\"\n\"lake.txt\"\n\n\"Data Point\"\t\"Date\"\t\"Time\"\t\"100\"\n"
                "\"1\"\t\"1/5/99\"\t\"9:05:07\"\t10\t20\t30\t\"40\"\t\"\"\n"
                "\"2\"\t\"1/5/99\"\t\"9:05:08\"\t11\t21\t31\t\"41\"\n"); // text cells in quotes
    expectNewer(newerFile + "\r\n\r\n");
    expectNewer("V\t512 2\nlake.txt\n\nData Point\n1\t1/5/99\t9:05:07\t10\t20\t30\t40\n"
                "2\t1/5/99\t9:05:08\t11\t21\t31\t41\n\"\"\t\"\"\n\t\t\t\t\t\t\t\tnote\n"); // empty rows
}

TEST(LoadedSheet, QuotesInsideACellStay) {
    const LoadedSheet loaded =
        parseSheetFile("F\t310 3\nx\n\nData Point\n1\ta\"b\t\"\tc\n2\t\"\"\t\"d\te\"\n3\t\t\tf\n");
    EXPECT_EQ(rowsOf(loaded), "1|a\"b|\"|c\n2||\"d|e\"\n3|||f\n");
}

TEST(LoadedSheet, CellsBeyondTheLayoutAreLeftOutAndMissingOnesAreEmpty) {
    const LoadedSheet loaded = parseSheetFile("F\t310 2\nx\n\nData Point\n1\td\tt\t7\tnote\t\n2\td\n");
    EXPECT_EQ(rowsOf(loaded), "1|d|t|7\n2|d||\n");
}

TEST(LoadedSheet, FirmwareOf500IsTheNewerGeneration) {
    EXPECT_EQ(parseSheetFile("v\t500 0\nx\nData Point\n").type.layout(), RowLayout::TrxNewer);
    EXPECT_EQ(parseSheetFile("v\t499.9 0\nx\nData Point\n").type.layout(), RowLayout::TrxOlder);
    EXPECT_EQ(parseSheetFile("F\t500 0\nx\nData Point\n").type.layout(), RowLayout::Glow);
}

TEST(LoadedSheet, RefusesWhatIsNoSheet) {
    const QByteArray everyByte = [] {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte) {
            bytes += static_cast<char>(byte);
        }
        return bytes;
    }();
    const QByteArrayList files{
        "",
        "\r\n",
        "\t\t\t\r\n",
        everyByte,
        QByteArray(3000, '\0'),
        QByteArray("V\0\t512 2\r\n", 10) + newerFile.mid(9),
        "Filename\t11/21/26\t9:30:15 AM\r\nData File\r\n\r\r\r\nData Point\tDate\tTime\tOutput\r\n",
        "Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nData File\r\n",
        "X" + newerFile.mid(1),
        " " + newerFile,
        "VV" + newerFile.mid(1),
        newerFile.mid(1),
        "V\r\nlake.txt\r\n",
        "V\t\r\nlake.txt\r\n",
        "V\t512\r\nlake.txt\r\n\r\r\r\nData Point\r\n",
    };
    for (const QByteArray& file : files) {
        expectRefused(file, "It is not a sheet: ");
    }
    for (const char* beginning : {"V 512 2", "V\t512 two", "V\t512 2.5", "V\t512 -1", "V\t512 -32768", "V\t512 2 2",
                                  "V\t1e999 2", "V\t512 99999999999999999999"}) {
        expectRefused(beginning + newerFile.mid(7), "It is not a sheet: ");
    }
}

TEST(LoadedSheet, RefusesMoreRowsThanTheCounterHolds) {
    const auto fileOf = [](int rows) {
        return "F\t310 " + QByteArray::number(rows) + "\r\nx\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n" +
               QByteArray("1\t1/5/99\t9:05:07\t7\t\r").repeated(rows);
    };
    EXPECT_EQ(parseSheetFile(fileOf(32767)).rows.size(), 32767U);
    expectRefused(fileOf(32768), "It has 32768 rows; the sheet holds at most 32767.");
    expectRefused("F\t310 2000000000\r\n", "It has 2000000000 rows; the sheet holds at most 32767.");
}

TEST(LoadedSheet, RefusesAFileCutShortAtEveryPlace) {
    for (const QByteArray& file : {newerFile, glowFile}) {
        ASSERT_EQ(parseSheetFile(file).error, QString());
        for (qsizetype size = 0; size < file.size(); ++size) {
            const LoadedSheet loaded = parseSheetFile(file.left(size));
            EXPECT_NE(loaded.error, QString()) << size;
            EXPECT_TRUE(loaded.rows.empty()) << size;
        }
    }
    const QByteArray empty = "V\t512 0\r\nlake.txt\r\n\r\r\r\nData Point\tDate\tTime\t100\t125\t150\tREF 150\r\n";
    ASSERT_EQ(parseSheetFile(empty).error, QString());
    for (qsizetype size = 0; size < empty.size() - 1; ++size) {
        EXPECT_NE(parseSheetFile(empty.left(size)).error, QString()) << size;
    }
    expectRefused(newerFile.chopped(1), "It is cut short: its last line has no end.");
    expectRefused(newerFile.left(newerFile.indexOf("2\t1/5")), "It is cut short. Its first line promises 2 rows, but "
                                                               "there are 1.");
    expectRefused("V\t512 0\r\nlake.txt\r\n\r\r\r\n", "It is cut short: the column headers are missing.");
}

TEST(LoadedSheet, RefusesMoreRowsThanItsFirstLineSays) {
    expectRefused(newerFile + "3\t1/5/99\t9:05:09\t12\t22\t32\t42\t\t\r",
                  "It holds more than it says. Its first line promises 2 rows, but there are 3.");
    expectRefused(QByteArray(newerFile).replace("512 2", "512 0"), "It holds more than it says.");
}

class RoundTripTest : public SheetTest {
protected:
    void fillWith(int rowCount) {
        const int values = valueCount(sheet.type().layout());
        for (int row = 0; row < rowCount; ++row) {
            DataRow added{.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:07"), .values = {}};
            for (int value = 0; value < values; ++value) {
                added.values << QString::number(row * 7 + value);
            }
            rows.addRow(added);
        }
    }

    void expectRoundTrip() {
        const QString name = QStringLiteral("/some/where/lake.txt");
        const QByteArray first = sheetFileBytes(sheet, name);
        LoadedSheet loaded = parseSheetFile(first);
        ASSERT_EQ(loaded.error.toStdString(), "");
        ASSERT_EQ(loaded.rows.size(), static_cast<std::size_t>(sheet.rowCount()));
        rows.replaceBy(std::move(loaded));
        EXPECT_TRUE(sheetFileBytes(sheet, name) == first);
    }
};

TEST_F(RoundTripTest, EveryTypeComesBackByteForByte) {
    const std::pair<const char*, const char*> types[] = {{"V", "512"}, {"v", "412"}, {"V", "500"},     {"F", "310"},
                                                         {"f", "5.5"}, {"V", "-1"},  {"V", "________"}};
    for (const auto& [letter, firmware] : types) {
        for (const int count : {0, 1, 2, 13}) {
            rows.clearSpreadSheet();
            identify(letter, firmware);
            fillWith(count);
            expectRoundTrip();
        }
    }
}

TEST_F(RoundTripTest, FullSheetComesBackByteForByte) {
    for (const char* firmware : {"512", "412"}) {
        rows.clearSpreadSheet();
        identify("V", firmware);
        fillWith(20000);
        expectRoundTrip();
    }
}

TEST_F(RoundTripTest, CellsComeBackWhateverTheInstrumentSentInThem) {
    identify("V", "512");
    const auto text = [](const char* cell) { return QString::fromLatin1(cell); };
    rows.addRow(
        {.date = text("1\xFF\x01/x"), .time = text(""), .values = {text(" 1 "), text(""), text("\x0B"), text("")}});
    rows.addRow({.date = text(""), .time = text(""), .values = {text(""), text(""), text(""), text("")}});
    rows.addRow(
        {.date = text("\"1/5\""), .time = text("\"\""), .values = {text("\""), text("1"), text("2"), text("3")}});
    expectRoundTrip();
}

TEST_F(RoundTripTest, NameWithAnyLettersOnTheSecondLineDoesNotMatter) {
    identify("F", "310");
    fillWith(1);
    for (const QString& name :
         {QString::fromUtf8("/a/Ærø \t\"x\".txt"), QStringLiteral("V"), QStringLiteral("/a/two\r\nlines.txt")}) {
        EXPECT_EQ(parseSheetFile(sheetFileBytes(sheet, name)).rows.size(), 1U);
    }
}

} // namespace
} // namespace orv
