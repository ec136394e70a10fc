// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "sheet/dataline.h"
#include "sheet/datasheet.h"
#include "sheet/sheetformat.h"

namespace orv {

/// What every procedure that fills the sheet shares: laying out, clearing, adding rows, and the counter `plc`.
class SheetRows {
public:
    SheetRows(Session& session, ComPorts& ports, DataSheet& sheet, SheetState& shown);

    /// Writes the header row of the connected type when a port has been opened; nothing for an unknown type.
    void layOutOnOpening();

    /// "Clear Spread Sheet": removes all rows without asking and writes the header row, TRX's for any letter that is
    /// not GLOW's.
    void clearSpreadSheet();

    /// Counts the row and adds it. Throws RuntimeError Overflow, with nothing changed, if the counter is full.
    void addRow(const DataRow& row);

    /// Replaces everything on the sheet by a loaded file; its rows are not unsaved.
    void replaceBy(LoadedSheet loaded);

    /// The same with rows that no sheet file has: they are unsaved.
    void recover(LoadedSheet recorded);

    /// Brings the last ten rows into view once there are more than 11.
    void followNewest();

    /// The layout of the connected instrument's data lines.
    RowLayout connectedLayout() const;
    DataSheet::Type connectedType() const {
        return {.letter = session_.state.Vartemp, .firmware = session_.state.firmware};
    }

private:
    void clear();

    Session& session_;
    ComPorts& ports_;
    DataSheet& sheet_;
    SheetState& shown_;
};

} // namespace orv
