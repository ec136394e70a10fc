// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"

#include <QByteArray>
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

    /// Appends one block. Returns the empty text, or why it could not be written; only once, until a block can be
    /// written again. Nothing happens if the log is not open.
    QString write(const QByteArray& block);

    /// A failure that goes on is told once more.
    void forgetToldFailure() { failureTold_ = false; }

private:
    QFile file_;
    bool failureTold_ = false;
};

/// Takes what the instrument port has received and cuts it into lines.
class Poll {
public:
    Poll(Session& session, ComPorts& ports, DebugState& debug);

    /// One poll: joins what has arrived to `rxbuffer` and takes at most one complete line from it, which is returned
    /// (empty if there is none) and written to `Rtn`, watches for the prompts ">" and "!" while `gatherstart` is 1,
    /// feeds the log and the debug list. Notices that the port has failed once every complete line it received
    /// has been taken.
    QString quary();

    /// Characters received and not yet consumed as a line. Only the poll adds to them; others may empty it.
    QByteArray rxbuffer;

    /// Whether a complete line stood in `rxbuffer` after the last poll and still does.
    bool hasLine() const { return searched_.lineFeed >= 0 && searched_.lineFeed < rxbuffer.size(); }

    ProgramLog log;

private:
    /// What is known of the first `end` characters of `rxbuffer`: where something stands in them, -1 if nowhere.
    struct Searched {
        qsizetype end = 0;
        qsizetype lineFeed = -1; ///< The first.
        qsizetype ready = -1;    ///< The last ">".
        qsizetype other = -1;    ///< The last "!".
    };

    void searchWhatIsNew();
    void takeLine();

    Session& session_;
    ComPorts& ports_;
    DebugState& debug_;
    Searched searched_;
};

} // namespace orv
