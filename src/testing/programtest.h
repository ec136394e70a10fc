// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "testing/linkrig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orv {

inline QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

inline void fill(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

/// A folder of the test's own that is the working directory while this lives.
class OwnFolder {
public:
    OwnFolder()
        : before_(QDir::currentPath()) {
        EXPECT_TRUE(folder_.isValid());
        EXPECT_TRUE(QDir::setCurrent(folder_.path()));
    }
    ~OwnFolder() { QDir::setCurrent(before_); }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    /// Whether this program has the file open now.
    bool isOpen(const char* name) const {
        const QString wanted = QFileInfo(path(name)).canonicalFilePath();
        const QFileInfoList handles =
            QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::AllEntries | QDir::System);
        return std::any_of(handles.begin(), handles.end(),
                           [&wanted](const QFileInfo& handle) { return handle.symLinkTarget() == wanted; });
    }

private:
    QString before_;
    QTemporaryDir folder_;
};

/// What an instrument answers to "P" when it has just greeted: the echo, its settings and the prompt.
inline QByteArray settingsReport(const QByteArray& pointsPerBlock = "0") {
    return "P\r\nS1\r\nG0\r\nA0\r\nL1\r\nW1\r\nM0\r\nT30\r\nD24\r\nQ" + pointsPerBlock + "\r\nI5\r\nMP32762\r\n>";
}

/// The whole program over two fake lines, "ttyA" on COM 1 and "ttyB" on COM 2, in a folder of its own. Its status timer
/// is the test: `program.tick()`.
///
/// While the program waits for input the test's clock runs, and `replies` arrive, one block for each wait.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() {
        program.ports.setDevice(1, QStringLiteral("ttyA"));
        program.ports.setDevice(2, QStringLiteral("ttyB"));
        for (FakePort* port : {&com1, &com2}) {
            port->waited = [this, port](int milliseconds) {
                clock.advance(milliseconds);
                if (!replies.empty()) {
                    port->input = replies.front();
                    replies.pop_front();
                }
            };
        }
        events.tick = [this] { program.tick(); };
    }

    /// Opens the debug port and ticks its box; what is written there is in `said()`.
    void tickDebugOutput() {
        program.setComm2Output(true);
        ASSERT_TRUE(program.ports.isDebugPortOpen());
    }

    /// What has been written to the debug port since the last call.
    std::string said() {
        const std::string all = com2.allWritten().toStdString();
        com2.writes.clear();
        return all;
    }

    void receive(const QByteArray& bytes) {
        com1.input += bytes;
        program.tick();
    }

    void ticks(int count) {
        for (int i = 0; i < count; ++i) {
            program.tick();
        }
    }

    /// "Auto Connect Comm 1" with an instrument that greets so.
    void connect(const QByteArray& greeting = "V512\r") {
        replies = {greeting};
        program.autoConnect1();
        ASSERT_TRUE(program.ports.isOpen());
        ASSERT_EQ(program.session.state.Ctrlscrn, Operation::Identified);
    }

    /// Connects and lets the instrument answer until the program is "Ready".
    void connectAndRead(const QByteArray& greeting = "V512\r", const QByteArray& pointsPerBlock = "0") {
        connect(greeting);
        receive(settingsReport(pointsPerBlock));
        constexpr int linesOfReport = 12;
        ticks(linesOfReport);
        receive("C\r\n11/21/26\t25661\r\n>");
        ticks(2);
        ASSERT_EQ(program.session.state.Ctrlscrn, Operation::SettingsOpen);
        ASSERT_EQ(program.session.status.status.value().toStdString(), "Ready");
    }

    /// Connects, runs and receives so many rows of a TRX of the newer generation.
    void runWithRows(int rows) {
        connectAndRead();
        program.run();
        receive("R\r\n");
        for (int row = 1; row <= rows; ++row) {
            receive("11/21/26\t2700\t" + QByteArray::number(row) + "\t20\t30\t40\r\n");
        }
        ASSERT_EQ(program.session.state.plc, rows);
    }

    /// Everything by which the operator sees that the program is as after a reset.
    void expectOffline() {
        EXPECT_FALSE(program.ports.isOpen());
        EXPECT_FALSE(com1.isOpen());
        const SessionState& state = program.session.state;
        EXPECT_EQ(program.session.status.status.value().toStdString(), "Offline");
        EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
        EXPECT_EQ(state.Rtn.toStdString(), "wakeup!!!");
        EXPECT_EQ(state.Tmr, 1);
        EXPECT_EQ(state.portstatus, 2);
        EXPECT_EQ(state.Gatherstop, 0);
        EXPECT_EQ(state.gatherstart, 0);
        EXPECT_EQ(state.Seeking, 0);
        for (const ConnectItem& item : program.connectItems.items) {
            EXPECT_TRUE(item.enabled);
            EXPECT_FALSE(item.checked);
        }
        const CommandState& commands = program.session.commands;
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

    OwnFolder folder;
    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    SteppedYield events{clock};
    FakePort com1;
    FakePort com2;
    std::deque<QByteArray> replies;
    Program program{{.clock = clock,
                     .events = events,
                     .messages = messages,
                     .questions = answers,
                     .makePort = [this](const QString& device) {
                         return std::make_unique<LentPort>(device == QLatin1String("ttyA") ? com1 : com2);
                     }}};
};

} // namespace orv
