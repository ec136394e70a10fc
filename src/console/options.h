// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/loggersettings.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace orv {

/// What a command line of `orv` asks for.
struct Options {
    enum class Wish { Perform, Print, Refuse };
    enum class Command { Ports, Info, Settings, Clock, Collect, Download, Shutter, Convert, Watch };

    Wish wish = Wish::Perform;
    QString text = {}; ///< Help, version, or what is wrong, to be printed.

    Command command = Command::Ports;
    QString program = {}; ///< "ORV Host 1.0.0", for the files that are written.
    bool json = false;
    bool quiet = false;
    bool verbose = false;
    QString capture = {}; ///< A file; empty: none.

    QString port = {};
    QString output = {}; ///< "-" is standard output.
    QStringList inputs = {};
    bool force = false; ///< An existing file is kept under a dated name.

    std::vector<std::pair<const Setting*, QString>> set = {}; ///< A flag's value is "0" or "1".
    QString mode = {};                                        ///< "profile", "moored" or a file's name.
    QString save = {};
    bool sync = false;
    bool now = false; ///< The clock is set at once, not at a full minute.
    bool verify = false;

    int points = 0;               ///< 0: as many as come.
    qint64 forMilliseconds = 0;   ///< 0: as long as it goes.
    qint64 everyMilliseconds = 0; ///< 0: one file.
    bool keepTrying = false;
    bool stamp = false;
};

/// Reads the command line; `arguments` begins with the program's name.
Options readOptions(const QStringList& arguments, const QString& version);

/// The files that the command reads and writes, as they are named; without the capture.
QStringList filesOf(const Options& options);

/// "30s", "15m", "2h", "1d" in milliseconds; 0 if the text is no such time.
qint64 timeSpan(const QString& text);

} // namespace orv
