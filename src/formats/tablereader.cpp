// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/tablereader.h"

#include "base/files.h"
#include "formats/rowparser.h"
#include "sheet/recordfile.h"
#include "sheet/recordlines.h"
#include "sheet/sheetformat.h"

#include <QFile>
#include <QFileInfo>

#include <limits>
#include <utility>

namespace orv {

namespace {

/// What a file of ours tells of its rows.
TableDescription described(RowLayout layout, const QString& name) {
    TableDescription table;
    table.layout = layout;
    table.values = TableDescription::Values::Unknown;
    table.source = QFileInfo(name).fileName();
    return table;
}

/// Any of the files; they differ in where the next row's cells come from.
class Reader : public TableReader {
public:
    explicit Reader(const TableDescription& table)
        : parser_(table) {}

    const TableDescription& table() const override { return parser_.table(); }
    void describe(const TableDescription& table) override { parser_ = RowParser(table); }

    bool next(TableRow& row) override {
        const auto cells = nextCells();
        if (!cells) {
            end(parser_.report);
            return false;
        }
        row = parser_.readJoined(QString::fromLatin1(*cells));
        return true;
    }

    const TableReport& report() const override { return parser_.report; }
    QString error() const override { return {}; }

private:
    virtual std::optional<QByteArrayView> nextCells() = 0;
    /// Adds to the report what the file's end has told.
    virtual void end(TableReport& report) = 0;

    RowParser parser_;
};

/// A saved sheet; it is checked as a whole before it is believed.
class SheetReader final : public Reader {
public:
    SheetReader(LoadedSheet sheet, const TableDescription& table)
        : Reader(table)
        , sheet_(std::move(sheet)) {}

private:
    std::optional<QByteArrayView> nextCells() override {
        return at_ < sheet_.rows.size() ? std::optional<QByteArrayView>(sheet_.rows[at_++]) : std::nullopt;
    }

    void end(TableReport& report) override {
        if (table().layout == RowLayout::TrxOlder && report.rows > 0 && report.notes.isEmpty()) {
            report.notes << QStringLiteral("A sheet file has no column for the last reference of the older TRX.");
        }
    }

    LoadedSheet sheet_;
    std::size_t at_ = 0;
};

/// A record file or a download.
class RecordReader final : public Reader {
public:
    RecordReader(std::unique_ptr<QFile> file, RecordLines lines, RecordLines::Row first, const TableDescription& table)
        : Reader(table)
        , file_(std::move(file))
        , lines_(std::move(lines))
        , row_(std::move(first)) {}

    QString error() const override {
        return file_->error() == QFileDevice::NoError ? QString()
                                                      : QStringLiteral("It cannot be read: %1.").arg(errorText(*file_));
    }

private:
    std::optional<QByteArrayView> nextCells() override {
        if (!std::exchange(isFirst_, false)) {
            row_ = lines_.next(std::numeric_limits<int>::max());
        }
        return row_ ? std::optional<QByteArrayView>(row_->cells) : std::nullopt;
    }

    void end(TableReport& report) override {
        report.unreadableLines = lines_.unreadableLines();
        report.cutOffLines = lines_.cutOff() ? 1 : 0;
    }

    std::unique_ptr<QFile> file_;
    RecordLines lines_;
    std::optional<RecordLines::Row> row_;
    bool isFirst_ = true;
};

OpenedTable refuse(const QString& error) {
    return {.reader = nullptr, .error = error};
}

} // namespace

OpenedTable openTable(const QString& name) {
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) {
        return refuse(QStringLiteral("It is a folder or a device, not a file."));
    }
    auto file = std::make_unique<QFile>(name);
    if (!file->open(QIODevice::ReadOnly)) {
        return refuse(QStringLiteral("It cannot be read: %1.").arg(errorText(*file)));
    }
    if (recordedFile(file->peek(longestRecordHeader)) == RecordedFile::None) {
        LoadedSheet sheet = readSheetFile(name);
        if (!sheet.error.isEmpty()) {
            return refuse(sheet.error);
        }
        TableDescription table = described(sheet.type.layout(), name);
        table.firmware = sheet.type.firmware;
        return {.reader = std::make_unique<SheetReader>(std::move(sheet), table), .error = {}};
    }
    RecordLines lines(*file, {});
    auto first = lines.next(std::numeric_limits<int>::max());
    if (!first) {
        return refuse(file->error() == QFileDevice::NoError
                          ? QStringLiteral("It holds no rows.")
                          : QStringLiteral("It cannot be read: %1.").arg(errorText(*file)));
    }
    const TableDescription table = described(lines.type().layout(), name);
    return {.reader = std::make_unique<RecordReader>(std::move(file), std::move(lines), *std::move(first), table),
            .error = {}};
}

} // namespace orv
