// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"

#include <QLockFile>
#include <QString>

#include <memory>

namespace orv {

/// A program's place in a folder, so that two programs in one folder do not write to the same log and record file. The
/// first program has place 1 and the plain names; the next have "log-2.ohp" and so on. A place is held for the life of
/// the program by a lock file ("orvhost.lock", "orvhost-2.lock") and is free again when the program has ended, however
/// that was.
class FolderPlace {
public:
    /// More programs in one folder get none.
    static constexpr int mostPlaces = 9;

    FolderPlace() = default;
    FolderPlace(const FolderPlace&) = delete;
    FolderPlace& operator=(const FolderPlace&) = delete;

    /// Takes the first free place in the working directory. Where this user may not write, the place is had without a
    /// lock. Where a lock file fails for another reason (the disk is full, say) none is had: the next program, for
    /// which it may succeed, would take the same one; this one may try again.
    void take();

    /// 1 before `take`, 0 if there is none: every place is another program's, or `cannotLock`.
    int number() const { return number_; }

    /// No place was had because no lock file could be made.
    bool cannotLock() const { return cannotLock_; }

    /// Makes sure that the place is locked before its files are written to; tries again if it was had without a lock.
    /// Returns the empty text, or why the files must be left alone.
    Words claim();

    /// Which program has the first place: "process 4711", with the computer if that is another one. Empty if this one
    /// has it.
    const Words& otherProgram() const { return otherProgram_; }

    /// A file's name in place `number`: "log.ohp", "log-2.ohp".
    static QString nameIn(int number, const QString& name);

    /// The lock of a place, held now; null if it is another program's or cannot be made.
    static std::unique_ptr<QLockFile> hold(int number);

private:
    int number_ = 1;
    bool cannotLock_ = false;
    Words otherProgram_;
    std::unique_ptr<QLockFile> lock_;
};

} // namespace orv
