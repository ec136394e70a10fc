// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "formats/table.h"

#include <memory>

class QIODevice;

namespace orv {

enum class FileFormat {
    Csv,       ///< And NAME.csv-metadata.json beside it.
    NetCdf,    ///< NetCDF-4, with the netCDF library, which is loaded when the first table begins.
    JsonLines, ///< One object a row.
    Sheet      ///< As "Save As" writes it; at most 32767 rows.
};

/// The format that a file's name asks for: .csv, .nc, .jsonl or .ndjson, .txt, in either case; nothing for any other.
std::optional<FileFormat> formatOfName(const QString& fileName);

/// Writes a table row by row. Each call returns the empty text, or why it failed, to stand in a sentence; after a
/// failure nothing more is written.
///
/// A file appears under its name whole, at finish(), or not at all: a writer that goes before has left nothing. Only
/// rows that are written as they come stay, whole rows, whatever happens.
class RowWriter {
public:
    virtual ~RowWriter() = default;

    virtual Words begin(const TableDescription& table) = 0;
    virtual Words add(const TableRow& row) = 0;

    /// Something that happened while rows came, with the computer's time: it stands in the file's history, and of JSON
    /// Lines in an object of its own, {"note": ...}. Sheets and CSV on a device have no room for it.
    virtual Words note(const QString& sentence, const QDateTime& moment) = 0;

    /// The file holds as many rows as its format can; the next add() fails, and finish() does not.
    virtual bool isFull() const { return false; }

    /// Brings the rows of a file that is written as they come to the disk, with its name.
    virtual Words sync() { return {}; }

    /// How many values of the rows so far are left out because such a file has no column for them.
    virtual qint64 valuesLeftOut() const { return 0; }

    /// What the report says stands in the file too, where it has a place for it.
    virtual Words finish(const TableReport& report) = 0;
};

/// A file to be written.
struct OutputFile {
    /// What becomes of a file of that name.
    enum class Existing {
        Refuse,    ///< It stays, and begin() fails.
        KeepDated, ///< It is kept under a name with `now`.
        Replace    ///< The operator has been asked.
    };

    QString name;
    Existing existing = Existing::Refuse;
    QDateTime now = {};
    bool asItComes = false; ///< CSV and JSON Lines: each row is with the operating system when add() returns.
};

/// A writer of that format into a file.
std::unique_ptr<RowWriter> makeRowWriter(FileFormat format, const OutputFile& file);

/// A writer to an open device (standard output), each row as it comes; nothing for a format that needs a file. CSV has
/// no metadata there.
std::unique_ptr<RowWriter> makeRowWriter(FileFormat format, QIODevice& device);

} // namespace orv
