// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetformat.h"

#include "base/files.h"
#include "base/text.h"
#include "base/words.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace orv {

namespace {

/// The lines of a file whatever ends them: CR LF, CR or LF.
class Lines {
public:
    explicit Lines(const QByteArray& bytes)
        : bytes_(bytes) {}

    std::optional<QByteArrayView> next() {
        if (at_ >= bytes_.size()) {
            return std::nullopt;
        }
        qsizetype end = at_;
        while (end < bytes_.size() && bytes_[end] != '\r' && bytes_[end] != '\n') {
            ++end;
        }
        const QByteArrayView line = QByteArrayView(bytes_).sliced(at_, end - at_);
        const bool pair = end + 1 < bytes_.size() && bytes_[end] == '\r' && bytes_[end + 1] == '\n';
        at_ = end + (pair ? 2 : 1);
        return line;
    }

    /// The next line that holds anything but blanks and tabs.
    std::optional<QByteArrayView> nextFilled() {
        std::optional<QByteArrayView> line = next();
        while (line && line->trimmed().isEmpty()) {
            line = next();
        }
        return line;
    }

private:
    const QByteArray& bytes_;
    qsizetype at_ = 0;
};

QByteArrayView unquoted(QByteArrayView cell) {
    return cell.size() >= 2 && cell.front() == '"' && cell.back() == '"' ? cell.sliced(1, cell.size() - 2) : cell;
}

/// Whether double quotes around a cell are a spreadsheet's, or stood in the cell when this program wrote it: nothing
/// else leaves the third line of its header as it is.
enum class Quotes { OfSpreadsheet, OfCell };

Quotes quotesIn(const QByteArray& bytes) {
    return bytes.contains("\r\n\r\r\r\n") ? Quotes::OfCell : Quotes::OfSpreadsheet;
}

/// The first `cells` cells of a line, joined by tabs; missing ones are empty.
QByteArray rowOf(QByteArrayView line, int cells, Quotes quotes) {
    QByteArray row;
    row.reserve(line.size() + cells);
    for (int cell = 0; cell < cells; ++cell) {
        const qsizetype tab = line.indexOf('\t');
        const QByteArrayView text = tab < 0 ? line : line.first(tab);
        if (cell > 0) {
            row += '\t';
        }
        row += quotes == Quotes::OfSpreadsheet ? unquoted(text) : text;
        line = tab < 0 ? QByteArrayView() : line.sliced(tab + 1);
    }
    return row;
}

LoadedSheet refuse(const Words& error) {
    LoadedSheet refused;
    refused.error = error;
    return refused;
}

/// Type and number of rows from the first line: letter TAB firmware, blank, count. The count is negative if the line
/// is no such line.
struct FirstLine {
    DataSheet::Type type;
    double count = -1.0;
};

FirstLine readFirstLine(QByteArrayView line) {
    FirstLine first;
    const QByteArrayList cells = rowOf(line, 2, Quotes::OfSpreadsheet).split('\t');
    const QByteArrayList numbers = cells[1].simplified().split(' ');
    const QString letter = QString::fromLatin1(cells[0]);
    if (instrumentType(letter) == InstrumentType::Unknown || numbers.size() != 2) {
        return first;
    }
    bool isCount = false;
    const int count = numbers[1].toInt(&isCount);
    const double firmware = leadingNumber(QString::fromLatin1(numbers[0]));
    if (isCount && std::isfinite(firmware)) {
        first.type = {.letter = letter, .firmware = firmware};
        first.count = count;
    }
    return first;
}

/// Eight cells for TRX: the older one's ninth is left out, the newer one's eighth is empty.
constexpr int cellsPerRow(RowLayout layout) {
    return layout == RowLayout::Glow ? 4 : 8;
}

} // namespace

QByteArray sheetFileBytes(const DataSheet& sheet, const QString& fileName) {
    const RowLayout layout = sheet.type().layout();
    if (layout == RowLayout::Unknown) {
        return {};
    }
    const QString name = QFileInfo(fileName).fileName().replace(u'\r', u' ').replace(u'\n', u' ');
    QString header = sheet.type().letter + u'\t' + plainNumber(sheet.type().firmware) +
                     printedNumber(sheet.rowCount()) + QLatin1String("\r\n") + name + QLatin1String("\r\n\r\r\r\n") +
                     headerRow(HeaderPlace::SheetFile, layout).join(u'\t');
    if (layout == RowLayout::Glow) {
        header += u'\t';
    }
    constexpr qsizetype usualRowLength = 64;
    QByteArray bytes;
    bytes.reserve(header.size() + 2 + sheet.rowCount() * usualRowLength);
    bytes += header.toUtf8() + "\r\n";
    for (int row = 0; row < sheet.rowCount(); ++row) {
        sheet.writeCells(row, cellsPerRow(layout), bytes);
        bytes += '\r';
    }
    return bytes;
}

bool sheetFileHoldsAll(const DataSheet& sheet) {
    const int cells = cellsPerRow(sheet.type().layout());
    for (int row = sheet.rowsOfOtherLayout(); row < sheet.rowCount(); ++row) {
        for (int column = cells; column < DataSheet::columnCount; ++column) {
            if (!sheet.cell(row, column).isEmpty()) {
                return false;
            }
        }
    }
    return true;
}

LoadedSheet parseSheetFile(const QByteArray& bytes) {
    Lines lines(bytes);
    const FirstLine first = readFirstLine(lines.next().value_or(QByteArrayView()));
    if (first.count < 0) {
        return refuse(Words::tr("It is not a sheet: its first line does not tell the instrument's type, its firmware "
                                "and the number of rows. Choose a file that \"Save As\" has written."));
    }
    if (first.count > std::numeric_limits<qint16>::max()) {
        return refuse(Words::tr("It has %1 rows; the sheet holds at most %2. Split the file and correct the number "
                                "of rows on the first line of each part.")
                          .arg(plainNumber(first.count))
                          .arg(std::numeric_limits<qint16>::max()));
    }
    // Everything that writes such files ends the last line too, so half a number is never taken for a whole one.
    if (!bytes.endsWith('\r') && !bytes.endsWith('\n')) {
        return refuse(Words::tr("It is cut short: its last line has no end. If nothing is missing, add a line end "
                                "to it."));
    }
    lines.next(); // the file's name; it may have been renamed since
    if (!lines.nextFilled()) {
        return refuse(Words::tr("It is cut short: the column headers are missing."));
    }
    LoadedSheet loaded;
    loaded.type = first.type;
    const int cells = cellsPerRow(first.type.layout());
    const auto count = static_cast<std::size_t>(first.count);
    const Quotes quotes = quotesIn(bytes);
    loaded.rows.reserve(count);
    std::size_t found = 0;
    while (const auto line = lines.nextFilled()) {
        QByteArray row = rowOf(*line, cells, quotes);
        if (row.trimmed().isEmpty()) {
            continue; // but for quotes, or what stands behind the columns, a line like those between
        }
        ++found;
        if (found <= count) {
            loaded.rows.push_back(std::move(row));
        }
    }
    if (found != count) {
        return refuse(Words::tr("%1 Its first line promises %2 rows, but there are %3. If rows were taken out or "
                                "added on purpose, correct the number on the first line.")
                          .arg(found < count ? Words::tr("It is cut short.") : Words::tr("It holds more than it says."))
                          .arg(count)
                          .arg(found));
    }
    return loaded;
}

LoadedSheet readSheetFile(const QString& name) {
    constexpr qint64 largestFile = qint64{64} * 1024 * 1024; // a full sheet is a few megabytes
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) {
        // Reading a device or a pipe might never end.
        return refuse(Words::tr("It is a folder or a device, not a file."));
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return refuse(Words::tr("It cannot be read: %1.").arg(errorText(file)));
    }
    if (file.size() > largestFile) {
        return refuse(Words::tr("It is far too large to be a sheet."));
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return refuse(Words::tr("It cannot be read: %1.").arg(errorText(file)));
    }
    return parseSheetFile(bytes);
}

} // namespace orv
