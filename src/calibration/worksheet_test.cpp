// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/worksheet.h"

#include "testing/calibrationbench.h"
#include "testing/expected.h"

#include <gtest/gtest.h>

#include <set>

namespace orv {
namespace {

constexpr const char* everyBox = "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18";

class WorksheetStoreTest : public testing::Test {
protected:
    CalibrationTable table;
    CalibrationState shown;
    WorksheetStore store{table, shown};
};

TEST(Worksheet, BoxesAreNamedByRowAndChannel) {
    QStringList names;
    for (const BoxRow& row : worksheetRows) {
        names << boxName(row, 0) << boxName(row, 2);
    }
    for (const BoxRow& row : referenceRows) {
        names << boxName(row, 0) << boxName(row, 2);
    }
    EXPECT_EQ(names.join(u' ').toStdString(),
              "Text33 Text35 Text18 Text20 Text21 Text23 Text24 Text26 Text27 Text29 Text30 Text32 "
              "Text2 Text4 Text5 Text7 Text8 Text10 Text11 Text13 Text14 Text16");
}

TEST(Worksheet, EveryBoxHasAFieldOfItsOwn) {
    EXPECT_EQ(CalibrationTable::field(0, 0), 0);
    EXPECT_EQ(CalibrationTable::field(1, 0), 1);
    EXPECT_EQ(CalibrationTable::field(0, 1), 6);
    EXPECT_EQ(CalibrationTable::field(5, 2), 17);
    std::set<int> fields;
    for (int row = 0; row < 6; ++row) {
        for (int channel = 0; channel < 3; ++channel) {
            fields.insert(CalibrationTable::field(row, channel));
        }
    }
    EXPECT_EQ(fields.size(), 18U);
}

TEST_F(WorksheetStoreTest, TheTableStartsAsZeros) {
    CalibrationBench::fill(shown.worksheet, everyBox);
    store.showcal();
    EXPECT_EQ(CalibrationBench::textOf(shown.worksheet), "0 0 0/0 0 0/0 0 0/0 0 0/0 0 0/0 0 0");
}

TEST_F(WorksheetStoreTest, EachInstrumentKeepsItsOwnWorksheet) {
    CalibrationBench::fill(shown.worksheet, everyBox);
    shown.current = 6;
    store.storecal();
    shown.current = 0;
    CalibrationBench::fill(shown.worksheet, "-1 0 0/0 0 0/0 0 0/0 0 0/0 0 0/0 0 -32768");
    store.storecal();
    shown.current = 6;
    store.showcal();
    EXPECT_EQ(CalibrationBench::textOf(shown.worksheet), everyBox);
    shown.current = 0;
    store.showcal();
    EXPECT_EQ(CalibrationBench::textOf(shown.worksheet), "-1 0 0/0 0 0/0 0 0/0 0 0/0 0 0/0 0 -32768");
}

TEST_F(WorksheetStoreTest, KeepsTheLeadingNumberRoundedHalfToEven) {
    const std::pair<const char*, int> boxes[] = {{"12.5", 12}, {"13.5", 14}, {" -2.5 counts", -2}, {"none", 0},
                                                 {"1,5", 1},   {"", 0},      {"32767", 32767},     {"-32768", -32768}};
    for (const auto& [text, kept] : boxes) {
        shown.worksheet.at(1, 1) = QString::fromLatin1(text);
        store.storecal();
        EXPECT_EQ(table.value(0, 1, 1), kept) << text;
    }
}

TEST_F(WorksheetStoreTest, AnOverflowKeepsWhatWasStoredBeforeIt) {
    CalibrationBench::fill(shown.worksheet, everyBox);
    shown.worksheet.at(2, 1) = QStringLiteral("32767.5");
    EXPECT_EQ(errorOf([this] { store.storecal(); }), RuntimeError::Kind::Overflow);
    store.showcal();
    // Clean and the first channel of Point 1 come before; Air comes last.
    EXPECT_EQ(CalibrationBench::textOf(shown.worksheet), "0 0 0/4 5 6/7 0 0/0 0 0/0 0 0/0 0 0");
}

TEST_F(WorksheetStoreTest, AnInstrumentBeyondTheTableChangesNothing) {
    CalibrationBench::fill(shown.worksheet, everyBox);
    for (const qint16 current : {qint16{7}, qint16{-1}}) {
        shown.current = current;
        EXPECT_EQ(errorOf([this] { store.storecal(); }), RuntimeError::Kind::SubscriptOutOfRange);
        EXPECT_EQ(errorOf([this] { store.showcal(); }), RuntimeError::Kind::SubscriptOutOfRange);
    }
    EXPECT_EQ(CalibrationBench::textOf(shown.worksheet), everyBox);
}

TEST_F(WorksheetStoreTest, AnInstrumentWithoutAColourLeavesTheSelection) {
    shown.colour = LightColour::Green;
    store.showcal();
    EXPECT_EQ(shown.colour.value(), LightColour::Green);
}

TEST_F(WorksheetStoreTest, TheColourBelongsToTheNewestEntry) {
    EXPECT_EQ(errorOf([this] { store.setcalcolour(LightColour::Red); }), RuntimeError::Kind::SubscriptOutOfRange);
    shown.instruments = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    store.setcalcolour(LightColour::Blue);
    EXPECT_EQ(table.colour(0), LightColour::None);
    EXPECT_EQ(table.colour(1), LightColour::Blue);
    EXPECT_EQ(static_cast<int>(LightColour::Red), 9);
    EXPECT_EQ(static_cast<int>(LightColour::Blue), 10);
    EXPECT_EQ(static_cast<int>(LightColour::Green), 11);
}

} // namespace
} // namespace orv
