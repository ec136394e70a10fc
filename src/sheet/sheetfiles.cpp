// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetfiles.h"

#include "base/files.h"
#include "base/text.h"
#include "sheet/sheetformat.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace orv {

namespace {

QString tellable(const QString& name) {
    return QFileInfo(name).absoluteFilePath();
}

} // namespace

SheetFiles::SheetFiles(Link& link, DataSheet& sheet, SheetRows& rows, SheetState& shown)
    : link_(link)
    , sheet_(sheet)
    , rows_(rows)
    , shown_(shown) {}

QString SheetFiles::presetName() const {
    const QString records = sheet_.rowCount() < rowLimit ? QString() : shown_.records.value();
    return shown_.fileName.value() + records + QLatin1String(".txt");
}

bool SheetFiles::beginSaving() {
    link_.ports.debugsay(QStringLiteral("Save Spread Sheet"));
    if (sheet_.type().layout() != RowLayout::Unknown) {
        return true;
    }
    link_.session.messages.show({.title = Words::tr("Save as"),
                                 .text = Words::tr("There is nothing to save: the sheet has no known type of "
                                                   "instrument. Connect an instrument or open a sheet first."),
                                 .icon = Message::Icon::Information});
    return false;
}

SheetFiles::Outcome SheetFiles::announceAndWrite(const QString& name, bool autosaving) {
    link_.ports.debugsay(sheet_.type().layout() == RowLayout::Glow ? QStringLiteral("Saving Flour Sheet")
                                                                   : QStringLiteral("Saving TRX(S) Sheet"));
    return write(name, autosaving);
}

Task<SheetFiles::Outcome> SheetFiles::saveas() {
    if (!beginSaving()) {
        co_return Outcome::Failed;
    }
    const qsizetype savedBefore = savedByItself_.size();
    const Question question =
        saveQuestion(Words::tr("Save as"), presetName(), QStringLiteral(".txt"), QStringLiteral("*.txt"));
    const QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return Outcome::Cancelled;
    }
    const QList<Words> meanwhile = savedByItself_.mid(savedBefore);
    // The name may be that of a file that the automatic save has written since: that one keeps its rows.
    const bool wasSavedByItself = std::ranges::any_of(
        meanwhile, [&name](const QString& file) { return file.endsWith(QLatin1String(" as ") + tellable(name)); });
    failureTold_ = false; // the operator has asked for this one
    const Outcome outcome = announceAndWrite(name, wasSavedByItself);
    if (outcome == Outcome::Saved && !meanwhile.isEmpty()) {
        const Words kept = wasSavedByItself ? Words::tr(" The file of that name is kept under a name with date and "
                                                        "time.")
                                            : Words();
        link_.session.messages.show({.title = Words::tr("Save as"),
                                     .text = Words::tr("While you chose a name the sheet became long and was "
                                                       "saved by itself: %1.\n\n%2 has the rows since.%3")
                                                 .arg(join(meanwhile, QStringLiteral("; ")), tellable(name), kept),
                                     .icon = Message::Icon::Information});
    }
    co_return outcome;
}

SheetFiles::Outcome SheetFiles::autosave() {
    const QString name = presetName();
    const Outcome outcome = beginSaving() ? announceAndWrite(name, true) : Outcome::Failed;
    if (outcome == Outcome::Saved) {
        savedByItself_ << Words::tr("rows 1 to %1 as %2").arg(sheet_.rowCount()).arg(tellable(name));
    }
    return outcome;
}

bool SheetFiles::saveLongSheet() {
    const int count = sheet_.rowCount();
    if (count <= rowLimit) {
        nextAutosave_ = rowLimit;
    }
    if (count < nextAutosave_) {
        return false;
    }
    if (autosave() != Outcome::Saved) {
        nextAutosave_ = count + 500;
        return false;
    }
    shown_.records = plainNumber(leadingNumber(shown_.records.value()) + 1.0);
    rows_.clearSpreadSheet();
    nextAutosave_ = rowLimit;
    return true;
}

bool SheetFiles::saveAside() {
    if (!shown_.unsaved || sheet_.type().layout() == RowLayout::Unknown) {
        return true;
    }
    const QString name =
        QStringLiteral("%1-%2.txt").arg(shown_.fileName.value(), fileNameStamp(link_.session.clock.now()));
    if (write(name, true) != Outcome::Saved) {
        return false;
    }
    link_.session.messages.show({.title = Words::tr("Save Data"),
                                 .text = Words::tr("The sheet held unsaved rows of another type of instrument. "
                                                   "They have been saved as %1, and stay on the sheet too.\n\n"
                                                   "\"Clear All\" makes room for the rows of the one connected now.")
                                             .arg(tellable(name)),
                                 .icon = Message::Icon::Information});
    return true;
}

Task<> SheetFiles::loadit() {
    link_.ports.debugsay(QStringLiteral("Loading Spread Sheet"));
    const Question question = openQuestion(Words::tr("Open"), QStringLiteral(".txt"), QStringLiteral("*.txt"));
    const QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    LoadedSheet loaded = readSheetFile(name);
    if (refuse(name, loaded)) {
        co_return;
    }
    link_.ports.debugsay(loaded.type.layout() == RowLayout::Glow ? QStringLiteral("Loading Flour Sheet")
                                                                 : QStringLiteral("Loading TRX(S) Sheet"));
    if (shown_.unsaved) {
        const bool mayGo = co_await ask();
        if (!mayGo) {
            co_return;
        }
        // The rows may have been saved over this very file.
        loaded = readSheetFile(name);
        if (refuse(name, loaded)) {
            co_return;
        }
    }
    rows_.replaceBy(std::move(loaded));
    shown_.file = tellable(name);
}

bool SheetFiles::refuse(const QString& name, const LoadedSheet& loaded) {
    if (loaded.error.isEmpty()) {
        return false;
    }
    link_.session.messages.show(operatorWarning(
        Words::tr("%1 could not be opened.\n\n%2\n\nThe sheet is as it was.").arg(tellable(name), loaded.error),
        Words::tr("Open")));
    return true;
}

Task<bool> SheetFiles::ask() {
    if (!shown_.unsaved) {
        co_return true;
    }
    const Question question =
        yesNoQuestion(Words::tr("Save Data"), Words::tr("Data not Saved. Do you wish to save it now ?"));
    const QString answer = co_await link_.waits.answer(question);
    if (answer != Question::yes()) {
        co_return answer == Question::no();
    }
    const Outcome outcome = co_await saveas();
    co_return outcome == Outcome::Saved;
}

SheetFiles::Outcome SheetFiles::write(const QString& name, bool autosaving) {
    const auto keepOlder = autosaving ? std::optional(link_.session.clock.now()) : std::nullopt;
    const Words reason = writeWholeFile(name, sheetFileBytes(sheet_, name), keepOlder);
    if (!reason.isEmpty()) {
        return fail(name, reason, autosaving);
    }
    failureTold_ = false;
    shown_.unsaved = false;
    shown_.rowsInFile = sheet_.rowCount();
    shown_.file = tellable(name);
    shown_.saved = SavedRows{.count = sheet_.rowCount(), .file = tellable(name)};
    saved.tell(sheetFileHoldsAll(sheet_));
    return Outcome::Saved;
}

SheetFiles::Outcome SheetFiles::fail(const QString& name, const Words& reason, bool autosaving) {
    if (autosaving && std::exchange(failureTold_, true)) {
        return Outcome::Failed;
    }
    link_.session.messages.show(
        operatorWarning(Words::tr("The sheet could not be saved as %1: %2.\n\nIts rows are still on "
                                  "the sheet. Choose another folder or make room on the disk, then "
                                  "save again.")
                            .arg(tellable(name), reason),
                        Words::tr("Save as")));
    return Outcome::Failed;
}

} // namespace orv
