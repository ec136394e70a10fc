// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "settings/settingspanel.h"

namespace orv {

/// Shows the instrument's clock from the reply in `Rtn` (date, TAB, time count; 64800 counts are one day) on the main
/// window and the settings screen, and moves the operation code to 2. A reply of fewer than 10 characters is not a
/// clock reply and changes nothing. One that cannot be read is told in a message; every label stays as it was.
class ClockDisplay {
public:
    ClockDisplay(Session& session, ComPorts& ports, DebugPanel& debug, SettingsPanel& settings);

    void checktime();

private:
    void show(const QString& dateText, const QString& timeText);

    Session& session_;
    ComPorts& ports_;
    DebugPanel& debug_;
    SettingsPanel& settings_;
};

} // namespace orv
