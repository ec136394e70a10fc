// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/fullsheet.h"
#include "sheet/sheetfiles.h"
#include "testing/fakes.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace orv {

namespace {

/// The sheet with its saving and loading, in a folder of its own.
class SheetRig {
public:
    SheetRig() {
        QDir::setCurrent(folder_.path());
        session.state.Vartemp = QStringLiteral("V");
        session.setFirmware(QStringLiteral("512"));
    }
    ~SheetRig() { QDir::setCurrent(before_); }
    SheetRig(const SheetRig&) = delete;
    SheetRig& operator=(const SheetRig&) = delete;

    void fill() {
        layOut(sheet);
        fillTo(sheet, fullSheetRows);
    }

private:
    QString before_ = QDir::currentPath();
    QTemporaryDir folder_;

public:
    SystemClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    Session session{clock, messages};
    DebugState debug;
    ComPorts ports{session, debug, [](const QString&) { return std::make_unique<TestPort>(); }};
    DataSheet sheet;
    SheetState shown;
    SheetRows rows{session, ports, sheet, shown};
    SheetFiles files{session, ports, sheet, rows, shown, answers};
};

/// The save in the middle of a run that has made the sheet full, through to the disk, and the clearing.
void automaticSave(benchmark::State& state) {
    SheetRig rig;
    while (state.KeepRunning()) {
        state.PauseTiming();
        rig.fill();
        state.ResumeTiming();
        rig.files.saveLongSheet();
    }
    if (!rig.messages.shown.empty() || rig.sheet.rowCount() != 0) {
        state.SkipWithError("the sheet was not saved");
    }
}
BENCHMARK(automaticSave)->Iterations(25)->Unit(benchmark::kMillisecond);

/// Opening the file of a full sheet.
void loadFullSheet(benchmark::State& state) {
    SheetRig rig;
    rig.fill();
    rig.answers.fileName = QStringLiteral("full.txt");
    if (rig.files.saveas() != SheetFiles::Outcome::Saved) {
        state.SkipWithError("the sheet was not saved");
        return;
    }
    while (state.KeepRunning()) {
        rig.files.loadit();
    }
    if (!rig.messages.shown.empty() || rig.sheet.rowCount() != fullSheetRows) {
        state.SkipWithError("the sheet was not loaded");
    }
}
BENCHMARK(loadFullSheet)->Iterations(25)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace orv
