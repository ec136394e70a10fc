// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/devices.h"

#include "link/systemport.h"
#include "simulator/simulatedport.h"
#include "simulator/simulatoroptions.h"

#include <algorithm>

namespace orv {

QString deviceProblem(const QString& device) {
    if (namesSimulator(device)) {
        return parseSimulatorOptions(device).error;
    }
    const bool printable = std::all_of(device.begin(), device.end(),
                                       [](QChar character) { return character.isPrint() && !character.isSpace(); });
    if (device.isEmpty() || !printable || device.endsWith(u'/')) {
        return QStringLiteral(
                   "\"%1\" is no device. Give a serial port's name or path (ttyUSB0, /dev/ttyUSB0, COM3) or a "
                   "simulated instrument (sim:trx, sim:glow).")
            .arg(device);
    }
    return {};
}

std::unique_ptr<Port> makePort(const QString& device, Clock& clock) {
    if (namesSimulator(device)) {
        return std::make_unique<SimulatedPort>(parseSimulatorOptions(device).options, clock);
    }
    return std::make_unique<SystemPort>(device);
}

} // namespace orv
