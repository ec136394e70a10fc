// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/link.h"
#include "program/runprogress.h"

namespace orv {

/// What the operator can do next, in a sentence or two, at every moment: it follows what goes on, the ports, the sheet
/// and why a connection failed. Made in one place, as CommandState is; the screens show it and nothing else says it.
class NextStep {
public:
    NextStep(const Link& link, const SettingsState& settings, const SheetState& sheet, const RunProgress& progress);
    NextStep(const NextStep&) = delete;
    NextStep& operator=(const NextStep&) = delete;

    QProperty<Words> text;

private:
    QProperty<Words> underWay_;
    QProperty<Words> afterFailure_;
    QProperty<Words> atRest_;
};

/// "114 rows", "1 row".
Words rowsInWords(const QString& count);

} // namespace orv
