// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/connection.h"

#include "base/text.h"
#include "base/words.h"

#include <algorithm>
#include <utility>

namespace orv {

namespace {

/// How long an automatic attempt waits for the instrument's first line, in milliseconds of monotonic time.
constexpr qint64 attemptLimit = 5000;

} // namespace

Connection::Connection(Session& session, DebugState& debug, ComPorts& ports, Waits& waits, StatusTimer& timer,
                       Procedures& procedures)
    : session_(session)
    , debug_(debug)
    , ports_(ports)
    , waits_(waits)
    , timer_(timer)
    , procedures_(procedures)
    // A line that fails while open ends like a reset; what was received stays.
    , portFailed_(ports.portFailed.subscribe([this] {
        fixit();
        session_.status.failure =
            Words::tr("%1 was lost. Check the cable, then press Connect.").arg(ports_.nameOf(ports_.selectedPort()));
    })) {
    for (const int portNumber : {1, 2}) {
        bindings_.bind(ports_.chosenDevice(portNumber), [this, portNumber](const QString&) {
            if (portNumber == ports_.selectedPort()) {
                session_.status.failure = QString(); // it was the other device's
                followsReset_ = false;
            }
        });
        PortCommand& command = portCommands_.at(static_cast<std::size_t>(portNumber - 1));
        const ConnectItem& item = items[portNumber == 1 ? ConnectItems::Auto1 : ConnectItems::Auto2];
        command.canConnect.setBinding([this, portNumber, &item] {
            return item.enabled.value() && session_.commands.undisturbed.value() &&
                   !session_.commands.portOpen.value() && ports_.use(portNumber).value() == PortUse::None;
        });
        command.canClose.setBinding([this, portNumber] {
            return ports_.use(portNumber).value() == PortUse::Instrument && session_.commands.closePortEnabled.value();
        });
    }
}

void Connection::autoConnect(int portNumber) {
    if (!ports_.isOpen()) {
        items.uncheckAll(); // a manual item that waits in its dialog would decide the port
        ports_.selectPort(portNumber);
    }
    portNumber == 1 ? autoConnect1() : autoConnect2();
}

void Connection::autoConnect1() {
    procedures_.start(Words::tr("Auto Connect Comm 1"), [this] { return autoOpen1(); });
}

/// The operator connects: what was known of the instrument before, and remarked on it, says nothing of this one.
void Connection::beginAnew() {
    if (!ports_.isOpen()) {
        followsReset_ = false;
        session_.status.notice = Words();
    }
}

Task<> Connection::autoOpen1() {
    ports_.debugsay(QStringLiteral("Auto Open 1"));
    beginAnew();
    // The item is checked only after the attempt: while it runs, no item tells the port number, which stays what it
    // was, 1 at the start of the program or that of the last session.
    co_await openport1();
    session_.state.Portused = 1;
    items[ConnectItems::Auto1].checked = true;
    items[ConnectItems::Auto1].enabled = true;
}

void Connection::autoConnect2() {
    procedures_.start(Words::tr("Auto Connect Comm 2"), [this] { return autoOpen2(); });
}

Task<> Connection::autoOpen2() {
    ports_.debugsay(QStringLiteral("Auto Open 2"));
    beginAnew();
    session_.state.Portused = 2;
    items[ConnectItems::Auto2].checked = true;
    items[ConnectItems::Auto2].enabled = true;
    co_await openport2();
}

void Connection::manualConnect(int portNumber) {
    ports_.debugsay(portNumber == 1 ? QStringLiteral("Manual 1 Start") : QStringLiteral("Manual 2 Start"));
    session_.state.Portused = static_cast<quint8>(portNumber);
    ConnectItem& item = items[portNumber == 1 ? ConnectItems::Manual1 : ConnectItems::Manual2];
    item.enabled = true;
    item.checked = true;
    session_.status.failure = QString();
    beginAnew();
    manualWanted.tell();
}

void Connection::closePort() {
    ports_.debugsay(QStringLiteral("Close Port"));
    session_.status.notice = Words(); // how what this ends has ended is told now
    // Lines that still wait become rows while the firmware tells their layout.
    aboutToClose.tell();
    identified_ = false;
    followsReset_ = false;
    session_.state.portstatus = 2;
    items.enableAll();
    items.uncheckAll();
    StatusState& status = session_.status;
    session_.setFirmware(StatusState::unknownShort());
    status.instrument = InstrumentType::Unknown;
    status.date = StatusState::unknownLong();
    status.clockOffset = std::optional<qint64>();
    status.time = StatusState::unknownLong();
    hideFrames();
    CommandState& commands = session_.commands;
    commands.processingMenuVisible = false;
    commands.settingsMenuVisible = false;
    commands.resetShutterVisible = false;
    commands.closePortEnabled = false;
    session_.state.Seeking = 0; // closing ends a manual connection: a later automatic attempt must be bounded
    openprt();                  // closing does not wait
    commands.activity = Activity::None;
}

Task<> Connection::openport(int portNumber) {
    if (portNumber == 1) {
        co_await openport1();
    } else if (portNumber == 2) {
        co_await openport2();
    }
}

Task<> Connection::openport1() {
    ports_.debugsay(QStringLiteral("Open port 1"));
    co_await openAs(ConnectItems::Auto1, ConnectItems::Manual1);
}

Task<> Connection::openport2() {
    ports_.debugsay(QStringLiteral("Open Port 2"));
    co_await openAs(ConnectItems::Auto2, ConnectItems::Manual2);
}

Task<> Connection::openAs(ConnectItems::Item automatic, ConnectItems::Item manual) {
    if (ports_.isOpen()) {
        co_return;
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
    co_await openprt();
}

Task<> Connection::openprt() {
    ports_.debugsay(QStringLiteral("Looking to see what port to open"));
    SessionState& state = session_.state;
    if (state.portstatus == 2) {
        if (ports_.isOpen()) {
            ports_.close();
            goOffline();
            listInputCount();
        }
        co_return;
    }
    const int port = items.checkedPort();
    if (port != 0) {
        ports_.selectPort(port);
    }
    session_.status.status = Words::tr("Connecting...");
    session_.status.failure = QString();
    enableCommands(true);
    co_await presets();
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
    session_.status.status = Words::tr("Offline");
    session_.status.clockOffset = std::optional<qint64>(); // another instrument may be next
    session_.status.failure = QString();
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

Task<> Connection::presets() {
    ports_.debugsay(QStringLiteral("Presets for Opening Port"));
    SessionState& state = session_.state;
    if (!ports_.open()) {
        fixit();
        const int port = ports_.selectedPort();
        constexpr qsizetype longName = 24; // the chooser beside the line has it whole
        const QString name =
            ports_.device(port).size() > longName ? QStringLiteral("COM %1").arg(port) : ports_.nameOf(port);
        session_.status.failure = Words::tr("%1 could not be opened. %2").arg(name, ports_.whyNotOpen());
        throw ConnectionEnded();
    }
    bool replied = false;
    {
        const Doing connecting(session_.commands, Activity::Connecting);
        ports_.setDataTerminalReady(true);
        co_await waits_.waitsec(1.0F);
        ports_.setDataTerminalReady(false);
        ports_.discardInput();
        replied = co_await wakeUp();
        if (replied) {
            state.Seeking = 0; // found: a later automatic attempt must be bounded again
            if (state.trouble == 1 && debug_.showParsing) {
                debug_.list.append(state.Vartemp);
            }
            co_await waits_.waitsec(0.2F);
        }
    }
    if (!replied) {
        attemptFailed();
        co_return;
    }
    session_.commands.activity = Activity::ReadingSettings;
    ports_.write("P");
    identified_ = true;
    identified.tell();
    state.Ctrlscrn = Operation::Identified;
    timer_.enable();
    state.Tmr = 1;
}

/// Returns whether the instrument has replied. A manual connection starts its attempt again, without limit, until the
/// operator has switched the power on.
Task<bool> Connection::wakeUp() {
    SessionState& state = session_.state;
    const Clock& clock = session_.clock;
    QString reply;
    qsizetype typeAt = 0; // in the reply
    const auto showFirmware = [this, &state, &reply, &typeAt] {
        if (state.Vartemp.isEmpty()) {
            return;
        }
        // The power that comes on makes noise, which may look like the letter too: the last one of the line counts.
        typeAt = reply.lastIndexOf(state.Vartemp, reply.indexOf(u'\r', typeAt));
        if (typeAt > 0 && state.trouble == 1 && debug_.showParsing) {
            debug_.list.append(reply.left(typeAt));
        }
        // From the type letter on the reply is that letter, the firmware's digits and CR.
        session_.setFirmware(reply.mid(typeAt + 1, std::max<qsizetype>(reply.size() - typeAt - 2, 0)));
    };
    do {
        state.Vartemp.clear();
        state.Rtn.clear();
        reply.clear();
        const qint64 start = clock.monotonicMilliseconds();
        for (qint64 left = attemptLimit + 1; left > 0;
             left = start + attemptLimit + 1 - clock.monotonicMilliseconds()) {
            const QByteArray block = co_await waits_.input(left);
            qsizetype lineAt = 0; // in the block
            for (const char letter : {'V', 'F'}) {
                if (state.Vartemp.isEmpty() && block.contains(letter)) {
                    state.Vartemp = QLatin1Char(letter);
                    lineAt = block.indexOf(letter);
                    typeAt = reply.size() + lineAt;
                }
            }
            const QString text = QString::fromLatin1(block);
            reply += text;
            state.Rtn += text; // not the reply itself: that would copy it at each block
            if (block.indexOf('\r', lineAt) >= 0) {
                showFirmware();
                co_return true;
            }
        }
        showFirmware();
    } while (state.Seeking == 1);
    co_return false;
}

void Connection::attemptFailed() {
    followsReset_ = false;
    if (const auto item = items.firstChecked()) {
        session_.state.Portused = static_cast<quint8>(ConnectItems::portNumber(*item));
    }
    const int port = ports_.selectedPort();
    session_.status.status = Words::tr("No answer from COM %1").arg(port);
    session_.status.failure =
        Words::tr("No answer from %1 within %2 s. Check power and cable, press Quit, connect again.")
            .arg(ports_.nameOf(port))
            .arg(attemptLimit / 1000);
    manualWanted.tell();
}

void Connection::abortrun() {
    ports_.debugsay(QStringLiteral("Abort Run Function"));
    if (!ports_.isOpen()) {
        return;
    }
    session_.commands.runEnabled = true;
    // An attempt on Comm 1 has not checked its item yet.
    const ConnectItems::Item item =
        items.firstChecked().value_or(ports_.selectedPort() == 1 ? ConnectItems::Auto1 : ConnectItems::Auto2);
    const bool isKnown = identified_ || followsReset_;
    fixit();
    followsReset_ = isKnown;
    items[item].checked = true;
    const int port = ConnectItems::portNumber(item);
    if (item == ConnectItems::Auto1 || item == ConnectItems::Auto2) {
        ports_.debugsay(QStringLiteral("Passed fix it for comm%1").arg(port));
        procedures_.start(Words::tr("Reset"), [this, port] { return openport(port); });
    } else {
        session_.state.Portused = static_cast<quint8>(port);
        manualWanted.tell();
    }
}

void Connection::fixit() {
    ports_.debugsay(QStringLiteral("Reset Everything AKA FIXIT"));
    aboutToClose.tell();
    identified_ = false;
    followsReset_ = false;
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
