// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcurve.h"

#include "testing/graphpagetest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

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

namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

/// What each kind of colour vision makes of linear red, green and blue, after Machado, Oliveira and Fernandes (2009),
/// the kinds of blindness at full severity.
constexpr Matrix visions[] = {
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}};

double linear(float part) {
    return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

Vector linear(const QColor& colour) {
    return {linear(colour.redF()), linear(colour.greenF()), linear(colour.blueF())};
}

double dot(const Vector& left, const Vector& right) {
    return left[0] * right[0] + left[1] * right[1] + left[2] * right[2];
}

double luminance(const Vector& rgb) {
    return dot({0.2126, 0.7152, 0.0722}, rgb);
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(linear(one)) + 0.05;
    const double second = luminance(linear(other)) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

/// CIE Lab of a colour as it is seen.
Vector lab(const QColor& colour, const Matrix& vision) {
    Vector seen{};
    for (std::size_t part = 0; part < 3; ++part) {
        seen[part] = std::clamp(dot(vision[part], linear(colour)), 0.0, 1.0);
    }
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
    const double x = f(dot({0.4124, 0.3576, 0.1805}, seen) / 0.9505);
    const double y = f(luminance(seen));
    const double z = f(dot({0.0193, 0.1192, 0.9505}, seen) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

void expectLegible(const PlotTheme& theme) {
    EXPECT_GE(contrast(theme.text, theme.background), 7.0);
    for (std::size_t one = 0; one < theme.curves.size(); ++one) {
        EXPECT_GE(contrast(theme.curves[one], theme.background), 3.0) << one;
        for (std::size_t other = 0; other < one; ++other) {
            for (std::size_t vision = 0; vision < std::size(visions); ++vision) {
                const Vector first = lab(theme.curves[one], visions[vision]);
                const Vector second = lab(theme.curves[other], visions[vision]);
                EXPECT_GE(std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]), 35.0)
                    << one << " and " << other << " under vision " << vision;
            }
        }
    }
}

QPalette palette(const QColor& base, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

TEST(PlotTheme, ColoursCanBeToldApartOnLightAndDarkByEveryone) {
    expectLegible(plotTheme(palette(Qt::white, Qt::black)));
    expectLegible(plotTheme(palette(QColor(35, 38, 41), QColor(240, 240, 240))));
    expectLegible(plotTheme(palette(Qt::black, Qt::white)));
    expectLegible(paperTheme());
}

TEST(PlotTheme, FollowsThePaletteAndPaperDoesNot) {
    const PlotTheme dark = plotTheme(palette(Qt::black, Qt::white));
    EXPECT_EQ(dark.background, QColor(Qt::black));
    EXPECT_EQ(dark.text, QColor(Qt::white));
    EXPECT_NE(dark.curves, paperTheme().curves);
    EXPECT_EQ(plotTheme(palette(Qt::white, Qt::black)).curves, paperTheme().curves);
    EXPECT_EQ(paperTheme().background, QColor(Qt::white));
}

} // namespace

} // namespace orv
