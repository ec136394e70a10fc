// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "link/connection.h"
#include "link/manualconnection.h"
#include "link/poll.h"
#include "link/waits.h"
#include "testing/fakes.h"

#include <deque>

namespace orv {

/// The whole link over two fake ports, with a reset and a status timer that do what the link needs of them.
///
/// While the program waits for input, the clock of the test runs and `replies` arrive, one block for each wait.
class LinkRig final : public ProgramActions {
public:
    LinkRig() {
        ports.setDevice(1, QStringLiteral("ttyA"));
        ports.setDevice(2, QStringLiteral("ttyB"));
        ports.portFailed = [this] { fixit(); };
        for (FakePort* port : {&com1, &com2}) {
            port->waited = [this, port](int milliseconds) {
                clock.advance(milliseconds);
                if (!replies.empty()) {
                    port->input = replies.front();
                    replies.pop_front();
                }
            };
        }
        yield.tick = [this] { tick(); };
        fixit();
        resets = 0;
    }

    /// What the status timer does whatever the operation code.
    void tick() {
        ticksWhilePolling += connection.isPolling() ? 1 : 0;
        if (!connection.isPolling() && ports.isOpen()) {
            poll.quary();
        }
    }

    void fixit() override {
        ++resets;
        ports.debugsay(QStringLiteral("(reset)"));
        ports.close();
        state.Rtn = QStringLiteral("wakeup!!!");
        state.Ctrlscrn = Operation::Idle;
        state.Tmr = 1;
        session.status.status = QStringLiteral("Offline");
        items.enableAll();
        items.uncheckAll();
        CommandState& commands = session.commands;
        commands.resetEnabled = false;
        commands.runEnabled = false;
        commands.clearAllEnabled = false;
        commands.saveAsEnabled = false;
        commands.resetShutterEnabled = false;
        commands.closePortEnabled = false;
        commands.activity = Activity::None;
        state.portstatus = 2;
        state.Gatherstop = 0;
        state.gatherstart = 0;
        state.Seeking = 0;
    }
    void layOutHeaderRow() override {
        ++headerRows;
        typeAtHeaderRow = state.Vartemp;
    }
    void closeRecordFile() override {
        ++recordFilesClosed;
        ports.debugsay(QStringLiteral("(record file)"));
    }

    /// Opens the debug port and ticks its box; what is written there is in `com2.writes`.
    void tickDebugOutput() {
        debug.comm2Output = true;
        ports.openDebugPort();
    }

    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    SessionState& state = session.state;
    ConnectItems items;
    DebugState debug;
    ProgramLog log;
    FakePort com1;
    FakePort com2;
    std::deque<QByteArray> replies;
    ComPorts ports{session, debug, [this](const QString& device) {
                       return std::make_unique<WatchedPort>(device == QLatin1String("ttyA") ? com1 : com2);
                   }};
    SteppedYield yield{clock};
    TimedWait wait{clock, yield, ports};
    StatusTimer timer{[] {}};
    ManualConnection manual{session, items, *this};
    Poll poll{session, ports, debug, log};
    Connection connection{{.session = session,
                           .items = items,
                           .ports = ports,
                           .debug = debug,
                           .wait = wait,
                           .events = yield,
                           .manual = manual,
                           .timer = timer,
                           .actions = *this}};
    AbortRun abortRun{session, items, ports, connection, manual, *this};

    int resets = 0;
    int headerRows = 0;
    int recordFilesClosed = 0;
    int ticksWhilePolling = 0;
    QString typeAtHeaderRow;
};

} // namespace orv
