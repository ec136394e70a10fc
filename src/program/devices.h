// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/words.h"
#include "link/port.h"

#include <QString>

#include <functional>
#include <memory>

namespace orv {

/// What is wrong with a device name: the empty text if it is a serial port's name or path, a well-formed simulated
/// instrument ("sim:trx?firmware=412") or the replay of a capture that can be read ("sim:replay?file=lake.jsonl").
Words deviceProblem(const QString& device);

/// The port of a device: a simulated instrument for "sim:...", else a serial port of this computer. A replay tells how
/// what the program sends compares.
std::unique_ptr<Port> makePort(const QString& device, Clock& clock,
                               std::function<void(const QString& text)> replayTold = {});

} // namespace orv
