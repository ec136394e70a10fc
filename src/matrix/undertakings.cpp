// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/undertakings.h"

#include "sheet/sheetformat.h"

namespace orv {

namespace {

void loaded(MatrixBench& bench) {
    bench.load();
}

void connected(MatrixBench& bench) {
    bench.load();
    bench.connect();
}

/// The clock may be missing: it is shown as not known.
bool isConnected(const MatrixBench& bench) {
    return bench.procedures.isIdle() && bench.commands.activity == Activity::None && bench.settings.lamp == Lamp::Read;
}

bool exchangeBegins(const MatrixBench& bench, const char* words) {
    return bench.settings.exchange.value().startsWith(QLatin1String(words));
}

/// Rows that were saved, and as many that are not.
void withRows(MatrixBench& bench) {
    connected(bench);
    bench.runBlock();
    bench.save(bench.place("sheet.txt"));
    bench.runBlock();
}

bool hasSaved(const MatrixBench& bench) {
    return !bench.sheetState.unsaved;
}

void collectCommand(MatrixBench& bench) {
    bench.begin(QStringLiteral("collect %1 -o rows.csv").arg(QLatin1String(MatrixBench::instrument)));
}

void downloadCommand(MatrixBench& bench) {
    bench.begin(QStringLiteral("download %1 -o rows.csv").arg(QLatin1String(MatrixBench::instrument)));
}

bool commandSucceeded(const MatrixBench& bench) {
    return bench.answered.status == 0;
}

const Undertaking undertakings[] = {
    {.name = "connecting",
     .prepare = loaded,
     .begin = [](MatrixBench& bench) { bench.program.autoConnect1(); },
     .isDone = isConnected,
     .greets = true},
    {.name = "manual connecting",
     .prepare = loaded,
     .begin =
         [](MatrixBench& bench) {
             bench.program.manualConnect(1);
             bench.manual.proceed();
             bench.manual.start();
         },
     .isDone = isConnected,
     .greets = true},
    {.name = "reading settings",
     .prepare = connected,
     .begin = [](MatrixBench& bench) { bench.sender.retrieveSettings(); },
     .isDone =
         [](const MatrixBench& bench) {
             return isConnected(bench) && exchangeBegins(bench, "Read from the instrument at");
         }},
    {.name = "sending",
     .prepare = connected,
     .begin =
         [](MatrixBench& bench) {
             change(bench.settings.record,
                    [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("100"); });
             bench.sender.applySettings();
         },
     .isDone =
         [](const MatrixBench& bench) { return isConnected(bench) && exchangeBegins(bench, "Sent and read back"); }},
    {.name = "setting the clock",
     .prepare = connected,
     .begin = [](MatrixBench& bench) { bench.sender.synchronizeClock(); },
     .isDone =
         [](const MatrixBench& bench) {
             return bench.isReady() &&
                    bench.status.notice.value().startsWith(QLatin1String("The instrument's clock was set"));
         }},
    {.name = "run",
     .prepare = connected,
     .begin = [](MatrixBench& bench) { bench.program.run(); },
     .isDone = [](const MatrixBench& bench) { return bench.sheet.rowCount() == MatrixBench::rowsOfBlock; },
     .takesEveryRow = true},
    {.name = "text download",
     .prepare = connected,
     .begin =
         [](MatrixBench& bench) {
             bench.answers.fileName = bench.place("memory.txt");
             bench.program.downloadText();
         },
     .isDone =
         [](const MatrixBench& bench) {
             return bench.download.isWhole() && bench.download.unreadRecords() == 0 &&
                    QFile::exists(bench.place("memory.txt"));
         },
     .canBeRepeated = true},
    {.name = "download to the sheet",
     .prepare = connected,
     .begin = [](MatrixBench& bench) { bench.program.vwhp(); },
     .isDone = [](const MatrixBench& bench) { return bench.download.isWhole() && bench.download.unreadRecords() == 0; },
     .canBeRepeated = true},
    {.name = "shutter reset",
     .prepare = connected,
     .begin = [](MatrixBench& bench) { bench.program.resetShutter(); },
     .isDone =
         [](const MatrixBench& bench) {
             return isConnected(bench) && bench.settings.record.value() == bench.settingsBefore;
         }},
    {.name = "calibration",
     .prepare = withRows,
     .begin =
         [](MatrixBench& bench) {
             Calibration& calibration = bench.program.calibration;
             calibration.shown.instrumentName = QStringLiteral("1");
             calibration.shown.colour = LightColour::Red;
             calibration.shown.selectedRow = 0;
             calibration.addInstrument();
             calibration.calcdp();
             bench.answers.fileName = bench.place("report.Txt");
             calibration.saveCalInfo();
         },
     .isDone = [](const MatrixBench& bench) { return bench.hasMade("report.Txt"); },
     .usesLine = false},
    {.name = "automatic save",
     .prepare =
         [](MatrixBench& bench) {
             connected(bench);
             constexpr int missing = 3; // they come in the middle of the block
             LoadedSheet longSheet;
             longSheet.type = {.letter = QStringLiteral("V"), .firmware = 512};
             for (int row = 1; row <= SheetFiles::rowLimit - missing; ++row) {
                 longSheet.rows.push_back(QByteArray::number(row) + "\t1/5/99\t9:05:01\t1\t2\t3\t4");
             }
             bench.rows.recover(std::move(longSheet));
         },
     .begin = [](MatrixBench& bench) { bench.program.run(); },
     .isDone = [](const MatrixBench& bench) { return bench.sheet.rowCount() == 2 && bench.hasMade("Untitled0.txt"); },
     .takesEveryRow = true},
    {.name = "saving",
     .prepare = withRows,
     .begin =
         [](MatrixBench& bench) {
             bench.answers.fileName = bench.place("sheet.txt");
             bench.program.saveAs();
         },
     .isDone = hasSaved,
     .usesLine = false},
    {.name = "loading",
     .prepare =
         [](MatrixBench& bench) {
             withRows(bench);
             bench.save(bench.place("sheet.txt"));
             bench.program.clearAll();
         },
     .begin =
         [](MatrixBench& bench) {
             bench.answers.openName = bench.place("sheet.txt");
             bench.program.openSheet();
         },
     .isDone = [](const MatrixBench& bench) { return bench.sheet.rowCount() == 2 * MatrixBench::rowsOfBlock; },
     .usesLine = false},
    {.name = "recovering",
     .prepare = [](MatrixBench& bench) { bench.answers.yes = true; },
     .begin =
         [](MatrixBench& bench) {
             bench.load();
             bench.program.offerUnendedRun();
         },
     .isDone =
         [](const MatrixBench& bench) {
             return bench.sheet.rowCount() == 2 || !QFile::exists(QStringLiteral("Orvtemp.tmp")); // nothing to recover
         },
     .usesLine = false,
     .recordedBefore = "1\t11/20/26\t8:00:00\t11\t\t12\t\t13\t14\r\n2\t11/20/26\t8:00:01\t21\t\t22\t\t23\t24\r\n"},
    {.name = "orv collect",
     .prepare = [](MatrixBench&) {},
     .begin = collectCommand,
     .isDone = commandSucceeded,
     .greets = true,
     .takesEveryRow = true,
     .isCommand = true},
    {.name = "orv download",
     .prepare = [](MatrixBench&) {},
     .begin = downloadCommand,
     .isDone = commandSucceeded,
     .greets = true,
     .canBeRepeated = true,
     .isCommand = true},
};

} // namespace

std::span<const Undertaking> allUndertakings() {
    return undertakings;
}

} // namespace orv
