// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotpanes.h"

#include "base/words.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orv {

using Arrangement = PlotView::Arrangement;

namespace {

constexpr int leastPaneHeight = 20; ///< Of a pane, in pixels.
constexpr int paneGap = 5;          ///< Pixels above and below the curves of a pane without labels of places.
constexpr int loneGap = 15;         ///< The same around a pane that stands alone.

QMargins around(int gap) {
    return {gap, gap, gap, gap};
}

} // namespace

PlotPanes::PlotPanes(QCustomPlot& plot, const PlotData& data)
    : plot_(plot)
    , data_(data)
    , margins_(new QCPMarginGroup(&plot))
    , theme_(paperTheme()) {
    // Moving what lies over the curves draws this layer alone.
    plot_.addLayer(QStringLiteral("cursor"), nullptr, QCustomPlot::limAbove);
    plot_.layer(QStringLiteral("cursor"))->setMode(QCPLayer::lmBuffered);
    setUp(plot_.axisRect());
}

void PlotPanes::setUp(QCPAxisRect* pane) {
    panes_.push_back(pane);
    pane->setupFullAxesBox(true);
    pane->setRangeDrag(Qt::Horizontal | Qt::Vertical);
    pane->setMarginGroup(QCP::msLeft | QCP::msRight, margins_);
    for (QCPAxis* axis : pane->axes()) {
        // Those of a pane that is made later would lie over the curves.
        axis->setLayer(QStringLiteral("axes"));
        axis->grid()->setLayer(QStringLiteral("grid"));
        axis->setNumberFormat(QStringLiteral("gb"));
        axis->setNumberPrecision(9);
        axis->setSubTicks(false);
    }
    for (const QCPAxis::AxisType type : {QCPAxis::atTop, QCPAxis::atRight}) {
        pane->axis(type)->setTickLabels(false);
        pane->axis(type)->setTicks(false);
    }
    for (const QCPAxis::AxisType type : {QCPAxis::atBottom, QCPAxis::atLeft}) {
        QObject::connect(pane->axis(type), qOverload<const QCPRange&>(&QCPAxis::rangeChanged), &plot_, [this] {
            if (!settingRanges_) {
                moved.tell();
            }
        });
    }
    const QString layer = QStringLiteral("cursor");
    const auto place = [pane, &layer](auto* item) {
        item->setLayer(layer);
        item->setClipAxisRect(pane);
        item->setVisible(false);
        item->setAntialiased(false);
        for (QCPItemPosition* position : item->positions()) {
            position->setAxisRect(pane);
            position->setAxes(pane->axis(QCPAxis::atBottom), pane->axis(QCPAxis::atLeft));
        }
        return item;
    };
    const Over over{.cursor = place(new QCPItemStraightLine(&plot_)),
                    .height = place(new QCPItemStraightLine(&plot_)),
                    .range = place(new QCPItemRect(&plot_))};
    over.range->topLeft->setTypeY(QCPItemPosition::ptAxisRectRatio);
    over.range->bottomRight->setTypeY(QCPItemPosition::ptAxisRectRatio);
    over.range->setPen(Qt::NoPen);
    over_.push_back(over);
}

void PlotPanes::addPane() {
    auto* pane = new QCPAxisRect(&plot_);
    pane->setMinimumSize(leastPaneHeight, leastPaneHeight);
    pane->setMinimumMargins(around(paneGap));
    setUp(pane);
    QCPAxis* places = pane->axis(QCPAxis::atBottom);
    places->setTicker(plot_.xAxis->ticker());
    places->setTickLabels(false);
    places->setRange(plot_.xAxis->range());
    QObject::connect(plot_.xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), places,
                     qOverload<const QCPRange&>(&QCPAxis::setRange));
    QObject::connect(places, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), plot_.xAxis,
                     qOverload<const QCPRange&>(&QCPAxis::setRange));
}

void PlotPanes::takeApart() {
    for (int graph = 0; graph < plot_.graphCount(); ++graph) {
        plot_.graph(graph)->setKeyAxis(plot_.xAxis);
        plot_.graph(graph)->setValueAxis(plot_.yAxis);
    }
    for (QCPAxis* axis : levels_) {
        plot_.axisRect()->removeAxis(axis);
    }
    levels_.clear();
    while (panes_.size() > 1) {
        for (QCPAbstractItem* item :
             std::initializer_list<QCPAbstractItem*>{over_.back().cursor, over_.back().height, over_.back().range}) {
            plot_.removeItem(item);
        }
        plot_.plotLayout()->remove(panes_.back());
        over_.pop_back();
        panes_.pop_back();
    }
    plot_.plotLayout()->simplify();
    panes_.front()->setMinimumMargins(around(loneGap));
}

void PlotPanes::arrange(Arrangement arrangement) {
    const QScopedValueRollback setting(settingRanges_, true);
    takeApart();
    arrangement_ = arrangement;
    plot_.yAxis->setLabel(arrangement == Arrangement::Change ? Screen::tr("Change") : Screen::tr("Value"));
    std::vector<QCPGraph*> stacked;
    for (int graph = 0; graph < plot_.graphCount(); ++graph) {
        if (arrangement == Arrangement::Change) {
            levels_.push_back(plot_.axisRect()->addAxis(QCPAxis::atLeft));
            levels_.back()->setVisible(false);
            plot_.graph(graph)->setValueAxis(levels_.back());
        } else if (arrangement == Arrangement::Stacked && plot_.graph(graph)->visible()) {
            stacked.push_back(plot_.graph(graph));
        }
    }
    if (!stacked.empty()) {
        while (panes_.size() < stacked.size()) {
            addPane();
        }
        panes_.front()->setMinimumMargins(around(panes_.size() > 1 ? paneGap : loneGap));
        QCPLayoutGrid& layout = *plot_.plotLayout();
        layout.take(panes_.front());
        layout.simplify();
        layout.setRowSpacing(0);
        for (std::size_t at = 0; at < stacked.size(); ++at) {
            QCPAxisRect* pane = panes_[(at + 1) % stacked.size()];
            layout.addElement(static_cast<int>(at), 0, pane);
            stacked[at]->setKeyAxis(pane->axis(QCPAxis::atBottom));
            stacked[at]->setValueAxis(pane->axis(QCPAxis::atLeft));
            pane->axis(QCPAxis::atLeft)->setLabel(stacked[at]->name());
        }
    }
    applyTheme(theme_);
    applyFont(font_);
    placeCursor();
    placeRange();
}

void PlotPanes::setRanges(PlotView::Range places, const std::vector<PlotView::Range>& values) {
    const QScopedValueRollback setting(settingRanges_, true);
    plot_.xAxis->setRange(places.lower, places.upper);
    if (arrangement_ != Arrangement::Stacked) {
        plot_.yAxis->setRange(values.front().lower, values.front().upper);
        return;
    }
    for (int graph = 0; graph < plot_.graphCount(); ++graph) {
        if (plot_.graph(graph)->visible()) {
            const PlotView::Range& range = values[static_cast<std::size_t>(graph)];
            plot_.graph(graph)->valueAxis()->setRange(range.lower, range.upper);
        }
    }
}

void PlotPanes::fit(int height) {
    const QMargins margins = ownPane()->margins();
    const double labels = margins.top() + margins.bottom() - 2 * paneGap;
    const double share = std::max(1.0 * leastPaneHeight, (height - labels) / static_cast<double>(panes_.size()));
    QCPLayoutGrid& layout = *plot_.plotLayout();
    layout.setRowStretchFactor(layout.rowCount() - 1, (share + labels) / share);
    // The ticks may lie closer than their count says, by a third.
    const double lines = (share - 2 * paneGap) / (2.0 * QFontMetrics(font_).height());
    constexpr int fewest = 2;
    constexpr int most = 5;
    for (const QCPAxisRect* pane : panes_) {
        pane->axis(QCPAxis::atLeft)->ticker()->setTickCount(std::clamp(static_cast<int>(lines), fewest, most));
    }
}

void PlotPanes::level() {
    const QCPRange seen = plot_.xAxis->range();
    const auto count = std::min(levels_.size(), static_cast<std::size_t>(data_.curveCount()));
    for (std::size_t graph = 0; graph < count; ++graph) {
        const Statistics numbers = data_.statistics(static_cast<int>(graph), seen.lower, seen.upper);
        const QCPRange changes = plot_.yAxis->range();
        if (numbers.count() > 0) {
            levels_[graph]->setRange(changes.lower + numbers.mean(), changes.upper + numbers.mean());
        }
    }
}

QCPAxisRect* PlotPanes::paneAt(const QPointF& position) const {
    const auto found = std::ranges::find_if(
        panes_, [&position](const QCPAxisRect* pane) { return pane->outerRect().contains(position.toPoint()); });
    return found == panes_.end() ? nullptr : *found;
}

PlotPanes::Place PlotPanes::placeAt(const QPointF& position) const {
    const QCPAxisRect* pane = paneAt(position);
    if (pane == nullptr || !pane->rect().contains(position.toPoint())) {
        return {};
    }
    Place nearest{.point = data_.nearestPoint(plot_.xAxis->pixelToCoord(position.x())), .graph = -1};
    if (nearest.point < 0) {
        return {};
    }
    // Rows at the same place, and curves, are told apart by their values.
    double least = std::numeric_limits<double>::infinity();
    const double place = data_.place(nearest.point);
    for (int point = data_.firstPointFrom(place); point < data_.pointCount() && data_.place(point) == place; ++point) {
        for (int graph = 0; graph < plot_.graphCount(); ++graph) {
            const QCPAxis* values = plot_.graph(graph)->valueAxis();
            const double distance = std::abs(values->coordToPixel(data_.value(graph, point)) - position.y());
            if (plot_.graph(graph)->visible() && values->axisRect() == pane && distance < least) {
                least = distance;
                nearest = {.point = point, .graph = graph};
            }
        }
    }
    return nearest;
}

void PlotPanes::setCursor(int point, int graph) {
    cursor_ = {.point = point, .graph = graph};
    placeCursor();
}

void PlotPanes::placeCursor() {
    const auto& [point, chosen] = cursor_;
    for (std::size_t at = 0; at < panes_.size(); ++at) {
        const auto& [cursor, height, range] = over_[at];
        cursor->setVisible(point >= 0);
        height->setVisible(false);
        if (point < 0) {
            continue;
        }
        const double place = data_.place(point);
        cursor->point1->setCoords(place, 0.0);
        cursor->point2->setCoords(place, 1.0);
        for (int graph = 0; graph < std::min(plot_.graphCount(), data_.curveCount()); ++graph) {
            QCPAxis* values = plot_.graph(graph)->valueAxis();
            const bool fits = plot_.graph(graph)->visible() && values->axisRect() == panes_[at];
            const double value = data_.value(graph, point);
            // Of several curves in a pane the one that is meant, else the first.
            if (!fits || std::isnan(value) || (height->visible() && graph != chosen)) {
                continue;
            }
            height->setVisible(true);
            for (QCPItemPosition* position : {height->point1, height->point2}) {
                position->setAxes(plot_.graph(graph)->keyAxis(), values);
            }
            height->point1->setCoords(0.0, value);
            height->point2->setCoords(1.0, value);
        }
    }
}

void PlotPanes::setRange(const std::optional<PlotView::Range>& range) {
    range_ = range;
    placeRange();
}

void PlotPanes::placeRange() {
    for (const Over& over : over_) {
        over.range->setVisible(range_.has_value());
        if (range_) {
            over.range->topLeft->setCoords(range_->lower, 0.0);
            over.range->bottomRight->setCoords(range_->upper, 1.0);
        }
    }
}

void PlotPanes::applyTheme(const PlotTheme& theme) {
    theme_ = theme;
    for (QCPAxisRect* pane : panes_) {
        for (QCPAxis* axis : pane->axes()) {
            axis->setBasePen(QPen(theme.text, 1));
            axis->setTickPen(QPen(theme.text, 1));
            axis->setLabelColor(theme.text);
            axis->setTickLabelColor(theme.text);
            axis->grid()->setPen(QPen(theme.grid, 1));
            axis->grid()->setZeroLinePen(QPen(theme.grid, 1));
        }
    }
    for (const Over& over : over_) {
        constexpr int seeThrough = 60;
        over.cursor->setPen(QPen(theme.text, 1));
        over.height->setPen(QPen(theme.text, 1, Qt::DotLine));
        QColor fill = theme.focus;
        fill.setAlpha(seeThrough);
        over.range->setBrush(fill);
    }
}

void PlotPanes::applyFont(const QFont& font) {
    font_ = font;
    for (QCPAxisRect* pane : panes_) {
        for (QCPAxis* axis : pane->axes()) {
            axis->setLabelFont(font);
            axis->setTickLabelFont(font);
        }
    }
}

} // namespace orv
