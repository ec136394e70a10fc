// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plotdata.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace orv {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double millisecond = 1e-3;

double numberOf(const QString& cell) {
    const double number = numberText(cell).value_or(notANumber);
    return std::isfinite(number) ? number : notANumber; // digits beyond what a number can hold read as infinite
}

template <typename Value>
void reorder(std::vector<Value>& values, const std::vector<std::size_t>& order) {
    std::vector<Value> sorted;
    sorted.reserve(values.size());
    for (const std::size_t from : order) {
        sorted.push_back(values[from]);
    }
    values = std::move(sorted);
}

} // namespace

void PlotData::setAxis(Axis axis) {
    if (axis != axis_) {
        axis_ = axis;
        stale_ = true;
    }
}

PlotData::Change PlotData::update() {
    const bool replaced = sheet_.removals() != removals_;
    const bool relaid = stale_ || sheet_.headerChanges() != headerChanges_;
    const int rows = sheet_.rowCount();
    if (replaced || relaid) {
        stale_ = false;
        removals_ = sheet_.removals();
        headerChanges_ = sheet_.headerChanges();
        taken_ = 0;
        places_.clear();
        rows_.clear();
        rowsInOrder_ = true;
        nameCurves();
    } else if (rows == taken_) {
        return Change::None;
    }
    rowsOfOtherLayout_ = sheet_.rowsOfOtherLayout();
    bool sorted = true;
    for (int row = std::max(taken_, rowsOfOtherLayout_); row < rows; ++row) {
        sorted = take(row) && sorted;
    }
    taken_ = rows;
    if (!sorted) {
        sortPoints();
    }
    if (replaced) {
        return Change::Replaced;
    }
    return relaid || !sorted ? Change::Relaid : Change::Appended;
}

void PlotData::nameCurves() {
    const QStringList header = sheet_.columnNames().mid(sheetcolumn::firstValue);
    const RowLayout layout = sheet_.type().layout();
    // A sheet of no known type may yet have a header row; without one nothing is known but how many values there can
    // be.
    const auto count =
        layout == RowLayout::Unknown && !header.isEmpty() ? static_cast<int>(header.size()) : valueCount(layout);
    names_.clear();
    for (int curve = 0; curve < count; ++curve) {
        const QString name = header.value(curve);
        names_.push_back(name.isEmpty() ? QStringLiteral("Value %1").arg(curve + 1) : name);
    }
    values_.assign(names_.size(), {});
}

bool PlotData::take(int row) {
    const double place = placeOf(row);
    if (std::isnan(place)) {
        return true;
    }
    const bool inOrder = places_.empty() || place >= places_.back();
    places_.push_back(place);
    rows_.push_back(row);
    for (std::size_t curve = 0; curve < values_.size(); ++curve) {
        values_[curve].push_back(numberOf(sheet_.cell(row, sheetcolumn::firstValue + static_cast<int>(curve))));
    }
    return inOrder;
}

double PlotData::placeOf(int row) {
    if (axis_ == Axis::Record) {
        return numberOf(sheet_.cell(row, sheetcolumn::record));
    }
    const QString dateCell = sheet_.cell(row, sheetcolumn::date);
    if (dateCell != dateText_ || dateText_.isEmpty()) {
        dateText_ = dateCell;
        const std::optional<QDate> date = instrumentDate(dateCell);
        dateSeconds_ =
            date ? static_cast<double>(date->startOfDay(Qt::UTC).toMSecsSinceEpoch()) * millisecond : notANumber;
    }
    const std::optional<QTime> time = sheetTime(sheet_.cell(row, sheetcolumn::time));
    return time ? dateSeconds_ + time->msecsSinceStartOfDay() * millisecond : notANumber;
}

void PlotData::sortPoints() {
    rowsInOrder_ = false;
    std::vector<std::size_t> order(places_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    // Points at one place keep the order of their rows, however often points are sorted in.
    std::sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
        return places_[left] != places_[right] ? places_[left] < places_[right] : rows_[left] < rows_[right];
    });
    reorder(places_, order);
    reorder(rows_, order);
    for (std::vector<double>& values : values_) {
        reorder(values, order);
    }
}

int PlotData::firstPointFrom(double place) const {
    return static_cast<int>(std::lower_bound(places_.begin(), places_.end(), place) - places_.begin());
}

int PlotData::nearestPoint(double place) const {
    if (places_.empty()) {
        return -1;
    }
    const auto after = std::upper_bound(places_.begin(), places_.end(), place);
    if (after == places_.begin()) {
        return 0;
    }
    const int before = static_cast<int>(after - places_.begin()) - 1;
    return after != places_.end() && *after - place <= place - *(after - 1) ? before + 1 : before;
}

int PlotData::pointOf(int row) const {
    const auto found =
        rowsInOrder_ ? std::lower_bound(rows_.begin(), rows_.end(), row) : std::find(rows_.begin(), rows_.end(), row);
    return found != rows_.end() && *found == row ? static_cast<int>(found - rows_.begin()) : -1;
}

PlotData::Span PlotData::newest(int count) const {
    const int older = std::max(0, pointCount() - count);
    if (rowsInOrder_) {
        return {.first = place(older), .last = places_.back()};
    }
    std::vector<int> rows = rows_;
    std::nth_element(rows.begin(), rows.begin() + older, rows.end());
    const int oldest = rows[static_cast<std::size_t>(older)];
    const auto isNewest = [oldest](int row) { return row >= oldest; };
    const auto first = std::find_if(rows_.begin(), rows_.end(), isNewest);
    const auto last = std::find_if(rows_.rbegin(), rows_.rend(), isNewest);
    return {.first = place(static_cast<int>(first - rows_.begin())),
            .last = place(static_cast<int>(rows_.rend() - last) - 1)};
}

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
