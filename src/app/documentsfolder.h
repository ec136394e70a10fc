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

} // namespace orv
