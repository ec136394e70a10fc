// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/processes.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <limits>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace orv {
namespace {

/// `orv` as a process of its own, in the working directory; perhaps it is started with a signal ignored.
class OrvProcess {
public:
    explicit OrvProcess(const QStringList& arguments, int ignored = 0) {
        process.setChildProcessModifier([ignored] {
            for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
                std::signal(signal, signal == ignored ? SIG_IGN : SIG_DFL);
            }
        });
        process.start(QStringLiteral(ORV_PATH), arguments);
    }
    ~OrvProcess() {
        process.kill();
        process.waitForFinished(patience);
    }
    OrvProcess(const OrvProcess&) = delete;
    OrvProcess& operator=(const OrvProcess&) = delete;

    /// Until a file has so many lines.
    void waitForLines(const QString& name, qsizetype lines) {
        QElapsedTimer passed;
        passed.start();
        while (contentsOf(name).count('\n') < lines) {
            ASSERT_LT(passed.elapsed(), patience);
            ASSERT_FALSE(process.waitForFinished(0)) << process.readAllStandardError().toStdString();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    int end(int signal) {
        ::kill(static_cast<pid_t>(process.processId()), signal);
        EXPECT_TRUE(process.waitForFinished(patience));
        return process.exitCode();
    }

    QProcess process;
};

struct Kind {
    const char* device;
    int commas;
};

class OrvCollectsOverALine : public testing::TestWithParam<Kind> {};

TEST_P(OrvCollectsOverALine, RowsAndTheMemory) {
    const InstrumentProcess instrument(QString::fromLatin1(GetParam().device));
    const OwnFolder folder;
    const Ended collected =
        runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("collect --points 5 --json -o rows.csv ") + instrument.path);
    EXPECT_EQ(collected.status, 0) << collected.error;
    EXPECT_EQ(collected.output, "{\"complete\":true,\"files\":[\"rows.csv\"],\"reconnections\":0,\"rows\":5}\n");
    const QByteArray rows = contentsOf(folder.path("rows.csv"));
    EXPECT_EQ(rows.count('\n'), 6) << rows.toStdString();
    EXPECT_EQ(rows.left(rows.indexOf('\n')).count(','), GetParam().commas) << rows.toStdString();
    const Ended downloaded =
        runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("download --verify -o memory.csv ") + instrument.path);
    EXPECT_EQ(downloaded.status, 0) << downloaded.error;
    EXPECT_EQ(contentsOf(folder.path("memory.csv")).count('\n'), 51);
    const Ended converted = runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("convert Orvtemp.tmp -o record.jsonl"));
    EXPECT_EQ(converted.status, 0) << converted.error;
    EXPECT_GE(contentsOf(folder.path("record.jsonl")).count('\n'), 5);
}

INSTANTIATE_TEST_SUITE_P(Instruments, OrvCollectsOverALine,
                         testing::Values(Kind{"sim:trx?baud=0&rate=50&records=50", 5},
                                         Kind{"sim:trx?firmware=412&baud=0&rate=50&records=50", 7},
                                         Kind{"sim:glow?baud=0&rate=50&records=50", 2}));

TEST(OrvProcesses, AreEndedWholeBySignals) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50"));
    for (const auto& [signal, status] : {std::pair(SIGINT, 130), std::pair(SIGTERM, 143), std::pair(SIGHUP, 129)}) {
        const OwnFolder folder;
        OrvProcess orv({QStringLiteral("collect"), instrument.path, QStringLiteral("-o"), QStringLiteral("a.csv")});
        orv.waitForLines(folder.path("a.csv"), 10);
        EXPECT_EQ(orv.end(signal), status) << orv.process.readAllStandardError().toStdString();
        const QByteArray rows = contentsOf(folder.path("a.csv"));
        EXPECT_TRUE(rows.endsWith('\n'));
        EXPECT_TRUE(orv.process.readAllStandardError().endsWith("orv: " + QByteArray::number(rows.count('\n') - 1) +
                                                                " rows were collected.\n"));
        EXPECT_TRUE(folder.files().filter(QStringLiteral(".lock")).isEmpty());
    }
}

TEST(OrvProcesses, GoOnAfterASignalThatWasIgnoredAtTheirStart) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50"));
    const OwnFolder folder;
    OrvProcess orv({QStringLiteral("collect"), instrument.path, QStringLiteral("-o"), QStringLiteral("a.csv")}, SIGHUP);
    orv.waitForLines(folder.path("a.csv"), 10);
    ::kill(static_cast<pid_t>(orv.process.processId()), SIGHUP);
    orv.waitForLines(folder.path("a.csv"), contentsOf(folder.path("a.csv")).count('\n') + 50);
    EXPECT_EQ(orv.end(SIGINT), 130) << "not 129";
}

TEST(OrvProcesses, ThatAreKilledLoseNoRowAndTheNextOneSaysSo) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50"));
    const OwnFolder folder;
    {
        OrvProcess orv({QStringLiteral("collect"), instrument.path, QStringLiteral("-o"), QStringLiteral("a.csv")});
        orv.waitForLines(folder.path("a.csv"), 20);
        orv.end(SIGKILL);
    }
    const auto written = contentsOf(folder.path("a.csv")).count('\n') - 1;
    constexpr int headerLines = 5;
    const auto recorded = contentsOf(folder.path("Orvtemp.tmp")).count('\n') - headerLines;
    EXPECT_GE(recorded, written);
    EXPECT_LE(recorded, written + 1) << "a row goes to the record file first";
    const Ended next =
        runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("collect --points 1 -o b.csv ") + instrument.path);
    EXPECT_EQ(next.status, 0) << next.error;
    const std::string found = "did not end; its record file has " + std::to_string(recorded) + " rows.";
    EXPECT_NE(next.error.find(found), std::string::npos) << next.error;
    const QStringList kept = folder.files().filter(QStringLiteral("Orvtemp-2"));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contentsOf(kept.front()).count('\n') - headerLines, recorded);
}

TEST(OrvProcesses, WhatIsLeftOfANetCdfFileIsRemovedAndToldUnlessSomebodyWritesIt) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50"));
    const InstrumentProcess other(QStringLiteral("sim:trx?baud=0&rate=50"));
    const OwnFolder folder;
    const auto parts = [&folder] { return folder.files().filter(QStringLiteral(".part")); };
    const QStringList begin{QStringLiteral("collect"), instrument.path, QStringLiteral("-o"), QStringLiteral("a.nc")};
    {
        OrvProcess killed(begin);
        killed.waitForLines(folder.path("Orvtemp.tmp"), 20);
        killed.end(SIGKILL);
    }
    ASSERT_EQ(parts().size(), 1);
    const QString left = parts().front();
    OrvProcess living(begin);
    EXPECT_TRUE(comesTrue([&parts, &left] {
        const QStringList now = parts();
        return now.size() == 1 && now.front() != left;
    }));
    const Ended beside = runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("collect --points 1 -o a.nc ") + other.path);
    EXPECT_EQ(beside.status, 0) << beside.error;
    EXPECT_EQ(beside.error.find(".part"), std::string::npos) << beside.error;
    EXPECT_EQ(parts().size(), 1) << "the living one's";
    living.end(SIGINT);
    const QByteArray told = living.process.readAllStandardError();
    EXPECT_TRUE(told.contains(left.toLatin1() + " was left by a program that was killed")) << told.data();
    EXPECT_TRUE(told.contains("did not end; its record file has ")) << "its rows are kept: " << told.data();
}

TEST(OrvProcesses, ALineThatVanishesKeepsWhatCame) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50&fault=unplug&after=20%"));
    const OwnFolder folder;
    const Ended lost = runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("collect -o a.csv ") + instrument.path);
    EXPECT_EQ(lost.status, 3) << lost.error;
    EXPECT_EQ(contentsOf(folder.path("a.csv")).count('\n'), 21);
    EXPECT_NE(lost.error.find("20 rows were collected and are kept."), std::string::npos) << lost.error;
}

TEST(OrvProcesses, WhatCannotBeReadIsCountedAndEndsWithStatus3) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&records=50&fault=noise"));
    const OwnFolder folder;
    const Ended noisy = runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("download -o a.csv ") + instrument.path);
    EXPECT_EQ(noisy.status, 3) << noisy.error;
    EXPECT_NE(noisy.error.find(" could not be read and "), std::string::npos) << noisy.error;
    const Ended silent = runToEnd(QStringLiteral(ORV_PATH), QStringLiteral("collect sim:trx?fault=silent -o b.csv"));
    EXPECT_EQ(silent.status, 1) << silent.error;
}

/// `orv collect` into a pipe with room for some rows, whose reader is the test.
class OrvIntoAPipe {
public:
    explicit OrvIntoAPipe(const QStringList& arguments) {
        int ends[2];
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        read_.reset(ends[0]);
        const FileDescriptor write(ends[1]);
        constexpr int leastRoom = 4096;
        EXPECT_EQ(::fcntl(write.get(), F_SETPIPE_SZ, leastRoom), leastRoom);
        process.setChildProcessModifier([output = write.get()] { ::dup2(output, STDOUT_FILENO); });
        process.start(QStringLiteral(ORV_PATH), arguments);
        EXPECT_TRUE(process.waitForStarted(patience));
    }

    /// What the pipe has until the program closes it, or until so many lines have come.
    QByteArray read(qsizetype lines = std::numeric_limits<qsizetype>::max()) const {
        QByteArray all;
        std::array<char, 4096> part{};
        ssize_t size = 1;
        while (size > 0 && all.count('\n') < lines) {
            size = ::read(read_.get(), part.data(), part.size());
            all.append(part.data(), std::max<ssize_t>(size, 0));
        }
        return all;
    }

    QProcess process;

private:
    FileDescriptor read_;
};

qsizetype recordedRows() {
    constexpr int headerLines = 5;
    return contentsOf(QStringLiteral("Orvtemp.tmp")).count('\n') - headerLines;
}

TEST(OrvProcesses, AReaderThatStallsHoldsUpNeitherTheRowsNorTheEnd) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=200"));
    const OwnFolder folder;
    OrvIntoAPipe orv({QStringLiteral("collect"), instrument.path, QStringLiteral("-o"), QStringLiteral("-")});
    constexpr int moreThanThePipeTakes = 300;
    EXPECT_TRUE(comesTrue([] { return recordedRows() >= moreThanThePipeTakes; }));
    orv.process.terminate();
    ASSERT_TRUE(orv.process.waitForFinished(patience));
    EXPECT_EQ(orv.process.exitCode(), 143);
    const QByteArray told = orv.process.readAllStandardError();
    EXPECT_TRUE(told.contains("its reader does not read. The rows of this run are in the record file")) << told.data();
    const QByteArray taken = orv.read();
    EXPECT_TRUE(taken.endsWith('\n')) << "a row is there whole or not at all";
    EXPECT_LT(taken.count('\n'), moreThanThePipeTakes);
    EXPECT_GE(recordedRows(), moreThanThePipeTakes);
    EXPECT_TRUE(told.contains(" " + QByteArray::number(recordedRows()) + " rows were collected.")) << told.data();
}

TEST(OrvProcesses, AReaderThatComesBackGetsEveryRow) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=200"));
    const OwnFolder folder;
    OrvIntoAPipe orv({QStringLiteral("collect"), instrument.path, QStringLiteral("--points"), QStringLiteral("400"),
                      QStringLiteral("-o"), QStringLiteral("-")});
    EXPECT_TRUE(comesTrue([] { return recordedRows() >= 400; }));
    const QByteArray rows = orv.read();
    ASSERT_TRUE(orv.process.waitForFinished(patience));
    EXPECT_EQ(orv.process.exitCode(), 0) << orv.process.readAllStandardError().data();
    EXPECT_EQ(rows.count('\n'), 401);
    EXPECT_EQ(rows.mid(rows.lastIndexOf('\n', -2) + 1).left(4), "400,");
    EXPECT_TRUE(folder.files().contains(QStringLiteral("Orvtemp.tmp.saved"))) << "they count as saved";
}

TEST(OrvProcesses, AReaderThatGoesEndsTheRun) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50"));
    const OwnFolder folder;
    QProcess shell;
    shell.start(QStringLiteral("bash"),
                {QStringLiteral("-c"),
                 QStringLiteral("set -o pipefail; " ORV_PATH " collect %1 -o - | head -3").arg(instrument.path)});
    ASSERT_TRUE(shell.waitForFinished(patience));
    EXPECT_EQ(shell.exitCode(), 1);
    EXPECT_EQ(shell.readAllStandardOutput().count('\n'), 3);
    EXPECT_TRUE(shell.readAllStandardError().contains("Standard output takes nothing any more"));
    EXPECT_TRUE(folder.files().contains(QStringLiteral("Orvtemp.tmp")));
}

} // namespace
} // namespace orv
