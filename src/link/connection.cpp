// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace orv {

namespace {

/// How long an automatic attempt waits for the instrument's first line, in milliseconds of monotonic time.
constexpr qint64 attemptLimit = 5000;

/// How often the windows are kept alive during the wake-up loop, in milliseconds of monotonic time.
constexpr qint64 responsiveInterval = 10;

} // namespace

Connection::Connection(const Parts& parts)
    : p_(parts) {
    p_.manual.openport = [this](int portNumber) {
        if (portNumber == 1) {
            openport1();
        } else if (portNumber == 2) {
            openport2();
        }
    };
}

void Connection::autoConnect1() {
    p_.ports.debugsay(QStringLiteral("Auto Open 1"));
    // The item is checked only after the attempt: while it runs, no item tells the port number, which stays what it
    // was, 1 at the start of the program or that of the last session.
    const quint64 expected = p_.ports.connectionNumber() + (p_.ports.isOpen() ? 0 : 1);
    openport1();
    if (p_.ports.connectionNumber() != expected) {
        return; // not opened, or overtaken by a reset, a close or another connection: those have set the items
    }
    p_.session.state.Portused = 1;
    p_.items[ConnectItems::Auto1].checked = true;
    p_.items[ConnectItems::Auto1].enabled = true;
}

void Connection::autoConnect2() {
    p_.ports.debugsay(QStringLiteral("Auto Open 2"));
    p_.session.state.Portused = 2;
    p_.items[ConnectItems::Auto2].checked = true;
    p_.items[ConnectItems::Auto2].enabled = true;
    openport2();
}

void Connection::manualConnect(int portNumber) {
    p_.ports.debugsay(portNumber == 1 ? QStringLiteral("Manual 1 Start") : QStringLiteral("Manual 2 Start"));
    p_.session.state.Portused = static_cast<quint8>(portNumber);
    ConnectItem& item = p_.items[portNumber == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2];
    item.enabled = true;
    item.checked = true;
    p_.manual.show();
}

void Connection::closePort() {
    p_.ports.debugsay(QStringLiteral("Close Port"));
    // Lines that still wait become rows while the firmware tells their layout.
    p_.actions.closeRecordFile();
    p_.session.state.portstatus = 2;
    p_.items.enableAll();
    p_.items.uncheckAll();
    StatusState& status = p_.session.status;
    p_.session.setFirmware(StatusState::unknownShort());
    status.instrument = InstrumentType::Unknown;
    status.date = StatusState::unknownLong();
    status.time = StatusState::unknownLong();
    p_.debug.debugFrameVisible = false;
    p_.debug.turbidityFrameVisible = false;
    p_.debug.fluorometerFrameVisible = false;
    p_.debug.transmissometerFrameVisible = false;
    p_.debug.outputFrameVisible = false;
    CommandState& commands = p_.session.commands;
    commands.processingMenuVisible = false;
    commands.settingsMenuVisible = false;
    commands.resetShutterVisible = false;
    commands.closePortEnabled = false;
    p_.session.state.Seeking = 0; // closing ends a manual connection: a later automatic attempt must be bounded
    openprt();
    commands.activity = Activity::None;
}

void Connection::openport1() {
    p_.ports.debugsay(QStringLiteral("Open port 1"));
    openport(1);
}

void Connection::openport2() {
    p_.ports.debugsay(QStringLiteral("Open Port 2"));
    openport(2);
}

void Connection::openport(int portNumber) {
    if (p_.ports.isOpen()) {
        return;
    }
    p_.session.state.portstatus = 1;

    const ConnectItems::Item automatic = portNumber == 1 ? ConnectItems::Auto1 : ConnectItems::Auto2;
    const ConnectItems::Item manual = portNumber == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2;
    if (p_.items.checked(automatic)) {
        p_.items[automatic].enabled = true;
        p_.items[manual].enabled = false;
    }
    if (p_.items.checked(manual)) {
        p_.items[manual].enabled = false;
        p_.items[automatic].enabled = false;
    }
    p_.items[portNumber == 1 ? ConnectItems::Auto2 : ConnectItems::Auto1].enabled = false;
    p_.items[portNumber == 1 ? ConnectItems::Manual2 : ConnectItems::Manual1].enabled = false;
    CommandState& commands = p_.session.commands;
    commands.closePortEnabled = true;
    commands.resetShutterEnabled = true;
    commands.resetShutterVisible = true;
    openprt();
}

void Connection::openprt() {
    p_.ports.debugsay(QStringLiteral("Looking to see what port to open"));
    SessionState& state = p_.session.state;
    if (state.portstatus == 2) {
        if (p_.ports.isOpen()) {
            closingBranch();
        }
        return;
    }
    const int port = p_.items.checkedPort();
    if (port != 0) {
        p_.ports.selectPort(port);
    }
    p_.session.status.status = QStringLiteral("Connecting...");
    CommandState& commands = p_.session.commands;
    commands.resetEnabled = true;
    commands.runEnabled = true;
    commands.clearAllEnabled = true;
    commands.saveAsEnabled = true;
    commands.resetShutterEnabled = true;
    presets();
}

void Connection::closingBranch() {
    SessionState& state = p_.session.state;
    p_.ports.close();
    state.Rtn = QStringLiteral("wakeup!!!");
    state.Ctrlscrn = Operation::Idle;
    p_.ports.discardInput();
    state.Tmr = 1;
    p_.session.status.status = QStringLiteral("Offline");
    listInputCount();
}

void Connection::listInputCount() {
    if (p_.session.state.trouble == 1 && p_.debug.showParsing) {
        p_.debug.list.append(QString::number(p_.ports.inputCount()));
    }
}

void Connection::presets() {
    p_.ports.debugsay(QStringLiteral("Presets for Opening Port"));
    SessionState& state = p_.session.state;
    if (!p_.ports.open()) {
        p_.actions.fixit();
        return;
    }
    CommandState& commands = p_.session.commands;
    commands.activity = Activity::Connecting;

    p_.ports.setDataTerminalReady(true);
    if (!p_.wait.waitConnected(1.0F)) {
        return;
    }
    p_.ports.setDataTerminalReady(false);
    p_.ports.discardInput();

    switch (wakeUp()) {
    case WakeUp::Gone:
        return;
    case WakeUp::NoReply:
        commands.activity = Activity::None;
        attemptFailed();
        return;
    case WakeUp::Replied:
        break;
    }
    if (state.trouble == 1 && p_.debug.showParsing) {
        p_.debug.list.append(state.Vartemp);
    }
    if (!p_.wait.waitConnected(0.2F)) {
        return;
    }
    p_.ports.write("P");
    p_.actions.layOutHeaderRow();
    state.Ctrlscrn = Operation::Identified;
    p_.timer.enable();
    state.Tmr = 1;
    commands.activity = Activity::None;
}

Connection::WakeUp Connection::wakeUp() {
    SessionState& state = p_.session.state;
    const quint64 connection = p_.ports.connectionNumber();
    const Clock& clock = p_.session.clock;
    qint64 start = clock.monotonicMilliseconds();
    qint64 lastResponsive = start;
    state.Rtn.clear(); // the tick's last poll may have left a line of before the wake-up
    state.Vartemp.clear();
    const auto showFirmware = [this, &state] {
        // The reply is the type letter, the firmware's digits and CR.
        if (!state.Vartemp.isEmpty()) {
            p_.session.setFirmware(state.Rtn.mid(1, std::max<qsizetype>(state.Rtn.size() - 2, 0)));
        }
    };

    WakeUp result = WakeUp::Gone;
    {
        const QScopedValueRollback polling(polling_, true);
        while (true) {
            p_.ports.waitForInput(1);
            const QByteArray block = p_.ports.readAll();
            state.Rtn += QString::fromLatin1(block);
            if (state.Vartemp.isEmpty() && block.contains('V')) {
                state.Vartemp = QStringLiteral("V");
            }
            if (state.Vartemp.isEmpty() && block.contains('F')) {
                state.Vartemp = QStringLiteral("F");
            }
            if (block.contains('\r')) {
                showFirmware();
                result = WakeUp::Replied;
                break;
            }
            if (block.isEmpty() && p_.ports.checkFailure()) {
                break;
            }
            const qint64 now = clock.monotonicMilliseconds();
            if (now - lastResponsive >= responsiveInterval) {
                lastResponsive = now;
                p_.events.keepResponsive(state.Seeking == 1);
                if (p_.events.programEnding() || p_.ports.connectionNumber() != connection) {
                    break;
                }
            }
            if (now - start > attemptLimit) {
                showFirmware();
                if (state.Seeking != 1) {
                    result = WakeUp::NoReply;
                    break;
                }
                // A manual connection starts its attempt again, without limit, until the operator has switched the
                // power on.
                start = now;
                state.Vartemp.clear();
            }
        }
    }
    if (result == WakeUp::Replied) {
        state.Seeking = 0; // found: a later automatic attempt must be bounded again
    }
    if (pollingEnded) {
        pollingEnded();
    }
    return result;
}

void Connection::attemptFailed() {

    for (const ConnectItems::Item item :
         {ConnectItems::Auto1, ConnectItems::Auto2, ConnectItems::Manual1, ConnectItems::Manual2}) {
        if (p_.items.checked(item)) {
            p_.session.state.Portused = static_cast<quint8>(ConnectItems::portNumber(item));
            break;
        }
    }
    p_.manual.show();
}

AbortRun::AbortRun(Session& session, ConnectItems& items, ComPorts& ports, Connection& connection,
                   ManualConnection& manual, ProgramActions& actions)
    : session_(session)
    , items_(items)
    , ports_(ports)
    , connection_(connection)
    , manual_(manual)
    , actions_(actions) {}

void AbortRun::abortrun() {
    ports_.debugsay(QStringLiteral("Abort Run Function"));
    if (!ports_.isOpen()) {
        return;
    }
    session_.commands.runEnabled = true;

    for (const ConnectItems::Item item :
         {ConnectItems::Auto1, ConnectItems::Auto2, ConnectItems::Manual1, ConnectItems::Manual2}) {
        if (!items_.checked(item)) {
            continue;
        }
        // The reset unchecks every item, so the branches after this one do not run.
        actions_.fixit();
        items_[item].checked = true;
        const int port = ConnectItems::portNumber(item);
        if (item == ConnectItems::Auto1 || item == ConnectItems::Auto2) {
            ports_.debugsay(QStringLiteral("Passed fix it for comm%1").arg(port));
            if (port == 1) {
                connection_.openport1();
            } else {
                connection_.openport2();
            }
        } else {
            session_.state.Portused = static_cast<quint8>(port);
            manual_.show();
        }
        return;
    }
}

} // namespace orv
