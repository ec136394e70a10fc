// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/table.h"

#include <memory>

namespace orv {

/// A file of ours, read row by row.
class TableReader {
public:
    virtual ~TableReader() = default;

    /// What the file tells of its rows. Its values are Unknown; who knows better may say so with describe() before the
    /// first row.
    virtual const TableDescription& table() const = 0;
    virtual void describe(const TableDescription& table) = 0;

    /// The next row; false after the last one.
    virtual bool next(TableRow& row) = 0;

    /// What could not be read so far.
    virtual const TableReport& report() const = 0;

    /// Why reading has ended before the file's end; empty if it has not.
    virtual QString error() const = 0;
};

struct OpenedTable {
    std::unique_ptr<TableReader> reader; ///< Nothing if the file cannot be read or is none of ours.
    QString error;                       ///< Then why, in a sentence.
};

/// Opens a saved sheet, a record file or a text download, recognised by what it holds. A record file and a download are
/// read line by line, however long they are; all rows of a record file come, also those from before its numbers began
/// anew.
OpenedTable openTable(const QString& name);

} // namespace orv
