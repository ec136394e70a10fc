// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace orv {

/// No header of a record file is longer.
inline constexpr qint64 longestRecordHeader = 512;

/// The header of a record file that is begun at `start`. Its columns are the same for every type; the references LED by
/// LED belong to the newer firmware here, the reverse of the sheet's layouts. The rows below it are recordLine()'s.
QByteArray recordHeader(const QDateTime& start, double firmware);

/// Whether a file's first bytes are a header with nothing after it, or what was written of one.
bool isRecordHeaderOrItsBegin(const QByteArray& bytes);

/// What can be read of the record file of a run that did not end.
struct RecordedRows {
    LoadedSheet sheet;           ///< Type and rows, each with the number it had; `error` if the file cannot be read.
    bool typeGuessed = false;    ///< The type was told by the rows and the header, the firmware only by its generation.
    bool cutOff = false;         ///< The last line had no end and is left out.
    int unreadableLines = 0;     ///< Other lines that are no rows; they are left out.
    int missingRows = 0;         ///< Numbers left out between the first row and the last.
    bool hasEarlierRows = false; ///< The sheet was cleared (saved automatically, say) during the run; rows from before
                                 ///< that are left out.
};

/// Reads the rows that a run had on the sheet: those after the last place where the numbers begin anew. `type` as the
/// run's lock tells it. Lines may end CR LF or LF. At most the last 16 MB are read; a sheet is a quarter of that. There
/// are no rows in a file that does not exist.
RecordedRows readRecordedRows(const QString& path, const DataSheet::Type& type);

} // namespace orv
