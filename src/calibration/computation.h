// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/worksheetstore.h"
#include "session/sessionstate.h"
#include "sheet/datasheet.h"
#include "sheet/sheetpanel.h"

namespace orv {

/// Fills the worksheet from the rows on the data sheet.
class Computation {
public:
    struct Parts {
        SessionState& state;
        const DataSheet& sheet;
        SheetPanel& sheetPanel;
        CalibrationPanel& panel;
        WorksheetStore& store;
    };

    explicit Computation(const Parts& parts);

    /// "Calc DP". Writes the mean of the sheet's columns 3, 4 and 5 over the `plc` rows into the selected row of the
    /// worksheet; for Point k also the derived point Int(Rk * (P \ Rk-1)), P being the box above and R the reference
    /// values of the same channel. Then keeps the worksheet for the current instrument. With no row selected nothing is
    /// written, only kept.
    ///
    /// Throws RuntimeError DivisionByZero (no rows; a reference of 0) or Overflow: what was written before stays and
    /// the worksheet is not kept, or not wholly if a value of it does not fit.
    void calcdp();

private:
    double mean(int sheetColumn);
    double derivedPoint(int row, int channel) const;

    Parts p_;
};

} // namespace orv
