// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetfiles.h"

#include "base/files.h"
#include "base/text.h"
#include "sheet/sheetformat.h"

#include <QFileInfo>

#include <optional>
#include <utility>

namespace orv {

namespace {

QString tellable(const QString& name) {
    return QFileInfo(name).absoluteFilePath();
}

} // namespace

SheetFiles::SheetFiles(Session& session, ComPorts& ports, DataSheet& sheet, SheetRows& rows, SheetState& shown,
                       OperatorQuestions& questions)
    : session_(session)
    , ports_(ports)
    , sheet_(sheet)
    , rows_(rows)
    , shown_(shown)
    , questions_(questions) {}

QString SheetFiles::presetName() const {
    const QString records = sheet_.rowCount() < rowLimit ? QString() : shown_.records.value();
    return shown_.fileName.value() + records + QLatin1String(".txt");
}

SheetFiles::Outcome SheetFiles::saveas(bool autosaving) {
    ports_.debugsay(QStringLiteral("Save Spread Sheet"));
    if (sheet_.type().layout() == RowLayout::Unknown) {
        session_.messages.show({.title = QStringLiteral("Save as"),
                                .text = QStringLiteral("There is nothing to save: the sheet has no known type of "
                                                       "instrument. Connect an instrument or open a sheet first."),
                                .icon = Message::Icon::Information});
        return Outcome::Failed;
    }
    QString name = presetName();
    if (!autosaving) {
        name =
            questions_.saveFileName(QStringLiteral("Save as"), name, QStringLiteral(".txt"), QStringLiteral("*.txt"));
        if (name.isEmpty()) {
            return Outcome::Cancelled;
        }
    }
    ports_.debugsay(sheet_.type().layout() == RowLayout::Glow ? QStringLiteral("Saving Flour Sheet")
                                                              : QStringLiteral("Saving TRX(S) Sheet"));
    return write(name, autosaving);
}

bool SheetFiles::saveLongSheet() {
    const int count = sheet_.rowCount();
    if (count <= rowLimit) {
        nextAutosave_ = rowLimit;
    }
    if (count < nextAutosave_) {
        return false;
    }
    if (saveas(true) != Outcome::Saved) {
        nextAutosave_ = count + 500;
        return false;
    }
    shown_.records = plainNumber(leadingNumber(shown_.records.value()) + 1.0);
    rows_.clearSpreadSheet();
    nextAutosave_ = rowLimit;
    return true;
}

void SheetFiles::saveAside() {
    if (!shown_.unsaved || sheet_.type().layout() == RowLayout::Unknown) {
        return;
    }
    const QString name = QStringLiteral("%1-%2.txt").arg(shown_.fileName.value(), fileNameStamp(session_.clock.now()));
    if (write(name, false) == Outcome::Saved) {
        session_.messages.show({.title = QStringLiteral("Save Data"),
                                .text = QStringLiteral("The sheet holds unsaved rows of another type of instrument. "
                                                       "They have been saved as %1.\n\nUse \"Clear All\" before you "
                                                       "collect with this one.")
                                            .arg(tellable(name)),
                                .icon = Message::Icon::Information});
    }
}

void SheetFiles::loadit() {
    ports_.debugsay(QStringLiteral("Loading Spread Sheet"));
    const QString name =
        questions_.openFileName(QStringLiteral("Open"), QStringLiteral(".txt"), QStringLiteral("*.txt"));
    if (name.isEmpty()) {
        return;
    }
    LoadedSheet loaded = readSheetFile(name);
    if (refuse(name, loaded)) {
        return;
    }
    ports_.debugsay(loaded.type.layout() == RowLayout::Glow ? QStringLiteral("Loading Flour Sheet")
                                                            : QStringLiteral("Loading TRX(S) Sheet"));
    if (shown_.unsaved) {
        if (!ask()) {
            return;
        }
        // The rows may have been saved over this very file.
        loaded = readSheetFile(name);
        if (refuse(name, loaded)) {
            return;
        }
    }
    rows_.replaceBy(std::move(loaded));
}

bool SheetFiles::refuse(const QString& name, const LoadedSheet& loaded) {
    if (loaded.error.isEmpty()) {
        return false;
    }
    session_.messages.show(operatorWarning(
        QStringLiteral("%1 could not be opened.\n\n%2\n\nThe sheet is as it was.").arg(tellable(name), loaded.error),
        QStringLiteral("Open")));
    return true;
}

bool SheetFiles::ask() {
    if (!shown_.unsaved || !questions_.askYesNo(QStringLiteral("Save Data"),
                                                QStringLiteral("Data not Saved. Do you wish to save it now ?"))) {
        return true;
    }
    return saveas() == Outcome::Saved;
}

SheetFiles::Outcome SheetFiles::write(const QString& name, bool autosaving) {
    const auto keepOlder = autosaving ? std::optional(session_.clock.now()) : std::nullopt;
    const QString reason = writeWholeFile(name, sheetFileBytes(sheet_, name), keepOlder);
    if (!reason.isEmpty()) {
        return fail(name, reason, autosaving);
    }
    autosaveFailureTold_ = false;
    shown_.unsaved = false;
    saved.tell();
    return Outcome::Saved;
}

SheetFiles::Outcome SheetFiles::fail(const QString& name, const QString& reason, bool autosaving) {
    if (autosaving && std::exchange(autosaveFailureTold_, true)) {
        return Outcome::Failed;
    }
    session_.messages.show(
        operatorWarning(QStringLiteral("The sheet could not be saved as %1: %2.\n\nIts rows are still on "
                                       "the sheet. Choose another folder or make room on the disk, then "
                                       "save again.")
                            .arg(tellable(name), reason),
                        QStringLiteral("Save as")));
    return Outcome::Failed;
}

} // namespace orv
