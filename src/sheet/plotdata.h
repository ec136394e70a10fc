// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"
#include "sheet/statistics.h"

#include <QString>

#include <limits>
#include <optional>
#include <vector>

namespace orv {

/// The rows of the data sheet as curves: one for each value column, named as its header. All curves have the same
/// points, which are rows; a cell that is no number is NaN, a gap.
///
/// The points are sorted by their place on the axis; rows at the same place keep their order. Where the instrument's
/// clock was set back, the later rows therefore stand among the earlier ones that show the same time. A row whose place
/// cannot be read (a record number that is no number; a date or time that is none) has no point, nor has one that came
/// under the header row of another layout: its columns mean something else.
///
/// Follows the sheet, which outlives it, only when asked to by update(), at a cost that depends on the rows that are
/// new. A row takes about as many bytes as its text on the sheet.
class PlotData {
public:
    /// What decides a row's place.
    enum class Axis {
        Record, ///< The record number, the row's first cell.
        Time,   ///< Date and time, in seconds from the start of 1970; the instrument knows no time zone.
    };

    /// What update() found.
    enum class Change {
        None,
        Appended, ///< Points were added after those that were there, of which the last may stand elsewhere now.
        Relaid,   ///< Points or curves are others, but the sheet's rows have not been replaced.
        Replaced, ///< Rows were removed; what is there now came after that.
    };

    explicit PlotData(const DataSheet& sheet)
        : sheet_(sheet) {}

    Change update();
    /// Rows have been removed since, so that the points are no rows any more.
    bool isOutdated() const { return sheet_.removals() != removals_; }

    /// Takes effect at the next update().
    void setAxis(Axis axis);
    Axis axis() const { return axis_; }

    int curveCount() const { return static_cast<int>(names_.size()); }
    const QString& name(int curve) const { return names_[static_cast<std::size_t>(curve)]; }

    /// After Change::Appended: the first point that is new or has another place.
    int firstChanged() const { return firstChanged_; }

    int pointCount() const { return static_cast<int>(places_.size()); }
    double place(int point) const { return places_[static_cast<std::size_t>(point)]; }
    double value(int curve, int point) const {
        return values_[static_cast<std::size_t>(curve)][static_cast<std::size_t>(point)];
    }
    /// The row of the sheet that the point is.
    int row(int point) const { return rows_[static_cast<std::size_t>(point)]; }
    /// The point that is the row; -1 if there is none.
    int pointOf(int row) const;

    /// Whether the point is of the same run or download as the one before it.
    bool continues(int point) const {
        return point > 0 && sheet_.seriesOf(row(point)) == sheet_.seriesOf(row(point - 1));
    }

    /// The numbers of a curve from one place to another, both included.
    Statistics statistics(int curve, double lower, double upper) const;
    /// The rows whose points lie there, ascending.
    std::vector<RowRange> rowsBetween(double lower, double upper) const;

    /// The rows of the sheet at the last update(), and how many of them have no point, for either reason.
    int rowCount() const { return taken_; }
    int rowsOfOtherLayout() const { return rowsOfOtherLayout_; }
    int rowsWithoutPlace() const { return taken_ - rowsOfOtherLayout_ - pointCount(); }

    /// The first point at `place` or after it; pointCount() if there is none.
    int firstPointFrom(double place) const;
    /// The first point after `place`; pointCount() if there is none.
    int firstPointAfter(double place) const;
    /// The point nearest to `place`, the later of two; -1 if there is none.
    int nearestPoint(double place) const;

    struct Span {
        double first = 0.0;
        double last = 0.0;
    };
    /// Where the points of the `count` newest rows that have one lie; there must be points, and `count` be positive.
    Span newest(int count) const;

private:
    void nameCurves();
    bool take(int row);
    void sortPoints();
    double placeOf(int row);
    bool spreadNewest(int divisor);

    const DataSheet& sheet_;
    Axis axis_ = Axis::Record;
    bool stale_ = true;
    int removals_ = 0;
    int headerChanges_ = 0;
    int taken_ = 0;
    int rowsOfOtherLayout_ = 0;
    std::vector<QString> names_;
    std::vector<double> places_;
    std::vector<int> rows_;
    bool rowsInOrder_ = true;                 ///< Every point is a later row than the one before it.
    std::vector<std::vector<double>> values_; ///< A list of points for each curve.
    QString dateText_;                        ///< The date read last: most rows of a run have the same.
    double dateSeconds_ = 0.0;
    int firstChanged_ = 0;

    /// The newest rows, which show the same second.
    struct Second {
        double begin = std::numeric_limits<double>::quiet_NaN();
        int firstRow = 0;
        int count = 0;
        int divisor = 1; ///< Into so many parts the second is divided.
    };
    Second newest_;
};

/// Which part of the curves is seen.
///
/// While rows come in, the newest are followed; what was loaded is seen whole; who zooms or drags keeps what was chosen
/// until the rows are replaced or the next run begins.
class PlotView {
public:
    enum class Mode {
        All,    ///< Every point, also those that come.
        Newest, ///< The points of the newest rows, and what lies between them.
        Own,    ///< What the operator zoomed or dragged to.
    };

    /// How the curves stand to each other.
    enum class Arrangement {
        Together, ///< On one axis of values.
        Stacked,  ///< Each in a pane of its own.
        Change,   ///< On one axis, each less its mean over what is seen.
    };

    /// Followed are so many points at most: about two minutes of a usual run.
    static constexpr int followedPoints = 1000;

    struct Range {
        double lower = 0.0;
        double upper = 0.0;

        bool operator==(const Range&) const = default;
    };

    Mode mode() const { return mode_; }
    /// Sets the mode; the values' range is laid out anew.
    void setMode(Mode mode);

    /// Rows begin or cease to come from the instrument.
    void setReceiving(bool receiving);

    /// What became of the points; Relaid means, too, that they may lie along another axis.
    void noteChange(PlotData::Change change);

    /// The part of the axis to show, for a mode other than Own. A margin is left at either side.
    Range places(const PlotData& data) const;

    /// The values to show: those of the shown curves between `places`, with a margin. The same as before while the
    /// values fit and fill it well, so that the picture stands still. 0..1 where there are none.
    Range values(const PlotData& data, const std::vector<bool>& shown, Range places);
    /// The same for one curve, and for what the shown curves differ from their means between `places`.
    Range values(const PlotData& data, int curve, Range places);
    Range changes(const PlotData& data, const std::vector<bool>& shown, Range places);

private:
    /// What was shown last of some curves; empty after a new choice.
    using Kept = std::optional<Range>;

    static Range fit(Kept& kept, double lower, double upper);

    Mode mode_ = Mode::All;
    bool receiving_ = false;
    Kept together_;
    std::vector<Kept> panes_; ///< For each curve.
};

} // namespace orv
