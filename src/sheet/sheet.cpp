// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheet.h"

#include "base/words.h"

#include <QFileInfo>

#include <utility>

namespace orv {

/// The sheet is of another type than the instrument: one that was loaded, or that another instrument has filled.
bool Sheet::isOfAnotherType() const {
    const RowLayout layout = rows.connectedLayout();
    return layout != RowLayout::Unknown && layout != data.type().layout();
}

/// Writes the header row of the identified instrument's type; nothing for an unknown type. Rows of another type that
/// are not saved are saved first; returns whether they are. If that fails, they keep their header row.
bool Sheet::layOutHeaderRow() {
    if (isOfAnotherType()) {
        shown.hasOtherType = shown.hasOtherType || data.rowCount() > 0;
        if (!files.saveAside()) {
            return false;
        }
    }
    rows.layOutOnOpening();
    return true;
}

/// Of what no sheet file holds, the record file is the only one.
void Sheet::noteSaved(bool wholly) {
    if (wholly) {
        recordFile.rowsSaved();
        return;
    }
    const bool recorded = recordFile.rowsSavedInPart();
    if (std::exchange(missingColumnTold_, true)) {
        return;
    }
    const Words where = recorded ? Words::tr("The record file %1 has it; the next run keeps that file under a "
                                             "name with date and time.")
                                       .arg(QFileInfo(recordFile.path()).absoluteFilePath())
                                 : Words::tr("Of stored data, \"Download Stored Data: Save as Text\" writes it.");
    link.session.messages.show(
        {.title = Words::tr("Save as"),
         .text = Words::tr("A sheet file has no column for the last reference of the older TRX.\n\n%1").arg(where),
         .icon = Message::Icon::Information});
}

void Sheet::clearAll() {
    if (data.rowCount() == 0) {
        rows.clearSpreadSheet(); // what a clearing before has taken can still be brought back
        return;
    }
    Cleared before{.contents = {},
                   .recorded = recordFile.standing(),
                   .unsaved = shown.unsaved,
                   .rowsInFile = shown.rowsInFile,
                   .file = shown.file,
                   .saved = shown.saved,
                   .rowsSinceSaved = shown.rowsSinceSaved,
                   .hasOtherType = shown.hasOtherType};
    before.contents = rows.clearSpreadSheet();
    shown.saved = SavedRows();
    shown.clearedRows = static_cast<int>(before.contents.rows.size());
    cleared_ = std::move(before);
}

void Sheet::bringBack() {
    auto before = std::exchange(cleared_, std::nullopt);
    if (!before) {
        return;
    }
    shown.clearedRows = 0;
    rows.putBack(std::move(before->contents));
    recordFile.takeBack(before->recorded);
    shown.unsaved = before->unsaved;
    shown.rowsInFile = before->rowsInFile;
    shown.file = before->file;
    shown.saved = before->saved;
    shown.rowsSinceSaved = before->rowsSinceSaved;
    shown.hasOtherType = before->hasOtherType;
}

void Sheet::noteRow() {
    if (cleared_) {
        cleared_.reset();
        shown.clearedRows = 0;
    }
    shown.rowsSinceSaved = true;
}

void Sheet::handOver() {
    shown.unsaved = false;
    noteSaved(true);
    rows.clearSpreadSheet();
}

bool Sheet::prepare() {
    if (!rows.instrumentIsKnown()) {
        return false;
    }
    if (!isOfAnotherType() || layOutHeaderRow()) {
        missingColumnTold_ = false;
        return true;
    }
    link.session.messages.show(
        operatorWarning(Words::tr("The sheet still holds unsaved rows of the %1. Save or clear them first.")
                            .arg(instrumentName(instrumentType(data.type().letter)))));
    return false;
}

} // namespace orv
