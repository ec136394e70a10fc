// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/rowoutput.h"

#include "base/filedescriptor.h"
#include "base/files.h"
#include "base/text.h"
#include "console/commands.h"
#include "formats/csvmetadata.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

#include <fcntl.h>

namespace orv {

namespace {

FileFormat formatFor(const Options& options) {
    if (options.output == QLatin1String("-")) {
        return options.json ? FileFormat::JsonLines : FileFormat::Csv;
    }
    return formatOfName(options.output).value_or(FileFormat::Csv); // the options have been checked
}

/// "rows-20261121-093015.csv", with a further number if that exists, as it may after the clock has been set back.
QString datedName(const QString& name, const QDateTime& moment) {
    const QFileInfo info(name);
    const QString stem =
        info.dir().filePath(QStringLiteral("%1-%2").arg(info.completeBaseName(), fileNameStamp(moment)));
    const auto exists = [](const QString& path) { return QFile::exists(path) || QFile::exists(csvMetadataName(path)); };
    QString dated = QStringLiteral("%1.%2").arg(stem, info.suffix());
    for (int further = 2; exists(dated); ++further) {
        dated = QStringLiteral("%1-%2.%3").arg(stem, QString::number(further), info.suffix());
    }
    return dated;
}

/// Whether a program has the file open, as far as the system tells; if it does not, one may have.
bool mayBeOpen(const QString& path) {
    const FileDescriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    // The system grants this to the only one who has a file open.
    return !file.isOpen() || ::fcntl(file.get(), F_SETLEASE, F_WRLCK) != 0;
}

} // namespace

QDateTime endOfFile(const QDateTime& begun, qint64 everyMilliseconds) {
    constexpr qint64 day = 86'400'000;
    const QDate date = begun.date();
    if (everyMilliseconds % day == 0) {
        return date.addDays(everyMilliseconds / day).startOfDay();
    }
    const qint64 next = (begun.time().msecsSinceStartOfDay() / everyMilliseconds + 1) * everyMilliseconds;
    const QDateTime end = next < day ? QDateTime(date, QTime::fromMSecsSinceStartOfDay(static_cast<int>(next)))
                                     : date.addDays(1).startOfDay();
    // Where summer time begins and ends an hour is left out or comes twice.
    return end.isValid() && end > begun ? end : begun.addMSecs(everyMilliseconds);
}

RowOutput::RowOutput(Visit& visit)
    : visit_(visit)
    , toDevice_(visit.options.output == QLatin1String("-"))
    , format_(formatFor(visit.options)) {}

void RowOutput::refuseExisting() const {
    if (!toDevice_ && visit_.options.everyMilliseconds == 0) {
        orv::refuseExisting(visit_.options, visit_.options.output);
    }
}

void RowOutput::removeLeftParts() const {
    if (format_ != FileFormat::NetCdf) {
        return; // the others have every row as it comes
    }
    const QFileInfo info(visit_.options.output);
    const QRegularExpression part(
        QStringLiteral("^%1(-\\d{8}-\\d{6}(-\\d+)?)?\\.%2\\.[0-9a-f]+\\.part$")
            .arg(QRegularExpression::escape(info.completeBaseName()), QRegularExpression::escape(info.suffix())));
    for (const QString& name : info.dir().entryList(QDir::Files).filter(part)) {
        const QString path = info.dir().filePath(name);
        if (!mayBeOpen(path) && QFile::remove(path)) {
            visit_.terminal.tell(
                QStringLiteral("%1 was left by a program that was killed before the file was whole. It lacks rows and "
                               "has been removed. If it was of a run, all its rows are in the record file "
                               "(Orvtemp*.tmp), of which \"orv convert\" makes a file; a download is still in the "
                               "instrument, and what is converted stays.")
                    .arg(path));
        }
    }
}

TableDescription RowOutput::describe() const {
    const Program& program = visit_.program;
    TableDescription table;
    table.layout = program.sheet.rows.connectedLayout();
    table.firmware = program.link.session.state.firmware;
    table.settings = program.settings.shown.record.value();
    table.settingsRead = program.settings.reader.understood;
    if (visit_.clockOffset()) {
        table.clockOffset = static_cast<double>(*visit_.clockOffset());
    }
    table.stamped = visit_.options.stamp;
    table.program = visit_.options.program;
    table.made = visit_.clock.now();
    return table;
}

void RowOutput::begin(const QString& source) {
    TableDescription table = describe();
    table.source = source;
    if (table_ && (table_->layout != table.layout || table_->firmware != table.firmware)) {
        throw Failure(QStringLiteral("Another type of instrument is connected now. Its rows need another file."),
                      ExitStatus::Incomplete);
    }
    const bool isFirst = !table_;
    table_ = table;
    if (isFirst) {
        parser_.emplace(table);
        beginFile();
    }
    if (hasFailed()) {
        throw Failure(problem_);
    }
}

void RowOutput::beginFile() {
    const Options& options = visit_.options;
    const QDateTime now = visit_.clock.now();
    table_->made = now;
    name_ = options.output;
    if (options.everyMilliseconds != 0) {
        name_ = datedName(options.output, now);
        until_ = endOfFile(now, options.everyMilliseconds);
    }
    if (toDevice_) {
        writer_ = makeRowWriter(format_, visit_.terminal.output());
    } else {
        const OutputFile file{.name = name_,
                              .existing =
                                  options.force ? OutputFile::Existing::KeepDated : OutputFile::Existing::Refuse,
                              .now = now,
                              .asItComes = writesAsItComes()};
        writer_ = makeRowWriter(format_, file);
    }
    parser_->report = {};
    if (!hasFailed()) {
        check(writer_->begin(*table_), QStringLiteral("Choose another name or folder."));
    }
    if (!hasFailed() && !toDevice_) {
        files_ << name_;
    }
}

void RowOutput::check(const QString& reason, const QString& advice) {
    if (!reason.isEmpty() && !hasFailed()) {
        problem_ = toDevice_ ? QStringLiteral("Standard output takes nothing any more: %1.").arg(reason)
                             : QStringLiteral("%1 could not be written: %2. %3").arg(name_, reason, advice);
        isTooSlow_ = isStalled();
        if (isTooSlow_) {
            visit_.terminal.tell(problem_ + QStringLiteral(" The run goes on, and its rows are in the record file."));
        }
        visit_.look();
    }
}

void RowOutput::giveUp() {
    if (isStalled() && !hasFailed()) {
        problem_ = QStringLiteral("Standard output takes nothing any more: its reader does not read.");
        isTooSlow_ = true;
    }
}

bool RowOutput::sync() {
    Words reason;
    if (!isUnsynced_) {
        reason = toDevice_ ? visit_.terminal.syncOutput() : writer_ ? writer_->sync() : Words();
    }
    if (!reason.isEmpty()) {
        isUnsynced_ = true;
        visit_.terminal.tell(QStringLiteral("%1 could not be brought to the disk: %2. The rows of this run stay in the "
                                            "record file too.")
                                 .arg(toDevice_ ? QStringLiteral("Standard output") : name_, reason));
    }
    return !isUnsynced_;
}

void RowOutput::take(const DataRow& row, int unreadLines) {
    if (!writer_) {
        return; // after the end
    }
    const bool needsTime = until_.isValid() || visit_.options.stamp; // it takes long to tell
    const QDateTime now = needsTime ? visit_.clock.now() : QDateTime();
    const qint64 every = visit_.options.everyMilliseconds;
    if (until_.isValid() && endOfFile(now, every).addMSecs(every) < until_) {
        until_ = endOfFile(now, every); // the clock has been set back
    }
    if (until_.isValid() && (now >= until_ || writer_->isFull()) && !hasFailed()) {
        endFile(unreadLines);
        table_->clockOffset.reset(); // it was read before the first of these files
        beginFile();
    }
    if (!hasFailed() && writer_->isFull()) {
        tellFull();
        return;
    }
    if (!hasFailed()) {
        check(writer_->add(parser_->read(rows_ + 1, row, now)));
    }
    rows_ += !hasFailed() || isTooSlow_ ? 1 : 0; // while its reader is slow the run goes on
}

void RowOutput::tellFull() {
    if (!std::exchange(isFull_, true)) {
        incomplete_ = true;
        visit_.terminal.tell(
            QStringLiteral("%1 is full: a sheet file holds at most %2 rows. The run has ended; the rows "
                           "that came after are in its record file alone. Write .csv, .nc or .jsonl, "
                           "which hold any number, or begin files with --every.")
                .arg(name_)
                .arg(rows_));
        visit_.look();
    }
}

void RowOutput::note(const QString& sentence) {
    visit_.terminal.tell(sentence);
    if (!hasFailed() && writer_) {
        check(writer_->note(sentence, visit_.clock.now()));
    }
}

void RowOutput::endFile(int unreadLines) {
    parser_->report.unreadableLines += unreadLines - std::exchange(unreadLines_, unreadLines);
    check(writer_->finish(parser_->report));
    if (hasFailed() && !writesAsItComes()) {
        files_.removeOne(name_); // it has not appeared
    }
    const QString& log = visit_.program.link.session.fileNames.log;
    for (const QString& sentence : parser_->report.sentences()) {
        visit_.terminal.tell(sentence + QStringLiteral(" %1 has what came.").arg(log));
    }
    incomplete_ = incomplete_ || parser_->report.isIncomplete();
    writer_.reset();
}

void RowOutput::finish(int unreadLines) {
    if (writer_ && !hasFailed()) {
        endFile(unreadLines);
    }
}

} // namespace orv
