// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/automaticsave.h"

#include "session/numbertext.h"

namespace orv {

namespace {

constexpr int retryAfterRows = 500;

} // namespace

AutomaticSave::AutomaticSave(Session& session, SheetRows& rows, SheetFiles& files, SheetPanel& panel)
    : session_(session)
    , rows_(rows)
    , files_(files)
    , panel_(panel) {}

void AutomaticSave::saveLongSheet() {
    const int count = session_.state.plc;
    if (count <= rowLimit) {
        nextTry_ = rowLimit;
    }
    if (count < nextTry_) {
        return;
    }
    files_.autosaving = 1;
    const bool saved = files_.saveas() == SheetFiles::Outcome::Saved;
    if (saved) {
        panel_.records = plainNumber(leadingNumber(panel_.records.value()) + 1.0);
        rows_.clearSpreadSheet();
        nextTry_ = rowLimit;
    } else {
        nextTry_ = count + retryAfterRows;
    }
    files_.autosaving = 0;
}

} // namespace orv
