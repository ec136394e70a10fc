// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/instrumentlist.h"

namespace orv {

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
