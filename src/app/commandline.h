// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/port.h"
#include "session/clock.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace orv {

/// What the command line asks for.
struct CommandLine {
    enum class Wish { Run, ShowHelp, ShowVersion, Refuse };

    Wish wish = Wish::Run;
    QString text; ///< Help, version, or what is wrong, to be printed.
    QString com1;
    QString com2;
    bool debugOutput = false;
    QString demoFolder;     ///< Empty: no demo.
    bool documents = false; ///< Work in the Documents folder.
};

/// Reads the command line; `arguments` begins with the program's name.
CommandLine readCommandLine(const QStringList& arguments, const QString& version);

/// What is wrong with a device name: the empty text if it is a serial port's name or path or a well-formed simulated
/// instrument ("sim:trx?firmware=412").
QString deviceProblem(const QString& device);

/// The port of a device: a simulated instrument for "sim:...", else a serial port of this computer.
std::unique_ptr<Port> makePort(const QString& device, const Clock& clock);

} // namespace orv
