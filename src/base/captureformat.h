// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <vector>

namespace orv {

// A capture tells what happened between the operator, the program and the instrument, so that it can be read and played
// again elsewhere. It is text, one JSON object a line.
//
// The first line is the header: {"capture":1,"began":"2026-11-21T09:30:15.000+01:00","program":"orvhost 1.0.0",...}.
// `capture` is the version of the form; a reader refuses a later one. Every other line is an entry:
// {"ms":1250,"sent":"P"}, the milliseconds since the capture began by a clock that never jumps, and one thing that
// happened. A reader passes over what it does not know, and over further headers, so that two parts can be joined.
//
// Bytes of the line are a text whose characters U+0000 to U+00FF are the bytes, written in ASCII alone: "V512\r" is
// five bytes, "\u0000\u00ff" two. A break is received as a byte 0.

/// What an entry tells.
enum class CaptureKind : quint8 {
    Opened,      ///< "open": the device; DTR is off and stays so until told otherwise, as RTS is left to the system.
    NotOpened,   ///< "notOpened": why the line could not be opened.
    Closed,      ///< "closed": true.
    Dtr,         ///< "dtr": whether the program has raised or dropped it.
    Sent,        ///< "sent": the bytes of one write.
    Received,    ///< "received": the bytes of one read.
    Discarded,   ///< "discarded": the bytes that the program dropped unread, perhaps none.
    Failed,      ///< "failed": why the open line works no more.
    Waits,       ///< "waits": a procedure waits, {"for":"time" or "input","ms":at most so long}.
    NothingCame, ///< "nothingCame": true; a wait for input was in vain.
    Did,         ///< "did": what the operator did, {"control":object name,"caption":...,"value":...}.
    Told,        ///< "told": a message to the operator, {"title":...,"text":...}.
    Said,        ///< "said": a line on standard error.
    Asked,       ///< "asked": a question to the operator, {"kind":...,"title":...,"text":...}.
    Answered,    ///< "answered": his answer; of a file its name alone, empty when he cancelled.
    Status,      ///< "status": what the status shows.
    Notice,      ///< "notice": the remark beside it.
    Instrument,  ///< "instrument": what it is, {"type":"TRX","firmware":"512"}.
    Settings,    ///< "settings": the settings as shown when the lamp changed, {"lamp":...,name:value,...}; while they
                 ///< are being read, the lamp alone.
    Sheet,       ///< "sheet": the sheet when an operation ended, {"rows":n,"last":the newest row}.
    Late,        ///< "late": what the operator is told once no row comes, "No row for 8 s"; empty when one comes again.
    Cleared,     ///< "cleared": how many rows the operator has cleared, 0 when they cannot be brought back any more.
    Saved,       ///< "saved": the sheet was saved, {"rows":n,"name":the file's name}.
    Dropped,     ///< "dropped": true; older entries stood here.
    State,       ///< "state": everything of interest at the moment of saving.
    Other        ///< Of a later version.
};

/// The most that a capture file may hold, its parts together.
inline constexpr qsizetype largestCapture = qsizetype{64} * 1024 * 1024;

/// The header's line.
QByteArray captureHeader(const QDateTime& began, QJsonObject facts);

/// An entry's line, with its line end.
QByteArray captureLine(qint64 milliseconds, CaptureKind kind, QByteArrayView bytes);
QByteArray captureLine(qint64 milliseconds, CaptureKind kind, const QJsonValue& value);

struct CaptureEntry {
    qint64 milliseconds = 0;
    CaptureKind kind = CaptureKind::Other;
    QByteArray bytes; ///< Sent, received or discarded.
    QJsonValue value; ///< Of every other kind.
};

struct CaptureContents {
    Words error; ///< Empty, or what is wrong and where, in whole sentences; then the rest is empty.
    QJsonObject header;
    QDateTime began;
    std::vector<CaptureEntry> entries;
    bool isCutOff = false; ///< The last line was not whole and is left out: the program was killed, the disk was full.
};

/// Reads a capture. Takes any bytes at all.
CaptureContents readCapture(QByteArrayView bytes);

/// The same of a file; the error names it.
CaptureContents readCaptureFile(const QString& name);

} // namespace orv
