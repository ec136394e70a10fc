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

DataSheet::Type RunLock::type() const {
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray bytes = file.read(longestLock);
    const QByteArrayList fields = bytes.trimmed().split('\t');
    const QString letter = QString::fromLatin1(fields[0]);
    bool isNumber = false;
    const double firmware = fields.size() == 2 ? fields[1].toDouble(&isNumber) : 0.0;
    if (!bytes.endsWith("\r\n") || !isNumber || rowLayout(letter, firmware) == RowLayout::Unknown) {
        return {};
    }
    return {.letter = letter, .firmware = firmware};
}

void RunLock::put(const DataSheet::Type& type) const {
    QFile file(path_);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        file.write((type.letter + u'\t' + plainNumber(type.firmware) + QLatin1String("\r\n")).toLatin1());
        syncToDisk(file.handle());
    }
}

void RunLock::remove() const {
    QFile::remove(path_);
}

void RunLock::takeFrom(const RunLock& other) const {
    remove();
    QFile::rename(other.path_, path_);
}

} // namespace orv
