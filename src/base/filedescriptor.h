// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace orv {

/// Owns an open file descriptor; -1 is none.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1)
        : descriptor_(descriptor) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { reset(); }

    /// Closes what it owns and takes another.
    void reset(int descriptor = -1) {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
        descriptor_ = descriptor;
    }

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }

private:
    int descriptor_;
};

/// For the start of a program. Whatever it opened first would take the place of a standard input, output or error that
/// it was started without, and be written to as one. Standard output then takes nothing, as if its reader had gone.
inline void fillStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) == -1 && errno == EBADF) {
            static_cast<void>(
                ::open("/dev/null", descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY)); // the lowest free
        }
    }
}

} // namespace orv
