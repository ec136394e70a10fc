// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>

namespace orv {

/// The program log: every block of characters that the poll reads from the instrument, byte for byte as received,
/// each followed by CR LF. Emptied at every start of the program, open for the whole run; each block reaches the
/// operating system at once.
class ProgramLog {
public:
    /// Creates or empties the file. Returns the empty text, or why it could not be opened.
    QString open(const QString& path);

    /// Appends one block. Returns the empty text, or why it could not be written; told once, later failures are
    /// silent until a block can be written again. Nothing happens if the log is not open.
    QString write(const QByteArray& block);

private:
    QFile file_;
    bool failureTold_ = false;
};

} // namespace orv
