// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/rowwriter.h"

#include "base/files.h"
#include "base/text.h"
#include "formats/csvmetadata.h"
#include "formats/netcdfwriter.h"
#include "formats/placedfile.h"
#include "formats/rowtext.h"
#include "sheet/sheetformat.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>
#include <utility>

namespace orv {

std::optional<FileFormat> formatOfName(const QString& fileName) {
    static constexpr std::array<std::pair<const char*, FileFormat>, 5> suffixes{{{".csv", FileFormat::Csv},
                                                                                 {".nc", FileFormat::NetCdf},
                                                                                 {".jsonl", FileFormat::JsonLines},
                                                                                 {".ndjson", FileFormat::JsonLines},
                                                                                 {".txt", FileFormat::Sheet}}};
    for (const auto& [suffix, format] : suffixes) {
        if (fileName.endsWith(QLatin1String(suffix), Qt::CaseInsensitive)) {
            return format;
        }
    }
    return std::nullopt;
}

namespace {

/// Where the lines of a text format go.
class Lines {
public:
    virtual ~Lines() = default;
    virtual Words open() = 0;
    virtual Words append(const QByteArray& lines) = 0;
    virtual Words close() = 0;
    virtual Words sync() { return {}; }
    /// What has become of an older file that was in the way; empty if there was none.
    virtual QString keptAs() const { return {}; }
};

/// A device that somebody else has opened.
class DeviceLines final : public Lines {
public:
    explicit DeviceLines(QIODevice& device)
        : device_(device) {}

    Words open() override { return {}; }

    Words append(const QByteArray& lines) override {
        auto* file = qobject_cast<QFileDevice*>(&device_);
        const bool whole = device_.write(lines) == lines.size() && (file == nullptr || file->flush());
        return whole ? Words() : errorText(device_);
    }

    Words close() override { return {}; }

private:
    QIODevice& device_;
};

/// A file to which whole rows are added as they come; what was in one that is replaced is gone from the beginning.
class GrowingLines final : public Lines {
public:
    explicit GrowingLines(OutputFile file)
        : wanted_(std::move(file))
        , file_(wanted_.name) {}

    Words open() override {
        Words reason = cannotBeWritten(wanted_.name, wanted_.existing);
        if (reason.isEmpty() && wanted_.existing == OutputFile::Existing::KeepDated) {
            reason = keepUnderDatedName(wanted_.name, wanted_.now, &keptAs_);
        }
        if (!reason.isEmpty()) {
            return reason;
        }
        const QIODevice::OpenMode mode =
            wanted_.existing == OutputFile::Existing::Replace ? QIODevice::Truncate : QIODevice::NewOnly;
        return file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered | mode) ? Words() : errorText(file_);
    }

    Words append(const QByteArray& lines) override { return appendWhole(file_, lines); }

    Words sync() override {
        Words reason = syncNamedFile(file_.handle());
        syncFolderOf(wanted_.name);
        return reason;
    }

    Words close() override {
        Words reason = sync();
        file_.close();
        return reason;
    }

    QString keptAs() const override { return keptAs_; }

private:
    OutputFile wanted_;
    QFile file_;
    QString keptAs_;
};

/// A file that appears at the end.
class WholeLines final : public Lines {
public:
    explicit WholeLines(const OutputFile& file)
        : placed_(file)
        , file_(placed_.path()) {}

    Words open() override {
        Words reason = placed_.check();
        if (!reason.isEmpty()) {
            return reason;
        }
        return file_.open(QIODevice::WriteOnly | QIODevice::NewOnly) ? Words() : errorText(file_);
    }

    Words append(const QByteArray& lines) override {
        return file_.write(lines) == lines.size() ? Words() : errorText(file_);
    }

    Words close() override {
        if (!file_.flush()) {
            return errorText(file_);
        }
        file_.close();
        return placed_.place(&keptAs_);
    }

    QString keptAs() const override { return keptAs_; }

private:
    PlacedFile placed_;
    QFile file_;
    QString keptAs_;
};

/// Rows of a text format, gathered into blocks unless each must be out at once.
class TextWriter : public RowWriter {
public:
    TextWriter(std::unique_ptr<Lines> lines, bool atOnce)
        : lines_(std::move(lines))
        , atOnce_(atOnce) {}

    Words add(const TableRow& row) override {
        addLine(row, pending_);
        return send(atOnce_ ? 1 : blockSize);
    }

    Words sync() override { return lines_->sync(); }

protected:
    virtual void addLine(const TableRow& row, QByteArray& text) = 0;

    Words open() {
        constexpr qsizetype longestRow = 1024;
        pending_.reserve(atOnce_ ? longestRow : blockSize + longestRow);
        return lines_->open();
    }
    /// Hands on what waits if it has so many bytes.
    Words send(qsizetype least) {
        if (pending_.size() < least) {
            return {};
        }
        Words reason = lines_->append(pending_);
        pending_.resize(0); // keeps its room
        return reason;
    }
    Words close() {
        const Words reason = send(1);
        return reason.isEmpty() ? lines_->close() : reason;
    }
    QString keptAs() const { return lines_->keptAs(); }

    static constexpr qsizetype blockSize = 65536;

    std::optional<RowText> rowText_;
    QByteArray pending_;

private:
    std::unique_ptr<Lines> lines_;
    bool atOnce_;
};

class CsvWriter final : public TextWriter {
public:
    /// `metadata` is the file's metadata; its name is empty if there is none.
    CsvWriter(std::unique_ptr<Lines> lines, bool atOnce, OutputFile file)
        : TextWriter(std::move(lines), atOnce)
        , file_(std::move(file))
        , metadataFromBegin_(atOnce) {}

    Words begin(const TableDescription& table) override {
        if (hasMetadata()) {
            const Words reason = cannotBeWritten(csvMetadataName(file_.name), file_.existing);
            if (!reason.isEmpty()) {
                return Words(QStringLiteral("%1: %2")).arg(csvMetadataName(file_.name), reason);
            }
        }
        replaces_ = file_.existing == OutputFile::Existing::Replace && QFile::exists(file_.name);
        Words reason = open();
        if (!reason.isEmpty()) {
            return reason;
        }
        table_ = table;
        history_ = {firstHistoryLine(table)};
        rowText_.emplace(table);
        pending_ += rowText_->csvHeader() + "\r\n";
        reason = send(1);
        return reason.isEmpty() && metadataFromBegin_ ? describe({}) : reason;
    }

    Words note(const QString& sentence, const QDateTime& moment) override {
        history_ << historyLine(moment, sentence);
        return metadataFromBegin_ ? describe({}) : Words();
    }

    Words finish(const TableReport& report) override {
        const Words reason = close();
        return reason.isEmpty() ? describe(report) : reason;
    }

private:
    void addLine(const TableRow& row, QByteArray& text) override {
        rowText_->addCsv(row, text);
        text += "\r\n";
    }

    bool hasMetadata() const { return !file_.name.isEmpty(); }

    Words describe(const std::optional<TableReport>& report) {
        if (!hasMetadata()) {
            return {};
        }
        const QString name = csvMetadataName(file_.name);
        Words reason = std::exchange(described_, true) ? Words() : keepOlder(name);
        if (reason.isEmpty()) {
            reason = writeWholeFile(name, csvMetadata(file_.name, table_, history_, report));
        }
        return reason.isEmpty() ? reason : Words(QStringLiteral("%1: %2")).arg(name, reason);
    }

    /// Metadata that are not those of a file that is replaced stay; a kept file's go with it.
    Words keepOlder(const QString& name) const {
        if (replaces_) {
            return {};
        }
        const QString beside = keptAs().isEmpty() ? QString() : csvMetadataName(keptAs());
        if (beside.isEmpty() || QFile::exists(beside) || !QFile::exists(name)) {
            return keepUnderDatedName(name, file_.now.isValid() ? file_.now : table_.made);
        }
        QFile older(name);
        return older.rename(beside) ? Words() : errorText(older);
    }

    OutputFile file_;
    bool metadataFromBegin_;
    bool replaces_ = false;  ///< A file that the operator has seen, with its metadata.
    bool described_ = false; ///< The metadata there is is this writer's.
    TableDescription table_;
    QStringList history_;
};

class JsonLinesWriter final : public TextWriter {
public:
    using TextWriter::TextWriter;

    Words begin(const TableDescription& table) override {
        rowText_.emplace(table);
        return open();
    }

    Words note(const QString& sentence, const QDateTime& moment) override {
        pending_ += QJsonDocument(QJsonObject{{QStringLiteral("note"), sentence},
                                              {QStringLiteral("computer_time"), isoWithZone(moment)}})
                        .toJson(QJsonDocument::Compact) +
                    '\n';
        return send(1);
    }

    Words finish(const TableReport& /*report*/) override { return close(); }

private:
    void addLine(const TableRow& row, QByteArray& text) override {
        rowText_->addJson(row, text);
        text += '\n';
    }
};

/// A sheet's first line tells how many rows follow, so they are kept until then; there are few.
class SheetWriter final : public RowWriter {
public:
    explicit SheetWriter(OutputFile file)
        : file_(std::move(file)) {}

    Words begin(const TableDescription& table) override {
        table_ = table;
        const bool glow = table.layout == RowLayout::Glow;
        const double generation = table.layout == RowLayout::TrxNewer ? newerGeneration : 0.0;
        sheet_.setHeader({.letter = glow ? QStringLiteral("F") : QStringLiteral("V"),
                          .firmware = table.firmware.value_or(generation)},
                         headerRow(HeaderPlace::GridOnClearing, table.layout));
        return cannotBeWritten(file_.name, file_.existing);
    }

    Words add(const TableRow& row) override {
        if (isFull()) {
            return Words::tr("a sheet holds at most %1 rows").arg(std::numeric_limits<qint16>::max());
        }
        sheet_.appendJoinedRow(cells(row));
        // The ninth column of a sheet file is not there, see sheetFileBytes().
        leftOut_ += table_.layout == RowLayout::TrxOlder && std::isfinite(row.values.back()) ? 1 : 0;
        return {};
    }

    Words note(const QString& /*sentence*/, const QDateTime& /*moment*/) override { return {}; }

    bool isFull() const override { return sheet_.rowCount() == std::numeric_limits<qint16>::max(); }

    qint64 valuesLeftOut() const override { return leftOut_; }

    Words finish(const TableReport& /*report*/) override {
        PlacedFile placed(file_);
        QFile file(placed.path());
        const QByteArray bytes = sheetFileBytes(sheet_, file_.name);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(bytes) != bytes.size() ||
            !file.flush()) {
            return errorText(file);
        }
        file.close();
        return placed.place();
    }

private:
    QByteArray cells(const TableRow& row) const {
        QByteArray cells = row.record ? QByteArray::number(*row.record) : QByteArray();
        cells += '\t';
        if (row.time) {
            const QDateTime moment = QDateTime::fromSecsSinceEpoch(*row.time, Qt::UTC);
            cells += (shortDate(moment.date()) + u'\t' + moment.time().toString(QStringLiteral("h:mm:ss"))).toLatin1();
        } else {
            cells += '\t';
        }
        std::array<double, mostCounts> values = row.values;
        const auto converted = convertedValues(table_.layout);
        for (std::size_t at = 0; table_.calculated && at < converted.size(); ++at) {
            const double value = row.calculated.at(at);
            if (std::isfinite(value) && value != 0.0) { // where it is 0 a sheet has the counts
                values.at(converted[at]) = value;
            }
        }
        for (int at = 0; at < valueCount(table_.layout); ++at) {
            cells += '\t';
            addNumber(values.at(static_cast<std::size_t>(at)), cells);
        }
        return cells;
    }

    OutputFile file_;
    TableDescription table_;
    DataSheet sheet_;
    qint64 leftOut_ = 0;
};

std::unique_ptr<Lines> linesInto(const OutputFile& file) {
    if (file.asItComes) {
        return std::make_unique<GrowingLines>(file);
    }
    return std::make_unique<WholeLines>(file);
}

} // namespace

std::unique_ptr<RowWriter> makeRowWriter(FileFormat format, const OutputFile& file) {
    switch (format) {
    case FileFormat::Csv:
        return std::make_unique<CsvWriter>(linesInto(file), file.asItComes, file);
    case FileFormat::JsonLines:
        return std::make_unique<JsonLinesWriter>(linesInto(file), file.asItComes);
    case FileFormat::NetCdf:
        return makeNetCdfWriter(file);
    case FileFormat::Sheet:
        return std::make_unique<SheetWriter>(file);
    }
    return {};
}

std::unique_ptr<RowWriter> makeRowWriter(FileFormat format, QIODevice& device) {
    auto lines = std::make_unique<DeviceLines>(device);
    switch (format) {
    case FileFormat::Csv:
        return std::make_unique<CsvWriter>(std::move(lines), true, OutputFile{});
    case FileFormat::JsonLines:
        return std::make_unique<JsonLinesWriter>(std::move(lines), true);
    case FileFormat::NetCdf:
    case FileFormat::Sheet:
        break;
    }
    return {};
}

} // namespace orv
