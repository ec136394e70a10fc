// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace orv {

/// What a sheet file holds.
struct LoadedSheet {
    DataSheet::Type type;
    std::vector<QByteArray> rows; ///< Cells joined by tabs: eight for TRX, four for GLOW.
    QString error;                ///< Empty, or what is wrong with the file; then there are no rows.
};

/// Reads the bytes of a sheet file, as saved by this program (rows ended by a lone CR) or by a spreadsheet (CR LF or
/// LF, cells in double quotes, empty cells at the end of a line left out or added). The first line tells the type
/// letter, the firmware and the number of rows, and the file must hold just so many.
LoadedSheet parseSheetFile(const QByteArray& bytes);

} // namespace orv
