// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/sheetexport.h"

#include "testing/sheettest.h"

#include <QFileInfo>

namespace orv {
namespace {

/// The window's "Export", with a TRX whose rows come one after another.
class SheetExportTest : public SheetTest {
protected:
    SheetExportTest() {
        identify("V", "512");
        state.Ctrlscrn = Operation::Collecting;
    }

    void row(const char* values) {
        const auto read = readDataLine(QStringLiteral("11/21/26\t32400\t") + QString::fromLatin1(values),
                                       rows.connectedLayout(), requestedConversion(settings));
        rows.addRow(*read);
    }

    void calibrate(int angle, const char* offset, const char* scale) {
        settings.trxCalibration.at(static_cast<std::size_t>(angle)).offset = QString::fromLatin1(offset);
        settings.trxCalibration.at(static_cast<std::size_t>(angle)).scale = QString::fromLatin1(scale);
    }

    std::string exported(const char* name = "lake.csv") {
        answers.fileName = path(name);
        program.exportSheet();
        return contentsOf(path(name)).toStdString();
    }

    QByteArray metadata() const { return contentsOf(path("lake.csv-metadata.json")); }
};

TEST_F(SheetExportTest, WritesTheRowsAndLeavesThemUnsaved) {
    row("10\t20\t30\t40");
    EXPECT_EQ(exported(), "record,time,scattering_100,scattering_125,scattering_150,reference\r\n"
                          "1,2026-11-21T12:00:00,10,20,30,40\r\n");
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(metadata().contains("\"firmware\": 512"));
    EXPECT_TRUE(metadata().contains("Raw counts, as received."));
    EXPECT_FALSE(metadata().contains("\"settings\"")) << "they have not been read";
    EXPECT_FALSE(metadata().contains("\"clock\"")) << "it has not been read";
}

TEST_F(SheetExportTest, HasTheNinthColumnOfTheOlderTrx) {
    identify("V", "412");
    row("10\t11\t20\t21\t30\t31");
    EXPECT_EQ(exported(), "record,time,scattering_100,reference_100,scattering_125,reference_125,scattering_150,"
                          "reference_150\r\n"
                          "1,2026-11-21T12:00:00,10,11,20,21,30,31\r\n");
}

TEST_F(SheetExportTest, HasCountsAndCalculatedValues) {
    settings.trxProvideRawCounts = false;
    calibrate(0, "5", "0.5");
    row("10\t20\t30\t40");
    row("5\t20\t30\t40"); // a result of 0 leaves the counts on the sheet
    EXPECT_EQ(sheet.cell(1, sheetcolumn::firstValue), QStringLiteral("5"));
    const std::string expected =
        "record,time,scattering_100,scattering_125,scattering_150,reference,b_100,b_125,b_150\r\n"
        "1,2026-11-21T12:00:00,10,20,30,40,2.5,20,30\r\n"
        "2,2026-11-21T12:00:00,5,20,30,40,0,20,30\r\n";
    EXPECT_EQ(exported(), expected);
    EXPECT_TRUE(metadata().contains("\"scattering_100_scale\": 0.5"));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SheetExportTest, NamesNoCalibrationThatWasNotInForce) {
    settings.trxProvideRawCounts = false;
    calibrate(0, "5", "0.5");
    row("10\t20\t30\t40");
    calibrate(0, "6", "0.5");
    EXPECT_EQ(exported(), "record,time,scattering_100,scattering_125,scattering_150,reference,b_100,b_125,b_150\r\n"
                          "1,2026-11-21T12:00:00,10,20,30,40,2.5,,\r\n");
    EXPECT_FALSE(metadata().contains("\"calibration\""));
    EXPECT_TRUE(metadata().contains("offset and scale are not known"));
}

TEST_F(SheetExportTest, DoesNotTakeTheValuesOfAFileForCounts) {
    row("10\t20\t30\t40");
    answers.fileName = path("lake.txt");
    program.saveAs();
    program.openSheet();
    settings.trxProvideRawCounts = false;
    calibrate(0, "5", "0.5");
    EXPECT_EQ(exported(), "record,time,scattering_100,scattering_125,scattering_150,reference\r\n"
                          "1,2026-11-21T12:00:00,10,20,30,40\r\n");
    EXPECT_FALSE(metadata().contains("Raw counts, as received.\",\n                \"dc:title\": \"Scattering"));
    EXPECT_TRUE(metadata().contains("the source does not tell which"));
}

TEST_F(SheetExportTest, KnowsSettingsAndClockOfTheConnectedInstrument) {
    row("10\t20\t30\t40");
    for (const char* line : {"T30", "D2x4", "MP200"}) {
        program.settings.reader.getprefs(QString::fromLatin1(line));
    }
    const QDateTime now = clock.now();
    // 64800 counts are a day of 86400 s
    const int count = static_cast<int>(now.time().msecsSinceStartOfDay() / 1000 + 40) * 3 / 4;
    program.settings.clock.checktime(now.date().toString(QStringLiteral("MM/dd/yy")) + u'\t' + QString::number(count));
    ASSERT_TRUE(status.clockOffset.value());
    EXPECT_NEAR(static_cast<double>(*status.clockOffset.value()), 40.0, 2.0);
    change(settings.record, [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("31"); });
    exported();
    EXPECT_TRUE(metadata().contains("\"samplesPerPoint\": 30")) << "31 has not been sent";
    EXPECT_FALSE(metadata().contains("\"hoursBeforeBlock\"")) << "it could not be read";
    EXPECT_FALSE(metadata().contains("\"append\"")) << "it has not been read";
    EXPECT_TRUE(metadata().contains("\"secondsAheadOfComputer\": " + QByteArray::number(*status.clockOffset.value())));
    program.closePort();
    EXPECT_FALSE(status.clockOffset.value());
    exported();
    EXPECT_FALSE(metadata().contains("\"samplesPerPoint\""));
}

TEST_F(SheetExportTest, TellsWhatCouldNotBeRead) {
    row("10\tx\t30\t40");
    exported();
    EXPECT_EQ(theMessage().title, QStringLiteral("Export"));
    EXPECT_EQ(theMessage().text,
              path("lake.csv") + QStringLiteral(" has been written.\n\n1 number could not be read and is missing."));
}

TEST_F(SheetExportTest, TellsWhyThereIsNoFile) {
    row("10\t20\t30\t40");
    const std::vector<std::pair<const char*, QString>> names{
        {"lake.xls", QStringLiteral("choose a name that ends in .csv or .nc")},
        {"nowhere/lake.csv", QStringLiteral("No such file or directory")},
        {"nowhere/lake.nc", QStringLiteral("No such file or directory")}};
    for (const auto& [name, reason] : names) {
        messages.shown.clear();
        exported(name);
        EXPECT_EQ(theMessage().text.toStdString(),
                  QStringLiteral("The sheet could not be exported as %1: %2.\n\nIts rows are still on the sheet.")
                      .arg(path(name), reason)
                      .toStdString());
    }
}

TEST_F(SheetExportTest, LeavesOutTheRowsOfAnotherInstrument) {
    row("10\t20\t30\t40");
    answers.fileName = path("lake.txt");
    program.saveAs();
    identify("F", "5.5");
    rows.addRow(*readDataLine(QStringLiteral("11/21/26\t32400\t700"), RowLayout::Glow, {}));
    EXPECT_EQ(exported(), "record,time,fluorescence\r\n2,2026-11-21T12:00:00,700\r\n");
    EXPECT_EQ(theMessage().text, path("lake.csv") + QStringLiteral(" has been written.\n\n1 row of another type of "
                                                                   "instrument is left out."));
}

TEST_F(SheetExportTest, WritesTheRowsThatWereChosen) {
    for (const char* values : {"1\t2\t3\t4", "11\t2\t3\t4", "21\t2\t3\t4", "31\t2\t3\t4", "41\t2\t3\t4"}) {
        row(values);
    }
    answers.fileName = path("some.csv");
    program.exportSheet({{0, 1}, {3, 3}});
    EXPECT_EQ(answers.asked.back().section(u'|', 0, 0).toStdString(), "Export 3 selected rows");
    EXPECT_EQ(contentsOf(path("some.csv")).toStdString(),
              "record,time,scattering_100,scattering_125,scattering_150,reference\r\n"
              "1,2026-11-21T12:00:00,1,2,3,4\r\n"
              "2,2026-11-21T12:00:00,11,2,3,4\r\n"
              "4,2026-11-21T12:00:00,31,2,3,4\r\n");
    EXPECT_TRUE(messages.shown.empty()) << "nothing is missing";
    EXPECT_EQ(sheetState.saved.value(), (SavedRows{.count = 3,
                                                   .file = path("some.csv"),
                                                   .exported = true,
                                                   .besides = QStringLiteral("some.csv-metadata.json")}));
    exported("all.nc.csv");
    EXPECT_EQ(answers.asked.back().section(u'|', 0, 0).toStdString(), "Export all 5 rows");
    EXPECT_EQ(sheetState.saved.value().count, 5);
    row("51\t2\t3\t4");
    EXPECT_TRUE(sheetState.rowsSinceSaved) << "not all that are there now";
    EXPECT_EQ(sheetState.saved.value().count, 5);
    program.link.session.commands.activity = Activity::Collecting;
    exported("running.csv");
    EXPECT_EQ(answers.asked.back().section(u'|', 0, 0).toStdString(), "Export all rows") << "more may come";
}

TEST_F(SheetExportTest, OffersTheNameThatWasGivenLast) {
    row("10\t20\t30\t40");
    const auto offered = [this] {
        return QFileInfo(answers.asked.back().section(u'|', 1, 1)).fileName().toStdString();
    };
    exported("ten.csv");
    EXPECT_EQ(offered(), "Untitled.csv");
    exported("ten.csv");
    EXPECT_EQ(offered(), "ten.csv");
    sheetState.fileName = QStringLiteral("lake");
    exported("ten.csv");
    EXPECT_EQ(offered(), "lake.csv") << "the operator has another one in mind";
}

TEST_F(SheetExportTest, ACancelledDialogWritesNothing) {
    row("10\t20\t30\t40");
    const QStringList before = folder.files();
    answers.fileName.clear();
    program.exportSheet();
    EXPECT_EQ(folder.files(), before);
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace
} // namespace orv
