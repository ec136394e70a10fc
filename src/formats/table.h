// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "settings/loggersettings.h"
#include "sheet/dataline.h"

#include <QDateTime>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <array>
#include <limits>
#include <optional>
#include <vector>

namespace orv {

/// What is known of a table of rows that is written for other programs. Nothing in it is guessed: what is not known is
/// left out of the file.
struct TableDescription {
    /// What stands in the rows' value columns.
    enum class Values {
        Counts, ///< Raw counts, as received.
        Unknown ///< Counts, or values calculated from them: a file of ours does not tell which.
    };

    RowLayout layout = RowLayout::Unknown; ///< Known, or there is no table.
    std::optional<double> firmware;
    Values values = Values::Counts;
    /// Rows bring calculated values as well, or `calibration` gives them: there are columns for them.
    bool calculated = false;
    /// With these counts become calculated values; nothing if they are not known.
    Conversion calibration = {};
    std::optional<LoggerSettings> settings = {};
    SettingSet settingsRead = SettingSet().set(); ///< Which of them the instrument's report gave.
    std::optional<double> clockOffset = {}; ///< Seconds by which the instrument's clock was ahead of the computer's.
    bool stamped = false;                   ///< Rows bring the computer's time.
    QString source = {};                    ///< Where the rows are from: "a run on /dev/ttyUSB0", "lake.txt".
    QString program = {};                   ///< What writes the file: "ORV Host 1.0.0"; may be empty.
    QDateTime made = {};                    ///< When, by the computer's clock.

    /// Sets the calibration that gives calculated values, for the type of the layout; whether it has one.
    bool calculateWith(const Conversion& conversion);
};

/// No layout has more counts or calculated values than these.
inline constexpr std::size_t mostCounts = 6;
inline constexpr std::size_t mostCalculated = 3;

/// A value that is missing, or could not be read.
inline constexpr double missingValue = std::numeric_limits<double>::quiet_NaN();

inline constexpr qint64 secondsPerDay = 86400;

/// A row as numbers.
struct TableRow {
    std::optional<int> record;
    /// Seconds since 1970-01-01 00:00:00, both by the instrument's clock, which has no zone.
    std::optional<qint64> time;
    std::array<double, mostCounts> values{missingValue, missingValue, missingValue,
                                          missingValue, missingValue, missingValue}; ///< In the layout's order.
    std::array<double, mostCalculated> calculated{missingValue, missingValue,
                                                  missingValue}; ///< GLOW's one, TRX's angles.
    QDateTime stamp = {}; ///< The computer's time at which the row's line ended, if the table is stamped.
};

/// One column of a table; header rows, metadata and variables are all made of these.
struct Column {
    enum class Kind { Record, Time, Value, Calculated, Stamp };

    QString name;         ///< "scattering_100": lower case, digits and underscores.
    QString longName;     ///< "Scattering at 100 degrees".
    QString units = {};   ///< For UDUNITS; empty if there is none, or it is not known.
    QString comment = {}; ///< May be empty.
    Kind kind = Kind::Value;
    std::size_t index = 0; ///< In the row's `values` or `calculated`.

    /// The number of a column of the last kinds but Stamp.
    double valueOf(const TableRow& row) const {
        return kind == Kind::Calculated ? row.calculated.at(index) : row.values.at(index);
    }
};

/// The columns of the table, left to right: record, time, values, calculated values, the computer's time.
std::vector<Column> columnsOf(const TableDescription& table);

/// One thing that is known beside the rows.
struct Fact {
    QString group; ///< "instrument", "settings", "calibration" or "clock".
    QString name;  ///< "samplesPerPoint".
    QJsonValue value;
};

/// All that is known of the instrument, its settings, its calibration and its clock.
std::vector<Fact> factsOf(const TableDescription& table);

/// "Rows of TRX, firmware 512".
QString titleOf(const TableDescription& table);

/// What could not be had of a table's rows.
struct TableReport {
    qint64 rows = 0;
    qint64 unreadableTimes = 0;  ///< Of rows that are in the table without a time.
    qint64 unreadableValues = 0; ///< Cells that hold something, but no number; record numbers too.
    qint64 absentValues = 0;     ///< Cells that hold nothing.
    qint64 unreadableLines = 0;  ///< Lines that are no rows; they are not in the table.
    qint64 missingRecords = 0;   ///< Numbers left out between one row and the next.
    qint64 rowsLeftOut = 0;      ///< Rows of another type of instrument.
    qint64 valuesLeftOut = 0;    ///< Values that the new file has no column for.
    qint64 cutOffLines = 0;      ///< Last lines without an end; they are not in the table.
    QStringList notes = {};      ///< Anything else that a reader should know, in sentences.

    /// Adds what another part of the table brings.
    TableReport& operator+=(const TableReport& other);

    /// The same in sentences, for the operator; empty if all is as it should be.
    QList<Words> inWords() const;
    /// In English, for the file.
    QStringList sentences() const;
    /// Whether something that came is not in the table.
    bool isIncomplete() const;
};

} // namespace orv
