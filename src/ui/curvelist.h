// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QIcon>
#include <QStringList>
#include <QWidget>

#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace orv {

/// The legend beside the curves: which are shown, switched by click or key, and what one row holds.
class CurveList final : public QWidget {
public:
    /// A row of the sheet as texts.
    struct Readout {
        QString title;
        QString record;
        QString date;
        QString time;
        QStringList values; ///< One for each curve.
    };

    CurveList();

    // What the operator does.
    Signal<int, bool> switched; ///< A curve on or off.
    Signal<int> regarded;       ///< A curve has the pointer on it or the focus; -1: none has.

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

    QLabel* addValue(int row, QAnyStringView name, const QString& caption);
    void tellRegarded();

    QGridLayout* grid_;
    QLabel* title_;
    QLabel* record_;
    QLabel* date_;
    QLabel* time_;
    std::vector<Line> lines_;
};

} // namespace orv
