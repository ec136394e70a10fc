// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orv {

/// Whether a device name stands for a simulated instrument ("sim:trx").
bool isSimulatedDevice(const QString& device);

/// Whether two names mean one device of this computer: "ttyUSB0" and "/dev/ttyUSB0" do. Each line has a simulated
/// instrument of its own, so two of these never do.
bool sameDevice(const QString& one, const QString& other);

} // namespace orv
