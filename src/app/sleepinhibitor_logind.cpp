// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/logindinhibitor.h"

namespace orv {

std::unique_ptr<SleepInhibitor> makeSleepInhibitor() {
    return std::make_unique<LogindInhibitor>(
        qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS", QStringLiteral("unix:path=/run/dbus/system_bus_socket")));
}

} // namespace orv
