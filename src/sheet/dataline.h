// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/session.h"

#include <QStringList>

#include <array>
#include <optional>
#include <span>

namespace orv {

/// The columns of every row of the sheet; the values stand from `firstValue` on.
namespace sheetcolumn {
inline constexpr int record = 0;
inline constexpr int date = 1;
inline constexpr int time = 2;
inline constexpr int firstValue = 3;
/// Behind the columns that are shown, of a row whose values were converted: the counts, in the order of the values.
inline constexpr int firstCount = 9;
} // namespace sheetcolumn

/// What decides the columns of a row: the instrument's type and its firmware generation.
enum class RowLayout {
    Unknown,  ///< No instrument identified.
    Glow,     ///< One value.
    TrxOlder, ///< Firmware below 500: three angles, each followed by its reference.
    TrxNewer, ///< Firmware 500 or more: three angles, then one reference.
};

/// The least firmware number of the newer generation.
inline constexpr double newerGeneration = 500.0;

RowLayout rowLayout(InstrumentType type, double firmware);

/// How many values a data line of the layout carries after date and time count: 1, 6 or 4; for Unknown the most any
/// layout has, 6.
constexpr int valueCount(RowLayout layout) {
    return layout == RowLayout::Glow ? 1 : layout == RowLayout::TrxNewer ? 4 : 6;
}

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

/// The name of a column of the sheet: in English for files and comparisons, and as the screen shows it. A name that is
/// not the program's own, such as "Ref", is the same in each language.
Words columnName(const QString& name);

struct SettingsState;

/// One record of the instrument, live or from its memory, as the sheet and the files show it.
struct DataRow {
    QString date;            ///< Short date, or the field as received if it is no date.
    QString time;            ///< 24-hour time with unpadded hours, or the field as received if it is no count.
    QStringList values;      ///< In the order of the layout's value columns.
    QStringList counts = {}; ///< The values as received, if a conversion was asked for; else none.

    bool operator==(const DataRow&) const = default;
};

/// How counts become values: nothing for raw counts, else offset and scale for GLOW's one value or TRX's three angles.
struct Conversion {
    struct Line {
        double offset = 0.0;
        double scale = 1.0;
    };
    std::optional<Line> glow;
    std::optional<std::array<Line, 3>> trx;

    /// One for each of the layout's convertedValues(); none for raw counts.
    std::span<const Line> lines(RowLayout layout) const;
};

/// Which of the layout's values a conversion changes: GLOW's one, TRX's angles, never a reference.
std::span<const std::size_t> convertedValues(RowLayout layout);

/// (counts - offset) * scale, rounded down to five decimals; may be infinite or no number.
double calculatedValue(double counts, const Conversion::Line& line);

/// What the settings screen asks for at this moment.
Conversion requestedConversion(const SettingsState& settings);

/// Cuts a data line (date TAB time count TAB values, each field ended by a tab or the line's end) and converts it. More
/// fields than the layout has are left out; nothing if there are too few. For an Unknown layout one value is enough
/// and up to six are taken.
std::optional<DataRow> readDataLine(const QString& line, RowLayout layout, const Conversion& conversion);

/// calculatedValue() as plain decimal text; the counts themselves where that is 0 or they are no number.
QString convertedValue(const QString& counts, const Conversion::Line& line);

/// The row's cells from column 0: `number`, date, time, values; and the counts from sheetcolumn::firstCount on.
QStringList sheetCells(int number, const DataRow& row);

/// The same row as a line of the record file or of a downloaded text file, fields separated by tabs, without its end:
/// one value for GLOW, else the six LED1, REF1, LED2, REF2, LED3, REF3. With firmware 500 or more the one reference
/// stands in REF3; REF1 and REF2 are empty.
QString recordLine(int number, const DataRow& row, RowLayout layout);

} // namespace orv
