// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

namespace orv {

namespace {

class NoInhibitor final : public SleepInhibitor {
public:
    void take() override {}
    void release() override {}
};

} // namespace

std::unique_ptr<SleepInhibitor> makeSleepInhibitor() {
    return std::make_unique<NoInhibitor>();
}

} // namespace orv
