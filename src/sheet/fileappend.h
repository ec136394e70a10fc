// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace orv {

/// Appends all of `bytes` to an open unbuffered file, or nothing: after a failure (disk full) the file ends as before.
/// Returns the empty text, or why it failed.
QString appendWhole(QFile& file, const QByteArray& bytes);

} // namespace orv
