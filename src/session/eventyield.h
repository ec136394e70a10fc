// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orv {

/// The two ways in which a waiting procedure lets the rest of the program live.
class EventYield {
public:
    virtual ~EventYield() = default;

    /// Processes every pending event once; if there is none, sleeps until one arrives, at most `milliseconds`.
    /// Timer ticks and handlers run inside.
    virtual void processEvents(int milliseconds) = 0;

    /// Called by loops that do not yield: lets the windows repaint and answer the window system, but handles no
    /// input of the operator, except that of the Manual Connection dialog when `manualDialogLives`.
    virtual void keepResponsive(bool manualDialogLives) = 0;

    /// The operator has ended the program: waits return at once so that everything can unwind.
    virtual bool programEnding() const = 0;
};

} // namespace orv
