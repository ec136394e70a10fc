// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/captureformat.h"
#include "fuzzing/fuzzing.h"

namespace orv::fuzzing {

void capture(Input input) {
    const CaptureContents read = readCapture(input.rest());
    if (!read.error.isEmpty()) {
        require(read.error.endsWith(u'.') && read.entries.empty() && read.header.isEmpty(),
                "a refused capture has contents");
        return;
    }
    require(read.began.isValid(), "nobody knows when a capture began");
    // What was read, written and read again is the same.
    QByteArray written = captureHeader(read.began, read.header);
    qint64 last = 0;
    for (const CaptureEntry& entry : read.entries) {
        require(entry.milliseconds >= last && entry.kind != CaptureKind::Other, "an entry is out of order");
        last = entry.milliseconds;
        const bool isOfBytes = entry.kind == CaptureKind::Sent || entry.kind == CaptureKind::Received ||
                               entry.kind == CaptureKind::Discarded;
        written += isOfBytes ? captureLine(entry.milliseconds, entry.kind, entry.bytes)
                             : captureLine(entry.milliseconds, entry.kind, entry.value);
    }
    const CaptureContents again = readCapture(written);
    require(again.error.isEmpty() && !again.isCutOff, "a capture cannot be read again",
            [&again] { return again.error; });
    require(again.began == read.began, "a capture began at another time");
    require(again.entries.size() == read.entries.size(), "a capture has other entries");
    for (std::size_t at = 0; at < read.entries.size(); ++at) {
        const CaptureEntry& entry = read.entries[at];
        const CaptureEntry& other = again.entries[at];
        require(entry.milliseconds == other.milliseconds && entry.kind == other.kind && entry.bytes == other.bytes &&
                    entry.value == other.value,
                "an entry is another");
    }
}

} // namespace orv::fuzzing
