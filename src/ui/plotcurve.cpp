// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcurve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

namespace orv {

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
    thinOut(*scatterData);
    appendLonePoints(*scatterData, begin, end);
}

/// Rows that came in blocks lie close together on an axis of time: the first of each stretch is enough.
void PlotCurve::thinOut(QVector<QCPGraphData>& points) const {
    constexpr double closest = 12.0; // pixels
    const double wanted = closest * mKeyAxis->range().size() / mKeyAxis->axisRect()->width();
    if (!(wanted > 0.0) || !std::isfinite(wanted)) {
        return;
    }
    // A power of two, so that symbols stay with their points while the view moves.
    const double stretch = std::exp2(std::ceil(std::log2(wanted)));
    double taken = std::numeric_limits<double>::quiet_NaN();
    points.erase(std::remove_if(points.begin(), points.end(),
                                [stretch, &taken](const QCPGraphData& point) {
                                    const double number = std::floor(point.key / stretch);
                                    return std::exchange(taken, number) == number;
                                }),
                 points.end());
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

double RecordTicker::getTickStep(const QCPRange& range) {
    double magnitude = 1.0;
    const double mantissa = getMantissa(range.size() / mTickCount, &magnitude);
    return std::max(1.0, pickClosest(mantissa, {1.0, 2.0, 5.0, 10.0}) * magnitude);
}

TimeTicker::TimeTicker() {
    setDateTimeSpec(Qt::UTC);
}

double TimeTicker::getTickStep(const QCPRange& range) {
    constexpr double millisecond = 1e-3;
    const double step = std::max(QCPAxisTickerDateTime::getTickStep(range), millisecond);
    setDateTimeFormat(step != std::floor(step) ? QStringLiteral("h:mm:ss.zzz") : QStringLiteral("h:mm:ss"));
    return step;
}

QVector<QString> TimeTicker::createLabelVector(const QVector<double>& ticks, const QLocale& locale, QChar formatChar,
                                               int precision) {
    QVector<QString> labels = QCPAxisTickerDateTime::createLabelVector(ticks, locale, formatChar, precision);
    QDate before;
    for (qsizetype tick = 0; tick < labels.size(); ++tick) {
        const QDate date = keyToDateTime(ticks[tick]).toUTC().date();
        if (date != before) {
            labels[tick] += u'\n' + QLocale::c().toString(date, QStringLiteral("M/d/yy"));
        }
        before = date;
    }
    return labels;
}

} // namespace orv
