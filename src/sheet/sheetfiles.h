// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/link.h"
#include "sheet/datasheet.h"

namespace orv {

/// Saves and loads the data sheet.
class SheetFiles {
public:
    enum class Outcome { Saved, Cancelled, Failed };

    /// Rows at which the sheet is saved and cleared without asking.
    static constexpr int rowLimit = 20000;

    SheetFiles(Link& link, DataSheet& sheet, SheetRows& rows, SheetState& shown);

    /// Saves the sheet under the name the operator confirms in a dialog. A save that fails leaves the file that was
    /// there and tells the reason; there is nothing to save for a sheet of no known type. If rows were saved by
    /// themselves while the dialog stood, the operator is told where they are.
    Task<Outcome> saveas();

    /// The same under the preset name, without asking; a file of that name from before is kept under a dated name.
    Outcome autosave();

    /// Saves a sheet that has rowLimit rows or more by itself, counts in "Records :" and clears it; returns whether it
    /// did. If the save fails the operator is told and every row stays; it is tried again every 500 rows.
    bool saveLongSheet();

    /// Saves rows that are unsaved under a dated name, without asking, and tells so. For rows of another type of
    /// instrument than the one that has just been connected: under its header row they would be saved wrongly. Returns
    /// whether none is unsaved now.
    bool saveAside();

    /// A failure of saving without being asked is told once; from now on it is told again.
    void forgetToldFailure() { failureTold_ = false; }

    /// Asks for a file and loads it in place of what is on the sheet; rows that are not saved are offered for saving
    /// first. If the file cannot be loaded, the operator is told why and the sheet stays as it was.
    Task<> loadit();

    /// Offers to save if the sheet holds unsaved data. Returns whether what is on the sheet may go now: nothing was
    /// unsaved, the operator said No, or it has been saved.
    Task<bool> ask();

    Signal<bool> saved; ///< After each successful save: whether the file has all columns of the rows.

private:
    QString presetName() const;
    bool beginSaving();
    Outcome announceAndWrite(const QString& name, bool autosaving);
    bool refuse(const QString& name, const LoadedSheet& loaded);
    Outcome fail(const QString& name, const Words& reason, bool autosaving);
    Outcome write(const QString& name, bool autosaving);

    Link& link_;
    DataSheet& sheet_;
    SheetRows& rows_;
    SheetState& shown_;
    QList<Words> savedByItself_;  ///< For the operator: "rows 1 to 20000 as /home/a/Data0.txt".
    bool failureTold_ = false;    ///< What is saved without asking is tried again and again.
    int nextAutosave_ = rowLimit; ///< Rows at which the sheet is saved by itself again.
};

} // namespace orv
