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
        link.session.state.Vartemp = QStringLiteral("V");
        link.session.setFirmware(QStringLiteral("512"));
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
    Link link{{.clock = clock, .messages = messages, .questions = answers, .makePort = [](const QString&) {
                   return std::make_unique<TestPort>();
               }}};
    DataSheet sheet;
    SheetState shown;
    SheetRows rows{link.session, link.ports, sheet, shown};
    SheetFiles files{link, sheet, rows, shown};
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
    rig.files.saveas(); // the answer is ready, so it does not wait
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
