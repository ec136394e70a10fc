// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QByteArray>
#include <QString>

namespace orv {

/// The bytes of a sheet file: header lines, the file's column headers (spelled unlike the grid's), and the rows, eight
/// cells for TRX and four for GLOW, each followed by a tab, each row ended by a lone CR. For the older TRX the ninth
/// column is left out, for the newer one an empty eighth cell is added: that is the format. Empty for an unknown type.
/// `fileName` stands on the second line without its folders, on one line whatever is in it.
QByteArray sheetFileBytes(const DataSheet& sheet, const QString& fileName);

/// Whether such a file has every cell of the rows that came under the sheet's header row.
bool sheetFileHoldsAll(const DataSheet& sheet);

/// Reads the bytes of a sheet file, as saved by this program (rows ended by a lone CR) or by a spreadsheet (CR LF or
/// LF, cells in double quotes, empty cells at the end of a line left out or added). The first line tells the type
/// letter, the firmware and the number of rows, and the file must hold just so many.
LoadedSheet parseSheetFile(const QByteArray& bytes);

/// The same of a file; `error` also if it cannot be read.
LoadedSheet readSheetFile(const QString& name);

} // namespace orv
