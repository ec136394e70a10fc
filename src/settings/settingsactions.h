// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orv {

/// What the settings screen's buttons ask of the program above it: device files belong to the calibration.
class SettingsActions {
public:
    virtual ~SettingsActions() = default;

    virtual void loadDeviceFile() = 0;
    virtual void saveDeviceFile() = 0;
};

} // namespace orv
