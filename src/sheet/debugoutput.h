// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/debugpanel.h"
#include "sheet/dataline.h"

namespace orv {

/// Shows the newest row's values in the instrument frames of the debug screen: GLOW's one value as the fluorometer's
/// output, TRX's angles and last reference ("Ref") as the scattering meter's. A row of an unknown layout is not shown.
void showOnDebugScreen(DebugPanel& debug, const DataRow& row, RowLayout layout);

} // namespace orv
