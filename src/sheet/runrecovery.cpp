// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runrecovery.h"

#include "base/text.h"
#include "sheet/folderplace.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace orv {

namespace {

constexpr qint64 largestPart = qint64{16} * 1024 * 1024;
constexpr qint64 longestLine = 65536;
constexpr qint64 headerBytes = 512; ///< The header is shorter.

constexpr qsizetype cellsBeforeValues = 3;
constexpr qsizetype glowFields = cellsBeforeValues + 1;
constexpr qsizetype trxFields = cellsBeforeValues + 6;

/// A firmware number of the older generation, where only the generation is known.
constexpr double olderGeneration = 0.0;

bool isHeaderLine(const QByteArray& line) {
    return line.isEmpty() || line.startsWith("Orvtemp.tmp\t") || line == "Device File" || line == "Data point\t" ||
           line.startsWith("Date\tTime\tLED1\t");
}

/// The row's number; nothing if the line is no row of any layout.
std::optional<int> rowNumber(const QByteArray& line, const QByteArrayList& fields) {
    bool isNumber = false;
    const int number = fields[0].toInt(&isNumber);
    const bool possible = isNumber && number >= 1 && number <= std::numeric_limits<qint16>::max() &&
                          (fields.size() == glowFields || fields.size() == trxFields);
    // A power failure leaves blocks of NUL characters.
    return possible && !line.contains('\0') ? std::optional(number) : std::nullopt;
}

/// The row's cells as they stand on the sheet; nothing if the line is no row of the layout.
std::optional<QByteArray> sheetRow(QByteArrayList fields, RowLayout layout) {
    if (fields.size() != (layout == RowLayout::Glow ? glowFields : trxFields)) {
        return std::nullopt;
    }
    if (layout == RowLayout::TrxNewer) {
        // REF1 and REF2 are empty.
        constexpr qsizetype firstReference = 4;
        constexpr qsizetype secondReference = 6;
        if (!fields[firstReference].isEmpty() || !fields[secondReference].isEmpty()) {
            return std::nullopt;
        }
        fields.remove(secondReference);
        fields.remove(firstReference);
    }
    return fields.join('\t');
}

class Reader {
public:
    Reader(QFile& file, const DataSheet::Type& type)
        : file_(file) {
        found_.sheet.type = type;
    }

    RecordedRows read() {
        newerHeader_ = file_.read(headerBytes).contains("\tREF1\t");
        const qint64 begin = std::max<qint64>(0, file_.size() - largestPart);
        file_.seek(begin);
        if (begin > 0) {
            found_.hasEarlierRows = true;
            nextLine(); // the rest of a line
        }
        while (const auto line = nextLine()) {
            take(*line);
        }
        return std::move(found_);
    }

private:
    /// The next line without its end. A last line without an end is no line.
    std::optional<QByteArray> nextLine() {
        QByteArray line = file_.readLine(longestLine);
        while (!line.endsWith('\n')) {
            const QByteArray more = file_.readLine(longestLine);
            if (more.isEmpty()) {
                found_.cutOff = !line.isEmpty();
                return std::nullopt;
            }
            line = "(too long)" + more.right(1);
        }
        while (line.endsWith('\n') || line.endsWith('\r')) {
            line.chop(1);
        }
        return line;
    }

    void take(const QByteArray& line) {
        if (isHeaderLine(line)) {
            return;
        }
        QByteArrayList fields = line.split('\t');
        const auto number = rowNumber(line, fields);
        if (number && found_.sheet.rows.empty()) {
            fitType(fields.size());
        }
        auto row = number ? sheetRow(std::move(fields), found_.sheet.type.layout()) : std::nullopt;
        if (!row) {
            ++found_.unreadableLines;
            return;
        }
        if (*number <= lastNumber_) {
            found_.hasEarlierRows = true;
            found_.sheet.rows.clear();
            found_.missingRows = 0;
        }
        if (!found_.sheet.rows.empty()) {
            found_.missingRows += *number - lastNumber_ - 1;
        }
        lastNumber_ = *number;
        found_.sheet.rows.push_back(std::move(*row));
    }

    /// Keeps the type that is known if rows of so many fields can be of it.
    void fitType(qsizetype fields) {
        DataSheet::Type& type = found_.sheet.type;
        const RowLayout layout = type.layout();
        if (layout != RowLayout::Unknown && (layout == RowLayout::Glow) == (fields == glowFields)) {
            return;
        }
        found_.typeGuessed = true;
        type.letter = fields == glowFields ? QStringLiteral("F") : QStringLiteral("V");
        type.firmware = newerHeader_ ? newerGeneration : olderGeneration;
    }

    QFile& file_;
    RecordedRows found_;
    bool newerHeader_ = false;
    int lastNumber_ = 0;
};

} // namespace

RecordedRows readRecordedRows(const QString& path, const DataSheet::Type& type) {
    QFile file(path);
    if (!file.exists()) {
        return {};
    }
    RecordedRows found;
    if (!file.open(QIODevice::ReadOnly)) {
        found.sheet.error = file.errorString();
        return found;
    }
    found = Reader(file, type).read();
    if (file.error() != QFileDevice::NoError) {
        found.sheet.error = file.errorString();
    }
    return found;
}

namespace {

QString counted(qsizetype count, const QString& what) {
    return QStringLiteral("%1 %2%3").arg(count).arg(what, count == 1 ? QString() : QStringLiteral("s"));
}

bool holdsNothing(const RecordedRows& found) {
    return found.sheet.error.isEmpty() && found.sheet.rows.empty() && !found.cutOff && found.unreadableLines == 0;
}

/// What of the record file is not on the sheet and why; empty if everything is.
QString notRecovered(const RecordedRows& found) {
    QStringList notes;
    if (found.cutOff) {
        notes << QStringLiteral("The last line was cut off and has been left out.");
    }
    if (found.unreadableLines > 0) {
        notes << QStringLiteral("%1 could not be read and left out.")
                     .arg(counted(found.unreadableLines, QStringLiteral("line")));
    }
    if (found.missingRows > found.unreadableLines) {
        notes << QStringLiteral("The numbers of the rows have gaps: %1 missing in the record file.")
                     .arg(found.missingRows == 1 ? QStringLiteral("1 row is")
                                                 : QStringLiteral("%1 rows are").arg(found.missingRows));
    }
    if (found.hasEarlierRows) {
        notes << QStringLiteral("The sheet was saved or cleared during the run; rows from before that are left out.");
    }
    if (found.typeGuessed) {
        notes << QStringLiteral("The instrument's type was told by the rows; the sheet says %1 with firmware %2.")
                     .arg(instrumentName(instrumentType(found.sheet.type.letter)),
                          plainNumber(found.sheet.type.firmware));
    }
    const int number = found.sheet.rows.front().split('\t').first().toInt();
    if (number > 1 && found.unreadableLines == 0) {
        notes << QStringLiteral(
                     "The run began with row %1. If the rows before it were of a run too and not saved, they "
                     "are in a file of this folder named with date and time.")
                     .arg(number);
    }
    return notes.join(u'\n');
}

} // namespace

RunRecovery::RunRecovery(const Parts& parts)
    : p_(parts) {}

void RunRecovery::takeOverFromFreePlaces(int ownPlace) {
    const FileNames plain;
    for (int place = 1; place <= FolderPlace::mostPlaces; ++place) {
        const QString other = FolderPlace::nameIn(place, plain.record);
        if (place == ownPlace || p_.recordFile.hasUnendedRun() || !RunLock(other).stands()) {
            continue;
        }
        if (const auto held = FolderPlace::hold(place)) {
            p_.recordFile.takeUnendedFrom(other);
        }
    }
}

void RunRecovery::offer() {
    if (!p_.recordFile.isUnended()) {
        return;
    }
    file_ = p_.recordFile.path();
    RecordedRows found = readRecordedRows(file_, p_.recordFile.unendedType());
    if (holdsNothing(found) && !p_.recordFile.unendedEarlierFile().isEmpty()) {
        // It died before the run's first row; what was on the sheet from the run before is in that one's file.
        file_ = p_.recordFile.unendedEarlierFile();
        found = readRecordedRows(file_, p_.recordFile.unendedType());
    }
    const auto rows = static_cast<qsizetype>(found.sheet.rows.size());
    if (!found.sheet.error.isEmpty()) {
        tell(QStringLiteral("The last run in this folder did not end, and its record file %1 cannot be read: %2.\n\nIt "
                            "stays as it is. Its rows are offered again at the next start.")
                 .arg(QFileInfo(file_).absoluteFilePath(), found.sheet.error));
    } else if (holdsNothing(found)) {
        p_.recordFile.dropUnended();
    } else if (rows == 0) {
        keep(QStringLiteral(
            "The last run in this folder did not end, and its record file has no row that can be read. "));
    } else if (p_.questions.askYesNo(
                   QStringLiteral("ORV Host Program"),
                   QStringLiteral("The last run in this folder did not end. Load its %1 into the sheet?")
                       .arg(counted(rows, QStringLiteral("row"))))) {
        load(std::move(found));
    } else {
        keep(QString());
    }
}

void RunRecovery::load(RecordedRows found) {
    // Ticks went on while the question was open.
    if (!p_.recordFile.isUnended() || !p_.files.ask()) {
        return;
    }
    const QString left = notRecovered(found);
    p_.rows.recover(std::move(found.sheet));
    p_.recordFile.unendedRecovered();
    if (!left.isEmpty()) {
        tell(QStringLiteral(
                 "The rows of the last run are on the sheet.\n\n%1\n\nNothing is lost: the record file %2 has "
                 "everything.%3")
                 .arg(left, QFileInfo(file_).absoluteFilePath(),
                      isRecordFile() ? QStringLiteral(" The next run keeps it under a name with date and time.")
                                     : QString()));
    }
}

void RunRecovery::keep(const QString& what) {
    if (!p_.recordFile.isUnended()) {
        return;
    }
    QString keptAs = file_;
    QString reason;
    if (isRecordFile()) {
        reason = p_.recordFile.keepUnended(keptAs);
    } else {
        p_.recordFile.dropUnended();
    }
    if (reason.isEmpty()) {
        tell(
            what +
            QStringLiteral("The record file of the last run is kept as %1.").arg(QFileInfo(keptAs).absoluteFilePath()));
    } else {
        tell(what +
             QStringLiteral("The record file %1 could not be kept under a name with date and time: %2.\n\nIt stays "
                            "as it is, and no run will overwrite it. Move it yourself.")
                 .arg(QFileInfo(p_.recordFile.path()).absoluteFilePath(), reason));
    }
}

bool RunRecovery::isRecordFile() const {
    return file_ == p_.recordFile.path();
}

void RunRecovery::tell(const QString& text) {
    p_.session.messages.show(
        {.title = QStringLiteral("ORV Host Program"), .text = text, .icon = Message::Icon::Information});
}

} // namespace orv
