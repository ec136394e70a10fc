// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/fullsheet.h"
#include "program/program.h"
#include "testing/fakes.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace orv {

namespace {

/// The whole program without its window, connected and "Ready", on a line whose far end is the benchmark.
class ConnectedProgram {
public:
    ConnectedProgram() {
        QDir::setCurrent(folder_.path());
        program = std::make_unique<Program>(Program::Surroundings{
            .clock = clock_, .messages = messages, .questions = answers_, .makePort = [this](const QString&) {
                auto made = std::make_unique<TestPort>();
                port = made.get();
                return made;
            }});
        program->link.ports.setDevice(1, QStringLiteral("ttyA"));
        program->load();
        program->autoConnect1();
        constexpr int pulse = 1100;
        clock_.advance(pulse);
        port->input = "V512\r";
        clock_.advance(pulse);
        program->link.timer.setInterval(0);
        receive("P\r\nS1\r\nG0\r\nA0\r\nL1\r\nW1\r\nM0\r\nT30\r\nD0\r\nQ0\r\nI5\r\nMP200\r\n>", 12);
        receive("C\r\n11/21/26\t25661\r\n>", 2);
        if (program->link.session.status.status.value() != QLatin1String("Ready")) {
            throw std::runtime_error("the program is not ready");
        }
    }
    ~ConnectedProgram() { QDir::setCurrent(before_); }
    ConnectedProgram(const ConnectedProgram&) = delete;
    ConnectedProgram& operator=(const ConnectedProgram&) = delete;

    void receive(const QByteArray& bytes, int ticks) {
        port->input = bytes;
        for (int i = 0; i < ticks; ++i) {
            program->tick();
        }
    }

private:
    QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
    TestClock clock_;
    PreparedAnswers answers_;

public:
    RecordedMessages messages;
    TestPort* port = nullptr;
    std::unique_ptr<Program> program;
};

/// A tick at which nothing has arrived.
void idleTick(benchmark::State& state) {
    ConnectedProgram connected;
    while (state.KeepRunning()) {
        connected.program->tick();
    }
}
BENCHMARK(idleTick)->Unit(benchmark::kMicrosecond);

/// A tick of a run at which a whole data line has arrived: it becomes a row of the sheet, a line of the record file and
/// of the log. The argument is how many rows are there before the first of 400.
void dataLineTick(benchmark::State& state) {
    constexpr int rows = 400;
    ConnectedProgram connected;
    Program& program = *connected.program;
    while (state.KeepRunningBatch(rows)) {
        state.PauseTiming();
        program.clearAll();
        fillTo(program.sheet.data, static_cast<int>(state.range(0)));
        program.run();
        connected.receive("R\r\n", 1);
        state.ResumeTiming();
        for (int row = 0; row < rows; ++row) {
            connected.receive(typicalDataLine(row) + "\r\n", 1);
        }
        state.PauseTiming();
        connected.receive(">", 1);
        state.ResumeTiming();
    }
    if (program.sheet.data.rowCount() != state.range(0) + rows || !connected.messages.shown.empty()) {
        state.SkipWithError("rows are missing");
    }
}
BENCHMARK(dataLineTick)->Arg(0)->Arg(fullSheetRows - 500)->Iterations(8000)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace orv
