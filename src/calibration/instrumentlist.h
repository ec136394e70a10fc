// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/worksheetstore.h"

namespace orv {

/// The list of the instruments of a batch, and the steps from one to another.
class InstrumentList {
public:
    InstrumentList(CalibrationPanel& panel, WorksheetStore& store);

    /// Adds the named instrument at the end and keeps its colour; the instrument shown stays. Without a colour it only
    /// says so. Throws RuntimeError SubscriptOutOfRange for an eighth instrument, which stays in the list without a
    /// colour.
    void addInstrument();

    /// Show the next or the previous instrument, round at the ends, or the one at a position of the list. Nothing
    /// happens while the list is empty. Throw RuntimeError SubscriptOutOfRange for an eighth instrument: it is then
    /// the current one, by caption and index, but the boxes still show the instrument before.
    void next();
    void previous();
    void select(int position);

private:
    void show(int position);
    int count() const { return static_cast<int>(panel_.instruments.value().size()); }

    CalibrationPanel& panel_;
    WorksheetStore& store_;
};

} // namespace orv
