// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "session/datetimetext.h"
#include "sheet/fileappend.h"
#include "sheet/headerrows.h"
#include "sheet/keptfile.h"

#include <utility>

namespace orv {

namespace {

/// How long a written row may wait for the disk, in milliseconds.
constexpr qint64 diskDelay = 500;

constexpr int headerLines = 5;

/// No line of a header is longer.
constexpr qint64 longestHeaderLine = 256;

QByteArray headerText(const QDateTime& start, double firmware) {
    const QString text =
        QStringLiteral("Orvtemp.tmp\t%1\t%2\r\n"
                       "Device File\r\n"
                       "\r\r\r\n"
                       // The number column's header stands on a line of its own.
                       "Data point\t\r\n"
                       "%3\r\n")
            .arg(shortDate(start.date()), clockText(start.time()), recordFileHeader(firmware).join(u'\t'));
    return text.toLatin1();
}

} // namespace

RecordFile::RecordFile(const Clock& clock, const QString& path)
    : clock_(clock)
    , file_(path)
    , lock_(path) {}

void RecordFile::setPath(const QString& path) {
    file_.setFileName(path);
    lock_ = RunLock(path);
}

QString RecordFile::start(const DataSheet::Type& type) {
    close();
    QString reason = claim ? claim() : QString();
    if (reason.isEmpty()) {
        reason = keepUnsavedRows();
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    begun_ = false;
    recovered_ = false;
    saved_ = false;
    discarded_ = false;
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return file_.errorString();
    }
    reason = appendWhole(file_, headerText(clock_.now(), type.firmware));
    begun_ = reason.isEmpty();
    if (begun_) {
        // Not before the file of the run before is out of the way: a program that dies here leaves no row of that run
        // to be taken for this one's.
        lock_.put(type);
    } else {
        file_.close();
    }
    return reason;
}

QString RecordFile::keepUnsavedRows() {
    const QString reason = holdsUnsavedRows() ? keepUnderDatedName(file_.fileName(), clock_.now()) : QString();
    return reason.isEmpty()
               ? QString()
               : QStringLiteral("the rows of the run before could not be kept under another name (%1)").arg(reason);
}

bool RecordFile::holdsUnsavedRows() const {
    if (saved_ && !discarded_) {
        return false;
    }
    QFile old(file_.fileName());
    if (!old.open(QIODevice::ReadOnly)) {
        return old.exists();
    }
    // The header has five line ends; whatever stands behind them, or in a file that is no record file, is kept.
    for (int line = 0; line < headerLines; ++line) {
        if (old.readLine(longestHeaderLine).isEmpty()) {
            return false;
        }
    }
    return !old.atEnd();
}

QString RecordFile::append(const QString& line) {
    if (!file_.isOpen()) {
        return {};
    }
    saved_ = false;
    QString reason = appendWhole(file_, line.toLatin1() + "\r\n");
    if (reason.isEmpty() && !waitsForDisk_) {
        waitsForDisk_ = true;
        waitsSince_ = clock_.monotonicMilliseconds();
    }
    return reason;
}

void RecordFile::syncWhenDue() {
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
    lock_.remove();
}

QString RecordFile::keepUnended(QString& keptAs) {
    QString reason = keepUnderDatedName(file_.fileName(), clock_.now(), &keptAs);
    if (reason.isEmpty()) {
        lock_.remove();
    }
    return reason;
}

void RecordFile::takeUnendedFrom(const QString& otherPath) {
    if (keepUnsavedRows().isEmpty()) {
        QFile::remove(file_.fileName()); // without rows, if it is still there
        if (QFile::rename(otherPath, file_.fileName())) {
            lock_.takeFrom(RunLock(otherPath));
        }
    }
}

void RecordFile::rowsSaved() {
    saved_ = begun_;
    forgetRecovered();
}

void RecordFile::rowsDiscarded() {
    discarded_ = discarded_ || !saved_;
    forgetRecovered();
}

void RecordFile::forgetRecovered() {
    if (std::exchange(recovered_, false)) {
        lock_.remove();
    }
}

} // namespace orv
