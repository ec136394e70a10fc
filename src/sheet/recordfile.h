// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "sheet/datasheet.h"
#include "sheet/folderplace.h"
#include "sheet/runlock.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QFile>
#include <QString>

#include <optional>
#include <utility>

namespace orv {

/// The record file of a real-time run, "Orvtemp.tmp": a header and one line for each row, so that a long run is never
/// lost. Each row reaches the operating system at once and the disk within a second. While a run writes, and then until
/// its rows are saved or discarded, a RunLock stands beside the file.
///
/// An earlier run's file whose rows were not saved is kept under a dated name instead of being emptied; a SavedMark
/// tells a later program that they were. It is also kept if its run did not end, even when its rows were recovered and
/// saved: it is the only one that has what could not be read.
class RecordFile {
public:
    /// A run touches the file only if the place can be claimed; without one the file is this program's.
    RecordFile(const Clock& clock, const QString& path, FolderPlace* place = nullptr);

    QString path() const { return file_.fileName(); }

    /// Chooses another file. Not during a run.
    void setPath(const QString& path);

    /// Begins a run: closes the file of the run before, keeps it if need be, creates the new one, writes the header for
    /// the type's firmware number and puts the lock. Returns the empty text, or why there is no record file now.
    Words start(const DataSheet::Type& type);

    bool isOpen() const { return file_.isOpen(); }

    /// Adds a row's line (without its end). Returns the empty text, or why it could not be written; then the file ends
    /// with the last whole row. Nothing happens without an open file.
    Words append(const QString& line);

    /// Brings rows that wait to the disk when it is time, and a lock that could not be put: with the first row that
    /// comes half a second after the first that waits, without one before that has waited a second. Returns after how
    /// many milliseconds to ask again; nothing if no row waits any more.
    std::optional<qint64> syncWhenDue();

    /// Closes the file with everything in it on the disk. The lock goes unless rows on the sheet are not saved.
    void close();

    /// Why rows could not be brought to the disk since the last call; empty if they could.
    Words takeDiskFailure() { return std::exchange(diskFailure_, {}); }

    /// Whether the file is of a program that died before its rows were saved: the lock stands, but this program has
    /// begun no run.
    bool isUnended() const { return !begun_ && !file_.isOpen() && lock_.stands(); }
    DataSheet::Type unendedType() const { return lock_.type(); }

    /// Whether the disk remembers that every row in the file has been saved.
    bool isSaved() const { return mark_.holds(); }

    /// Whether there is a file with that lock, so that it must not be replaced by another run's.
    bool hasUnendedRun() const;

    /// The file (with its path) that holds the rows of an earlier run which were unsaved too; empty if there is none.
    QString unendedEarlierFile() const;

    /// The rows of the run that did not end are on the sheet. The lock stands until they are saved or discarded, so
    /// that a program that dies before has its successor offer them again.
    void unendedRecovered();

    /// Removes the lock of a run that did not end; the file stays.
    void dropUnended() { lock_.remove(); }

    /// Keeps the file of the run that did not end under a dated name, `keptAs`, and then removes the lock. Returns the
    /// empty text, or why the file could not be kept; then all is as before.
    Words keepUnended(QString& keptAs);

    /// Makes the other file, of a run that did not end, and its lock this file. The file that was here is kept if need
    /// be. Best effort: what cannot be moved stays where it is. A program that dies here leaves a lock beside the rows
    /// or one without a file, which says nothing.
    void takeUnendedFrom(const QString& otherPath);

    /// The program is going to end, perhaps, and nobody is asked: brings the rows of the sheet to where the next start
    /// offers them, unless they are there. What the file held of another run is kept if need be. Rows of a run that
    /// goes on are brought to the disk; if the file lacks some of them, it is written anew. Returns the empty text, or
    /// why they could not be kept; then all is as before.
    Words keepForNextStart(const DataSheet& sheet);

    /// The rows on the sheet have been saved elsewhere, so this file need not be kept. Does not count once rows have
    /// been discarded unsaved.
    void rowsSaved();

    /// The same in a file that has not all their columns: nobody is asked about them any more, but this file is kept.
    /// Returns whether rows that were not saved yet are in it.
    bool rowsSavedInPart();

    /// The sheet has been cleared, or the program ends with the operator's consent.
    void rowsDiscarded();

    /// What the files of the program are to the rows on the sheet.
    struct Standing {
        bool unsaved = false;
        bool saved = false;
        bool discarded = false;
        QString earlierFile;
        QString keptAs;
        DataSheet::Type type;
        int runs = 0;
    };
    Standing standing() const;

    /// Rows that have been discarded since are on the sheet again: the lock stands again if it did, also if a run
    /// without a row has begun and ended meanwhile.
    void takeBack(const Standing& then);

private:
    bool holdsUnsavedRows() const;
    Words keepUnsavedRows();
    bool holdsRowsOf(const DataSheet& sheet) const;
    Words writeRowsOf(const DataSheet& sheet);
    void bringToDisk();
    void putLock();
    void nothingIsUnsaved();

    const Clock& clock_;
    FolderPlace* place_;
    QFile file_;
    RunLock lock_;
    SavedMark mark_;
    DataSheet::Type type_;    ///< Of the run.
    int runs_ = 0;            ///< Begun by this program.
    QString keptAs_;          ///< The name under which a run's start has kept the file before, the last one that was.
    QString earlierFile_;     ///< The name of the file with unsaved rows of the run before.
    bool unsaved_ = false;    ///< Rows of runs are on the sheet, in this file or the earlier one, and nowhere else.
    bool begun_ = false;      ///< The file is of a run of this program, not one found at its start.
    bool saved_ = false;      ///< Every row of the file is saved elsewhere.
    bool discarded_ = false;  ///< Some row of the file was discarded from the sheet before it was saved wholly.
    bool lockFailed_ = false; ///< It could not be put; it is tried again with the next rows.
    bool lacksRows_ = false;  ///< Some row of the run could not be written into it.
    Words diskFailure_;
    bool waitsForDisk_ = false; ///< Rows have been written and not yet brought to the disk.
    bool isBehindRow_ = false;  ///< A row has been written since the last look at the time.
    qint64 waitsSince_ = 0;     ///< Monotonic milliseconds.
};

/// No header of a record file is longer.
inline constexpr qint64 longestRecordHeader = 512;

/// The header of a record file that is begun at `start`. Its columns are the same for every type; the references LED by
/// LED belong to the newer firmware here, the reverse of the sheet's layouts. The rows below it are recordLine()'s.
QByteArray recordHeader(const QDateTime& start, double firmware);

/// Whether a file's first bytes are a header with nothing after it, or what was written of one.
bool isRecordHeaderOrItsBegin(const QByteArray& bytes);

/// What can be read of the record file of a run that did not end.
struct RecordedRows {
    LoadedSheet sheet;           ///< Type and rows, each with the number it had; `error` if the file cannot be read.
    bool typeGuessed = false;    ///< The type was told by the rows and the header, the firmware only by its generation.
    bool cutOff = false;         ///< The last line had no end and is left out.
    int unreadableLines = 0;     ///< Other lines that are no rows; they are left out.
    int missingRows = 0;         ///< Numbers left out between the first row and the last.
    bool hasEarlierRows = false; ///< The sheet was cleared (saved automatically, say) during the run; rows from before
                                 ///< that are left out.
};

/// Reads the rows that a run had on the sheet: those after the last place where the numbers begin anew. `type` as the
/// run's lock tells it. Lines may end CR LF or LF. At most the last 16 MB are read; a sheet is a quarter of that. There
/// are no rows in a file that does not exist.
RecordedRows readRecordedRows(const QString& path, const DataSheet::Type& type);

} // namespace orv
