// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sharedcolumns.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <numeric>

namespace orv {

SharedColumns::SharedColumns(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent) {
    constexpr int leastWidth = 24;
    setSectionsClickable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setMinimumSectionSize(leastWidth);
    connect(this, &QHeaderView::sectionResized, this, [this](int column, int before, int now) {
        if (!layingOut_) {
            moveBorder(column, before, now);
        }
    });
    connect(this, &QHeaderView::sectionCountChanged, this, [this] { layOut(); });
}

void SharedColumns::setShares(const QList<int>& shares) {
    if (shares.size() == count() && std::ranges::all_of(shares, [](int share) { return share > 0; })) {
        shares_ = shares;
        layOut();
    }
}

void SharedColumns::resizeEvent(QResizeEvent* event) {
    QHeaderView::resizeEvent(event);
    layOut();
}

void SharedColumns::layOut() {
    const QScopedValueRollback guard(layingOut_, true);
    const QList<int> shares = shares_.isEmpty() ? QList<int>(count(), 1) : shares_;
    const qint64 all = std::accumulate(shares.begin(), shares.end(), qint64{0});
    qint64 passed = 0;
    int edge = 0;
    for (int column = 0; column < std::min(count(), static_cast<int>(shares.size())); ++column) {
        passed += shares.at(column);
        const auto next = static_cast<int>(width() * passed / all); // no pixel is lost by rounding
        resizeSection(column, next - edge);
        edge = next;
    }
}

/// The neighbour gives or takes what the column has got; the right border of the last one stays.
void SharedColumns::moveBorder(int column, int before, int now) {
    {
        const QScopedValueRollback guard(layingOut_, true);
        const bool isLast = column == count() - 1;
        const int both = isLast ? before : before + sectionSize(column + 1);
        const int most = isLast ? before : both - minimumSectionSize();
        const int width = isLast ? before : std::clamp(now, std::min(minimumSectionSize(), most), most);
        resizeSection(column, width);
        if (!isLast) {
            resizeSection(column + 1, both - width);
        }
    }
    shares_.clear();
    for (int at = 0; at < count(); ++at) {
        shares_ << sectionSize(at);
    }
}

} // namespace orv
