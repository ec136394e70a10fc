// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <span>

namespace orv {

/// A kind of sentence with which the operator is told that something went wrong.
struct Telling {
    const char* key;    ///< In the table.
    const char* words;  ///< With which it begins; "..." stands for anything.
    const char* advice; ///< The words in it that say what to do; none if another sentence beside it does.
};

std::span<const Telling> allTellings();

/// The telling that a sentence is; null for one of those that come although nothing is wrong. The test fails if it is
/// neither, or without its advice.
const Telling* tellingOf(const QString& sentence);

/// A box that comes once for each of several attempts of one procedure.
bool mayBeToldAgain(const QString& sentence);

} // namespace orv
