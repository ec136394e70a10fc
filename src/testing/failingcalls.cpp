// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/failingcalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <map>
#include <set>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace orv::failingcalls {

std::function<void()> beforeDeath;

namespace {

using Id = int; ///< A file, whatever its name; the system gives the number of one that is gone to another.

struct State {
    Plan plan;
    std::string folder;
    bool active = false;
    int calls = 0;
    std::vector<std::string> made;
    std::vector<std::string> failed;
    std::string lockedName;
    std::map<int, std::string> open;       ///< Descriptors of files of the folder, and their names.
    std::map<ino_t, Id> ids;               ///< Of the files that exist.
    std::map<Id, std::string> synced;      ///< What they held when they were synced last.
    std::map<std::string, Id> syncedNames; ///< The folder when it was synced last.
    Id nextId = 1;
};

State& state() {
    static State instance;
    return instance;
}

/// The system's own function of that name.
template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int realOpen(const char* path, int flags, mode_t mode = 0) {
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags | O_CLOEXEC, mode));
}

/// The file's name if it is one of the folder; empty: it is none of ours.
std::string nameOf(const char* path) {
    const State& now = state();
    const std::string given(path);
    if (!now.active || given.empty()) {
        return {};
    }
    if (given.front() != '/') {
        return given.starts_with("./") ? given.substr(2) : given;
    }
    return given.starts_with(now.folder + '/') ? given.substr(now.folder.size() + 1)
           : given == now.folder               ? std::string(".")
                                               : std::string();
}

std::string contents(const char* path) {
    std::string bytes;
    const int file = realOpen(path, O_RDONLY);
    char buffer[65536];
    ssize_t size = 0;
    while (file >= 0 && (size = ::read(file, buffer, sizeof buffer)) > 0) {
        bytes.append(buffer, static_cast<std::size_t>(size));
    }
    if (file >= 0) {
        ::syscall(SYS_close, file);
    }
    return bytes;
}

std::map<std::string, ino_t> names() {
    std::map<std::string, ino_t> found;
    DIR* folder = ::opendir(state().folder.c_str());
    while (const dirent* entry = folder != nullptr ? ::readdir(folder) : nullptr) {
        if (entry->d_type == DT_REG) {
            found[entry->d_name] = entry->d_ino;
        }
    }
    if (folder != nullptr) {
        ::closedir(folder);
    }
    return found;
}

Id idOf(ino_t inode) {
    State& now = state();
    auto known = now.ids.find(inode);
    if (known == now.ids.end()) {
        known = now.ids.emplace(inode, now.nextId++).first;
    }
    return known->second;
}

void noteSynced(int descriptor) {
    struct stat info {};
    if (::fstat(descriptor, &info) != 0) {
        return;
    }
    State& now = state();
    if (S_ISDIR(info.st_mode)) {
        now.syncedNames.clear();
        for (const auto& [name, inode] : names()) {
            now.syncedNames[name] = idOf(inode);
        }
    } else {
        now.synced[idOf(info.st_ino)] = contents(("/proc/self/fd/" + std::to_string(descriptor)).c_str());
    }
}

void put(const std::string& name, const std::string& bytes) {
    const int file = realOpen((state().folder + '/' + name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ::syscall(SYS_write, file, bytes.data(), bytes.size());
    ::syscall(SYS_close, file);
}

/// Leaves the folder as a power failure does.
void loseWhatIsNotSynced() {
    State& now = state();
    std::map<std::string, Id> left = now.syncedNames;
    if (now.plan.namesSurvive) {
        left.clear();
        for (const auto& [name, inode] : names()) {
            left[name] = idOf(inode);
        }
    }
    for (const auto& [name, inode] : names()) {
        ::syscall(SYS_unlinkat, AT_FDCWD, (now.folder + '/' + name).c_str(), 0);
    }
    for (const auto& [name, id] : left) {
        put(name, now.synced[id]);
    }
}

[[noreturn]] void die() {
    State& now = state();
    if (beforeDeath) {
        beforeDeath();
    }
    if (now.plan.then == Plan::Then::PowerCut) {
        loseWhatIsNotSynced();
    }
    ::kill(::getpid(), SIGKILL);
    while (true) {
        ::pause();
    }
}

/// Counts a call. Returns whether it fails, with errno set. `needsRoom`: it would make or lengthen a file.
bool fails(const char* call, const std::string& name, bool needsRoom) {
    State& now = state();
    if (!now.active || name.empty()) {
        return false;
    }
    ++now.calls;
    now.made.push_back(std::string(call) + ' ' + name);
    const bool isDue = now.calls == now.plan.at;
    if (isDue && now.plan.then == Plan::Then::Happen) {
        now.active = false; // what happens is none of the program's calls
        const int error = errno;
        now.plan.happen();
        errno = error;
        now.active = true;
        return false;
    }
    if (isDue && now.plan.then == Plan::Then::Locked) {
        now.lockedName = name;
    }
    const bool goesOn = (now.plan.then == Plan::Then::FailOn && now.calls > now.plan.at && needsRoom) ||
                        (now.plan.then == Plan::Then::Locked && name == now.lockedName);
    if (!isDue && !goesOn) {
        return false;
    }
    if (now.plan.then == Plan::Then::Kill || now.plan.then == Plan::Then::PowerCut) {
        die();
    }
    now.failed.push_back(now.made.back());
    errno = now.plan.error;
    return true;
}

/// Whether the next call is a write of which a half succeeds.
bool halfIsDue() {
    const State& now = state();
    const bool isWhole = now.plan.then == Plan::Then::Locked || now.plan.then == Plan::Then::Happen;
    return now.active && !isWhole && now.calls + 1 == now.plan.at;
}

std::string openName(int descriptor) {
    const auto found = state().open.find(descriptor);
    return state().active && found != state().open.end() ? found->second : std::string();
}

} // namespace

void start(const std::string& folder, const Plan& plan) {
    State& now = state();
    now = State();
    now.folder = folder;
    now.plan = plan;
    if (plan.then == Plan::Then::PowerCut) {
        // What is there before is on the disk.
        for (const auto& [name, inode] : names()) {
            now.syncedNames[name] = idOf(inode);
            now.synced[idOf(inode)] = contents((folder + '/' + name).c_str());
        }
    }
    now.active = true;
}

void follow(const Plan& plan) {
    State& now = state();
    now.plan = plan;
    now.calls = 0;
    now.made.clear();
    now.failed.clear();
}

int stop() {
    state().active = false;
    return state().calls;
}

const std::vector<std::string>& made() {
    return state().made;
}

const std::vector<std::string>& failed() {
    return state().failed;
}

namespace {

int openCall(const char* path, int flags, mode_t mode) {
    std::string name = nameOf(path);
    const bool nameless = (flags & O_TMPFILE) == O_TMPFILE;
    const bool mayMake = nameless || (flags & O_CREAT) != 0;
    const bool reads = (flags & O_ACCMODE) == O_RDONLY;
    if (!name.empty() && (flags & O_DIRECTORY) != 0) {
        name = nameless ? "new file" : "folder";
    }
    if (fails(reads ? "read" : "open", name, mayMake)) {
        return -1;
    }
    struct stat before {};
    const bool wasThere = !name.empty() && ::stat(path, &before) == 0 && S_ISREG(before.st_mode);
    const int descriptor = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    if (!name.empty() && descriptor >= 0) {
        state().open[descriptor] = name;
        struct stat made {};
        if (!wasThere && mayMake && ::fstat(descriptor, &made) == 0) {
            state().ids.erase(made.st_ino);
        }
    }
    return descriptor;
}

template <typename Function, typename... Arguments>
int onNames(const char* call, bool needsRoom, const char* path, Function* function, Arguments... arguments) {
    return fails(call, nameOf(path), needsRoom) ? -1 : function(arguments...);
}

/// The disk itself would take its time, and nobody asks it here.
int syncCall(const char* call, int descriptor) {
    if (fails(call, openName(descriptor), true)) {
        return -1;
    }
    if (!openName(descriptor).empty() && state().plan.then == Plan::Then::PowerCut) {
        noteSynced(descriptor);
    }
    return 0;
}

} // namespace

} // namespace orv::failingcalls

namespace failing = orv::failingcalls;

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>(va_arg(rest, int));
    va_end(rest);
    return failing::openCall(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>(va_arg(rest, int));
    va_end(rest);
    return failing::openCall(path, flags, mode);
}

int close(int descriptor) {
    failing::state().open.erase(descriptor);
    return static_cast<int>(::syscall(SYS_close, descriptor));
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
    const std::string name = failing::openName(descriptor);
    if (!name.empty() && failing::halfIsDue()) {
        ::syscall(SYS_write, descriptor, bytes, size / 2);
    }
    return failing::fails("write", name, true) ? -1 : ::syscall(SYS_write, descriptor, bytes, size);
}

int fsync(int descriptor) {
    return failing::syncCall("fsync", descriptor);
}

int fdatasync(int descriptor) {
    return failing::syncCall("fsync", descriptor);
}

int rename(const char* from, const char* to) noexcept {
    return failing::onNames("rename", false, to, failing::real<int(const char*, const char*)>("rename"), from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags) noexcept {
    return failing::onNames("rename", false, to,
                            failing::real<int(int, const char*, int, const char*, unsigned int)>("renameat2"),
                            fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    return failing::onNames("link", true, to, failing::real<int(const char*, const char*)>("link"), from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return failing::onNames("link", true, to, failing::real<int(int, const char*, int, const char*, int)>("linkat"),
                            fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) noexcept {
    return failing::onNames("unlink", false, path, failing::real<int(const char*)>("unlink"), path);
}

int ftruncate(int descriptor, off_t size) noexcept {
    return failing::fails("ftruncate", failing::openName(descriptor), false)
               ? -1
               : static_cast<int>(::syscall(SYS_ftruncate, descriptor, size));
}

int ftruncate64(int descriptor, off64_t size) noexcept {
    return ::ftruncate(descriptor, size);
}
}
