// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"

#include "base/filedescriptor.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>

namespace orv::fuzzing {

void require(bool condition, const char* what) {
    if (!condition) {
        throw Broken(what);
    }
}

std::uint8_t Input::byte() {
    if (rest_.isEmpty()) {
        return 0;
    }
    const auto first = static_cast<std::uint8_t>(rest_.front());
    rest_ = rest_.sliced(1);
    return first;
}

QByteArray Input::bytes(qsizetype count) {
    const auto taken = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.sliced(taken.size());
    return taken.toByteArray();
}

QByteArray Input::piece(char separator) {
    const qsizetype at = rest_.indexOf(separator);
    QByteArray taken = bytes(at < 0 ? rest_.size() : at);
    byte();
    return taken;
}

namespace {

QString scratchPath(const char* name) {
    static const QTemporaryDir folder;
    return folder.filePath(QString::fromLatin1(name));
}

} // namespace

QString memoryFile(const QByteArray& bytes) {
    static const FileDescriptor memory(memfd_create("input", MFD_CLOEXEC));
    if (ftruncate(memory.get(), 0) != 0 ||
        pwrite(memory.get(), bytes.constData(), static_cast<std::size_t>(bytes.size()), 0) != bytes.size()) {
        throw std::runtime_error("there is no file in memory");
    }
    static const QString path = QStringLiteral("/proc/self/fd/%1").arg(memory.get());
    return path;
}

QString scratchFile(const char* name, const QByteArray& bytes) {
    QFile file(scratchPath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) ||
        file.write(bytes) != bytes.size()) {
        throw std::runtime_error("the folder for temporary files takes no file");
    }
    return file.fileName();
}

} // namespace orv::fuzzing
