// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/download.h"

#include "base/files.h"
#include "base/runtimeerror.h"
#include "base/text.h"
#include "settings/loggersettings.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <limits>
#include <utility>

namespace orv {

Download::Download(Link& link, Settings& settings, SheetRows& rows, SheetFiles& files)
    : link_(link)
    , settings_(settings)
    , rows_(rows)
    , files_(files) {}

namespace {

Words recordsText(int count) {
    return count == 1 ? Words::tr("1 record") : Words::tr("%1 records").arg(count);
}

/// After so many milliseconds without data the status says so.
constexpr qint64 stallLimit = 10000;

QByteArray headerText(const QDateTime& now, RowLayout layout) {
    const QString text = QStringLiteral("Filename\t%1\t%2\r\n"
                                        "Data File\r\n"
                                        "\r\r\r\n"
                                        "%3\r\n")
                             .arg(shortDate(now.date()), clockText(now.time()),
                                  headerRow(HeaderPlace::DownloadFile, layout).join(u'\t'));
    return text.toLatin1();
}

} // namespace

void Download::saveAsText() {
    link_.ports.debugsay(QStringLiteral("F2 Click"));
    if (link_.ports.isOpen() && rows_.instrumentIsKnown()) {
        link_.procedures.start(Words::tr("Download Stored Data"), [this] { return askAndSave(); });
    }
}

Task<> Download::askAndSave() {
    settings_.progress.show();
    auto ended = qScopeGuard([this] { settings_.progress.visible = false; });
    const Question question = saveQuestion(Words::tr("Save as"), QStringLiteral("Stored Data.txt"),
                                           QStringLiteral(".txt"), QStringLiteral("*.txt"));
    const QString name = co_await link_.waits.answer(question, Waits::Until::ConnectionEnds);
    if (name.isEmpty()) {
        co_return;
    }
    ended.dismiss();
    saveTo(name);
}

void Download::saveAsText(const QString& name) {
    link_.ports.debugsay(QStringLiteral("F2 Click"));
    if (link_.ports.isOpen() && rows_.instrumentIsKnown()) {
        saveTo(name);
    }
}

void Download::saveTo(const QString& name) {
    file_.setFileName(name);
    const Words reason = file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)
                             ? appendWhole(file_, headerText(link_.session.clock.now(), rows_.connectedLayout()))
                             : errorText(file_);
    if (!reason.isEmpty()) {
        closeTarget();
        tellFailure(reason, Words::tr("Nothing was asked of the instrument."),
                    Words::tr("Make room or choose another folder, and download it again."));
        return;
    }
    settings_.progress.show(); // it may have been closed while the dialog stood
    begin(Target::TextFile, Operation::SavingText, Words::tr("Saving Sheet"));
}

void Download::vwhp() {
    settings_.progress.show();
    rows_.beginSeries();
    begin(Target::Sheet, Operation::Importing, Words::tr("Exporting Memory"));
}

void Download::begin(Target target, Operation operation, const Words& status) {
    target_ = target;
    records_ = 0;
    unread_ = 0;
    whole_ = false;
    bytes_ = 0;
    lastData_ = link_.session.clock.monotonicMilliseconds();
    stallTold_ = false;
    savedOnTheWay_ = false;
    saved_ = 0;
    status_ = status;
    // One line is taken at each tick. Erased records are lines of 7 characters, 137 a second at 9600 baud: more than
    // the 100 ticks a second that the timer has after settings were sent.
    link_.timer.setInterval(StatusTimer::normalInterval);
    link_.session.state.Ctrlscrn = operation;
    link_.session.commands.activity = Activity::Downloading;
    link_.session.status.notice = QString();
    link_.ports.write("O");
    link_.session.status.status = status;
    const double expected = leadingNumber(settings_.shown.memoryPointer.value());
    if (expected > 0.0) {
        settings_.progress.maximum = static_cast<int>(std::min<double>(expected, std::numeric_limits<int>::max()));
    }
    settings_.progress.value = 0;
}

bool Download::takeReply(const QString& reply, const Words& progressLabel, DataRow& row) {
    const qint64 now = link_.session.clock.monotonicMilliseconds();
    if (reply.isEmpty()) {
        if (const qint64 left = lastData_ + stallLimit - now; left > 0) {
            link_.timer.wake(left);
        } else if (!std::exchange(stallTold_, true)) {
            link_.session.status.status = Words::tr("No data for 10 s. Reset stops the download.");
        }
        return false;
    }
    lastData_ = now;
    link_.timer.wake(stallLimit);
    if (stallTold_) {
        stallTold_ = false;
        link_.session.status.status = status_;
    }
    if (target_ != Target::Nowhere) {
        bytes_ += reply.size();
        showProgress(progressLabel);
    }
    // The prompt in front of the echo may have been taken with an earlier reply.
    if (reply == QLatin1String(">O") || reply == QLatin1String("O")) {
        records_ = 0;
        unread_ = 0; // what came before was no part of the dump
        return false;
    }
    if (reply == QLatin1String("65535")) {
        return false;
    }
    if (reply == QLatin1String("EOF") || reply == QLatin1String("0")) {
        finish();
        return false;
    }
    if (target_ == Target::Nowhere) {
        return false;
    }
    const auto read = readDataLine(reply, rows_.connectedLayout(), requestedConversion(settings_.shown));
    if (!read) {
        ++unread_;
        return false;
    }
    row = *read;
    return true;
}

void Download::savefiletxt(const QString& reply) {
    DataRow row;
    if (!takeReply(reply, Words::tr("Bytes Downloaded"), row)) {
        return;
    }
    const QString line = recordLine(records_ + 1, row, rows_.connectedLayout()) + QLatin1String("\r\n");
    const Words reason = appendWhole(file_, line.toLatin1());
    if (!reason.isEmpty()) {
        dropTheRest();
        tellFailure(reason, Words::tr("It holds %1.").arg(recordsText(records_)),
                    Words::tr("Press Reset, make room or choose another folder, and download it again."),
                    QStringLiteral("Make room or choose another folder, and download it again."));
        return;
    }
    ++records_;
    ++saved_;
    taken.tell(records_, row);
}

void Download::importtofg1(const QString& reply) {
    DataRow row;
    // The two downloads spell their label differently.
    if (!takeReply(reply, Words::tr("Bytes DownLoaded"), row)) {
        return;
    }
    try {
        rows_.addRow(row);
    } catch (const RuntimeError&) {
        // The counter is full. Going on would meet the same error at every further record.
        dropTheRest();
        tellIncomplete(Target::Sheet);
        throw;
    }
    ++records_;
    taken.tell(records_, row);
    if (files_.saveLongSheet()) {
        savedOnTheWay_ = true;
    }
}

void Download::showProgress(const Words& label) {
    settings_.progress.label = label;
    settings_.progress.valueLabel = QString::number(bytes_);
    settings_.progress.value = static_cast<int>(std::min<qint64>(bytes_, settings_.progress.maximum));
}

Words Download::bringToDisk() {
    if (!file_.isOpen()) {
        return {};
    }
    syncFolderOf(file_.fileName());
    return syncNamedFile(file_.handle());
}

void Download::finish() {
    // The operator may have the instrument's memory emptied next.
    const Words reason = bringToDisk();
    if (!reason.isEmpty()) {
        end();
        link_.session.status.status = Words::tr("Ready");
        tellFailure(reason, Words::tr("It may not have everything."),
                    Words::tr("Make room or choose another folder, and download it again."));
        return;
    }
    if (target_ != Target::Nowhere) {
        whole_ = true;
        if (target_ == Target::Sheet) {
            rows_.followNewest();
        }
        link_.session.status.downloadedBytes = QString::number(bytes_);
        link_.session.status.notice = outcome();
    }
    end();
    link_.session.status.status = Words::tr("Ready");
}

Words Download::outcome() const {
    const QString& log = link_.session.fileNames.log;
    if (unread_ == 0) {
        return target_ == Target::Sheet
                   ? Words()
                   : Words::tr("Saved %1 to %2").arg(recordsText(saved_), QFileInfo(file_.fileName()).fileName());
    }
    return unread_ == 1 ? Words::tr("1 record could not be read; it is in %1").arg(log)
                        : Words::tr("%1 records could not be read; they are in %2").arg(unread_).arg(log);
}

void Download::end() {
    closeTarget();
    target_ = Target::None;
    link_.session.state.Ctrlscrn = Operation::Idle;
    link_.session.commands.activity = Activity::None;
}

void Download::dropTheRest() {
    if (target_ == Target::Sheet) {
        rows_.followNewest();
    }
    closeTarget();
    target_ = Target::Nowhere;
    status_ = Words::tr("Download stopped");
    link_.session.status.status = status_;
}

void Download::closeTarget() {
    file_.close();
    bytes_ = 0;
    settings_.progress.label = QStringLiteral("%");
    settings_.progress.visible = false;
    settings_.progress.value = 0;
}

void Download::endIncomplete(SheetThen then) {
    switch (target_) {
    case Target::None:
        return;
    case Target::Nowhere:
        end(); // the operator has been told
        return;
    case Target::Sheet:
        rows_.followNewest();
        break;
    case Target::TextFile:
        bringToDisk();
        break;
    }
    const Target target = target_;
    end();
    tellIncomplete(target, then);
}

void Download::tellIncomplete(Target target, SheetThen then) {
    Words arrived = Words::tr(" %1 arrived and can be found on the sheet.").arg(recordsText(records_));
    if (target == Target::TextFile) {
        arrived = Words::tr(" %1 arrived and can be found in %2.")
                      .arg(recordsText(records_), QFileInfo(file_.fileName()).absoluteFilePath());
    } else if (savedOnTheWay_) {
        arrived = Words::tr(" %1 arrived and can be found on the sheet and in the files that were saved automatically.")
                      .arg(recordsText(records_));
    }
    if (then != SheetThen::Stays && target == Target::Sheet) {
        arrived = savedOnTheWay_ ? Words::tr(" What was saved automatically stays.") : Words();
        if (then == SheetThen::IsOffered) {
            arrived += Words::tr(" The next start offers what is on the sheet.");
        }
    }
    const Words unread = unread_ > 0 ? Words::tr(" %1 could not be read; %2 has what was received.")
                                           .arg(recordsText(unread_), link_.session.fileNames.log)
                                     : Words();
    link_.session.messages.show(
        withoutWindow(operatorWarning(Words::tr("The download is incomplete: it was ended before the instrument "
                                                "had sent everything.%1%2\n\nThe "
                                                "instrument still holds its data; download it again.")
                                          .arg(arrived, unread)),
                      QStringLiteral("The download was ended before the instrument had sent everything. The instrument "
                                     "still holds its data; download it again.")));
}

void Download::tellFailure(const Words& reason, const Words& state, const Words& nextStep,
                           const QString& nextWithoutWindow) {
    const auto failed =
        Words::tr("The stored data cannot be written to %1: %2.\n\n%3 The instrument still holds its data. ")
            .arg(QFileInfo(file_.fileName()).absoluteFilePath(), reason, state);
    Message message = operatorWarning(failed + nextStep);
    if (!nextWithoutWindow.isEmpty()) {
        message.withoutWindow = (failed + nextWithoutWindow).english();
    }
    link_.session.messages.show(message);
}

} // namespace orv
