// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibrationtable.h"

#include "session/runtimeerror.h"

namespace orv {

qint16& CalibrationTable::value(int instrument, int row, int channel) {
    return at(instrument).values.at(static_cast<std::size_t>(field(row, channel)));
}

LightColour& CalibrationTable::colour(int instrument) {
    return at(instrument).colour;
}

CalibrationTable::Instrument& CalibrationTable::at(int instrument) {
    if (instrument < 0 || instrument >= instrumentCount) {
        throw RuntimeError(RuntimeError::Kind::SubscriptOutOfRange);
    }
    return instruments_.at(static_cast<std::size_t>(instrument));
}

} // namespace orv
