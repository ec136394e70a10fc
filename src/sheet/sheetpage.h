// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "session/commandpanel.h"
#include "sheet/sheetmodel.h"
#include "sheet/sheetpanel.h"

#include <QTableView>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace orv {

/// The page "Output: Spread Sheet". Counters follow every row; the grid is drawn about five times a second, and not
/// at all while another page is shown.
class SheetPage final : public QWidget {
public:
    /// What the page's buttons do.
    struct Actions {
        std::function<void()> saveAs;
        std::function<void()> open;
        std::function<void()> clearAll;
    };

    /// Follows the sheet, which outlives it.
    SheetPage(DataSheet& sheet, SheetPanel& panel, const CommandPanel& commands, const Actions& actions,
              QWidget* parent = nullptr);

    /// Draws what has changed now, for screenshots and tests.
    void refreshNow();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void schedule();

    SheetPanel& panel_;
    SheetModel model_;
    QTableView* grid_;
    QTimer refreshTimer_;
    bool stale_ = false;
    int shownTop_ = 0;
    bool visitPending_ = false; ///< A procedure has visited a cell since the grid was drawn.
    std::vector<Listeners::Subscription> subscriptions_;
    Bindings bindings_;
};

} // namespace orv
