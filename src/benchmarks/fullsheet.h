// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/dataline.h"
#include "sheet/datasheet.h"

#include <QByteArray>

namespace orv {

/// Rows at which a sheet is full: it is saved by itself and cleared.
inline constexpr int fullSheetRows = 20000;

/// A data line as the newer TRX sends it, without its end: 38 characters, as long as they get. GLOW sends the first of
/// its values.
inline QByteArray typicalDataLine(int number) {
    return "11/21/26\t" + QByteArray::number(20000 + number % 60000) + '\t' +
           QByteArray::number(21000 + number % 1200) + '\t' + QByteArray::number(14500 + number % 800) + '\t' +
           QByteArray::number(10000 + number % 600) + '\t' + QByteArray::number(30500 + number % 40);
}

/// The cells of such a line as a row of the sheet; the older TRX has two references more.
inline QStringList typicalRow(int number, RowLayout layout = RowLayout::TrxNewer) {
    QByteArray line = typicalDataLine(number);
    if (layout == RowLayout::TrxOlder) {
        line += '\t' + QByteArray::number(25000 + number % 500) + '\t' + QByteArray::number(28000 + number % 300);
    }
    return sheetCells(number, *readDataLine(QString::fromLatin1(line), layout, Conversion()));
}

/// Lays out the sheet's header row for a newer TRX.
inline void layOut(DataSheet& sheet) {
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 512.0},
                    headerRow(HeaderPlace::GridOnOpening, RowLayout::TrxNewer));
}

/// Appends typical rows until the sheet has `rows`.
inline void fillTo(DataSheet& sheet, int rows, RowLayout layout = RowLayout::TrxNewer) {
    while (sheet.rowCount() < rows) {
        sheet.appendRow(typicalRow(sheet.rowCount() + 1, layout));
    }
}

} // namespace orv
