// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"

#include <QByteArray>
#include <QFileInfo>
#include <QString>

#include <vector>

namespace orv {

/// One serial line, 9600 baud, 8 data bits, no parity, 1 stop bit: the whole of what the program asks of a port.
///
/// Real ports, simulated instruments and test doubles implement it. Nothing here waits or throws: `stirred` tells when
/// there is something to read, and when a line breaks while it is open, which failure() then explains.
class Port {
public:
    static constexpr const char* tryAgainWords = QT_TRANSLATE_NOOP("orv", "connect again");

    Port() = default;
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    virtual ~Port() = default;

    /// Opens the line with DTR off. Returns the empty text, or why it could not be opened and what to do next, in
    /// plain words and whole sentences; to try again is called `tryAgainWords` there.
    virtual Words open() = 0;

    /// Closes the line; nothing happens if it is closed.
    virtual void close() = 0;

    virtual bool isOpen() const = 0;

    /// Raises (true) or drops the DTR line. A line that has no DTR ignores it.
    virtual void setDataTerminalReady(bool on) = 0;

    /// Removes and returns every character that has arrived; empty if there is none or the port is closed.
    virtual QByteArray readAll() = 0;

    /// Sends the bytes as they stand. Does nothing on a closed port.
    virtual void write(const QByteArray& bytes) = 0;

    /// Drops every character that waits to be read, and returns those of them that it has seen. Does nothing on a
    /// closed port.
    virtual QByteArray discardInput() = 0;

    /// How many characters wait to be read; 0 on a closed port.
    virtual qsizetype inputCount() = 0;

    /// The begin of a line has been read, and its end is of use only: about so many characters more. For as long as
    /// they take, and until a line feed or a prompt has come or something is sent, the port may let them gather and not
    /// tell of them.
    virtual void expectRestOfLine(qsizetype /*characters*/) {}

    /// Why an open line no longer works (unplugged, far end gone); empty while it does. Stays until the next open().
    virtual Words failure() const = 0;

    /// Told from the event loop, never inside a call, after characters have come to an open line from which everything
    /// had been read, and after it has failed; perhaps more often.
    Signal<> stirred;
};

/// A serial port of this computer and what its adapter says of itself; what it does not say is empty.
struct ListedPort {
    QString name;
    QString description;
    QString manufacturer;
    bool isAdapter = false; ///< It says what it is, as what is plugged in does and what is built in does not.

    bool operator==(const ListedPort&) const = default;
};

/// The serial ports of this computer.
class PortList {
public:
    PortList() = default;
    PortList(const PortList&) = delete;
    PortList& operator=(const PortList&) = delete;
    virtual ~PortList() = default;

    /// The ports that there are now, in any order. Takes some milliseconds.
    virtual std::vector<ListedPort> ports() = 0;

    /// Whether ports() may say something else than at its last call. Takes some microseconds where that can be known
    /// without listing them.
    virtual bool mayHaveChanged() = 0;
};

/// Whether a device name stands for a simulated instrument ("sim:trx").
inline bool isSimulatedDevice(const QString& device) {
    return device.startsWith(QLatin1String("sim:"));
}

/// Whether two names mean one device of this computer: "ttyUSB0", "/dev/ttyUSB0" and a link to it do. Each line has a
/// simulated instrument of its own, so two of these never do.
inline bool sameDevice(const QString& one, const QString& other) {
    const auto own = [](const QString& name) {
        const QString path = name.startsWith(u'/') ? name : QLatin1String("/dev/") + name;
        const QString canonical = QFileInfo(path).canonicalFilePath(); // empty if there is no such file
        return canonical.isEmpty() ? path : canonical;
    };
    return !isSimulatedDevice(one) && own(one) == own(other);
}

} // namespace orv
