// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcurve.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace orv {

namespace {

// Found by a search that started from Okabe's and Ito's colours: under normal vision and each of the three kinds of
// colour blindness any two lie at least 35 apart in CIE Lab, and each has a contrast of 3 to the background.
constexpr std::array<QRgb, PlotTheme::curveColours> onLight{0xff343eb5, 0xffd97e04, 0xff00a976,
                                                            0xffaa87c7, 0xff613300, 0xff110d16};
constexpr std::array<QRgb, PlotTheme::curveColours> onDark{0xff4181fc, 0xffcf6b0a, 0xff19e987,
                                                           0xffb16faa, 0xffffe41a, 0xffd6ffff};

QColor between(const QColor& from, const QColor& to, float part) {
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * part,
                            from.greenF() + (to.greenF() - from.greenF()) * part,
                            from.blueF() + (to.blueF() - from.blueF()) * part);
}

PlotTheme themeOf(const QColor& background, const QColor& text, const QColor& focus) {
    constexpr int middle = 128;
    constexpr float faint = 0.15F;
    PlotTheme theme{
        .background = background, .text = text, .grid = between(background, text, faint), .focus = focus, .curves = {}};
    const auto& colours = background.lightness() < middle ? onDark : onLight;
    for (std::size_t curve = 0; curve < colours.size(); ++curve) {
        theme.curves[curve] = QColor::fromRgb(colours[curve]);
    }
    return theme;
}

} // namespace

PlotTheme plotTheme(const QPalette& palette) {
    return themeOf(palette.color(QPalette::Base), palette.color(QPalette::Text), palette.color(QPalette::Highlight));
}

PlotTheme paperTheme() {
    return themeOf(Qt::white, Qt::black, Qt::black);
}

namespace {

using Iterator = QCPGraphDataContainer::const_iterator;

constexpr double cellSize = 4.0; ///< Pixels; less than a symbol.

bool isGap(const QCPGraphData& point) {
    return std::isnan(point.value);
}

} // namespace

void PlotCurve::getOptimizedLineData(QVector<QCPGraphData>* lineData, const Iterator& begin,
                                     const Iterator& end) const {
    lineData->clear();
    // The library reduces the points of a pixel to the least and the greatest and finds neither if the first is NaN.
    QVector<QCPGraphData> reduced;
    for (Iterator run = std::find_if_not(begin, end, isGap); run != end;) {
        const Iterator gap = std::find_if(run, end, isGap);
        if (gap - run > 1) {
            reduced.clear();
            QCPGraph::getOptimizedLineData(&reduced, run, gap);
            lineData->append(reduced);
        } else {
            lineData->append(*run);
        }
        if (gap != end) {
            lineData->append(*gap);
        }
        run = std::find_if_not(gap, end, isGap);
    }
}

void PlotCurve::getOptimizedScatterData(QVector<QCPGraphData>* scatterData, Iterator begin, Iterator end) const {
    QCPGraph::getOptimizedScatterData(scatterData, begin, end);
    // The library would draw a gap's symbol in the corner of the window.
    scatterData->erase(std::remove_if(scatterData->begin(), scatterData->end(), isGap), scatterData->end());
    appendLonePoints(*scatterData, begin, end);
}

void PlotCurve::appendLonePoints(QVector<QCPGraphData>& points, Iterator begin, Iterator end) const {
    const Iterator first = data()->constBegin();
    const Iterator behindLast = data()->constEnd();
    const auto cellOf = [](double pixel) { return static_cast<long long>(std::floor(pixel / cellSize)); };
    // Of the symbols that would cover each other only one is drawn, or a sheet in which every other cell is no number
    // would take too long.
    long long column = 0;
    std::set<long long> taken;
    for (Iterator point = begin; point != end; ++point) {
        const bool alone = !isGap(*point) && (point == first || isGap(*(point - 1))) &&
                           (point + 1 == behindLast || isGap(*(point + 1)));
        if (!alone) {
            continue;
        }
        const long long itsColumn = cellOf(mKeyAxis->coordToPixel(point->key));
        if (itsColumn != column) {
            column = itsColumn;
            taken.clear();
        }
        if (taken.insert(cellOf(mValueAxis->coordToPixel(point->value))).second) {
            points.append(*point);
        }
    }
}

} // namespace orv
