// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runrecovery.h"

#include "base/text.h"
#include "sheet/folderplace.h"

#include <QFileInfo>

#include <utility>

namespace orv {

namespace {

QString counted(qsizetype count, const QString& what) {
    return QStringLiteral("%1 %2%3").arg(count).arg(what, count == 1 ? QString() : QStringLiteral("s"));
}

bool holdsNothing(const RecordedRows& found) {
    return found.sheet.error.isEmpty() && found.sheet.rows.empty() && !found.cutOff && found.unreadableLines == 0;
}

/// What of the record file is not on the sheet and why; empty if everything is.
QString notRecovered(const RecordedRows& found) {
    QStringList notes;
    if (found.cutOff) {
        notes << QStringLiteral("The last line was cut off and has been left out.");
    }
    if (found.unreadableLines > 0) {
        notes << QStringLiteral("%1 could not be read and left out.")
                     .arg(counted(found.unreadableLines, QStringLiteral("line")));
    }
    if (found.missingRows > found.unreadableLines) {
        notes << QStringLiteral("The numbers of the rows have gaps: %1 missing in the record file.")
                     .arg(found.missingRows == 1 ? QStringLiteral("1 row is")
                                                 : QStringLiteral("%1 rows are").arg(found.missingRows));
    }
    if (found.hasEarlierRows) {
        notes << QStringLiteral("The sheet was saved or cleared during the run; rows from before that are left out.");
    }
    if (found.typeGuessed) {
        notes << QStringLiteral("The instrument's type was told by the rows; the sheet says %1 with firmware %2.")
                     .arg(instrumentName(instrumentType(found.sheet.type.letter)),
                          plainNumber(found.sheet.type.firmware));
    }
    const int number = found.sheet.rows.front().split('\t').first().toInt();
    if (number > 1 && found.unreadableLines == 0) {
        notes << QStringLiteral(
                     "The run began with row %1. If the rows before it were of a run too and not saved, they "
                     "are in a file of this folder named with date and time.")
                     .arg(number);
    }
    return notes.join(u'\n');
}

} // namespace

RunRecovery::RunRecovery(const Parts& parts)
    : p_(parts) {}

void RunRecovery::takeOverFromFreePlaces(int ownPlace) {
    const FileNames plain;
    for (int place = 1; place <= FolderPlace::mostPlaces; ++place) {
        const QString other = FolderPlace::nameIn(place, plain.record);
        if (place == ownPlace || p_.recordFile.hasUnendedRun() || !RunLock(other).stands()) {
            continue;
        }
        if (const auto held = FolderPlace::hold(place)) {
            p_.recordFile.takeUnendedFrom(other);
        }
    }
}

void RunRecovery::offer() {
    if (!p_.recordFile.isUnended()) {
        return;
    }
    file_ = p_.recordFile.path();
    RecordedRows found = readRecordedRows(file_, p_.recordFile.unendedType());
    if (holdsNothing(found) && !p_.recordFile.unendedEarlierFile().isEmpty()) {
        // It died before the run's first row; what was on the sheet from the run before is in that one's file.
        file_ = p_.recordFile.unendedEarlierFile();
        found = readRecordedRows(file_, p_.recordFile.unendedType());
    }
    const auto rows = static_cast<qsizetype>(found.sheet.rows.size());
    if (!found.sheet.error.isEmpty()) {
        tell(QStringLiteral("The last run in this folder did not end, and its record file %1 cannot be read: %2.\n\nIt "
                            "stays as it is. Its rows are offered again at the next start.")
                 .arg(QFileInfo(file_).absoluteFilePath(), found.sheet.error));
    } else if (holdsNothing(found)) {
        p_.recordFile.dropUnended();
    } else if (rows == 0) {
        keep(QStringLiteral(
            "The last run in this folder did not end, and its record file has no row that can be read. "));
    } else if (p_.questions.askYesNo(
                   programTitle(),
                   QStringLiteral("The last run in this folder did not end. Load its %1 into the sheet?")
                       .arg(counted(rows, QStringLiteral("row"))))) {
        load(std::move(found));
    } else {
        keep(QString());
    }
}

void RunRecovery::load(RecordedRows found) {
    // Ticks went on while the question was open.
    if (!p_.recordFile.isUnended() || !p_.files.ask()) {
        return;
    }
    const QString left = notRecovered(found);
    p_.rows.recover(std::move(found.sheet));
    p_.recordFile.unendedRecovered();
    if (!left.isEmpty()) {
        tell(QStringLiteral(
                 "The rows of the last run are on the sheet.\n\n%1\n\nNothing is lost: the record file %2 has "
                 "everything.%3")
                 .arg(left, QFileInfo(file_).absoluteFilePath(),
                      isRecordFile() ? QStringLiteral(" The next run keeps it under a name with date and time.")
                                     : QString()));
    }
}

void RunRecovery::keep(const QString& what) {
    if (!p_.recordFile.isUnended()) {
        return;
    }
    QString keptAs = file_;
    QString reason;
    if (isRecordFile()) {
        reason = p_.recordFile.keepUnended(keptAs);
    } else {
        p_.recordFile.dropUnended();
    }
    if (reason.isEmpty()) {
        tell(
            what +
            QStringLiteral("The record file of the last run is kept as %1.").arg(QFileInfo(keptAs).absoluteFilePath()));
    } else {
        tell(what +
             QStringLiteral("The record file %1 could not be kept under a name with date and time: %2.\n\nIt stays "
                            "as it is, and no run will overwrite it. Move it yourself.")
                 .arg(QFileInfo(p_.recordFile.path()).absoluteFilePath(), reason));
    }
}

bool RunRecovery::isRecordFile() const {
    return file_ == p_.recordFile.path();
}

void RunRecovery::tell(const QString& text) {
    p_.session.messages.show({.title = programTitle(), .text = text, .icon = Message::Icon::Information});
}

} // namespace orv
