// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programprocess.h"

#include <csignal>
#include <cstring>

namespace orv {
namespace {

struct State {
    const char* name;
    int rows;         ///< At least so many are offered at the next start; -1: none.
    const char* told; ///< What stands in the standard error; empty: the program tells nothing.
};

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
    std::vector<std::unique_ptr<ProgramProcess>> sessions;
    for (const State& state : states) {
        sessions.push_back(
            std::make_unique<ProgramProcess>(QStringLiteral(ORVSTATES_PATH), [&state](const QString& device) {
                return QStringList{QLatin1String(state.name), device};
            }));
    }
    for (std::size_t i = 0; i < sessions.size(); ++i) {
        const State& state = states[i];
        SCOPED_TRACE(state.name);
        ProgramProcess& session = *sessions[i];
        session.waitForWord("ready\n");
        const qint64 took = session.end(signal);
        EXPECT_TRUE(isWithinASecond(took)) << took;
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
    ProgramProcess session(QStringLiteral(ORVHOST_PATH), demo);
    session.waitForRows(10);
    session.send(SIGTERM);
    session.send(SIGTERM);
    session.end(SIGTERM);
    EXPECT_GE(offeredIn(session.folder.path()), 10);
}

TEST(SessionEnd, ASignalThatWasIgnoredAtTheStartStaysIgnored) {
    ProgramProcess session(QStringLiteral(ORVHOST_PATH), demo, SIGHUP);
    session.waitForRows(5);
    session.send(SIGHUP);
    session.waitForRows(15);
    session.end(SIGTERM);
    EXPECT_GE(offeredIn(session.folder.path()), 15);
}

TEST(SessionEnd, AnotherProgramInTheFolderGoesOn) {
    ProgramProcess session(QStringLiteral(ORVHOST_PATH), demo);
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
