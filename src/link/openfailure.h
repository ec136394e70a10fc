// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orv {

/// What is known of a serial device that could not be opened.
struct OpenFailureFacts {
    bool exists = false;        ///< The system lists the device, or it is a file.
    bool isSerialDevice = true; ///< False for a file or folder that is no terminal device.
    bool accessible = false;    ///< This user may read and write it.
    bool lockFolderWritable = true;
    QString lockFolder; ///< Where serial programs keep their lock files; may be empty.
    QString group;      ///< The group that may use the device; may be empty.
    QString lockedBy;   ///< What is known of the program that holds it, e.g. "process 1234"; may be empty.
    bool busy = false;  ///< The system or a lock file says that another program uses it.
    QString systemText; ///< What the system said.
};

/// Why the device could not be opened and what to do next, in plain words.
QString explainOpenFailure(const OpenFailureFacts& facts);

} // namespace orv
