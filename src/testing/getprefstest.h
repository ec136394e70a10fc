// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingsreader.h"
#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <memory>

namespace orv {

/// The settings reader on an open port, with the debug output on COM 2.
class GetPrefsTest : public testing::Test {
protected:
    GetPrefsTest() {
        ports.setDevice(1, QStringLiteral("instrument"));
        ports.setDevice(2, QStringLiteral("debug"));
        ports.open();
        ports.openDebugPort();
        session.state.Ctrlscrn = Operation::Ready;
        session.state.Vartemp = QStringLiteral("V");
    }

    std::unique_ptr<Port> makePort(const QString& device) {
        auto port = std::make_unique<FakePort>();
        (device == QLatin1String("instrument") ? instrument : debugPort) = port.get();
        return port;
    }

    void take(const char* line) { reader.getprefs(QString::fromLatin1(line)); }

    LoggerSettings record() const { return settings.record; }

    FakePort* instrument = nullptr;
    FakePort* debugPort = nullptr;
    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    DebugState debug;
    ComPorts ports{session, debug, [this](const QString& device) { return makePort(device); }};
    SteppedYield events{clock};
    TimedWait wait{clock, events, ports};
    StatusTimer timer;
    Connection connection{session, debug, ports, wait, events, timer};
    ConnectItems& items = connection.items;
    ManualConnection manual{session, connection};
    SettingsState settings;
    ProgressState progress;
    SettingsReader reader{{.session = session,
                           .ports = ports,
                           .connection = connection,
                           .manual = manual,
                           .settings = settings,
                           .progress = progress}};
    int resets = 0;
    int portAtReset = -1;
    Subscription watchingResets = connection.wasReset.subscribe([this] {
        ++resets;
        portAtReset = session.state.Portused;
    });
};

} // namespace orv
