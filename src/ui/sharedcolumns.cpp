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
    const QList<int> shares = shares_.size() == count() ? shares_ : QList<int>(count(), 1);
    const qint64 all = std::max<qint64>(std::accumulate(shares.begin(), shares.end(), qint64{0}), 1);
    QList<int> widths;
    qint64 passed = 0;
    int edge = 0;
    int lacking = 0; // what the narrow ones need above their share
    for (const int share : shares) {
        passed += share;
        const auto next = static_cast<int>(width() * passed / all); // no pixel is lost by rounding
        widths << std::max(next - edge, minimumSectionSize());
        lacking += widths.last() - (next - edge);
        edge = next;
    }
    while (lacking > 0) {
        const auto widest = std::ranges::max_element(widths);
        const int spare = *widest - minimumSectionSize();
        if (spare <= 0) {
            break; // there is no room for all: the table gets a bar to scroll
        }
        const int given = std::min(lacking, (spare + 1) / 2);
        *widest -= given;
        lacking -= given;
    }
    for (int column = 0; column < widths.size(); ++column) {
        resizeSection(column, widths.at(column));
    }
}

/// The neighbour gives or takes what the column has got; the right border of the last one stays.
void SharedColumns::moveBorder(int column, int before, int now) {
    {
        const QScopedValueRollback guard(layingOut_, true);
        const bool isLast = column == count() - 1;
        const int both = isLast ? before : before + sectionSize(column + 1);
        const int most = isLast ? before : std::max(both - minimumSectionSize(), minimumSectionSize());
        const int width = isLast ? before : std::clamp(now, minimumSectionSize(), most);
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
