// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/operatormessages.h"

#include <QByteArray>

namespace orv {

/// Writes a file whole or not at all. Returns the empty text, or why it could not be written.
QString writeWholeFile(const QString& name, const QByteArray& bytes);

/// What the operator is told when a small file could not be written.
Message fileNotSaved(const QString& title, const QString& name, const QString& reason);

} // namespace orv
