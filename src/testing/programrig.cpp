// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

#include "simulator/simulatedport.h"

#include <QRegularExpression>

#include <cmath>

namespace orv {

QByteArray settingsReport(const QByteArray& pointsPerBlock) {
    return "P\r\nS1\r\nG0\r\nA0\r\nL1\r\nW1\r\nM0\r\nT30\r\nD24\r\nQ" + pointsPerBlock + "\r\nI5\r\nMP32762\r\n>";
}

std::unique_ptr<Port> simulatedInstrument(const QString& device, TestClock& clock) {
    const auto parsed = parseSimulatorOptions(device);
    EXPECT_EQ(parsed.error.toStdString(), "");
    return std::make_unique<SimulatedPort>(parsed.options, clock);
}

ProgramRig::ProgramRig()
    : ProgramRig(LineMaker()) {
    ports.setDevice(1, QStringLiteral("ttyA"));
    ports.setDevice(2, QStringLiteral("ttyB"));
    for (TestPort* port : {&com1, &com2}) {
        port->discarded = [this, port] { deliverReplies(*port); };
    }
}

void ProgramRig::deliverReplies(TestPort& port) {
    if (replies.empty()) {
        return;
    }
    delivery_ = clock.callAfter(1, [this, &port] {
        if (!timer.isHeld()) {
            return;
        }
        const QByteArray block = replies.front();
        replies.pop_front();
        deliverReplies(port);
        if (!block.isEmpty()) {
            port.input += block;
        }
    });
}

ProgramRig::ProgramRig(LineMaker makeLine)
    : makeLine_(std::move(makeLine))
    , program({.clock = clock,
               .messages = messages,
               .questions = answers,
               .makePort =
                   [this](const QString& device) {
                       auto port = makeLine_
                                       ? std::make_unique<TestPort>(makeLine_(device, clock))
                                       : std::make_unique<TestPort>(device == QLatin1String("ttyA") ? &com1 : &com2);
                       line = port.get();
                       if (lineMade) {
                           lineMade();
                       }
                       return port;
                   },
               .portList = &portList,
               .deviceProblem =
                   [](const QString& device) {
                       return device.isEmpty() || device.contains(u' ')
                                  ? QStringLiteral("\"%1\" is no device.").arg(device)
                                  : QString();
                   },
               .freeSpace = [this] { return freeSpace; }}) {}

ProgramRig::~ProgramRig() = default;

void ProgramRig::autoConnect(int portNumber) {
    if (portNumber == 1) {
        program.autoConnect1();
    } else {
        program.autoConnect2();
    }
    finish();
}

void ProgramRig::pressStart() {
    manual.start();
    finish();
}

void ProgramRig::pressRetry() {
    manual.retry();
    finish();
}

void ProgramRig::abort2() {
    program.abort2();
    finish();
}

void ProgramRig::resetShutter() {
    program.resetShutter();
    finish();
}

bool ProgramRig::hasEnded(const std::function<void()>& action) {
    bool ended = false;
    const Subscription ending = program.ended.subscribe([&ended] { ended = true; });
    action();
    return ended;
}

bool ProgramRig::quit() {
    return hasEnded([this] { program.quit(); });
}

bool ProgramRig::leave() {
    return hasEnded([this] { program.leave(); });
}

void ProgramRig::fixit() {
    program.link.connection.fixit();
}

void ProgramRig::connect(const QByteArray& greeting) {
    replies = {greeting};
    autoConnect();
    ASSERT_TRUE(ports.isOpen());
    ASSERT_EQ(state.Ctrlscrn, Operation::Identified);
}

void ProgramRig::connectAndRead(const QByteArray& greeting, const QByteArray& pointsPerBlock) {
    if (makeLine_) {
        autoConnect();
        live(2.0);
    } else {
        connect(greeting);
        receive(settingsReport(pointsPerBlock));
        constexpr int linesOfReport = 12;
        ticks(linesOfReport);
        receive("C\r\n11/21/26\t25661\r\n>");
        ticks(2);
    }
    ASSERT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    ASSERT_EQ(status.status.value().toStdString(), "Ready");
}

void ProgramRig::runWithRows(int rows) {
    connectAndRead();
    program.run();
    receive("R\r\n");
    for (int row = 1; row <= rows; ++row) {
        receive("11/21/26\t2700\t" + QByteArray::number(row) + "\t20\t30\t40\r\n");
    }
    ASSERT_EQ(state.plc, rows);
}

void ProgramRig::finish() {
    constexpr int longest = 3'600'000;
    for (int milliseconds = 0; !procedures.isIdle(); ++milliseconds) {
        if (milliseconds == longest) {
            ADD_FAILURE() << "the procedure does not end";
            program.end();
        }
        live(0.001);
    }
}

void ProgramRig::live(double seconds) {
    for (qint64 left = std::llround(seconds * 1000.0); left > 0; --left) {
        clock.advance(1);
        if (eachMillisecond) {
            eachMillisecond();
        }
    }
}

void ProgramRig::receive(const QByteArray& bytes) {
    (makeLine_ ? line->input : com1.input) += bytes;
    ticks();
}

void ProgramRig::ticks(int count) {
    for (int i = 0; i < count && !timer.isHeld(); ++i) {
        program.tick();
    }
}

void ProgramRig::haveRows(int count) {
    while (sheet.rowCount() < count) {
        rows.addRow(
            {.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:01"), .values = {QStringLiteral("9")}});
    }
}

void ProgramRig::tickDebugOutput() {
    program.setComm2Output(true);
    ASSERT_TRUE(ports.isDebugPortOpen());
}

std::string ProgramRig::said() {
    const std::string all = com2.allWritten().toStdString();
    com2.writes.clear();
    return all;
}

std::string ProgramRig::saidBriefly() {
    static const QRegularExpression reset(QStringLiteral("Reset Everything AKA FIXIT\r.*?Portused +[0-9]+\r"),
                                          QRegularExpression::DotMatchesEverythingOption);
    return QString::fromStdString(said()).replace(reset, QStringLiteral("(reset)\r")).toStdString();
}

const Message& ProgramRig::theMessage() const {
    static const Message none;
    EXPECT_EQ(messages.shown.size(), 1U);
    return messages.shown.empty() ? none : messages.shown.front();
}

void ProgramRig::expectOffline() {
    EXPECT_FALSE(ports.isOpen());
    EXPECT_FALSE(com1.isOpen());
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(state.Rtn.toStdString(), "wakeup!!!");
    EXPECT_EQ(state.Tmr, 1);
    EXPECT_EQ(state.portstatus, 2);
    EXPECT_EQ(state.Gatherstop, 0);
    EXPECT_EQ(state.gatherstart, 0);
    EXPECT_EQ(state.Seeking, 0);
    for (const ConnectItem& item : items.items) {
        EXPECT_TRUE(item.enabled);
        EXPECT_FALSE(item.checked);
    }
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_FALSE(commands.processingMenuVisible);
    EXPECT_FALSE(commands.settingsMenuVisible);
    EXPECT_FALSE(commands.resetEnabled);
    EXPECT_FALSE(commands.runEnabled);
    EXPECT_FALSE(commands.clearAllEnabled);
    EXPECT_FALSE(commands.saveAsEnabled);
    EXPECT_FALSE(commands.resetShutterEnabled);
    EXPECT_FALSE(commands.closePortEnabled);
}

} // namespace orv
