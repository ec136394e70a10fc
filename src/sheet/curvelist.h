// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QWidget>

#include <functional>
#include <vector>

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

} // namespace orv
