// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace orv {

/// Makes the Documents folder of whoever is logged in the current folder, so that a program started from a menu keeps
/// its log and its record file where its operator finds them. The folder is made if it is missing; if nothing can be
/// written there the home folder takes its place. Returns the folder, or the empty text if neither can be used: the
/// current folder then stays as it is.
QString enterDocumentsFolder();

/// The same with the first of these folders in which a file can be made. Folders that are missing are made.
QString enterFirstWritable(const QStringList& folders);

/// What the command line asks for.
struct CommandLine {
    enum class Wish { Run, ShowHelp, ShowVersion, Refuse };

    Wish wish = Wish::Run;
    QString text; ///< Help, version, or what is wrong, to be printed.
    QString com1;
    QString com2;
    bool choosesPort = false; ///< One of them was named.
    bool debugOutput = false;
    QString capture;        ///< A file, with its folder; empty: none.
    QString demoFolder;     ///< Empty: no demo.
    bool documents = false; ///< Work in the Documents folder.
    QString language;       ///< Its code; empty: the system's.
    bool fresh = false;     ///< Nothing is taken over from an earlier start, and nothing kept.
};

/// Reads the command line; `arguments` begins with the program's name.
CommandLine readCommandLine(const QStringList& arguments, const QString& version);

} // namespace orv
