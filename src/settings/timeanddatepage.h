// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "settings/settingscommands.h"

#include <QGroupBox>

namespace orv {

/// The frame "Time and Date": the computer's clock, the instrument's at last display, and whether to set it.
class TimeAndDatePage final : public QGroupBox {
public:
    TimeAndDatePage(Session& session, SettingsPanel& panel, SettingsCommands& commands);

private:
    Bindings bindings_;
};

} // namespace orv
