// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

namespace orv {

AwakeWhileCollecting::AwakeWhileCollecting(const CommandState& commands, SleepInhibitor& inhibitor) {
    bindings_.bind(commands.activity, [this, &inhibitor](Activity activity) {
        const bool wanted = activity == Activity::Collecting || activity == Activity::Downloading;
        if (wanted == held_) {
            return;
        }
        held_ = wanted;
        if (wanted) {
            inhibitor.take();
        } else {
            inhibitor.release();
        }
    });
}

} // namespace orv
