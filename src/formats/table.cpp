// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/table.h"

#include "base/text.h"

#include <span>

namespace orv {

bool TableDescription::calculateWith(const Conversion& conversion) {
    const bool has = !conversion.lines(layout).empty();
    if (has) {
        calibration = conversion;
        calculated = true;
    }
    return has;
}

namespace {

/// A value of a layout, and what a conversion makes of it if it does so.
struct ValueNames {
    const char* name;
    const char* longName;
    const char* calculatedName = nullptr;
    const char* calculatedLongName = nullptr;
};

constexpr std::array<ValueNames, 1> glowValues{{{"fluorescence", "Fluorescence", "concentration", "Concentration"}}};
constexpr std::array<ValueNames, 6> olderValues{
    {{"scattering_100", "Scattering at 100 degrees", "b_100", "B value at 100 degrees"},
     {"reference_100", "Reference of the scattering at 100 degrees"},
     {"scattering_125", "Scattering at 125 degrees", "b_125", "B value at 125 degrees"},
     {"reference_125", "Reference of the scattering at 125 degrees"},
     {"scattering_150", "Scattering at 150 degrees", "b_150", "B value at 150 degrees"},
     {"reference_150", "Reference of the scattering at 150 degrees"}}};
constexpr std::array<ValueNames, 4> newerValues{
    {olderValues[0], olderValues[2], olderValues[4], {"reference", "Reference of the scattering"}}};

std::span<const ValueNames> valuesOf(RowLayout layout) {
    switch (layout) {
    case RowLayout::Unknown:
        break;
    case RowLayout::Glow:
        return glowValues;
    case RowLayout::TrxOlder:
        return olderValues;
    case RowLayout::TrxNewer:
        return newerValues;
    }
    return {};
}

constexpr const char* countUnits = "count";

Column valueColumn(const TableDescription& table, const ValueNames& names, std::size_t index) {
    Column column{.name = QString::fromLatin1(names.name),
                  .longName = QString::fromLatin1(names.longName),
                  .kind = Column::Kind::Value,
                  .index = index};
    // A reference is never converted.
    if (table.values == TableDescription::Values::Counts || names.calculatedName == nullptr) {
        column.units = QString::fromLatin1(countUnits);
        column.comment = QStringLiteral("Raw counts, as received.");
    } else {
        column.comment = QStringLiteral("Raw counts or values calculated from them; the source does not tell which.");
    }
    return column;
}

Column calculatedColumn(const TableDescription& table, const ValueNames& names, std::size_t index) {
    Column column{.name = QString::fromLatin1(names.calculatedName),
                  .longName = QString::fromLatin1(names.calculatedLongName),
                  .units = table.layout == RowLayout::Glow ? QStringLiteral("ug L-1") : QString(),
                  .comment = QStringLiteral("(counts - offset) * scale, rounded down to five decimals; "),
                  .kind = Column::Kind::Calculated,
                  .index = index};
    const auto lines = table.calibration.lines(table.layout);
    column.comment += lines.empty() ? QStringLiteral("offset and scale are not known.")
                                    : QStringLiteral("offset %1, scale %2.")
                                          .arg(plainNumber(lines[index].offset), plainNumber(lines[index].scale));
    return column;
}

QString instrumentOf(RowLayout layout) {
    return instrumentName(layout == RowLayout::Glow      ? InstrumentType::Glow
                          : layout == RowLayout::Unknown ? InstrumentType::Unknown
                                                         : InstrumentType::Trx);
}

} // namespace

std::vector<Column> columnsOf(const TableDescription& table) {
    std::vector<Column> columns{
        {.name = QStringLiteral("record"),
         .longName = QStringLiteral("Record number"),
         .units = QStringLiteral("1"),
         .comment = QStringLiteral("Begins anew where the rows before had been cleared."),
         .kind = Column::Kind::Record},
        {.name = QStringLiteral("time"),
         .longName = QStringLiteral("Time by the instrument's clock"),
         .comment = QStringLiteral("As the instrument's own clock gives it: it knows no time zone, and a step of it "
                                   "lasts 4/3 s, so that rows may have the same time."),
         .kind = Column::Kind::Time}};
    const auto values = valuesOf(table.layout);
    for (std::size_t index = 0; index < values.size(); ++index) {
        columns.push_back(valueColumn(table, values[index], index));
    }
    if (table.calculated) {
        const auto converted = convertedValues(table.layout);
        for (std::size_t index = 0; index < converted.size(); ++index) {
            columns.push_back(calculatedColumn(table, values[converted[index]], index));
        }
    }
    if (table.stamped) {
        columns.push_back({.name = QStringLiteral("computer_time"),
                           .longName = QStringLiteral("Time by the computer's clock"),
                           .comment = QStringLiteral("When the end of the row's line had arrived."),
                           .kind = Column::Kind::Stamp});
    }
    return columns;
}

namespace {

void addSettings(std::vector<Fact>& facts, const LoggerSettings& settings, const SettingSet& read) {
    for (const Setting& setting : allSettings) {
        if (!read[placeOf(setting)]) {
            continue;
        }
        const QString name = QString::fromLatin1(setting.name);
        if (setting.flag != nullptr) {
            facts.push_back({QStringLiteral("settings"), name, settings.*setting.flag});
            continue;
        }
        const QString text = (settings.*setting.number).trimmed();
        if (!text.isEmpty()) {
            const auto number = numberText(text);
            facts.push_back({QStringLiteral("settings"), name, number ? QJsonValue(*number) : QJsonValue(text)});
        }
    }
}

void addCalibration(std::vector<Fact>& facts, const TableDescription& table) {
    const auto lines = table.calibration.lines(table.layout);
    for (std::size_t at = 0; at < lines.size(); ++at) {
        // "scattering_100_offset"
        const auto of = QString::fromLatin1(valuesOf(table.layout)[convertedValues(table.layout)[at]].name);
        facts.push_back({QStringLiteral("calibration"), of + QLatin1String("_offset"), lines[at].offset});
        facts.push_back({QStringLiteral("calibration"), of + QLatin1String("_scale"), lines[at].scale});
    }
}

} // namespace

std::vector<Fact> factsOf(const TableDescription& table) {
    std::vector<Fact> facts{{QStringLiteral("instrument"), QStringLiteral("type"), instrumentOf(table.layout)}};
    if (table.firmware) {
        facts.push_back({QStringLiteral("instrument"), QStringLiteral("firmware"), *table.firmware});
    }
    if (table.settings) {
        addSettings(facts, *table.settings, table.settingsRead);
    }
    addCalibration(facts, table);
    if (table.clockOffset) {
        facts.push_back({QStringLiteral("clock"), QStringLiteral("secondsAheadOfComputer"), *table.clockOffset});
    }
    return facts;
}

QString titleOf(const TableDescription& table) {
    const QString firmware =
        table.firmware ? QStringLiteral(", firmware %1").arg(plainNumber(*table.firmware)) : QString();
    return QStringLiteral("Rows of %1%2").arg(instrumentOf(table.layout), firmware);
}

namespace {

/// "1 value" or "12 values".

} // namespace

TableReport& TableReport::operator+=(const TableReport& other) {
    rows += other.rows;
    unreadableTimes += other.unreadableTimes;
    unreadableValues += other.unreadableValues;
    absentValues += other.absentValues;
    unreadableLines += other.unreadableLines;
    missingRecords += other.missingRecords;
    rowsLeftOut += other.rowsLeftOut;
    valuesLeftOut += other.valuesLeftOut;
    cutOffLines += other.cutOffLines;
    for (const QString& note : other.notes) {
        if (!notes.contains(note)) {
            notes << note;
        }
    }
    return *this;
}

bool TableReport::isIncomplete() const {
    return unreadableTimes + unreadableValues + unreadableLines + missingRecords + rowsLeftOut + valuesLeftOut +
               cutOffLines >
           0;
}

QList<Words> TableReport::inWords() const {
    QList<Words> all;
    const auto add = [&all](qint64 count, const char* one, const char* many) {
        if (count > 0) {
            all << (count == 1 ? Words::tr(one) : Words::tr(many).arg(count));
        }
    };
    add(unreadableTimes, QT_TRANSLATE_NOOP("orv", "1 time could not be read and is missing."),
        QT_TRANSLATE_NOOP("orv", "%1 times could not be read and are missing."));
    add(unreadableValues, QT_TRANSLATE_NOOP("orv", "1 number could not be read and is missing."),
        QT_TRANSLATE_NOOP("orv", "%1 numbers could not be read and are missing."));
    add(absentValues, QT_TRANSLATE_NOOP("orv", "1 value was not there and is missing."),
        QT_TRANSLATE_NOOP("orv", "%1 values were not there and are missing."));
    add(unreadableLines, QT_TRANSLATE_NOOP("orv", "1 line could not be read as a row and is left out."),
        QT_TRANSLATE_NOOP("orv", "%1 lines could not be read as rows and are left out."));
    add(missingRecords, QT_TRANSLATE_NOOP("orv", "1 record number is left out between rows."),
        QT_TRANSLATE_NOOP("orv", "%1 record numbers are left out between rows."));
    add(rowsLeftOut, QT_TRANSLATE_NOOP("orv", "1 row of another type of instrument is left out."),
        QT_TRANSLATE_NOOP("orv", "%1 rows of another type of instrument are left out."));
    add(valuesLeftOut,
        QT_TRANSLATE_NOOP("orv", "1 last reference of the older TRX has no column in a sheet file and is left out; "
                                 ".csv, .nc and .jsonl have one."),
        QT_TRANSLATE_NOOP("orv", "%1 last references of the older TRX have no column in a sheet file and are left out; "
                                 ".csv, .nc and .jsonl have "
                                 "one."));
    add(cutOffLines, QT_TRANSLATE_NOOP("orv", "1 last line had no end and is left out."),
        QT_TRANSLATE_NOOP("orv", "%1 last lines had no end and are left out."));
    for (const QString& note : notes) {
        all << note;
    }
    return all;
}

QStringList TableReport::sentences() const {
    QStringList all;
    for (const Words& sentence : inWords()) {
        all << sentence.english();
    }
    return all;
}

} // namespace orv
