// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/commands.h"
#include "console/rowoutput.h"

#include "base/files.h"
#include "base/text.h"
#include "formats/convert.h"

#include <algorithm>

namespace orv {

namespace {

/// One reading of the memory after another.
class Downloading {
public:
    explicit Downloading(Visit& visit)
        : visit_(visit)
        , download_(visit.program.sheet.download)
        , output_(visit)
        , isText_(formatOfName(visit.options.output) == FileFormat::Sheet)
        , taking_(download_.taken.subscribe([this](int /*number*/, const DataRow& row) { take(row); })) {}
    Downloading(const Downloading&) = delete;
    Downloading& operator=(const Downloading&) = delete;

    Task<> perform() {
        const Options& options = visit_.options;
        refuseExisting(options, options.output);
        co_await visit_.connect();
        expected_ = expectedRecords();
        if (isText_) {
            keepOlder();
        } else {
            output_.begin(QStringLiteral("the memory of the instrument on %1").arg(options.port));
        }
        Task<> reading = read();
        Ending ending = co_await endingOf(std::move(reading));
        if (ending.thrown) {
            visit_.program.end(); // what has arrived is taken
        }
        const bool isWhole = download_.isWhole();
        const int unread = download_.unreadRecords();
        output_.finish(unread);
        const int records = count_;
        if (isWhole && options.verify && !ending.thrown && !output_.hasFailed()) {
            Task<> comparing = compare();
            ending = co_await endingOf(std::move(comparing));
        }
        report(records, unread, isWhole && !ending.thrown);
        if (output_.hasFailed()) {
            throw Failure(output_.problem());
        }
        if (ending.thrown) {
            std::rethrow_exception(ending.thrown);
        }
        requireComplete(records, unread, isWhole);
    }

private:
    /// As many as the instrument says that it holds; nothing if that could not be read.
    std::optional<int> expectedRecords() const {
        const Settings& settings = visit_.program.settings;
        if (!settings.reader.memoryUnderstood) {
            return std::nullopt;
        }
        return settings.shown.memoryPointer.value().toInt();
    }

    void keepOlder() {
        const Words reason = keepUnderDatedName(visit_.options.output, visit_.clock.now());
        if (!reason.isEmpty()) {
            throw Failure(
                QStringLiteral("%1 could not be kept under another name: %2.").arg(visit_.options.output, reason));
        }
    }

    /// Reads the memory; what comes goes to the output at the first time.
    Task<> read() {
        const StatusState& status = visit_.program.link.session.status;
        const CommandState& commands = visit_.program.link.session.commands;
        count_ = 0;
        began_ = visit_.clock.monotonicMilliseconds();
        lastRow_ = began_;
        if (isText_ && !isSecond_) {
            download_.saveAsText(visit_.options.output);
        } else {
            visit_.program.vwhp();
        }
        const std::function<bool()> over = [this, &commands] {
            return commands.activity.value() != Activity::Downloading || output_.hasFailed();
        };
        constexpr qint64 longestSilence = 30'000;
        bool isOver = false;
        while (!isOver) {
            isOver = co_await visit_.reached(lastRow_ + longestSilence - visit_.clock.monotonicMilliseconds(), over);
            isOver = isOver || visit_.clock.monotonicMilliseconds() >= lastRow_ + longestSilence;
        }
        if (commands.activity.value() == Activity::Downloading) {
            visit_.program.closePort(); // the program tells what has come
        } else {
            visit_.terminal.detail(status.status.value());
        }
        if (visit_.program.link.ports.isOpen()) {
            visit_.program.sheet.handOver();
        }
    }

    Task<> compare() {
        isSecond_ = true;
        visit_.terminal.remark(QStringLiteral("Reading the memory again, to compare."));
        co_await read();
        notReadAgain_ += std::ssize(rows_) - next_;
        isWholeAgain_ = download_.isWhole();
    }

    /// A record of the second reading. Where it is none of the next ones, it is the next one read otherwise.
    void compareRow(const QByteArray& row) {
        constexpr std::ptrdiff_t mostLeftOut = 2000;
        const auto from = rows_.begin() + std::min(next_, std::ssize(rows_));
        const auto to = from + std::min(mostLeftOut, rows_.end() - from);
        const auto found = std::find(from, to, row);
        if (found == to) {
            ++differences_;
            next_ += from == rows_.end() ? 0 : 1;
        } else {
            notReadAgain_ += found - from;
            next_ += found - from + 1;
        }
    }

    void take(const DataRow& row) {
        lastRow_ = visit_.clock.monotonicMilliseconds();
        ++count_;
        if (isSecond_) {
            compareRow(textOf(row));
        } else if (!isText_) {
            output_.take(row);
        }
        if (visit_.options.verify && !isSecond_) {
            rows_.push_back(textOf(row));
        }
        clearLongSheet();
        if (visit_.terminal.showsProgress() && lastRow_ - shownAt_ >= progressInterval) {
            showProgress();
        }
    }

    static QByteArray textOf(const DataRow& row) {
        return (QStringList{row.date, row.time} + row.values).join(u'\t').toLatin1();
    }

    void showProgress() {
        shownAt_ = lastRow_;
        if (expected_.value_or(0) == 0) {
            visit_.terminal.showProgress(QStringLiteral("%1 records").arg(count_));
            return;
        }
        const auto share = std::min(1.0, static_cast<double>(count_) / *expected_);
        const auto left = static_cast<qint64>(static_cast<double>(lastRow_ - began_) * (1.0 - share) / share / 1000.0);
        visit_.terminal.showProgress(QStringLiteral("%1 %2 bytes, %3 of %4 records, %5 s left")
                                         .arg(progressBar(share), visit_.program.settings.progress.valueLabel.value())
                                         .arg(count_)
                                         .arg(*expected_)
                                         .arg(left));
    }

    void clearLongSheet() {
        constexpr int longSheet = 500;
        if (visit_.program.sheet.data.rowCount() >= longSheet && !clearing_) {
            // Not while the row is being taken.
            clearing_ = visit_.clock.callAfter(0, [this] {
                clearing_.reset();
                visit_.program.sheet.handOver(); // the instrument holds the records as well
            });
        }
    }

    /// "3 of 200 records"
    QString ofExpected(int records) const {
        return expected_ ? QStringLiteral("%1 of %2 records").arg(records).arg(*expected_)
                         : QStringLiteral("%1 of an unknown number of records").arg(records);
    }

    bool isSameAgain() const { return differences_ == 0 && notReadAgain_ == 0 && isWholeAgain_; }

    /// Nothing is missing of what the instrument holds.
    bool hasAll(int records, int unread, bool isWhole) const {
        return isWhole && unread == 0 && records >= expected_.value_or(0) && isSameAgain();
    }

    void report(int records, int unread, bool isWhole) const {
        const bool isComplete = hasAll(records, unread, isWhole) && !output_.isIncomplete() && !output_.hasFailed();
        const Options& options = visit_.options;
        if (options.json) {
            QJsonObject object{{QStringLiteral("records"), records},
                               {QStringLiteral("unreadable"), unread},
                               {QStringLiteral("expected"), expected_ ? QJsonValue(*expected_) : QJsonValue()},
                               {QStringLiteral("file"), options.output},
                               {QStringLiteral("complete"), isComplete}};
            if (options.verify) {
                object.insert(QStringLiteral("differences"), static_cast<int>(differences_));
                object.insert(QStringLiteral("notReadAgain"), static_cast<int>(notReadAgain_));
            }
            visit_.terminal.print(object);
        } else {
            visit_.terminal.remark(QStringLiteral("%1 are in %2.").arg(ofExpected(records), options.output));
        }
    }

    void requireComplete(int records, int unread, bool isWhole) const {
        if (hasAll(records, unread, isWhole)) {
            if (output_.isIncomplete()) {
                throw Failure(QString(), ExitStatus::Incomplete); // what could not be read has been told
            }
            return;
        }
        QString text = QStringLiteral("The download is incomplete: %1 came, and %2 could not be read.")
                           .arg(ofExpected(records))
                           .arg(unread);
        if (!isSameAgain()) {
            text = QStringLiteral("Read a second time, %1 records were not as before, and %2 did not come again; what "
                                  "came first is in the file.")
                       .arg(differences_)
                       .arg(notReadAgain_);
        }
        throw Failure(text + QStringLiteral(" The instrument still holds its data; download it again."),
                      ExitStatus::Incomplete);
    }

    static constexpr qint64 progressInterval = 200;

    Visit& visit_;
    Download& download_;
    RowOutput output_;
    bool isText_;                 ///< The program's own text file.
    bool isSecond_ = false;       ///< The memory is read again.
    std::optional<int> expected_; ///< Records, as the instrument says.
    int count_ = 0;               ///< Records of this reading.
    std::vector<QByteArray> rows_;
    std::ptrdiff_t next_ = 0;         ///< Of them, in the second reading.
    std::ptrdiff_t differences_ = 0;  ///< Records that were read otherwise.
    std::ptrdiff_t notReadAgain_ = 0; ///< Records that did not come, or could not be read.
    bool isWholeAgain_ = true;
    qint64 began_ = 0; ///< Monotonic milliseconds, as the others.
    qint64 lastRow_ = 0;
    qint64 shownAt_ = 0;
    Subscription taking_;
    Subscription clearing_;
};

} // namespace

Task<> downloadMemory(Visit& visit) {
    Downloading downloading(visit);
    co_await downloading.perform();
}

Task<> convertFiles(Visit& visit) {
    const Options& options = visit.options;
    const QDateTime now = visit.clock.now();
    const OutputFile file{.name = options.output,
                          .existing = options.force ? OutputFile::Existing::KeepDated : OutputFile::Existing::Refuse,
                          .now = now};
    const auto writer = makeRowWriter(*formatOfName(options.output), file);
    const Converted converted =
        orv::convertFiles(options.inputs, *writer, ConvertOptions{.program = options.program, .now = now});
    if (!converted.error.isEmpty()) {
        throw Failure(converted.error);
    }
    for (const QString& sentence : converted.report.sentences()) {
        visit.terminal.tell(sentence);
    }
    visit.terminal.remark(QStringLiteral("%1 rows are in %2.").arg(converted.report.rows).arg(options.output));
    if (converted.report.isIncomplete()) {
        throw Failure(QString(), ExitStatus::Incomplete);
    }
    co_return;
}

} // namespace orv
