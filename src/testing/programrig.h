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
/// Some actions begin a procedure that waits: a verb of the rig returns when the procedure has ended, and the test's
/// clock has run on meanwhile, millisecond by millisecond.
class ProgramRig {
public:
    /// Makes the port of a device.
    using LineMaker = std::function<std::unique_ptr<Port>(const QString& device, TestClock& clock)>;

    /// The far ends of both lines are the test: `com1` is "ttyA" on COM 1, `com2` is "ttyB" on COM 2. When the program
    /// has discarded its input and reads the line itself, `replies` arrive, one block in each millisecond.
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
    /// "Quit", and the closing of the window, with answers that come at once. Whether the program has ended.
    bool quit();
    bool leave();
    /// The program-wide reset, as a failing line or the operator brings it about.
    void fixit();
    /// "Auto Connect Comm 1" with an instrument that greets so.
    void connect(const QByteArray& greeting = "V512\r");
    /// Connects and lets the instrument answer until the program is "Ready".
    void connectAndRead(const QByteArray& greeting = "V512\r", const QByteArray& pointsPerBlock = "0");
    /// Connects, runs and receives so many rows of a TRX of the newer generation.
    void runWithRows(int rows);

    /// Lets the clock run until no procedure has the instrument, for an hour at most.
    void finish();
    /// Lets the clock run.
    void live(double seconds);

    /// One tick of the status timer that finds these characters.
    void receive(const QByteArray& bytes);
    /// So many ticks, unless a procedure reads the port itself.
    void ticks(int count = 1);

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
    TestPort com1;
    TestPort com2;
    FakePortList portList;
    std::optional<qint64> freeSpace; ///< Bytes on the disk of the record file.
    std::deque<QByteArray> replies;
    TestPort* line = nullptr;       ///< The port made last.
    std::function<void()> lineMade; ///< Called when there is another.
    /// Called after each millisecond of finish() and live().
    std::function<void()> eachMillisecond;
    int identifications = 0;
    int resets = 0;

private:
    bool hasEnded(const std::function<void()>& action);
    void deliverReplies(TestPort& port);

    LineMaker makeLine_;
    Subscription delivery_;

public:
    Program program;

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
    Waits& waits = program.link.waits;
    Procedures& procedures = program.link.procedures;
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

/// What a procedure came to that does not wait.
template <typename T>
T resultOf(Task<T> task) {
    std::optional<T> result;
    const auto keep = [](Task<T> kept, std::optional<T>& into) -> Task<> { into = co_await kept; };
    keep(std::move(task), result);
    if (!result) {
        throw std::logic_error("the procedure waits");
    }
    return *result;
}

class ProgramTest : public testing::Test, public ProgramRig {
protected:
    ProgramTest() = default;
    explicit ProgramTest(LineMaker makeLine)
        : ProgramRig(std::move(makeLine)) {}
};

} // namespace orv
