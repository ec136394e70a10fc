// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/systemport.h"
#include "testing/downloadrig.h"
#include "testing/processes.h"

#include <QCoreApplication>

namespace orv {

namespace {

/// Downloads through the system's serial port class, from an instrument that another process serves on a
/// pseudo-terminal. The program's waits pass at once; the line takes the time it takes.
class PtyDownload : public DownloadRig {
protected:
    PtyDownload()
        : DownloadRig([](const QString& device, TestClock&) { return std::make_unique<SystemPort>(device); }) {
        lineMade = [this, made = lineMade] {
            made();
            line->waited = [this](int milliseconds) { clock.advance(milliseconds); };
        };
    }
    ~PtyDownload() override { program.end(); }

    void step() override {
        QCoreApplication::processEvents();
        if (!ports.waitForInput(1)) {
            clock.advance(timer.interval());
        }
        program.tick();
    }

    void serve(const QString& device) {
        instrument_ = std::make_unique<InstrumentProcess>(device);
        connectTo(instrument_->path);
    }

private:
    std::unique_ptr<InstrumentProcess> instrument_;
};

class EveryKindOverPty : public PtyDownload, public testing::WithParamInterface<std::string> {};

TEST_P(EveryKindOverPty, FileAndSheetHoldTheInstrumentsRecords) {
    serve(QString::fromStdString(GetParam()));
    const qsizetype values = valuesOf(GetParam());
    downloadToFile();
    const ExpectedDump toFile(dumpLines(line->blocks), values);
    EXPECT_EQ(toFile.records, 150);
    EXPECT_EQ(fileRows(), toFile.textRows.toStdString());
    expectWholeEnd(toFile);

    downloadToSheet();
    const ExpectedDump toSheet(dumpLines(line->blocks), values);
    EXPECT_EQ(toSheet.textRows, toFile.textRows);
    expectWholeEnd(toSheet);
    EXPECT_EQ(sheet.rowCount(), 150);
    EXPECT_EQ(savedSheetRows(), toSheet.sheetRows.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Download, EveryKindOverPty,
                         testing::Values("sim:trx?firmware=512&records=150&erased=20&baud=0",
                                         "sim:trx?firmware=412&records=150&erased=20&end=0&baud=0",
                                         "sim:glow?records=150&erased=20&baud=115200"));

class CutOverPty : public PtyDownload, public testing::WithParamInterface<int> {};

TEST_P(CutOverPty, KeepsWhatArrived) {
    const int percent = GetParam();
    serve(QStringLiteral("sim:trx?records=100&baud=0&fault=cut&after=%1%").arg(percent));
    startText();
    tickUntil([this, percent] { return contentsOf(path("dump.txt")).count('\n') == percent + 4; });
    clock.advance(10'000);
    program.tick();
    EXPECT_EQ(statusText(), "No data for 10 s. Reset stops the download.");
    const ExpectedDump expected(dumpLines(line->blocks), 4);
    EXPECT_EQ(expected.records, percent);
    program.reset();
    EXPECT_EQ(fileRows(), expected.textRows.toStdString());
    EXPECT_EQ(told(), std::vector<std::string>{incompleteText(percent, "in " + path("dump.txt").toStdString())});
    tickUntil([this] { return state.Ctrlscrn == Operation::SettingsOpen; });
    EXPECT_EQ(statusText(), "Ready") << "connected again";
}

INSTANTIATE_TEST_SUITE_P(Download, CutOverPty, testing::Values(10, 50, 99));

TEST_F(PtyDownload, PulledCableKeepsWhatArrived) {
    serve(QStringLiteral("sim:glow?records=100&baud=0&fault=unplug&after=50%"));
    program.vwhp();
    tickUntil([this] { return !isTaking(); });
    const ExpectedDump expected(dumpLines(line->blocks), 1);
    EXPECT_EQ(statusText(), "Offline");
    EXPECT_EQ(savedSheetRows(), expected.sheetRows.toStdString());
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(told()[0], incompleteText(expected.records, "on the sheet"));
    EXPECT_TRUE(told()[1].starts_with("The connection on COM 1 "));
}

} // namespace

} // namespace orv
