// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/downloadrig.h"

namespace orv {

namespace {

/// Downloads from a simulated instrument at the pace of its line, on the test's clock.
class SimulatedDownload : public DownloadRig {
protected:
    SimulatedDownload()
        : DownloadRig(simulatedInstrument) {}
};

class EveryKind : public SimulatedDownload, public testing::WithParamInterface<std::string> {};

TEST_P(EveryKind, FileAndSheetHoldTheInstrumentsRecords) {
    connectTo(QString::fromStdString(GetParam()));
    const qsizetype values = valuesOf(GetParam());
    downloadToFile();
    const ExpectedDump toFile(dumpLines(line->blocks), values);
    EXPECT_EQ(toFile.records, 60);
    EXPECT_EQ(fileRows(), toFile.textRows.toStdString());
    expectWholeEnd(toFile);
    EXPECT_EQ(sheet.rowCount(), 0);

    downloadToSheet();
    const ExpectedDump toSheet(dumpLines(line->blocks), values);
    EXPECT_EQ(toSheet.textRows, toFile.textRows);
    expectWholeEnd(toSheet);
    EXPECT_EQ(sheet.rowCount(), 60);
    EXPECT_EQ(sheetState.topRow, 50);
    EXPECT_EQ(savedSheetRows(), toSheet.sheetRows.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Download, EveryKind,
                         testing::Values("sim:trx?firmware=512&records=60&erased=7",
                                         "sim:trx?firmware=412&records=60&erased=7&end=0",
                                         "sim:glow?records=60&erased=7&end=0"));

TEST_F(SimulatedDownload, EmptyMemoryGivesAFileWithoutRows) {
    connectTo(QStringLiteral("sim:trx?records=0"));
    downloadToFile();
    EXPECT_EQ(fileRows(), "");
    EXPECT_EQ(statusText(), "Ready");
    EXPECT_EQ(progress.maximum, 100) << "as reading the settings left it";
}

TEST_F(SimulatedDownload, MoreRecordsThanASheetHoldsAreSavedOnTheWay) {
    sheetState.fileName = path("lake");
    connectTo(QStringLiteral("sim:glow?records=20005&baud=0"));
    downloadToSheet();
    EXPECT_EQ(sheet.rowCount(), 5);
    const QByteArray saved = contentsOf(path("lake0.txt"));
    EXPECT_TRUE(saved.startsWith("F\t310 20000\r\nlake0.txt\r\n"));
    const QByteArray all = saved.mid(saved.indexOf("\t\r\n") + 3) + QByteArray::fromStdString(savedSheetRows());
    const QByteArrayList rowsOfFile = all.split('\r');
    const QByteArrayList rowsOfDump = ExpectedDump(dumpLines(line->blocks), 1).sheetRows.split('\r');
    ASSERT_EQ(rowsOfFile.size(), rowsOfDump.size());
    for (qsizetype row = 0; row < rowsOfDump.size(); ++row) {
        const auto withoutNumber = [](const QByteArray& text) { return text.mid(text.indexOf('\t')); };
        ASSERT_EQ(withoutNumber(rowsOfFile.at(row)), withoutNumber(rowsOfDump.at(row))) << row;
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SimulatedDownload, CutDumpIsToldWaitedForAndKept) {
    for (const int percent : {10, 50, 99}) {
        program.closePort();
        messages.shown.clear();
        connectTo(QStringLiteral("sim:trx?records=100&fault=cut&after=%1%").arg(percent));
        startText();
        tickUntil([this] { return statusText() == "No data for 10 s. Reset stops the download."; });
        EXPECT_TRUE(isTaking());
        const ExpectedDump expected(dumpLines(line->blocks), 4);
        EXPECT_EQ(expected.records, percent);
        EXPECT_FALSE(expected.ended);
        program.reset();
        ASSERT_EQ(told(), std::vector<std::string>{incompleteText(percent, "in " + path("dump.txt").toStdString())});
        EXPECT_EQ(fileRows(), expected.textRows.toStdString());
        messages.shown.clear();
        tickUntil([this] { return state.Ctrlscrn == Operation::SettingsOpen; });
        downloadToFile();
        const ExpectedDump whole(dumpLines(line->blocks), 4);
        EXPECT_EQ(whole.records, 100);
        EXPECT_EQ(fileRows(), whole.textRows.toStdString()) << "the same file, downloaded again after the reset";
        expectWholeEnd(whole);
    }
}

TEST_F(SimulatedDownload, CutDumpStaysOnTheSheet) {
    for (const int percent : {10, 50, 99}) {
        program.closePort();
        messages.shown.clear();
        connectTo(QStringLiteral("sim:glow?records=100&fault=cut&after=%1%").arg(percent));
        program.clearAll();
        program.vwhp();
        tickUntil([this] { return statusText() == "No data for 10 s. Reset stops the download."; });
        const ExpectedDump expected(dumpLines(line->blocks), 1);
        EXPECT_EQ(expected.records, percent);
        program.closePort();
        EXPECT_EQ(statusText(), "Offline");
        EXPECT_EQ(told(), std::vector<std::string>{incompleteText(percent, "on the sheet")});
        EXPECT_EQ(savedSheetRows(), expected.sheetRows.toStdString());
    }
}

TEST_F(SimulatedDownload, PulledCableEndsItWithTheFileWhole) {
    for (const int percent : {10, 50, 99}) {
        program.closePort();
        messages.shown.clear();
        connectTo(QStringLiteral("sim:trx?firmware=412&records=100&fault=unplug&after=%1%").arg(percent));
        startText();
        tickUntil([this] { return !isTaking(); });
        const ExpectedDump expected(dumpLines(line->blocks), 6);
        EXPECT_EQ(expected.records, percent);
        EXPECT_EQ(fileRows(), expected.textRows.toStdString());
        EXPECT_EQ(statusText(), "Offline");
        EXPECT_FALSE(progress.visible);
        EXPECT_FALSE(ports.isOpen());
        ASSERT_EQ(messages.shown.size(), 2U);
        EXPECT_EQ(told()[0], incompleteText(percent, "in " + path("dump.txt").toStdString()));
        EXPECT_TRUE(told()[1].starts_with("The connection on COM 1 "));
    }
}

TEST_F(SimulatedDownload, QuitInTheMiddleKeepsTheFile) {
    connectTo(QStringLiteral("sim:trx?records=100"));
    startText();
    tickUntil([this] { return fileRows().find("\n20\t") != std::string::npos; });
    EXPECT_TRUE(program.quit());
    program.end();
    EXPECT_EQ(fileRows(), ExpectedDump(dumpLines(line->blocks), 4).textRows.toStdString());
    EXPECT_EQ(told(), std::vector<std::string>{incompleteText(20, "in " + path("dump.txt").toStdString())});
    EXPECT_FALSE(isTaking());
}

TEST_F(SimulatedDownload, QuittingThatIsThoughtBetterOfLetsItGoOn) {
    connectTo(QStringLiteral("sim:glow?records=100"));
    program.vwhp();
    tickUntil([this] { return sheet.rowCount() == 20; });
    answers.yes = true;
    answers.fileName.clear();
    EXPECT_FALSE(program.quit()) << "the save was cancelled";
    EXPECT_TRUE(isTaking());
    tickUntil([this] { return !isTaking(); });
    const ExpectedDump expected(dumpLines(line->blocks), 1);
    expectWholeEnd(expected);
    EXPECT_EQ(savedSheetRows(), expected.sheetRows.toStdString());
    answers.asked.clear();
    EXPECT_TRUE(program.quit());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(SimulatedDownload, CommandsWaitWhileItRuns) {
    connectTo(QStringLiteral("sim:trx"));
    startText();
    EXPECT_FALSE(commands.canCommand);
    EXPECT_FALSE(commands.canRun);
    EXPECT_FALSE(commands.canClearAll);
    EXPECT_FALSE(commands.canOpenSheet);
    EXPECT_FALSE(commands.canResetShutter);
    EXPECT_TRUE(commands.resetEnabled);
    EXPECT_TRUE(commands.closePortEnabled);
    tickUntil([this] { return !isTaking(); });
    EXPECT_TRUE(commands.canRun);
    EXPECT_TRUE(commands.canClearAll);
    EXPECT_TRUE(commands.canOpenSheet);
}

TEST_F(SimulatedDownload, GarbageHarmsOnlyTheRecordsItStandsIn) {
    // Before the dump the garbage would spoil the report as well, so the settings are not waited for.
    int spoilt = 0;
    for (const int seed : {1, 2, 3, 4, 5, 6, 7, 8}) {
        program.closePort();
        messages.shown.clear();
        ports.setDevice(1, QStringLiteral("sim:trx?records=50&fault=garbage&seed=%1").arg(seed));
        load();
        autoConnect();
        state.Vartemp = QStringLiteral("V");
        program.link.session.setFirmware(QStringLiteral("512"));
        tickUntil([this] { return ports.inputCount() == 0 && line->blocks.back().endsWith('>'); });
        startText();
        const qint64 start = clock.monotonicMilliseconds();
        tickUntil([this, start] { return !isTaking() || clock.monotonicMilliseconds() - start > 30'000; });
        const ExpectedDump expected(dumpLines(line->blocks), 4);
        program.closePort();
        EXPECT_EQ(fileRows(), expected.textRows.toStdString());
        EXPECT_TRUE(contentsOf(path("log.ohp")).endsWith(line->blocks.join("\r\n") + "\r\n"));
        spoilt += expected.unreadable;
    }
    EXPECT_GT(spoilt, 0);
}

/// A download lasts at most 2 % longer than the line needs for its bytes.
class DownloadPace : public SimulatedDownload, public testing::WithParamInterface<std::string> {
protected:
    void expectPace(const std::function<void()>& download) {
        timer.setInterval(StatusTimer::slowInterval);
        const qint64 start = clock.monotonicMilliseconds();
        download();
        const auto taken = static_cast<double>(clock.monotonicMilliseconds() - start);
        qsizetype bytes = 0;
        for (const QByteArray& block : line->blocks) {
            bytes += block.size();
        }
        ASSERT_GT(bytes, 9000);
        EXPECT_LE(taken, static_cast<double>(bytes) / 960.0 * 1000.0 * 1.02);
    }
};

TEST_P(DownloadPace, KeepsUpWithTheLine) {
    connectTo(QString::fromStdString(GetParam()));
    expectPace([this] { downloadToFile(); });
    expectPace([this] { downloadToSheet(); });
    EXPECT_TRUE(messages.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(Download, DownloadPace,
                         testing::Values("sim:trx?records=1000", "sim:trx?firmware=412&records=1000",
                                         "sim:glow?records=1000", "sim:glow?records=0&erased=5000",
                                         "sim:trx?records=200&erased=2000&end=0"));

} // namespace

} // namespace orv
