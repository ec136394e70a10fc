// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orv {

/// From now on assistive programs hear a label that shows a value as "Status: Ready". By itself a label with an
/// accessible name is heard as "Status" and its value never. Further calls change nothing.
void speakLabelValues();

} // namespace orv
