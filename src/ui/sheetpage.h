// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/sheetgrid.h"
#include "ui/widgets.h"

#include <vector>

namespace orv {

/// The page "Output: Spread Sheet". The grid and the count of rows are drawn about five times a second, and not at all
/// while another page is shown. Below the grid stand what became of the rows last, a line to find a text in, and the
/// statistics of what is selected.
class SheetPage final : public QWidget {
public:
    explicit SheetPage(Program& program);

    /// Draws what has changed now, for screenshots and tests.
    void refreshNow();

    /// Selects these rows of the sheet. Without any, takes the selection back that it made, if it still is the one.
    void selectRows(const std::vector<RowRange>& ranges);

private:
    QLayout* makeBar(Program& program);
    QLayout* makeNotice(Program& program);
    void makeFindBar();
    void makeActions();
    void schedule();
    void bringIntoView();
    void tellWhatBecame();
    void copy(bool withHeader);
    void keepRoomForStatistics();
    void find(bool forward);
    void tellFound();
    void showStatistics();

    const DataSheet& sheet_;
    SheetState& shown_;
    const QProperty<Activity>& activity_;
    SheetGrid* grid_;
    QLabel* counter_;
    QLabel* notice_;
    QString copied_;  ///< What is on the clipboard, in words, until another selection or another thing to tell.
    int leftOut_ = 0; ///< Selected rows that the statistics leave out; 0 once there is something newer to tell.
    QPushButton* bringBack_;
    QWidget* findBar_;
    QLineEdit* findBox_;
    QLabel* found_;
    QString foundRecord_;       ///< The number of the record that was found last; empty if none was.
    bool foundFollows_ = false; ///< The sheet followed the run when that was told last.
    StatisticsTable* statistics_;
    Redrawing redrawing_;
    Redrawing computing_;
    bool stale_ = false;
    int headerChanges_ = 0; ///< Of the sheet, when the room for the statistics was kept.
    bool selectionStale_ = false;
    bool selectionIsLent_ = false; ///< What is selected was selected by selectRows().
    int shownTop_ = 0;
    bool visitPending_ = false; ///< A procedure has visited a cell since the grid was drawn.
    std::vector<Subscription> subscriptions_;
    Bindings bindings_;
};

} // namespace orv
