// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/recordfile.h"
#include "sheet/sheetfiles.h"
#include "sheet/sheetformat.h"
#include "sheet/sheetrows.h"

namespace orv {

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

/// Reads the rows that a run had on the sheet: those behind the last place where the numbers begin anew. `type` as the
/// run's lock tells it. Lines may end CR LF or LF. At most the last 16 MB are read; a sheet is a quarter of that. There
/// are no rows in a file that does not exist.
RecordedRows readRecordedRows(const QString& path, const DataSheet::Type& type);

/// Offers the rows of a run that did not end because the program or the computer died. At every moment the rows are in
/// the record file with its lock, or in a file under a dated name, so a program that dies here loses nothing either.
class RunRecovery {
public:
    struct Parts {
        Session& session;
        SheetRows& rows;
        SheetFiles& files;
        RecordFile& recordFile;
        OperatorQuestions& questions;
    };

    explicit RunRecovery(const Parts& parts);

    /// If no run in this program's place waits to be recovered: takes over one that a program in another place has left
    /// when it died. Several programs in one folder may die at once, and only one be started again.
    void takeOverFromFreePlaces(int ownPlace);

    /// Asks whether to load the rows of a run that did not end. Yes brings them to the sheet, unsaved; the record file
    /// stays until the next run, which keeps it under a dated name. No keeps it under a dated name now. Nothing is
    /// asked if no row can be read; a file with anything else in it is kept and told.
    void offer();

private:
    void load(RecordedRows found);
    void keep(const QString& what);
    bool isRecordFile() const;
    void tell(const QString& text);

    Parts p_;
    QString file_; ///< Whose rows are offered: the record file, or the one of the run before.
};

} // namespace orv
