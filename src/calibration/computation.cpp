// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/computation.h"

#include "session/numbertext.h"

#include <cmath>

namespace orv {

namespace {

constexpr int firstSheetColumn = 3;

} // namespace

Computation::Computation(const Parts& parts)
    : p_(parts) {}

void Computation::calcdp() {
    const int row = p_.panel.selectedRow;
    for (int channel = 0; channel < channelCount; ++channel) {
        const double channelMean = mean(firstSheetColumn + channel);
        if (row == CalibrationPanel::noRow) {
            continue;
        }
        p_.panel.worksheet.at(row, channel) = plainNumber(channelMean);
        if (row > cleanRow) {
            p_.panel.results.at(static_cast<std::size_t>(channel)) = plainNumber(derivedPoint(row, channel));
        }
    }
    p_.store.storecal();
}

double Computation::mean(int sheetColumn) {
    const int rows = p_.state.plc;
    double sum = 0.0;
    p_.sheetPanel.currentColumn = sheetColumn;
    for (int row = 0; row < rows; ++row) {
        sum += leadingNumber(p_.sheet.cell(row, sheetColumn));
    }
    if (rows > 0) {
        p_.sheetPanel.currentRow = rows;
    }
    // The half added never matters: the mean is the whole quotient, cut and not rounded, on purpose.
    return std::floor(integerDivide(sum, rows) + 0.5);
}

double Computation::derivedPoint(int row, int channel) const {
    const int point = row - cleanRow; // 1..4, also the reference row
    const auto reference = [this, channel](int referenceRow) {
        return leadingNumber(p_.panel.reference.at(referenceRow, channel).value());
    };
    const double previous = leadingNumber(p_.panel.worksheet.at(row - 1, channel).value());
    return std::floor(reference(point) * integerDivide(previous, reference(point - 1)));
}

} // namespace orv
