// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include "base/text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include "base/filedescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cerrno>

namespace orv {

QString errorText(const QIODevice& device) {
    QString text = device.errorString().trimmed();
    while (text.endsWith(u'.')) {
        text.chop(1);
    }
    return text;
}

QString appendWhole(QFileDevice& file, const QByteArray& bytes) {
    const qint64 before = file.pos();
    qint64 written = 0;
    // A full disk first takes a part and tells of its trouble only at the rest.
    while (written < bytes.size()) {
        const qint64 part = file.write(bytes.sliced(written));
        if (part <= 0) {
            break;
        }
        written += part;
    }
    if (written == bytes.size()) {
        return {};
    }
    QString reason = errorText(file);
    file.resize(before);
    file.seek(before);
    return reason;
}

QString freeName(const QString& path, const QDateTime& now) {
    const QFileInfo info(path);
    if (!info.exists()) {
        return path;
    }
    const QString stem = info.completeBaseName() + QLatin1Char('-') + fileNameStamp(now);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    QString name = stem + suffix;
    for (int further = 2; info.dir().exists(name); ++further) {
        name = QStringLiteral("%1-%2%3").arg(stem, QString::number(further), suffix);
    }
    return info.dir().filePath(name);
}

QString keepUnderDatedName(const QString& path, const QDateTime& now, QString* keptAs) {
    QFile file(path);
    if (!file.exists()) {
        return {};
    }
    if (!file.rename(freeName(path, now))) {
        return errorText(file);
    }
    if (keptAs != nullptr) {
        *keptAs = file.fileName();
    }
    return {};
}

std::optional<qint64> freeSpaceHere() {
    std::error_code failure;
    const std::filesystem::space_info space = std::filesystem::space(".", failure);
    return failure ? std::nullopt : std::optional(static_cast<qint64>(space.available));
}

QString syncToDisk(int fileHandle) {
#if defined(Q_OS_WIN)
    const bool synced = _commit(fileHandle) == 0;
#elif defined(Q_OS_MACOS)
    const bool synced = ::fsync(fileHandle) == 0;
#else
    const bool synced = ::fdatasync(fileHandle) == 0;
#endif
    // A device, or a file system that has no such thing.
    return synced || errno == EINVAL || errno == EBADF || errno == ENOTSUP ? QString() : qt_error_string(errno);
}

Words syncNamedFile(int fileHandle) {
    Words reason = syncToDisk(fileHandle);
#ifdef Q_OS_UNIX
    struct stat info {};
    if (reason.isEmpty() && ::fstat(fileHandle, &info) == 0 && info.st_nlink == 0) {
        reason = Words::tr("it has been removed");
    }
#endif
    return reason;
}

void syncFolderOf(const QString& path) {
#ifdef Q_OS_UNIX
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const FileDescriptor open(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open.isOpen()) {
        ::fsync(open.get());
    }
#endif
}

Words writeWholeFile(const QString& name, const QByteArray& bytes, const std::optional<QDateTime>& keepOlder) {
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return errorText(file);
    }
    Words reason = appendWhole(file, bytes);
    if (reason.isEmpty()) {
        reason = syncToDisk(file.handle());
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    // Only now that the new one is whole, so that a failure leaves the older one where it is.
    reason = keepOlder ? keepUnderDatedName(name, *keepOlder) : QString();
    if (!reason.isEmpty()) {
        return Words::tr("the older file of that name could not be kept (%1)").arg(reason);
    }
    if (!file.commit()) {
        return errorText(file);
    }
    syncFolderOf(name);
    return {};
}

Message fileNotSaved(const Words& title, const QString& name, const Words& reason) {
    return operatorWarning(Words::tr("%1 could not be saved: %2.\n\nA file that was there before is unchanged. Choose "
                                     "another folder or make room on the disk, then save again.")
                               .arg(QFileInfo(name).absoluteFilePath(), reason),
                           title);
}

} // namespace orv
