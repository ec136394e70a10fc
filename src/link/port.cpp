// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/port.h"

namespace orv {

bool isSimulatedDevice(const QString& device) {
    return device.startsWith(QLatin1String("sim:"));
}

bool sameDevice(const QString& one, const QString& other) {
    const auto plain = [](const QString& name) { return name.startsWith(QLatin1String("/dev/")) ? name.mid(5) : name; };
    return !isSimulatedDevice(one) && plain(one) == plain(other);
}

} // namespace orv
