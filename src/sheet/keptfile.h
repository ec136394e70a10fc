// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace orv {

/// Keeps the file at `path` out of the way of a new one: renames "name.ext" to "name-20261121-093015.ext" (with a
/// further number if that exists). Returns the empty text, also when there is no such file, or why it failed. `keptAs`
/// becomes the new path if the file was renamed.
QString keepUnderDatedName(const QString& path, const QDateTime& now, QString* keptAs = nullptr);

/// Lets the operating system bring an open file's data to the disk before returning. Best effort.
void syncToDisk(int fileHandle);

} // namespace orv
