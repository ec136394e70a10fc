// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plotcanvas.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace orv {

namespace {

constexpr int symbolSize = 8;
constexpr int symbolsInView = 8; ///< At least so many of each curve, if there are points for them.

/// Symbols tell the curves apart where colours do not.
constexpr QCPScatterStyle::ScatterShape symbols[] = {QCPScatterStyle::ssCircle,   QCPScatterStyle::ssSquare,
                                                     QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond,
                                                     QCPScatterStyle::ssPlus,     QCPScatterStyle::ssCross};

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

PlotCanvas::PlotCanvas(const PlotData& curves)
    : data_(curves)
    , theme_(paperTheme()) {
    setAccessibleName(QStringLiteral("Curves of the data sheet"));
    setAccessibleDescription(
        QStringLiteral("Left and Right move to the row before and after, with Shift they move the "
                       "curves; Plus and Minus zoom, Home shows all, End follows the newest rows."));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(240, 160);
    setLocale(QLocale::c());
    setAutoAddPlottableToLegend(false);
    setPlottingHints(QCP::phCacheLabels | QCP::phFastPolylines);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    axisRect()->setupFullAxesBox();
    axisRect()->setRangeDrag(Qt::Horizontal | Qt::Vertical);
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        axis->setNumberFormat(QStringLiteral("gb"));
        axis->setNumberPrecision(9);
        axis->setSubTicks(false);
    }
    for (QCPAxis* axis : {xAxis2, yAxis2}) {
        axis->setTickLabels(false);
        axis->setTicks(false);
    }
    yAxis->setLabel(QStringLiteral("Value"));
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setBorderPen(Qt::NoPen);

    // Moving the cursor draws this layer alone.
    addLayer(QStringLiteral("cursor"), nullptr, limAbove);
    layer(QStringLiteral("cursor"))->setMode(QCPLayer::lmBuffered);
    cursorLine_ = new QCPItemStraightLine(this);
    cursorLine_->setLayer(QStringLiteral("cursor"));
    cursorLine_->setVisible(false);
    cursorLine_->setAntialiased(false);
    hint_ = new QCPItemText(this);
    hint_->position->setType(QCPItemPosition::ptAxisRectRatio);
    hint_->position->setCoords(0.5, 0.5);
    hint_->setTextAlignment(Qt::AlignCenter);
    hint_->setVisible(false);

    const auto chosen = [this] {
        if (!settingRanges_) {
            zoomed.tell();
        }
    };
    connect(xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, chosen);
    connect(yAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, chosen);
    connect(this, &QCustomPlot::mouseWheel, this, [this](const QWheelEvent* event) {
        const bool values =
            (event->modifiers() & Qt::ControlModifier) != 0 || event->position().x() < axisRect()->left();
        axisRect()->setRangeZoom(values ? Qt::Vertical : Qt::Horizontal);
    });
    connect(this, &QCustomPlot::mouseDoubleClick, this, [this] { allWanted.tell(); });
    connect(this, &QCustomPlot::mouseMove, this, [this](const QMouseEvent* event) {
        if (event->buttons() == Qt::NoButton) {
            moveCursor(pointAt(event->position()));
        }
    });
    connect(this, &QCustomPlot::beforeReplot, this, [this] { placeSymbols(); });
    connect(this, &QCustomPlot::afterReplot, this, [this] { ++drawings_; });
    layOutAxis();
    refreshFont();
}

void PlotCanvas::layOutAxis() {
    if (data_.axis() == PlotData::Axis::Time) {
        const QSharedPointer<QCPAxisTickerDateTime> ticker(new QCPAxisTickerDateTime);
        ticker->setDateTimeSpec(Qt::UTC);
        ticker->setDateTimeFormat(QStringLiteral("h:mm:ss\nM/d/yy"));
        xAxis->setTicker(ticker);
        xAxis->setLabel(QStringLiteral("Time"));
    } else {
        const QSharedPointer<QCPAxisTicker> ticker(new QCPAxisTicker);
        xAxis->setTicker(ticker);
        xAxis->setLabel(QStringLiteral("Record"));
    }
}

void PlotCanvas::relay(int cursor) {
    placeCursor(cursor);
    while (graphCount() > data_.curveCount()) {
        removeGraph(graphCount() - 1);
    }
    while (graphCount() < data_.curveCount()) {
        new PlotCurve(xAxis, yAxis); // owned by the plot
    }
    for (int curve = 0; curve < graphCount(); ++curve) {
        graph(curve)->data()->clear();
        graph(curve)->setName(data_.name(curve));
        graph(curve)->setVisible(true);
    }
    emphasised_ = emphasised_ < graphCount() ? emphasised_ : -1;
    drawnPoints_ = 0;
    append();
    layOutAxis();
    applyTheme(theme_);
}

void PlotCanvas::append() {
    for (int curve = 0; curve < graphCount(); ++curve) {
        QCPGraphDataContainer& points = *graph(curve)->data();
        QVector<QCPGraphData> come;
        come.reserve(data_.pointCount() - drawnPoints_);
        for (int point = drawnPoints_; point < data_.pointCount(); ++point) {
            come.append({data_.place(point), data_.value(curve, point)});
        }
        if (drawnPoints_ == 0) {
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
    graph(curve)->setVisible(shown);
}

void PlotCanvas::emphasise(int curve) {
    emphasised_ = curve;
    for (int other = 0; other < graphCount(); ++other) {
        graph(other)->setPen(penOf(other));
    }
}

void PlotCanvas::setRanges(PlotView::Range places, PlotView::Range values) {
    const QScopedValueRollback setting(settingRanges_, true);
    xAxis->setRange(places.lower, places.upper);
    yAxis->setRange(values.lower, values.upper);
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
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        axis->setBasePen(QPen(theme.text, 1));
        axis->setTickPen(QPen(theme.text, 1));
        axis->setLabelColor(theme.text);
        axis->setTickLabelColor(theme.text);
        axis->grid()->setPen(QPen(theme.grid, 1));
        axis->grid()->setZeroLinePen(QPen(theme.grid, 1));
    }
    legend->setBrush(theme.background);
    legend->setTextColor(theme.text);
    cursorLine_->setPen(QPen(theme.text, 1));
    hint_->setColor(theme.text);
    for (int curve = 0; curve < graphCount(); ++curve) {
        graph(curve)->setPen(penOf(curve));
        graph(curve)->setScatterStyle(symbolOf(curve, theme.background));
    }
}

void PlotCanvas::refreshFont() {
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        axis->setLabelFont(font());
        axis->setTickLabelFont(font());
    }
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

int PlotCanvas::pointAt(const QPointF& position) const {
    if (!axisRect()->rect().contains(position.toPoint())) {
        return -1;
    }
    int nearest = data_.nearestPoint(xAxis->pixelToCoord(position.x()));
    if (nearest < 0) {
        return -1;
    }
    // Rows at the same place are told apart by their values.
    double least = std::numeric_limits<double>::infinity();
    const double place = data_.place(nearest);
    for (int point = data_.firstPointFrom(place); point < data_.pointCount() && data_.place(point) == place; ++point) {
        for (int curve = 0; curve < graphCount(); ++curve) {
            const double distance = std::abs(yAxis->coordToPixel(data_.value(curve, point)) - position.y());
            if (graph(curve)->visible() && distance < least) {
                least = distance;
                nearest = point;
            }
        }
    }
    return nearest;
}

void PlotCanvas::moveCursor(int point) {
    if (point == cursor_) {
        return;
    }
    placeCursor(point);
    layer(QStringLiteral("cursor"))->replot();
    cursorMoved.tell(point);
}

void PlotCanvas::placeCursor(int point) {
    cursor_ = point;
    cursorLine_->setVisible(point >= 0);
    if (point >= 0) {
        cursorLine_->point1->setCoords(data_.place(point), 0.0);
        cursorLine_->point2->setCoords(data_.place(point), 1.0);
    }
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
            moveCursor(cursor_ < 0 ? data_.nearestPoint(xAxis->range().center())
                                   : std::clamp(cursor_ + direction, 0, data_.pointCount() - 1));
        }
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
    moveCursor(-1);
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
    const bool cursorSeen = cursorLine_->visible();
    const int emphasised = std::exchange(emphasised_, -1);
    constexpr double paperWidth = 1.5;
    const double screenWidth = std::exchange(lineWidth_, paperWidth);
    setNotAntialiasedElements(QCP::aeNone);
    cursorLine_->setVisible(false);
    applyTheme(paperTheme());
    placeSymbols();
    // On the screen the page has a legend of its own; the picture gets one above the curves.
    for (int curve = 0; curve < graphCount(); ++curve) {
        if (graph(curve)->visible()) {
            graph(curve)->addToLegend();
        }
    }
    axisRect()->insetLayout()->take(legend);
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, legend);
    plotLayout()->setRowStretchFactor(0, 0.001);
    legend->setVisible(legend->itemCount() > 0);

    toPainter(&painter, width, height);

    legend->setVisible(false);
    legend->clearItems();
    plotLayout()->take(legend);
    plotLayout()->simplify();
    axisRect()->insetLayout()->addElement(legend, Qt::AlignTop | Qt::AlignRight);
    emphasised_ = emphasised;
    lineWidth_ = screenWidth;
    applyTheme(theme_);
    cursorLine_->setVisible(cursorSeen);
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
