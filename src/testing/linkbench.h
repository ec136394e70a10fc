// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "testing/fakes.h"

namespace orv {

/// For tests: the ports with the test at the far end of both lines. The debug output is ticked and open.
class LinkBench {
public:
    LinkBench() {
        ports.setDevice(1, QStringLiteral("instrument"));
        ports.setDevice(2, QStringLiteral("debug"));
        ports.openDebugPort();
        debug.comm2Output = true;
        // Made on the first opening: a test may look at it before.
        ports.open();
        ports.close();
    }

    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    DebugState debug;
    FakePort* instrument = nullptr;
    FakePort* debugOutput = nullptr;
    ComPorts ports{session, debug, [this](const QString& device) {
                       auto port = std::make_unique<FakePort>();
                       (device == QLatin1String("debug") ? debugOutput : instrument) = port.get();
                       return port;
                   }};
};

} // namespace orv
