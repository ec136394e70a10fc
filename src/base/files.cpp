// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include "base/text.h"

#include <QCoreApplication>
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
#include <clocale>
#include <cstring>
#include <utility>

namespace orv {

namespace {

/// What Qt itself says of a file that fails.
constexpr std::pair<const char*, const char*> textsOfQt[] = {{"QIODevice", "Unknown error"},
                                                             {"QIODevice", "file to open is a directory"},
                                                             {"QFile", "Destination file exists"},
                                                             {"QFile", "Destination file is the same file."},
                                                             {"QFile", "Source file does not exist."},
                                                             {"QFile", "Cannot remove source file"},
                                                             {"QFile", "Cannot open for output: %1"},
                                                             {"QFile", "Failure to write block: %1"},
                                                             {"QFile", "Cannot open destination file: %1"},
                                                             {"QFile", "Error while renaming: %1"},
                                                             {"QSaveFile", "Filename refers to a directory"},
                                                             {"QSaveFile", "Existing file %1 is not writable"}};

/// On other systems the number may be none of errno, and the text has the one language that the system speaks.
QString englishErrorText(int number) {
#ifdef Q_OS_LINUX
    static const locale_t english = ::newlocale(LC_ALL_MASK, "C", locale_t{});
    return QString::fromLatin1(::strerror_l(number, english));
#else
    return qt_error_string(number);
#endif
}

/// The English of a reason: no device keeps the number of its error.
QString englishReason(const QString& shown) {
    for (const auto& [context, english] : textsOfQt) {
        const QStringList around = QCoreApplication::translate(context, english).split(QStringLiteral("%1"));
        const QString& before = around.front();
        if (around.size() == 1 && shown == before) {
            return QString::fromLatin1(english);
        }
        if (around.size() == 2 && shown.size() >= before.size() + around.back().size() && shown.startsWith(before) &&
            shown.endsWith(around.back())) {
            const QString within = shown.sliced(before.size()).chopped(around.back().size());
            return QString::fromLatin1(english).arg(englishReason(within));
        }
    }
#ifdef Q_OS_LINUX
    constexpr int lastNumber = 133;
    for (int number = 1; number <= lastNumber; ++number) {
        if (qt_error_string(number) == shown) {
            return englishErrorText(number);
        }
    }
#endif
    return shown;
}

QString withoutFullStop(QString text) {
    while (text.endsWith(u'.')) {
        text.chop(1);
    }
    return text;
}

} // namespace

Words systemErrorText(int number) {
    return {englishErrorText(number), qt_error_string(number)};
}

Words errorText(const QIODevice& device) {
    const QString shown = device.errorString().trimmed();
    return {withoutFullStop(englishReason(shown)), withoutFullStop(shown)};
}

Words appendWhole(QFileDevice& file, const QByteArray& bytes) {
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
    Words reason = errorText(file);
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

Words keepUnderDatedName(const QString& path, const QDateTime& now, QString* keptAs) {
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

Words syncToDisk(int fileHandle) {
#if defined(Q_OS_WIN)
    const bool synced = _commit(fileHandle) == 0;
#elif defined(Q_OS_MACOS)
    const bool synced = ::fsync(fileHandle) == 0;
#else
    const bool synced = ::fdatasync(fileHandle) == 0;
#endif
    // A device, or a file system that has no such thing.
    return synced || errno == EINVAL || errno == EBADF || errno == ENOTSUP ? Words() : systemErrorText(errno);
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
    reason = keepOlder ? keepUnderDatedName(name, *keepOlder) : Words();
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
