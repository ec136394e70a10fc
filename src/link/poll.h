// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/comports.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <utility>

namespace orv {

/// The program log: every block of characters that the poll reads from the instrument, byte for byte as received,
/// each followed by CR LF. Emptied at every start of the program, open for the whole run; each block reaches the
/// operating system at once.
///
/// A program that runs for weeks does not fill the disk: when the file has its largest size it becomes the older file,
/// "log-older.ohp", in place of the one before, and a new one is begun. So both together have at least the last bytes
/// of that number, at every moment, and at most twice as many.
class ProgramLog {
public:
    static constexpr qint64 largestFile = qint64{128} * 1024 * 1024;

    explicit ProgramLog(qint64 largest = largestFile)
        : largest_(largest) {}

    /// Creates or empties the file, and removes the older one. Returns the empty text, or why it could not be opened.
    Words open(const QString& path);

    /// Appends one block. Returns the empty text, or why it could not be written; only once, until as many bytes have
    /// been written again: on a full disk short blocks may still find room. Nothing happens if the log is not open.
    Words write(const QByteArray& block);

    struct Anew {
        bool begun = false; ///< For the first time.
        Words reason;       ///< Why it could not be; the file then grows on, and it is tried again when it has doubled.
    };
    /// What the last write() made of a file that had become too long.
    Anew takeAnew() { return std::exchange(anew_, {}); }

    /// Where the file at `path` goes when it has become too long: "log-2-older.ohp" of "log-2.ohp".
    static QString olderPath(const QString& path);

    void setLargest(qint64 bytes) { largest_ = bytes; }

    /// A failure that goes on is told once more.
    void forgetToldFailure() { toldFailure_ = 0; }

private:
    void beginAnew();
    bool openFor(QIODevice::OpenMode mode);

    QFile file_;
    qint64 largest_;
    qint64 next_ = 0; ///< When the file has so many bytes it is begun anew; 0: when it has the largest number.
    Anew anew_;
    bool anewTold_ = false;
    bool isBegun_ = false;      ///< There is a log of this program.
    qsizetype toldFailure_ = 0; ///< Bytes to write before a failure is told again; 0: none has been told.
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

    /// So many lines of a collection may come together, because nobody watches its characters as they come; 0: each
    /// character is wanted at once.
    int linesTogether = 0;

    ProgramLog log;

private:
    /// What is known of the first `end` characters of `rxbuffer`: where something stands in them, -1 if nowhere.
    struct Searched {
        qsizetype end = 0;
        qsizetype lineFeed = -1; ///< The first.
        qsizetype ready = -1;    ///< The last ">".
        qsizetype other = -1;    ///< The last "!".
    };

    void writeLog(const QByteArray& block);
    void searchWhatIsNew();
    void takeLine();
    void expectRestOfLine();

    Session& session_;
    ComPorts& ports_;
    DebugState& debug_;
    Searched searched_;
    qsizetype lineLength_ = 0; ///< Of the last line, with its end.
};

} // namespace orv
