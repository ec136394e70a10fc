// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

} // namespace orv
