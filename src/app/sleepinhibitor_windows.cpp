// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

#include <windows.h>

namespace orv {

namespace {

/// What it says holds for the thread that says it: the program has only one.
class WindowsInhibitor final : public SleepInhibitor {
public:
    ~WindowsInhibitor() override { ::SetThreadExecutionState(ES_CONTINUOUS); }
    void take() override { ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED); }
    void release() override { ::SetThreadExecutionState(ES_CONTINUOUS); }
};

} // namespace

std::unique_ptr<SleepInhibitor> makeSleepInhibitor() {
    return std::make_unique<WindowsInhibitor>();
}

} // namespace orv
