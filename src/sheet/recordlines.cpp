// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordlines.h"

#include "sheet/recordfile.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orv {

namespace {

constexpr qint64 longestLine = 65536;

constexpr qsizetype glowFields = sheetcolumn::firstValue + valueCount(RowLayout::Glow);
constexpr qsizetype trxFields = sheetcolumn::firstValue + valueCount(RowLayout::TrxOlder);

constexpr const char* recordBegin = "Orvtemp.tmp\t";
constexpr const char* downloadBegin = "Filename\t";

/// What lines of the headers begin with, or are.
constexpr std::array<const char*, 4> headerBegins{recordBegin, downloadBegin, "Date\tTime\tLED1\t",
                                                  "Data Point\tDate\t"};
constexpr std::array<const char*, 4> headerLines{"", "Device File", "Data File", "Data point\t"};

bool isHeaderLine(const QByteArray& line) {
    return std::ranges::any_of(headerBegins, [&line](const char* begin) { return line.startsWith(begin); }) ||
           std::ranges::any_of(headerLines, [&line](const char* whole) { return line == whole; });
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

} // namespace

RecordedFile recordedFile(const QByteArray& begin) {
    if (begin.startsWith(recordBegin)) {
        return RecordedFile::Record;
    }
    return begin.startsWith(downloadBegin) ? RecordedFile::Download : RecordedFile::None;
}

RecordLines::RecordLines(QFile& file, DataSheet::Type type, qint64 begin)
    : file_(file)
    , buffer_(longestLine + 1, Qt::Uninitialized) // a NUL follows what is read
    , type_(std::move(type)) {
    const QByteArray header = file_.read(longestRecordHeader);
    // The references of each angle belong to the newer firmware in one header and to the older in the other.
    newerHeader_ =
        recordedFile(header) == RecordedFile::Download ? !header.contains("\t100 REF\t") : header.contains("\tREF1\t");
    file_.seek(begin);
    if (begin > 0) {
        nextLine(); // the rest of a line
    }
}

std::optional<RecordLines::Row> RecordLines::next(int largestNumber) {
    while (const auto line = nextLine()) {
        if (isHeaderLine(*line)) {
            continue;
        }
        auto row = readRow(*line, largestNumber);
        if (row) {
            hasRow_ = true;
            return row;
        }
        ++unreadableLines_;
    }
    return std::nullopt;
}

/// What follows, to the end of its line or of the buffer.
QByteArrayView RecordLines::readPart() {
    const qint64 length = file_.readLine(buffer_.data(), buffer_.size());
    return QByteArrayView(buffer_).first(std::max<qint64>(length, 0));
}

std::optional<QByteArray> RecordLines::nextLine() {
    QByteArray line = readPart().toByteArray();
    while (!line.endsWith('\n')) {
        const QByteArrayView more = readPart();
        if (more.isEmpty()) {
            cutOff_ = !line.isEmpty();
            return std::nullopt;
        }
        line = "(too long)" + more.last(1).toByteArray();
    }
    while (line.endsWith('\n') || line.endsWith('\r')) {
        line.chop(1);
    }
    return line;
}

std::optional<RecordLines::Row> RecordLines::readRow(const QByteArray& line, int largestNumber) {
    QByteArrayList fields = line.split('\t');
    bool isNumber = false;
    const int number = fields[0].toInt(&isNumber);
    // A power failure leaves blocks of NUL characters.
    if (!isNumber || number < 1 || number > largestNumber || line.contains('\0') ||
        (fields.size() != glowFields && fields.size() != trxFields)) {
        return std::nullopt;
    }
    if (!hasRow_) {
        fitType(fields.size());
    }
    auto cells = sheetRow(std::move(fields), type_.layout());
    return cells ? std::optional(Row{.number = number, .cells = std::move(*cells)}) : std::nullopt;
}

/// Keeps the type that is known if rows of so many fields can be of it.
void RecordLines::fitType(qsizetype fields) {
    const RowLayout layout = type_.layout();
    if (layout != RowLayout::Unknown && (layout == RowLayout::Glow) == (fields == glowFields)) {
        return;
    }
    typeGuessed_ = true;
    type_.letter = fields == glowFields ? QStringLiteral("F") : QStringLiteral("V");
    type_.firmware = newerHeader_ ? newerGeneration : 0.0;
}

} // namespace orv
