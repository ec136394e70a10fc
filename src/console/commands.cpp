// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/commands.h"

namespace orv {

Task<> performCommand(Visit& visit) {
    switch (visit.options.command) {
    case Options::Command::Ports:
        return listPorts(visit);
    case Options::Command::Info:
        return tellInfo(visit);
    case Options::Command::Settings:
        return exchangeSettings(visit);
    case Options::Command::Clock:
        return compareClock(visit);
    case Options::Command::Shutter:
        return resetShutter(visit);
    case Options::Command::Watch:
        return watchLine(visit);
    case Options::Command::Collect:
        return collectRows(visit);
    case Options::Command::Download:
        return downloadMemory(visit);
    case Options::Command::Convert:
        return convertFiles(visit);
    }
    throw Failure(QString());
}

} // namespace orv
