// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/fullsheet.h"
#include "formats/convert.h"
#include "sheet/sheetformat.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace orv {

namespace {

/// A sheet file of a full sheet, converted into a file of that name, through to the disk.
void convertFullSheet(benchmark::State& state, const char* name) {
    const QTemporaryDir folder;
    DataSheet sheet;
    layOut(sheet);
    fillTo(sheet, fullSheetRows);
    const QString in = folder.filePath(QStringLiteral("full.txt"));
    QFile file(in);
    if (!file.open(QIODevice::WriteOnly) || file.write(sheetFileBytes(sheet, in)) < 0) {
        state.SkipWithError("the sheet was not saved");
    }
    file.close();
    const QString out = folder.filePath(QString::fromLatin1(name));
    while (state.KeepRunning()) {
        const auto writer = makeRowWriter(*formatOfName(out), {.name = out, .existing = OutputFile::Existing::Replace});
        const Converted converted = convertFiles({in}, *writer, {.holdCounts = true});
        if (!converted.error.isEmpty() || converted.report.rows != fullSheetRows) {
            state.SkipWithError("the sheet was not converted");
        }
    }
}

void convertToCsv(benchmark::State& state) {
    convertFullSheet(state, "full.csv");
}
BENCHMARK(convertToCsv)->Iterations(25)->Unit(benchmark::kMillisecond);

void convertToNetCdf(benchmark::State& state) {
    convertFullSheet(state, "full.nc");
}
BENCHMARK(convertToNetCdf)->Iterations(25)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace orv
