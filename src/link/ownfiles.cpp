// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/ownfiles.h"

#include "base/words.h"
#include "link/poll.h"

#include <QFileInfo>
#include <QRegularExpression>

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

/// The name as the first program of a folder has it: "log-2.ohp" is "log.ohp" there. A capture is begun before it is
/// known which place this program takes, and other programs hold the others.
QString atFirstPlace(const QString& path) {
    static const QRegularExpression place(QStringLiteral(R"(-[2-9](?=(?:-older)?\.[^/]*$))"));
    return QString(path).remove(place);
}

} // namespace

OwnFilesKept::OwnFilesKept(OperatorQuestions& questions, Session& session)
    : questions_(questions)
    , session_(session) {}

bool OwnFilesKept::isOwn(const QString& name) const {
    const FileNames& own = session_.fileNames;
    const QStringList names{own.record, own.record + QLatin1String(".lock"), own.record + QLatin1String(".saved"),
                            own.log, ProgramLog::olderPath(own.log)};
    const QString wanted = atFirstPlace(placeOf(name));
    return std::any_of(names.begin(), names.end(), [&wanted](const QString& candidate) {
        return !candidate.isEmpty() && atFirstPlace(placeOf(candidate)).compare(wanted, Qt::CaseInsensitive) == 0;
    });
}

Subscription OwnFilesKept::ask(const Question& question, Answered given) {
    asked.tell(question);
    return questions_.ask(question, [this, question, given = std::move(given)](const QString& answer) {
        answered.tell(question, answer);
        const bool own = question.kind == Question::Kind::SaveName && !answer.isEmpty() && isOwn(answer);
        if (own) {
            session_.messages.show(
                operatorWarning(Words::tr("%1 is a file that this program writes itself while it runs, so "
                                          "nothing can be saved there.\n\nSave again under another name.")
                                    .arg(QFileInfo(answer).absoluteFilePath()),
                                question.title));
        }
        given(own ? QString() : answer);
    });
}

} // namespace orv
