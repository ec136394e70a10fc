// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"
#include "link/debug.h"
#include "link/port.h"
#include "link/session.h"

#include <QProperty>
#include <QString>

#include <array>
#include <functional>
#include <memory>

namespace orv {

/// Who has the device of COM 1 or COM 2 open.
enum class PortUse { None, Instrument, DebugOutput };

/// What has passed between the program and the instrument's line.
struct LineEvent {
    enum class Kind {
        Opened,    ///< `text` is the device.
        NotOpened, ///< `text` says why.
        Closed,
        DtrRaised,
        DtrDropped,
        Sent,
        Received,
        Discarded, ///< Dropped unread; perhaps nothing.
        Failed     ///< `text` says why the open line works no more.
    };

    Kind kind;
    QByteArray bytes = {}; ///< Sent, received or discarded.
    QString text = {};
};

/// The two serial-port objects of the program: `MSComm1`, the link to the instrument on COM 1 or COM 2, and
/// `MSComm2`, the debug output on COM 2, which is only written.
class ComPorts {
public:
    /// Makes the port of a device name; never null.
    using PortMaker = std::function<std::unique_ptr<Port>(const QString& device)>;

    ComPorts(Session& session, DebugState& debug, PortMaker makePort);

    /// The device of COM 1 or COM 2. Only for a port that is not in use.
    void setDevice(int portNumber, const QString& device);
    QString device(int portNumber) const { return chosenDevice(portNumber).value(); }

    /// The same as it changes, and whether the port is in use.
    const QProperty<QString>& chosenDevice(int portNumber) const { return line(portNumber).device; }
    const QProperty<PortUse>& use(int portNumber) const { return line(portNumber).use; }

    bool isOpen() const { return instrument_ != nullptr; }

    /// COM 1 or COM 2 for the next opening of the instrument port.
    void selectPort(int portNumber) { selected_ = portNumber; }
    int selectedPort() const { return selected_; }

    /// A port and its device for the operator: "COM 1 (ttyUSB0)".
    QString nameOf(int portNumber) const;

    /// Opens the instrument port. Returns whether it is open now; if not, the operator has been told why.
    bool open();
    /// Why the last open() has not opened it.
    const Words& whyNotOpen() const { return whyNotOpen_; }
    void close();
    void setDataTerminalReady(bool on);
    QByteArray readAll();
    void write(const QByteArray& bytes);
    void discardInput();
    qsizetype inputCount();

    /// See Port.
    void expectRestOfLine(qsizetype characters);

    /// Tells what passes, in its order; nothing of the debug output.
    Signal<LineEvent> passed;

    /// The open instrument port has something to read, or has failed.
    Signal<> stirred;
    /// The instrument port has just been closed.
    Signal<> closed;

    /// Whether the open instrument port has failed.
    bool hasFailed() const { return isOpen() && !instrument_->failure().isEmpty(); }

    /// Looks whether the open instrument port has failed. If so it closes the port, tells `portFailed` and then the
    /// operator, once. Returns whether it had failed.
    bool checkFailure();
    Signal<> portFailed;

    /// Opens the debug port; nothing happens if it is open. Returns whether it is open now; if not, the operator has
    /// been told why.
    bool openDebugPort();
    /// Closes the debug port, so that COM 2 is free again; nothing happens if it is closed.
    void closeDebugPort();
    bool isDebugPortOpen() const { return debugPort_ != nullptr; }

    /// Writes the text and CR to the debug port if "Comm 2 Debug Output" is ticked. A closed port is ignored; one that
    /// has failed is closed, the box cleared and the operator told.
    void debugsay(const QString& text);

private:
    struct Line {
        QProperty<QString> device;
        QProperty<PortUse> use{PortUse::None};
        std::unique_ptr<Port> port;
    };

    Line& line(int portNumber) { return lines_.at(static_cast<std::size_t>(portNumber - 1)); }
    const Line& line(int portNumber) const { return lines_.at(static_cast<std::size_t>(portNumber - 1)); }
    void setUse(const Port* port, PortUse use);
    Words openLine(int portNumber, const Port* heldByOther, const Words& otherUse);
    void tellThatItCouldNotBeOpened(const Words& what, const Words& reason);

    Session& session_;
    DebugState& debug_;
    PortMaker makePort_;
    std::array<Line, 2> lines_;
    Port* instrument_ = nullptr; ///< The open line of the instrument.
    Port* debugPort_ = nullptr;  ///< The open line of the debug output.
    int selected_ = 1;
    Words whyNotOpen_;
    Subscription stirring_;      ///< Of the instrument's line.
    Subscription debugStirring_; ///< Of the debug output's: what comes there is dropped.
};

} // namespace orv
