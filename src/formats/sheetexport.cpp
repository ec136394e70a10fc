// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/sheetexport.h"

#include "formats/csvmetadata.h"
#include "formats/rowparser.h"
#include "formats/rowwriter.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <optional>

namespace orv {

namespace {

/// The cells of a row, the counts among them.
constexpr int allCells = sheetcolumn::firstCount + static_cast<int>(mostCounts);

QString programName() {
    const QString version = QCoreApplication::applicationVersion();
    return version.isEmpty() ? QStringLiteral("ORV Host") : QStringLiteral("ORV Host %1").arg(version);
}

} // namespace

SheetExport::SheetExport(Link& link, const DataSheet& sheet, SheetState& shown, const Settings& settings)
    : link_(link)
    , sheet_(sheet)
    , shown_(shown)
    , settings_(settings) {}

bool SheetExport::isOfConnectedInstrument() const {
    const SessionState& state = link_.session.state;
    return sheet_.rowsFromFile() == 0 && sheet_.rowsOfOtherLayout() == 0 &&
           sheet_.type() == DataSheet::Type{.letter = state.Vartemp, .firmware = state.firmware};
}

bool SheetExport::hasCounts() const {
    for (int row = sheet_.rowsOfOtherLayout(); row < sheet_.rowCount(); ++row) {
        if (!sheet_.cell(row, sheetcolumn::firstCount).isEmpty()) {
            return true;
        }
    }
    return false;
}

/// Whether every calculated cell follows from its counts by this conversion; then it is the one that was in force.
bool SheetExport::wasMadeWith(const Conversion& conversion) const {
    const RowLayout layout = sheet_.type().layout();
    const auto lines = conversion.lines(layout);
    const auto columns = convertedValues(layout);
    for (int row = sheet_.rowsOfOtherLayout(); row < sheet_.rowCount(); ++row) {
        for (std::size_t at = 0; at < lines.size(); ++at) {
            const int column = static_cast<int>(columns[at]);
            const QString counts = sheet_.cell(row, sheetcolumn::firstCount + column);
            if (!counts.isEmpty() &&
                convertedValue(counts, lines[at]) != sheet_.cell(row, sheetcolumn::firstValue + column)) {
                return false;
            }
        }
    }
    return true;
}

TableDescription SheetExport::table() const {
    TableDescription table;
    table.layout = sheet_.type().layout();
    if (sheet_.type().firmware > 0.0) {
        table.firmware = sheet_.type().firmware;
    }
    const bool counts = sheet_.rowsFromFile() <= sheet_.rowsOfOtherLayout();
    table.values = counts ? TableDescription::Values::Counts : TableDescription::Values::Unknown;
    const Conversion conversion = requestedConversion(settings_.shown);
    if (!counts || !wasMadeWith(conversion) || !table.calculateWith(conversion)) {
        table.calculated = hasCounts();
    }
    if (isOfConnectedInstrument()) {
        table.settings = settings_.shown.reported.value(); // not what was typed since
        table.settingsRead = settings_.reader.understood;
        if (const auto offset = link_.session.status.clockOffset.value()) {
            table.clockOffset = static_cast<double>(*offset);
        }
    }
    table.source = QStringLiteral("the data sheet");
    table.program = programName();
    table.made = link_.session.clock.now();
    return table;
}

Words SheetExport::write(RowWriter& writer, TableReport& report, const std::vector<RowRange>& chosen) const {
    const TableDescription description = table();
    Words reason = writer.begin(description);
    QByteArray cells;
    for (const auto& [first, last] : chosen) {
        RowParser parser(description); // between two ranges no records are missing
        for (int row = first; row <= last && reason.isEmpty(); ++row) {
            if (row < sheet_.rowsOfOtherLayout()) {
                ++parser.report.rowsLeftOut;
                continue;
            }
            cells.resize(0);
            sheet_.writeCells(row, allCells, cells);
            reason = writer.add(parser.readJoined(QString::fromLatin1(cells)));
        }
        report += parser.report;
    }
    return reason.isEmpty() ? writer.finish(report) : reason;
}

QString SheetExport::offeredName() const {
    const QString preset = shown_.fileName.value() + QLatin1String(".csv");
    return preset == presetName_ ? givenName_ : preset;
}

namespace {

/// `rowCount` is empty while more may come before a file has been chosen.
Words titleFor(const std::vector<RowRange>& chosen, std::optional<int> rowCount) {
    if (chosen.empty()) {
        if (!rowCount) {
            return Words::tr("Export all rows");
        }
        const int rows = *rowCount;
        return rows == 1 ? Words::tr("Export 1 row") : Words::tr("Export all %1 rows").arg(rows);
    }
    int count = 0;
    for (const auto& [first, last] : chosen) {
        count += last - first + 1;
    }
    return count == 1 ? Words::tr("Export 1 selected row") : Words::tr("Export %1 selected rows").arg(count);
}

} // namespace

Task<> SheetExport::exportSheet(std::vector<RowRange> chosen) {
    link_.ports.debugsay(QStringLiteral("Export Spread Sheet"));
    const Words title = Words::tr("Export");
    const int removals = sheet_.removals();
    const QString preset = shown_.fileName.value() + QLatin1String(".csv");
    const Activity activity = link_.session.commands.activity;
    const bool grows = activity == Activity::Collecting || activity == Activity::Downloading;
    const Question question =
        saveQuestion(titleFor(chosen, grows ? std::nullopt : std::optional(sheet_.rowCount())), offeredName(),
                     QStringLiteral(".csv"), Words::tr("CSV or NetCDF (*.csv *.nc)"));
    const QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    const QString path = QFileInfo(name).absoluteFilePath();
    const auto format = formatOfName(name);
    const auto failed = [&](const Words& reason) {
        link_.session.messages.show(
            operatorWarning(Words::tr("The sheet could not be exported as %1: %2.\n\nIts rows are still on the "
                                      "sheet.")
                                .arg(path, reason),
                            title));
    };
    if (sheet_.type().layout() == RowLayout::Unknown) {
        failed(Words::tr("it has no known type of instrument"));
        co_return;
    }
    if (format != FileFormat::Csv && format != FileFormat::NetCdf) {
        failed(Words::tr("choose a name that ends in .csv or .nc"));
        co_return;
    }
    if (chosen.empty()) {
        chosen.emplace_back(0, sheet_.rowCount() - 1);
    } else if (sheet_.removals() != removals) {
        failed(Words::tr("the selected rows have gone from the sheet meanwhile"));
        co_return;
    }
    const auto writer = makeRowWriter(*format, {.name = name, .existing = OutputFile::Existing::Replace});
    TableReport report;
    const Words reason = write(*writer, report, chosen);
    if (!reason.isEmpty()) {
        failed(reason);
        co_return;
    }
    presetName_ = preset;
    givenName_ = QFileInfo(name).fileName();
    shown_.saved = SavedRows{.count = static_cast<int>(report.rows),
                             .file = path,
                             .exported = true,
                             .besides = format == FileFormat::Csv ? csvMetadataName(givenName_) : QString()};
    const QList<Words> sentences = report.inWords();
    if (!sentences.isEmpty()) {
        link_.session.messages.show(
            {.title = title,
             .text = Words::tr("%1 has been written.\n\n%2").arg(path, join(sentences, QStringLiteral("\n"))),
             .icon = Message::Icon::Information});
    }
}

} // namespace orv
