// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <deque>
#include <functional>

namespace orv {

/// The list of the debug screen: the newest 10000 entries, oldest first.
class DebugList {
public:
    static constexpr std::size_t maximumEntries = 10000;

    /// Adds an entry at the end; the oldest goes when the list is full.
    void append(const QString& entry);

    /// Selects the last entry, so that it scrolls into view.
    void selectLast();

    const std::deque<QString>& entries() const { return entries_; }

    /// Called after an append; the argument tells whether the oldest entry went.
    std::function<void(bool droppedOldest)> appended;
    std::function<void()> lastSelected;

private:
    std::deque<QString> entries_;
};

} // namespace orv
