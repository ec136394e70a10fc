// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibrationactions.h"

#include "session/runtimeerror.h"

namespace orv {

CalibrationActions::CalibrationActions(const Parts& parts)
    : messages_(parts.session.messages)
    , store_(table, parts.panel)
    , list_(parts.panel, store_)
    , computation_({.state = parts.session.state,
                    .sheet = parts.sheet,
                    .sheetPanel = parts.sheetPanel,
                    .panel = parts.panel,
                    .store = store_})
    , report_(parts.session, parts.panel, parts.questions) {}

void CalibrationActions::addInstrument() {
    runOperation(messages_, QStringLiteral("Add Instrument"), [this] { list_.addInstrument(); });
}

void CalibrationActions::next() {
    runOperation(messages_, QStringLiteral("Next"), [this] { list_.next(); });
}

void CalibrationActions::previous() {
    runOperation(messages_, QStringLiteral("Previous"), [this] { list_.previous(); });
}

void CalibrationActions::select(int position) {
    runOperation(messages_, QStringLiteral("Show Instrument"), [this, position] { list_.select(position); });
}

void CalibrationActions::calcdp() {
    runOperation(messages_, QStringLiteral("Calc DP"), [this] { computation_.calcdp(); });
}

void CalibrationActions::saveCalInfo() {
    report_.save();
}

} // namespace orv
