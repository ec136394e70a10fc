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

SheetFiles::SheetFiles(const Parts& parts)
    : p_(parts) {}

QString SheetFiles::presetName() const {
    const QString records = p_.session.state.plc < AutomaticSave::rowLimit ? QString() : p_.shown.records.value();
    return p_.shown.fileName.value() + records + QLatin1String(".txt");
}

SheetFiles::Outcome SheetFiles::saveas() {
    p_.ports.debugsay(QStringLiteral("Save Spread Sheet"));
    if (p_.sheet.type().layout() == RowLayout::Unknown) {
        p_.session.messages.show({.title = QStringLiteral("Save as"),
                                  .text = QStringLiteral("There is nothing to save: the sheet has no known type of "
                                                         "instrument. Connect an instrument or open a sheet first."),
                                  .icon = Message::Icon::Information});
        return Outcome::Failed;
    }
    QString name = presetName();
    if (autosaving != 1) {
        name =
            p_.questions.saveFileName(QStringLiteral("Save as"), name, QStringLiteral(".txt"), QStringLiteral("*.txt"));
        if (name.isEmpty()) {
            return Outcome::Cancelled;
        }
    }
    p_.ports.debugsay(p_.sheet.type().layout() == RowLayout::Glow ? QStringLiteral("Saving Flour Sheet")
                                                                  : QStringLiteral("Saving TRX(S) Sheet"));
    return write(name);
}

void SheetFiles::saveAside() {
    if (!p_.shown.unsaved || p_.sheet.type().layout() == RowLayout::Unknown) {
        return;
    }
    const QString name =
        QStringLiteral("%1-%2.txt").arg(p_.shown.fileName.value(), fileNameStamp(p_.session.clock.now()));
    if (write(name) == Outcome::Saved) {
        p_.session.messages.show({.title = QStringLiteral("Save Data"),
                                  .text = QStringLiteral("The sheet holds unsaved rows of another type of instrument. "
                                                         "They have been saved as %1.\n\nUse \"Clear All\" before you "
                                                         "collect with this one.")
                                              .arg(tellable(name)),
                                  .icon = Message::Icon::Information});
    }
}

void SheetFiles::loadit() {
    p_.ports.debugsay(QStringLiteral("Loading Spread Sheet"));
    const QString name =
        p_.questions.openFileName(QStringLiteral("Open"), QStringLiteral(".txt"), QStringLiteral("*.txt"));
    if (name.isEmpty()) {
        return;
    }
    LoadedSheet loaded = readSheetFile(name);
    if (refuse(name, loaded)) {
        return;
    }
    p_.ports.debugsay(loaded.type.layout() == RowLayout::Glow ? QStringLiteral("Loading Flour Sheet")
                                                              : QStringLiteral("Loading TRX(S) Sheet"));
    if (p_.shown.unsaved) {
        if (!ask()) {
            return;
        }
        // The rows may have been saved over this very file.
        loaded = readSheetFile(name);
        if (refuse(name, loaded)) {
            return;
        }
    }
    p_.rows.replaceBy(std::move(loaded));
}

bool SheetFiles::refuse(const QString& name, const LoadedSheet& loaded) {
    if (loaded.error.isEmpty()) {
        return false;
    }
    p_.session.messages.show(operatorWarning(
        QStringLiteral("%1 could not be opened.\n\n%2\n\nThe sheet is as it was.").arg(tellable(name), loaded.error),
        QStringLiteral("Open")));
    return true;
}

bool SheetFiles::ask() {
    if (!p_.shown.unsaved || !p_.questions.askYesNo(QStringLiteral("Save Data"),
                                                    QStringLiteral("Data not Saved. Do you wish to save it now ?"))) {
        return true;
    }
    return saveas() == Outcome::Saved;
}

SheetFiles::Outcome SheetFiles::write(const QString& name) {
    const auto keepOlder = autosaving == 1 ? std::optional(p_.session.clock.now()) : std::nullopt;
    const QString reason = writeWholeFile(name, sheetFileBytes(p_.sheet, name), keepOlder);
    if (!reason.isEmpty()) {
        return fail(name, reason);
    }
    autosaveFailureTold_ = false;
    p_.shown.unsaved = false;
    saved.tell();
    return Outcome::Saved;
}

SheetFiles::Outcome SheetFiles::fail(const QString& name, const QString& reason) {
    if (autosaving == 1 && std::exchange(autosaveFailureTold_, true)) {
        return Outcome::Failed;
    }
    p_.session.messages.show(
        operatorWarning(QStringLiteral("The sheet could not be saved as %1: %2.\n\nIts rows are still on "
                                       "the sheet. Choose another folder or make room on the disk, then "
                                       "save again.")
                            .arg(tellable(name), reason),
                        QStringLiteral("Save as")));
    return Outcome::Failed;
}

AutomaticSave::AutomaticSave(Session& session, SheetRows& rows, SheetFiles& files, SheetState& shown)
    : session_(session)
    , rows_(rows)
    , files_(files)
    , shown_(shown) {}

void AutomaticSave::saveLongSheet() {
    const int count = session_.state.plc;
    if (count <= rowLimit) {
        nextTry_ = rowLimit;
    }
    if (count < nextTry_) {
        return;
    }
    files_.autosaving = 1;
    const bool saved = files_.saveas() == SheetFiles::Outcome::Saved;
    if (saved) {
        shown_.records = plainNumber(leadingNumber(shown_.records.value()) + 1.0);
        rows_.clearSpreadSheet();
        nextTry_ = rowLimit;
    } else {
        nextTry_ = count + 500;
    }
    files_.autosaving = 0;
}

} // namespace orv
