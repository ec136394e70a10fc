// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"
#include "sheet/sheetformat.h"

namespace orv::fuzzing {

namespace {

int cellsOf(const DataSheet::Type& type) {
    return type.layout() == RowLayout::Glow ? 4 : 8;
}

void put(const LoadedSheet& loaded, DataSheet& sheet) {
    sheet.setHeader(loaded.type, headerRow(HeaderPlace::GridOnClearing, loaded.type.layout()));
    for (const QByteArray& row : loaded.rows) {
        sheet.appendJoinedRow(row);
    }
}

} // namespace

void sheetfile(Input input) {
    const QString name = QString::fromLatin1(input.bytes(input.below(16)));
    const LoadedSheet loaded = parseSheetFile(input.rest());
    if (!loaded.error.isEmpty()) {
        require(loaded.rows.empty() && loaded.error.endsWith(u'.'), "a refused file has rows");
        return;
    }
    require(loaded.type.layout() != RowLayout::Unknown, "a sheet has no type");
    require(loaded.rows.size() <= 32767, "a sheet has too many rows");
    for (const QByteArray& row : loaded.rows) {
        require(row.count('\t') == cellsOf(loaded.type) - 1 && !row.contains('\r') && !row.contains('\n'),
                "a row has other cells than its layout");
    }
    // What was read, saved and read again is the same.
    DataSheet sheet;
    put(loaded, sheet);
    const QByteArray saved = sheetFileBytes(sheet, name);
    const LoadedSheet again = parseSheetFile(saved);
    require(again.error.isEmpty(), "a saved sheet cannot be opened", [&again] { return again.error; });
    require(again.type == loaded.type, "a saved sheet has another type");
    require(again.rows == loaded.rows, "a saved sheet has other rows");
}

} // namespace orv::fuzzing
