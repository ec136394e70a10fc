// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "sheet/plotdata.h"
#include "ui/statisticstable.h"
#include "ui/widgets.h"

#include <vector>

namespace orv {

class CurveList;
class PlotCanvas;

/// The page "Output: Graphical": the data sheet's value columns as curves.
///
/// The curves are drawn at most three times a second, less often if drawing takes long, so that it takes a twentieth of
/// the time at most. While another page is shown nothing is drawn.
class GraphPage final : public QWidget {
public:
    explicit GraphPage(Program& program);

    /// Draws what has changed now, for screenshots and tests.
    void refreshNow();

    Signal<std::vector<RowRange>> rowsChosen; ///< The rows of the range; none when it has gone.

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeBar();
    void setAxis(PlotData::Axis axis);
    void switchCurve(int curve, bool shown);
    void schedule();
    /// `pointedRow` is the row that was under the cursor, -1 for none.
    void relay(int pointedRow);
    void setMode(PlotView::Mode mode);
    void showMode();
    void setRanges();
    void arrange(PlotView::Arrangement arrangement);
    void takeRange();
    void showStatistics();
    /// Which rows the points from one to before another are, in words.
    QString rowsBetween(int first, int end) const;
    void tellWhatIsMissing();
    /// Below the curves, until the operator goes on; empty: takes back what was told. `file` is the tool tip.
    void tellDone(const QString& done, const QString& file = {});
    void readOut(int point);
    void refreshTheme();

    Program& program_;
    DataSheet& sheet_;
    PlotData data_;
    PlotView view_;
    PlotCanvas* canvas_;
    CurveList* list_;
    QPushButton* follow_ = nullptr;
    QPushButton* showAll_ = nullptr;
    QLabel* note_;
    QString done_; ///< What the operator did last, in words.
    StatisticsTable* statistics_;
    PlotView::Arrangement arrangement_ = PlotView::Arrangement::Together;
    std::vector<bool> shown_; ///< For each curve.
    int pointed_ = -1;        ///< The point under the pointer.
    Redrawing redrawing_;
    bool stale_ = true;
    std::vector<Subscription> subscriptions_;
    Bindings bindings_;
};

} // namespace orv
