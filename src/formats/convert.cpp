// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/convert.h"

#include "formats/tablereader.h"

#include <QFileInfo>

namespace orv {

namespace {

/// What the operator is told of a file: "lake.txt could not be converted: It holds no rows."
QString about(const QString& name, const QString& reason) {
    return QStringLiteral("%1 could not be converted. %2").arg(QFileInfo(name).absoluteFilePath(), reason);
}

/// What is known of a file with what the operator says of it.
QString describe(TableReader& reader, const ConvertOptions& options) {
    TableDescription table = reader.table();
    if (options.holdCounts || options.calibration) {
        table.values = TableDescription::Values::Counts;
    }
    if (options.calibration && !table.calculateWith(*options.calibration)) {
        return QStringLiteral("The calibration values are of another type of instrument.");
    }
    table.program = options.program;
    table.made = options.now;
    reader.describe(table);
    return {};
}

/// Sees to it that rows of several files can stand in one table.
class Joining {
public:
    Joining(RowWriter& writer, const QStringList& names, const ConvertOptions& options)
        : writer_(writer)
        , names_(names)
        , options_(options) {}

    Converted convert() {
        Converted converted;
        QString reason = begin();
        for (qsizetype at = 0; at < names_.size() && reason.isEmpty(); ++at) {
            reason = take(names_[at], converted.report);
        }
        converted.report.valuesLeftOut = writer_.valuesLeftOut();
        if (reason.isEmpty()) {
            reason = writing(writer_.finish(converted.report));
        }
        converted.error = reason;
        return converted;
    }

private:
    /// Looks at every file before anything is written: the new file says what all of them are.
    QString begin() {
        for (const QString& name : names_) {
            OpenedTable opened = openTable(name);
            QString reason = opened.error;
            if (reason.isEmpty()) {
                reason = describe(*opened.reader, options_);
            }
            if (reason.isEmpty()) {
                reason = join(opened.reader->table());
            }
            if (!reason.isEmpty()) {
                return about(name, reason);
            }
            if (names_.size() == 1) {
                only_ = std::move(opened);
            }
        }
        return writing(writer_.begin(*table_));
    }

    QString join(const TableDescription& table) {
        if (!table_) {
            table_ = table;
            return {};
        }
        if (table_->layout != table.layout) {
            return QStringLiteral("Its columns are others than those of %1. Convert it into a file of its own.")
                .arg(QFileInfo(names_.first()).fileName());
        }
        table_->source += QLatin1String(", ") + table.source;
        if (table_->firmware != table.firmware) {
            table_->firmware = std::nullopt;
        }
        return {};
    }

    QString take(const QString& name, TableReport& report) {
        const OpenedTable opened = only_.reader ? std::move(only_) : openTable(name);
        if (!opened.error.isEmpty()) {
            return about(name, opened.error);
        }
        QString reason = describe(*opened.reader, options_);
        if (reason.isEmpty() && opened.reader->table().layout != table_->layout) {
            reason = QStringLiteral("It has been changed meanwhile.");
        }
        if (!reason.isEmpty()) {
            return about(name, reason);
        }
        TableRow row;
        while (opened.reader->next(row)) {
            reason = writer_.add(row).english();
            if (!reason.isEmpty()) {
                return writing(reason);
            }
        }
        report += opened.reader->report();
        return opened.reader->error().isEmpty() ? QString() : about(name, opened.reader->error());
    }

    static QString writing(const QString& reason) {
        return reason.isEmpty() ? reason : QStringLiteral("The new file could not be written: %1.").arg(reason);
    }

    RowWriter& writer_;
    const QStringList& names_;
    const ConvertOptions& options_;
    std::optional<TableDescription> table_;
    OpenedTable only_; ///< Of one file alone: it need not be opened again.
};

} // namespace

Converted convertFiles(const QStringList& names, RowWriter& writer, const ConvertOptions& options) {
    if (names.isEmpty()) {
        return {.error = QStringLiteral("There is no file to convert."), .report = {}};
    }
    return Joining(writer, names, options).convert();
}

} // namespace orv
