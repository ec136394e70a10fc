// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/expected.h"
#include "testing/ptyrig.h"

#include <QElapsedTimer>

namespace orv {

namespace {

/// The program with one instrument on COM 1.
class DownloadRig : public ProgramTest {
protected:
    explicit DownloadRig(LineMaker makeLine)
        : ProgramTest(std::move(makeLine)) {
        lineMade = [this] {
            line->written = [this](const QByteArray& bytes) {
                if (bytes == "O") {
                    line->blocks.clear();
                }
            };
        };
    }
    ~DownloadRig() override { program.end(); }

    void load() {
        if (!loaded_) {
            loaded_ = true;
            program.load();
        }
    }

    /// Connects and reads the settings.
    void connectTo(const QString& device) {
        ports.setDevice(1, device);
        load();
        program.autoConnect1();
        tickUntil([this] { return state.Ctrlscrn == Operation::SettingsOpen; });
        ASSERT_TRUE(commands.canCommand);
        ASSERT_TRUE(messages.shown.empty());
    }

    void connectAnewTo(const QString& device) {
        program.closePort();
        messages.shown.clear();
        connectTo(device);
    }

    /// A millisecond of the test's clock.
    virtual void step() { clock.advance(1); }

    void tickUntil(const std::function<bool()>& reached) {
        constexpr int enough = 2'000'000;
        QElapsedTimer passed;
        passed.start();
        for (int milliseconds = 0; !reached(); ++milliseconds) {
            ASSERT_LT(milliseconds, enough);
            ASSERT_LT(passed.elapsed(), patience);
            step();
        }
    }

    bool quits() {
        bool ended = false;
        const Subscription listening = program.ended.subscribe([&ended] { ended = true; });
        program.quit();
        return ended;
    }

    bool isTaking() const { return commands.activity.value() == Activity::Downloading; }

    void startText() {
        answers.fileName = path("dump.txt");
        program.downloadText();
    }

    void downloadToFile() {
        startText();
        tickUntil([this] { return !isTaking(); });
    }

    void downloadToSheet() {
        program.vwhp();
        tickUntil([this] { return !isTaking(); });
    }

    std::string rowsOf(const char* name) const {
        const QByteArray bytes = contentsOf(path(name));
        return bytes.mid(bytes.indexOf('\n', bytes.indexOf("Data Point")) + 1).toStdString();
    }

    std::string fileRows() const { return rowsOf("dump.txt"); }

    std::string savedSheetRows() {
        answers.fileName = path("sheet.txt");
        program.saveAs();
        return rowsOf("sheet.txt");
    }

    std::string statusText() const { return status.status.value().toStdString(); }

    void expectWholeEnd(const ExpectedDump& expected) {
        EXPECT_TRUE(expected.ended);
        EXPECT_EQ(statusText(), "Ready");
        EXPECT_FALSE(progress.visible);
        EXPECT_EQ(status.downloadedBytes.value(), QString::number(expected.bytes));
        EXPECT_TRUE(commands.canCommand);
        EXPECT_TRUE(contentsOf(path("log.ohp")).endsWith(line->blocks.join("\r\n") + "\r\n"));
        EXPECT_TRUE(messages.shown.empty());
    }

    /// Downloads into a file and onto the sheet.
    void expectFileAndSheetHold(int records, qsizetype values) {
        downloadToFile();
        const ExpectedDump toFile(dumpLines(line->blocks), values);
        EXPECT_EQ(toFile.records, records);
        EXPECT_EQ(fileRows(), toFile.textRows.toStdString());
        expectWholeEnd(toFile);
        EXPECT_EQ(sheet.rowCount(), 0);

        downloadToSheet();
        const ExpectedDump toSheet(dumpLines(line->blocks), values);
        EXPECT_EQ(toSheet.textRows, toFile.textRows);
        expectWholeEnd(toSheet);
        EXPECT_EQ(sheet.rowCount(), records);
        EXPECT_EQ(savedSheetRows(), toSheet.sheetRows.toStdString());
    }

    std::vector<std::string> told() const {
        std::vector<std::string> texts;
        for (const Message& message : messages.shown) {
            texts.push_back(message.text.toStdString());
        }
        return texts;
    }

    std::string incompleteText(int records, const std::string& where) const {
        return "The download is incomplete: it was ended before the instrument had sent everything. " +
               std::to_string(records) + " records arrived and can be found " + where +
               ".\n\nThe instrument still holds its data; download it again.";
    }

    std::unique_ptr<InstrumentProcess> instrument; ///< If it is a process of its own.

private:
    bool loaded_ = false;
};

/// Downloads from a simulated instrument at the pace of its line, on the test's clock.
class SimulatedDownload : public DownloadRig {
protected:
    SimulatedDownload()
        : DownloadRig(simulatedInstrument) {}
};

class EveryKind : public SimulatedDownload, public testing::WithParamInterface<std::string> {};

TEST_P(EveryKind, FileAndSheetHoldTheInstrumentsRecords) {
    connectTo(QString::fromStdString(GetParam()));
    expectFileAndSheetHold(60, valuesOf(GetParam()));
    EXPECT_EQ(sheetState.topRow, 50);
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
        connectAnewTo(QStringLiteral("sim:trx?records=100&fault=cut&after=%1%").arg(percent));
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
        connectAnewTo(QStringLiteral("sim:glow?records=100&fault=cut&after=%1%").arg(percent));
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
        connectAnewTo(QStringLiteral("sim:trx?firmware=412&records=100&fault=unplug&after=%1%").arg(percent));
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
    EXPECT_TRUE(quits());
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
    EXPECT_FALSE(quits()) << "the save was cancelled";
    EXPECT_TRUE(isTaking());
    tickUntil([this] { return !isTaking(); });
    const ExpectedDump expected(dumpLines(line->blocks), 1);
    expectWholeEnd(expected);
    EXPECT_EQ(savedSheetRows(), expected.sheetRows.toStdString());
    answers.asked.clear();
    EXPECT_TRUE(quits());
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
        session.setFirmware(QStringLiteral("512"));
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
        const qsizetype bytes = line->blocks.join().size();
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

/// Downloads through the system's serial port class, from an instrument that another process serves on a
/// pseudo-terminal.
class PtyDownload : public DownloadRig {
protected:
    PtyDownload()
        : DownloadRig([](const QString& device, TestClock&) { return std::make_unique<SystemPort>(device); }) {}
    void step() override { pump(*this); }

    void serve(const QString& device) {
        instrument = std::make_unique<InstrumentProcess>(device);
        connectTo(instrument->path);
    }
};

class EveryKindOverPty : public PtyDownload, public testing::WithParamInterface<std::string> {};

TEST_P(EveryKindOverPty, FileAndSheetHoldTheInstrumentsRecords) {
    serve(QString::fromStdString(GetParam()));
    expectFileAndSheetHold(150, valuesOf(GetParam()));
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
