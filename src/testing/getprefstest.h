// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingsreader.h"
#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <memory>

namespace orv {

/// Keeps what a procedure under test asks of the program.
class RecordedActions final : public ProgramActions {
public:
    explicit RecordedActions(const SessionState& state)
        : state_(state) {}

    void fixit() override {
        ++resets;
        portAtReset = state_.Portused;
    }
    void layOutHeaderRow() override {}
    void closeRecordFile() override {}

    int resets = 0;
    int portAtReset = -1;

private:
    const SessionState& state_;
};

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

    void take(const char* line) {
        session.state.Rtn = QString::fromLatin1(line);
        reader.getprefs();
    }

    LoggerSettings record() const { return settings.record; }

    FakePort* instrument = nullptr;
    FakePort* debugPort = nullptr;
    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    DebugState debug;
    ComPorts ports{session, debug, [this](const QString& device) { return makePort(device); }};
    ConnectItems items;
    RecordedActions actions{session.state};
    ManualConnection manual{session, items, actions};
    SettingsState settings;
    ProgressState progress;
    SettingsReader reader{{.session = session,
                           .ports = ports,
                           .items = items,
                           .manual = manual,
                           .settings = settings,
                           .progress = progress,
                           .actions = actions}};
};

} // namespace orv
