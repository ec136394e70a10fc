// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orv::failingcalls {

/// The calls by which a program changes what is on a disk go through this library: those on one folder can be made to
/// fail, and the process to die at one of them as in a crash or in a power failure. Only for the test programs that it
/// is linked to, whose own calls of these names come before the system's. One thread.
///
/// Counted are open, write, fsync, fdatasync, rename, link, unlink and ftruncate in all their forms; of files that are
/// opened for reading only the opening.
///
/// What a power failure leaves: of a file, what it held when it was synced last; nothing if it never was. Of a folder,
/// with `namesSurvive` the names as they were; else those it had when the folder itself was synced last, which is the
/// least that the system promises.
struct Plan {
    enum class Then {
        Fail,     ///< The call fails; a write may have written a half of its bytes before.
        FailOn,   ///< It and every call that makes or lengthens a file from then on, until stop().
        Kill,     ///< The process is killed before the call; of a write a half has been written.
        PowerCut, ///< The same, and what was not synced is lost.
        Locked,   ///< It and every later call on the file of that name, until stop().
        Happen,   ///< `happen` is called before it; it and all others succeed.
    };
    int at = 0; ///< The call, from 1.
    Then then = Then::Fail;
    int error = 0; ///< As errno has it.
    bool namesSurvive = false;
    std::function<void()> happen = {};
};

/// From now on the plan holds for the calls on files of this folder, which is the working directory.
void start(const std::string& folder, const Plan& plan);
/// Another plan for the same folder, which counts anew; the files that have been opened since start() are known.
void follow(const Plan& plan);
/// Calls succeed again. Returns how many there were.
int stop();

/// The calls since start(), in the form of failed().
const std::vector<std::string>& made();

/// The calls that failed: "write log.ohp"; to open a file for reading is "read", a file that is to get its name later
/// is the "new file".
const std::vector<std::string>& failed();

/// Called before the process dies.
extern std::function<void()> beforeDeath;

} // namespace orv::failingcalls
