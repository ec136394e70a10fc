// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "session/commandpanel.h"
#include "session/operatormessages.h"
#include "sheet/plotview.h"
#include "sheet/sheetpanel.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <vector>

class QMenu;
class QPrinter;

namespace orv {

class CurveList;
class PlotCanvas;
enum class PictureFormat;

/// The page "Output: Graphical": the data sheet's value columns as curves.
///
/// The curves are drawn at most three times a second, less often if drawing takes long, so that it takes a twentieth of
/// the time at most. While another page is shown the sheet is not followed at all.
class GraphPage final : public QGroupBox {
public:
    /// What the page works on; everything outlives it.
    struct Parts {
        DataSheet& sheet;
        const SheetPanel& panel;
        const CommandPanel& commands;
        OperatorMessages& messages;
        OperatorQuestions& questions;
        /// Lets the operator choose how to print; false if he cancels. Empty: the system's own dialog.
        std::function<bool(QPrinter& printer)> choosePrinter = {};
    };

    explicit GraphPage(const Parts& parts, QWidget* parent = nullptr);

    /// Draws what has changed now, for screenshots and tests.
    void refreshNow();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeBar();
    QPushButton* makeButton(const QString& caption, const char* name, const QString& toolTip,
                            const std::function<void()>& action);
    QMenu* makeSaveMenu(QWidget* parent);
    void schedule();
    /// `pointedRow` is the row that was under the cursor, -1 for none.
    void relay(int pointedRow);
    void setMode(PlotView::Mode mode);
    void showMode();
    void setRanges();
    void tellWhatIsMissing();
    void readOut(int point);
    void refreshTheme();
    void savePicture(PictureFormat format);
    void copyPicture();
    void print();
    void tell(const QString& title, const QString& text);

    Parts p_;
    PlotData data_;
    PlotView view_;
    PlotCanvas* canvas_;
    CurveList* list_;
    QPushButton* follow_ = nullptr;
    QPushButton* showAll_ = nullptr;
    QLabel* note_;
    std::vector<bool> shown_; ///< For each curve.
    int pointed_ = -1;        ///< The point under the pointer.
    QTimer refreshTimer_;
    bool stale_ = true;
    std::vector<Listeners::Subscription> subscriptions_; ///< While the page is shown.
    Bindings bindings_;
};

} // namespace orv
