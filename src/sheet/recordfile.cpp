// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "base/files.h"
#include "base/text.h"
#include "sheet/recordformat.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace orv {

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
    if (!isNumber || instrumentType(letter) == InstrumentType::Unknown) {
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
    return file.open(QIODevice::ReadOnly) && write(file.read(longest));
}

RecordFile::RecordFile(const Clock& clock, const QString& path, FolderPlace* place)
    : clock_(clock)
    , place_(place)
    , file_(path)
    , lock_(path) {}

void RecordFile::setPath(const QString& path) {
    file_.setFileName(path);
    lock_ = RunLock(path);
}

QString RecordFile::start(const DataSheet::Type& type) {
    close();
    QString reason = place_ != nullptr ? place_->claim() : QString();
    if (reason.isEmpty()) {
        reason = keepUnsavedRows();
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    begun_ = false;
    saved_ = false;
    discarded_ = false;
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return file_.errorString();
    }
    reason = appendWhole(file_, recordHeader(clock_.now(), type.firmware));
    begun_ = reason.isEmpty();
    if (begun_) {
        // Not before the file of the run before is out of the way: a program that dies here leaves no row of that run
        // to be taken for this one's.
        type_ = type;
        lock_.put(type_, earlierFile_);
    } else {
        file_.close();
    }
    return reason;
}

QString RecordFile::keepUnsavedRows() {
    if (!holdsUnsavedRows()) {
        return {};
    }
    QString keptAs;
    const QString reason = keepUnderDatedName(file_.fileName(), clock_.now(), &keptAs);
    if (!reason.isEmpty()) {
        return QStringLiteral("the rows of the run before could not be kept under another name (%1)").arg(reason);
    }
    if (unsaved_) {
        earlierFile_ = QFileInfo(keptAs).fileName();
        lock_.put(lock_.type(), earlierFile_);
    }
    return {};
}

bool RecordFile::holdsUnsavedRows() const {
    if (saved_ && !discarded_) {
        return false;
    }
    QFile old(file_.fileName());
    if (!old.open(QIODevice::ReadOnly)) {
        return old.exists();
    }
    // Whatever stands after a header, or in a file that is no record file, is kept. A header may have been cut off.
    return !isRecordHeaderOrItsBegin(old.read(longestRecordHeader));
}

QString RecordFile::append(const QString& line) {
    if (!file_.isOpen()) {
        return {};
    }
    saved_ = false;
    QString reason = appendWhole(file_, line.toLatin1() + "\r\n");
    unsaved_ = unsaved_ || reason.isEmpty();
    if (reason.isEmpty() && !waitsForDisk_) {
        waitsForDisk_ = true;
        waitsSince_ = clock_.monotonicMilliseconds();
    }
    return reason;
}

void RecordFile::syncWhenDue() {
    constexpr qint64 diskDelay = 500; // milliseconds that a written row may wait
    if (waitsForDisk_ && clock_.monotonicMilliseconds() - waitsSince_ >= diskDelay) {
        waitsForDisk_ = false;
        syncToDisk(file_.handle());
    }
}

void RecordFile::close() {
    if (!file_.isOpen()) {
        return;
    }
    if (waitsForDisk_) {
        waitsForDisk_ = false;
        syncToDisk(file_.handle());
    }
    file_.close();
    if (!unsaved_) {
        lock_.remove();
    }
}

QString RecordFile::unendedEarlierFile() const {
    const QString name = lock_.earlierFile();
    return name.isEmpty() ? QString() : QFileInfo(file_.fileName()).dir().filePath(QFileInfo(name).fileName());
}

void RecordFile::unendedRecovered() {
    unsaved_ = true;
    earlierFile_ = lock_.earlierFile();
}

QString RecordFile::keepUnended(QString& keptAs) {
    QString reason = keepUnderDatedName(file_.fileName(), clock_.now(), &keptAs);
    if (reason.isEmpty()) {
        lock_.remove();
    }
    return reason;
}

void RecordFile::takeUnendedFrom(const QString& otherPath) {
    const RunLock otherLock(otherPath);
    if (!QFile::exists(otherPath) && otherLock.earlierFile().isEmpty()) {
        otherLock.remove();
        return;
    }
    if (!keepUnsavedRows().isEmpty()) {
        return;
    }
    QFile::remove(file_.fileName()); // without rows, if it is still there
    if (lock_.copyFrom(otherLock) && (!QFile::exists(otherPath) || QFile::rename(otherPath, file_.fileName()))) {
        otherLock.remove();
    } else {
        lock_.remove();
    }
}

bool RecordFile::hasUnendedRun() const {
    return isUnended() && (QFile::exists(file_.fileName()) || !lock_.earlierFile().isEmpty());
}

void RecordFile::rowsSaved() {
    saved_ = begun_;
    nothingIsUnsaved();
}

void RecordFile::rowsDiscarded() {
    discarded_ = discarded_ || !saved_;
    nothingIsUnsaved();
}

void RecordFile::nothingIsUnsaved() {
    const bool namesEarlierFile = !std::exchange(earlierFile_, QString()).isEmpty();
    if (!std::exchange(unsaved_, false)) {
        return;
    }
    if (!file_.isOpen()) {
        lock_.remove();
    } else if (namesEarlierFile) {
        lock_.put(type_);
    }
}

} // namespace orv
