// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/sheetfiles.h"
#include "sheet/sheetrows.h"

namespace orv {

/// Saves and clears a sheet that has become long, without asking: shared by runs and downloads.
class AutomaticSave {
public:
    /// Rows at which the sheet is saved and cleared.
    static constexpr int rowLimit = 20000;

    AutomaticSave(Session& session, SheetRows& rows, SheetFiles& files, SheetPanel& panel);

    /// Saves, counts in "Records :" and clears, if the sheet has rowLimit rows or more. If the save fails the operator
    /// has been told and every row stays; it is tried again every 500 rows.
    void saveLongSheet();

private:
    Session& session_;
    SheetRows& rows_;
    SheetFiles& files_;
    SheetPanel& panel_;
    int nextTry_ = rowLimit;
};

} // namespace orv
