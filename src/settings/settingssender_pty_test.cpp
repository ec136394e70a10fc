// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/systemport.h"
#include "settings/modes.h"
#include "settings/settingsreader.h"
#include "settings/settingssender.h"
#include "simulator/ptyserver.h"
#include "testing/fakes.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

/// The real port on a pseudo-terminal whose far end is served, on the test's clock, whenever the program waits.
class ServedPort final : public Port {
public:
    ServedPort(const QString& device, TestClock& clock, PtyServer& server)
        : port_(device)
        , clock_(clock)
        , server_(server) {}

    QString open() override { return port_.open(); }
    void close() override { port_.close(); }
    bool isOpen() const override { return port_.isOpen(); }
    void setDataTerminalReady(bool on) override { port_.setDataTerminalReady(on); }
    QByteArray readAll() override { return port_.readAll(); }
    void write(const QByteArray& bytes) override {
        writes.emplace_back(bytes, clock_.monotonicMilliseconds());
        port_.write(bytes);
    }
    void discardInput() override { port_.discardInput(); }
    qsizetype inputCount() override { return port_.inputCount(); }
    bool waitForInput(int milliseconds) override {
        // What the server writes reaches this end a moment later; once nothing has come for long, nothing will.
        constexpr int longSilence = 100;
        clock_.advance(milliseconds);
        server_.serve(0);
        const bool arrived = port_.waitForInput(silentWaits_ < longSilence ? milliseconds : 0);
        silentWaits_ = arrived ? 0 : silentWaits_ + 1;
        return arrived;
    }
    QString failure() const override { return port_.failure(); }

    std::vector<std::pair<QByteArray, qint64>> writes;

private:
    SystemPort port_;
    TestClock& clock_;
    PtyServer& server_;
    int silentWaits_ = 0;
};

/// Sending to the simulated instrument over a pseudo-terminal; ticks as the status timer dispatches them.
class SendingPtyTest : public testing::Test {
protected:
    void connect(const char* device) {
        server = std::make_unique<PtyServer>(parseSimulatorOptions(QString::fromLatin1(device)).options, clock);
        ASSERT_EQ(server->open(), QString());
        ports.setDevice(1, server->path());
        ASSERT_TRUE(ports.open());
        ports.discardInput(); // stands for the wake-up pulse
        QByteArray greeting;
        for (int pass = 0; pass < 2000 && !greeting.contains('\r'); ++pass) {
            ports.waitForInput(1);
            greeting += ports.readAll();
        }
        ASSERT_EQ(greeting, "V512\r");
        port->writes.clear();
        session.state.Ctrlscrn = Operation::SettingsOpen;
        session.state.Vartemp = QStringLiteral("V");
        settings.computerDate = QStringLiteral("1/5/99");
    }

    std::unique_ptr<Port> makePort(const QString& device) {
        auto made = std::make_unique<ServedPort>(device, clock, *server);
        port = made.get();
        return made;
    }

    void tick() {
        ports.waitForInput(1);
        const QString line = poll.quary();
        if (session.state.Ctrlscrn == Operation::Ready && !line.isEmpty()) {
            reader.getprefs(line);
        }
        if (session.state.Ctrlscrn == Operation::ClockCheck) {
            clockDisplay.checktime(line);
        }
    }

    void tickFor(int milliseconds) {
        for (int passed = 0; passed < milliseconds; ++passed) {
            tick();
        }
    }

    QByteArray allWritten() const {
        QByteArray all;
        for (const auto& [bytes, when] : port->writes) {
            all += bytes;
        }
        return all;
    }

    TestClock clock;
    std::unique_ptr<PtyServer> server;
    ServedPort* port = nullptr;
    RecordedMessages messages;
    SteppedYield events{clock};
    Session session{clock, messages};
    DebugState debug;
    ComPorts ports{session, debug, [this](const QString& device) { return makePort(device); }};
    ProgramLog log;
    Poll poll{session, ports, debug, log};
    TimedWait wait{clock, events, ports};
    StatusTimer timer;
    SettingsState settings;
    ProgressState progress;
    Connection connection{session, debug, ports, wait, events, timer};
    ManualConnection manual{session, connection};
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
                           .events = events,
                           .timer = timer,
                           .settings = settings,
                           .progress = progress}};
};

const LoggerSettings sentMode{.autoStart = true,
                              .auxAdc = true,
                              .logEnabled = true,
                              .samplesPerPoint = QStringLiteral("100"),
                              .hoursBeforeBlock = QStringLiteral("12"),
                              .pointsPerBlock = QStringLiteral("500"),
                              .secondsBetweenPoints = QStringLiteral("60")};

TEST_F(SendingPtyTest, TheInstrumentReportsWhatItWasSent) {
    connect("sim:trx");
    settings.record = sentMode;
    ASSERT_EQ(sender.setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(allWritten(), "B101100T100\rD12\rQ500\rI60\rP");
    settings.record = LoggerSettings();
    tickFor(300);
    EXPECT_EQ(settings.record.value(), sentMode);
    EXPECT_EQ(settings.samplingOption.value(), 3);
    EXPECT_EQ(session.state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SendingPtyTest, TheClockIsSetAndTheSecondReportDoesNoHarm) {
    connect("sim:trx");
    settings.record = sentMode;
    settings.syncTimeDate = true;
    events.tick = [this] { server->serve(0); };
    ASSERT_EQ(sender.setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(allWritten(), "B101100T100\rD12\rQ500\rI60\rU0105990930PP");
    // Each digit is written 0.2 s after what came before it.
    const std::size_t first = 11;
    for (std::size_t digit = first; digit < first + 10; ++digit) {
        const qint64 gap = port->writes.at(digit).second - port->writes.at(digit - 1).second;
        EXPECT_GE(gap, 195) << digit;
        EXPECT_LE(gap, digit == first || digit == first + 6 ? 300 : 205) << digit; // a prompt comes before two of them
    }
    settings.record = LoggerSettings();
    tickFor(1000);
    EXPECT_EQ(settings.record.value(), sentMode);
    EXPECT_EQ(settings.loggerDate.value(), QStringLiteral("1/5/99"));
    EXPECT_TRUE(settings.loggerTime.value().startsWith(QStringLiteral("9:30:")));
    EXPECT_EQ(session.state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(session.status.status.value(), QStringLiteral("Ready"));
    EXPECT_EQ(settings.lamp.value(), Lamp::Read);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SendingPtyTest, AnInstrumentThatGoesDeadIsGivenUp) {
    connect("sim:trx?fault=cut&after=20ms");
    change(settings.record, [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("100"); });
    EXPECT_EQ(sender.setprefs(), SettingsSender::Outcome::Failed);
    EXPECT_FALSE(allWritten().contains('P'));
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown.front().text, QStringLiteral("Error Sending Prefs. Error Code 1"));
}

} // namespace

} // namespace orv
