// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/processes.h"
#include "testing/programrig.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace orv {
namespace {

constexpr const char* slowInstrument = "sim:trx?rate=50&records=5000";

/// A program in a folder of its own, on an instrument of its own; perhaps it is started with a signal ignored.
class Session {
public:
    Session(const QString& program, const std::function<QStringList(const QString& device)>& arguments,
            int ignored = 0) {
        process.setProcessEnvironment(
            environmentWith({{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}}));
        process.setWorkingDirectory(folder.path());
        process.setChildProcessModifier([ignored] {
            for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
                std::signal(signal, signal == ignored ? SIG_IGN : SIG_DFL);
            }
        });
        process.start(program, arguments(instrument.path));
    }
    ~Session() {
        process.kill();
        process.waitForFinished(patience);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void waitFor(const std::function<bool()>& reached) {
        const QDeadlineTimer deadline(patience);
        while (!reached()) {
            ASSERT_FALSE(process.waitForFinished(1)) << process.readAllStandardError().toStdString();
            ASSERT_FALSE(deadline.hasExpired());
        }
    }
    void waitForRows(int rows) {
        constexpr int headerLines = 5;
        waitFor([this, rows] { return file("Orvtemp.tmp").count('\n') >= headerLines + rows; });
    }
    void waitForWord(const QByteArray& word) {
        waitFor([this, &word] { return (output += process.readAllStandardOutput()).contains(word); });
    }

    void send(int signal) const { ::kill(static_cast<pid_t>(process.processId()), signal); }
    /// Milliseconds from the signal to the end.
    qint64 end(int signal) {
        QElapsedTimer passed;
        passed.start();
        send(signal);
        EXPECT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 128 + signal);
        return passed.elapsed();
    }

    QByteArray file(const char* name) const { return contentsOf(folder.filePath(QLatin1String(name))); }
    bool has(const char* name) const { return QFile::exists(folder.filePath(QLatin1String(name))); }

    InstrumentProcess instrument{QLatin1String(slowInstrument)};
    QTemporaryDir folder;
    QProcess process;
    QByteArray output;
};

/// How many rows the next start in the folder offers and then has; 0 if it asks nothing.
int offeredIn(const QString& folder) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder);
    int rows = 0;
    {
        TestClock clock;
        RecordedMessages messages;
        PreparedAnswers answers;
        answers.yes = true;
        Program program({.clock = clock, .messages = messages, .questions = answers, .makePort = [](const QString&) {
                             return std::make_unique<TestPort>();
                         }});
        program.load();
        program.offerUnendedRun();
        rows = program.sheet.data.rowCount();
        EXPECT_EQ(answers.asked.size(), rows > 0 ? 1 : 0);
        EXPECT_TRUE(messages.shown.empty());
    }
    QDir::setCurrent(before);
    return rows;
}

struct State {
    const char* name;
    int rows;         ///< At least so many are offered at the next start; -1: none.
    const char* told; ///< What stands in the standard error; empty: the program tells nothing.
};

/// How many programs of this computer share a processor: so much longer takes what they do.
double waitingForAProcessor() {
    double load = 0.0;
    return ::getloadavg(&load, 1) == 1 ? load / static_cast<double>(std::max(1L, ::sysconf(_SC_NPROCESSORS_ONLN)))
                                       : 1.0;
}

constexpr State states[] = {
    {"offline", -1, ""},
    {"waking", -1, ""},
    {"ready", -1, ""},
    {"running", 20, ""},
    {"asked", 20, ""},
    {"save-dialog", 20, ""},
    {"open-dialog", -1, ""},
    {"sending", -1, ""},
    {"shutter-reset", -1, "The shutter reset was interrupted"},
    {"download-sheet", 20, "The next start offers what is on the sheet."},
    {"download-text", -1, "can be found in "},
    {"disk-full", 20, "could not be kept for the next start either: "},
};

/// Every state with every signal: an instrument and a process each. Most of their time is waiting for the instrument,
/// so they run side by side.
class SessionEnds : public testing::TestWithParam<int> {};

TEST_P(SessionEnds, WholeInEveryState) {
    const int signal = GetParam();
    std::vector<std::unique_ptr<Session>> sessions;
    for (const State& state : states) {
        sessions.push_back(std::make_unique<Session>(QStringLiteral(ORVSTATES_PATH), [&state](const QString& device) {
            return QStringList{QLatin1String(state.name), device};
        }));
    }
    for (std::size_t i = 0; i < sessions.size(); ++i) {
        const State& state = states[i];
        SCOPED_TRACE(state.name);
        Session& session = *sessions[i];
        session.waitForWord("ready\n");
        const qint64 took = session.end(signal);
        EXPECT_LT(static_cast<double>(took), 1000.0 * std::max(1.0, waitingForAProcessor()));
        QByteArray said;
        for (const QByteArray& line : session.process.readAllStandardError().split('\n')) {
            said += line.startsWith("orvhost: ") ? line : QByteArray(); // others are the window system's
        }
        EXPECT_TRUE(*state.told == '\0' ? said.isEmpty() : said.contains(state.told)) << said.toStdString();
        EXPECT_FALSE(session.has("orvhost.lock"));
        EXPECT_EQ(session.has("Orvtemp.tmp.lock"), state.rows > 0);
        const QByteArray text = session.file("memory.txt");
        EXPECT_TRUE(text.endsWith("\r\n") || !session.has("memory.txt"));
        EXPECT_TRUE(session.file("Orvtemp.tmp").endsWith("\r\n") || !session.has("Orvtemp.tmp"));
        const int rows = offeredIn(session.folder.path());
        EXPECT_EQ(state.rows > 0, rows > 0);
        EXPECT_GE(rows, state.rows);
        if (signal == SIGTERM && qEnvironmentVariableIsSet("ORV_TABLES")) {
            std::printf("| %s | %lld | %s | %s |\n", state.name, static_cast<long long>(took),
                        rows == 0                                   ? "there are none"
                        : std::strcmp(state.name, "disk-full") == 0 ? "those that found room"
                                                                    : "all",
                        *state.told == '\0' ? "" : state.told);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Signals, SessionEnds, testing::Values(SIGTERM, SIGHUP, SIGINT));

QStringList demo(const QString& device) {
    return {QStringLiteral("--com1"), device, QStringLiteral("--demo"), QStringLiteral(".")};
}

TEST(SessionEnd, ASecondSignalChangesNothing) {
    Session session(QStringLiteral(ORVHOST_PATH), demo);
    session.waitForRows(10);
    session.send(SIGTERM);
    session.send(SIGTERM);
    session.end(SIGTERM);
    EXPECT_GE(offeredIn(session.folder.path()), 10);
}

TEST(SessionEnd, ASignalThatWasIgnoredAtTheStartStaysIgnored) {
    Session session(QStringLiteral(ORVHOST_PATH), demo, SIGHUP);
    session.waitForRows(5);
    session.send(SIGHUP);
    session.waitForRows(15);
    session.end(SIGTERM);
    EXPECT_GE(offeredIn(session.folder.path()), 15);
}

TEST(SessionEnd, AnotherProgramInTheFolderGoesOn) {
    Session session(QStringLiteral(ORVHOST_PATH), demo);
    session.waitForRows(5);
    QProcess second;
    second.setProcessEnvironment(session.process.processEnvironment());
    second.setWorkingDirectory(session.folder.path());
    second.start(QStringLiteral(ORVHOST_PATH), {});
    session.waitFor([&session] { return session.has("log-2.ohp"); });
    second.terminate();
    ASSERT_TRUE(second.waitForFinished(patience));
    EXPECT_EQ(second.exitCode(), 143);
    EXPECT_FALSE(session.has("orvhost-2.lock"));
    session.waitForRows(10);
    session.end(SIGTERM);
    EXPECT_GE(offeredIn(session.folder.path()), 10);
}

} // namespace
} // namespace orv
