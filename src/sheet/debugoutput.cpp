// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/debugoutput.h"

namespace orv {

void showOnDebugScreen(DebugPanel& debug, const DataRow& row, RowLayout layout) {
    switch (layout) {
    case RowLayout::Unknown:
        return;
    case RowLayout::Glow:
        debug.fluorometerOutput = row.values.value(0);
        return;
    case RowLayout::TrxOlder:
    case RowLayout::TrxNewer:
        break;
    }
    // The older generation sends a reference behind each angle.
    const qsizetype step = layout == RowLayout::TrxOlder ? 2 : 1;
    for (std::size_t angle = 0; angle < debug.scatteringOutputs.size(); ++angle) {
        debug.scatteringOutputs.at(angle) = row.values.value(static_cast<qsizetype>(angle) * step);
    }
    debug.scatteringReference = row.values.value(valueCount(layout) - 1);
}

} // namespace orv
