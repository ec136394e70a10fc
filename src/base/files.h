// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/operator.h"
#include "base/words.h"

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QString>

#include <optional>

namespace orv {

/// What the system says of an error by that number (errno); in English whatever language the system speaks.
Words systemErrorText(int number);

/// What the system says of a device's last error, to stand in a sentence of the program: without a full stop at its
/// end, which some systems put. English as systemErrorText(), as far as the text is known; some systems tell in one
/// language only.
Words errorText(const QIODevice& device);

/// Appends all of `bytes` to an open unbuffered file, or nothing: after a failure (disk full) the file ends as before.
/// Returns the empty text, or why it failed.
Words appendWhole(QFileDevice& file, const QByteArray& bytes);

/// A name that no file has: `path`, or "name-20261121-093015.ext" (with a further number if that exists too).
QString freeName(const QString& path, const QDateTime& now);

/// Keeps the file at `path` out of the way of a new one: renames it to its freeName(). Returns the empty text, also
/// when there is no such file, or why it failed. `keptAs` becomes the new path if the file was renamed.
Words keepUnderDatedName(const QString& path, const QDateTime& now, QString* keptAs = nullptr);

/// Free bytes on the disk of the working directory; nothing if that cannot be known.
std::optional<qint64> freeSpaceHere();

/// Lets the operating system bring an open file's data to the disk before returning. Returns the empty text, also for
/// what is no file on a disk, or why it failed: then what was written last may be lost with the power.
Words syncToDisk(int fileHandle);

/// The same for a file that has a name: fails also if the file has been removed meanwhile, because what is in it is
/// gone once it is closed.
Words syncNamedFile(int fileHandle);

/// The same with the names in the folder of that file: what was made, renamed and removed there. Best effort; not every
/// system knows it.
void syncFolderOf(const QString& path);

/// Writes a file whole or not at all: an older one of that name stays until the new one is on the disk. With
/// `keepOlder` the older one is then kept under that moment's dated name. Returns the empty text, or why it could not
/// be written.
Words writeWholeFile(const QString& name, const QByteArray& bytes, const std::optional<QDateTime>& keepOlder = {});

/// What the operator is told when a small file could not be written.
Message fileNotSaved(const Words& title, const QString& name, const Words& reason);

} // namespace orv
