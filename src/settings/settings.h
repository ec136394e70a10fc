// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/link.h"
#include "settings/devicefiles.h"
#include "settings/modes.h"
#include "settings/settingsreader.h"
#include "settings/settingssender.h"

namespace orv {

/// The instrument's settings and clock: what the settings screen shows, and what reads and writes it.
struct Settings {
    explicit Settings(Link& link)
        : reader(link, shown, progress)
        , clock(link.session, link.ports, link.debug, shown)
        , sender(link, shown, progress)
        , modes(link, shown, sender)
        , deviceFiles(link, shown) {}

    SettingsState shown;
    ProgressState progress;
    SettingsReader reader;
    ClockDisplay clock;
    SettingsSender sender;
    Modes modes;
    DeviceFiles deviceFiles;
};

} // namespace orv
