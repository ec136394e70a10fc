// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "matrix/matrixbench.h"
#include "testing/failingcalls.h"

#include <random>
#include <span>

namespace orv {

/// Something that goes wrong outside the program.
struct Fault {
    /// Where it strikes.
    enum class At {
        Byte,       ///< A byte that the instrument sends.
        Greeting,   ///< The first byte of its greeting.
        Call,       ///< A call on a file.
        ByteOrCall, ///< A byte, or a call on a file where nothing comes over the line.
    };
    /// What becomes of the program.
    enum class Then {
        GoesOn,
        Ends,    ///< As it wants.
        IsKilled ///< On the spot.
    };

    const char* name;
    At at;
    FaultyLine::Way way; ///< Without the line's share in time a pseudo-terminal is real enough.
    void (*strike)(MatrixBench& bench, std::minstd_rand& random);
    /// Not `strike` but this is what a call on a file does.
    failingcalls::Plan::Then call = failingcalls::Plan::Then::Happen;
    int error = 0;
    Then then = Then::GoesOn;
    bool needsProcess = false; ///< The program is a process of its own.
    bool removesFolder = false;
    bool setsClock = false;
    bool isLoud = false; ///< What comes is not what was sent.
};

/// All that are tried, in the order of their columns.
std::span<const Fault> allFaults();

/// The folder is as it was again.
void mendFolder(const QString& folder);

} // namespace orv
