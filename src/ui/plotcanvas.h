// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "sheet/plotdata.h"
#include "ui/style.h"

// The plotting library's header wants two keywords that the program's own code does without.
#include <QtGlobal>
#define signals Q_SIGNALS
#define foreach(variable, container) for (variable : container) // NOLINT(bugprone-macro-parentheses): a declaration
#include <qcustomplot.h>
#undef foreach
#undef signals

namespace orv {

/// A curve with gaps, which are points whose value is NaN. Every number is seen, however many points share a pixel: the
/// line reaches the last one before a gap and begins with the first one after it, and a number that stands alone
/// between gaps, where there is no line, has its symbol whatever the distance of the other symbols is.
class PlotCurve final : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

protected:
    void getOptimizedLineData(QVector<QCPGraphData>* lineData, const QCPGraphDataContainer::const_iterator& begin,
                              const QCPGraphDataContainer::const_iterator& end) const override;
    void getOptimizedScatterData(QVector<QCPGraphData>* scatterData, QCPGraphDataContainer::const_iterator begin,
                                 QCPGraphDataContainer::const_iterator end) const override;

private:
    void appendLonePoints(QVector<QCPGraphData>& points, QCPGraphDataContainer::const_iterator begin,
                          QCPGraphDataContainer::const_iterator end) const;
};

/// Draws the curves and takes the operator's mouse and keys. It draws when drawNow() is called, when it is resized, and
/// while the operator zooms, drags or moves the cursor.
class PlotCanvas final : public QCustomPlot {
public:
    /// `curves` outlives the canvas.
    explicit PlotCanvas(const PlotData& curves);

    // What the operator does.
    Signal<> zoomed;         ///< He chose a part by zooming or dragging.
    Signal<> allWanted;      ///< Double click or Home.
    Signal<> newestWanted;   ///< End.
    Signal<int> cursorMoved; ///< To a point, or to none (-1).

    /// Lays all curves out anew after they have been replaced; every one is shown. The cursor moves to a point, or to
    /// none (-1), which is not told.
    void relay(int cursor);
    /// Adds the points that have come.
    void append();
    void setShown(int curve, bool shown);
    /// Draws one curve thicker than the others; none for -1.
    void emphasise(int curve);
    void setRanges(PlotView::Range places, PlotView::Range values);
    PlotView::Range places() const;
    /// Text in the place of the curves; none if empty.
    void setHint(const QString& hint);
    /// While rows come in, curves are drawn without antialiasing.
    void setLive(bool live);
    void setTheme(const PlotTheme& theme);
    /// Takes over the widget's font.
    void refreshFont();

    void drawNow();
    /// How often curves have been drawn on the screen.
    int drawings() const { return drawings_; }

    /// The curves as a picture of its own, black on white with a legend, `width` x `height` in units of a screen's
    /// pixels.
    void paintPicture(QCPPainter& painter, int width, int height);

    /// The curve's line and symbol, for a legend.
    QIcon swatch(int curve) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPen penOf(int curve) const;
    QCPScatterStyle symbolOf(int curve, const QColor& background) const;
    int pointAt(const QPointF& position) const;
    void layOutAxis();
    void applyTheme(const PlotTheme& theme);
    void placeSymbols();
    void moveCursor(int point);
    void placeCursor(int point);
    void zoom(double factor);

    const PlotData& data_;
    PlotTheme theme_;
    QCPItemStraightLine* cursorLine_;
    QCPItemText* hint_;
    bool settingRanges_ = false;
    int drawnPoints_ = 0;
    int cursor_ = -1;
    int emphasised_ = -1;
    double lineWidth_ = 1.0;
    int drawings_ = 0;
};

} // namespace orv
