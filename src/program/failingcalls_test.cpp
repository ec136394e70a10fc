// SPDX-License-Identifier: GPL-3.0-or-later
// A whole session is done again and again, and each time another of the calls that change its files fails, or the
// program dies there, until a session passes without meeting it.
#include "testing/failingcalls.h"

#include "sheet/sheetformat.h"
#include "testing/keptrows.h"
#include "testing/programrig.h"

#include <QRegularExpression>

#include <cerrno>
#include <set>

#include <sys/wait.h>

namespace orv {
namespace {

using failingcalls::Plan;

/// The program below its windows in the working directory, on a simulated instrument.
class Bench {
public:
    Bench() { program.link.ports.setDevice(1, QStringLiteral("sim:trx?baud=0&rate=10&records=5")); }

    void live(qint64 milliseconds) { clock.advance(milliseconds); }

    /// The operator does something; what he was told before may be told again.
    void beginStep() { toldBefore.push_back(messages.shown.size()); }

    void liveUntil(const std::function<bool()>& reached) {
        constexpr int longest = 60000;
        for (int passed = 0; !reached(); passed += 10) {
            if (passed >= longest) {
                throw std::runtime_error("the session does not go on");
            }
            live(10);
        }
    }

    void connect() {
        beginStep();
        program.autoConnect1();
        liveUntil([this] {
            return program.link.procedures.isIdle() && program.link.session.state.Ctrlscrn == Operation::SettingsOpen;
        });
    }

    void run(int rows) {
        connect();
        beginStep();
        program.run();
        const int before = taken;
        liveUntil([this, rows, before] { return taken >= before + rows; });
        live(600); // on the disk
        program.closePort();
    }

    void save(const char* name) {
        beginStep();
        answers.fileName = QString::fromLatin1(name);
        program.saveAs();
    }

    bool isUnsaved() const { return program.sheet.shown.unsaved; }

    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    Program program{{.clock = clock, .messages = messages, .questions = answers, .makePort = [this](const QString& of) {
                         return simulatedInstrument(of, clock);
                     }}};
    std::vector<std::size_t> toldBefore; ///< Messages, at the beginning of each step.
    int taken = 0;                       ///< Rows.
    std::function<void(const DataRow&)> tookRow;
    Subscription takingRun = program.sheet.run.taken.subscribe([this](int, const DataRow& row) { note(row); });
    Subscription takingStored = program.sheet.download.taken.subscribe([this](int, const DataRow& row) { note(row); });

private:
    void note(const DataRow& row) {
        ++taken;
        if (tookRow) {
            tookRow(row);
        }
    }
};

using Session = void (*)(Bench& bench);

/// A failure of these is told, whatever it was, because something may be missing.
const std::set<std::string> mustBeTold{"open orvhost.lock", "write orvhost.lock", "open log.ohp",
                                       "write log.ohp",     "open Orvtemp.tmp",   "write Orvtemp.tmp",
                                       "fsync Orvtemp.tmp", "open memory.txt",    "write memory.txt",
                                       "fsync memory.txt",  "open new file",      "write new file"};

/// The operator's steps. What could not be saved he tries to save once more, and does not clear.
void saveAndClear(Bench& bench, const char* name) {
    bench.save(name);
    if (bench.isUnsaved()) {
        bench.save(name);
    }
    if (!bench.isUnsaved()) {
        bench.program.clearAll();
    }
}

/// A run of another day is recovered; runs, a save, both downloads.
void workingDay(Bench& bench) {
    bench.answers.yes = true;
    bench.program.load();
    bench.program.offerUnendedRun();
    bench.run(4);
    saveAndClear(bench, "sheet.txt");
    bench.run(3);
    bench.run(2);
    bench.connect();
    bench.program.sheet.download.saveAsText(QStringLiteral("memory.txt"));
    bench.live(2000);
    bench.program.closePort();
    saveAndClear(bench, "second.txt");
    bench.connect();
    bench.program.vwhp();
    bench.live(2000);
    bench.program.keepForNextStart();
    bench.program.closePort();
}

/// The sheet becomes long in the middle of a run, is saved by itself and cleared; and the log begins anew.
void longRun(Bench& bench) {
    bench.program.load();
    bench.program.link.poll.log.setLargest(400);
    SheetRows& rows = bench.program.sheet.rows;
    const DataRow old{
        .date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:01"), .values = {QStringLiteral("9")}};
    bench.connect();
    bench.program.run();
    while (bench.program.sheet.data.rowCount() < SheetFiles::rowLimit - 3) {
        rows.addRow(old);
    }
    bench.liveUntil([&bench] { return bench.taken >= 6; });
    bench.program.closePort();
    bench.program.link.poll.log.setLargest(ProgramLog::largestFile);
}

struct Case {
    const char* name;
    Session session;
    Plan::Then then;
    std::vector<int> errors; ///< Each call fails with each of them, in a session of its own.
    bool namesSurvive;
};

void PrintTo(const Case& value, std::ostream* out) {
    *out << value.name;
}

const char* const unendedRows =
    "1\t11/20/26\t8:00:00\t11\t\t12\t\t13\t14\r\n2\t11/20/26\t8:00:01\t21\t\t22\t\t23\t24\r\n";

class FailingCalls : public testing::TestWithParam<Case> {
protected:
    /// A folder in which a run did not end.
    void layOut() {
        for (const QString& name : QDir().entryList(QDir::Files | QDir::Hidden)) {
            QFile::remove(name);
        }
        *told_ = TakenRows();
        if (GetParam().session == workingDay) {
            fill(QStringLiteral("Orvtemp.tmp"),
                 recordHeader(QDateTime(QDate(2026, 11, 20), QTime(8, 0)), 512.0) + unendedRows);
            fill(QStringLiteral("Orvtemp.tmp.lock"), "V\t512\r\n");
            told_->add("11/20/26\t8:00:00\t11\t12\t13\t14", 0);
            told_->add("11/20/26\t8:00:01\t21\t22\t23\t24", 0);
        }
    }

    void follow(Bench& bench) {
        bench.tookRow = [this, &bench](const DataRow& row) { told_->add(row, bench.clock.monotonicMilliseconds()); };
    }

    Plan planFor(int at, int error = 0) const {
        return {.at = at, .then = GetParam().then, .error = error, .namesSurvive = GetParam().namesSurvive};
    }

    void expectKept(const KeptRows& found, qint64 until) const {
        for (int row = 0; row < told_->count; ++row) {
            if (told_->rows[row].at <= until) {
                EXPECT_TRUE(found.has(told_->rows[row].text())) << "lost: " << told_->rows[row].text().toStdString();
            }
        }
    }

    /// The program as it is started next; what it is offered it takes, and it works.
    void startNext(bool died, qint64 until) {
        KeptRows found(QDir::currentPath(), died ? KeptRows::Flaw::CutOff : KeptRows::Flaw::None);
        Bench next;
        next.answers.yes = true;
        next.program.load();
        next.program.offerUnendedRun();
        found.add(next.program.sheet.data);
        expectKept(found, until);
        next.messages.shown.clear(); // it may have told what of the record file is cut off
        expectWorks(next, "next.txt");
    }

    /// Connects, runs and saves.
    static void expectWorks(Bench& bench, const char* name) {
        const auto before = bench.messages.shown.size();
        bench.run(2);
        bench.save(name);
        EXPECT_FALSE(bench.isUnsaved());
        for (std::size_t i = before; i < bench.messages.shown.size(); ++i) {
            ADD_FAILURE() << bench.messages.shown[i].text.toStdString();
        }
        const LoadedSheet saved = readSheetFile(QString::fromLatin1(name));
        EXPECT_EQ(saved.error.toStdString(), "");
        EXPECT_EQ(static_cast<int>(saved.rows.size()), bench.program.sheet.data.rowCount());
        EXPECT_GE(bench.program.sheet.data.rowCount(), 2);
        EXPECT_FALSE(QFile::exists(QStringLiteral("Orvtemp.tmp.lock")));
    }

    /// Returns whether the session met the call.
    bool failAt(int at, int error) {
        layOut();
        std::vector<Message> messages;
        std::vector<std::string> failed;
        {
            Bench bench;
            follow(bench);
            failingcalls::start(QDir::currentPath().toStdString(), planFor(at, error));
            GetParam().session(bench);
            failingcalls::stop();
            failed = failingcalls::failed();
            messages = bench.messages.shown;
            expectToldOnce(bench);
            std::erase_if(messages, [](const Message& message) { return message.icon == Message::Icon::Information; });
            KeptRows found(QDir::currentPath());
            found.add(bench.program.sheet.data);
            expectKept(found, std::numeric_limits<qint64>::max());
            expectWorks(bench, "later.txt");
            bench.program.endUnasked();
        }
        if (!HasFailure()) {
            startNext(false, std::numeric_limits<qint64>::max());
        }
        if (GetParam().then == Plan::Then::Fail && !failed.empty()) {
            note(failed.front(), messages);
            EXPECT_LE(messages.size(), 1U) << failed.front();
            // A folder that says it is read-only is had without a lock, which is put before the first row is written.
            const bool isLater = error == EROFS && failed.front() == "open orvhost.lock";
            EXPECT_TRUE(messages.size() == 1 || mustBeTold.count(failed.front()) == 0 || isLater) << failed.front();
        }
        return !failed.empty();
    }

    /// For the table: what a failing call came to.
    void note(const std::string& call, const std::vector<Message>& messages) {
        static const QRegularExpression madeUp(QStringLiteral("-[0-9]{8}-[0-9]{6}|\\.[A-Za-z]{6}$"));
        const QString told = messages.empty() ? QStringLiteral("nothing: nothing is missing")
                                              : messages.front().text.section(QLatin1String(": "), 0, 0);
        const QString what = QString::fromStdString(call).replace(madeUp, QStringLiteral("-..."));
        QStringList words = told.split(u' ');
        for (QString& word : words) {
            word = word.startsWith(u'/') ? word.section(u'/', -1) : word;
        }
        ++outcomes_[what + QLatin1String(" | ") + words.join(u' ')];
    }

    void printTable(int calls) const {
        std::printf("| %s | %d |\n", GetParam().name, calls);
        for (const auto& [outcome, count] : outcomes_) {
            std::printf("| %s | %d |\n", qPrintable(outcome), count);
        }
    }

    /// Nothing is told twice unless the operator has done something between.
    static void expectToldOnce(const Bench& bench) {
        std::set<QString> told;
        for (std::size_t i = 0; i < bench.messages.shown.size(); ++i) {
            if (std::ranges::find(bench.toldBefore, i) != bench.toldBefore.end()) {
                told.clear();
            }
            EXPECT_TRUE(told.insert(bench.messages.shown[i].text).second) << bench.messages.shown[i].text.toStdString();
        }
    }

    /// Each error in turn; returns whether the session met the call.
    bool failAtWithEach(int at) {
        bool met = false;
        for (const int error : GetParam().errors) {
            SCOPED_TRACE(error);
            met = failAt(at, error);
            if (HasFailure()) {
                break;
            }
        }
        return met;
    }

    bool dieAt(int at) {
        layOut();
        const pid_t child = ::fork();
        if (child == 0) {
            Bench bench;
            follow(bench);
            failingcalls::beforeDeath = [this, &bench] { told_->diedAt = bench.clock.monotonicMilliseconds(); };
            failingcalls::start(QDir::currentPath().toStdString(), planFor(at));
            GetParam().session(bench);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        const bool died = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        EXPECT_TRUE(died || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
        constexpr qint64 second = 1000;
        const bool loses = GetParam().then == Plan::Then::PowerCut;
        startNext(died, !died ? std::numeric_limits<qint64>::max() : told_->diedAt - (loses ? second : 0));
        return died;
    }

private:
    OwnFolder folder_;
    SharedWithChildren<TakenRows> told_;
    std::map<QString, int> outcomes_;
};

TEST_P(FailingCalls, LoseNothing) {
    const bool dies = GetParam().then == Plan::Then::Kill || GetParam().then == Plan::Then::PowerCut;
    int at = 1;
    for (bool met = true; met; ++at) {
        SCOPED_TRACE("call " + std::to_string(at));
        met = dies ? dieAt(at) : failAtWithEach(at);
        ASSERT_FALSE(HasFailure());
    }
    RecordProperty("calls", at - 2);
    if (qEnvironmentVariableIsSet("ORV_TABLES")) {
        printTable(at - 2);
    }
}

const Case cases[] = {
    {"DayFail", workingDay, Plan::Then::Fail, {EIO, ENOSPC, EROFS}, false},
    {"DayFailOn", workingDay, Plan::Then::FailOn, {ENOSPC}, false},
    {"DayKill", workingDay, Plan::Then::Kill, {}, false},
    {"DayPowerCut", workingDay, Plan::Then::PowerCut, {}, false},
    {"DayPowerCutNamesSurvive", workingDay, Plan::Then::PowerCut, {}, true},
    {"LongFail", longRun, Plan::Then::Fail, {EIO, ENOSPC, EROFS}, false},
    {"LongFailOn", longRun, Plan::Then::FailOn, {ENOSPC}, false},
    {"LongKill", longRun, Plan::Then::Kill, {}, false},
    {"LongPowerCut", longRun, Plan::Then::PowerCut, {}, false},
    {"LongPowerCutNamesSurvive", longRun, Plan::Then::PowerCut, {}, true},
};

INSTANTIATE_TEST_SUITE_P(Sessions, FailingCalls, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace orv
