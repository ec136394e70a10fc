// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/dataline.h"

#include "base/runtimeerror.h"
#include "base/text.h"
#include "settings/loggersettings.h"

#include <cmath>

namespace orv {

namespace {

/// The columns of each layout but Unknown, in each place, in the order of the two enumerations.
constexpr std::array<std::array<const char*, 4>, 3> headers{{
    {"Data #|Date|Time|Output", "Data #|Date|Time|Output", "Data Point|Date|Time|Counts",
     "Data Point|Date|Time|Output"},
    {"Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref", "Data #|Date|Time|100|Ref1|125|Ref2|150|Ref3",
     "Data Point|Date|Time|100|REF 100|125|REF 125|150|REF 150",
     "Data Point|Date|Time|100|100 REF|125|125 REF|150|150 REF"},
    {"Data #|Date|Time|100|125|150|Ref", "Data #|Date|Time|100|125|150|Ref", "Data Point|Date|Time|100|125|150|REF 150",
     "Data Point|Date|Time|100|125|150|150 REF"},
}};

} // namespace

RowLayout rowLayout(InstrumentType type, double firmware) {
    switch (type) {
    case InstrumentType::Glow:
        return RowLayout::Glow;
    case InstrumentType::Trx:
        return firmware < newerGeneration ? RowLayout::TrxOlder : RowLayout::TrxNewer;
    case InstrumentType::Unknown:
        break;
    }
    return RowLayout::Unknown;
}

Words columnName(const QString& name) {
    constexpr std::array<const char*, 5> own{QT_TRANSLATE_NOOP("orv", "Data #"), QT_TRANSLATE_NOOP("orv", "Data Point"),
                                             QT_TRANSLATE_NOOP("orv", "Date"), QT_TRANSLATE_NOOP("orv", "Time"),
                                             QT_TRANSLATE_NOOP("orv", "Output")};
    const QLatin1String value("Value ");
    if (name.startsWith(value)) { // of an instrument that is not known yet
        return Words::tr("Value %1").arg(name.mid(value.size()));
    }
    for (const char* of : own) {
        if (name == QLatin1String(of)) {
            return Words::tr(of);
        }
    }
    return name;
}

QStringList headerRow(HeaderPlace place, RowLayout layout) {
    if (layout == RowLayout::Unknown) {
        return {};
    }
    const auto& places = headers.at(static_cast<std::size_t>(layout) - 1);
    return QString::fromLatin1(places.at(static_cast<std::size_t>(place))).split(u'|');
}

namespace {

constexpr qsizetype fieldsBeforeValues = 2;

QString timeColumn(const QString& count) {
    try {
        return timeOfDay(wholeNumberText(count)).text24();
    } catch (const RuntimeError&) {
        return count;
    }
}

Conversion::Line readLine(const CalibrationBoxes& boxes) {
    return {.offset = leadingNumber(boxes.offset.value()), .scale = leadingNumber(boxes.scale.value())};
}

void convert(DataRow& row, RowLayout layout, const Conversion& conversion) {
    const auto lines = conversion.lines(layout);
    if (lines.empty()) {
        return;
    }
    row.counts = row.values;
    const auto columns = convertedValues(layout);
    for (std::size_t at = 0; at < lines.size(); ++at) {
        QString& value = row.values[static_cast<qsizetype>(columns[at])];
        value = convertedValue(value, lines[at]);
    }
}

} // namespace

Conversion requestedConversion(const SettingsState& settings) {
    Conversion conversion;
    if (!settings.glowProvideRawCounts) {
        conversion.glow = readLine(settings.glowCalibration);
    }
    if (!settings.trxProvideRawCounts) {
        const auto& angles = settings.trxCalibration;
        conversion.trx = {readLine(angles[0]), readLine(angles[1]), readLine(angles[2])};
    }
    return conversion;
}

std::optional<DataRow> readDataLine(const QString& line, RowLayout layout, const Conversion& conversion) {
    qsizetype end = 0;
    while (end < line.size() && line[end] != u'\r' && line[end] != u'\n') {
        ++end;
    }
    QStringList fields = line.first(end).split(u'\t');
    const qsizetype most = fieldsBeforeValues + valueCount(layout);
    const qsizetype least = layout == RowLayout::Unknown ? fieldsBeforeValues + 1 : most;
    if (fields.size() < least) {
        return std::nullopt;
    }
    DataRow row;
    const auto date = instrumentDate(fields[0]);
    row.date = date ? shortDate(*date) : fields[0];
    row.time = timeColumn(fields[1]);
    row.values = fields.mid(fieldsBeforeValues, most - fieldsBeforeValues);
    convert(row, layout, conversion);
    return row;
}

std::span<const Conversion::Line> Conversion::lines(RowLayout layout) const {
    switch (layout) {
    case RowLayout::Unknown:
        return {};
    case RowLayout::Glow:
        return glow ? std::span<const Line>(&*glow, 1) : std::span<const Line>();
    case RowLayout::TrxOlder:
    case RowLayout::TrxNewer:
        break;
    }
    return trx ? std::span<const Line>(*trx) : std::span<const Line>();
}

std::span<const std::size_t> convertedValues(RowLayout layout) {
    static constexpr std::array<std::size_t, 3> newer{0, 1, 2};
    static constexpr std::array<std::size_t, 3> older{0, 2, 4};
    switch (layout) {
    case RowLayout::Unknown:
        return {};
    case RowLayout::Glow:
        return std::span(newer).first(1);
    case RowLayout::TrxOlder:
        return older;
    case RowLayout::TrxNewer:
        break;
    }
    return newer;
}

double calculatedValue(double counts, const Conversion::Line& line) {
    return std::floor((counts - line.offset) * line.scale * 100000.0) / 100000.0;
}

QString convertedValue(const QString& counts, const Conversion::Line& line) {
    try {
        const double value = calculatedValue(wholeNumberText(counts), line);
        return value == 0.0 || !std::isfinite(value) ? counts : plainNumber(value);
    } catch (const RuntimeError&) {
        return counts;
    }
}

QStringList sheetCells(int number, const DataRow& row) {
    QStringList cells = QStringList{QString::number(number), row.date, row.time} + row.values;
    if (!row.counts.isEmpty()) {
        cells.resize(sheetcolumn::firstCount);
        cells += row.counts;
    }
    return cells;
}

QString recordLine(int number, const DataRow& row, RowLayout layout) {
    QStringList fields{QString::number(number), row.date, row.time};
    if (layout == RowLayout::TrxNewer) {
        fields += QStringList{row.values[0], QString(), row.values[1], QString(), row.values[2], row.values[3]};
    } else {
        fields += row.values;
    }
    return fields.join(u'\t');
}

} // namespace orv
