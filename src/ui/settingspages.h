// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

#include <QWidget>

namespace orv {

// The pages of the settings screen, each a frame with a title. The program outlives them.

/// Built-in modes, mode files, and the way to the description in sentences.
QWidget* makeModesPage(Program& program);

/// What is said of the settings while the shutter is reset: they may be those that only its moving needs.
QString temporarySettings();

/// The computer's clock, the instrument's at last display, and whether to set it.
QWidget* makeTimeAndDatePage(Program& program);

/// The six flags and the status lamp.
QWidget* makeControlBitsPage(Program& program);

/// The four numbers, the sampling-rate options and the memory used.
QWidget* makeSamplesPage(Program& program);

/// The scattering meter's calibration: offset and scale of each angle, and the device files.
QWidget* makeTrxCalibrationPage(Program& program);

/// The fluorometer's calibration: one offset and one scale.
QWidget* makeGlowCalibrationPage(Program& program);

} // namespace orv
