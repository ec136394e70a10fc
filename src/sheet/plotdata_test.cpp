// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plotdata.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace orv {
namespace {

QStringList texts(const char* joined) {
    return QString::fromLatin1(joined).split(u'|');
}

class PlotDataTest : public testing::Test {
protected:
    void layOut(const char* letter, double firmware, HeaderPlace place = HeaderPlace::GridOnOpening) {
        const DataSheet::Type type{.letter = QString::fromLatin1(letter), .firmware = firmware};
        sheet.setHeader(type, headerRow(place, type.layout()));
    }

    void append(std::initializer_list<const char*> rows) {
        for (const char* row : rows) {
            sheet.appendRow(texts(row));
        }
    }

    std::string names() const {
        QStringList all;
        for (int curve = 0; curve < data.curveCount(); ++curve) {
            all << data.name(curve);
        }
        return all.join(u'|').toStdString();
    }

    /// The points as "place:value,value", a gap as "-".
    static std::string points(const PlotData& data) {
        QStringList all;
        for (int point = 0; point < data.pointCount(); ++point) {
            QStringList values;
            for (int curve = 0; curve < data.curveCount(); ++curve) {
                const double value = data.value(curve, point);
                values << (std::isnan(value) ? QStringLiteral("-") : QString::number(value));
            }
            all << QString::number(data.place(point), 'g', 12) + u':' + values.join(u',');
        }
        return all.join(u' ').toStdString();
    }
    std::string points() const { return points(data); }

    DataSheet sheet;
    PlotData data{sheet};
};

TEST_F(PlotDataTest, EveryLayoutHasACurveForEachOfItsValueColumns) {
    const std::tuple<const char*, double, HeaderPlace, const char*, const char*, const char*> cases[] = {
        {"F", 310, HeaderPlace::GridOnOpening, "1|11/21/26|1:00:00|2400", "Output", "1:2400"},
        {"V", 512, HeaderPlace::GridOnOpening, "1|11/21/26|1:00:00|10|20|30|40", "100|125|150|Ref", "1:10,20,30,40"},
        {"v", 412, HeaderPlace::GridOnClearing, "1|11/21/26|1:00:00|10|11|20|21|30|31", "100|Ref1|125|Ref2|150|Ref3",
         "1:10,11,20,21,30,31"},
    };
    data.update();
    for (const auto& [letter, firmware, place, row, curves, drawn] : cases) {
        sheet.removeRows();
        layOut(letter, firmware, place);
        append({row});
        data.update();
        EXPECT_EQ(names(), curves);
        EXPECT_EQ(points(), drawn);
    }
}

TEST_F(PlotDataTest, ASheetOfNoKnownTypeIsNamedByItsHeaderOrByNumbers) {
    append({"1|11/21/26|1:00:00|10|20"});
    data.update();
    EXPECT_EQ(names(), "Value 1|Value 2|Value 3|Value 4|Value 5|Value 6");
    EXPECT_EQ(points(), "1:10,20,-,-,-,-");
    sheet.setHeader({}, texts("Data #|Date|Time|100||150"));
    data.update();
    EXPECT_EQ(names(), "100|Value 2|150");
    EXPECT_EQ(points(), "1:10,20,-");
}

TEST_F(PlotDataTest, ACellThatIsNoNumberIsAGap) {
    layOut("V", 512);
    append({"1|d|t|10|x|-3.5| 40 ", "2|d|t||1e2|12 34|1,5", "3|d|t|1e999", "4|d|t|nan|inf|0x10|.5"});
    data.update();
    EXPECT_EQ(points(), "1:10,-,-3.5,40 2:-,100,-,- 3:-,-,-,- 4:-,-,-,0.5");
}

TEST_F(PlotDataTest, RowsWithoutARecordNumberAreLeftOut) {
    layOut("F", 310);
    append({"1|d|t|10", "two|d|t|20", "|d|t|30", "4|d|t|40"});
    data.update();
    EXPECT_EQ(points(), "1:10 4:40");
    EXPECT_EQ(data.row(1), 3);
    EXPECT_EQ(data.rowCount(), 4);
    EXPECT_EQ(data.rowsWithoutPlace(), 2);
}

TEST_F(PlotDataTest, TimesAreSecondsWithoutATimeZone) {
    layOut("F", 310);
    data.setAxis(PlotData::Axis::Time);
    append({"1|1/1/70|0:00:10|1", "2|1/2/70|0:00:00|2", "3|1/2/1970|1:00:00 PM|3", "4|01-03-70|9:05:07|4"});
    data.update();
    EXPECT_EQ(points(), "10:1 86400:2 133200:3 205507:4");
}

TEST_F(PlotDataTest, RowsWithoutAReadableTimeAreLeftOutOnTheTimeAxisOnly) {
    layOut("F", 310);
    append({"1|1/1/70|0:00:10|1", "2|1/1/70|25:00:00|2", "3|13/1/70|0:00:12|3", "4||0:00:13|4", "5|1/1/70|x|5",
            "6|1/1/70|0:00:15|6"});
    data.setAxis(PlotData::Axis::Time);
    data.update();
    EXPECT_EQ(points(), "10:1 15:6");
    EXPECT_EQ(data.rowsWithoutPlace(), 4);
    data.setAxis(PlotData::Axis::Record);
    EXPECT_EQ(data.update(), PlotData::Change::Relaid);
    EXPECT_EQ(data.pointCount(), 6);
    EXPECT_EQ(data.rowsWithoutPlace(), 0);
}

TEST_F(PlotDataTest, WhereTheClockWasSetBackRowsStandAtTheirTimeInTheirOrder) {
    layOut("F", 310);
    data.setAxis(PlotData::Axis::Time);
    append({"1|1/1/70|0:00:10|1", "2|1/1/70|0:00:20|2", "3|1/1/70|0:00:20|3"});
    data.update();
    append({"4|1/1/70|0:00:10|4", "5|1/1/70|0:00:15|5"});
    EXPECT_EQ(data.update(), PlotData::Change::Relaid);
    append({"6|1/1/70|0:00:21|6"});
    EXPECT_EQ(data.update(), PlotData::Change::Appended);
    EXPECT_EQ(points(), "10:1 10:4 15:5 20:2 20.5:3 21:6");
    EXPECT_EQ(data.row(1), 3);
}

TEST_F(PlotDataTest, RowsOfOneSecondAreSpreadEvenlyOverIt) {
    layOut("F", 310);
    data.setAxis(PlotData::Axis::Time);
    append(
        {"1|1/1/70|0:00:10|1", "2|1/1/70|0:00:11|2", "3|1/1/70|0:00:11|3", "4|1/1/70|0:00:11|4", "5|1/1/70|0:00:11|5"});
    data.update();
    EXPECT_EQ(points(), "10:1 11:2 11.25:3 11.5:4 11.75:5");
    append({"6|1/1/70|0:00:12|6", "7|1/1/70|0:00:12|7"});
    EXPECT_EQ(data.update(), PlotData::Change::Appended);
    EXPECT_EQ(points(), "10:1 11:2 11.25:3 11.5:4 11.75:5 12:6 12.25:7") << "as many are expected as came before";
    EXPECT_EQ(data.firstChanged(), 5);
    append({"8|1/1/70|0:00:14|8"});
    EXPECT_EQ(data.update(), PlotData::Change::Appended);
    EXPECT_EQ(points(), "10:1 11:2 11.25:3 11.5:4 11.75:5 12:6 12.5:7 14:8");
    EXPECT_EQ(data.firstChanged(), 5) << "the second that is whole now is laid anew";
    append({"9|1/1/70|0:00:14|9", "10|1/1/70|0:00:14|10"});
    data.update();
    EXPECT_TRUE(QString::fromStdString(points()).endsWith(QLatin1String(" 14:8 14.3333333333:9 14.6666666667:10")))
        << points();
}

TEST_F(PlotDataTest, AClockThatStandsStillIsSpreadToo) {
    layOut("F", 310);
    data.setAxis(PlotData::Axis::Time);
    int relaid = 0;
    for (int row = 1; row <= 1000; ++row) {
        sheet.appendRow(
            {QString::number(row), QStringLiteral("1/1/70"), QStringLiteral("0:00:10"), QStringLiteral("1")});
        data.update();
        relaid += data.firstChanged() < row - 1 ? 1 : 0;
    }
    EXPECT_LT(relaid, 60) << "and not all points are laid anew for each row";
    for (int point = 1; point < 1000; ++point) {
        EXPECT_GT(data.place(point), data.place(point - 1));
        EXPECT_LT(data.place(point), 11.0);
    }
}

TEST_F(PlotDataTest, ARangeHasItsNumbersAndItsRows) {
    layOut("V", 512);
    append({"1|||10|1|x|5", "2|||20|2|x|5", "3|||30||x|5", "2|||40|4|x|5", "x|||50|5|x|5", "4|||60|6|x|5"});
    data.update();
    EXPECT_EQ(data.statistics(0, 2, 3).count(), 3);
    EXPECT_DOUBLE_EQ(data.statistics(0, 2, 3).mean(), 30.0);
    EXPECT_EQ(data.statistics(1, 2, 3).count(), 2) << "a gap is no number";
    EXPECT_EQ(data.statistics(2, 0, 9).count(), 0);
    EXPECT_EQ(data.rowsBetween(2, 3), (std::vector<RowRange>{{1, 3}}));
    EXPECT_EQ(data.rowsBetween(1.5, 2.5), (std::vector<RowRange>{{1, 1}, {3, 3}}));
    EXPECT_EQ(data.rowsBetween(0, 9), (std::vector<RowRange>{{0, 3}, {5, 5}}));
    EXPECT_TRUE(data.rowsBetween(7, 9).empty());
}

TEST_F(PlotDataTest, APointContinuesTheRunOfTheOneBefore) {
    layOut("F", 310);
    sheet.beginSeries();
    append({"1|||1", "2|||1"});
    sheet.beginSeries();
    append({"3|||1", "4|||1"});
    data.update();
    std::string joined;
    for (int point = 0; point < data.pointCount(); ++point) {
        joined += data.continues(point) ? '-' : '|';
    }
    EXPECT_EQ(joined, "|-|-");
}

TEST_F(PlotDataTest, NewRowsAreAddedBehindThoseThatAreThere) {
    layOut("F", 310);
    EXPECT_EQ(data.update(), PlotData::Change::Relaid);
    EXPECT_EQ(data.update(), PlotData::Change::None);
    append({"1|d|t|10", "2|d|t|20"});
    EXPECT_EQ(data.update(), PlotData::Change::Appended);
    append({"3|d|t|30"});
    EXPECT_EQ(points(), "1:10 2:20") << "the sheet is followed only when asked";
    EXPECT_EQ(data.update(), PlotData::Change::Appended);
    EXPECT_EQ(data.update(), PlotData::Change::None);
    EXPECT_EQ(points(), "1:10 2:20 3:30");
}

TEST_F(PlotDataTest, RemovedRowsAreNoticedAlsoIfAsManyHaveCome) {
    layOut("F", 310);
    append({"1|d|t|10"});
    data.update();
    sheet.removeRows();
    append({"1|d|t|99"});
    EXPECT_EQ(data.update(), PlotData::Change::Replaced);
    EXPECT_EQ(points(), "1:99");
    sheet.removeRows();
    EXPECT_EQ(data.update(), PlotData::Change::Replaced);
    EXPECT_EQ(data.pointCount(), 0);
    EXPECT_EQ(data.rowCount(), 0);
}

TEST_F(PlotDataTest, RowsUnderTheHeaderOfAnotherLayoutAreLeftOut) {
    layOut("V", 512);
    append({"1|d|t|10|20|30|40", "2|d|t|10|20|30|40"});
    data.update();
    const std::string drawn = points();
    layOut("F", 310);
    EXPECT_EQ(data.update(), PlotData::Change::Relaid);
    EXPECT_EQ(points(), drawn) << "still of the sheet's own type";
    EXPECT_EQ(data.curveCount(), 4);
    EXPECT_EQ(data.name(3).toStdString(), "Ref");
    append({"3|d|t|2400"});
    EXPECT_EQ(data.update(), PlotData::Change::Relaid);
    EXPECT_EQ(data.name(0).toStdString(), "Output");
    EXPECT_EQ(points(), "3:2400");
    EXPECT_EQ(data.rowsOfOtherLayout(), 2);
    EXPECT_EQ(data.rowsWithoutPlace(), 0);
}

TEST_F(PlotDataTest, TheSameHeaderLaidOutAgainKeepsThePoints) {
    layOut("F", 310);
    append({"1|d|t|10"});
    data.update();
    layOut("F", 310, HeaderPlace::GridOnClearing);
    EXPECT_EQ(data.update(), PlotData::Change::Relaid);
    EXPECT_EQ(points(), "1:10");
}

TEST_F(PlotDataTest, RowByRowIsTheSameAsAllAtOnce) {
    for (const PlotData::Axis axis : {PlotData::Axis::Record, PlotData::Axis::Time}) {
        sheet.removeRows();
        layOut("V", 512);
        data.setAxis(axis);
        for (int row = 0; row < 500; ++row) {
            // Times that go back now and then, records that repeat, cells that are no numbers.
            const int second = (row * 7) % 60;
            sheet.appendRow(
                {QString::number(row % 97 == 5 ? row / 2 : row), QStringLiteral("11/21/26"),
                 QStringLiteral("1:%1:%2").arg(row / 60, 2, 10, QChar(u'0')).arg(second, 2, 10, QChar(u'0')),
                 QString::number(row), row % 11 == 0 ? QStringLiteral("?") : QString::number(row * 2),
                 QString::number(-row), QString()});
            data.update();
        }
        PlotData whole(sheet);
        whole.setAxis(axis);
        whole.update();
        EXPECT_EQ(points(), points(whole));
        EXPECT_EQ(data.pointCount(), 500);
    }
}

TEST_F(PlotDataTest, RowsAreFoundAgainAndTheNewestAreKnownInEitherOrder) {
    layOut("F", 310);
    append({"10|||1", "x|||1", "20|||1", "30|||1"});
    data.update();
    EXPECT_EQ(data.pointOf(2), 1);
    EXPECT_EQ(data.pointOf(1), -1) << "it has no point";
    EXPECT_EQ(data.pointOf(-1), -1);
    EXPECT_EQ(data.pointOf(4), -1);
    const auto newest = [this](int count) {
        const PlotData::Span span = data.newest(count);
        return std::pair(span.first, span.last);
    };
    EXPECT_EQ(newest(2), std::pair(20.0, 30.0));
    EXPECT_EQ(newest(9), std::pair(10.0, 30.0));
    append({"5|||1", "15|||1"});
    data.update();
    EXPECT_EQ(data.pointOf(4), 0);
    EXPECT_EQ(data.pointOf(0), 1);
    EXPECT_EQ(data.pointOf(5), 2);
    EXPECT_EQ(data.pointOf(1), -1);
    EXPECT_EQ(newest(1), std::pair(15.0, 15.0));
    EXPECT_EQ(newest(2), std::pair(5.0, 15.0));
    EXPECT_EQ(newest(3), std::pair(5.0, 30.0));
    sheet.removeRows();
    append({"1|||1", "2|||1"});
    data.update();
    EXPECT_EQ(data.pointOf(1), 1);
    EXPECT_EQ(newest(1), std::pair(2.0, 2.0));
}

TEST_F(PlotDataTest, ThePointNearestToAPlace) {
    EXPECT_EQ(data.nearestPoint(1.0), -1);
    layOut("F", 310);
    append({"1|d|t|10", "2|d|t|20", "4|d|t|40", "4|d|t|41"});
    data.update();
    EXPECT_EQ(data.nearestPoint(-5.0), 0);
    EXPECT_EQ(data.nearestPoint(1.4), 0);
    EXPECT_EQ(data.nearestPoint(1.5), 1);
    EXPECT_EQ(data.nearestPoint(2.9), 1);
    EXPECT_EQ(data.nearestPoint(3.1), 2);
    EXPECT_EQ(data.nearestPoint(4.0), 3);
    EXPECT_EQ(data.nearestPoint(1e9), 3);
    EXPECT_EQ(data.firstPointFrom(2.0), 1);
    EXPECT_EQ(data.firstPointFrom(4.5), 4);
}

} // namespace

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

TEST_F(PlotViewTest, APaneHasTheValuesOfItsCurveAndChangesAreThoseFromTheMean) {
    sheet.appendRow(QStringLiteral("1|||100|1000|x|").split(u'|'));
    sheet.appendRow(QStringLiteral("2|||300|1100||").split(u'|'));
    data.update();
    const Range all{.lower = 0, .upper = 9};
    EXPECT_EQ(view.values(data, 0, all), (Range{.lower = 90, .upper = 310}));
    EXPECT_EQ(view.values(data, 1, all), (Range{.lower = 995, .upper = 1105}));
    EXPECT_EQ(view.values(data, 2, all), (Range{.lower = 0, .upper = 1})) << "only gaps";
    EXPECT_EQ(view.changes(data, shown, all), (Range{.lower = -110, .upper = 110}));
    view.setMode(Mode::All);
    shown = {false, true, true, true};
    EXPECT_EQ(view.changes(data, shown, all), (Range{.lower = -55, .upper = 55}));
}

TEST_F(PlotViewTest, ValuesAtTheVeryEdgeFit) {
    append(1, QStringLiteral("0"));
    append(1, QStringLiteral("100"));
    const Range first = values();
    for (const double edge : {first.upper, first.lower}) {
        append(1, QString::number(edge));
        EXPECT_EQ(values(), first);
    }
}

} // namespace
} // namespace orv
