// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/computation.h"
#include "calibration/instrumentlist.h"
#include "calibration/report.h"

namespace orv {

/// The operator's actions on the page "Calibration TRX(S)". A run-time error ends the action it happens in and is told
/// once.
class CalibrationActions {
public:
    struct Parts {
        Session& session;
        const DataSheet& sheet;
        SheetPanel& sheetPanel;
        CalibrationPanel& panel;
        OperatorQuestions& questions;
    };

    explicit CalibrationActions(const Parts& parts);

    void addInstrument();      ///< `Command4`.
    void next();               ///< `Command5`.
    void previous();           ///< `Command8`.
    void select(int position); ///< A click on an entry of `List2`.
    void calcdp();             ///< `Command12`.
    void saveCalInfo();        ///< `Command14`.

    CalibrationTable table;

private:
    OperatorMessages& messages_;
    WorksheetStore store_;
    InstrumentList list_;
    Computation computation_;
    Report report_;
};

} // namespace orv
