// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/calibrationpanel.h"

namespace orv {

/// Moves values between the worksheet and the calibration table.
class WorksheetStore {
public:
    WorksheetStore(CalibrationTable& table, CalibrationPanel& panel);

    /// Keeps the 18 boxes for the current instrument: the number each begins with (0 if none), rounded half to even.
    /// Throws RuntimeError SubscriptOutOfRange (the current instrument is none of the seven; nothing is kept) or
    /// Overflow (outside -32768..32767; the boxes before it are kept: Clean to Point 4, each with its three channels,
    /// then Air).
    void storecal();

    /// Shows what is kept of the current instrument in the 18 boxes and selects its colour; an instrument without one
    /// leaves the selection. Throws RuntimeError SubscriptOutOfRange, with nothing changed.
    void showcal();

    /// Keeps the colour of the newest entry of the list. Throws RuntimeError SubscriptOutOfRange unless the list has
    /// one to seven entries.
    void setcalcolour(LightColour colour);

private:
    CalibrationTable& table_;
    CalibrationPanel& panel_;
};

} // namespace orv
