// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runlock.h"

#include "session/numbertext.h"
#include "sheet/keptfile.h"

#include <QFile>

namespace orv {

namespace {

/// No lock is longer.
constexpr qint64 longestLock = 256;

} // namespace

RunLock::RunLock(const QString& recordFilePath)
    : path_(recordFilePath + QLatin1String(".lock")) {}

bool RunLock::stands() const {
    return QFile::exists(path_);
}

QByteArrayList RunLock::fields() const {
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray bytes = file.read(longestLock);
    return bytes.endsWith("\r\n") ? bytes.chopped(2).split('\t') : QByteArrayList();
}

DataSheet::Type RunLock::type() const {
    const QByteArrayList found = fields();
    if (found.size() < 2 || found.size() > 3) {
        return {};
    }
    const QString letter = QString::fromLatin1(found[0]);
    bool isNumber = false;
    const double firmware = found[1].toDouble(&isNumber);
    if (!isNumber || rowLayout(letter, firmware) == RowLayout::Unknown) {
        return {};
    }
    return {.letter = letter, .firmware = firmware};
}

QString RunLock::earlierFile() const {
    const QByteArrayList found = fields();
    return found.size() == 3 ? QString::fromLatin1(found[2]) : QString();
}

void RunLock::put(const DataSheet::Type& type, const QString& earlierFile) const {
    const QString earlier = earlierFile.isEmpty() ? QString() : u'\t' + earlierFile;
    write((type.letter + u'\t' + plainNumber(type.firmware) + earlier + QLatin1String("\r\n")).toLatin1());
}

bool RunLock::write(const QByteArray& bytes) const {
    QFile file(path_);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return false;
    }
    const bool whole = file.write(bytes) == bytes.size();
    syncToDisk(file.handle());
    return whole;
}

void RunLock::remove() const {
    QFile::remove(path_);
}

bool RunLock::copyFrom(const RunLock& other) const {
    QFile file(other.path_);
    return file.open(QIODevice::ReadOnly) && write(file.read(longestLock));
}

} // namespace orv
