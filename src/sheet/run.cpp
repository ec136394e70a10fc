// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/run.h"

#include "base/runtimeerror.h"
#include "base/text.h"
#include "settings/loggersettings.h"

#include <utility>

namespace orv {

void showOnDebugScreen(DebugState& debug, const DataRow& row, RowLayout layout) {
    switch (layout) {
    case RowLayout::Unknown:
        return;
    case RowLayout::Glow:
        debug.fluorometerOutput = row.values.value(0);
        return;
    case RowLayout::TrxOlder:
    case RowLayout::TrxNewer:
        break;
    }
    // The older generation sends a reference after each angle.
    const qsizetype step = layout == RowLayout::TrxOlder ? 2 : 1;
    for (std::size_t angle = 0; angle < debug.scatteringOutputs.size(); ++angle) {
        debug.scatteringOutputs.at(angle) = row.values.value(static_cast<qsizetype>(angle) * step);
    }
    debug.scatteringReference = row.values.value(valueCount(layout) - 1);
}

namespace {

/// A reply shorter than this is an echo or a prompt, not data.
constexpr qsizetype shortestDataLine = 10;

bool isClockReply(const QString& line) {
    QStringList fields = line.split(u'\t');
    while (fields[0].startsWith(u'>')) { // a prompt from before
        fields[0].remove(0, 1);
    }
    return fields.size() == 2 && instrumentDate(fields[0]) && numberText(fields[1]);
}

} // namespace

Run::Run(Link& link, const SettingsState& settings, SheetRows& rows, SheetFiles& files, RecordFile& recordFile)
    : link_(link)
    , settings_(settings)
    , rows_(rows)
    , files_(files)
    , recordFile_(recordFile) {}

void Run::run1() {
    link_.ports.debugsay(QStringLiteral("Run 1"));
    // The prompt that ends a block of one point may come together with its only line.
    if (leadingNumber(settings_.record.value().pointsPerBlock) == 1.0) {
        link_.session.state.gatherstart = 1;
    }
    startRunningProfile();
    link_.session.commands.runEnabled = false;
}

void Run::startRunningProfile() {
    link_.ports.debugsay(QStringLiteral("Start Running Profile"));
    link_.ports.write("R");
    link_.session.state.Ctrlscrn = Operation::Collecting;
    link_.session.commands.activity = Activity::Collecting;
    link_.session.status.status = Words::tr("Running");
    link_.session.status.notice = QString();
    running_ = true;
    hasLine_ = false;
    unreadLines_ = 0;
    rowsTaken_ = 0;
    recordFailureTold_ = false;
    rows_.beginSeries();
    tellRecordFailure(recordFile_.start(rows_.connectedType()));
}

void Run::profilemode(const QString& line) {
    link_.ports.debugsay(QStringLiteral("Profile Sub"));
    if (line.size() >= shortestDataLine) {
        try {
            takeLine(line);
        } catch (const RuntimeError&) {
            // The counter is full. Going on would meet the same error at every further line.
            endRun();
            throw;
        }
    }
    endIfPrompted();
}

void Run::takeLine(const QString& line) {
    SessionState& state = link_.session.state;
    state.gatherstart = 1;
    const RowLayout layout = rows_.connectedLayout();
    const auto row = readDataLine(line, layout, requestedConversion(settings_));
    if (!row) {
        if (!hasLine_ && isClockReply(line)) {
            return; // it was still on its way
        }
        ++unreadLines_;
        // What is shorter may be left over from before the run.
        if (line.count(u'\t') >= 2) {
            noteLine();
        }
        return;
    }
    const int number = rows_.addRow(*row);
    ++rowsTaken_;
    rows_.followNewest();
    showOnDebugScreen(link_.debug, *row, layout);
    tellRecordFailure(recordFile_.append(recordLine(number, *row, layout)));
    noteLine();
    taken.tell(number, *row);
    files_.saveLongSheet();
}

void Run::noteLine() {
    // A prompt seen ahead of the first line was left over from the command before.
    if (!std::exchange(hasLine_, true) && !link_.poll.rxbuffer.contains('>')) {
        link_.session.state.Gatherstop = 0;
    }
}

void Run::endIfPrompted() {
    const SessionState& state = link_.session.state;
    if (!running_ || !hasLine_ || state.Gatherstop != 1) {
        return;
    }
    // Lines that arrived ahead of the prompt become rows first, one in each tick.
    const qsizetype lineFeed = link_.poll.rxbuffer.indexOf('\n');
    const qsizetype prompt = link_.poll.rxbuffer.indexOf('>');
    if (lineFeed >= 0 && (prompt < 0 || lineFeed < prompt)) {
        return;
    }
    endRun();
    tellShortBlock();
}

/// A line whose end was lost on the way makes one row with the next.
void Run::tellShortBlock() {
    const LoggerSettings settings = settings_.reported.value().value_or(settings_.record.value());
    const double points = leadingNumber(settings.pointsPerBlock);
    if (unreadLines_ == 0 && rowsTaken_ < points) {
        link_.session.status.notice =
            Words::tr("The instrument ended the run after %1 of %2 rows; %3 has what came")
                .arg(QString::number(rowsTaken_), plainNumber(points), link_.session.fileNames.log);
    }
}

void Run::endRun() {
    closeRecordFile();
    link_.session.state.Ctrlscrn = Operation::CollectionSetUp;
    link_.session.status.status = Words::tr("Ready");
}

void Run::closeRecordFile() {
    if (!running_) {
        return;
    }
    running_ = false;
    recordFile_.close();
    tellRecordFailure(recordFile_.takeDiskFailure());
    link_.session.state.gatherstart = 0;
    link_.session.state.Gatherstop = 0;
    link_.session.commands.activity = Activity::None;
    link_.session.commands.runEnabled = true;
    if (unreadLines_ > 0) {
        link_.session.status.notice =
            unreadLines_ == 1 ? Words::tr("1 line could not be read; it is in %1").arg(link_.session.fileNames.log)
                              : Words::tr("%1 lines could not be read; they are in %2")
                                    .arg(unreadLines_)
                                    .arg(link_.session.fileNames.log);
    }
}

std::optional<qint64> Run::syncWhenDue() {
    const auto left = recordFile_.syncWhenDue();
    tellRecordFailure(recordFile_.takeDiskFailure());
    return left;
}

void Run::tellRecordFailure(const Words& reason) {
    if (reason.isEmpty() || std::exchange(recordFailureTold_, true)) {
        return;
    }
    const QString& name = link_.session.fileNames.record;
    link_.session.messages.show(withoutWindow(
        operatorWarning(Words::tr("The record file %1 cannot be written: %2.\n\nThe run goes on and every "
                                  "row is on the sheet. Save the sheet when the run has ended.")
                            .arg(name, reason)),
        QStringLiteral("The record file %1 cannot be written: %2.\n\nThe run goes on and its rows go to "
                       "the output alone. Make room on the disk.")
            .arg(name, reason.english())));
}

} // namespace orv
