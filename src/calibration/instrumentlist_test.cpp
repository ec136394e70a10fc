// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibration.h"

#include "testing/calibrationbench.h"

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
        EXPECT_TRUE(theMessage().text.endsWith(QLatin1String(
            "The value of \"Point 1\" for the angle 125 is not from -32768 to 32767. Correct it first.")));
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

} // namespace
} // namespace orv
