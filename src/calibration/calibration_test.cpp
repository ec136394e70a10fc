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

class InstrumentListTest : public testing::Test, protected CalibrationBench {
protected:
    void addThree() {
        add("one", LightColour::Red);
        add("two", LightColour::Blue);
        add("three", LightColour::Green);
    }

    void addEight() {
        for (const char* name : {"1", "2", "3", "4", "5", "6", "7", "8"}) {
            add(name, LightColour::Red);
        }
    }

    std::string listed() const {
        return QStringLiteral("%1 %2 %3")
            .arg(shown.current.value())
            .arg(shown.worksheetCaption.value())
            .arg(static_cast<int>(shown.colour.value()))
            .toStdString();
    }
};

TEST_F(InstrumentListTest, WithoutAColourNothingIsAddedAndTheNextClearsTheMessage) {
    add("one", LightColour::None);
    EXPECT_EQ(shown.message.value().toStdString(), "SELECT A COLOR");
    EXPECT_TRUE(shown.instruments.value().isEmpty());
    EXPECT_EQ(shown.totalEntered.value().toStdString(), "0");
    add("two", LightColour::Blue);
    EXPECT_EQ(shown.message.value().toStdString(), "");
    EXPECT_EQ(shown.instruments.value(), QStringList{QStringLiteral("two")});
    EXPECT_EQ(shown.totalEntered.value().toStdString(), "1");
    EXPECT_EQ(actions.table.colour(0), LightColour::Blue);
}

TEST_F(InstrumentListTest, AddingKeepsTheInstrumentShownAndTheWorksheet) {
    shown.worksheet.at(0, 0) = QStringLiteral("77");
    addThree();
    EXPECT_EQ(listed(), "0 Worksheet 11");
    EXPECT_EQ(shown.worksheet.at(0, 0).value().toStdString(), "77");
}

TEST_F(InstrumentListTest, NextAndPreviousGoRound) {
    addThree();
    for (const char* expected : {"1 two 10", "2 three 11", "0 one 9"}) {
        actions.next();
        EXPECT_EQ(listed(), expected);
    }
    for (const char* expected : {"2 three 11", "1 two 10"}) {
        actions.previous();
        EXPECT_EQ(listed(), expected);
    }
}

TEST_F(InstrumentListTest, AChosenEntryIsShownWithItsValues) {
    addThree();
    actions.select(1);
    shown.worksheet.at(3, 2) = QStringLiteral("-5");
    actions.calcdp(); // no rows: the worksheet is not kept
    actions.select(1);
    EXPECT_EQ(shown.worksheet.at(3, 2).value().toStdString(), "-5");
    EXPECT_EQ(listed(), "1 two 10");
}

TEST_F(InstrumentListTest, WhatWasTypedIsKeptForItsInstrumentWhenAnotherIsShown) {
    addThree();
    const std::function<void()> steps[] = {[this] { actions.next(); }, [this] { actions.previous(); },
                                           [this] { actions.select(2); }};
    for (const auto& toAnother : steps) {
        actions.select(0);
        fill(shown.worksheet, "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18.5");
        toAnother();
        EXPECT_EQ(textOf(shown.worksheet), "0 0 0/0 0 0/0 0 0/0 0 0/0 0 0/0 0 0");
        actions.select(0);
        EXPECT_EQ(textOf(shown.worksheet), "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18");
        fill(shown.worksheet, "0 0 0/0 0 0/0 0 0/0 0 0/0 0 0/0 0 0");
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(InstrumentListTest, WhatWasTypedBeforeTheFirstWasShownIsThatOfTheFirst) {
    shown.worksheet.at(2, 1) = QStringLiteral("6");
    addThree();
    actions.next();
    EXPECT_EQ(actions.table.value(0, 2, 1), 6);
    EXPECT_EQ(actions.table.value(1, 2, 1), 0);
}

TEST_F(InstrumentListTest, AValueThatDoesNotFitIsToldAndTheInstrumentShownStays) {
    addThree();
    actions.select(1);
    const std::pair<const char*, std::function<void()>> steps[] = {{"Next", [this] { actions.next(); }},
                                                                   {"Previous", [this] { actions.previous(); }},
                                                                   {"Show Instrument", [this] { actions.select(0); }}};
    for (const auto& [operation, toAnother] : steps) {
        messages.shown.clear();
        fill(shown.worksheet, "0 0 0/4 5 6/7 40000 0/0 0 0/0 0 0/0 0 0");
        toAnother();
        EXPECT_EQ(theMessage().text.section(u'\n', 0, 0).toStdString(),
                  std::string(operation) + ": the operation ended with the error \"Overflow\".");
        EXPECT_EQ(listed(), "1 two 10");
        EXPECT_EQ(shown.highlighted.value(), 1);
        EXPECT_EQ(textOf(shown.worksheet), "0 0 0/4 5 6/7 40000 0/0 0 0/0 0 0/0 0 0");
    }
    shown.worksheet.at(2, 1) = QStringLiteral("4000");
    actions.next();
    EXPECT_EQ(listed(), "2 three 11");
    EXPECT_EQ(actions.table.value(1, 2, 1), 4000);
}

TEST_F(InstrumentListTest, TheHighlightGoesWithTheInstrumentShown) {
    addThree();
    EXPECT_EQ(shown.highlighted.value(), CalibrationState::noInstrument) << "none has been shown";
    actions.next();
    EXPECT_EQ(shown.highlighted.value(), 1);
    actions.previous();
    EXPECT_EQ(shown.highlighted.value(), 0);
    actions.select(2);
    EXPECT_EQ(shown.highlighted.value(), 2);
}

TEST_F(InstrumentListTest, AnInstrumentWithoutANameIsShownLikeAnyOther) {
    add("", LightColour::Red);
    add("two", LightColour::Blue);
    EXPECT_EQ(shown.worksheetCaption.value().toStdString(), "Worksheet");
    actions.select(0);
    EXPECT_EQ(listed(), "0  9") << "the caption of its empty entry";
    EXPECT_EQ(shown.highlighted.value(), 0);
    actions.next();
    EXPECT_EQ(listed(), "1 two 10");
    EXPECT_EQ(shown.highlighted.value(), 1);
}

TEST_F(InstrumentListTest, AnEmptyListDoesNothing) {
    shown.worksheet.at(0, 0) = QStringLiteral("77");
    actions.next();
    actions.previous();
    actions.select(0);
    EXPECT_EQ(listed(), "0 Worksheet 0");
    EXPECT_EQ(shown.worksheet.at(0, 0).value().toStdString(), "77");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(InstrumentListTest, AnEighthStaysInTheListWithoutAColour) {
    addEight();
    EXPECT_EQ(shown.instruments.value().size(), 8);
    EXPECT_EQ(shown.totalEntered.value().toStdString(), "8");
    EXPECT_EQ(theMessage().title.toStdString(), "ORV Host Program");
    EXPECT_TRUE(theMessage().text.startsWith(
        QStringLiteral("Add Instrument: the operation ended with the error \"Subscript out of range\".")));
}

TEST_F(InstrumentListTest, AnEighthCanBeChosenButHasNoWorksheet) {
    addEight();
    messages.shown.clear();
    shown.worksheet.at(0, 0) = QStringLiteral("77");
    actions.select(7);
    EXPECT_EQ(listed(), "7 8 9");
    EXPECT_EQ(shown.worksheet.at(0, 0).value().toStdString(), "77");
    EXPECT_EQ(messages.shown.size(), 1U);
    actions.next();
    EXPECT_EQ(listed(), "0 1 9");
    EXPECT_EQ(shown.worksheet.at(0, 0).value().toStdString(), "77") << "kept for the first, not for the eighth";
    EXPECT_EQ(messages.shown.size(), 1U);
}

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
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(rowText(Air), "1 1 1");
    EXPECT_EQ(actions.table.value(0, 1, 0), 0);
}

TEST_F(ComputationTest, AMissingReferenceKeepsTheMeansWrittenSoFar) {
    fill(shown.worksheet, "0 0 0/100 100 100/1 1 1/0 0 0/0 0 0/0 0 0");
    fill(shown.reference, "10  10/20 20 20/0 0 0/0 0 0/0 0 0"); // no reference of the second channel
    compute(Point1, {"7 8 9"});
    EXPECT_EQ(lastError(), error("Division by zero"));
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
    EXPECT_EQ(averaged("V", 412, HeaderPlace::GridOnOpening), "Columns 3 to 5 of this sheet are 100, Ref 100, 125.");
    EXPECT_EQ(averaged("V", 412, HeaderPlace::GridOnClearing), "Columns 3 to 5 of this sheet are 100, Ref1, 125.");
    EXPECT_EQ(averaged("F", 310, HeaderPlace::GridOnOpening), "Columns 3 to 5 of this sheet are Output, empty, empty.");
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

constexpr const char* head = "Date 11/21/26\r\n"
                             "Time 9:30:15 AM\r\r\n"
                             "KP 7 Data\r\n";

constexpr const char* table = "\t100\t125\t150\r\n"
                              "Stdev  \t1\t2\t3\r\r\n"
                              "Air    \t1\t2\t3\r\r\n"
                              "Clean  \t4\t5\t6\r\r\n"
                              "Point 1\t7\t8\t9\r\r\n"
                              "Point 2\t10\t11\t12\r\r\n"
                              "Point 3\t13\t14\t15\r\r\n"
                              "Point 4\t16\t17\t18.5\r\r\n";

class ReportTest : public testing::Test, protected CalibrationBench {
protected:
    ReportTest() {
        fill(shown.worksheet, "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18.5");
        fill(shown.reference, "b0 r0 g0/b1 r1 g1/b2 r2 g2/b3 r3 g3/b4 r4 ");
        answers.fileName = path("report.Txt");
    }

    QByteArray written() const {
        QFile file(answers.fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
};

TEST_F(ReportTest, HasTheReferencesOfTheColour) {
    const std::tuple<LightColour, const char*, const char*> cases[] = {
        {LightColour::Red, "\t650\r\nClean \tr0\r\nPoint 1 \tr1\r\nPoint 2 \tr2\r\nPoint 3 \tr3\r\nPoint 4 \tr4\r\n",
         "Red"},
        {LightColour::Blue, "\t440\r\nClean \tb0\r\nPoint 1 \tb1\r\nPoint 2 \tb2\r\nPoint 3 \tb3\r\nPoint 4 \tb4\r\n",
         "Blue"},
        {LightColour::Green, "\t532\r\nClean \tg0\r\nPoint 1 \tg1\r\nPoint 2 \tg2\r\nPoint 3 \tg3\r\nPoint 4 \t\r\n",
         "Green"},
    };
    add("SN 1", LightColour::Red);
    add("SN 2", LightColour::Blue);
    actions.select(1);
    fill(shown.worksheet, "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18.5");
    for (const auto& [colour, references, name] : cases) {
        shown.colour = colour;
        actions.saveCalInfo();
        EXPECT_EQ(written(), QByteArray(head) + references + "\r\r\nSensor # SN 2 " + name + "\r\n" + table);
        EXPECT_TRUE(messages.shown.empty());
    }
}

TEST_F(ReportTest, NoColourLeavesTheReferenceOutAndEndsTheSensorLineWithABlank) {
    add("SN 1", LightColour::Red);
    shown.colour = LightColour::None;
    actions.saveCalInfo();
    EXPECT_EQ(written(), QByteArray(head) + "\r\r\nSensor # SN 1 \r\n" + table);
}

TEST_F(ReportTest, AnEmptyListHasNoEntry) {
    actions.saveCalInfo();
    EXPECT_EQ(written(), QByteArray(head) + "\r\r\nSensor #  \r\n" + table);
}

TEST_F(ReportTest, TheWorksheetOnTheScreenCountsNotTheTable) {
    add("SN 1", LightColour::Red);
    actions.select(0);
    shown.worksheet.at(0, 0) = QStringLiteral("unsaved");
    actions.saveCalInfo();
    EXPECT_TRUE(written().contains("Stdev  \tunsaved\t2\t3\r\r\nAir    \tunsaved\t2\t3\r\r\n"));
}

TEST_F(ReportTest, TheBytesAreTheSameUnderEveryLocale) {
    add("SN 1", LightColour::Red);
    const QByteArray expected = reportBytes(shown, clock.now());
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(reportBytes(shown, clock.now()), expected);
    QLocale::setDefault(QLocale::c());
}

TEST_F(ReportTest, TheDialogOffersTextFilesAndAFileIsReplaced) {
    QFile old(answers.fileName);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(10000, 'x'));
    old.close();
    actions.saveCalInfo();
    EXPECT_EQ(answers.asked, QStringList{QStringLiteral("Save Cal Info||.Txt|*.Txt")});
    EXPECT_TRUE(written().startsWith(head));
    EXPECT_TRUE(written().endsWith("18.5\r\r\n"));
}

TEST_F(ReportTest, ACancelledDialogWritesNothing) {
    answers.fileName.clear();
    actions.saveCalInfo();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ReportTest, TheConnectionGoesOnWhileTheDialogStands) {
    answers.late = true;
    connect();
    actions.saveCalInfo();
    receive(settingsReport());
    live(0.2);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_FALSE(commands.canCommand);
    program.closePort();
    ASSERT_TRUE(answers.stands());
    answers.answer(answers.fileName);
    EXPECT_TRUE(written().startsWith("Date 11/21/26\r\n"));
    EXPECT_TRUE(written().endsWith("18.5\r\r\n"));
}

TEST_F(ReportTest, ADialogThatIsTakenBackWritesNothing) {
    answers.late = true;
    actions.saveCalInfo();
    program.quit();
    EXPECT_FALSE(answers.stands());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ReportTest, AFileThatCannotBeWrittenIsTold) {
    answers.fileName = path("missing/report.Txt");
    actions.saveCalInfo();
    const Message& told = theMessage();
    EXPECT_EQ(told.title.toStdString(), "Save Cal Info");
    EXPECT_TRUE(told.text.startsWith(answers.fileName + QStringLiteral(" could not be saved: ")));
    EXPECT_FALSE(told.text.contains(QStringLiteral("saved: .")));
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
