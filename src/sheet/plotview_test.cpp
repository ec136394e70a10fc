// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plotview.h"

#include <gtest/gtest.h>

namespace orv {

static void PrintTo(const PlotView::Range& range, std::ostream* stream) {
    *stream << range.lower << ".." << range.upper;
}

namespace {

using Range = PlotView::Range;
using Mode = PlotView::Mode;

class PlotViewTest : public testing::Test {
protected:
    PlotViewTest() {
        sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 512},
                        headerRow(HeaderPlace::GridOnOpening, RowLayout::TrxNewer));
    }

    /// Appends rows whose first value is `value` and whose others are no numbers.
    void append(int rows, const QString& value) {
        for (int row = 0; row < rows; ++row) {
            sheet.appendRow({QString::number(sheet.rowCount() + 1), QString(), QString(), value});
        }
        view.noteChange(data.update());
    }

    Range values(Range places = {.lower = 0, .upper = 1e9}) { return view.values(data, shown, places); }

    DataSheet sheet;
    PlotData data{sheet};
    PlotView view;
    std::vector<bool> shown{true, true, true, true};
};

TEST_F(PlotViewTest, AllIsShownUntilRowsComeFromTheInstrument) {
    EXPECT_EQ(view.mode(), Mode::All);
    append(3001, QStringLiteral("5"));
    EXPECT_EQ(view.places(data), (Range{.lower = 1 - 30, .upper = 3001 + 30}));
    view.setReceiving(true);
    EXPECT_EQ(view.mode(), Mode::Newest);
    constexpr double margin = 9.99;
    EXPECT_EQ(view.places(data), (Range{.lower = 2002 - margin, .upper = 3001 + margin}));
    view.setReceiving(false);
    EXPECT_EQ(view.mode(), Mode::Newest) << "the end of a run moves nothing";
}

TEST_F(PlotViewTest, FollowedAreTheNewestRowsAlsoWhereTheirNumbersBeginAnew) {
    view.setReceiving(true);
    append(5000, QStringLiteral("5"));
    const auto appendFrom = [this](int first, int rows) {
        for (int row = 0; row < rows; ++row) {
            sheet.appendRow({QString::number(first + row), QString(), QString(), QStringLiteral("5")});
        }
        view.noteChange(data.update());
    };
    appendFrom(1, 999);
    constexpr double margin = 0.01;
    EXPECT_EQ(view.places(data), (Range{.lower = 1 - 4999 * margin, .upper = 5000 + 4999 * margin}));
    appendFrom(1000, 1);
    EXPECT_EQ(view.places(data), (Range{.lower = 1 - 999 * margin, .upper = 1000 + 999 * margin}));
    appendFrom(1001, 500);
    EXPECT_EQ(view.places(data), (Range{.lower = 501 - 999 * margin, .upper = 1500 + 999 * margin}));
    view.setMode(Mode::All);
    EXPECT_EQ(view.places(data), (Range{.lower = 1 - 4999 * margin, .upper = 5000 + 4999 * margin}));
}

TEST_F(PlotViewTest, WhatIsChosenStaysUntilTheRowsGoOrTheNextRunBegins) {
    append(10, QStringLiteral("5"));
    view.setReceiving(true);
    view.setMode(Mode::Own);
    view.setReceiving(true);
    append(10, QStringLiteral("5"));
    view.noteChange(PlotData::Change::Relaid);
    EXPECT_EQ(view.mode(), Mode::Own);
    view.noteChange(PlotData::Change::Replaced);
    EXPECT_EQ(view.mode(), Mode::Newest) << "a full sheet that was saved goes on";
    view.setMode(Mode::Own);
    view.setReceiving(false);
    EXPECT_EQ(view.mode(), Mode::Own);
    view.noteChange(PlotData::Change::Replaced);
    EXPECT_EQ(view.mode(), Mode::All) << "a loaded sheet is shown whole";
    view.setMode(Mode::Own);
    view.setReceiving(true);
    EXPECT_EQ(view.mode(), Mode::Newest);
}

TEST_F(PlotViewTest, NothingAndASinglePointHaveARangeToo) {
    EXPECT_EQ(view.places(data), (Range{.lower = 0, .upper = 1}));
    EXPECT_EQ(values(), (Range{.lower = 0, .upper = 1}));
    append(1, QStringLiteral("100"));
    EXPECT_EQ(view.places(data), (Range{.lower = 0, .upper = 2}));
    EXPECT_EQ(values(), (Range{.lower = 95, .upper = 105}));
    sheet.removeRows();
    append(1, QStringLiteral("0"));
    EXPECT_EQ(values(), (Range{.lower = -1, .upper = 1}));
}

TEST_F(PlotViewTest, ValuesAreThoseOfShownCurvesInThePart) {
    sheet.appendRow(QStringLiteral("1|||100|1000|x|").split(u'|'));
    sheet.appendRow(QStringLiteral("2|||200|2000||").split(u'|'));
    sheet.appendRow(QStringLiteral("3|||300|3000||").split(u'|'));
    data.update();
    EXPECT_EQ(values(), (Range{.lower = 100 - 145, .upper = 3000 + 145}));
    shown = {true, false, true, true};
    EXPECT_EQ(values(), (Range{.lower = 90, .upper = 310}));
    EXPECT_EQ(values({.lower = 2, .upper = 3}), (Range{.lower = 195, .upper = 305})) << "both ends count";
    EXPECT_EQ(values({.lower = 1, .upper = 2.9}), (Range{.lower = 95, .upper = 205}));
    shown = {false, false, true, true};
    EXPECT_EQ(values(), (Range{.lower = 0, .upper = 1})) << "only gaps";
}

TEST_F(PlotViewTest, ValuesStandStillWhileTheyFitAndFillWell) {
    append(1, QStringLiteral("0"));
    append(1, QStringLiteral("100"));
    const Range first = values();
    EXPECT_EQ(first, (Range{.lower = -5, .upper = 105}));
    append(1, QStringLiteral("104"));
    EXPECT_EQ(values(), first);
    append(1, QStringLiteral("106"));
    EXPECT_NE(values(), first);
    const Range second = values();
    EXPECT_EQ(values({.lower = 2, .upper = 9}), (Range{.lower = 100 - 0.3, .upper = 106 + 0.3}))
        << "values that fill little are brought nearer";
    EXPECT_EQ(values(), second);
    view.setMode(Mode::All);
    append(1, QStringLiteral("140"));
    EXPECT_EQ(values(), (Range{.lower = -7, .upper = 147})) << "a new choice lays out anew";
}

} // namespace
} // namespace orv
