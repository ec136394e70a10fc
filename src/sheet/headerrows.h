// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace orv {

/// The columns of every row of the sheet; the values stand from `firstValue` on.
namespace sheetcolumn {
inline constexpr int record = 0;
inline constexpr int date = 1;
inline constexpr int time = 2;
inline constexpr int firstValue = 3;
} // namespace sheetcolumn

/// What decides the columns of a row: the instrument's type and its firmware generation.
enum class RowLayout {
    Unknown,  ///< No instrument identified.
    Glow,     ///< One value.
    TrxOlder, ///< Firmware below 500: three angles, each followed by its reference.
    TrxNewer, ///< Firmware 500 or more: three angles, then one reference.
};

/// The layout for a type letter (either case) and a firmware number.
RowLayout rowLayout(const QString& typeLetter, double firmware);

/// How many values a data line of the layout carries after date and time count: 1, 6 or 4; for Unknown the most any
/// layout has, 6.
int valueCount(RowLayout layout);

/// Where a header row stands. The same columns are named differently in each place: readers of the files and users
/// of the grid know them by these names.
enum class HeaderPlace {
    GridOnOpening,  ///< The sheet when a port is opened.
    GridOnClearing, ///< The sheet when it is cleared.
    SheetFile,
    DownloadFile,
};

/// The header texts of a layout, left to right; none for Unknown.
QStringList headerRow(HeaderPlace place, RowLayout layout);

/// The header of the record file's rows, the same for every type. The references LED by LED belong to firmware 500
/// or more here, the reverse of the sheet's layouts.
QStringList recordFileHeader(double firmware);

} // namespace orv
