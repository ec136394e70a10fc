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

InstrumentList::InstrumentList(CalibrationPanel& panel, WorksheetStore& store)
    : panel_(panel)
    , store_(store) {}

void InstrumentList::addInstrument() {
    const LightColour colour = panel_.colour;
    if (colour == LightColour::None) {
        panel_.message = QStringLiteral("SELECT A COLOR");
        return;
    }
    panel_.message = QString();
    panel_.instruments = panel_.instruments.value() + QStringList{panel_.instrumentName.value()};
    panel_.totalEntered = QString::number(count());
    store_.setcalcolour(colour);
}

void InstrumentList::next() {
    if (count() == 0) {
        return;
    }
    const int following = panel_.current + 1;
    show(following == count() ? 0 : following);
}

void InstrumentList::previous() {
    if (count() == 0) {
        return;
    }
    const int preceding = panel_.current - 1;
    show(preceding < 0 ? count() - 1 : preceding);
}

void InstrumentList::select(int position) {
    if (position >= 0 && position < count()) {
        show(position);
    }
}

void InstrumentList::show(int position) {
    panel_.current = static_cast<qint16>(position);
    panel_.worksheetCaption = panel_.currentEntry();
    store_.showcal();
}

} // namespace orv
