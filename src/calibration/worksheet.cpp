// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/worksheet.h"

#include "base/runtimeerror.h"
#include "base/text.h"

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

WorksheetStore::WorksheetStore(CalibrationTable& table, CalibrationState& shown)
    : table_(table)
    , shown_(shown) {}

void WorksheetStore::storecal() {
    forEachBox([this](int row, int channel) {
        qint16& kept = table_.value(shown_.current, row, channel);
        try {
            kept = toInteger16(leadingNumber(shown_.worksheet.at(row, channel).value()));
        } catch (const RuntimeError& error) {
            const auto at = [](const auto& names, int place) { return names.at(static_cast<std::size_t>(place)); };
            throw RuntimeError(
                error.kind(),
                Words::tr("The value of \"%1\" for the angle %2 is not from -32768 to 32767. "
                          "Correct it first.")
                    .arg(Words::tr(at(worksheetRows, row).caption), QString::fromLatin1(at(channelAngles, channel))));
        }
    });
}

void WorksheetStore::showcal() {
    forEachBox([this](int row, int channel) {
        shown_.worksheet.at(row, channel) = QString::number(table_.value(shown_.current, row, channel));
    });
    const LightColour colour = table_.colour(shown_.current);
    if (colour != LightColour::None) {
        shown_.colour = colour;
    }
}

void WorksheetStore::setcalcolour(LightColour colour) {
    table_.colour(static_cast<int>(shown_.instruments.value().size()) - 1) = colour;
}

} // namespace orv
