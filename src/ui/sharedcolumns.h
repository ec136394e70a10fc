// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHeaderView>
#include <QList>

namespace orv {

/// The header of a table whose columns together are always as wide as it is. The operator drags the border between two
/// columns: one gives what the other takes. In a wider or narrower table every column keeps its share.
class SharedColumns final : public QHeaderView {
public:
    explicit SharedColumns(QWidget* parent);

    /// The widths of the columns as they were when the operator gave them last, in pixels of that table; of the same
    /// use in a table of any width. Empty while all are alike.
    const QList<int>& shares() const { return shares_; }
    /// Anything but one positive number for each column leaves all as they are.
    void setShares(const QList<int>& shares);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void moveBorder(int column, int before, int now);

    QList<int> shares_;
    bool layingOut_ = false;
};

} // namespace orv
