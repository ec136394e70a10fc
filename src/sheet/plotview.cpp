// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plotview.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orv {

namespace {

PlotView::Range withMargin(double lower, double upper, double part, double least) {
    const double margin = upper > lower ? (upper - lower) * part : least;
    return {.lower = lower - margin, .upper = upper + margin};
}

} // namespace

void PlotView::setMode(Mode mode) {
    mode_ = mode;
    keepValues_ = false;
}

void PlotView::setReceiving(bool receiving) {
    if (receiving && !receiving_) {
        setMode(Mode::Newest);
    }
    receiving_ = receiving;
}

void PlotView::noteChange(PlotData::Change change) {
    if (change == PlotData::Change::Replaced) {
        setMode(receiving_ ? Mode::Newest : Mode::All);
    }
}

PlotView::Range PlotView::places(const PlotData& data) const {
    constexpr double margin = 0.01;
    const int points = data.pointCount();
    if (points == 0) {
        return {.lower = 0.0, .upper = 1.0};
    }
    const PlotData::Span span = data.newest(mode_ == Mode::Newest ? followedPoints : points);
    return withMargin(span.first, span.last, margin, 1.0);
}

PlotView::Range PlotView::values(const PlotData& data, const std::vector<bool>& shown, Range places) {
    constexpr double margin = 0.05;
    constexpr double fillsWell = 0.6;
    double lower = std::numeric_limits<double>::infinity();
    double upper = -lower;
    const int end = data.firstPointFrom(std::nextafter(places.upper, std::numeric_limits<double>::infinity()));
    for (int point = data.firstPointFrom(places.lower); point < end; ++point) {
        for (int curve = 0; curve < data.curveCount(); ++curve) {
            if (shown[static_cast<std::size_t>(curve)]) {
                // Comparisons with a gap's NaN are false.
                const double value = data.value(curve, point);
                lower = value < lower ? value : lower;
                upper = value > upper ? value : upper;
            }
        }
    }
    if (lower > upper) {
        keepValues_ = false;
        return {.lower = 0.0, .upper = 1.0};
    }
    const bool fits = lower >= values_.lower && upper <= values_.upper;
    if (!keepValues_ || !fits || upper - lower < (values_.upper - values_.lower) * fillsWell) {
        values_ = withMargin(lower, upper, margin, std::max(1.0, std::abs(upper) * margin));
        keepValues_ = true;
    }
    return values_;
}

} // namespace orv
