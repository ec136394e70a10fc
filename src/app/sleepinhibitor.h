// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/session.h"

#include <memory>

namespace orv {

/// Keeps the computer from going to sleep by itself. Best effort: no call waits for anything or fails. This one is for
/// systems that offer no way to do it.
class SleepInhibitor {
public:
    SleepInhibitor() = default;
    SleepInhibitor(const SleepInhibitor&) = delete;
    SleepInhibitor& operator=(const SleepInhibitor&) = delete;
    virtual ~SleepInhibitor() = default; ///< Releases.

    /// From now on the computer stays awake. Without effect if it does already.
    virtual void take() {}

    /// The computer may sleep again. Without effect if it may already.
    virtual void release() {}

    /// Whether the system has granted it and it has not been released.
    virtual bool isHeld() const { return false; }
};

/// The one of this system: Linux's login manager on the bus at `busAddress`, the system's own if empty; Windows' own
/// call; elsewhere none. Nothing is asked of the bus before take().
std::unique_ptr<SleepInhibitor> makeSleepInhibitor(const QString& busAddress = {});

/// Holds an inhibitor while a run or a download goes on, however it ends. State and inhibitor outlive it.
class AwakeWhileCollecting {
public:
    AwakeWhileCollecting(const CommandState& commands, SleepInhibitor& inhibitor);

private:
    bool held_ = false;
    Bindings bindings_;
};

} // namespace orv
