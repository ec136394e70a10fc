// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "settings/modes.h"
#include "settings/record.h"
#include "settings/sender.h"
#include "ui/numberbox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

#include <array>

namespace orv {

/// The frame "Samples and Intervals": the four numbers, the sampling-rate options and the memory used.
class SamplesPage final : public QGroupBox {
public:
    SamplesPage(Session& session, SettingsPanel& panel, SettingsCommands& commands);

private:
    void addNumbers(QGridLayout* layout, LoggerSettings& record, QWidget* options);
    static std::function<void(const QString&)> makeRemark(QGridLayout* layout, const NumberBox& box);
    void addCapacity(QGridLayout* layout, SettingsPanel& panel);
    QWidget* makeOptions(Session& session, SettingsPanel& panel, SettingsCommands& commands);
    void select(int option);

    std::array<QRadioButton*, 4> options_{};
    Bindings bindings_;
};

/// The frame "Control Bits": the six flags and the status lamp.
class ControlBitsPage final : public QGroupBox {
public:
    explicit ControlBitsPage(SettingsPanel& panel);

private:
    Bindings bindings_;
};

/// The frame "Time and Date": the computer's clock, the instrument's at last display, and whether to set it.
class TimeAndDatePage final : public QGroupBox {
public:
    TimeAndDatePage(Session& session, SettingsPanel& panel, SettingsCommands& commands);

private:
    Bindings bindings_;
};

/// The frame "Modes": built-in modes, mode files, and the way to the description in sentences.
class ModesPage final : public QGroupBox {
public:
    /// `viewAsText` shows the settings in plain English.
    ModesPage(Session& session, SettingsPanel& panel, Modes& modes, const std::function<void()>& viewAsText);

private:
    Bindings bindings_;
};

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
