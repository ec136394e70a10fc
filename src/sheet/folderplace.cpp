// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/folderplace.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <utility>

namespace orv {

namespace {

/// How long a lock file that does not say whose it is may be just being written, in milliseconds.
constexpr int writingTime = 200;

struct Holder {
    qint64 process = 0;
    QString computer;
    QString program;
};

bool readHolder(const QLockFile& lock, Holder& holder) {
    return lock.getLockInfo(&holder.process, &holder.computer, &holder.program);
}

bool tryToHold(QLockFile& lock) {
    // Age says nothing: a program may run for months.
    lock.setStaleLockTime(0);
    if (lock.tryLock(0)) {
        return true;
    }
    if (lock.error() != QLockFile::LockFailedError) {
        return false;
    }
    if (Holder holder; !readHolder(lock, holder) && lock.tryLock(writingTime)) {
        return true;
    }
    // A dead program's process id can be another one's of the same name by now, and a computer can have been renamed.
    // What decides is the system's own lock on the file, which ends with the process: while it stands the file cannot
    // be removed. One at a time, or the second would remove the new lock of the first.
    QLockFile removal(lock.fileName() + QLatin1String(".rmlock"));
    return removal.tryLock(0) && lock.removeStaleLockFile() && lock.tryLock(0);
}

/// Whether the lock was made on this computer, whose name a system may write in capitals or have changed.
bool isOfThisComputer(const QLockFile& lock, const QString& computer) {
    constexpr qsizetype machineLine = 3;
    QFile file(lock.fileName());
    const QByteArray machine =
        file.open(QIODevice::ReadOnly) ? file.readAll().split('\n').value(machineLine) : QByteArray();
    return computer.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0 ||
           (!machine.isEmpty() && machine == QSysInfo::machineUniqueId());
}

Words describe(const QLockFile& lock) {
    Holder holder;
    if (!readHolder(lock, holder)) {
        return Words::tr("its process is not known");
    }
    const Words process = Words::tr("process %1").arg(holder.process);
    return holder.computer.isEmpty() || isOfThisComputer(lock, holder.computer)
               ? process
               : Words::tr("%1 on the computer %2").arg(process, holder.computer);
}

} // namespace

QString FolderPlace::nameIn(int number, const QString& name) {
    if (number <= 1) {
        return name;
    }
    const QFileInfo info(name);
    return QStringLiteral("%1-%2.%3").arg(info.completeBaseName(), QString::number(number), info.suffix());
}

std::unique_ptr<QLockFile> FolderPlace::hold(int number) {
    auto lock = std::make_unique<QLockFile>(nameIn(number, QStringLiteral("orvhost.lock")));
    return tryToHold(*lock) ? std::move(lock) : nullptr;
}

void FolderPlace::take() {
    cannotLock_ = false;
    for (number_ = 1; number_ <= mostPlaces; ++number_) {
        lock_ = std::make_unique<QLockFile>(nameIn(number_, QStringLiteral("orvhost.lock")));
        if (tryToHold(*lock_)) {
            return;
        }
        if (lock_->error() != QLockFile::LockFailedError) {
            otherProgram_ = {}; // a dead one's lock cannot be told from a living one's here
            cannotLock_ = lock_->error() != QLockFile::PermissionError;
            number_ = cannotLock_ ? 0 : number_;
            lock_.reset();
            return;
        }
        if (number_ == 1) {
            otherProgram_ = describe(*lock_);
        }
    }
    number_ = 0;
    lock_.reset();
}

Words FolderPlace::claim() {
    if (cannotLock_) {
        return Words::tr("no lock file can be made in this folder");
    }
    if (number_ == 0) {
        return Words::tr("other programs use this folder");
    }
    if (lock_) {
        return {};
    }
    auto lock = std::make_unique<QLockFile>(nameIn(number_, QStringLiteral("orvhost.lock")));
    if (tryToHold(*lock)) {
        lock_ = std::move(lock);
        return {};
    }
    return lock->error() == QLockFile::LockFailedError
               ? Words::tr("another program may use it (%1)").arg(describe(*lock))
               : Words::tr("no lock file can be made beside it");
}

} // namespace orv
