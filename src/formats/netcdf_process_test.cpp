// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/convert.h"
#include "testing/folder.h"
#include "testing/processes.h"

#include <QStandardPaths>

#include <gtest/gtest.h>

#include <map>

namespace orv {
namespace {

/// Files as programs read them that no one here has written.
class NetCdfProcessTest : public testing::Test {
protected:
    void convert(const QByteArray& input, const ConvertOptions& options = {}) {
        fill(folder.path("in.txt"), input);
        for (const char* name : {"out.nc", "out.csv"}) {
            const QString out = folder.path(name);
            const auto writer = makeRowWriter(*formatOfName(out), {.name = out});
            EXPECT_EQ(convertFiles({folder.path("in.txt")}, *writer, options).error, QString());
        }
    }

    std::string run(const char* program, const QString& arguments) {
        const Ended ended = runToEnd(QString::fromLatin1(program), arguments, {}, folder.path());
        EXPECT_EQ(ended.status, 0) << program << ": " << ended.error;
        return ended.output;
    }

    /// The rows as Python's libraries read them.
    std::map<std::string, std::string> readByPython() {
        std::map<std::string, std::string> read;
        std::string* rows = nullptr;
        for (const QByteArray& line :
             QByteArray::fromStdString(run("/usr/bin/python3", QStringLiteral(READ_TABLES " out.nc out.csv")))
                 .split('\n')) {
            if (line == "pandas" || line == "xarray" || line == "netCDF4") {
                rows = &read[line.toStdString()];
            } else if (rows != nullptr && !line.isEmpty()) {
                *rows += line.toStdString() + '\n';
            }
        }
        return read;
    }

    void expectRows(const std::string& expected) {
        const auto read = readByPython();
        ASSERT_EQ(read.size(), 3U);
        for (const auto& [library, rows] : read) {
            EXPECT_TRUE(rows == expected) << library << " reads\n"
                                          << rows.substr(0, 1000) << "\ninstead of\n"
                                          << expected.substr(0, 1000);
        }
    }

    OwnFolder folder;
};

const QByteArray olderHeader = "Orvtemp.tmp\t11/21/26\t9:00:00 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n"
                               "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n";

/// A record file of so many rows, and what must be read of it.
std::pair<QByteArray, std::string> longTable(int rows) {
    QByteArray input = olderHeader;
    std::string expected;
    for (int row = 0; row < rows; ++row) {
        const int second = row * 4 / 3; // as the instrument's clock ticks, so that times are repeated
        const bool noTime = row % 1000 == 17;
        const bool noValue = row % 700 == 5;
        QByteArray line = QByteArray::number(row + 1) + '\t' + (noTime ? "13/21/26" : "11/21/26") + '\t' +
                          QByteArray::number(second / 3600) + ':' +
                          QByteArray::number(second / 60 % 60).rightJustified(2, '0') + ':' +
                          QByteArray::number(second % 60).rightJustified(2, '0');
        const QByteArray time = QByteArray::number(second / 3600).rightJustified(2, '0') + ':' +
                                QByteArray::number(second / 60 % 60).rightJustified(2, '0') + ':' +
                                QByteArray::number(second % 60).rightJustified(2, '0');
        QByteArray read = QByteArray::number(row + 1) + '|' + (noTime ? QByteArray() : "2026-11-21T" + time);
        for (int column = 0; column < 6; ++column) {
            const QByteArray value = QByteArray::number((row * 7 + column * 10007) % 65536);
            const bool missing = noValue && column == 2;
            line += '\t' + (missing ? QByteArray("?") : value);
            read += '|' + (missing ? QByteArray() : value);
        }
        input += line + "\r\n";
        expected += read.toStdString() + '\n';
    }
    return {input, expected};
}

TEST_F(NetCdfProcessTest, EveryValueOfALongTableIsReadByOthers) {
    const auto [input, expected] = longTable(9000); // more than two blocks
    convert(input);
    expectRows(expected);
}

TEST_F(NetCdfProcessTest, EveryValueOfACsvFileIsReadByLibreOffice) {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty()) {
        GTEST_SKIP() << "soffice is not installed (apt install --no-install-recommends libreoffice-calc)";
    }
    const auto read = [this] {
        // A profile of its own: another one may be in use.
        run("soffice", QStringLiteral("--headless -env:UserInstallation=file://%1/profile --convert-to fods out.csv")
                           .arg(folder.path()));
        return run("/usr/bin/python3", QStringLiteral(READ_OFFICE " out.fods"));
    };
    const auto [input, expected] = longTable(1500);
    convert(input);
    EXPECT_TRUE(read() == expected);
    for (const char* name : {"out.csv", "out.csv-metadata.json", "out.nc"}) {
        QFile::remove(folder.path(name));
    }
    convert("F\t5.5 1\r\nlake.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n"
            "1\t1/5/99\t9:05:07\t700\t\r",
            {.holdCounts = true, .calibration = Conversion{.glow = {{100, 0.01234571}}, .trx = {}}});
    EXPECT_EQ(read(), "1|1999-01-05T09:05:07|700|" + QByteArray::number(7.40742, 'g', 17).toStdString() + '\n');
}

TEST_F(NetCdfProcessTest, CalculatedValuesAreReadToTheLastDigit) {
    convert("F\t5.5 2\r\nlake.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n"
            "1\t1/5/99\t9:05:07\t700\t\r2\t1/5/99\t9:05:07\tx\t\r",
            {.holdCounts = true, .calibration = Conversion{.glow = {{100, 0.01234571}}, .trx = {}}});
    expectRows("1|1999-01-05T09:05:07|700|" + QByteArray::number(7.40742, 'g', 17).toStdString() +
               "\n2|1999-01-05T09:05:07||\n");
}

TEST_F(NetCdfProcessTest, NcdumpShowsWhatIsKnown) {
    convert(olderHeader + "1\t11/21/26\t9:05:07\t10\t11\t20\t21\t30\t31\r\n"
                          "2\tnever\t9:05:08\t10\t11\t20\t21\t30\t-\r\n",
            {.calibration = Conversion{.glow = {}, .trx = std::array<Conversion::Line, 3>{{{5, 0.5}, {0, 1}, {0, 2}}}},
             .program = QStringLiteral("ORV Host 1.0.0"),
             .now = QDateTime(QDate(2026, 11, 21), QTime(9, 30), Qt::UTC)});
    EXPECT_EQ(run("ncdump", QStringLiteral("-k out.nc")), "netCDF-4 classic model\n");
    EXPECT_EQ(run("ncdump", QStringLiteral("out.nc")), R"CDL(netcdf out {
dimensions:
	obs = UNLIMITED ; // (2 currently)
	name_strlen = 11 ;
variables:
	int record(obs) ;
		record:_FillValue = -2147483647 ;
		record:long_name = "Record number" ;
		record:units = "1" ;
		record:comment = "Begins anew where the rows before had been cleared." ;
		record:coordinates = "time" ;
	double time(obs) ;
		time:_FillValue = 9.96920996838687e+36 ;
		time:standard_name = "time" ;
		time:units = "seconds since 1970-01-01 00:00:00" ;
		time:axis = "T" ;
		time:calendar = "standard" ;
		time:long_name = "Time by the instrument\'s clock" ;
		time:comment = "As the instrument\'s own clock gives it: it knows no time zone, and a step of it lasts 4/3 s, so that rows may have the same time." ;
	double scattering_100(obs) ;
		scattering_100:_FillValue = 9.96920996838687e+36 ;
		scattering_100:long_name = "Scattering at 100 degrees" ;
		scattering_100:units = "count" ;
		scattering_100:comment = "Raw counts, as received." ;
		scattering_100:coordinates = "time" ;
	double reference_100(obs) ;
		reference_100:_FillValue = 9.96920996838687e+36 ;
		reference_100:long_name = "Reference of the scattering at 100 degrees" ;
		reference_100:units = "count" ;
		reference_100:comment = "Raw counts, as received." ;
		reference_100:coordinates = "time" ;
	double scattering_125(obs) ;
		scattering_125:_FillValue = 9.96920996838687e+36 ;
		scattering_125:long_name = "Scattering at 125 degrees" ;
		scattering_125:units = "count" ;
		scattering_125:comment = "Raw counts, as received." ;
		scattering_125:coordinates = "time" ;
	double reference_125(obs) ;
		reference_125:_FillValue = 9.96920996838687e+36 ;
		reference_125:long_name = "Reference of the scattering at 125 degrees" ;
		reference_125:units = "count" ;
		reference_125:comment = "Raw counts, as received." ;
		reference_125:coordinates = "time" ;
	double scattering_150(obs) ;
		scattering_150:_FillValue = 9.96920996838687e+36 ;
		scattering_150:long_name = "Scattering at 150 degrees" ;
		scattering_150:units = "count" ;
		scattering_150:comment = "Raw counts, as received." ;
		scattering_150:coordinates = "time" ;
	double reference_150(obs) ;
		reference_150:_FillValue = 9.96920996838687e+36 ;
		reference_150:long_name = "Reference of the scattering at 150 degrees" ;
		reference_150:units = "count" ;
		reference_150:comment = "Raw counts, as received." ;
		reference_150:coordinates = "time" ;
	double b_100(obs) ;
		b_100:_FillValue = 9.96920996838687e+36 ;
		b_100:long_name = "B value at 100 degrees" ;
		b_100:comment = "(counts - offset) * scale, rounded down to five decimals; offset 5, scale 0.5." ;
		b_100:coordinates = "time" ;
	double b_125(obs) ;
		b_125:_FillValue = 9.96920996838687e+36 ;
		b_125:long_name = "B value at 125 degrees" ;
		b_125:comment = "(counts - offset) * scale, rounded down to five decimals; offset 0, scale 1." ;
		b_125:coordinates = "time" ;
	double b_150(obs) ;
		b_150:_FillValue = 9.96920996838687e+36 ;
		b_150:long_name = "B value at 150 degrees" ;
		b_150:comment = "(counts - offset) * scale, rounded down to five decimals; offset 0, scale 2." ;
		b_150:coordinates = "time" ;
	char series(name_strlen) ;
		series:long_name = "Name of the time series" ;
		series:cf_role = "timeseries_id" ;

// global attributes:
		:Conventions = "CF-1.10, ACDD-1.3" ;
		:featureType = "timeSeries" ;
		:title = "Rows of TRX" ;
		:summary = "Rows of a self-logging optical water sensor, as they came from the instrument." ;
		:keywords = "water, optics, scattering" ;
		:source = "in.txt" ;
		:date_created = "2026-11-21T09:30:00.000Z" ;
		:instrument = "TRX" ;
		:calibration_scattering_100_offset = 5. ;
		:calibration_scattering_100_scale = 0.5 ;
		:calibration_scattering_125_offset = 0. ;
		:calibration_scattering_125_scale = 1. ;
		:calibration_scattering_150_offset = 0. ;
		:calibration_scattering_150_scale = 2. ;
		:history = "2026-11-21T09:30:00.000Z: written by ORV Host 1.0.0 from in.txt" ;
		:comment = "1 time could not be read and is missing. 1 number could not be read and is missing." ;
		:time_coverage_start = "2026-11-21T09:05:07" ;
		:time_coverage_end = "2026-11-21T09:05:07" ;
data:

 record = 1, 2 ;

 time = 1795251907, _ ;

 scattering_100 = 10, 10 ;

 reference_100 = 11, 11 ;

 scattering_125 = 20, 20 ;

 reference_125 = 21, 21 ;

 scattering_150 = 30, 30 ;

 reference_150 = 31, _ ;

 b_100 = 2.5, 2.5 ;

 b_125 = 20, 20 ;

 b_150 = 60, 60 ;

 series = "Rows of TRX" ;
}
)CDL");
}

} // namespace
} // namespace orv
