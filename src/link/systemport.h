// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/words.h"
#include "link/port.h"

#include <QDateTime>
#include <QSerialPort>
#include <QString>
#include <QTimer>

#include <optional>

namespace orv {

/// What is known of a serial device that could not be opened.
struct OpenFailureFacts {
    bool exists = false;        ///< The system lists the device, or it is a file.
    bool isSerialDevice = true; ///< False for a file or folder that is no terminal device.
    bool accessible = false;    ///< This user may read and write it.
    bool lockFolderWritable = true;
    QString lockFolder; ///< Where serial programs keep their lock files; may be empty.
    QString group;      ///< The group that may use the device; may be empty.
    Words lockedBy;     ///< What is known of the program that holds it, e.g. "process 1234"; may be empty.
    bool busy = false;  ///< The system or a lock file says that another program uses it.
    Words systemText;   ///< What the system said.
};

/// Why the device could not be opened and what to do next, in plain words.
Words explainOpenFailure(const OpenFailureFacts& facts);

/// The same before it is opened, which might wake an instrument: what the system tells of it. Empty if nothing is known
/// to stand against it.
Words openObstacle(const QString& device);

/// The program that has a device of this path open: "tio, process 4711", or "process 4711" if its name is no longer
/// known. Empty if there is none, or the system does not tell.
Words holderOf(const QString& path);

/// A serial port of this computer, by its system name ("ttyUSB0", "COM3") or its path ("/dev/ttyUSB0", the path of a
/// pseudo-terminal, a link to either): one device has one lock, whatever name it is opened by.
class SystemPort final : public Port {
public:
    explicit SystemPort(const QString& device);

    Words open() override;
    void close() override;
    bool isOpen() const override;
    void setDataTerminalReady(bool on) override;
    QByteArray readAll() override;
    void write(const QByteArray& bytes) override;
    QByteArray discardInput() override;
    qsizetype inputCount() override;
    void expectRestOfLine(qsizetype characters) override;
    Words failure() const override;

private:
    /// What a reader waits for: the end of a line is looked for when its rest may have come.
    enum class Awaited { Anything, RestOfLine, EndOfLine };

    void noteError(QSerialPort::SerialPortError error);
    void tellStirred();
    void tellOfInput();
    void await(Awaited awaited, int milliseconds = 0);
    void awaitNext();
    Words openFailure() const;

    QString device_; ///< As it was named.
    QSerialPort port_;
    Awaited awaited_ = Awaited::Anything;
    QTimer awaiting_; ///< Until something else is awaited.
    Words failure_;
    bool stirredTold_ = false; ///< Of characters that still wait to be read.
    bool settingUp_ = false;   ///< Errors of opening and of setting DTR do not end a connection.
};

/// The list that the system keeps.
class SystemPortList final : public PortList {
public:
    /// `deviceFolder` is where the system makes and removes the files of its devices; empty where there is none.
    SystemPortList(const Clock& clock, QString deviceFolder);

    /// The folder of this system.
    static QString systemDeviceFolder();

    std::vector<ListedPort> ports() override;
    bool mayHaveChanged() override;

private:
    const Clock& clock_;
    QString deviceFolder_;
    std::optional<QDateTime> folderChanged_; ///< As seen last.
    qint64 seenAt_ = 0;                      ///< When that change was seen, in monotonic milliseconds.
};

} // namespace orv
