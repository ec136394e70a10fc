// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "sheet/recordfile.h"
#include "sheet/sheetfiles.h"

namespace orv {

/// Offers the rows of a run that did not end because the program or the computer died. At every moment the rows are in
/// the record file with its lock, or in a file under a dated name, so a program that dies here loses nothing either.
class RunRecovery {
public:
    RunRecovery(Link& link, SheetRows& rows, SheetFiles& files, RecordFile& recordFile);

    /// If no run in this program's place waits to be recovered: takes over one that a program in another place has left
    /// when it died. Several programs in one folder may die at once, and only one be started again.
    void takeOverFromFreePlaces(int ownPlace);

    /// Asks whether to load the rows of a run that did not end. Yes brings them to the sheet, unsaved; the record file
    /// stays until the next run, which keeps it under a dated name. No keeps it under a dated name now. Without an
    /// answer everything stays for the next start. If all rows were saved, or none can be read, nothing is asked; a
    /// file with anything else in it is kept and the operator is told.
    Task<> offer();

private:
    Task<> load(RecordedRows found);
    void keep(const Words& what, bool hasRows = false);
    bool isRecordFile() const;
    void tell(const Words& text, const QString& textWithoutWindow = {});

    Link& link_;
    SheetRows& rows_;
    SheetFiles& files_;
    RecordFile& recordFile_;
    QString file_; ///< Whose rows are offered: the record file, or the one of the run before.
};

} // namespace orv
