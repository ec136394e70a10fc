// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "link/port.h"

#include <QString>

#include <memory>

namespace orv {

/// What is wrong with a device name: the empty text if it is a serial port's name or path or a well-formed simulated
/// instrument ("sim:trx?firmware=412").
QString deviceProblem(const QString& device);

/// The port of a device: a simulated instrument for "sim:...", else a serial port of this computer.
std::unique_ptr<Port> makePort(const QString& device, Clock& clock);

} // namespace orv
