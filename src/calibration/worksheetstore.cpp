// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/worksheetstore.h"

#include "session/numbertext.h"

namespace orv {

namespace {

/// Calls `visit` with row and channel of every worksheet box: the rows from "Clean" on, "Air" last. The order decides
/// what has been kept when a value does not fit.
template <typename Visit>
void forEachBox(Visit visit) {
    constexpr int rowCount = static_cast<int>(worksheetRows.size());
    for (int step = 0; step < rowCount; ++step) {
        for (int channel = 0; channel < channelCount; ++channel) {
            visit((cleanRow + step) % rowCount, channel);
        }
    }
}

} // namespace

WorksheetStore::WorksheetStore(CalibrationTable& table, CalibrationPanel& panel)
    : table_(table)
    , panel_(panel) {}

void WorksheetStore::storecal() {
    forEachBox([this](int row, int channel) {
        qint16& kept = table_.value(panel_.current, row, channel);
        kept = toInteger16(leadingNumber(panel_.worksheet.at(row, channel).value()));
    });
}

void WorksheetStore::showcal() {
    forEachBox([this](int row, int channel) {
        panel_.worksheet.at(row, channel) = QString::number(table_.value(panel_.current, row, channel));
    });
    const LightColour colour = table_.colour(panel_.current);
    if (colour != LightColour::None) {
        panel_.colour = colour;
    }
}

void WorksheetStore::setcalcolour(LightColour colour) {
    table_.colour(static_cast<int>(panel_.instruments.value().size()) - 1) = colour;
}

} // namespace orv
