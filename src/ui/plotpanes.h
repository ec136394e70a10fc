// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "sheet/plotdata.h"
#include "ui/plotcurve.h"
#include "ui/style.h"

#include <optional>
#include <vector>

namespace orv {

/// The panes of a plot, one under the other over one axis of places, and what lies over them: the cursor, a line
/// through all panes at its point and a line at the height of a curve there, and the range that was chosen.
///
/// The lowest pane is the plot's own, so that its xAxis is always the one with the labels.
class PlotPanes {
public:
    /// Both outlive it.
    PlotPanes(QCustomPlot& plot, const PlotData& data);

    Signal<> moved; ///< A range has become another, but not by setRanges().

    /// The plot's own pane, which stays whatever the arrangement is.
    QCPAxisRect* ownPane() const { return panes_.front(); }

    /// Gives each visible graph of the plot its pane and its axis of values.
    void arrange(PlotView::Arrangement arrangement);
    PlotView::Arrangement arrangement() const { return arrangement_; }

    /// `values` are those of each graph where it is stacked, else only those of the one axis.
    void setRanges(PlotView::Range places, const std::vector<PlotView::Range>& values);

    /// Before drawing so many pixels high: gives all panes the same height, though the lowest has the labels of the
    /// places below it, and each no more labels of values than it has room for.
    void fit(int height);

    /// Before drawing: where changes are shown, lays each graph by its mean over what is seen.
    void level();

    /// The pane at a position of the plot, also beside its axes; null if there is none.
    QCPAxisRect* paneAt(const QPointF& position) const;

    /// The point and the graph nearest to a position in a pane; both -1 elsewhere.
    struct Place {
        int point = -1;
        int graph = -1;
    };
    Place placeAt(const QPointF& position) const;

    /// Moves the cursor to a point, or to none (-1); `graph` has the line at its height, the first one if -1.
    void setCursor(int point, int graph);
    /// Shows the range, or none.
    void setRange(const std::optional<PlotView::Range>& range);
    const std::optional<PlotView::Range>& range() const { return range_; }

    void applyTheme(const PlotTheme& theme);
    void applyFont(const QFont& font);

private:
    struct Over {
        QCPItemStraightLine* cursor;
        QCPItemStraightLine* height;
        QCPItemRect* range;
    };

    void takeApart();
    void addPane();
    void setUp(QCPAxisRect* pane);
    void placeCursor();
    void placeRange();

    QCustomPlot& plot_;
    const PlotData& data_;
    PlotView::Arrangement arrangement_ = PlotView::Arrangement::Together;
    QCPMarginGroup* margins_;
    std::vector<QCPAxisRect*> panes_; ///< The plot's own first, then from the top.
    std::vector<QCPAxis*> levels_;    ///< Of each graph where changes are shown.
    std::vector<Over> over_;          ///< For each pane.
    PlotTheme theme_;
    QFont font_;
    Place cursor_;
    std::optional<PlotView::Range> range_;
    bool settingRanges_ = false;
};

} // namespace orv
