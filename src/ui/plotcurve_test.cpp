// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcurve.h"

#include "testing/graphpagetest.h"

#include <cstdlib>

namespace orv {

namespace {

class PlotCurveTest : public GraphPageTest {
protected:
    PlotCurveTest() { layOut("V", 512); }

    /// Rows of which only the first value is more than "?".
    void fillWith(int rows, const std::function<QString(int row)>& value) {
        sheet.removeRows();
        for (int row = 1; row <= rows; ++row) {
            sheet.appendRow({QString::number(row), QString(), QString(), value(row), gap, gap, gap});
        }
        page.refreshNow();
    }

    /// Whether the first curve is seen within a few pixels of a value of a row.
    bool isSeen(int row, double value) {
        const QColor colour = canvas().graph(0)->pen().color();
        // Symbols are smooth and may have no pixel of the very colour.
        const auto resembles = [&colour](const QColor& other) {
            return std::abs(other.red() - colour.red()) + std::abs(other.green() - colour.green()) +
                       std::abs(other.blue() - colour.blue()) <
                   colourTolerance;
        };
        const QPoint at = pixel(row, value).toPoint();
        for (int x = at.x() - 5; x <= at.x() + 5; ++x) {
            for (int y = at.y() - 5; y <= at.y() + 5; ++y) {
                if (resembles(picture.pixelColor(x, y))) {
                    return true;
                }
            }
        }
        return false;
    }

    void draw() { picture = canvas().toPixmap().toImage(); }

    static constexpr int colourTolerance = 100;
    const QString gap = QStringLiteral("?");
    QImage picture;
};

TEST_F(PlotCurveTest, ASpikeBesideAGapIsSeenWhenManyRowsShareAPixel) {
    commands.activity = Activity::Collecting;
    constexpr int rows = 20000;
    constexpr int spikes = 40;
    int seen = 0;
    for (int spike = 0; spike < spikes; ++spike) {
        const int at = 5000 + spike * 7;
        fillWith(rows, [&](int row) {
            if (row == at) {
                return QStringLiteral("9000");
            }
            return row >= at - 13 && row < at - 3 ? gap : QStringLiteral("100");
        });
        showAll().click();
        draw();
        seen += isSeen(at, 9000) ? 1 : 0;
    }
    EXPECT_EQ(seen, spikes);
}

TEST_F(PlotCurveTest, ANumberAloneBetweenGapsHasItsSymbol) {
    commands.activity = Activity::Collecting;
    constexpr int rows = 100;
    int seen = 0;
    for (int alone = 1; alone <= rows; ++alone) {
        fillWith(rows, [&](int row) { return row == alone ? QStringLiteral("500") : gap; });
        showAll().click();
        draw();
        seen += isSeen(alone, 500) ? 1 : 0;
    }
    EXPECT_EQ(seen, rows);
}

TEST_F(PlotCurveTest, EveryOneOfManyLoneNumbersIsSeen) {
    commands.activity = Activity::Collecting;
    constexpr int rows = 4000;
    const auto value = [](int row) { return row * 37 % 1000; };
    fillWith(rows, [&](int row) { return row % 2 == 0 ? QString::number(value(row)) : gap; });
    showAll().click();
    draw();
    int unseen = 0;
    for (int row = 2; row <= rows; row += 2) {
        unseen += isSeen(row, value(row)) ? 0 : 1;
    }
    EXPECT_EQ(unseen, 0);
}

TEST_F(PlotCurveTest, TheLineIsInterruptedByAGap) {
    commands.activity = Activity::Collecting;
    fillWith(100, [&](int row) { return row == 50 ? gap : QString::number(row < 50 ? 0 : 1000); });
    draw();
    EXPECT_TRUE(isSeen(49, 0));
    EXPECT_TRUE(isSeen(51, 1000));
    EXPECT_FALSE(isSeen(50, 500));
    fillWith(100, [&](int row) { return QString::number(row * 10); });
    draw();
    EXPECT_TRUE(isSeen(50, 500)) << "it would be seen there";
}

} // namespace

} // namespace orv
