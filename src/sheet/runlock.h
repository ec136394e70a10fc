// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QByteArrayList>
#include <QString>

namespace orv {

/// The lock that stands beside a record file while its run writes: "Orvtemp.tmp.lock". One that is found at the start
/// of the program is of a run that did not end. It says of which type the rows are, which the record file does not:
/// letter TAB firmware CR LF. While rows of an earlier run are on the sheet unsaved, too, a further field (TAB name)
/// says which file of the folder holds them.
class RunLock {
public:
    explicit RunLock(const QString& recordFilePath);

    bool stands() const;

    /// The type of the run; with an empty letter if there is no lock or it cannot be read (power failure).
    DataSheet::Type type() const;

    /// Puts the lock, on the disk, in place of one that may stand. Returns whether it is whole there: without it the
    /// rows are in the record file all the same, only nobody offers them.
    bool put(const DataSheet::Type& type, const QString& earlierFile = QString()) const;

    /// The name of the file with the unsaved rows of an earlier run; empty if there is none, or what stands there is no
    /// name of a file in the folder.
    QString earlierFile() const;

    void remove() const;

    /// Puts a copy of the other lock, on the disk. Returns whether it stands.
    bool copyFrom(const RunLock& other) const;

private:
    static constexpr qint64 longest = 256; ///< Bytes; no lock is longer.

    QByteArrayList fields() const;

    QString path_;
};

/// What remembers on the disk that every row of a record file has been saved: "Orvtemp.tmp.saved". It tells the size
/// and the first line that the file had then, so it says nothing of rows that have come since, nor of a later run:
/// bytes TAB first line with its CR LF.
class SavedMark {
public:
    explicit SavedMark(const QString& recordFilePath);

    /// Whether every row that is in the file now has been saved.
    bool holds() const;

    /// Puts the mark, on the disk. Best effort: without it the file is kept once too often.
    void put() const;

    void remove() const;

private:
    QByteArray presentState() const;

    QString recordFile_;
    QString path_;
};

} // namespace orv
