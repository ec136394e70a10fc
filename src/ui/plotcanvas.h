// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "sheet/plotdata.h"
#include "ui/plotpanes.h"
#include "ui/style.h"

#include <optional>
#include <vector>

namespace orv {

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
    Signal<> rangeChosen;    ///< He chose a range of places, or none any more.

    /// Lays all curves out anew after they have been replaced; every one is shown. The cursor moves to a point, or to
    /// none (-1), which is not told.
    void relay(int cursor);
    /// Adds the points that have come.
    void append();
    void setShown(int curve, bool shown);
    /// Draws one curve thicker than the others; none for -1.
    void emphasise(int curve);
    void arrange(PlotView::Arrangement arrangement);
    /// As PlotPanes::setRanges().
    void setRanges(PlotView::Range places, const std::vector<PlotView::Range>& values);
    PlotView::Range places() const;
    /// The pointer chooses a range, with or without Shift, instead of moving the curves.
    void setChoosing(bool choosing) { choosing_ = choosing; }
    bool isChoosing() const { return choosing_; }
    const std::optional<PlotView::Range>& range() const { return panes_.range(); }
    /// Forgets the range, which is not told.
    void dropRange();
    /// Forgets the range if it holds no row, unless it is being chosen. Returns whether it did, which is not told.
    bool dropEmptyRange();
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
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPen penOf(int curve) const;
    QCPScatterStyle symbolOf(int curve, const QColor& background) const;
    void layOutAxis();
    void applyTheme(const PlotTheme& theme);
    void placeSymbols();
    void moveCursor(PlotPanes::Place place);
    void chooseRange(double from, double to);
    void markRange();
    void drawOver();
    void zoom(double factor);

    const PlotData& data_;
    PlotTheme theme_;
    PlotPanes panes_;
    QCPItemText* hint_;
    bool choosing_ = false;
    bool draggingRange_ = false;
    std::optional<double> rangeBegin_; ///< Where the pointer, or Space, began a range that is being chosen.
    int drawnPoints_ = 0;
    PlotPanes::Place cursor_;
    int emphasised_ = -1;
    double lineWidth_ = 1.0;
    int drawings_ = 0;
    Subscription moved_;
};

} // namespace orv
