// SPDX-License-Identifier: GPL-3.0-or-later
// Logging out: the real program on a display, and a session manager that is the test.
#include "testing/programprocess.h"
#include "testing/sessionmanager.h"

#include <QElapsedTimer>

#include <csignal>
#include <ctime>

#include <sys/resource.h>

namespace orv {
namespace {

using Said = std::vector<std::string>;

constexpr int rowsOfState = 20; ///< That the states with rows have at least.

class LogOut : public testing::Test {
protected:
    void begin(const char* state) {
        ASSERT_NO_FATAL_FAILURE(display.start());
        QMap<QString, QString> variables = manager.variables();
        variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        variables.insert(QStringLiteral("DISPLAY"), display.name());
        const auto arguments = [state](const QString& device) { return QStringList{QLatin1String(state), device}; };
        program.emplace(QStringLiteral(ORVSTATES_PATH), arguments, 0, variables);
        ASSERT_NO_FATAL_FAILURE(program->waitForWord("ready\n"));
        ASSERT_NO_FATAL_FAILURE(program->waitFor([this] { return manager.hasProgram(); }));
    }

    /// The next so many words of the program.
    Said next(std::size_t count) {
        program->waitFor([this, count] { return manager.said.size() >= count; });
        return std::exchange(manager.said, {});
    }

    /// The run goes on: rows come that were not there before.
    void expectMoreRows(int rows = 5) { program->waitForRows(program->rowsOnDisk() + rows); }

    /// Milliseconds of a processor that the program has taken since its start.
    double processorTime() const {
        clockid_t clock = 0;
        timespec taken{};
        EXPECT_EQ(::clock_getcpuclockid(static_cast<pid_t>(program->process.processId()), &clock), 0);
        EXPECT_EQ(::clock_gettime(clock, &taken), 0);
        return static_cast<double>(taken.tv_sec) * 1e3 + static_cast<double>(taken.tv_nsec) / 1e6;
    }

    /// What the next start would offer if the program were gone now.
    int offeredNow() const {
        const QTemporaryDir copy;
        for (const char* name : {"Orvtemp.tmp", "Orvtemp.tmp.lock"}) {
            QFile::copy(program->folder.filePath(QLatin1String(name)), copy.filePath(QLatin1String(name)));
        }
        return offeredIn(copy.path());
    }

    void dieAndExpectEnd() {
        QElapsedTimer passed;
        passed.start();
        manager.die();
        ASSERT_TRUE(comesTrue([this] { return program->process.state() == QProcess::NotRunning; }));
        EXPECT_TRUE(isWithinASecond(passed.elapsed())) << passed.elapsed();
        EXPECT_EQ(program->process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program->process.exitCode(), 0);
        EXPECT_TRUE(comesTrue([this] { return !manager.said.empty() && manager.said.back() == "farewell"; }));
        EXPECT_FALSE(program->has("orvhost.lock"));
        EXPECT_TRUE(program->file("Orvtemp.tmp").endsWith("\r\n"));
    }

    /// Files of the program may grow again.
    void makeRoom() const {
        const rlimit unlimited{.rlim_cur = RLIM_INFINITY, .rlim_max = RLIM_INFINITY};
        ASSERT_EQ(::prlimit(static_cast<pid_t>(program->process.processId()), RLIMIT_FSIZE, &unlimited, nullptr), 0);
    }

    PrivateDisplay display;
    SessionManager manager;
    std::optional<ProgramProcess> program;
};

TEST_F(LogOut, IsNoReasonToStartTheProgramWithTheNextSession) {
    ASSERT_NO_FATAL_FAILURE(begin("offline"));
    // One byte by the protocol; Qt sends three more.
    EXPECT_EQ(manager.properties.value(SmRestartStyleHint).left(1), QByteArray(1, SmRestartNever));
}

class LogOutWithRows : public LogOut, public testing::WithParamInterface<const char*> {};

TEST_P(LogOutWithRows, KeepsThemAndEndsWithTheSession) {
    ASSERT_NO_FATAL_FAILURE(begin(GetParam()));
    manager.logOut(SessionManager::Interaction::Any);
    EXPECT_EQ(next(1), Said{"saved"});
    EXPECT_GE(offeredNow(), rowsOfState);
    dieAndExpectEnd();
    program->expectEveryRowOffered();
}

INSTANTIATE_TEST_SUITE_P(States, LogOutWithRows, testing::Values("running", "asked", "save-dialog", "download-sheet"));

TEST_F(LogOut, ThatIsCancelledLeavesTheRunAsItIs) {
    ASSERT_NO_FATAL_FAILURE(begin("running"));
    for (const auto interaction : {SessionManager::Interaction::Any, SessionManager::Interaction::None}) {
        manager.logOut(interaction);
        EXPECT_EQ(next(1), Said{"saved"});
        ASSERT_NO_FATAL_FAILURE(expectMoreRows());
        manager.cancelLogOut();
        ASSERT_NO_FATAL_FAILURE(expectMoreRows());
    }
    program->end(SIGTERM);
    program->expectEveryRowOffered();
}

class LogOutOnFullDisk : public LogOut, public testing::WithParamInterface<SessionManager::Interaction> {};

TEST_P(LogOutOnFullDisk, IsCancelledUntilThereIsRoom) {
    ASSERT_NO_FATAL_FAILURE(begin("disk-full"));
    manager.logOut(GetParam());
    EXPECT_EQ(next(1), Said{"may I tell of an error?"});
    manager.letInteract();
    EXPECT_EQ(next(2), (Said{"cancel the logging out", "not saved"}));
    manager.cancelLogOut();

    makeRoom();
    manager.logOut(GetParam());
    EXPECT_EQ(next(1), Said{"saved"});
    EXPECT_GE(offeredNow(), rowsOfState);
    ASSERT_NO_FATAL_FAILURE(expectMoreRows());
    dieAndExpectEnd();
    program->expectEveryRowOffered();
}

INSTANTIATE_TEST_SUITE_P(Interactions, LogOutOnFullDisk,
                         testing::Values(SessionManager::Interaction::Errors, SessionManager::Interaction::Any),
                         [](const auto& tested) {
                             return std::string(tested.param == SessionManager::Interaction::Any ? "Any" : "Errors");
                         });

TEST_F(LogOut, OnAFullDiskIsNotCancelledIfNobodyMayBeAsked) {
    ASSERT_NO_FATAL_FAILURE(begin("disk-full"));
    manager.logOut(SessionManager::Interaction::None);
    EXPECT_EQ(next(1), Said{"not saved"});
    dieAndExpectEnd();
    EXPECT_GE(offeredIn(program->folder.path()), rowsOfState);
}

TEST_F(LogOut, MayEndWhileTheProgramWaitsToTellOfAFullDisk) {
    ASSERT_NO_FATAL_FAILURE(begin("disk-full"));
    manager.logOut(SessionManager::Interaction::Any);
    EXPECT_EQ(next(1), Said{"may I tell of an error?"});
    dieAndExpectEnd();
    EXPECT_GE(offeredIn(program->folder.path()), rowsOfState);
}

TEST_F(LogOut, MayBeCancelledWhileTheProgramWaitsToTellOfAFullDisk) {
    ASSERT_NO_FATAL_FAILURE(begin("disk-full"));
    manager.logOut(SessionManager::Interaction::Any);
    EXPECT_EQ(next(1), Said{"may I tell of an error?"});
    manager.cancelLogOut();
    EXPECT_EQ(next(1), Said{"not saved"});
    makeRoom();
    ASSERT_NO_FATAL_FAILURE(expectMoreRows());
    program->end(SIGTERM);
    program->expectEveryRowOffered();
}

TEST_F(LogOut, NeverComesFromAManagerThatDies) {
    constexpr int rows = 25;
    ASSERT_NO_FATAL_FAILURE(begin("running"));
    const double atFirst = processorTime();
    ASSERT_NO_FATAL_FAILURE(expectMoreRows(rows));
    const double before = processorTime();
    manager.breakOff();
    ASSERT_NO_FATAL_FAILURE(expectMoreRows(rows));
    EXPECT_LT(processorTime() - before, 4 * (before - atFirst)) << "it does not read in vain";
    program->end(SIGTERM);
    program->expectEveryRowOffered();
}

} // namespace
} // namespace orv
