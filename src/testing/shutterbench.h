// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/shutterreset.h"
#include "settings/settingsreader.h"
#include "simulator/simulatedport.h"
#include "testing/fakes.h"

namespace orv {

/// For tests: a moment of a shutter reset, so long after one of its steps has begun.
struct ShutterMoment {
    const char* name;
    const char* step;
    int milliseconds;
    bool temporarySent; ///< The instrument may hold the temporary settings.
    bool yields;        ///< The operator's actions are handled.
};

/// One moment in each wait. With an instrument that answers, the settings are read after 1.2 s; a sending takes some
/// 60 ms; the shutter moves for 31 s.
inline constexpr std::array<ShutterMoment, 8> shutterMoments{
    {{"ReadingSettings", "Getting Settings", 450, false, true},
     {"BeforeSending", "Getting Settings", 1400, false, true},
     {"Sending", "Sending New Settings", 10, true, false},
     {"AfterSending", "Sending New Settings", 600, true, true},
     {"Moving", "Moving Shutter", 15'300, true, true},
     {"Polling", "Moving Shutter", 30'500, true, false},
     {"BeforeRestoring", "Restoring Orignal Settings", 900, true, true},
     {"Restoring", "Restoring Orignal Settings", 2030, true, false}}};

/// For tests: a shutter reset with everything below it, and the instrument at the far end of the line. The clock moves
/// only while the program waits.
class ShutterBench {
public:
    /// Makes the port, which moves the clock while it waits.
    using PortMaker = std::function<std::unique_ptr<Port>(TestClock& clock)>;

    static PortMaker simulated(const char* device) {
        const SimulatorOptions options = parseSimulatorOptions(QString::fromLatin1(device)).options;
        return [options](TestClock& time) {
            return std::make_unique<SimulatedPort>(options, time,
                                                   [&time](int milliseconds) { time.advance(milliseconds); });
        };
    }

    /// The settings of the instrument: append, wake up, log enabled; 30, 100, 5, 2.
    explicit ShutterBench(const char* device = "sim:trx")
        : ShutterBench(simulated(device)) {}

    explicit ShutterBench(PortMaker maker)
        : makePort(std::move(maker)) {
        ports.setDevice(1, QStringLiteral("instrument"));
        connect();
        for (const char* item : {"B", "000111", "T", "30\r", "D", "2\r", "Q", "100\r", "I", "5\r"}) {
            port->write(item);
            clock.advance(100);
        }
        port->discardInput();
        port->writes.clear();
        reader.prefsState = 0;

        yield.tick = [this] {
            if (timer.isRunning()) {
                tick();
            }
            whenever();
        };
        yield.whileResponsive = [this](bool) { timerRunningWhilePolling |= timer.isRunning() && !sender.isPolling(); };
        port->waited = [this](int) { whenever(); };
        progressWatch = session.status.shutterProgress.addNotifier([this] { noteStep(); });
    }

    /// Opens the port and wakes the instrument, as if it had been identified and read.
    void connect() {
        ports.open();
        port->setDataTerminalReady(true);
        port->setDataTerminalReady(false);
        clock.advance(300);
        port->discardInput(); // wakes an instrument on a pseudo-terminal
        clock.advance(300);
        port->readAll();
        session.state.Ctrlscrn = Operation::SettingsOpen;
        session.state.Vartemp = QStringLiteral("V");
        session.status.status = QStringLiteral("Ready");
        session.commands.activity = Activity::None;
        session.commands.runEnabled = true;
        session.commands.resetShutterEnabled = true;
        timer.enable();
    }

    /// What the program does at each tick of its timer.
    void tick() {
        const QString line = ports.isOpen() ? poll.quary() : QString();
        if (session.state.Ctrlscrn == Operation::Ready && !line.isEmpty()) {
            ++linesOfTicks;
            reader.getprefs(line);
        }
        if (session.state.Ctrlscrn == Operation::ClockCheck) {
            clockDisplay.checktime(line);
        }
    }

    /// Lets ticks go on for a while.
    void live(float seconds) { wait.waitsec(seconds); }

    void noteStep() {
        const QString text = session.status.shutterProgress;
        QString words = text;
        while (!words.isEmpty() && (words.back().isDigit() || words.back() == u' ')) {
            words.chop(1);
        }
        if (steps.isEmpty() || steps.back() != words) {
            steps << words;
            stepBegan = clock.monotonicMilliseconds();
        }
    }

    bool at(const char* step, int milliseconds) const {
        return !steps.isEmpty() && steps.back() == QLatin1String(step) &&
               clock.monotonicMilliseconds() - stepBegan >= milliseconds;
    }

    QByteArray written() const { return port->writes.join(); }

    LoggerSettings shown() const { return settings.record; }

    /// What the instrument reports when asked now.
    QByteArray report() {
        port->discardInput();
        port->write("P");
        clock.advance(300);
        return port->readAll();
    }

    void fixit() { connection.fixit(); }

    static LoggerSettings original() {
        return {.logEnabled = true,
                .wakeUp = true,
                .append = true,
                .samplesPerPoint = QStringLiteral("30"),
                .hoursBeforeBlock = QStringLiteral("2"),
                .pointsPerBlock = QStringLiteral("100"),
                .secondsBetweenPoints = QStringLiteral("5")};
    }

    TestClock clock;
    RecordedMessages messages;
    SteppedYield yield{clock};
    Session session{clock, messages};
    DebugState debug;
    WatchedPort* port = nullptr;
    PortMaker makePort;
    ComPorts ports{session, debug, [this](const QString&) {
                       auto made = std::make_unique<WatchedPort>(makePort(clock));
                       port = made.get();
                       return made;
                   }};
    TimedWait wait{clock, yield, ports};
    ProgramLog log;
    Poll poll{session, ports, debug, log};
    StatusTimer timer;
    Connection connection{session, debug, ports, wait, yield, timer};
    ManualConnection manual{session, connection};
    SettingsState settings;
    ProgressState progress;
    SettingsReader reader{{.session = session,
                           .ports = ports,
                           .connection = connection,
                           .manual = manual,
                           .settings = settings,
                           .progress = progress}};
    ClockDisplay clockDisplay{session, ports, debug, settings};
    SettingsSender sender{{.session = session,
                           .ports = ports,
                           .debug = debug,
                           .poll = poll,
                           .wait = wait,
                           .events = yield,
                           .timer = timer,
                           .settings = settings,
                           .progress = progress}};
    std::function<void(const QString& line)> getprefs = [this](const QString& line) { reader.getprefs(line); };
    std::function<SettingsSender::Outcome()> setprefs = [this] { return sender.setprefs(); };
    ShutterReset shutter{{.session = session,
                          .ports = ports,
                          .wait = wait,
                          .events = yield,
                          .poll = poll,
                          .timer = timer,
                          .settings = settings,
                          .getprefs = [this](const QString& line) { getprefs(line); },
                          .setprefs = [this] { return setprefs(); }}};

    QStringList steps; ///< Progress texts without their counts, as they changed.
    qint64 stepBegan = 0;
    int linesOfTicks = 0; ///< Report lines that ticks handed on.
    int resets = 0;
    Subscription countingResets = connection.wasReset.subscribe([this] { ++resets; });
    bool timerRunningWhilePolling = false;
    /// Called whenever the clock has moved.
    std::function<void()> whenever = [] {};
    QPropertyNotifier progressWatch;
};

} // namespace orv
