// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "settings/settingsactions.h"
#include "settings/settingspanel.h"

#include <QGridLayout>
#include <QGroupBox>

namespace orv {

/// The scattering meter's calibration frame: offset and scale of each angle, and the device files.
class TrxCalibrationPage final : public QGroupBox {
public:
    TrxCalibrationPage(SettingsPanel& panel, SettingsActions& actions);

private:
    void addAngles(QGridLayout* layout, SettingsPanel& panel);

    Bindings bindings_;
};

/// The fluorometer's calibration frame: one offset and one scale.
class GlowCalibrationPage final : public QGroupBox {
public:
    explicit GlowCalibrationPage(SettingsPanel& panel);

private:
    Bindings bindings_;
};

} // namespace orv
