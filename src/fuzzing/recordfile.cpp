// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "fuzzing/fuzzing.h"
#include "testing/fakes.h"

#include <QFileInfo>

#include <cmath>

namespace orv::fuzzing {

namespace {

constexpr const char* recordName = "Orvtemp.tmp";

/// What a row of these cells is in a record file.
DataRow rowOf(const QByteArray& cells) {
    const QStringList texts = QString::fromLatin1(cells).split(u'\t');
    return {.date = texts[1], .time = texts[2], .values = texts.mid(sheetcolumn::firstValue)};
}

/// Rows that were read are read again, the same, from a record file that is made of them.
void readAgain(const RecordedRows& found) {
    QByteArray bytes = recordHeader(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)), found.sheet.type.firmware);
    for (const QByteArray& cells : found.sheet.rows) {
        const int number = cells.first(cells.indexOf('\t')).toInt();
        bytes += recordLine(number, rowOf(cells), found.sheet.type.layout()).toLatin1() + "\r\n";
    }
    const RecordedRows again = readRecordedRows(memoryFile(bytes), found.sheet.type);
    require(again.sheet.type == found.sheet.type, "the type is another");
    require(again.sheet.rows.size() == found.sheet.rows.size() && again.unreadableLines == 0 && !again.cutOff &&
                !again.hasEarlierRows && again.missingRows == found.missingRows && !again.typeGuessed,
            "rows are lost when they are recorded again");
    for (std::size_t at = 0; at < again.sheet.rows.size(); ++at) {
        require(rowOf(again.sheet.rows[at]) == rowOf(found.sheet.rows[at]), "a row is another");
    }
}

} // namespace

void runlock(Input input) {
    const QByteArray lockBytes = input.piece('\n') + (input.below(2) == 0 ? "\n" : "");
    const QByteArray markBytes = input.piece('\n') + '\n';
    const QByteArray bytes = input.rest();
    const QString path = scratchFile(recordName, bytes);
    scratchFile("Orvtemp.tmp.lock", lockBytes);
    scratchFile("Orvtemp.tmp.saved", markBytes);

    static const TestClock clock;
    const RecordFile record(clock, path);
    require(record.isUnended() && record.hasUnendedRun(), "a lock that stands is not seen");
    const DataSheet::Type type = record.unendedType();
    require(type.letter.isEmpty() || type.layout() != RowLayout::Unknown, "a lock tells of an unknown type");
    require(std::isfinite(type.firmware), "a lock tells of an infinite firmware");
    const QString earlier = record.unendedEarlierFile();
    require(earlier.isEmpty() || QFileInfo(earlier).absolutePath() == QFileInfo(path).absolutePath(),
            "the earlier file is in another folder", [&earlier] { return earlier; });
    if (record.isSaved()) {
        require(markBytes == QByteArray::number(bytes.size()) + '\t' + bytes.first(bytes.indexOf('\n') + 1),
                "another file's mark counts");
    }
}

void recordfile(Input input) {
    constexpr double firmwares[] = {0.0, 499.0, 500.0, 512.0};
    constexpr const char* letters[] = {"", "V", "F"};
    const DataSheet::Type type{.letter = QLatin1String(letters[input.below(3)]), .firmware = firmwares[input.below(4)]};
    const QByteArray bytes = input.rest();
    const RecordedRows found = readRecordedRows(memoryFile(bytes), type);
    require(found.sheet.error.isEmpty(), "a file that can be read was not");
    if (found.sheet.rows.empty()) {
        return;
    }
    const RowLayout layout = found.sheet.type.layout();
    require(layout != RowLayout::Unknown, "rows have no layout");
    int last = 0;
    int missing = 0;
    for (const QByteArray& cells : found.sheet.rows) {
        require(cells.count('\t') == sheetcolumn::firstValue + valueCount(layout) - 1,
                "a row has other cells than its layout");
        const int number = cells.first(cells.indexOf('\t')).toInt();
        require(number > last && number <= 32767, "numbers do not rise");
        missing += last == 0 ? 0 : number - last - 1;
        last = number;
    }
    require(missing == found.missingRows, "the missing rows are not those between the numbers");
    const auto lines = bytes.count('\n');
    require(static_cast<qsizetype>(found.sheet.rows.size()) + found.unreadableLines <= lines,
            "there are more rows than lines");
    require(found.cutOff == (!bytes.isEmpty() && !bytes.endsWith('\n')), "whether the last line is cut off is wrong");
    readAgain(found);
}

} // namespace orv::fuzzing
