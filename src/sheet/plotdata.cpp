// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plotdata.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace orv {

namespace {

constexpr double noPlace = std::numeric_limits<double>::quiet_NaN();
constexpr double millisecond = 1e-3;

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
        newest_ = Second();
        places_.clear();
        rows_.clear();
        rowsInOrder_ = true;
        nameCurves();
    } else if (rows == taken_) {
        return Change::None;
    }
    firstChanged_ = pointCount();
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
    double place = placeOf(row);
    if (std::isnan(place)) {
        return true;
    }
    bool inOrder = true;
    if (axis_ == Axis::Time) {
        if (place != newest_.begin) {
            // The second before is whole: what it holds can be spread evenly.
            inOrder = newest_.count == newest_.divisor || spreadNewest(newest_.count);
            newest_ = {.begin = place, .firstRow = row, .count = 0, .divisor = std::max(newest_.count, 1)};
        } else if (newest_.count == newest_.divisor) {
            constexpr int growth = 8; // so that a long second is not laid anew for each of its rows
            inOrder = spreadNewest(newest_.divisor + std::max(1, newest_.divisor / growth));
        }
        place += static_cast<double>(newest_.count++) / newest_.divisor;
    }
    inOrder = inOrder && (places_.empty() || place >= places_.back());
    places_.push_back(place);
    rows_.push_back(row);
    for (std::size_t curve = 0; curve < values_.size(); ++curve) {
        values_[curve].push_back(sheet_.number(row, sheetcolumn::firstValue + static_cast<int>(curve)));
    }
    return inOrder;
}

/// Divides the newest second anew. Returns whether the points are still in the order of their places.
bool PlotData::spreadNewest(int divisor) {
    newest_.divisor = divisor;
    if (rowsInOrder_) {
        const int first = pointCount() - newest_.count;
        for (int part = 0; part < newest_.count; ++part) {
            places_.at(static_cast<std::size_t>(first) + static_cast<std::size_t>(part)) =
                newest_.begin + static_cast<double>(part) / divisor;
        }
        firstChanged_ = std::min(firstChanged_, first);
        return true;
    }
    // Its points keep their order among each other, wherever they stand.
    int part = 0;
    for (std::size_t point = 0; point < rows_.size(); ++point) {
        if (rows_[point] >= newest_.firstRow) {
            places_[point] = newest_.begin + static_cast<double>(part++) / divisor;
        }
    }
    return false;
}

double PlotData::placeOf(int row) {
    if (axis_ == Axis::Record) {
        return sheet_.number(row, sheetcolumn::record);
    }
    const QString dateCell = sheet_.cell(row, sheetcolumn::date);
    if (dateCell != dateText_ || dateText_.isEmpty()) {
        dateText_ = dateCell;
        const std::optional<QDate> date = instrumentDate(dateCell);
        dateSeconds_ =
            date ? static_cast<double>(date->startOfDay(Qt::UTC).toMSecsSinceEpoch()) * millisecond : noPlace;
    }
    const std::optional<QTime> time = sheetTime(sheet_.cell(row, sheetcolumn::time));
    return time ? dateSeconds_ + time->msecsSinceStartOfDay() * millisecond : noPlace;
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

int PlotData::firstPointAfter(double place) const {
    return static_cast<int>(std::upper_bound(places_.begin(), places_.end(), place) - places_.begin());
}

Statistics PlotData::statistics(int curve, double lower, double upper) const {
    Statistics numbers;
    const int end = firstPointAfter(upper);
    for (int point = firstPointFrom(lower); point < end; ++point) {
        numbers.add(value(curve, point));
    }
    return numbers;
}

std::vector<RowRange> PlotData::rowsBetween(double lower, double upper) const {
    const int first = firstPointFrom(lower);
    std::vector<int> rows(rows_.begin() + first, rows_.begin() + std::max(first, firstPointAfter(upper)));
    std::ranges::sort(rows);
    std::vector<RowRange> ranges;
    for (const int row : rows) {
        if (ranges.empty() || ranges.back().second + 1 != row) {
            ranges.emplace_back(row, row);
        } else {
            ranges.back().second = row;
        }
    }
    return ranges;
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
    together_.reset();
    panes_.clear();
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

PlotView::Range PlotView::fit(Kept& kept, double lower, double upper) {
    constexpr double margin = 0.05;
    constexpr double fillsWell = 0.6;
    if (lower > upper) {
        kept.reset();
        return {.lower = 0.0, .upper = 1.0};
    }
    const bool fits = kept && lower >= kept->lower && upper <= kept->upper;
    if (!fits || upper - lower < (kept->upper - kept->lower) * fillsWell) {
        kept = withMargin(lower, upper, margin, std::max(1.0, std::abs(upper) * margin));
    }
    return *kept;
}

namespace {

/// Calls `take` with the statistics of each shown curve that has a number there.
template <typename Take>
void ofEachShown(const PlotData& data, const std::vector<bool>& shown, PlotView::Range places, const Take& take) {
    for (int curve = 0; curve < data.curveCount(); ++curve) {
        if (shown[static_cast<std::size_t>(curve)]) {
            const Statistics numbers = data.statistics(curve, places.lower, places.upper);
            if (numbers.count() > 0) {
                take(numbers);
            }
        }
    }
}

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

PlotView::Range PlotView::values(const PlotData& data, const std::vector<bool>& shown, Range places) {
    Range all{.lower = infinity, .upper = -infinity};
    ofEachShown(data, shown, places, [&all](const Statistics& numbers) {
        all = {.lower = std::min(all.lower, numbers.minimum()), .upper = std::max(all.upper, numbers.maximum())};
    });
    return fit(together_, all.lower, all.upper);
}

PlotView::Range PlotView::values(const PlotData& data, int curve, Range places) {
    panes_.resize(static_cast<std::size_t>(data.curveCount()));
    const Statistics numbers = data.statistics(curve, places.lower, places.upper);
    return fit(panes_[static_cast<std::size_t>(curve)], numbers.minimum(), numbers.maximum());
}

PlotView::Range PlotView::changes(const PlotData& data, const std::vector<bool>& shown, Range places) {
    Range all{.lower = infinity, .upper = -infinity};
    ofEachShown(data, shown, places, [&all](const Statistics& numbers) {
        all = {.lower = std::min(all.lower, numbers.minimum() - numbers.mean()),
               .upper = std::max(all.upper, numbers.maximum() - numbers.mean())};
    });
    return fit(together_, all.lower, all.upper);
}

} // namespace orv
