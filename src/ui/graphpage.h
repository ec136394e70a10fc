// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/operator.h"
#include "link/session.h"
#include "sheet/datasheet.h"
#include "sheet/plotdata.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

class QMenu;

class QPrinter;

namespace orv {

/// The legend beside the curves: which are shown, switched by click or key, and what one row holds.
class CurveList final : public QWidget {
public:
    /// What the operator does; each must be set.
    struct Actions {
        std::function<void(int curve, bool shown)> switched;
        std::function<void(int curve)> regarded; ///< Has the pointer on it or the focus; -1: none has.
    };

    /// A row of the sheet as texts.
    struct Readout {
        QString title;
        QString record;
        QString date;
        QString time;
        QStringList values; ///< One for each curve.
    };

    explicit CurveList(Actions actions, QWidget* parent = nullptr);

    /// Lays the curves out anew.
    void setCurves(const QStringList& names, const std::vector<bool>& shown);
    /// Makes the Tab key lead from `before` through the curves: those made later would stand behind everything.
    void followInTabOrder(QWidget* before);
    void setSwatches(const std::vector<QIcon>& swatches);
    void show(const Readout& readout);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Line {
        QCheckBox* box;
        QLabel* value;
    };

    QLabel* addValue(QGridLayout& grid, int row, const QString& name, const QString& caption);
    void tellRegarded();

    Actions actions_;
    QLabel* title_;
    QLabel* record_;
    QLabel* date_;
    QLabel* time_;
    QGridLayout* grid_;
    std::vector<Line> lines_;
};

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
        const SheetState& shown;
        const CommandState& commands;
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
    std::vector<Subscription> subscriptions_; ///< While the page is shown.
    Bindings bindings_;
};

} // namespace orv
