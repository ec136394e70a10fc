// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/expected.h"
#include "testing/processes.h"
#include "testing/programrig.h"

#include <QElapsedTimer>

#include <random>
#include <thread>
#include <utility>

namespace orv {
namespace {

/// The program below its windows, as it is started in a folder where others are or were; no instrument is connected.
struct NextProgram {
    explicit NextProgram(bool answerYes) {
        answers.yes = answerYes;
        program.load();
        program.offerUnendedRun();
    }

    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    TestPort port;
    Program program{
        {.clock = clock, .messages = messages, .questions = answers, .makePort = [this](const QString& /*device*/) {
             return std::make_unique<TestPort>(&port);
         }}};
};

QStringList rowsOnSheet(const DataSheet& sheet) {
    QStringList rows;
    for (int row = 0; row < sheet.rowCount(); ++row) {
        QByteArray cells;
        sheet.writeCells(row, 7, cells);
        rows << QString::fromLatin1(cells);
    }
    return rows;
}

/// The real program, as a process of its own without a display.
class HostProcess {
public:
    ~HostProcess() { kill(); }

    void start(const QString& folder, const QStringList& arguments) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder);
        process.start(QStringLiteral(ORVHOST_PATH), arguments);
        ASSERT_TRUE(process.waitForStarted(patience));
    }

    /// Starts it unattended: it connects, collects 25 rows, saves and ends.
    void startDemo(const QString& folder, const QString& device = QStringLiteral("sim:trx?rate=50&baud=0")) {
        start(folder, {QStringLiteral("--com1"), device, QStringLiteral("--com2"), QStringLiteral("sim:glow"),
                       QStringLiteral("--demo"), folder});
    }

    void kill() {
        process.kill();
        process.waitForFinished(patience);
    }

    template <typename Condition>
    void waitFor(Condition reached) {
        QElapsedTimer passed;
        passed.start();
        while (!reached()) {
            ASSERT_LT(passed.elapsed(), patience);
            process.waitForFinished(0);
            ASSERT_EQ(process.state(), QProcess::Running) << process.readAllStandardError().toStdString();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    QProcess process;
};

class RecoveryTest : public testing::Test {
protected:
    static int linesIn(const QString& path) { return static_cast<int>(contentsOf(path).count('\n')); }

    /// The data rows among what the log of a program that died holds, as they stand on the sheet.
    static QStringList rowsReceived(const QByteArray& log) {
        QStringList rows;
        const QByteArray run = log.mid(log.indexOf("R\r\n"));
        for (const QByteArray& line : run.first(run.lastIndexOf('\n') + 1).split('\n')) {
            if (line.count('\t') == 5) {
                const DecodedLine decoded = decodeLine(line.trimmed());
                rows << QString::fromLatin1(QByteArray::number(rows.size() + 1) + '\t' + decoded.date + '\t' +
                                            decoded.time + '\t' + decoded.values.join('\t') + '\t');
            }
        }
        return rows;
    }

    /// How many of these rows had been taken at least, going by the log alone: each block that is read begins a tick,
    /// and each tick takes a row if one waits.
    static int rowsTaken(const QByteArray& log) {
        int taken = 0;
        int waiting = 0;
        QByteArray run = log.mid(log.indexOf("R\r\n"));
        QByteArrayList blocks = run.replace("\r\n\r\n", "\f").split('\f');
        blocks.removeAll(QByteArray()); // behind the last one
        for (const QByteArray& block : std::as_const(blocks)) {
            waiting += static_cast<int>(block.count('\t')) / 5;
            if (waiting > 0) {
                --waiting;
                ++taken;
            }
        }
        return taken;
    }

    OwnFolder folder;
};

constexpr int headerLines = 5;

/// A program that is to be killed at a moment of its run, in a folder of its own.
struct Victim {
    explicit Victim(std::minstd_rand& random)
        : rows(std::uniform_int_distribution(0, 19)(random))
        , further(std::uniform_int_distribution(0, 30)(random)) {
        host.startDemo(folder.path());
    }

    /// Kills it if the moment has come.
    void killWhenDue() {
        host.process.waitForFinished(0);
        const QString record = folder.filePath(QStringLiteral("Orvtemp.tmp"));
        if (!due.isValid() && QFile::exists(record + QStringLiteral(".lock")) &&
            contentsOf(record).count('\n') >= headerLines + rows) {
            due.start();
        }
        if (due.isValid() && due.hasExpired(further)) {
            host.kill();
        }
    }
    bool isRunning() const { return host.process.state() == QProcess::Running; }

    QTemporaryDir folder;
    HostProcess host;
    QElapsedTimer due;
    int rows;       ///< It has so many rows by then.
    qint64 further; ///< And has gone on for so many milliseconds.
};

class KilledRun : public RecoveryTest, public testing::WithParamInterface<int> {
protected:
    /// Recovers what was left in the working directory, compared with what the program that died had received.
    void expectRecovered() {
        const QString sheetFile = QDir::current().filePath(QStringLiteral("sheet.txt"));
        const QByteArray record = contentsOf(QStringLiteral("Orvtemp.tmp"));
        const int rows = linesIn(QStringLiteral("Orvtemp.tmp")) - headerLines;
        ASSERT_TRUE(record.endsWith("\r\n"));
        const QByteArray log = contentsOf(QStringLiteral("log.ohp"));
        QStringList received = rowsReceived(log);
        ASSERT_GE(received.size(), rows);
        const int taken = rowsTaken(log);
        EXPECT_GE(rows, taken - 1) << "only the last tick may have been cut off:\n"
                                   << log.mid(log.indexOf("R\r\n")).toStdString();
        keptEveryRow += rows > 0 && rows >= taken ? 1 : 0;
        received.resize(rows);
        {
            // Dies after Yes, before the rows are saved.
            const NextProgram dying(true);
            EXPECT_EQ(rowsOnSheet(dying.program.sheet.data), received);
            EXPECT_EQ(dying.answers.asked.size(), rows == 0 ? 0 : 1);
        }
        NextProgram next(true);
        EXPECT_EQ(rowsOnSheet(next.program.sheet.data), received) << "offered again";
        EXPECT_TRUE(next.messages.shown.empty());
        EXPECT_EQ(contentsOf(QStringLiteral("Orvtemp.tmp")), record);
        if (rows > 0) {
            const QString question =
                QStringLiteral("ORV Host Program: The last run in this folder did not end. Load its %1 row%2 into the "
                               "sheet?")
                    .arg(rows)
                    .arg(rows == 1 ? QString() : QStringLiteral("s"));
            EXPECT_EQ(next.answers.asked.join(u'\n').toStdString(), question.toStdString());
            EXPECT_EQ(next.program.link.session.state.plc, rows);
            EXPECT_TRUE(next.program.sheet.shown.unsaved);
            next.answers.fileName = sheetFile;
            next.program.saveAs();
            const QByteArray sheet = contentsOf(sheetFile);
            EXPECT_TRUE(sheet.startsWith("V\t512 " + QByteArray::number(rows) + "\r\n"))
                << sheet.left(40).toStdString();
            EXPECT_TRUE(sheet.endsWith("REF 150\r\n" + received.join(QStringLiteral("\t\r")).toLatin1() + "\t\r"));
        }
        EXPECT_FALSE(QFile::exists(QStringLiteral("Orvtemp.tmp.lock")));
    }

    int keptEveryRow = 0; ///< So many of the runs.
};

TEST_P(KilledRun, HasItsRowsRecovered) {
    const auto seed = static_cast<unsigned>(20261121 + GetParam());
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::minstd_rand random(seed);
    // They run side by side: most of their time is waiting for the instrument.
    constexpr int killsPerTest = 5;
    int killed = 0;
    for (int attempt = 0; killed < killsPerTest; ++attempt) {
        ASSERT_LT(attempt, 10) << "the runs always ended before they could be killed";
        std::vector<std::unique_ptr<Victim>> victims;
        for (int victim = killed; victim < killsPerTest; ++victim) {
            victims.push_back(std::make_unique<Victim>(random));
        }
        QElapsedTimer passed;
        passed.start();
        while (std::any_of(victims.begin(), victims.end(), [](const auto& victim) { return victim->isRunning(); })) {
            ASSERT_LT(passed.elapsed(), patience);
            std::for_each(victims.begin(), victims.end(), [](const auto& victim) { victim->killWhenDue(); });
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        for (const auto& victim : victims) {
            ASSERT_TRUE(victim->due.isValid()) << victim->host.process.readAllStandardError().toStdString();
            QDir::setCurrent(victim->folder.path());
            // On a busy machine a run may have ended before it could be killed.
            if (QFile::exists(QStringLiteral("Orvtemp.tmp.lock"))) {
                ++killed;
                expectRecovered();
            }
            QDir::setCurrent(folder.path(""));
        }
    }
    EXPECT_GT(keptEveryRow, 0) << "a row is in the file before the next one is waited for";
}

/// Fifty kills, a few in each test so that they can run side by side.
INSTANTIATE_TEST_SUITE_P(AtRandomMoments, KilledRun, testing::Range(0, 10));

TEST_F(RecoveryTest, AnUnattendedRunInAFolderWhereOneDiedAsksNothingAndKeepsItsRows) {
    HostProcess dying;
    dying.startDemo(QDir::currentPath());
    dying.waitFor([this] { return linesIn(folder.path("Orvtemp.tmp")) > headerLines + 2; });
    dying.kill();
    const QByteArray record = contentsOf(folder.path("Orvtemp.tmp"));
    HostProcess next;
    next.startDemo(QDir::currentPath());
    ASSERT_TRUE(next.process.waitForFinished(patience));
    EXPECT_EQ(next.process.exitCode(), 0) << next.process.readAllStandardError().toStdString();
    const QStringList kept = folder.files().filter(QStringLiteral("Orvtemp-"));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contentsOf(folder.path(qPrintable(kept[0]))), record);
    EXPECT_TRUE(folder.files().filter(QStringLiteral(".lock")).isEmpty());
}

TEST_F(RecoveryTest, TwoProgramsInOneFolderLeaveEachOtherAlone) {
    HostProcess first;
    first.startDemo(QDir::currentPath(), QStringLiteral("sim:trx?rate=1&baud=0"));
    first.waitFor([this] { return linesIn(folder.path("Orvtemp.tmp")) > headerLines; });
    const QByteArray record = contentsOf(folder.path("Orvtemp.tmp"));
    const QByteArray log = contentsOf(folder.path("log.ohp"));

    HostProcess second;
    second.startDemo(QDir::currentPath());
    ASSERT_TRUE(second.process.waitForFinished(patience));
    EXPECT_EQ(second.process.exitCode(), 1) << "unattended, it does not work beside another";
    const QString said = QString::fromLocal8Bit(second.process.readAllStandardError());
    EXPECT_TRUE(said.contains(
        QStringLiteral("Another ORV Host Program uses this folder (process %1)").arg(first.process.processId())))
        << qPrintable(said);
    EXPECT_TRUE(said.contains(QStringLiteral("This program writes log-2.ohp and Orvtemp-2.tmp instead.")))
        << qPrintable(said);

    {
        const NextProgram third(true);
        EXPECT_EQ(third.messages.shown.size(), 1U);
        EXPECT_TRUE(third.answers.asked.isEmpty()) << "the run is a living program's";
        EXPECT_TRUE(QFile::exists(folder.path("orvhost-2.lock"))) << "the second one's place is free again";
    }
    EXPECT_TRUE(contentsOf(folder.path("log.ohp")).startsWith(log));
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).startsWith(record));
    EXPECT_TRUE(QFile::exists(folder.path("Orvtemp.tmp.lock")));
    ASSERT_EQ(first.process.state(), QProcess::Running);

    first.kill();
    const int rows = linesIn(folder.path("Orvtemp.tmp")) - headerLines;
    const NextProgram next(true);
    EXPECT_TRUE(next.messages.shown.empty()) << "the place of a dead program is free";
    EXPECT_EQ(next.program.sheet.data.rowCount(), rows);
}

} // namespace
} // namespace orv
