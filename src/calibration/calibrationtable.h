// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/worksheet.h"

namespace orv {

/// The colour of an instrument's light source, by the number of its selector.
enum class LightColour : quint8 { None = 0, Red = 9, Blue = 10, Green = 11 };

/// What is kept of each instrument of a calibration batch, in memory only. It starts as zeros.
class CalibrationTable {
public:
    static constexpr int instrumentCount = 7;
    static constexpr int fieldCount = channelCount * static_cast<int>(worksheetRows.size());

    /// Where the value of a worksheet row and channel is kept.
    static constexpr int field(int row, int channel) { return static_cast<int>(worksheetRows.size()) * channel + row; }

    /// Throw RuntimeError SubscriptOutOfRange for an instrument outside 0..6.
    qint16& value(int instrument, int row, int channel);
    LightColour& colour(int instrument);

private:
    struct Instrument {
        std::array<qint16, static_cast<std::size_t>(fieldCount)> values{};
        LightColour colour = LightColour::None;
    };

    Instrument& at(int instrument);

    std::array<Instrument, static_cast<std::size_t>(instrumentCount)> instruments_;
};

} // namespace orv
