// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/debuglist.h"

#include <QAbstractListModel>
#include <QTimer>

namespace orv {

/// How control characters are made visible.
enum class ControlSymbols {
    Pictures, ///< CR, LF and TAB as ␍, ␊ and ␉, the others likewise. Many fonts do not have them.
    Arrows    ///< CR, LF and TAB as ↵, ↓ and →, the others by their number, \x1B.
};

/// The text with its control characters made visible.
QString visibleText(const QString& text, ControlSymbols symbols);

/// The debug list as a view shows it.
///
/// A busy line brings hundreds of entries a second; the view hears of them together, about 20 times a second. One list
/// has one model, which must not outlive it.
class DebugListModel final : public QAbstractListModel {
public:
    explicit DebugListModel(DebugList& list);
    DebugListModel(const DebugListModel&) = delete;
    DebugListModel& operator=(const DebugListModel&) = delete;
    ~DebugListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Pictures unless told otherwise.
    void setSymbols(ControlSymbols symbols) { symbols_ = symbols; }

    /// Lets the view hear of everything now.
    void flush();

    /// Called when the last row is to be selected.
    std::function<void()> lastSelected;

private:
    void later();

    DebugList& list_;
    std::deque<QString> shown_; ///< What the view knows of.
    std::size_t waiting_ = 0;   ///< Newest entries of the list that the view does not know of.
    bool selectLast_ = false;
    ControlSymbols symbols_ = ControlSymbols::Pictures;
    QTimer timer_;
};

} // namespace orv
