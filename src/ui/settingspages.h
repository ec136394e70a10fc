// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "settings/loggersettings.h"
#include "settings/modes.h"
#include "settings/settingssender.h"
#include "ui/numberbox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

#include <array>

namespace orv {

/// The frame "Samples and Intervals": the four numbers, the sampling-rate options and the memory used.
class SamplesPage final : public QGroupBox {
public:
    SamplesPage(Session& session, SettingsState& shown, SettingsCommands& commands);

private:
    void addNumbers(QGridLayout* layout, QProperty<LoggerSettings>& record, QWidget* options);
    static std::function<void(const QString&)> makeRemark(QGridLayout* layout, const NumberBox& box);
    void addCapacity(QGridLayout* layout, SettingsState& shown);
    QWidget* makeOptions(Session& session, SettingsState& shown, SettingsCommands& commands);
    void select(int option);

    std::array<QRadioButton*, 4> options_{};
    Bindings bindings_;
};

/// The frame "Control Bits": the six flags and the status lamp.
class ControlBitsPage final : public QGroupBox {
public:
    explicit ControlBitsPage(SettingsState& shown);

private:
    Bindings bindings_;
};

/// The frame "Time and Date": the computer's clock, the instrument's at last display, and whether to set it.
class TimeAndDatePage final : public QGroupBox {
public:
    TimeAndDatePage(Session& session, SettingsState& shown, SettingsCommands& commands);

private:
    Bindings bindings_;
};

/// The frame "Modes": built-in modes, mode files, and the way to the description in sentences.
class ModesPage final : public QGroupBox {
public:
    /// `viewAsText` shows the settings in plain English.
    ModesPage(Session& session, SettingsState& shown, Modes& modes, const std::function<void()>& viewAsText);

private:
    Bindings bindings_;
};

/// The scattering meter's calibration frame: offset and scale of each angle, and the device files.
class TrxCalibrationPage final : public QGroupBox {
public:
    TrxCalibrationPage(SettingsState& shown, SettingsActions& actions);

private:
    void addAngles(QGridLayout* layout, SettingsState& shown);

    Bindings bindings_;
};

/// The fluorometer's calibration frame: one offset and one scale.
class GlowCalibrationPage final : public QGroupBox {
public:
    explicit GlowCalibrationPage(SettingsState& shown);

private:
    Bindings bindings_;
};

} // namespace orv
