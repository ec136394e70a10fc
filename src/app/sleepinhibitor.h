// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/session.h"

#include <memory>

namespace orv {

/// Keeps the computer from going to sleep by itself. Best effort: neither call waits for anything or fails, and where
/// the system offers no way to do it nothing happens.
class SleepInhibitor {
public:
    SleepInhibitor() = default;
    SleepInhibitor(const SleepInhibitor&) = delete;
    SleepInhibitor& operator=(const SleepInhibitor&) = delete;
    virtual ~SleepInhibitor() = default; ///< Releases.

    /// From now on the computer stays awake. Without effect if it does already.
    virtual void take() = 0;

    /// The computer may sleep again. Without effect if it may already.
    virtual void release() = 0;
};

/// The one of this system: on Linux through its login manager, on Windows by the system's own call, elsewhere none.
std::unique_ptr<SleepInhibitor> makeSleepInhibitor();

/// Holds an inhibitor while a run or a download goes on, however it ends. State and inhibitor outlive it.
class AwakeWhileCollecting {
public:
    AwakeWhileCollecting(const CommandState& commands, SleepInhibitor& inhibitor);

private:
    bool held_ = false;
    Bindings bindings_;
};

} // namespace orv
