// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "testing/fakes.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

namespace orv {

/// What an instrument answers to "P" when it has just greeted: the echo, its settings and the prompt.
QByteArray settingsReport(const QByteArray& pointsPerBlock = "0");

/// The simulated instrument of a device name such as "sim:trx?records=60", at the pace of its line on that clock.
std::unique_ptr<Port> simulatedInstrument(const QString& device, TestClock& clock);

/// The whole program below its windows, with its own wiring, reset and tick, in a folder of its own. The status timer,
/// the clock and the operator are the test. Tests of any part bring the program where that part matters, and look at it
/// through the references below.
///
/// The program waits inside some actions: a verb of the rig returns when the action has come to its end, and the test's
/// clock has run on meanwhile with the ticks that fall into the wait.
class ProgramRig {
public:
    /// Makes the port of a device.
    using LineMaker = std::function<std::unique_ptr<Port>(const QString& device, TestClock& clock)>;

    /// The far ends of both lines are the test: `com1` is "ttyA" on COM 1, `com2` is "ttyB" on COM 2. While the program
    /// waits for input the clock runs, and `replies` arrive, one block for each wait.
    ProgramRig();
    /// Both lines lead to instruments, which are watched: see `line`.
    explicit ProgramRig(LineMaker makeLine);
    ~ProgramRig();
    ProgramRig(const ProgramRig&) = delete;
    ProgramRig& operator=(const ProgramRig&) = delete;

    /// "Auto Connect Comm 1" or 2, to the end of the attempt.
    void autoConnect(int portNumber = 1);
    /// "Start" and "Retry" of the "Manual Connection" dialog, to the end of the attempt.
    void pressStart();
    void pressRetry();
    /// "Abort 2", to the end of the attempt to connect again.
    void abort2();
    /// "Reset Shutter", to its end.
    void resetShutter();
    /// The program-wide reset, as a failing line or the operator brings it about.
    void fixit();
    /// "Auto Connect Comm 1" with an instrument that greets so.
    void connect(const QByteArray& greeting = "V512\r");
    /// Connects and lets the instrument answer until the program is "Ready".
    void connectAndRead(const QByteArray& greeting = "V512\r", const QByteArray& pointsPerBlock = "0");
    /// Connects, runs and receives so many rows of a TRX of the newer generation.
    void runWithRows(int rows);

    /// One tick of the status timer that finds these characters.
    void receive(const QByteArray& bytes);
    void ticks(int count);
    /// Lets ticks go on for a while.
    void live(float seconds);

    /// Adds rows until the sheet has so many.
    void haveRows(int count);

    /// Opens the debug port and ticks its box; what is written there is in `said()`.
    void tickDebugOutput();
    /// What has been written to the debug port since the last call.
    std::string said();
    /// The same; each reset, which writes 14 lines, is "(reset)".
    std::string saidBriefly();

    /// The message that the operator has been told; the test fails unless there is one and no other.
    const Message& theMessage() const;

    /// Everything by which the operator sees that the program is as after a reset.
    void expectOffline();

    QString path(const char* name) const { return folder.path(name); }

    OwnFolder folder;
    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    SteppedYield events{clock};
    TestPort com1;
    TestPort com2;
    FakePortList portList;
    std::deque<QByteArray> replies;
    TestPort* line = nullptr;       ///< The port made last.
    std::function<void()> lineMade; ///< Called when there is another.
    int pollingEnds = 0;            ///< How many loops that do not yield have ended in the connection.
    int identifications = 0;
    int resets = 0;

private:
    LineMaker makeLine_;

public:
    Program program;

    Subscription countingPolls = program.link.connection.pollingEnded.subscribe([this] {
        ++pollingEnds;
        EXPECT_FALSE(program.isPolling());
    });
    Subscription countingIdentifications = program.link.connection.identified.subscribe([this] { ++identifications; });
    Subscription countingResets = program.link.connection.wasReset.subscribe([this] { ++resets; });

    Session& session = program.link.session;
    SessionState& state = session.state;
    StatusState& status = session.status;
    CommandState& commands = session.commands;
    ConnectItems& items = program.link.connection.items;
    DebugState& debug = program.link.debug;
    SettingsState& settings = program.settings.shown;
    ProgressState& progress = program.settings.progress;
    SheetState& sheetState = program.sheet.shown;
    DataSheet& sheet = program.sheet.data;
    ComPorts& ports = program.link.ports;
    TimedWait& wait = program.link.wait;
    StatusTimer& timer = program.link.timer;
    ManualConnection& manual = program.link.manual;
    QByteArray& rxbuffer = program.link.poll.rxbuffer;
    SettingsReader& reader = program.settings.reader;
    SettingsSender& sender = program.settings.sender;
    SheetRows& rows = program.sheet.rows;
    SheetFiles& files = program.sheet.files;
    RecordFile& recordFile = program.sheet.recordFile;
    RunRecovery& recovery = program.sheet.recovery;
    Run& collection = program.sheet.run;
    Download& download = program.sheet.download;
    ShutterReset& shutter = program.shutter;
};

class ProgramTest : public testing::Test, public ProgramRig {
protected:
    ProgramTest() = default;
    explicit ProgramTest(LineMaker makeLine)
        : ProgramRig(std::move(makeLine)) {}
};

} // namespace orv
