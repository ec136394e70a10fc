// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/fullsheet.h"
#include "benchmarks/memoryinuse.h"

#include <benchmark/benchmark.h>

namespace orv {

namespace {

/// Appending a row; the argument is how many rows are there before the first of 500.
void appendRow(benchmark::State& state) {
    constexpr int rows = 500;
    const QStringList row = typicalRow(1);
    DataSheet sheet;
    while (state.KeepRunningBatch(rows)) {
        state.PauseTiming();
        sheet = DataSheet();
        layOut(sheet);
        fillTo(sheet, static_cast<int>(state.range(0)));
        state.ResumeTiming();
        for (int i = 0; i < rows; ++i) {
            sheet.appendRow(row);
        }
    }
}
BENCHMARK(appendRow)->Arg(0)->Arg(fullSheetRows - 500)->Iterations(20000);

/// Reading the last cell of a row, the one that takes longest.
void readCell(benchmark::State& state) {
    DataSheet sheet;
    fillTo(sheet, fullSheetRows);
    int row = 0;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(sheet.cell(row, DataSheet::columnCount - 2));
        row = (row + 1) % fullSheetRows;
    }
}
BENCHMARK(readCell);

/// What a full sheet takes over an empty one.
void fullSheetMemory(benchmark::State& state) {
    while (state.KeepRunning()) {
        DataSheet sheet;
        const double allocated = allocatedMegabytes();
        const double resident = residentMegabytes();
        fillTo(sheet, fullSheetRows);
        state.counters["allocated_MB"] = allocatedMegabytes() - allocated;
        state.counters["resident_MB"] = residentMegabytes() - resident;
    }
}
BENCHMARK(fullSheetMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace orv
