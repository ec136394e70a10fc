// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"
#include "link/comports.h"
#include "sheet/dataline.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QProperty>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace orv {

/// A part of the sheet's rows, both included.
using RowRange = std::pair<int, int>;

/// The data sheet: a header row and data rows of nine columns of text.
///
/// A row costs its text and little more, and appending one costs the same on a full sheet as on an empty one.
/// Characters are those the instrument can send (Latin-1).
class DataSheet {
public:
    static constexpr int columnCount = sheetcolumn::firstValue + valueCount(RowLayout::TrxOlder);
    static_assert(columnCount == sheetcolumn::firstCount);

    /// The type letter and firmware of the instrument whose rows these are: those of the header row under which the
    /// newest row came. A header row of another layout decides once a row has come under it, or none is left. An empty
    /// letter is a sheet of no known type.
    struct Type {
        QString letter;
        double firmware = 0.0;

        RowLayout layout() const { return rowLayout(instrumentType(letter), firmware); }
        bool operator==(const Type&) const = default;
    };

    /// Everything on the sheet.
    struct Contents {
        Type type;
        QStringList columnNames;
        Type headerType;
        QStringList header;
        bool headerOfOtherLayout = false; ///< Than the rows.
        int rowsOfOtherLayout = 0;
        int rowsFromFile = 0;
        bool seriesBegins = false;     ///< With the next row.
        std::vector<int> seriesStarts; ///< Rows but the first with which another run or download begins, ascending.
        std::vector<QByteArray> rows;  ///< The cells of a row joined by tabs.
    };

    const Type& type() const { return contents_.type; }
    /// The header row as it is laid out now.
    const QStringList& header() const { return contents_.header; }
    /// The header row of `type`.
    const QStringList& columnNames() const { return contents_.columnNames; }
    int rowCount() const { return static_cast<int>(contents_.rows.size()); }

    /// How many of the first rows came under the header row of another layout than `type`.
    int rowsOfOtherLayout() const { return contents_.rowsOfOtherLayout; }

    /// How many of the first rows are from a file, which does not tell whether their values are counts.
    int rowsFromFile() const { return contents_.rowsFromFile; }
    void noteRowsFromFile() { contents_.rowsFromFile = rowCount(); }

    /// A run or a download begins: the rows that come now are another series than those before.
    void beginSeries() { contents_.seriesBegins = true; }

    /// Whether the row is the first of another run or download than the row before it.
    bool beginsSeries(int row) const { return std::ranges::binary_search(contents_.seriesStarts, row); }
    /// Which run or download a row is of, counted from 0.
    int seriesOf(int row) const;

    /// Text of a cell; row 0 is the first data row. Empty where the row has no such cell. Behind the columns a row may
    /// have counts, from sheetcolumn::firstCount on.
    QString cell(int row, int column) const;

    /// The number that a cell holds; NaN if it holds none.
    double number(int row, int column) const;

    /// A row's cells joined by tabs, with those behind the columns.
    const QByteArray& joinedRow(int row) const { return contents_.rows[static_cast<std::size_t>(row)]; }

    /// Appends the first `cells` cells of a row to `text`, each followed by a tab; missing ones are empty.
    void writeCells(int row, int cells, QByteArray& text) const;

    /// Replaces the whole header row: cells beyond `header` become empty.
    void setHeader(const Type& type, const QStringList& header);

    void appendRow(const QStringList& cells);

    /// Appends a row whose cells are already joined by tabs.
    void appendJoinedRow(QByteArray row);

    /// Removes every row; the header row stays. Returns what was there.
    Contents removeRows();

    /// Replaces everything on the sheet, which has no rows, by what removeRows() returned.
    void putBack(Contents contents);

    /// How often rows have been removed, and how often the header row has been laid out or the type has become another:
    /// a reader that was away sees by them what it missed.
    int removals() const { return removals_; }
    int headerChanges() const { return headerChanges_; }

    /// Told after each kind of change.
    Signal<> headerChanged;
    Signal<> rowAppended;
    Signal<> rowsRemoved;

private:
    void takeHeader();
    QByteArrayView cellBytes(int row, int column) const;

    Contents contents_;
    int removals_ = 0;
    int headerChanges_ = 0;
};

/// The rows of a file, for the sheet.
struct LoadedSheet {
    DataSheet::Type type;
    std::vector<QByteArray> rows; ///< Cells joined by tabs.
    Words error;                  ///< Empty, or what is wrong with the file; then there are no rows.
};

/// A save or an export: how many rows there are in which file, with its path.
struct SavedRows {
    int count = 0; ///< 0: there is none to tell of.
    QString file;
    bool exported = false;
    QString besides = {}; ///< The file that belongs to an exported one, if there is one.

    bool operator==(const SavedRows&) const = default;
};

/// What the data sheet page shows beside the grid.
struct SheetState {
    QProperty<QString> counter{QStringLiteral("0")};         ///< Rows on the sheet.
    QProperty<QString> records{QStringLiteral("0")};         ///< "Records :", automatic saves of this run.
    QProperty<QString> fileName{QStringLiteral("Untitled")}; ///< `Text37`.
    QProperty<int> topRow{0};                                ///< Grid row to bring to the top; the header is row 0.
    QProperty<int> currentRow{0};                            ///< Grid cell that a procedure visited last.
    QProperty<int> currentColumn{0};
    QProperty<bool> unsaved{false}; ///< The sheet holds rows that no file has.
    QProperty<int> rowsInFile{0};   ///< Its first rows, which the file of the last save or opening has.
    QProperty<QString> file;        ///< That the rows were saved to or opened from last, with its path; else empty.
    QProperty<SavedRows> saved;     ///< The last save or export, until the operator clears or replaces the sheet.
    QProperty<bool> rowsSinceSaved{false}; ///< Rows have come after it; without one it means nothing.
    /// It holds rows of another type than an instrument that was connected to it since.
    QProperty<bool> hasOtherType{false};
    QProperty<int> clearedRows{0}; ///< Rows that "Clear All" took and that can still be brought back.
};

/// What every procedure that fills the sheet shares: laying out, clearing, adding rows, and counting them in `plc`.
class SheetRows {
public:
    SheetRows(Session& session, ComPorts& ports, DataSheet& sheet, SheetState& shown);

    /// Writes the header row of the connected type when a port has been opened; nothing for an unknown type.
    void layOutOnOpening();

    /// "Clear Spread Sheet": removes all rows without asking and writes the header row, TRX's for any letter that is
    /// not GLOW's. Returns what was on the sheet.
    DataSheet::Contents clearSpreadSheet();

    /// Brings back what clearSpreadSheet() returned, unless rows have come since.
    void putBack(DataSheet::Contents contents);

    /// A run or a download begins.
    void beginSeries() { sheet_.beginSeries(); }

    /// Adds the row and returns its number. Throws RuntimeError Overflow, with nothing changed, if `plc` could not
    /// count it.
    int addRow(const DataRow& row);

    /// Replaces everything on the sheet by a loaded file; its rows are not unsaved.
    void replaceBy(LoadedSheet loaded);

    /// The same with rows that no sheet file has: they are unsaved.
    void recover(LoadedSheet recorded);

    /// Brings the last ten rows into view once there are more than 11.
    void followNewest();

    /// Whether the instrument has said what it is. If not, its lines could not be read nor its rows saved, and the
    /// operator is told to connect again.
    bool instrumentIsKnown() const;

    /// The layout of the connected instrument's data lines.
    RowLayout connectedLayout() const;
    DataSheet::Type connectedType() const {
        return {.letter = session_.state.Vartemp, .firmware = session_.state.firmware};
    }

private:
    DataSheet::Contents clear();
    void countRows();

    Session& session_;
    ComPorts& ports_;
    DataSheet& sheet_;
    SheetState& shown_;
};

} // namespace orv
