// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "session/clock.h"
#include "session/eventyield.h"

namespace orv {

/// The one way in which the program waits and lets the user interface run.
class TimedWait {
public:
    TimedWait(const Clock& clock, EventYield& events, const ComPorts& ports);

    /// Waits for `seconds` (fractions allowed) on the clock of seconds since midnight, processing events meanwhile;
    /// 0 returns without yielding. A wait that runs across midnight never ends, because the clock falls back to 0.
    /// Returns early only when the program is ending.
    void waitsec(float seconds);

    /// Waits like waitsec, but no longer than the instrument's connection lasts, and tells whether that is still the
    /// one from before the wait. If not, the caller's procedure has been overtaken by a reset, a close or a failure
    /// and must end without sending.
    [[nodiscard]] bool waitConnected(float seconds);

private:
    template <typename Ended>
    void waitUnless(float seconds, Ended ended);

    const Clock& clock_;
    EventYield& events_;
    const ComPorts& ports_;
};

} // namespace orv
