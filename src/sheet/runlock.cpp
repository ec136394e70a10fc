// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/runlock.h"

#include "base/files.h"
#include "base/text.h"
#include "sheet/recordfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace orv {

namespace {

/// A small file beside the record file, on the disk. Returns whether it is whole.
bool writeBeside(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return false;
    }
    const bool whole = file.write(bytes) == bytes.size() && syncToDisk(file.handle()).isEmpty();
    syncFolderOf(path);
    return whole;
}

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
    const QByteArray bytes = file.read(longest);
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
    if (!isNumber || !std::isfinite(firmware) || instrumentType(letter) == InstrumentType::Unknown) {
        return {};
    }
    return {.letter = letter, .firmware = firmware};
}

QString RunLock::earlierFile() const {
    const QByteArrayList found = fields();
    const QString name = found.size() == 3 ? QString::fromLatin1(found[2]) : QString();
    // What begins with ":" would be looked for in the program itself.
    const bool isFileName = name == QFileInfo(name).fileName() && QDir::isRelativePath(name) &&
                            name != QLatin1String(".") && name != QLatin1String("..");
    return isFileName ? name : QString();
}

bool RunLock::put(const DataSheet::Type& type, const QString& earlierFile) const {
    const QString earlier = earlierFile.isEmpty() ? QString() : u'\t' + earlierFile;
    return writeBeside(path_,
                       (type.letter + u'\t' + plainNumber(type.firmware) + earlier + QLatin1String("\r\n")).toLatin1());
}

void RunLock::remove() const {
    QFile::remove(path_);
}

bool RunLock::copyFrom(const RunLock& other) const {
    QFile file(other.path_);
    return file.open(QIODevice::ReadOnly) && writeBeside(path_, file.read(longest));
}

SavedMark::SavedMark(const QString& recordFilePath)
    : recordFile_(recordFilePath)
    , path_(recordFilePath + QLatin1String(".saved")) {}

/// What the mark of the file as it is now would say; empty if it cannot be told from another.
QByteArray SavedMark::presentState() const {
    QFile file(recordFile_);
    const QByteArray firstLine = file.open(QIODevice::ReadOnly) ? file.readLine(longestRecordHeader) : QByteArray();
    return firstLine.endsWith('\n') ? QByteArray::number(file.size()) + '\t' + firstLine : QByteArray();
}

bool SavedMark::holds() const {
    QFile file(path_);
    const QByteArray state = presentState();
    return !state.isEmpty() && file.open(QIODevice::ReadOnly) && file.read(state.size() + 1) == state;
}

void SavedMark::put() const {
    writeBeside(path_, presentState());
}

void SavedMark::remove() const {
    QFile::remove(path_);
}

} // namespace orv
