// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QString>

namespace orv {

/// The lock that stands beside a record file while its run writes: "Orvtemp.tmp.lock". One that is found at the start
/// of the program is of a run that did not end. It says of which type the rows are, which the record file does not:
/// letter TAB firmware CR LF.
class RunLock {
public:
    explicit RunLock(const QString& recordFilePath);

    bool stands() const;

    /// The type of the run; with an empty letter if there is no lock or it cannot be read (power failure).
    DataSheet::Type type() const;

    /// Puts the lock, on the disk, in place of one that may stand. Best effort: without it the rows are in the record
    /// file all the same, only nobody offers them.
    void put(const DataSheet::Type& type) const;

    void remove() const;

    /// Makes this the lock of the other record file's run. Best effort.
    void takeFrom(const RunLock& other) const;

private:
    QString path_;
};

} // namespace orv
