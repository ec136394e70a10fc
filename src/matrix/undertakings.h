// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "matrix/matrixbench.h"

#include <span>

namespace orv {

/// Something that the operator does with the program.
struct Undertaking {
    const char* name;
    void (*prepare)(MatrixBench& bench); ///< What is done before, when nothing goes wrong yet.
    void (*begin)(MatrixBench& bench);
    bool (*isDone)(const MatrixBench& bench); ///< Once it is over: whether nothing of it is missing.
    bool usesLine = true;
    bool greets = false; ///< The instrument's greeting is awaited.
    /// Each row that has come whole is taken, whatever files or clocks do.
    bool takesEveryRow = false;
    /// Its rows are in the instrument's memory all the same, so that a program that is killed may lose them.
    bool canBeRepeated = false;
    bool isCommand = false;               ///< Of `orv`.
    const char* recordedBefore = nullptr; ///< Rows in the record file of a run that did not end.
};

inline void PrintTo(const Undertaking& undertaking, std::ostream* out) {
    *out << undertaking.name;
}

/// All that are tried, in the order of their rows.
std::span<const Undertaking> allUndertakings();

} // namespace orv
