// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibration.h"

#include "testing/calibrationbench.h"

#include <QDir>
#include <QFile>
#include <QLocale>

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace orv {
namespace {

enum Row { Air, Clean, Point1, Point2, Point3, Point4 };

class ComputationTest : public testing::Test, protected CalibrationBench {
protected:
    void compute(int selected, std::initializer_list<const char*> sheetRows) {
        for (const char* row : sheetRows) {
            fillSheet({QString::fromLatin1(row)});
        }
        shown.selectedRow = selected;
        actions.calcdp();
    }

    std::string results() const {
        return QStringList{shown.results[0], shown.results[1], shown.results[2]}.join(u' ').toStdString();
    }

    std::string lastError() const {
        return messages.shown.empty() ? "" : messages.shown.back().text.section(u'\n', 0, 0).toStdString();
    }

    static std::string error(const char* name) {
        return std::string(R"(Calc DP: the operation ended with the error ")") + name + R"(".)";
    }

    std::string rowText(Row which) const {
        return QStringList{shown.worksheet.at(which, 0), shown.worksheet.at(which, 1), shown.worksheet.at(which, 2)}
            .join(u' ')
            .toStdString();
    }
};

TEST_F(ComputationTest, TheMeanIsTheTruncatedQuotientOfEachChannel) {
    compute(Air, {"4 10 -3", "3 20 -1", "2 30 -2", "1 40 0"});
    EXPECT_EQ(rowText(Air), "2 25 -1") << "cut toward zero";
    EXPECT_EQ(lastError(), "");
}

TEST_F(ComputationTest, TheSumIsRoundedBeforeTheDivision) {
    compute(Clean, {"4 4.25 -1", "5.5 4.25 0"});
    EXPECT_EQ(rowText(Clean), "5 4 0") << "9.5 is 10, 8.5 is 8";
}

TEST_F(ComputationTest, TheSumHasDoublePrecision) {
    // In single precision each sum would end in .5 and be rounded to the even number above.
    compute(Clean, {"32000 0.4999 -32000", "765.4999 32765 -765.4999"});
    EXPECT_EQ(rowText(Clean), "16382 16382 -16382");
}

TEST_F(ComputationTest, CellsCountByTheirLeadingNumber) {
    fillSheet({QStringLiteral("10x 5 8"), QStringLiteral("none 5 8")});
    compute(Air, {});
    EXPECT_EQ(rowText(Air), "5 5 8");
}

TEST_F(ComputationTest, APointAlsoDerivesItsExpectedCount) {
    fill(shown.worksheet, "0 0 0/0 0 0/1000 900 100/0 0 0/0 0 0/0 0 0");
    fill(shown.reference, "0 0 0/300 300 7/600 0.5 -2.5/0 0 0/0 0 0");
    compute(Point2, {"7 8 9"});
    EXPECT_EQ(rowText(Point2), "7 8 9");
    EXPECT_EQ(results(), "1800 1 -35") << R"(600*(1000 \ 300), Int(0.5*3), -2.5*14)";
}

TEST_F(ComputationTest, ADerivedPointIsTheWholeNumberBelow) {
    fill(shown.worksheet, "0 0 0/300 100 -300/0 0 0/0 0 0/0 0 0/0 0 0");
    fill(shown.reference, "100 100 100/-0.5 -0.5 0.1/0 0 0/0 0 0/0 0 0");
    compute(Point1, {"1 1 1"});
    EXPECT_EQ(results(), "-2 -1 -1") << "Int(-0.5*3), Int(-0.5*1), Int(0.1*-3)";
}

TEST_F(ComputationTest, EveryPointReadsTheRowsAboveIt) {
    fill(shown.worksheet, "0 0 0/100 200 300/0 0 0/0 0 0/50 60 70/0 0 0");
    fill(shown.reference, "10 20 30/3 3 3/0 0 0/5 6 7/2 2 2");
    compute(Point1, {"1 1 1"});
    EXPECT_EQ(results(), "30 30 30") << "from Clean";
    compute(Point4, {});
    EXPECT_EQ(results(), "20 20 20") << "from Point 3";
}

TEST_F(ComputationTest, TheDivisionRoundsBothSidesHalfToEven) {
    fill(shown.worksheet, "0 0 0/10.5 11.5 10/0 0 0/0 0 0/0 0 0/0 0 0");
    fill(shown.reference, "2.5 2.5 3.5/1 1 1/0 0 0/0 0 0/0 0 0");
    compute(Point1, {"1 1 1"});
    EXPECT_EQ(results(), "5 6 2") << R"(10 \ 2, 12 \ 2, 10 \ 4)";
}

TEST_F(ComputationTest, AirAndCleanLeaveTheDerivedPoints) {
    fillSheet({QStringLiteral("1 2 3")});
    for (QProperty<QString>& result : shown.results) {
        result = QStringLiteral("old");
    }
    for (const Row selected : {Air, Clean}) {
        shown.selectedRow = selected;
        actions.calcdp();
        EXPECT_EQ(rowText(selected), "1 2 3");
        EXPECT_EQ(results(), "old old old");
    }
}

TEST_F(ComputationTest, WithoutASelectedRowTheWorksheetIsOnlyKept) {
    fillSheet({QStringLiteral("1 2 3")});
    fill(shown.worksheet, "1 1 1/2 2 2/3 3 3/4 4 4/5 5 5/6 6 6.5");
    actions.calcdp();
    EXPECT_EQ(textOf(shown.worksheet), "1 1 1/2 2 2/3 3 3/4 4 4/5 5 5/6 6 6.5");
    EXPECT_EQ(actions.table.value(0, 5, 2), 6);
    EXPECT_EQ(results(), "  ");
}

TEST_F(ComputationTest, TheResultIsKeptForTheCurrentInstrument) {
    fillSheet({QStringLiteral("11 12 13")});
    shown.current = 3;
    shown.selectedRow = Air;
    actions.calcdp();
    EXPECT_EQ(actions.table.value(3, 0, 0), 11);
    EXPECT_EQ(actions.table.value(3, 0, 2), 13);
    EXPECT_EQ(actions.table.value(0, 0, 0), 0);
}

TEST_F(ComputationTest, WithoutRowsNothingIsWrittenOrKept) {
    fill(shown.worksheet, "1 1 1/2 2 2/3 3 3/4 4 4/5 5 5/6 6 6");
    shown.selectedRow = Air;
    actions.calcdp();
    EXPECT_EQ(lastError(), error("Division by zero"));
    EXPECT_TRUE(messages.shown.back().text.endsWith(QLatin1String("Collect or open those of this point first.")));
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(rowText(Air), "1 1 1");
    EXPECT_EQ(actions.table.value(0, 1, 0), 0);
}

TEST_F(ComputationTest, AMissingReferenceKeepsTheMeansWrittenSoFar) {
    fill(shown.worksheet, "0 0 0/100 100 100/1 1 1/0 0 0/0 0 0/0 0 0");
    fill(shown.reference, "10  10/20 20 20/0 0 0/0 0 0/0 0 0"); // no reference of the second channel
    compute(Point1, {"7 8 9"});
    EXPECT_EQ(lastError(), error("Division by zero"));
    EXPECT_TRUE(messages.shown.back().text.endsWith(
        QLatin1String("In the frame \"KP 7\" the value of \"Clean\" in column 2 is empty or 0. Fill it in, then press "
                      "\"Calc DP\" again.")))
        << qPrintable(messages.shown.back().text);
    EXPECT_EQ(rowText(Point1), "7 8 1") << "the third channel was not reached";
    EXPECT_EQ(results(), "200  ");
    EXPECT_EQ(actions.table.value(0, 1, 0), 0) << "not kept";
}

TEST_F(ComputationTest, AReferenceThatRoundsToZeroIsZero) {
    fill(shown.worksheet, "0 0 0/100 100 100/0 0 0/0 0 0/0 0 0/0 0 0");
    fill(shown.reference, "0.5 1 1/1 1 1/0 0 0/0 0 0/0 0 0");
    compute(Point1, {"7 8 9"});
    EXPECT_EQ(lastError(), error("Division by zero"));
}

TEST_F(ComputationTest, AMeanBeyondTheTableOverflowsAfterTheValuesBeforeIt) {
    fill(shown.reference, "1 1 1/1 1 1/1 1 1/1 1 1/1 1 1");
    fill(shown.worksheet, "0 0 0/1 2 3/4 5 6/7 8 9/10 11 12/13 14 15");
    compute(Point1, {"40000 2 3"});
    EXPECT_EQ(lastError(), error("Overflow"));
    EXPECT_EQ(rowText(Point1), "40000 2 3");
    EXPECT_EQ(actions.table.value(0, Clean, 2), 3) << "stored before";
    EXPECT_EQ(actions.table.value(0, Point1, 0), 0);
    EXPECT_EQ(actions.table.value(0, Point2, 0), 0) << "not reached";
}

TEST_F(ComputationTest, ASumBeyond32BitsOverflows) {
    compute(Air, {"2147483647 1 1", "1 1 1"});
    EXPECT_EQ(lastError(), error("Overflow"));
    EXPECT_EQ(rowText(Air), "  ");
}

TEST_F(ComputationTest, AResultThatIsNoNumberIsAnOverflow) {
    fill(shown.worksheet, "0 0 0/100 100 100/0 0 0/0 0 0/0 0 0/0 0 0");
    const QString beyond = QStringLiteral("1") + QString(400, u'0');
    for (const auto& [reference, previous] : {std::pair(beyond, "100"), std::pair(u'-' + beyond, "100"),
                                              std::pair(beyond, "0"), std::pair(QStringLiteral("1e308"), "1000")}) {
        fill(shown.reference, "1 1 1/1 1 1/1 1 1/1 1 1/1 1 1");
        shown.reference.at(1, 0) = reference;
        shown.worksheet.at(Clean, 0) = QString::fromLatin1(previous);
        messages.shown.clear();
        compute(Point1, {"7 8 9"});
        EXPECT_EQ(lastError(), error("Overflow")) << qPrintable(reference);
        EXPECT_EQ(results(), "  ");
        EXPECT_EQ(shown.worksheet.at(Point1, 0).value().toStdString(), "7") << "what was written before stays";
    }
    compute(Air, {"1e999 1 1"});
    EXPECT_EQ(lastError(), error("Overflow"));
    EXPECT_EQ(rowText(Air), "0 0 0");
}

TEST_F(ComputationTest, ColumnsThatAreNotTheAnglesAreNamed) {
    const auto averaged = [this](const char* letter, double firmware, HeaderPlace place) {
        sheet.removeRows();
        const DataSheet::Type type{.letter = QString::fromLatin1(letter), .firmware = firmware};
        sheet.setHeader(type, headerRow(place, type.layout()));
        compute(Air, {"2 4 6", "4 6 8"});
        EXPECT_EQ(rowText(Air), "3 5 7") << "to the letter";
        EXPECT_EQ(lastError(), "");
        return shown.message.value().toStdString();
    };
    EXPECT_EQ(averaged("V", 512, HeaderPlace::GridOnOpening), "");
    EXPECT_EQ(averaged("V", 412, HeaderPlace::GridOnOpening),
              "The first three values of this sheet are 100, Ref 100, 125.");
    EXPECT_EQ(averaged("V", 412, HeaderPlace::GridOnClearing),
              "The first three values of this sheet are 100, Ref1, 125.");
    EXPECT_EQ(averaged("F", 310, HeaderPlace::GridOnOpening),
              "The first three values of this sheet are Output, empty, empty.");
    EXPECT_EQ(averaged("V", 512, HeaderPlace::GridOnClearing), "") << "taken back";
    shown.message = QStringLiteral("SELECT A COLOR");
    EXPECT_EQ(averaged("V", 512, HeaderPlace::GridOnOpening), "SELECT A COLOR");
    sheet.setHeader({.letter = QStringLiteral("F"), .firmware = 310.0}, QStringList());
    compute(Air, {});
    EXPECT_EQ(shown.message.value().toStdString(), "SELECT A COLOR") << "the rows are those of the TRX";
    averaged("F", 310, HeaderPlace::GridOnOpening);
    sheet.removeRows();
    compute(Air, {});
    EXPECT_EQ(lastError(), error("Division by zero"));
    EXPECT_EQ(shown.message.value().toStdString(), "") << "no column was averaged";
}

TEST_F(ComputationTest, TheSheetIsLeftOnTheLastCellVisited) {
    fillSheet({QStringLiteral("1 2 3"), QStringLiteral("1 2 3")});
    actions.calcdp();
    EXPECT_EQ(sheetState.currentColumn.value(), 5);
    EXPECT_EQ(sheetState.currentRow.value(), 2);
    program.clearAll();
    actions.calcdp();
    EXPECT_EQ(sheetState.currentColumn.value(), 3);
    EXPECT_EQ(sheetState.currentRow.value(), 2) << "no row was visited";
}

TEST_F(ComputationTest, WithoutRowsTheSheetIsLeftInTheFirstColumn) {
    actions.calcdp();
    EXPECT_EQ(sheetState.currentColumn.value(), 3);
    EXPECT_EQ(sheetState.currentRow.value(), 0);
}

TEST(Calibration, ABatchOfTwoFromTheSheetToItsReports) {
    CalibrationBench bench;
    bench.add("SN 1", LightColour::Red);
    bench.add("SN 2", LightColour::Green);
    CalibrationBench::fill(bench.shown.reference, "10 20 30/1 2 3/0 0 0/0 0 0/0 0 0");

    bench.actions.select(0);
    bench.fillSheet({QStringLiteral("50 60 70")});
    bench.shown.selectedRow = 1;
    bench.actions.calcdp();
    bench.shown.selectedRow = 2;
    bench.actions.calcdp();
    bench.actions.next();
    EXPECT_EQ(bench.shown.colour.value(), LightColour::Green);
    EXPECT_EQ(bench.shown.worksheet.at(1, 0).value().toStdString(), "0");

    bench.actions.next();
    EXPECT_EQ(bench.shown.colour.value(), LightColour::Red);
    bench.answers.fileName = bench.path("one.Txt");
    bench.actions.saveCalInfo();
    QFile report(bench.answers.fileName);
    ASSERT_TRUE(report.open(QIODevice::ReadOnly));
    const QByteArray bytes = report.readAll();
    EXPECT_TRUE(bytes.contains("\t650\r\nClean \t20\r\nPoint 1 \t2\r\n"));
    EXPECT_TRUE(bytes.contains("Sensor # SN 1 Red\r\n"));
    EXPECT_TRUE(bytes.contains("Clean  \t50\t60\t70\r\r\nPoint 1\t50\t60\t70\r\r\n"));
    EXPECT_TRUE(bench.messages.shown.empty());
}

} // namespace
} // namespace orv
