// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/port.h"

#include <QSerialPort>

namespace orv {

/// A serial port of this computer, by its system name ("ttyUSB0", "COM3") or its path ("/dev/ttyUSB0", the path of a
/// pseudo-terminal).
class SystemPort final : public Port {
public:
    explicit SystemPort(const QString& device);

    QString open() override;
    void close() override;
    bool isOpen() const override;
    void setDataTerminalReady(bool on) override;
    QByteArray readAll() override;
    void write(const QByteArray& bytes) override;
    void discardInput() override;
    qsizetype inputCount() override;
    bool waitForInput(int milliseconds) override;
    QString failure() const override;

private:
    void noteError(QSerialPort::SerialPortError error);
    QString openFailure() const;

    QSerialPort port_;
    QString failure_;
    bool settingUp_ = false; ///< Errors of opening and of setting DTR do not end a connection.
};

} // namespace orv
