// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/clock.h"

#include <QFile>
#include <QString>

namespace orv {

/// The record file of a real-time run, "Orvtemp.tmp": a header and one line for each row, so that a long run is never
/// lost. Each row reaches the operating system at once and the disk within a second.
///
/// An earlier run's file whose rows were not saved is kept under a dated name instead of being emptied.
class RecordFile {
public:
    RecordFile(const Clock& clock, const QString& path);

    /// Begins a run: closes the file of the run before, keeps it if need be, creates the new one and writes the header
    /// for the firmware number. Returns the empty text, or why there is no record file now.
    QString start(double firmware);

    bool isOpen() const { return file_.isOpen(); }

    /// Adds a row's line (without its end). Returns the empty text, or why it could not be written; then the file ends
    /// with the last whole row. Nothing happens without an open file.
    QString append(const QString& line);

    /// Brings rows that wait to the disk when it is time. Called at every tick.
    void syncWhenDue();

    /// Closes the file with everything in it on the disk.
    void close();

    /// The rows on the sheet have been saved elsewhere, so this file need not be kept. Does not count once rows have
    /// been discarded unsaved.
    void rowsSaved();

    /// The sheet has been cleared.
    void rowsDiscarded();

private:
    bool holdsUnsavedRows() const;

    const Clock& clock_;
    QFile file_;
    bool begun_ = false;        ///< The file is of a run of this program, not one found at its start.
    bool saved_ = false;        ///< Every row of the file is saved elsewhere.
    bool discarded_ = false;    ///< Some row of the file was discarded from the sheet before it was saved.
    bool waitsForDisk_ = false; ///< Rows have been written and not yet brought to the disk.
    qint64 waitsSince_ = 0;     ///< Monotonic milliseconds.
};

} // namespace orv
