// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentmemory.h"
#include "testing/expected.h"
#include "testing/ptyrig.h"

namespace orv {
namespace {

/// The whole program below its windows on the instrument's pseudo-terminal as COM 1 and the test's own as COM 2, driven
/// by its own status timer.
class EndToEndTest : public ProgramTest {
protected:
    EndToEndTest()
        : ProgramTest([](const QString& device, TestClock&) { return std::make_unique<SystemPort>(device); }) {
        lineMade = [this] {
            line->read = [this](const QByteArray& block) {
                if (!timer.isHeld()) {
                    received += block;
                    expectedLog += block + "\r\n";
                }
            };
        };
    }
    ~EndToEndTest() override { program.end(); }

    void start(const char* device, bool debugOutput = false) {
        instrument = std::make_unique<InstrumentProcess>(QString::fromLatin1(device));
        ports.setDevice(1, instrument->path);
        ports.setDevice(2, debugEnd.path);
        debug.comm2Output = debugOutput;
        program.load();
    }

    /// Runs the program until the condition holds. Returns whether it did.
    template <typename Condition>
    bool until(Condition reached) {
        return pumpUntil(*this, [this, &reached] {
            debugEnd.listen();
            return reached();
        });
    }

    bool isReady() const {
        return status.status.value() == QLatin1String("Ready") && state.Ctrlscrn == Operation::SettingsOpen;
    }
    bool runHasEnded() const { return state.Ctrlscrn == Operation::CollectionSetUp; }

    void connectAndRead() {
        program.autoConnect1();
        ASSERT_TRUE(until([this] { return isReady(); }));
    }

    /// The data lines among the complete lines that the program has received.
    std::vector<DecodedLine> receivedRows() const {
        std::vector<DecodedLine> rows;
        QByteArray text = received;
        text.truncate(text.lastIndexOf('\n') + 1);
        for (const QByteArray& line : text.split('\n')) {
            if (line.count('/') == 2 && line.count('\t') > 1) {
                rows.push_back(decodeLine(line.trimmed()));
            }
        }
        return rows;
    }

    FarEnd debugEnd;
    std::unique_ptr<InstrumentProcess> instrument;
    QByteArray received;    ///< All that the poll has read.
    QByteArray expectedLog; ///< The same, each block as one line.
};

/// One kind of instrument and what its files look like.
struct Kind {
    const char* name;
    const char* device;
    const char* type;
    const char* firmware;
    int rows;
    const char* grid;
    const char* recordHeader;
    const char* sheetHeader;
    QList<int> recordColumns; ///< Which value stands in each column of the record file; -1 for an empty column.
    QList<int> sheetColumns;  ///< The same of the sheet file.
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.device;
}

const Kind kinds[] = {
    {"Trx512",
     "sim:trx?baud=0&rate=200&points=20&seed=7",
     "TRX",
     "512",
     20,
     "Data #|Date|Time|100|125|150|Ref",
     "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n",
     "Data Point\tDate\tTime\t100\t125\t150\tREF 150\r\n",
     {0, -1, 1, -1, 2, 3},
     {0, 1, 2, 3, -1}},
    {"Trx412",
     "sim:trx?firmware=412&baud=0&rate=200&points=15&seed=8",
     "TRX",
     "412",
     15,
     "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref",
     "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n",
     "Data Point\tDate\tTime\t100\tREF 100\t125\tREF 125\t150\tREF 150\r\n",
     {0, 1, 2, 3, 4, 5},
     {0, 1, 2, 3, 4}},
    {"Glow",
     "sim:glow?baud=0&rate=200&points=25&seed=9",
     "GLOW",
     "310",
     25,
     "Data #|Date|Time|Output",
     "Date\tTime\tLED1\tLED2\tLED3\tREF3\r\n",
     "Data Point\tDate\tTime\tCounts\t\r\n",
     {0},
     {0}},
    {"Trx512AtTheLinesPace",
     "sim:trx?rate=25&points=4",
     "TRX",
     "512",
     4,
     "Data #|Date|Time|100|125|150|Ref",
     "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n",
     "Data Point\tDate\tTime\t100\t125\t150\tREF 150\r\n",
     {0, -1, 1, -1, 2, 3},
     {0, 1, 2, 3, -1}},
};

class MainRoad : public EndToEndTest, public testing::WithParamInterface<Kind> {
protected:
    static QByteArray rowText(int number, const DecodedLine& row, const QList<int>& columns, char separator) {
        QByteArray text = QByteArray::number(number) + separator + row.date + separator + row.time;
        for (const int column : columns) {
            text += separator + (column < 0 ? QByteArray() : row.values.value(column));
        }
        return text;
    }

    QByteArray expectedRecordFile() const {
        QByteArray text = QByteArray("Orvtemp.tmp\t11/21/26\t9:30:16 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n") +
                          GetParam().recordHeader;
        int number = 0;
        for (const DecodedLine& row : receivedRows()) {
            ++number;
            text += rowText(number, row, GetParam().recordColumns, '\t') + "\r\n";
        }
        return text;
    }

    QByteArray expectedSheetFile(const char* name) const {
        const std::vector<DecodedLine> rows = receivedRows();
        QByteArray text = GetParam().type == QByteArray("TRX") ? "V" : "F";
        text += QByteArray("\t") + GetParam().firmware + ' ' + QByteArray::number(static_cast<int>(rows.size())) +
                "\r\n" + name + "\r\n\r\r\r\n" + GetParam().sheetHeader;
        int number = 0;
        for (const DecodedLine& row : rows) {
            ++number;
            text += rowText(number, row, GetParam().sheetColumns, '\t') + "\t\r";
        }
        return text;
    }

    /// The instrument's readings follow from its seed and the number of the point, so they tell whether a line was lost
    /// or changed on its way.
    void expectTheInstrumentsOwnReadings(const std::vector<DecodedLine>& rows) const {
        const SimulatorOptions options = parseSimulatorOptions(QString::fromLatin1(GetParam().device)).options;
        auto number = static_cast<quint32>(options.records);
        for (const DecodedLine& row : rows) {
            const QByteArray line = dataLine(options, {{}, number});
            EXPECT_EQ(row.values.join('\t').toStdString(), decodeLine(line.trimmed()).values.join('\t').toStdString());
            ++number;
        }
    }
};

TEST_P(MainRoad, FromConnectToSavedSheet) {
    const Kind& kind = GetParam();
    start(kind.device);
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    connectAndRead();
    EXPECT_EQ(instrumentName(status.instrument).toStdString(), kind.type);
    EXPECT_EQ(status.firmware.value().toStdString(), kind.firmware);
    EXPECT_EQ(settings.record.value().pointsPerBlock.toInt(), kind.rows);
    EXPECT_EQ(settings.memoryPointer.value().toStdString(), "200");
    EXPECT_EQ(settings.capacity.value().toStdString(), "0.3");
    EXPECT_TRUE(settings.visible);
    EXPECT_EQ(sheet.header().join(u'|').toStdString(), kind.grid);
    const DecodedLine clockReply = decodeLine(received.mid(received.indexOf("\r\n", received.indexOf("C\r\n")) + 2));
    EXPECT_EQ(status.date.value().toStdString(), clockReply.date.toStdString());
    EXPECT_TRUE(commands.canRun);

    received.clear();
    program.run();
    EXPECT_EQ(status.status.value().toStdString(), "Running");
    EXPECT_FALSE(commands.canRun);
    ASSERT_TRUE(until([this] { return runHasEnded(); }));
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_TRUE(commands.canRun);
    const std::vector<DecodedLine> rows = receivedRows();
    ASSERT_EQ(static_cast<int>(rows.size()), kind.rows);
    expectTheInstrumentsOwnReadings(rows);
    EXPECT_EQ(sheet.rowCount(), kind.rows);
    EXPECT_EQ(state.plc, kind.rows);
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")).toStdString(), expectedRecordFile().toStdString());
    EXPECT_EQ(contentsOf(folder.path("log.ohp")).toStdString(), expectedLog.toStdString());

    answers.fileName = folder.path("sheet.txt");
    program.saveAs();
    EXPECT_EQ(contentsOf(folder.path("sheet.txt")).toStdString(), expectedSheetFile("sheet.txt").toStdString());
    EXPECT_FALSE(sheetState.unsaved);
    // The last reference of the older TRX stands in its record file alone, and the operator is told.
    const bool inPart = std::string(kind.firmware) == "412";
    EXPECT_EQ(messages.shown.size(), inPart ? 1U : 0U);
    EXPECT_EQ(folder.files().join(u' ').toStdString(),
              inPart ? "Orvtemp.tmp log.ohp orvhost.lock sheet.txt"
                     : "Orvtemp.tmp Orvtemp.tmp.saved log.ohp orvhost.lock sheet.txt");
}

INSTANTIATE_TEST_SUITE_P(Kinds, MainRoad, testing::ValuesIn(kinds),
                         [](const testing::TestParamInfo<Kind>& kind) { return kind.param.name; });

/// The debug port's text with the clock's announcement, which comes at each tick until the clock is read, just once.
std::string withoutRepeats(QByteArray heard) {
    const QByteArray line = "Check Orv Sensor Time\r";
    while (heard.contains(line + line)) {
        heard.replace(line + line, line);
    }
    return heard.replace('\r', '\n').toStdString();
}

TEST_F(EndToEndTest, TheDebugPortTellsTheWholeSession) {
    start("sim:trx?baud=0&rate=200&points=3", true);
    connectAndRead();
    program.run();
    ASSERT_TRUE(until([this] { return runHasEnded(); }));
    answers.fileName = folder.path("sheet.txt");
    program.saveAs();
    program.closePort();
    fixit();
    program.quit();
    ASSERT_TRUE(until([this] { return debugEnd.heard.endsWith("Exit\r"); }));

    std::string expected = "Form Loading\nReset Everything AKA FIXIT\n"
                           "Ctrlscrn  0\nRtn wakeup!!!\nTmr  1\ncsnter \nVartemp \ntrouble  0\nportstatus  2\n"
                           "gatherstart  0\nGatherstop  0\nplc  0\nTimeout  0\nSeeking  0\nPortused  0\n"
                           "Auto Open 1\nOpen port 1\nLooking to see what port to open\nPresets for Opening Port\n"
                           "Version Detected\n";
    for (int line = 0; line < 12; ++line) {
        expected += "Get Prefs\n";
    }
    expected += "Check Orv Sensor Time\nRun 1\nStart Running Profile\n"
                "Profile Sub\nProfile Sub\nProfile Sub\nProfile Sub\n"
                "Save Spread Sheet\nSaving TRX(S) Sheet\n"
                "Close Port\nLooking to see what port to open\nReset Everything AKA FIXIT\n"
                "Ctrlscrn  0\nRtn wakeup!!!\nTmr  1\ncsnter \nVartemp V\ntrouble  0\nportstatus  2\n"
                "gatherstart  0\nGatherstop  0\nplc  3\nTimeout  12\nSeeking  0\nPortused  1\n"
                "Exit\n";
    EXPECT_EQ(withoutRepeats(debugEnd.heard), expected);
}

TEST_F(EndToEndTest, ResetStopsARunAndConnectsAgainWithEveryRow) {
    start("sim:trx?baud=0&rate=200");
    connectAndRead();
    received.clear();
    program.run();
    ASSERT_TRUE(until([this] { return state.plc >= 5; }));
    program.reset();
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    ASSERT_TRUE(until([this] { return isReady(); }));
    const int rows = sheet.rowCount();
    EXPECT_GE(rows, 5);
    const QByteArray record = contentsOf(folder.path("Orvtemp.tmp"));
    EXPECT_TRUE(record.endsWith("\r\n"));
    EXPECT_EQ(record.count("\r\n"), 5 + rows);
    EXPECT_EQ(contentsOf(folder.path("log.ohp")).toStdString(), expectedLog.toStdString());
    EXPECT_TRUE(commands.canRun);

    program.run();
    ASSERT_TRUE(until([this, rows] { return state.plc > rows + 3; }));
    EXPECT_EQ(folder.files().join(u' ').toStdString(),
              "Orvtemp-20261121-093017.tmp Orvtemp.tmp Orvtemp.tmp.lock log.ohp orvhost.lock")
        << "the unsaved rows of the first run are kept";
    EXPECT_EQ(contentsOf(folder.path("Orvtemp-20261121-093017.tmp")).toStdString(), record.toStdString());
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).contains("\r\n" + QByteArray::number(rows + 1) + '\t'));
}

TEST_F(EndToEndTest, ClosePortInARunAndASecondSession) {
    start("sim:glow?baud=0&rate=200");
    connectAndRead();
    program.run();
    ASSERT_TRUE(until([this] { return state.plc >= 3; }));
    program.closePort();
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_EQ(instrumentName(status.instrument).toStdString(), "________");
    EXPECT_EQ(status.firmware.value().toStdString(), "________");
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    const int rows = sheet.rowCount();
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")).count("\r\n"), 5 + rows);

    connectAndRead();
    EXPECT_EQ(instrumentName(status.instrument).toStdString(), "GLOW");
    program.run();
    ASSERT_TRUE(until([this, rows] { return state.plc > rows; }));
    EXPECT_EQ(sheet.cell(rows, 0).toStdString(), std::to_string(rows + 1));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(EndToEndTest, ClosePortDuringTheWakeUpPulseSendsNothingMore) {
    start("sim:trx?baud=0");
    program.autoConnect1();
    ASSERT_FALSE(procedures.isIdle());
    program.closePort();
    EXPECT_TRUE(procedures.isIdle());
    EXPECT_FALSE(ports.isOpen());
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_EQ(state.Portused, 0);
    connectAndRead();
    EXPECT_EQ(status.firmware.value().toStdString(), "512");
}

TEST_F(EndToEndTest, AManualConnectionSeeksUntilTheOperatorQuits) {
    start("sim:trx?fault=silent");
    program.manualConnect(1);
    manual.proceed();
    manual.start();
    for (int attempt = 0; attempt < 5; ++attempt) {
        ASSERT_TRUE(until([this] { return timer.isHeld(); }));
        constexpr qint64 longerThanAnAttempt = 6000;
        clock.advance(longerThanAnAttempt);
        EXPECT_FALSE(procedures.isIdle());
    }
    manual.quit();
    EXPECT_TRUE(procedures.isIdle());
    EXPECT_FALSE(ports.isOpen());
    EXPECT_FALSE(manual.shown.visible);
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_EQ(state.Seeking, 0);
}

TEST_F(EndToEndTest, ASilentInstrumentLeadsToTheManualDialogWithThePortOpen) {
    start("sim:trx?fault=silent");
    program.autoConnect1();
    ASSERT_TRUE(until([this] { return timer.isHeld(); }));
    clock.advance(5000);
    EXPECT_FALSE(procedures.isIdle()) << "the attempt was given up before its five seconds had passed";
    clock.advance(1000);
    EXPECT_TRUE(procedures.isIdle());
    EXPECT_TRUE(manual.shown.visible);
    EXPECT_EQ(manual.shown.text.value().toStdString(), "");
    EXPECT_TRUE(ports.isOpen());
    manual.quit();
    EXPECT_FALSE(ports.isOpen());
}

TEST_F(EndToEndTest, AnInstrumentThatVanishesInARunIsToldOnceWithEveryRowKept) {
    start("sim:trx?baud=0&rate=200");
    connectAndRead();
    received.clear();
    program.run();
    ASSERT_TRUE(until([this] { return state.plc >= 4; }));
    instrument->kill();
    ASSERT_TRUE(until([this] { return !ports.isOpen(); }));
    EXPECT_TRUE(theMessage().text.contains(instrument->path));
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_EQ(sheet.rowCount(), static_cast<int>(receivedRows().size()));
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")).count("\r\n"), 5 + sheet.rowCount());
    EXPECT_EQ(contentsOf(folder.path("log.ohp")).toStdString(), expectedLog.toStdString());
}

TEST_F(EndToEndTest, ADeviceThatIsNotThereIsToldInPlainWords) {
    start("sim:trx");
    ports.setDevice(1, folder.path("no-such-device"));
    program.autoConnect1();
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("COM 1 (%1)").arg(folder.path("no-such-device"))));
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("no such device")));
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_TRUE(items[ConnectItems::Auto2].enabled);
}

} // namespace
} // namespace orv
