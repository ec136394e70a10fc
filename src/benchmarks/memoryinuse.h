// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>

#include <malloc.h>
#include <unistd.h>

namespace orv {

inline constexpr double bytesPerMegabyte = 1e6;

/// Megabytes that this process has allocated.
inline double allocatedMegabytes() {
    const auto information = mallinfo2();
    return static_cast<double>(information.uordblks + information.hblkhd) / bytesPerMegabyte;
}

/// Megabytes of this process that are in memory, after free memory has been given back.
inline double residentMegabytes() {
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0.0;
    }
    return file.readAll().split(' ').value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) /
           bytesPerMegabyte;
}

} // namespace orv
