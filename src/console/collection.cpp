// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/collection.h"

#include "base/text.h"
#include "console/commands.h"

#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <limits>
#include <utility>

namespace orv {

namespace {

/// Rows that may stand on the sheet until they are handed over. Where the file appears only at its end they are kept
/// as long as the sheet is not saved by itself.
constexpr int mostRows = 500;
constexpr int mostRowsOfLateFile = 15'000;

constexpr qint64 forever = std::numeric_limits<qint64>::max() / 2;

} // namespace

Collection::Collection(Visit& visit)
    : visit_(visit)
    , program_(visit.program)
    , output_(visit)
    , until_(forever)
    , taking_(program_.sheet.run.taken.subscribe([this](int /*number*/, const DataRow& row) { take(row); })) {
    // So a row comes a tenth of a second late at most, and one with the computer's time at once.
    program_.link.poll.linesTogether = visit_.options.stamp ? 1 : 2;
}

Task<> Collection::perform() {
    output_.refuseExisting();
    program_.offerUnendedRun(); // what is found is kept and told
    output_.removeLeftParts();
    Task<> work = collect();
    const Ending ending = co_await endingOf(std::move(work));
    if (ending.thrown && !output_.hasBegun()) {
        std::rethrow_exception(ending.thrown);
    }
    isLost_ = isLost_ || (ending.thrown && !visit_.isInterrupted());
    isInterrupted_ = visit_.finish();
    Task<> stopping = stop();
    const Ending stopped = co_await endingOf(std::move(stopping));
    output_.finish(unreadLines());
    Task<> delivering = deliver();
    const Ending delivered = co_await endingOf(std::move(delivering));
    output_.giveUp();
    if (output_.hasAllColumns() && !output_.isFull() && !output_.hasFailed() && output_.sync()) {
        program_.sheet.handOver();
    }
    report();
    if (output_.hasFailed()) {
        const QString problem =
            output_.rows() == 0
                ? output_.problem()
                : output_.problem() +
                      QStringLiteral(" The rows of this run are in the record file %1; \"orv convert %2 -o "
                                     "NAME.csv\" writes them to another file.")
                          .arg(recordFile(), shellWord(recordFile()));
        if (output_.isInVain() || !(isInterrupted_ || delivered.thrown)) {
            throw Failure(problem);
        }
        visit_.terminal.tell(problem);
    }
    for (const std::exception_ptr& thrown : {ending.thrown, stopped.thrown, delivered.thrown}) {
        if (thrown) {
            std::rethrow_exception(thrown);
        }
    }
    if (isLost_ || output_.isIncomplete()) {
        const QString kept = output_.rows() == 1
                                 ? QStringLiteral(" 1 row was collected and is kept.")
                                 : QStringLiteral(" %1 rows were collected and are kept.").arg(output_.rows());
        throw Failure(isLost_ ? reason_ + kept : QString(), ExitStatus::Incomplete);
    }
}

Task<> Collection::collect() {
    while (!isEnough()) {
        co_await connect();
        requireAppending();
        output_.begin(QStringLiteral("a run on %1").arg(visit_.options.port));
        if (std::exchange(isLost_, false)) {
            ++reconnections_;
            output_.note(QStringLiteral("Connected again; the run goes on."));
        }
        const End end = co_await run();
        isLost_ = end == End::Lost;
        if (!isLost_ || !visit_.options.keepTrying) {
            co_return;
        }
        output_.note(reason_);
        unreadBefore_ = unreadLines();
        isRunCounted_ = true;
        program_.closePort();
        handOver();
    }
}

/// Tries again and again if the operator wants that.
Task<> Collection::connect() {
    constexpr qint64 firstPause = 5000;
    constexpr qint64 longestPause = 60'000;
    qint64 pause = firstPause;
    bool isConnected = false;
    while (!isConnected) {
        try {
            co_await visit_.connect();
            requireErasingIsKnown();
            isConnected = true;
        } catch (const Failure& failure) {
            if (!visit_.options.keepTrying) {
                throw;
            }
            if (pause == firstPause && !failure.text().isEmpty()) {
                visit_.terminal.tell(failure.text());
            }
        }
        if (!isConnected) {
            program_.closePort();
            const std::function<bool()> over = [this] { return isEnough(); };
            co_await visit_.reached(std::min(pause, until_ - visit_.clock.monotonicMilliseconds()), over);
            if (isEnough()) {
                throw Failure(QStringLiteral("The time is over, and the instrument is not connected."),
                              ExitStatus::Incomplete);
            }
            pause = std::min(2 * pause, longestPause);
        }
    }
}

/// What requireAppending() looks at has come whole.
void Collection::requireErasingIsKnown() const {
    const SettingSet& read = program_.settings.reader.understood;
    const auto isRead = [&read](const Setting* setting) { return read[placeOf(*setting)]; };
    if (visit_.options.keepTrying && !std::ranges::all_of(settingsInOrder("LM"), isRead)) {
        throw Failure(QStringLiteral("The settings could not be read whole; no run was begun."));
    }
}

/// A run begun by itself might erase the records that the instrument kept while nobody listened.
void Collection::requireAppending() const {
    const LoggerSettings& settings = program_.settings.shown.record.value();
    if (visit_.options.keepTrying && settings.logEnabled && !settings.append) {
        throw Failure(QStringLiteral("The instrument logs without \"append\": each run erases its memory, and with "
                                     "--keep-trying runs begin by themselves. Download the memory and set append=true "
                                     "or logEnabled=false, then collect again."));
    }
}

Task<Collection::End> Collection::run() {
    const CommandState& commands = program_.link.session.commands;
    runRows_ = 0;
    lastRow_ = visit_.clock.monotonicMilliseconds();
    if (!std::exchange(hasRun_, true) && visit_.options.forMilliseconds != 0) {
        until_ = lastRow_ + visit_.options.forMilliseconds;
    }
    program_.run();
    isRunCounted_ = false;
    if (commands.activity.value() != Activity::Collecting) {
        throw Failure(QString()); // why has been told
    }
    visit_.terminal.detail(QStringLiteral("Running"));
    const std::function<bool()> over = [this, &commands] {
        return commands.activity.value() != Activity::Collecting || output_.isInVain() || output_.isFull() ||
               isEnough();
    };
    bool isOver = false;
    while (!isOver) {
        const qint64 silentAt = lastRow_ + longestSilence();
        isOver = co_await visit_.reached(std::min(until_, silentAt) - visit_.clock.monotonicMilliseconds(), over);
        isOver = isOver || isEnough() || visit_.clock.monotonicMilliseconds() >= lastRow_ + longestSilence();
    }
    co_return endOfRun();
}

Collection::End Collection::endOfRun() {
    if (output_.isInVain() || output_.isFull()) {
        return End::OutputEnded;
    }
    if (isEnough()) {
        return End::Enough;
    }
    if (!program_.link.ports.isOpen()) {
        reason_ = QStringLiteral("The line was lost.");
    } else if (program_.link.session.commands.activity.value() == Activity::Collecting) {
        reason_ = QStringLiteral("The instrument fell silent.");
    } else {
        const double points = leadingNumber(program_.settings.shown.record.value().pointsPerBlock);
        if (points > 0.0 && runRows_ + program_.sheet.run.unreadLines() >= points) {
            return End::BlockIsFull;
        }
        reason_ = QStringLiteral("The instrument ended the run early.");
    }
    return End::Lost;
}

bool Collection::isEnough() const {
    const int points = visit_.options.points;
    return (points > 0 && output_.rows() >= points) || visit_.clock.monotonicMilliseconds() >= until_;
}

/// For so long nothing may come from an instrument that goes on: the time from one row to the next, and then some.
qint64 Collection::longestSilence() const {
    constexpr double sampleSeconds = 0.1; // a sample takes less
    constexpr double someMore = 30.0;
    constexpr double hour = 3600.0;
    const LoggerSettings& settings = program_.settings.shown.record.value();
    double seconds = leadingNumber(settings.secondsBetweenPoints) +
                     sampleSeconds * leadingNumber(settings.samplesPerPoint) + someMore;
    if (runRows_ == 0) {
        seconds += hour * leadingNumber(settings.hoursBeforeBlock);
    }
    return static_cast<qint64>(seconds * 1000.0);
}

void Collection::take(const DataRow& row) {
    ++runRows_;
    lastRow_ = visit_.clock.monotonicMilliseconds();
    const int points = visit_.options.points;
    if (points > 0 && output_.rows() >= points) {
        return; // it has come before the instrument could be stopped
    }
    output_.take(row, unreadLines());
    if (visit_.terminal.showsProgress()) {
        visit_.terminal.showProgress(QStringLiteral("%1 rows, the last at %2").arg(output_.rows()).arg(row.time));
    }
    if (program_.sheet.data.rowCount() >= (output_.writesAsItComes() ? mostRows : mostRowsOfLateFile) &&
        !handingOver_) {
        // Not while the row is being taken, and not with a tick: they may not come for long.
        handingOver_ = visit_.clock.callAfter(0, [this] {
            handingOver_.reset();
            handOver();
        });
    }
    if (isEnough()) {
        visit_.look();
    }
}

void Collection::handOver() {
    if (output_.isInVain()) {
        return; // the rows are in the record file and nowhere else
    }
    // The next run begins the record file anew.
    if (output_.writesAsItComes() && !output_.isStalled() && !output_.hasFailed() && output_.sync()) {
        program_.sheet.handOver();
    } else {
        program_.sheet.rows.clearSpreadSheet(); // until they are in the output, the record file has the rows
    }
}

/// As "Reset" does: the run ends whole, and the instrument is at its prompt.
Task<> Collection::stop() {
    constexpr qint64 limit = 12'000;
    const Link& link = program_.link;
    if (link.session.commands.activity.value() != Activity::Collecting) {
        co_return;
    }
    program_.reset();
    const std::function<bool()> over = [&link] {
        return link.procedures.isIdle() && (link.session.commands.activity.value() == Activity::None);
    };
    co_await visit_.reached(limit, over);
}

/// Whoever reads standard output may take his time, unless the operator has none.
Task<> Collection::deliver() {
    const std::function<bool()> over = [this] { return isInterrupted_ || !output_.isStalled(); };
    co_await visit_.reached(forever, over);
}

/// Lines of all runs that could not be read.
int Collection::unreadLines() const {
    return unreadBefore_ + (isRunCounted_ ? 0 : program_.sheet.run.unreadLines());
}

QString Collection::recordFile() const {
    return QFileInfo(program_.sheet.recordFile.path()).absoluteFilePath();
}

void Collection::report() {
    const RowOutput& output = output_;
    if (!output.hasAllColumns() && output.rows() > 0) {
        visit_.terminal.tell(QStringLiteral("A sheet file has no column for the last reference of the older TRX. The "
                                            "record file %1 has it; the next run keeps that file under a name with "
                                            "date and time.")
                                 .arg(recordFile()));
    }
    if (visit_.options.json && visit_.options.output != QLatin1String("-")) {
        visit_.terminal.print(
            QJsonObject{{QStringLiteral("rows"), output.rows()},
                        {QStringLiteral("files"), QJsonArray::fromStringList(output.files())},
                        {QStringLiteral("reconnections"), reconnections_},
                        {QStringLiteral("complete"), !isLost_ && !output.isIncomplete() && !output.hasFailed()}});
    } else {
        visit_.terminal.remark(output.rows() == 1 ? QStringLiteral("1 row was collected.")
                                                  : QStringLiteral("%1 rows were collected.").arg(output.rows()));
    }
}

Task<> collectRows(Visit& visit) {
    Collection collection(visit);
    co_await collection.perform();
}

} // namespace orv
