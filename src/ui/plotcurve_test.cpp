// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcurve.h"

#include "testing/graphpagetest.h"

#include <cstdlib>

namespace orv {

namespace {

class PlotCurveTest : public GraphPageTest {
protected:
    PlotCurveTest() {
        layOut("V", 512);
        commands.activity = Activity::Collecting;
    }

    /// Draws rows of which only the first value is more than "?".
    void draw(int rows, const std::function<QString(int row)>& value, bool all = true) {
        sheet.removeRows();
        for (int row = 1; row <= rows; ++row) {
            sheet.appendRow({QString::number(row), QString(), QString(), value(row), gap, gap, gap});
        }
        page.refreshNow();
        if (all) {
            showAll().click();
        }
        picture = canvas().toPixmap().toImage();
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

    static constexpr int colourTolerance = 100;
    const QString gap = QStringLiteral("?");
    QImage picture;
};

TEST_F(PlotCurveTest, ASpikeBesideAGapIsSeenWhenManyRowsShareAPixel) {
    for (int spike = 0; spike < 40; ++spike) {
        const int at = 5000 + spike * 7;
        draw(20000, [&](int row) {
            const bool inGap = row >= at - 13 && row < at - 3;
            return row == at ? QStringLiteral("9000") : inGap ? gap : QStringLiteral("100");
        });
        EXPECT_TRUE(isSeen(at, 9000)) << at;
    }
}

TEST_F(PlotCurveTest, ANumberAloneBetweenGapsHasItsSymbol) {
    for (int alone = 1; alone <= 100; ++alone) {
        draw(100, [&](int row) { return row == alone ? QStringLiteral("500") : gap; });
        EXPECT_TRUE(isSeen(alone, 500)) << alone;
    }
}

TEST_F(PlotCurveTest, EveryOneOfManyLoneNumbersIsSeen) {
    constexpr int rows = 4000;
    const auto value = [](int row) { return row * 37 % 1000; };
    draw(rows, [&](int row) { return row % 2 == 0 ? QString::number(value(row)) : gap; });
    for (int row = 2; row <= rows; row += 2) {
        EXPECT_TRUE(isSeen(row, value(row))) << row;
    }
}

TEST_F(PlotCurveTest, TheLineIsInterruptedByAGap) {
    draw(
        100, [&](int row) { return row == 50 ? gap : QString::number(row < 50 ? 0 : 1000); }, false);
    EXPECT_TRUE(isSeen(49, 0));
    EXPECT_TRUE(isSeen(51, 1000));
    EXPECT_FALSE(isSeen(50, 500));
    draw(
        100, [&](int row) { return QString::number(row * 10); }, false);
    EXPECT_TRUE(isSeen(50, 500)) << "it would be seen there";
}

} // namespace

} // namespace orv
