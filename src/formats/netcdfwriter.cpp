// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/netcdfwriter.h"

#include "base/files.h"
#include "base/words.h"
#include "formats/csvmetadata.h"
#include "formats/netcdflibrary.h"
#include "formats/placedfile.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace orv {

namespace {

/// Rows that are gathered before they are written, and the size of a chunk in the file.
constexpr std::size_t blockRows = 4096;

/// The epoch of all times; without a zone the instrument's, with one the computer's.
constexpr const char* instrumentTimeUnits = "seconds since 1970-01-01 00:00:00";
constexpr const char* computerTimeUnits = "seconds since 1970-01-01 00:00:00 UTC";

/// "2026-11-21T09:30:15" of the instrument's clock.
QString isoTime(qint64 time) {
    return QDateTime::fromSecsSinceEpoch(time, Qt::UTC).toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
}

/// "instrument" and "firmware", "settings_samplesPerPoint".
QByteArray attributeName(const Fact& fact) {
    if (fact.group != QLatin1String("instrument")) {
        return (fact.group + u'_' + fact.name).toLatin1();
    }
    return fact.name == QLatin1String("type") ? QByteArray("instrument") : fact.name.toLatin1();
}

double numberIn(const Column& column, const TableRow& row) {
    switch (column.kind) {
    case Column::Kind::Record:
        return row.record ? static_cast<double>(*row.record) : missingValue;
    case Column::Kind::Time:
        return row.time ? static_cast<double>(*row.time) : missingValue;
    case Column::Kind::Stamp:
        return row.stamp.isValid() ? static_cast<double>(row.stamp.toMSecsSinceEpoch()) / 1000.0 : missingValue;
    case Column::Kind::Value:
    case Column::Kind::Calculated:
        break;
    }
    return column.valueOf(row);
}

/// An open file of the library. The first call that fails is remembered, and those after it do nothing.
class NetCdfFile {
public:
    explicit NetCdfFile(const NetCdfLibrary& library)
        : nc(library) {}
    ~NetCdfFile() { close(); }
    NetCdfFile(const NetCdfFile&) = delete;
    NetCdfFile& operator=(const NetCdfFile&) = delete;

    void create(const QString& path) {
        call(nc.create, QFile::encodeName(path).constData(), NC_NETCDF4 | NC_CLASSIC_MODEL | NC_CLOBBER, &id_);
        open_ = failure_ == NC_NOERR;
    }

    void close() {
        if (std::exchange(open_, false)) {
            const int status = nc.close(id_);
            failure_ = failure_ == NC_NOERR ? status : failure_;
        }
    }

    /// A call with the file's number.
    template <typename Function, typename... Args>
    void on(Function function, Args... args) {
        call(function, id_, args...);
    }

    void text(int variable, const char* name, const QString& value) {
        const QByteArray bytes = value.toUtf8();
        on(nc.putAttText, variable, name, static_cast<std::size_t>(bytes.size()), bytes.constData());
    }

    void number(int variable, const char* name, double value) {
        on(nc.putAttDouble, variable, name, NC_DOUBLE, std::size_t{1}, &value);
    }

    Words failure() const {
        if (failure_ == NC_NOERR) {
            return {};
        }
        Words reason = QString::fromUtf8(nc.strerror(failure_)).trimmed();
        // Of a failed write the library says no more.
        return failure_ == NC_EHDFERR ? Words::tr("%1; the disk may be full").arg(reason) : reason;
    }

private:
    template <typename Function, typename... Args>
    void call(Function function, Args... args) {
        if (failure_ == NC_NOERR) {
            failure_ = function(args...);
        }
    }

    const NetCdfLibrary& nc;
    int id_ = -1;
    bool open_ = false;
    int failure_ = NC_NOERR;
};

class NetCdfWriter final : public RowWriter {
public:
    explicit NetCdfWriter(const OutputFile& file)
        : placed_(file)
        , file_(nc_) {}

    Words begin(const TableDescription& table) override {
        Words reason = placed_.check();
        if (reason.isEmpty()) {
            reason = nc_.load();
        }
        if (!reason.isEmpty()) {
            return reason;
        }
        // The library says "Permission denied" of everything.
        QFile file(placed_.path());
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            return errorText(file);
        }
        file.close();
        table_ = table;
        history_ << firstHistoryLine(table);
        file_.create(placed_.path());
        // The instrument's time repeats and may step back, so it is no coordinate of its own dimension.
        file_.on(nc_.defDim, "obs", std::size_t{NC_UNLIMITED}, &rowDimension_);
        for (const Column& column : columnsOf(table)) {
            define(column);
        }
        defineSeries();
        describe();
        file_.on(nc_.enddef);
        const QByteArray series = seriesName();
        const std::size_t from = 0;
        const auto length = static_cast<std::size_t>(series.size());
        file_.on(nc_.putVaraText, series_, &from, &length, series.constData());
        return file_.failure();
    }

    Words add(const TableRow& row) override {
        for (Variable& variable : variables_) {
            variable.block.push_back(numberIn(variable.column, row));
        }
        if (row.time) {
            earliest_ = std::min(earliest_.value_or(*row.time), *row.time);
            latest_ = std::max(latest_.value_or(*row.time), *row.time);
        }
        return ++gathered_ < blockRows ? Words() : writeBlock();
    }

    Words note(const QString& sentence, const QDateTime& moment) override {
        history_ << historyLine(moment, sentence);
        return {};
    }

    Words finish(const TableReport& report) override {
        writeBlock();
        file_.on(nc_.redef);
        file_.text(NC_GLOBAL, "history", history_.join(u'\n'));
        const QStringList sentences = report.sentences();
        if (!sentences.isEmpty()) {
            file_.text(NC_GLOBAL, "comment", sentences.join(u' '));
        }
        if (earliest_) {
            file_.text(NC_GLOBAL, "time_coverage_start", isoTime(*earliest_));
            file_.text(NC_GLOBAL, "time_coverage_end", isoTime(*latest_));
        }
        file_.on(nc_.enddef);
        file_.close();
        const Words reason = file_.failure();
        return reason.isEmpty() ? placed_.place() : reason;
    }

private:
    struct Variable {
        Column column;
        int id = -1;
        std::vector<double> block; ///< Values that are not written yet.
    };

    void define(const Column& column) {
        const bool isNumber = column.kind == Column::Kind::Record;
        Variable variable{.column = column, .block = {}};
        file_.on(nc_.defVar, column.name.toLatin1().constData(), isNumber ? NC_INT : NC_DOUBLE, 1, &rowDimension_,
                 &variable.id);
        file_.on(nc_.defVarChunking, variable.id, NC_CHUNKED, &blockRows);
        file_.on(nc_.defVarDeflate, variable.id, 1, 1, 1);
        // The library's own cache would take megabytes a variable; a block is one chunk.
        file_.on(nc_.setVarChunkCache, variable.id, blockRows * sizeof(double), std::size_t{1}, 1.0F);
        if (isNumber) {
            const int fill = NC_FILL_INT;
            file_.on(nc_.defVarFill, variable.id, NC_FILL, &fill);
        } else {
            const double fill = NC_FILL_DOUBLE;
            file_.on(nc_.defVarFill, variable.id, NC_FILL, &fill);
        }
        if (column.kind == Column::Kind::Time) {
            file_.text(variable.id, "standard_name", QStringLiteral("time"));
            file_.text(variable.id, "units", QString::fromLatin1(instrumentTimeUnits));
            file_.text(variable.id, "axis", QStringLiteral("T"));
        }
        if (column.kind == Column::Kind::Stamp) {
            file_.text(variable.id, "units", QString::fromLatin1(computerTimeUnits));
        }
        if (column.kind == Column::Kind::Time || column.kind == Column::Kind::Stamp) {
            file_.text(variable.id, "calendar", QStringLiteral("standard"));
        }
        file_.text(variable.id, "long_name", column.longName);
        if (!column.units.isEmpty()) {
            file_.text(variable.id, "units", column.units);
        }
        if (!column.comment.isEmpty()) {
            file_.text(variable.id, "comment", column.comment);
        }
        if (column.kind != Column::Kind::Time) {
            file_.text(variable.id, "coordinates", QStringLiteral("time"));
        }
        variable.block.reserve(blockRows);
        variables_.push_back(std::move(variable));
    }

    /// What the conventions want of a time series: a name that tells it from others.
    void defineSeries() {
        int dimension = -1;
        file_.on(nc_.defDim, "name_strlen", static_cast<std::size_t>(seriesName().size()), &dimension);
        file_.on(nc_.defVar, "series", NC_CHAR, 1, &dimension, &series_);
        file_.text(series_, "long_name", QStringLiteral("Name of the time series"));
        file_.text(series_, "cf_role", QStringLiteral("timeseries_id"));
    }

    QByteArray seriesName() const { return titleOf(table_).toUtf8(); }

    void describe() {
        file_.text(NC_GLOBAL, "Conventions", QStringLiteral("CF-1.10, ACDD-1.3"));
        file_.text(NC_GLOBAL, "featureType", QStringLiteral("timeSeries"));
        file_.text(NC_GLOBAL, "title", titleOf(table_));
        file_.text(NC_GLOBAL, "summary",
                   QStringLiteral("Rows of a self-logging optical water sensor, as they came from the instrument."));
        file_.text(NC_GLOBAL, "keywords",
                   table_.layout == RowLayout::Glow ? QStringLiteral("water, optics, fluorescence")
                                                    : QStringLiteral("water, optics, scattering"));
        if (!table_.source.isEmpty()) {
            file_.text(NC_GLOBAL, "source", table_.source);
        }
        if (table_.made.isValid()) {
            file_.text(NC_GLOBAL, "date_created", isoWithZone(table_.made));
        }
        for (const Fact& fact : factsOf(table_)) {
            const QByteArray name = attributeName(fact);
            if (fact.value.isDouble()) {
                file_.number(NC_GLOBAL, name.constData(), fact.value.toDouble());
            } else if (fact.value.isBool()) {
                file_.text(NC_GLOBAL, name.constData(),
                           fact.value.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
            } else {
                file_.text(NC_GLOBAL, name.constData(), fact.value.toString());
            }
        }
    }

    Words writeBlock() {
        for (Variable& variable : variables_) {
            if (variable.column.kind == Column::Kind::Record) {
                std::vector<int> numbers(gathered_);
                std::ranges::transform(variable.block, numbers.begin(), [](double number) {
                    return std::isfinite(number) ? static_cast<int>(number) : NC_FILL_INT;
                });
                file_.on(nc_.putVaraInt, variable.id, &written_, &gathered_, numbers.data());
            } else {
                std::ranges::replace_if(
                    variable.block, [](double number) { return !std::isfinite(number); }, NC_FILL_DOUBLE);
                file_.on(nc_.putVaraDouble, variable.id, &written_, &gathered_, variable.block.data());
            }
            variable.block.clear();
        }
        written_ += std::exchange(gathered_, 0);
        return file_.failure();
    }

    PlacedFile placed_; ///< Goes after the file is closed.
    NetCdfLibrary nc_;
    NetCdfFile file_;
    TableDescription table_;
    QStringList history_;
    std::vector<Variable> variables_;
    int rowDimension_ = -1;
    int series_ = -1;
    std::size_t gathered_ = 0;
    std::size_t written_ = 0;
    std::optional<qint64> earliest_;
    std::optional<qint64> latest_;
};

} // namespace

std::unique_ptr<RowWriter> makeNetCdfWriter(const OutputFile& file) {
    return std::make_unique<NetCdfWriter>(file);
}

} // namespace orv
