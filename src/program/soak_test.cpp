// SPDX-License-Identifier: GPL-3.0-or-later
// Thirty days of work on the test's clock, with a fault every few minutes: nothing may grow with the days.
#include "testing/failingcalls.h"
#include "testing/programrig.h"

#include <cerrno>
#include <random>

#include <malloc.h>

namespace orv {
namespace {

constexpr qint64 second = 1000;
constexpr qint64 minute = 60 * second;
constexpr qint64 day = 24 * 60 * minute;

/// What a program takes of the computer.
struct Use {
    std::size_t heap = 0; ///< Bytes.
    qsizetype files = 0;  ///< Open.
    qint64 log = 0;       ///< Bytes, with the older one.
    qint64 record = 0;
    qsizetype records = 0; ///< Record files.
};

class Soak : public testing::Test {
protected:
    Soak() {
        // Rows a second: by default one each ten seconds, which is quick enough for every change.
        const QString rate = qEnvironmentVariable("ORV_SOAK_RATE", QStringLiteral("0.1"));
        program.link.ports.setDevice(1, QStringLiteral("sim:trx?baud=0&records=40&rate=") + rate);
        program.load();
        program.link.poll.log.setLargest(largestLog);
    }

    void live(qint64 milliseconds) {
        clock.advance(milliseconds);
        lastTold = messages.shown.empty() ? lastTold : messages.shown.back().text;
        messages.shown.clear();
        answers.asked.clear();
        if (line != nullptr) {
            line->writes.clear();
            line->blocks.clear();
            line->dtr.clear();
        }
    }

    bool liveUntil(qint64 longest, const std::function<bool()>& reached) {
        for (qint64 passed = 0; passed < longest && !reached(); passed += second / 10) {
            live(second / 10);
        }
        return reached();
    }

    Operation operation() const { return program.link.session.state.Ctrlscrn; }

    /// As an operator does: again and again, and "Close Port" before, until the instrument is ready.
    void connect() {
        const std::function<bool()> ready = [this] {
            return program.link.procedures.isIdle() && operation() == Operation::SettingsOpen;
        };
        if (line != nullptr) {
            line->unplugged = false;
        }
        for (int attempt = 0; attempt < 5; ++attempt) {
            program.closePort();
            program.link.manual.quit();
            program.autoConnect1();
            ++connections;
            if (liveUntil(20 * second, ready)) {
                return;
            }
        }
        FAIL() << "no connection on day " << clock.monotonicMilliseconds() / day << ": "
               << program.link.session.status.status.value().toStdString() << ", " << static_cast<int>(operation())
               << ", " << lastTold.toStdString();
    }

    void save() {
        answers.fileName = QStringLiteral("sheet.txt");
        for (int attempt = 0; attempt < 2 && program.sheet.shown.unsaved; ++attempt) {
            program.saveAs();
        }
        ASSERT_FALSE(program.sheet.shown.unsaved);
    }

    void ensureRunning() {
        if (operation() == Operation::Collecting) {
            return;
        }
        connect();
        save();
        // At first the sheet becomes as long as it can, and is saved by itself.
        if (clock.monotonicMilliseconds() > longSheets) {
            program.clearAll();
        }
        program.run();
        ASSERT_TRUE(liveUntil(minute, [this] { return operation() == Operation::Collecting; }));
    }

    void download(const std::function<void()>& begin) {
        connect();
        begin();
        liveUntil(minute, [this] { return operation() == Operation::Idle; });
        downloads += program.sheet.download.isWhole() ? 1 : 0;
        program.closePort();
    }

    /// The disk takes nothing for a minute; or one call fails.
    void failCalls(failingcalls::Plan::Then then, int error) {
        failingcalls::start(QDir::currentPath().toStdString(), {.at = 1, .then = then, .error = error});
        live(minute);
        failingcalls::stop();
    }

    void fault() {
        using Then = failingcalls::Plan::Then;
        const std::function<void()> faults[] = {
            [this] { line->input += "\xff\x00\x7f~garbage"; },
            [this] { line->input += "12/40/26\t99\t1\r\n"; },
            [this] { line->input += "11/21/26\t2700\t1\t2\t3\t4\r\n\r\n\r\n"; },
            [this] {
                line->silent = true;
                live(30 * second);
                line->silent = false;
            },
            [this] { failCalls(Then::FailOn, ENOSPC); },
            [this] { failCalls(Then::Fail, EIO); },
            [this] { failCalls(Then::Fail, EROFS); },
            [this] { save(); },
            [this] { clock.set(clock.now().addSecs(-3600)); },
            [this] { clock.set(clock.now().addSecs(7200)); },
            [this] { line->unplugged = true; },
            [this] { program.closePort(); },
            [this] { program.reset(); },
            [this] { download([this] { program.sheet.download.saveAsText(QStringLiteral("memory.txt")); }); },
            [this] { download([this] { program.vwhp(); }); },
        };
        // The first ten leave the run alone and are far more common.
        constexpr int lasting = 10;
        const bool cuts = std::uniform_int_distribution(0, 5)(random) == 0;
        const int which = cuts ? std::uniform_int_distribution(lasting, static_cast<int>(std::size(faults)) - 1)(random)
                               : std::uniform_int_distribution(0, lasting - 1)(random);
        ++faultsDone;
        faults[which]();
        live(5 * second);
    }

    /// Measured with nothing on the sheet and no connection.
    Use measure() {
        program.closePort();
        save();
        program.clearAll();
        live(10 * second);
        Use use;
        use.heap = ::mallinfo2().uordblks;
        use.files = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
        use.log = QFileInfo(QStringLiteral("log.ohp")).size() + QFileInfo(QStringLiteral("log-older.ohp")).size();
        use.record = QFileInfo(QStringLiteral("Orvtemp.tmp")).size();
        use.records = QDir().entryList({QStringLiteral("Orvtemp*.tmp")}).size();
        return use;
    }

    void workUntil(qint64 until) {
        while (clock.monotonicMilliseconds() < until && !HasFatalFailure()) {
            ensureRunning();
            live(std::uniform_int_distribution<qint64>(2 * minute, 8 * minute)(random));
            fault();
        }
    }

    static constexpr qint64 longSheets = 4 * day;
    static constexpr qint64 largestLog = qint64{1} * 1024 * 1024;

    OwnFolder folder;
    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    TestPort* line = nullptr;
    Program program{{.clock = clock, .messages = messages, .questions = answers, .makePort = [this](const QString& of) {
                         auto port = std::make_unique<TestPort>(simulatedInstrument(of, clock));
                         line = port.get();
                         return port;
                     }}};
    std::minstd_rand random{20261122};
    QString lastTold;
    int rows = 0;
    int connections = 0;
    int downloads = 0;
    int faultsDone = 0;
    Subscription countingRows = program.sheet.run.taken.subscribe([this](int, const DataRow&) { ++rows; });
};

TEST_F(Soak, ThirtyDaysTakeNoMoreThanTen) {
    workUntil(10 * day);
    const Use early = measure();
    const int earlyRows = rows;
    const int earlyConnections = connections;
    const int earlyFaults = faultsDone;
    workUntil(30 * day);
    const Use late = measure();
    if (qEnvironmentVariableIsSet("ORV_TABLES")) {
        const auto line = [](const char* what, qint64 tenth, qint64 thirtieth) {
            std::printf("| %s | %lld | %lld |\n", what, static_cast<long long>(tenth),
                        static_cast<long long>(thirtieth));
        };
        line("bytes of memory that are in use", static_cast<qint64>(early.heap), static_cast<qint64>(late.heap));
        line("open files", early.files, late.files);
        line("bytes of the log, which is begun anew at 1 MB here, and the file before", early.log, late.log);
        line("bytes of the record file", early.record, late.record);
        line("record files", early.records, late.records);
        line("rows", earlyRows, rows);
        line("connections", earlyConnections, connections);
        line("faults", earlyFaults, faultsDone);
    }
    EXPECT_GT(rows, 100'000);
    EXPECT_GT(downloads, 100);
    constexpr std::size_t slack = std::size_t{16} * 1024;
    EXPECT_LE(late.heap, early.heap + slack);
    EXPECT_EQ(late.files, early.files);
    EXPECT_LE(late.log, 2 * largestLog);
    EXPECT_GE(late.log, largestLog) << "it has been begun anew";
    constexpr qint64 longestRecord = qint64{32768} * 64;
    EXPECT_LE(late.record, longestRecord);
    EXPECT_LE(late.records, 30) << "of runs whose rows could not be saved at once";
    EXPECT_GE(folder.files().filter(QStringLiteral("Untitled")).size(), 1) << "a long sheet was saved by itself";
}

} // namespace
} // namespace orv
