// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "base/text.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

/// How long an automatic attempt waits for the instrument's first line, in milliseconds of monotonic time.
constexpr qint64 attemptLimit = 5000;

/// How often the windows are kept alive during the wake-up loop, in milliseconds of monotonic time.
constexpr qint64 responsiveInterval = 10;

} // namespace

Connection::Connection(Session& session, DebugState& debug, ComPorts& ports, TimedWait& wait, EventYield& events,
                       StatusTimer& timer)
    : session_(session)
    , debug_(debug)
    , ports_(ports)
    , wait_(wait)
    , events_(events)
    , timer_(timer)
    // A line that fails while open ends like a reset; what was received stays.
    , portFailed_(ports.portFailed.subscribe([this] { fixit(); })) {}

void Connection::autoConnect1() {
    ports_.debugsay(QStringLiteral("Auto Open 1"));
    // The item is checked only after the attempt: while it runs, no item tells the port number, which stays what it
    // was, 1 at the start of the program or that of the last session.
    const quint64 expected = ports_.connectionNumber() + (ports_.isOpen() ? 0 : 1);
    openport1();
    if (ports_.connectionNumber() != expected) {
        return; // not opened, or overtaken by a reset, a close or another connection: those have set the items
    }
    session_.state.Portused = 1;
    items[ConnectItems::Auto1].checked = true;
    items[ConnectItems::Auto1].enabled = true;
}

void Connection::autoConnect2() {
    ports_.debugsay(QStringLiteral("Auto Open 2"));
    session_.state.Portused = 2;
    items[ConnectItems::Auto2].checked = true;
    items[ConnectItems::Auto2].enabled = true;
    openport2();
}

void Connection::manualConnect(int portNumber) {
    ports_.debugsay(portNumber == 1 ? QStringLiteral("Manual 1 Start") : QStringLiteral("Manual 2 Start"));
    session_.state.Portused = static_cast<quint8>(portNumber);
    ConnectItem& item = items[portNumber == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2];
    item.enabled = true;
    item.checked = true;
    manualWanted.tell();
}

void Connection::closePort() {
    ports_.debugsay(QStringLiteral("Close Port"));
    // Lines that still wait become rows while the firmware tells their layout.
    aboutToClose.tell();
    session_.state.portstatus = 2;
    items.enableAll();
    items.uncheckAll();
    StatusState& status = session_.status;
    session_.setFirmware(StatusState::unknownShort());
    status.instrument = InstrumentType::Unknown;
    status.date = StatusState::unknownLong();
    status.time = StatusState::unknownLong();
    hideFrames();
    CommandState& commands = session_.commands;
    commands.processingMenuVisible = false;
    commands.settingsMenuVisible = false;
    commands.resetShutterVisible = false;
    commands.closePortEnabled = false;
    session_.state.Seeking = 0; // closing ends a manual connection: a later automatic attempt must be bounded
    openprt();
    commands.activity = Activity::None;
}

void Connection::openport(int portNumber) {
    if (portNumber == 1) {
        openport1();
    } else if (portNumber == 2) {
        openport2();
    }
}

void Connection::openport1() {
    ports_.debugsay(QStringLiteral("Open port 1"));
    openAs(ConnectItems::Auto1, ConnectItems::Manual1);
}

void Connection::openport2() {
    ports_.debugsay(QStringLiteral("Open Port 2"));
    openAs(ConnectItems::Auto2, ConnectItems::Manual2);
}

void Connection::openAs(ConnectItems::Item automatic, ConnectItems::Item manual) {
    if (ports_.isOpen()) {
        return;
    }
    session_.state.portstatus = 1;
    if (items.checked(automatic)) {
        items[automatic].enabled = true;
        items[manual].enabled = false;
    }
    if (items.checked(manual)) {
        items[manual].enabled = false;
        items[automatic].enabled = false;
    }
    const bool first = automatic == ConnectItems::Auto1;
    items[first ? ConnectItems::Auto2 : ConnectItems::Auto1].enabled = false;
    items[first ? ConnectItems::Manual2 : ConnectItems::Manual1].enabled = false;
    CommandState& commands = session_.commands;
    commands.closePortEnabled = true;
    commands.resetShutterEnabled = true;
    commands.resetShutterVisible = true;
    openprt();
}

void Connection::openprt() {
    ports_.debugsay(QStringLiteral("Looking to see what port to open"));
    SessionState& state = session_.state;
    if (state.portstatus == 2) {
        if (ports_.isOpen()) {
            ports_.close();
            goOffline();
            listInputCount();
        }
        return;
    }
    const int port = items.checkedPort();
    if (port != 0) {
        ports_.selectPort(port);
    }
    session_.status.status = QStringLiteral("Connecting...");
    enableCommands(true);
    presets();
}

void Connection::enableCommands(bool enabled) {
    CommandState& commands = session_.commands;
    for (QProperty<bool>* command : {&commands.resetEnabled, &commands.runEnabled, &commands.clearAllEnabled,
                                     &commands.saveAsEnabled, &commands.resetShutterEnabled}) {
        *command = enabled;
    }
}

void Connection::goOffline() {
    SessionState& state = session_.state;
    state.Rtn = QStringLiteral("wakeup!!!");
    state.Ctrlscrn = Operation::Idle;
    state.Tmr = 1;
    session_.status.status = QStringLiteral("Offline");
}

void Connection::hideFrames() {
    for (QProperty<bool>* frame :
         {&debug_.debugFrameVisible, &debug_.turbidityFrameVisible, &debug_.fluorometerFrameVisible,
          &debug_.transmissometerFrameVisible, &debug_.outputFrameVisible}) {
        *frame = false;
    }
}

void Connection::listInputCount() {
    if (session_.state.trouble == 1 && debug_.showParsing) {
        debug_.list.append(QString::number(ports_.inputCount()));
    }
}

void Connection::presets() {
    ports_.debugsay(QStringLiteral("Presets for Opening Port"));
    SessionState& state = session_.state;
    if (!ports_.open()) {
        fixit();
        return;
    }
    CommandState& commands = session_.commands;
    commands.activity = Activity::Connecting;

    ports_.setDataTerminalReady(true);
    if (!wait_.waitConnected(1.0F)) {
        return;
    }
    ports_.setDataTerminalReady(false);
    ports_.discardInput();

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
    if (state.trouble == 1 && debug_.showParsing) {
        debug_.list.append(state.Vartemp);
    }
    if (!wait_.waitConnected(0.2F)) {
        return;
    }
    ports_.write("P");
    identified.tell();
    state.Ctrlscrn = Operation::Identified;
    timer_.enable();
    state.Tmr = 1;
    commands.activity = Activity::None;
}

Connection::WakeUp Connection::wakeUp() {
    SessionState& state = session_.state;
    const quint64 connection = ports_.connectionNumber();
    const Clock& clock = session_.clock;
    qint64 start = clock.monotonicMilliseconds();
    qint64 lastResponsive = start;
    QString reply;
    state.Rtn.clear();
    state.Vartemp.clear();
    const auto showFirmware = [this, &state, &reply] {
        // The reply is the type letter, the firmware's digits and CR.
        if (!state.Vartemp.isEmpty()) {
            session_.setFirmware(reply.mid(1, std::max<qsizetype>(reply.size() - 2, 0)));
        }
    };

    WakeUp result = WakeUp::Gone;
    {
        const QScopedValueRollback polling(polling_, true);
        while (true) {
            ports_.waitForInput(1);
            const QByteArray block = ports_.readAll();
            const QString text = QString::fromLatin1(block);
            reply += text;
            state.Rtn += text; // not the reply itself: that would copy it in each pass
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
            if (block.isEmpty() && ports_.checkFailure()) {
                break;
            }
            const qint64 now = clock.monotonicMilliseconds();
            if (now - lastResponsive >= responsiveInterval) {
                lastResponsive = now;
                events_.keepResponsive(state.Seeking == 1);
                if (events_.programEnding() || ports_.connectionNumber() != connection) {
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
    pollingEnded.tell();
    return result;
}

void Connection::attemptFailed() {
    if (const auto item = items.firstChecked()) {
        session_.state.Portused = static_cast<quint8>(ConnectItems::portNumber(*item));
    }
    manualWanted.tell();
}

void Connection::abortrun() {
    ports_.debugsay(QStringLiteral("Abort Run Function"));
    if (!ports_.isOpen()) {
        return;
    }
    session_.commands.runEnabled = true;
    const auto item = items.firstChecked();
    if (!item) {
        return;
    }
    fixit();
    items[*item].checked = true;
    const int port = ConnectItems::portNumber(*item);
    if (*item == ConnectItems::Auto1 || *item == ConnectItems::Auto2) {
        ports_.debugsay(QStringLiteral("Passed fix it for comm%1").arg(port));
        openport(port);
    } else {
        session_.state.Portused = static_cast<quint8>(port);
        manualWanted.tell();
    }
}

void Connection::fixit() {
    ports_.debugsay(QStringLiteral("Reset Everything AKA FIXIT"));
    aboutToClose.tell();
    ports_.close();
    goOffline();
    hideFrames();

    items.enableAll();
    items.uncheckAll();
    CommandState& commands = session_.commands;
    commands.processingMenuVisible = false;
    commands.settingsMenuVisible = false;
    enableCommands(false);
    commands.closePortEnabled = false;
    commands.activity = Activity::None;

    SessionState& state = session_.state;
    state.portstatus = 2;
    state.Gatherstop = 0;
    state.gatherstart = 0;
    listInputCount();
    state.Seeking = 0;
    wasReset.tell();
    dumpState();
}

void Connection::dumpState() {
    const SessionState& state = session_.state;
    const std::pair<const char*, QString> lines[] = {
        {"Ctrlscrn ", printedNumber(static_cast<int>(state.Ctrlscrn))},
        {"Rtn ", state.Rtn},
        {"Tmr ", printedNumber(state.Tmr)},
        {"csnter ", QString()}, // names no variable; readers of the dump expect the line
        {"Vartemp ", state.Vartemp},
        {"trouble ", printedNumber(state.trouble)},
        {"portstatus ", printedNumber(state.portstatus)},
        {"gatherstart ", printedNumber(state.gatherstart)},
        {"Gatherstop ", printedNumber(state.Gatherstop)},
        {"plc ", printedNumber(state.plc)},
        {"Timeout ", printedNumber(state.Timeout)},
        {"Seeking ", printedNumber(state.Seeking)},
        {"Portused ", printedNumber(state.Portused)},
    };
    for (const auto& [label, value] : lines) {
        ports_.debugsay(QLatin1String(label) + value);
    }
}

} // namespace orv
