// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/datasheet.h"

#include <QByteArray>
#include <QFile>

#include <optional>

namespace orv {

/// Reads the rows of a record file or of a downloaded text file one after another. Lines may end CR LF or LF.
class RecordLines {
public:
    struct Row {
        int number = 0;
        QByteArray cells; ///< As they stand on the sheet, joined by tabs.
    };

    /// Begins at that place of the open file, after the line that stands there if it is not the file's begin. `type` as
    /// it is known from elsewhere, if it is.
    RecordLines(QFile& file, DataSheet::Type type, qint64 begin = 0);

    /// The next row; nothing after the last. A row whose number is above the largest counts as unreadable.
    std::optional<Row> next(int largestNumber);

    /// Known once a row has been read: a type that such rows cannot be of has been replaced.
    const DataSheet::Type& type() const { return type_; }
    /// The type was told by rows and header, the firmware only by its generation.
    bool typeGuessed() const { return typeGuessed_; }
    bool cutOff() const { return cutOff_; }                  ///< The last line had no end and is left out.
    int unreadableLines() const { return unreadableLines_; } ///< Other lines that are no rows; they are left out.

private:
    QByteArrayView readPart();
    std::optional<QByteArray> nextLine();
    std::optional<Row> readRow(const QByteArray& line, int largestNumber);
    void fitType(qsizetype fields);

    QFile& file_;
    QByteArray buffer_; ///< For one part of a line.
    DataSheet::Type type_;
    bool newerHeader_ = false;
    bool hasRow_ = false;
    bool typeGuessed_ = false;
    bool cutOff_ = false;
    int unreadableLines_ = 0;
};

/// What the first lines of a file say it is.
enum class RecordedFile { None, Record, Download };
RecordedFile recordedFile(const QByteArray& begin);

} // namespace orv
