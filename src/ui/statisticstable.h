// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/statistics.h"

#include <QString>
#include <QWidget>

#include <array>
#include <vector>

class QGridLayout;
class QLabel;

namespace orv {

/// Count, mean, standard deviation, minimum and maximum of some columns of numbers, a line each. Without any it says
/// what to do for them, or is not there. Figures that stand one above the other have as many decimals: two if all
/// numbers are whole, else what the least deviation needs.
class StatisticsTable final : public QWidget {
public:
    struct Line {
        QString name; ///< Of the column.
        Statistics numbers;
    };

    /// `hint` is shown while there is no line.
    StatisticsTable(const QString& name, const QString& hint);

    void setHint(const QString& hint);

    /// Keeps the room of so many lines, also while there are fewer: nothing moves when they come and go. More get the
    /// room that they need.
    void keepRoomFor(int lines);

    /// `what` says which rows these are; it stands over the names.
    void show(const QString& what, const std::vector<Line>& lines);

private:
    static constexpr std::size_t figureCount = 5;

    struct Row {
        QLabel* name;
        std::array<QLabel*, figureCount> figures;
    };

    void addRow();
    void reserve();

    QLabel* hint_;
    QWidget* table_;
    QGridLayout* grid_;
    QLabel* what_;
    std::vector<Row> rows_;
    int keptLines_ = 0; ///< 0: as many as are shown.
    int shownLines_ = 0;
};

} // namespace orv
