// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/rowwriter.h"

#include "formats/netcdflibrary.h"
#include "formats/rowparser.h"
#include "sheet/sheetformat.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

const QDateTime now(QDate(2026, 11, 21), QTime(9, 30, 15), Qt::UTC);

TableDescription glow() {
    TableDescription table;
    table.layout = RowLayout::Glow;
    return table;
}

TableRow rowOf(int number) {
    TableRow row;
    row.record = number;
    row.time = 1795251907 + number;
    row.values[0] = 700 + number;
    return row;
}

class RowWriterTest : public testing::Test {
protected:
    std::unique_ptr<RowWriter> make(const char* name,
                                    OutputFile::Existing existing = OutputFile::Existing::Refuse) const {
        const QString path = folder.path(name);
        return makeRowWriter(*formatOfName(path),
                             {.name = path, .existing = existing, .now = now, .asItComes = asItComes});
    }

    /// Writes so many rows; returns the first reason why something failed.
    static std::string write(RowWriter& writer, int rows = 2) {
        QString reason = writer.begin(glow());
        TableReport report;
        for (; report.rows < rows && reason.isEmpty(); ++report.rows) {
            reason = writer.add(rowOf(static_cast<int>(report.rows) + 1));
        }
        return (reason.isEmpty() ? writer.finish(report) : reason).toStdString();
    }

    std::string files() const { return folder.files().join(u' ').toStdString(); }
    std::string contents(const char* name) const { return contentsOf(folder.path(name)).toStdString(); }

    OwnFolder folder;
    bool asItComes = false;
};

const std::string twoRows = "record,time,fluorescence\r\n1,2026-11-21T09:05:08,701\r\n2,2026-11-21T09:05:09,702\r\n";

TEST(FileFormat, IsToldByTheNamesEnd) {
    const std::vector<std::pair<const char*, std::optional<FileFormat>>> table{
        {"a.csv", FileFormat::Csv},         {"a.b.CSV", FileFormat::Csv}, {"a.nc", FileFormat::NetCdf},
        {"a.jsonl", FileFormat::JsonLines}, {"a.txt", FileFormat::Sheet}, {"a.ndjson", FileFormat::JsonLines},
        {"a.csv.gz", std::nullopt},         {"csv", std::nullopt},        {"", std::nullopt}};
    for (const auto& [name, format] : table) {
        EXPECT_EQ(formatOfName(QString::fromLatin1(name)), format) << name;
    }
}

TEST_F(RowWriterTest, AFileAppearsAtTheEndAndNotBefore) {
    for (const char* name : {"a.csv", "a.nc", "a.jsonl", "a.txt"}) {
        {
            const auto writer = make(name);
            ASSERT_EQ(writer->begin(glow()), QString());
            ASSERT_EQ(writer->add(rowOf(1)), QString());
            EXPECT_FALSE(QFile::exists(folder.path(name))) << name;
        }
        EXPECT_EQ(files(), "") << name << " left something";
    }
    EXPECT_EQ(write(*make("a.csv")), "");
    EXPECT_EQ(files(), "a.csv a.csv-metadata.json");
    EXPECT_EQ(contents("a.csv"), twoRows);
}

TEST_F(RowWriterTest, ARowThatIsWrittenAsItComesStays) {
    asItComes = true;
    {
        const auto writer = make("a.csv");
        ASSERT_EQ(writer->begin(glow()), QString());
        EXPECT_EQ(contents("a.csv"), "record,time,fluorescence\r\n");
        writer->add(rowOf(1));
        EXPECT_EQ(contents("a.csv") + "2,2026-11-21T09:05:09,702\r\n", twoRows);
        writer->note(QStringLiteral("The line was lost."), now);
    }
    EXPECT_EQ(files(), "a.csv a.csv-metadata.json");
    EXPECT_NE(contents("a.csv-metadata.json").find("\"2026-11-21T09:30:15.000Z: The line was lost.\""),
              std::string::npos);
    EXPECT_EQ(contents("a.csv-metadata.json").find("\"report\""), std::string::npos) << "it is not complete";
}

TEST_F(RowWriterTest, NothingIsReplacedUnasked) {
    for (const bool comes : {false, true}) {
        asItComes = comes;
        for (const char* name : {"a.csv", "a.nc", "a.jsonl", "a.txt"}) {
            fill(folder.path(name), "older");
            EXPECT_EQ(write(*make(name)), "a file of that name is there already");
            EXPECT_EQ(contents(name), "older");
        }
        fill(folder.path("b.csv-metadata.json"), "older");
        EXPECT_EQ(write(*make("b.csv")),
                  folder.path("b.csv-metadata.json").toStdString() + ": a file of that name is there already");
    }
    EXPECT_EQ(files(), "a.csv a.jsonl a.nc a.txt b.csv-metadata.json");
    QDir(folder.path()).mkdir(QStringLiteral("folder.csv"));
    EXPECT_EQ(write(*make("folder.csv", OutputFile::Existing::Replace)), "it is a folder or a device, not a file");
}

TEST_F(RowWriterTest, AFileThatComesMeanwhileStays) {
    const auto writer = make("a.jsonl");
    writer->begin(glow());
    fill(folder.path("a.jsonl"), "of another");
    EXPECT_EQ(writer->finish({}), QStringLiteral("a file of that name is there already"));
    EXPECT_EQ(contents("a.jsonl"), "of another");
}

TEST_F(RowWriterTest, TheOlderFileIsKeptUnderADatedName) {
    for (const bool comes : {false, true}) {
        asItComes = comes;
        fill(folder.path("a.csv"), "older");
        fill(folder.path("a.csv-metadata.json"), "older's");
        EXPECT_EQ(write(*make("a.csv", OutputFile::Existing::KeepDated)), "");
        EXPECT_EQ(files(), "a-20261121-093015.csv a-20261121-093015.csv-metadata.json a.csv a.csv-metadata.json");
        EXPECT_EQ(contents("a.csv"), twoRows);
        EXPECT_EQ(contents("a-20261121-093015.csv"), "older");
        EXPECT_EQ(contents("a-20261121-093015.csv-metadata.json"), "older's");
        for (const QString& name : folder.files()) {
            QFile::remove(folder.path() + u'/' + name);
        }
    }
}

TEST_F(RowWriterTest, MetadataWithoutTheirFileStay) {
    for (const bool comes : {false, true}) {
        for (const auto existing : {OutputFile::Existing::KeepDated, OutputFile::Existing::Replace}) {
            asItComes = comes;
            fill(folder.path("a.csv-metadata.json"), "of another");
            EXPECT_EQ(write(*make("a.csv", existing)), "");
            EXPECT_EQ(files(), "a.csv a.csv-metadata-20261121-093015.json a.csv-metadata.json");
            EXPECT_EQ(contents("a.csv-metadata-20261121-093015.json"), "of another");
            for (const QString& name : folder.files()) {
                QFile::remove(folder.path() + u'/' + name);
            }
        }
    }
}

TEST_F(RowWriterTest, AFileIsReplacedOnceTheOperatorHasSaidSo) {
    fill(folder.path("a.csv"), "older");
    EXPECT_EQ(write(*make("a.csv", OutputFile::Existing::Replace)), "");
    EXPECT_EQ(contents("a.csv"), twoRows);
    EXPECT_EQ(files(), "a.csv a.csv-metadata.json");
}

TEST_F(RowWriterTest, OnAFullDiskNothingAppears) {
    for (const char* name : {"a.csv", "a.nc", "a.jsonl", "a.txt"}) {
        fill(folder.path(name), "older");
        const auto writer = make(name, OutputFile::Existing::Replace);
        const FileSizeLimit full(1000);
        EXPECT_NE(write(*writer, 30000), "") << name;
        EXPECT_EQ(contents(name), "older");
    }
    EXPECT_EQ(files(), "a.csv a.jsonl a.nc a.txt");
}

TEST_F(RowWriterTest, OnAFullDiskWholeRowsStay) {
    asItComes = true;
    {
        const FileSizeLimit full(80);
        EXPECT_NE(write(*make("a.jsonl")), "");
    }
    EXPECT_EQ(contents("a.jsonl"), "{\"record\":1,\"time\":\"2026-11-21T09:05:08\",\"fluorescence\":701}\n");
}

TEST_F(RowWriterTest, ASheetIsOneThatCanBeOpened) {
    EXPECT_EQ(write(*make("a.txt"), 32767), "");
    const LoadedSheet loaded = readSheetFile(folder.path("a.txt"));
    EXPECT_EQ(loaded.error, QString());
    ASSERT_EQ(loaded.rows.size(), 32767U);
    EXPECT_EQ(loaded.rows[0].toStdString(), "1\t11/21/26\t9:05:08\t701");
    EXPECT_EQ(write(*make("b.txt"), 32768), "a sheet holds at most 32767 rows");
    EXPECT_EQ(files(), "a.txt");
}

TEST(NetCdfLibrary, ThatIsMissingIsAskedFor) {
    NetCdfLibrary library;
    EXPECT_EQ(library.load({QStringLiteral("libnothing-of-that-name.so")}).toStdString(),
              "the netCDF library is missing. Install it (on Debian: apt install libnetcdf19), or choose a name that "
              "ends in .csv");
    EXPECT_EQ(library.load(), QString());
    EXPECT_NE(library.create, nullptr);
}

} // namespace
} // namespace orv
