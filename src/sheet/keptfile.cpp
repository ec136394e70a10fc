// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/keptfile.h"

#include "session/datetimetext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace orv {

QString keepUnderDatedName(const QString& path, const QDateTime& now, QString* keptAs) {
    const QFileInfo info(path);
    if (!info.exists()) {
        return {};
    }
    const QString stem = info.completeBaseName() + QLatin1Char('-') + fileNameStamp(now);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    QString name = stem + suffix;
    for (int further = 2; info.dir().exists(name); ++further) {
        name = QStringLiteral("%1-%2%3").arg(stem, QString::number(further), suffix);
    }
    QFile file(path);
    if (!file.rename(info.dir().filePath(name))) {
        return file.errorString();
    }
    if (keptAs != nullptr) {
        *keptAs = file.fileName();
    }
    return {};
}

void syncToDisk(int fileHandle) {
#if defined(Q_OS_WIN)
    _commit(fileHandle);
#elif defined(Q_OS_MACOS)
    ::fsync(fileHandle);
#else
    ::fdatasync(fileHandle);
#endif
}

} // namespace orv
