// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/session.h"

namespace orv {

CommandState::CommandState() {
    undisturbed.setBinding([this] { return activity.value() == Activity::None; });
    canCommand.setBinding([this] { return portOpen.value() && undisturbed.value(); });
    canRun.setBinding([this] { return runEnabled.value() && canCommand.value(); });
    // Rows that arrive must not find their sheet emptied or replaced under them.
    const auto sheetAtRest = [this] {
        return activity.value() != Activity::Collecting && activity.value() != Activity::Downloading;
    };
    canClearAll.setBinding([this, sheetAtRest] { return clearAllEnabled.value() && sheetAtRest(); });
    canSaveAs.setBinding([this] { return saveAsEnabled.value() || sheetHoldsRows.value(); });
    canOpenSheet.setBinding([sheetAtRest] { return sheetAtRest(); });
    canResetShutter.setBinding([this] { return resetShutterEnabled.value() && canCommand.value(); });
}

} // namespace orv
