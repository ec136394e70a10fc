// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/point.h"

#include "matrix/tellings.h"
#include "sheet/sheetformat.h"
#include "testing/expected.h"

#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>

namespace orv {

namespace {

constexpr qint64 operatorsPatience = 45'000; ///< Milliseconds beyond the usual time that the operator waits.

qsizetype openFiles() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

/// None of the simulated instrument's rows has such a character.
bool hasNoise(const QByteArray& cells) {
    return std::ranges::any_of(cells, [](char letter) { return letter != '\t' && (letter < ' ' || letter >= '~'); });
}

} // namespace

void Outcome::add(const char* key) {
    if (!tellings().contains(QLatin1String(key))) {
        const QByteArray all = QByteArray(keys.data()) + ' ' + key;
        ASSERT_LT(all.size(), static_cast<qsizetype>(keys.size()));
        std::strcpy(keys.data(), all.constData());
    }
}

QStringList Outcome::tellings() const {
    return QString::fromLatin1(keys.data()).split(u' ', Qt::SkipEmptyParts);
}

Point::Point(const Undertaking& undertaking, const Fault* fault, qint64 at, unsigned seed)
    : undertaking_(undertaking)
    , fault_(fault)
    , at_(at)
    , random_(seed) {}

void Point::play(const Course& usual) {
    limit_ = usual.milliseconds + operatorsPatience;
    layOut();
    if (fault_ == nullptr || !fault_->needsProcess) {
        const auto descriptors = openFiles();
        playHere();
        EXPECT_EQ(openFiles(), descriptors) << "a file was left open";
    } else {
        playInChild();
    }
    if (!removesFolder()) {
        startNext();
    }
}

/// What stands in the folder before the program starts.
void Point::layOut() {
    if (undertaking_.recordedBefore == nullptr) {
        return;
    }
    const QByteArray rows(undertaking_.recordedBefore);
    fill(QStringLiteral("Orvtemp.tmp"), recordHeader(QDateTime(QDate(2026, 11, 20), QTime(8, 0)), 512.0) + rows);
    fill(QStringLiteral("Orvtemp.tmp.lock"), "V\t512\r\n");
    for (const QByteArray& line : rows.split('\n')) {
        QByteArrayList cells = line.trimmed().split('\t').mid(1);
        cells.removeAll(QByteArray());
        if (!cells.isEmpty()) {
            outcome_->taken.add(cells.join('\t'), 0);
        }
    }
}

void Point::playInChild() {
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr unsigned longest = 60; // seconds
        ::alarm(longest);
        const testing::TestResult& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
        const int before = result.total_part_count();
        playHere();
        std::fflush(stdout);
        ::_exit(result.total_part_count() > before ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, WUNTRACED);
    while (WIFSTOPPED(status)) {
        ::kill(child, SIGCONT);
        ::waitpid(child, &status, WUNTRACED);
    }
    const bool asItShould = is(Fault::Then::IsKilled) && outcome_->struck
                                ? WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL
                                : WIFEXITED(status) && WEXITSTATUS(status) == 0;
    EXPECT_TRUE(asItShould) << "the child ended so: " << status;
}

void Point::playHere() {
    failingcalls::start(folder_.path().toStdString(), {});
    MatrixBench bench(folder_.path(), fault_ != nullptr ? fault_->way : FaultyLine::Way::Memory, outcome_->taken);
    undertaking_.prepare(bench);
    bench.settingsBefore = bench.settings.record;
    bench.settings.exchange = QString();
    bench.messages.shown.clear();
    bench.listen();
    bench.longestStep = 0;
    Subscription interrupted;
    if (is(Fault::Then::Ends)) {
        bench.interruption.emplace();
        interrupted = bench.interruption->wanted.subscribe([this, &bench](int signal) { end(bench, signal); });
    }
    arm(bench);
    const qint64 began = bench.clock.monotonicMilliseconds();
    bench.click([this, &bench] { undertaking_.begin(bench); });
    const auto over = [this, &bench] { return gone_ || bench.isAtRest(); };
    bench.passUntil(limit_, over);
    course_.milliseconds = bench.clock.monotonicMilliseconds() - began;
    constexpr qint64 moment = 300; // what comes just after
    bench.pass(moment);
    outcome_->done = undertaking_.isDone(bench);
    if (is(Fault::Then::Ends) && outcome_->struck) {
        EXPECT_TRUE(gone_ || bench.answered.status >= 0) << "it does not end";
        failingcalls::stop();
        judge(bench);
        return;
    }
    if (!over()) {
        if (fault_ != nullptr && fault_->setsClock) {
            outcome_->add("waits"); // see the table
        }
        giveUp(bench);
    }
    noteCourse(bench);
    judge(bench);
    expectWorks(bench);
    bench.program.endUnasked();
    outcome_->longestStep = bench.longestStep;
}

void Point::arm(MatrixBench& bench) {
    const std::function<void()> strikes = [this, &bench] { strike(bench); };
    const bool atByte = fault_ != nullptr && fault_->at != Fault::At::Call &&
                        (fault_->at != Fault::At::ByteOrCall || undertaking_.usesLine);
    failingcalls::Plan plan;
    if (atByte) {
        bench.watchLine(at_, strikes);
    } else {
        bench.watchLine(0, {});
        if (fault_ != nullptr) {
            plan = {.at = static_cast<int>(at_), .then = fault_->call, .error = fault_->error, .happen = strikes};
        }
    }
    failingcalls::follow(plan);
}

void Point::strike(MatrixBench& bench) {
    outcome_->struck = true;
    rowsAtStrike_ = outcome_->taken.count;
    if (bench.sheetState.unsaved) {
        onSheet_.emplace(QString());
        onSheet_->add(bench.sheet);
    }
    fault_->strike(bench, random_);
}

/// A signal has come.
void Point::end(MatrixBench& bench, int signal) {
    if (undertaking_.isCommand) {
        bench.visit->interrupt(signal);
    } else {
        bench.click([&bench] { bench.program.endUnasked(); });
        gone_ = true;
    }
}

/// The operator waits no longer.
void Point::giveUp(MatrixBench& bench) {
    constexpr qint64 longest = 30'000;
    bench.click([this, &bench] {
        if (undertaking_.isCommand) {
            bench.visit->interrupt(SIGINT);
        } else if (bench.manual.shown.seeking) {
            bench.manual.quit();
        } else {
            bench.program.reset();
        }
    });
    bench.passUntil(longest, [&bench] { return bench.procedures.isIdle() && bench.isAtRest(); });
    EXPECT_TRUE(!undertaking_.isCommand || bench.isAtRest()) << "a command that is interrupted ends";
}

void Point::noteCourse(const MatrixBench& bench) {
    failingcalls::stop();
    course_.calls = failingcalls::made();
    if (bench.faulty != nullptr) {
        course_.bytes = bench.faulty->sent.size();
        course_.greetingAt = bench.faulty->sent.indexOf('V') + 1;
    }
    outcome_->struck = outcome_->struck || !failingcalls::failed().empty();
}

/// What has to hold when the fault has done what it does.
void Point::judge(MatrixBench& bench) {
    rowsJudged_ = outcome_->taken.count;
    expectToldOnce(bench);
    if (!is(Fault::Then::Ends)) {
        EXPECT_TRUE(outcome_->done || !outcome_->tellings().isEmpty()) << "something is missing, and nobody is told";
    }
    KeptRows kept(folder_.path(), flaw());
    kept.add(bench.sheet);
    expectKept(kept);
    if (undertaking_.takesEveryRow && !is(Fault::Then::Ends)) {
        expectEveryRowTaken(bench);
    }
}

void Point::expectToldOnce(MatrixBench& bench) {
    std::set<QString> boxes;
    for (const Message& message : bench.messages.shown) {
        const bool isNew = boxes.insert(message.text).second;
        // A command's terminal tells the same only once for each connection.
        EXPECT_TRUE(isNew || undertaking_.isCommand || mayBeToldAgain(message.text))
            << "told twice: " << message.text.toStdString();
    }
    if (undertaking_.isCommand) {
        bench.told.clear();
        for (const QString& text :
             QString::fromLatin1(bench.error.data()).split(QLatin1String("orv: "), Qt::SkipEmptyParts)) {
            bench.told.push_back(text);
        }
    }
    for (const QString& sentence : bench.told) {
        if (const Telling* telling = tellingOf(sentence)) {
            outcome_->add(telling->key);
        }
    }
}

void Point::expectKept(const KeptRows& kept) const {
    for (int row = 0; row < outcome_->taken.count; ++row) {
        const QByteArray cells = outcome_->taken.rows[row].text();
        EXPECT_TRUE(mayBeGone(row, cells) || kept.has(cells)) << "lost: " << cells.toStdString();
    }
}

bool Point::mayBeGone(int row, const QByteArray& cells) const {
    if (fault_ == nullptr) {
        return false;
    }
    const bool isTold = !outcome_->tellings().isEmpty();
    if (undertaking_.canBeRepeated && (isTold || is(Fault::Then::IsKilled))) {
        return true; // the instrument has it still
    }
    // It was in the folder and nowhere else: the sheet of a command ends with it.
    const bool wasOnSheet = !undertaking_.isCommand && onSheet_ && onSheet_->has(cells);
    if (removesFolder() && row < rowsAtStrike_ && !wasOnSheet) {
        return true;
    }
    // A command ends when no disk takes its rows, and with it the one that has just come.
    const bool endsInVain = undertaking_.isCommand && fault_->at == Fault::At::Call && isTold;
    return (endsInVain && row == rowsJudged_ - 1) || (fault_->isLoud && hasNoise(cells));
}

KeptRows::Flaw Point::flaw() const {
    if (is(Fault::Then::IsKilled)) {
        return KeptRows::Flaw::CutOff;
    }
    return fault_ != nullptr && fault_->isLoud ? KeptRows::Flaw::Noise : KeptRows::Flaw::None;
}

/// A row that has come as it was sent is one of those that the program has told as taken.
void Point::expectEveryRowTaken(const MatrixBench& bench) const {
    static const QRegularExpression isRow(QStringLiteral("^\\d\\d/\\d\\d/\\d\\d\\t\\d+(\\t\\d+){4}\\r$"));
    const QByteArrayList sent = bench.faulty->sent.split('\n');
    std::set<QByteArray> taken;
    for (int row = 0; row < outcome_->taken.count; ++row) {
        taken.insert(outcome_->taken.rows[row].text());
    }
    QByteArrayList given = bench.faulty->given.split('\n');
    given.removeLast(); // it has no end
    for (const QByteArray& line : std::as_const(given)) {
        if (sent.contains(line) && isRow.match(QString::fromLatin1(line)).hasMatch()) {
            const DecodedLine row = decodeLine(line.trimmed());
            EXPECT_TRUE(taken.contains(row.date + '\t' + row.time + '\t' + row.values.join('\t')))
                << "not taken: " << line.toStdString();
        }
    }
}

/// With the fault gone the same program connects, runs and saves, and tells no trouble.
void Point::expectWorks(MatrixBench& bench) {
    bench.manual.quit();
    bench.program.closePort();
    mendFolder(folder_.path());
    if (bench.faulty != nullptr) {
        bench.faulty->mend();
    }
    bench.pass(100);
    bench.messages.shown.clear();
    if (undertaking_.isCommand) {
        QDir::setCurrent(folder_.path());
        const Answered later =
            bench.orv(QStringLiteral("collect %1 -o later.csv --points 2").arg(QLatin1String(MatrixBench::instrument)));
        EXPECT_EQ(later.status, 0) << later.error;
        return;
    }
    const int before = outcome_->taken.count;
    bench.connect();
    if (outcome_->tellings().contains(QLatin1String("misread"))) {
        bench.sendSettingsOfBefore(); // as the operator was told
    }
    bench.runBlock();
    bench.save(bench.place("later.txt"));
    for (const Message& message : bench.messages.shown) {
        // In a folder that has gone there is no record file; one of that name is another folder.
        EXPECT_TRUE(removesFolder() || message.icon == Message::Icon::Information) << message.text.toStdString();
    }
    EXPECT_EQ(readSheetFile(bench.place("later.txt")).error.toStdString(), "");
    EXPECT_GT(outcome_->taken.count, before);
}

/// The program that is started next in the folder; it takes what it is offered.
void Point::startNext() {
    TakenRows none;
    QDir::setCurrent(folder_.path());
    KeptRows kept(folder_.path(), flaw());
    MatrixBench next(folder_.path(), FaultyLine::Way::Memory, none);
    next.answers.yes = true;
    next.load();
    next.program.offerUnendedRun();
    kept.add(next.sheet);
    expectKept(kept);
}

} // namespace orv
