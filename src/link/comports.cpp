// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/comports.h"

#include "link/port.h"

#include <utility>

namespace orv {

namespace {

constexpr int debugPortNumber = 2;

} // namespace

ComPorts::ComPorts(Session& session, DebugState& debug, PortMaker makePort)
    : session_(session)
    , debug_(debug)
    , makePort_(std::move(makePort)) {}

void ComPorts::setDevice(int portNumber, const QString& device) {
    Line& target = line(portNumber);
    if (target.device.value() != device) {
        target.device = device;
        target.port.reset();
    }
}

void ComPorts::setUse(const Port* port, PortUse use) {
    for (Line& candidate : lines_) {
        if (candidate.port.get() == port) {
            candidate.use = use;
        }
    }
}

QString ComPorts::nameOf(int portNumber) const {
    return QStringLiteral("COM %1 (%2)").arg(QString::number(portNumber), device(portNumber));
}

/// Returns why the line could not be opened; empty: it is open.
Words ComPorts::openLine(int portNumber, const Port* heldByOther, const Words& otherUse) {
    Line& wanted = line(portNumber);
    for (const Line& other : lines_) {
        if (heldByOther != nullptr && other.port.get() == heldByOther &&
            (&other == &wanted || sameDevice(other.device.value(), wanted.device.value()))) {
            return otherUse;
        }
    }
    if (!wanted.port) {
        wanted.port = makePort_(wanted.device.value());
    }
    return wanted.port->open();
}

void ComPorts::tellThatItCouldNotBeOpened(const Words& what, const Words& reason) {
    session_.messages.show(operatorWarning(Words::tr("%1 could not be opened.\n\n%2").arg(what, reason)));
}

bool ComPorts::open() {
    if (isOpen()) {
        return true;
    }
    whyNotOpen_ = openLine(
        selected_, debugPort_,
        Words::tr("The debug output (\"Comm 2 Debug Output\") is using it. Connect the instrument to the other "
                  "port, or clear the box."));
    if (!whyNotOpen_.isEmpty()) {
        passed.tell({.kind = LineEvent::Kind::NotOpened, .text = whyNotOpen_.english()});
        tellThatItCouldNotBeOpened(nameOf(selected_), whyNotOpen_);
        return false;
    }
    instrument_ = line(selected_).port.get();
    stirring_ = instrument_->stirred.subscribe([this] { stirred.tell(); });
    setUse(instrument_, PortUse::Instrument);
    passed.tell({.kind = LineEvent::Kind::Opened, .text = device(selected_)});
    session_.commands.portOpen = true;
    return true;
}

void ComPorts::close() {
    if (!isOpen()) {
        return;
    }
    instrument_->close();
    passed.tell({.kind = LineEvent::Kind::Closed});
    setUse(std::exchange(instrument_, nullptr), PortUse::None);
    stirring_.reset();
    session_.commands.portOpen = false;
    closed.tell();
}

void ComPorts::setDataTerminalReady(bool on) {
    if (isOpen()) {
        passed.tell({.kind = on ? LineEvent::Kind::DtrRaised : LineEvent::Kind::DtrDropped});
        instrument_->setDataTerminalReady(on);
    }
}

QByteArray ComPorts::readAll() {
    QByteArray block = isOpen() ? instrument_->readAll() : QByteArray();
    if (!block.isEmpty()) {
        passed.tell({.kind = LineEvent::Kind::Received, .bytes = block});
    }
    return block;
}

void ComPorts::write(const QByteArray& bytes) {
    if (isOpen()) {
        instrument_->write(bytes);
        passed.tell({.kind = LineEvent::Kind::Sent, .bytes = bytes});
    }
}

void ComPorts::discardInput() {
    if (isOpen()) {
        passed.tell({.kind = LineEvent::Kind::Discarded, .bytes = instrument_->discardInput()});
    }
}

qsizetype ComPorts::inputCount() {
    return isOpen() ? instrument_->inputCount() : 0;
}

void ComPorts::expectRestOfLine(qsizetype characters) {
    if (isOpen()) {
        instrument_->expectRestOfLine(characters);
    }
}

bool ComPorts::checkFailure() {
    if (!isOpen()) {
        return false;
    }
    const Words reason = instrument_->failure();
    if (reason.isEmpty()) {
        return false;
    }
    const QString name = nameOf(selected_);
    passed.tell({.kind = LineEvent::Kind::Failed, .text = reason.english()});
    close();
    portFailed.tell();
    const auto lost = Words::tr("The connection on %1 was lost.\n\n%2\n\n").arg(name, reason);
    session_.messages.show(withoutWindow(operatorWarning(lost + Words::tr("All rows received so far are kept. "
                                                                          "Check the cable, then connect again.")),
                                         lost + QStringLiteral("Look at the cable and the adapter.")));
    return true;
}

bool ComPorts::openDebugPort() {
    if (isDebugPortOpen()) {
        return true;
    }
    Words reason =
        openLine(debugPortNumber, instrument_,
                 Words::tr("The instrument is connected on it. Use \"Close Port\" first, or connect the instrument to "
                           "COM 1."));
    if (!reason.isEmpty()) {
        const Words again = Words::tr(Port::tryAgainWords);
        const Words tick = Words::tr("tick \"Comm 2 Debug Output\" again");
        reason = {reason.english().replace(again, tick), QString(reason.shown()).replace(again.shown(), tick.shown())};
        tellThatItCouldNotBeOpened(Words::tr("The debug output on %1").arg(nameOf(debugPortNumber)), reason);
        return false;
    }
    debugPort_ = line(debugPortNumber).port.get();
    debugStirring_ = debugPort_->stirred.subscribe([this] { debugPort_->readAll(); });
    setUse(debugPort_, PortUse::DebugOutput);
    return true;
}

void ComPorts::closeDebugPort() {
    if (isDebugPortOpen()) {
        debugStirring_.reset();
        debugPort_->close();
        setUse(std::exchange(debugPort_, nullptr), PortUse::None);
    }
}

void ComPorts::debugsay(const QString& text) {
    if (!debug_.comm2Output || debugPort_ == nullptr) {
        return;
    }
    const Words reason = debugPort_->failure();
    if (reason.isEmpty()) {
        debugPort_->write(text.toLatin1() + '\r');
        return;
    }
    closeDebugPort();
    debug_.comm2Output = false;
    session_.messages.show(
        operatorWarning(Words::tr("The debug output on COM 2 has stopped.\n\n%1\n\nTick \"Comm 2 Debug "
                                  "Output\" to try again.")
                            .arg(reason)));
}

} // namespace orv
