// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/waits.h"

#include <algorithm>
#include <cmath>

namespace orv {

TimedWait::TimedWait(const Clock& clock, EventYield& events, const ComPorts& ports)
    : clock_(clock)
    , events_(events)
    , ports_(ports) {}

template <typename Ended>
void TimedWait::waitUnless(float seconds, Ended ended) {
    constexpr float longestSleep = 1.0F;
    const float start = clock_.secondsSinceMidnight();
    while (!ended()) {
        const float passed = clock_.secondsSinceMidnight() - start;
        if (passed >= seconds) {
            return;
        }
        const float sleep = std::min(seconds - passed, longestSleep);
        events_.processEvents(static_cast<int>(std::ceil(sleep * 1000.0F)));
    }
}

void TimedWait::waitsec(float seconds) {
    waitUnless(seconds, [this] { return events_.programEnding(); });
}

bool TimedWait::waitConnected(float seconds) {
    const quint64 connection = ports_.connectionNumber();
    const auto overtaken = [this, connection] {
        return events_.programEnding() || ports_.connectionNumber() != connection;
    };
    waitUnless(seconds, overtaken);
    return !overtaken();
}

} // namespace orv
