// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ownfileskept.h"

#include <QFileInfo>

#include <algorithm>

namespace orv {

namespace {

/// Where the name leads to in the end, whether or not the file is there.
QString placeOf(const QString& name) {
    const QFileInfo file(name);
    if (file.exists()) {
        return file.canonicalFilePath();
    }
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : folder + u'/' + file.fileName();
}

} // namespace

OwnFilesKept::OwnFilesKept(OperatorQuestions& asked, const Session& session)
    : asked_(asked)
    , session_(session) {}

bool OwnFilesKept::isOwn(const QString& name) const {
    const FileNames& own = session_.fileNames;
    const QStringList names{own.record, own.record + QLatin1String(".lock"), own.log};
    const QString wanted = placeOf(name);
    return std::any_of(names.begin(), names.end(), [&wanted](const QString& candidate) {
        return !candidate.isEmpty() && placeOf(candidate).compare(wanted, Qt::CaseInsensitive) == 0;
    });
}

bool OwnFilesKept::askYesNo(const QString& title, const QString& text) {
    return asked_.askYesNo(title, text);
}

QString OwnFilesKept::saveFileName(const QString& title, const QString& presetName, const QString& suffix,
                                   const QString& filter) {
    QString name = asked_.saveFileName(title, presetName, suffix, filter);
    if (name.isEmpty() || !isOwn(name)) {
        return name;
    }
    session_.messages.show({.title = title,
                            .text = QStringLiteral("%1 is a file that this program writes itself while it runs, so "
                                                   "nothing can be saved there.\n\nSave again under another name.")
                                        .arg(QFileInfo(name).absoluteFilePath()),
                            .icon = Message::Icon::Exclamation});
    return {};
}

QString OwnFilesKept::openFileName(const QString& title, const QString& suffix, const QString& filter) {
    return asked_.openFileName(title, suffix, filter);
}

} // namespace orv
