// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runrecovery.h"

#include "base/text.h"
#include "sheet/folderplace.h"

#include <QFileInfo>

#include <utility>

namespace orv {

namespace {

Words rowsText(qsizetype count) {
    return count == 1 ? Words::tr("1 row") : Words::tr("%1 rows").arg(count);
}

bool holdsNothing(const RecordedRows& found) {
    return found.sheet.error.isEmpty() && found.sheet.rows.empty() && !found.cutOff && found.unreadableLines == 0;
}

/// What of the record file is not on the sheet and why; empty if everything is.
Words notRecovered(const RecordedRows& found) {
    QList<Words> notes;
    if (found.cutOff) {
        notes << Words::tr("The last line was cut off and has been left out.");
    }
    if (found.unreadableLines > 0) {
        notes << (found.unreadableLines == 1
                      ? Words::tr("1 line could not be read and was left out.")
                      : Words::tr("%1 lines could not be read and were left out.").arg(found.unreadableLines));
    }
    if (found.missingRows > found.unreadableLines) {
        notes << (found.missingRows == 1
                      ? Words::tr("The numbers of the rows have gaps: 1 row is missing in the record file.")
                      : Words::tr("The numbers of the rows have gaps: %1 rows are missing in the record file.")
                            .arg(found.missingRows));
    }
    if (found.hasEarlierRows) {
        notes << Words::tr("The sheet was saved or cleared during the run; rows from before that are left out.");
    }
    if (found.typeGuessed) {
        notes << Words::tr("The instrument's type was told by the rows; the sheet says %1 with firmware %2.")
                     .arg(instrumentName(instrumentType(found.sheet.type.letter)),
                          plainNumber(found.sheet.type.firmware));
    }
    const int number = found.sheet.rows.front().split('\t').first().toInt();
    if (number > 1 && found.unreadableLines == 0) {
        notes << Words::tr("The run began with row %1. If the rows before it were of a run too and not saved, they "
                           "are in a file of this folder named with date and time.")
                     .arg(number);
    }
    return join(notes, QStringLiteral("\n"));
}

} // namespace

RunRecovery::RunRecovery(Link& link, SheetRows& rows, SheetFiles& files, RecordFile& recordFile)
    : link_(link)
    , rows_(rows)
    , files_(files)
    , recordFile_(recordFile) {}

void RunRecovery::takeOverFromFreePlaces(int ownPlace) {
    const FileNames plain;
    for (int place = 1; place <= FolderPlace::mostPlaces; ++place) {
        const QString other = FolderPlace::nameIn(place, plain.record);
        if (place == ownPlace || recordFile_.hasUnendedRun() || !RunLock(other).stands()) {
            continue;
        }
        if (const auto held = FolderPlace::hold(place)) {
            recordFile_.takeUnendedFrom(other);
        }
    }
}

Task<> RunRecovery::offer() {
    if (!recordFile_.isUnended()) {
        co_return;
    }
    if (recordFile_.isSaved()) {
        recordFile_.dropUnended();
        co_return;
    }
    file_ = recordFile_.path();
    RecordedRows found = readRecordedRows(file_, recordFile_.unendedType());
    if (holdsNothing(found) && !recordFile_.unendedEarlierFile().isEmpty()) {
        // It died before the run's first row; what was on the sheet from the run before is in that one's file.
        file_ = recordFile_.unendedEarlierFile();
        found = readRecordedRows(file_, recordFile_.unendedType());
    }
    const auto rows = static_cast<qsizetype>(found.sheet.rows.size());
    if (!found.sheet.error.isEmpty()) {
        tell(Words::tr("The last run in this folder did not end, and its record file %1 cannot be read: %2.\n\nIt "
                       "stays as it is. Its rows are offered again at the next start.")
                 .arg(QFileInfo(file_).absoluteFilePath(), found.sheet.error));
    } else if (holdsNothing(found)) {
        recordFile_.dropUnended();
    } else if (rows == 0) {
        keep(Words::tr("The last run in this folder did not end, and its record file has no row that can be read. "));
    } else {
        const Words what = rowsText(rows);
        Question question =
            yesNoQuestion(programTitle(),
                          Words::tr("The last run in this folder did not end. Load its %1 into the sheet?").arg(what));
        question.reason =
            QStringLiteral("The last run in this folder did not end; its record file has %1.").arg(what.english());
        const QString answer = co_await link_.waits.answer(question);
        if (answer == Question::yes()) {
            co_await load(std::move(found));
        } else if (answer == Question::no()) {
            keep(QString(), true);
        }
    }
}

Task<> RunRecovery::load(RecordedRows found) {
    const bool mayGo = co_await files_.ask();
    // Everything went on while the questions were open.
    if (!recordFile_.isUnended() || !mayGo) {
        co_return;
    }
    const Words left = notRecovered(found);
    rows_.recover(std::move(found.sheet));
    recordFile_.unendedRecovered();
    if (!left.isEmpty()) {
        tell(Words::tr("The rows of the last run are on the sheet.\n\n%1\n\nNothing is lost: the record file %2 has "
                       "everything.%3")
                 .arg(left, QFileInfo(file_).absoluteFilePath(),
                      isRecordFile() ? Words::tr(" The next run keeps it under a name with date and time.") : Words()));
    }
}

void RunRecovery::keep(const Words& what, bool hasRows) {
    if (!recordFile_.isUnended()) {
        return;
    }
    QString keptAs = file_;
    Words reason;
    if (isRecordFile()) {
        reason = recordFile_.keepUnended(keptAs);
    } else {
        recordFile_.dropUnended();
    }
    if (reason.isEmpty()) {
        const QString path = QFileInfo(keptAs).absoluteFilePath();
        const auto kept = what + Words::tr("The record file of the last run is kept as %1.").arg(path);
        tell(kept,
             hasRows
                 ? kept.english() +
                       QStringLiteral(" \"orv convert %1 -o NAME.csv\" makes a file of its rows.").arg(shellWord(path))
                 : QString());
    } else {
        tell(what + Words::tr("The record file %1 could not be kept under a name with date and time: %2.\n\nIt stays "
                              "as it is, and no run will overwrite it. Move it yourself.")
                        .arg(QFileInfo(recordFile_.path()).absoluteFilePath(), reason));
    }
}

bool RunRecovery::isRecordFile() const {
    return file_ == recordFile_.path();
}

void RunRecovery::tell(const Words& text, const QString& textWithoutWindow) {
    link_.session.messages.show({.title = programTitle(),
                                 .text = text,
                                 .icon = Message::Icon::Information,
                                 .withoutWindow = textWithoutWindow});
}

} // namespace orv
