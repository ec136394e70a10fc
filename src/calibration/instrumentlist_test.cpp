// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/instrumentlist.h"

#include "calibration/calibrationbench.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

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

    std::string shown() const {
        return QStringLiteral("%1 %2 %3")
            .arg(panel.current.value())
            .arg(panel.worksheetCaption.value())
            .arg(static_cast<int>(panel.colour.value()))
            .toStdString();
    }
};

TEST_F(InstrumentListTest, WithoutAColourNothingIsAdded) {
    add("one", LightColour::None);
    EXPECT_EQ(panel.message.value().toStdString(), "SELECT A COLOR");
    EXPECT_TRUE(panel.instruments.value().isEmpty());
    EXPECT_EQ(panel.totalEntered.value().toStdString(), "0");
}

TEST_F(InstrumentListTest, AddingClearsTheMessageAndCounts) {
    add("one", LightColour::None);
    add("two", LightColour::Blue);
    EXPECT_EQ(panel.message.value().toStdString(), "");
    EXPECT_EQ(panel.instruments.value(), QStringList{QStringLiteral("two")});
    EXPECT_EQ(panel.totalEntered.value().toStdString(), "1");
    EXPECT_EQ(actions.table.colour(0), LightColour::Blue);
}

TEST_F(InstrumentListTest, AddingKeepsTheInstrumentShownAndTheWorksheet) {
    panel.worksheet.at(0, 0) = QStringLiteral("77");
    addThree();
    EXPECT_EQ(shown(), "0  11");
    EXPECT_EQ(panel.worksheet.at(0, 0).value().toStdString(), "77");
}

TEST_F(InstrumentListTest, NextGoesRound) {
    addThree();
    actions.next();
    EXPECT_EQ(shown(), "1 two 10");
    actions.next();
    EXPECT_EQ(shown(), "2 three 11");
    actions.next();
    EXPECT_EQ(shown(), "0 one 9");
}

TEST_F(InstrumentListTest, PreviousGoesRound) {
    addThree();
    actions.previous();
    EXPECT_EQ(shown(), "2 three 11");
    actions.previous();
    EXPECT_EQ(shown(), "1 two 10");
}

TEST_F(InstrumentListTest, AChosenEntryIsShownWithItsValues) {
    addThree();
    actions.select(1);
    panel.worksheet.at(3, 2) = QStringLiteral("-5");
    actions.calcdp(); // no rows: the worksheet is not kept
    actions.select(1);
    EXPECT_EQ(panel.worksheet.at(3, 2).value().toStdString(), "0");
    EXPECT_EQ(shown(), "1 two 10");
}

TEST_F(InstrumentListTest, AnEmptyListDoesNothing) {
    panel.worksheet.at(0, 0) = QStringLiteral("77");
    actions.next();
    actions.previous();
    actions.select(0);
    EXPECT_EQ(shown(), "0  0");
    EXPECT_EQ(panel.worksheet.at(0, 0).value().toStdString(), "77");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(InstrumentListTest, AnEighthStaysInTheListWithoutAColour) {
    addEight();
    EXPECT_EQ(panel.instruments.value().size(), 8);
    EXPECT_EQ(panel.totalEntered.value().toStdString(), "8");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown.front().title.toStdString(), "ORV Host Program");
    EXPECT_TRUE(messages.shown.front().text.startsWith(
        QStringLiteral("Add Instrument: the operation ended with the error \"Subscript out of range\".")));
}

TEST_F(InstrumentListTest, AnEighthCanBeChosenButHasNoWorksheet) {
    addEight();
    messages.shown.clear();
    panel.worksheet.at(0, 0) = QStringLiteral("77");
    actions.select(7);
    EXPECT_EQ(shown(), "7 8 9");
    EXPECT_EQ(panel.worksheet.at(0, 0).value().toStdString(), "77");
    EXPECT_EQ(messages.shown.size(), 1U);
    actions.next();
    EXPECT_EQ(shown(), "0 1 9");
    EXPECT_EQ(panel.worksheet.at(0, 0).value().toStdString(), "0");
    EXPECT_EQ(messages.shown.size(), 1U);
}

} // namespace
} // namespace orv
