// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcanvas.h"

#include "base/words.h"
#include "ui/widgets.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orv {

namespace {

constexpr int symbolSize = 8;
constexpr int symbolsInView = 8; ///< At least so many of each curve, if there are points for them.

/// Symbols tell the curves apart where colours do not.
constexpr QCPScatterStyle::ScatterShape symbols[] = {QCPScatterStyle::ssCircle,   QCPScatterStyle::ssSquare,
                                                     QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond,
                                                     QCPScatterStyle::ssPlus,     QCPScatterStyle::ssCross};

} // namespace

PlotCanvas::PlotCanvas(const PlotData& curves)
    : data_(curves)
    , theme_(paperTheme())
    , panes_(*this, curves) {
    setAccessibleName(Screen::tr("Curves of the data sheet"));
    setAccessibleDescription(
        Screen::tr("Left and Right move to the row before and after, with Shift they move the "
                   "curves; Plus and Minus zoom, Home shows all, End follows the newest rows. Space begins and ends "
                   "the choice of a range, Escape drops it."));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(240, 160);
    setLocale(QLocale::c());
    setAutoAddPlottableToLegend(false);
    setPlottingHints(QCP::phCacheLabels | QCP::phFastPolylines);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setBorderPen(Qt::NoPen);

    hint_ = new QCPItemText(this);
    hint_->position->setType(QCPItemPosition::ptViewportRatio); // over all panes
    hint_->setClipToAxisRect(false);
    hint_->setLayer(QStringLiteral("overlay")); // else the frames of panes go through its words
    hint_->setPadding({8, 8, 8, 8});
    hint_->position->setCoords(0.5, 0.5);
    hint_->setTextAlignment(Qt::AlignCenter);
    hint_->setVisible(false);

    moved_ = panes_.moved.subscribe([this] { zoomed.tell(); });
    connect(this, &QCustomPlot::mouseWheel, this, [this](const QWheelEvent* event) {
        if (QCPAxisRect* pane = panes_.paneAt(event->position())) {
            const bool values = (event->modifiers() & Qt::ControlModifier) != 0 || event->position().x() < pane->left();
            pane->setRangeZoom(values ? Qt::Vertical : Qt::Horizontal);
        }
    });
    connect(this, &QCustomPlot::mouseDoubleClick, this, [this] { allWanted.tell(); });
    connect(this, &QCustomPlot::mouseMove, this, [this](const QMouseEvent* event) {
        if (event->buttons() == Qt::NoButton) {
            moveCursor(panes_.placeAt(event->position()));
        }
    });
    connect(this, &QCustomPlot::beforeReplot, this, [this] {
        panes_.fit(height());
        panes_.level();
        placeSymbols();
    });
    connect(this, &QCustomPlot::afterReplot, this, [this] { ++drawings_; });
    layOutAxis();
    refreshFont();
}

void PlotCanvas::layOutAxis() {
    const bool time = data_.axis() == PlotData::Axis::Time;
    xAxis->setTicker(time ? QSharedPointer<QCPAxisTicker>(new TimeTicker)
                          : QSharedPointer<QCPAxisTicker>(new RecordTicker));
    xAxis->setLabel(time ? Screen::tr("Time") : Screen::tr("Record"));
}

void PlotCanvas::relay(int cursor) {
    cursor_ = {.point = cursor, .graph = -1};
    while (graphCount() > data_.curveCount()) {
        removeGraph(graphCount() - 1);
    }
    while (graphCount() < data_.curveCount()) {
        new PlotCurve(xAxis, yAxis); // owned by the plot
    }
    for (int curve = 0; curve < graphCount(); ++curve) {
        graph(curve)->data()->clear();
        graph(curve)->setName(shownColumn(data_.name(curve)));
        graph(curve)->setVisible(true);
    }
    emphasised_ = emphasised_ < graphCount() ? emphasised_ : -1;
    drawnPoints_ = 0;
    append();
    layOutAxis();
    panes_.setCursor(cursor, -1);
    arrange(panes_.arrangement());
    applyTheme(theme_);
}

void PlotCanvas::arrange(PlotView::Arrangement arrangement) {
    panes_.arrange(arrangement);
}

void PlotCanvas::append() {
    const int first = drawnPoints_ == 0 ? 0 : std::min(drawnPoints_, data_.firstChanged());
    for (int curve = 0; curve < graphCount(); ++curve) {
        QCPGraphDataContainer& points = *graph(curve)->data();
        if (first == 0) {
            points.clear();
        } else if (first < drawnPoints_) {
            points.removeAfter(data_.place(first - 1));
        }
        QVector<QCPGraphData> come;
        come.reserve(data_.pointCount() - first);
        for (int point = first; point < data_.pointCount(); ++point) {
            if (point > 0 && !data_.continues(point)) {
                come.append({data_.place(point), std::numeric_limits<double>::quiet_NaN()}); // runs are not joined
            }
            come.append({data_.place(point), data_.value(curve, point)});
        }
        if (first == 0) {
            points.set(come, true);
        } else {
            // Added in one call, those at the place of the first point held would come to stand before it.
            for (const QCPGraphData& point : std::as_const(come)) {
                points.add(point);
            }
        }
    }
    drawnPoints_ = data_.pointCount();
}

void PlotCanvas::setShown(int curve, bool shown) {
    if (graph(curve)->visible() != shown) {
        graph(curve)->setVisible(shown);
        if (panes_.arrangement() == PlotView::Arrangement::Stacked) {
            arrange(PlotView::Arrangement::Stacked);
        }
    }
}

void PlotCanvas::emphasise(int curve) {
    emphasised_ = curve;
    for (int other = 0; other < graphCount(); ++other) {
        graph(other)->setPen(penOf(other));
    }
}

void PlotCanvas::setRanges(PlotView::Range places, const std::vector<PlotView::Range>& values) {
    panes_.setRanges(places, values);
}

PlotView::Range PlotCanvas::places() const {
    return {.lower = xAxis->range().lower, .upper = xAxis->range().upper};
}

void PlotCanvas::setHint(const QString& hint) {
    hint_->setText(hint);
    hint_->setVisible(!hint.isEmpty());
}

void PlotCanvas::setLive(bool live) {
    setNotAntialiasedElements(live ? QCP::aePlottables : QCP::aeNone);
}

void PlotCanvas::setTheme(const PlotTheme& theme) {
    theme_ = theme;
    applyTheme(theme);
}

QPen PlotCanvas::penOf(int curve) const {
    constexpr double emphasis = 2.5;
    return {theme_.curves[static_cast<std::size_t>(curve) % theme_.curves.size()],
            curve == emphasised_ ? emphasis : lineWidth_};
}

QCPScatterStyle PlotCanvas::symbolOf(int curve, const QColor& background) const {
    const auto place = static_cast<std::size_t>(curve) % std::size(symbols);
    return {symbols[place], QPen(penOf(curve).color(), 1.5), background, symbolSize};
}

void PlotCanvas::applyTheme(const PlotTheme& theme) {
    const QScopedValueRollback applying(theme_, theme);
    setBackground(QBrush(theme.background));
    panes_.applyTheme(theme);
    legend->setBrush(theme.background);
    legend->setTextColor(theme.text);
    hint_->setColor(theme.text);
    hint_->setBrush(theme.background);
    for (int curve = 0; curve < graphCount(); ++curve) {
        graph(curve)->setPen(penOf(curve));
        graph(curve)->setScatterStyle(symbolOf(curve, theme.background));
    }
}

void PlotCanvas::refreshFont() {
    panes_.applyFont(font());
    legend->setFont(font());
    hint_->setFont(font());
}

void PlotCanvas::placeSymbols() {
    const int inView = data_.firstPointFrom(xAxis->range().upper) - data_.firstPointFrom(xAxis->range().lower);
    // A power of two, so that symbols stay with their points while the view moves.
    int distance = 1;
    while (distance * symbolsInView * 2 <= inView) {
        distance *= 2;
    }
    for (int curve = 0; curve < graphCount(); ++curve) {
        graph(curve)->setScatterSkip(distance - 1);
    }
}

void PlotCanvas::drawNow() {
    replot(rpQueuedRefresh);
}

void PlotCanvas::moveCursor(PlotPanes::Place place) {
    if (place.point == cursor_.point && place.graph == cursor_.graph) {
        return;
    }
    const bool moved = place.point != std::exchange(cursor_, place).point;
    panes_.setCursor(place.point, place.graph);
    drawOver();
    if (moved) {
        cursorMoved.tell(place.point);
    }
}

void PlotCanvas::drawOver() {
    layer(QStringLiteral("cursor"))->replot();
}

void PlotCanvas::chooseRange(double from, double to) {
    panes_.setRange(PlotView::Range{.lower = std::min(from, to), .upper = std::max(from, to)});
    drawOver();
}

void PlotCanvas::dropRange() {
    rangeBegin_.reset();
    panes_.setRange(std::nullopt);
}

bool PlotCanvas::dropEmptyRange() {
    const auto& range = panes_.range();
    if (rangeBegin_ || !range || data_.firstPointFrom(range->lower) < data_.firstPointAfter(range->upper)) {
        return false;
    }
    dropRange();
    drawOver();
    return true;
}

void PlotCanvas::markRange() {
    if (cursor_.point < 0) {
        return;
    }
    const double place = data_.place(cursor_.point);
    if (!rangeBegin_) {
        rangeBegin_ = place;
        chooseRange(place, place);
        return;
    }
    chooseRange(*std::exchange(rangeBegin_, std::nullopt), place);
    rangeChosen.tell();
}

void PlotCanvas::mousePressEvent(QMouseEvent* event) {
    const bool wanted = choosing_ || (event->modifiers() & Qt::ShiftModifier) != 0;
    if (event->button() != Qt::LeftButton || !wanted || panes_.paneAt(event->position()) == nullptr) {
        QCustomPlot::mousePressEvent(event);
        return;
    }
    draggingRange_ = true;
    rangeBegin_ = xAxis->pixelToCoord(event->position().x());
    chooseRange(*rangeBegin_, *rangeBegin_);
}

void PlotCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (draggingRange_ && rangeBegin_) {
        const double end = xAxis->pixelToCoord(event->position().x());
        chooseRange(*rangeBegin_, end);
        const PlotPanes::Place place = panes_.placeAt(event->position());
        // The range follows the pointer also beside the panes.
        moveCursor(place.point >= 0 ? place : PlotPanes::Place{.point = data_.nearestPoint(end), .graph = -1});
    } else {
        QCustomPlot::mouseMoveEvent(event);
    }
}

void PlotCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !std::exchange(draggingRange_, false)) {
        QCustomPlot::mouseReleaseEvent(event);
        return;
    }
    rangeBegin_.reset();
    if (const auto& range = panes_.range(); range && range->lower == range->upper) { // a click
        panes_.setRange(std::nullopt);
        drawOver();
    }
    rangeChosen.tell();
}

void PlotCanvas::zoom(double factor) {
    xAxis->scaleRange(factor);
    replot(rpQueuedReplot);
}

void PlotCanvas::keyPressEvent(QKeyEvent* event) {
    constexpr double closer = 0.7;
    constexpr double step = 0.1;
    const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
    const int direction = event->key() == Qt::Key_Left ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (shift) {
            xAxis->moveRange(direction * step * xAxis->range().size());
            replot(rpQueuedReplot);
        } else if (data_.pointCount() > 0) {
            const int point = cursor_.point < 0 ? data_.nearestPoint(xAxis->range().center())
                                                : std::clamp(cursor_.point + direction, 0, data_.pointCount() - 1);
            moveCursor({.point = point, .graph = cursor_.graph});
            if (rangeBegin_) {
                chooseRange(*rangeBegin_, data_.place(point));
            }
        }
        break;
    case Qt::Key_Space:
        markRange();
        break;
    case Qt::Key_Escape:
        dropRange();
        drawOver();
        rangeChosen.tell();
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoom(closer);
        break;
    case Qt::Key_Minus:
        zoom(1.0 / closer);
        break;
    case Qt::Key_Home:
        allWanted.tell();
        break;
    case Qt::Key_End:
        newestWanted.tell();
        break;
    default:
        QCustomPlot::keyPressEvent(event);
    }
}

void PlotCanvas::leaveEvent(QEvent* event) {
    moveCursor({});
    QCustomPlot::leaveEvent(event);
}

void PlotCanvas::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        painter.setPen(theme_.focus);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void PlotCanvas::paintPicture(QCPPainter& painter, int width, int height) {
    const QCP::AntialiasedElements notSmooth = notAntialiasedElements();
    const int emphasised = std::exchange(emphasised_, -1);
    constexpr double paperWidth = 1.5;
    const double screenWidth = std::exchange(lineWidth_, paperWidth);
    setNotAntialiasedElements(QCP::aeNone);
    layer(QStringLiteral("cursor"))->setVisible(false);
    applyTheme(paperTheme());
    placeSymbols();
    // On the screen the page has a legend of its own; the picture gets one above the curves.
    for (int curve = 0; curve < graphCount(); ++curve) {
        if (graph(curve)->visible()) {
            graph(curve)->addToLegend();
        }
    }
    panes_.ownPane()->insetLayout()->take(legend);
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, legend);
    plotLayout()->setRowStretchFactor(0, 0.001);
    legend->setVisible(legend->itemCount() > 0);
    panes_.fit(height);

    toPainter(&painter, width, height);

    legend->setVisible(false);
    legend->clearItems();
    plotLayout()->take(legend);
    plotLayout()->simplify();
    panes_.ownPane()->insetLayout()->addElement(legend, Qt::AlignTop | Qt::AlignRight);
    emphasised_ = emphasised;
    lineWidth_ = screenWidth;
    applyTheme(theme_);
    layer(QStringLiteral("cursor"))->setVisible(true);
    setNotAntialiasedElements(notSmooth);
    drawNow();
}

QIcon PlotCanvas::swatch(int curve) const {
    constexpr int width = 28;
    constexpr int height = 14;
    QPixmap pixmap(QSize(width, height) * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QCPPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(penOf(curve).color(), 2));
    painter.drawLine(QLineF(0, height / 2.0, width, height / 2.0));
    const QCPScatterStyle symbol = symbolOf(curve, theme_.background);
    symbol.applyTo(&painter, painter.pen());
    symbol.drawShape(&painter, QPointF(width / 2.0, height / 2.0));
    return {pixmap};
}

} // namespace orv
