// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/devices.h"

#include "link/systemport.h"
#include "simulator/replay.h"
#include "simulator/simulatedport.h"
#include "simulator/simulatoroptions.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace orv {

Words deviceProblem(const QString& device) {
    if (namesReplay(device)) {
        const ReplayOptions options = parseReplayOptions(device);
        return options.error.isEmpty() ? readCaptureFile(options.file).error : options.error;
    }
    if (namesSimulator(device)) {
        return parseSimulatorOptions(device).error;
    }
    const bool printable = std::all_of(device.begin(), device.end(),
                                       [](QChar character) { return character.isPrint() && !character.isSpace(); });
    if (device.isEmpty() || !printable || device.endsWith(u'/')) {
        return Words::tr("\"%1\" is no device. Give a serial port's name or path (ttyUSB0, /dev/ttyUSB0, COM3) or a "
                         "simulated instrument (sim:trx, sim:glow).")
            .arg(device);
    }
    return {};
}

std::unique_ptr<Port> makePort(const QString& device, Clock& clock,
                               std::function<void(const QString& text)> replayTold) {
    if (namesReplay(device)) {
        const ReplayOptions options = parseReplayOptions(device);
        // A file that has gone since it was named is a capture without any connection.
        return std::make_unique<ReplayPort>(readCaptureFile(options.file), QFileInfo(options.file).fileName(),
                                            options.speed, clock, std::move(replayTold));
    }
    if (namesSimulator(device)) {
        return std::make_unique<SimulatedPort>(parseSimulatorOptions(device).options, clock);
    }
    return std::make_unique<SystemPort>(device);
}

} // namespace orv
