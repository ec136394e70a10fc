// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "settings/loggersettings.h"

#include <array>

namespace orv {

/// What the instrument will do under some settings, in plain sentences.
struct PlainEnglish {
    enum Line { Opening, Run, Binning, Sleep, Wake, Block, Logging, EndOfBlock, NextBlock };
    static constexpr std::size_t lineCount = 9;

    std::array<Words, lineCount> lines; ///< In the order of `Line`; some are empty under some settings.
    bool finiteBlock = false;           ///< A block ends by itself, so there is something to say of its end.
};

/// Describes the settings in the record. Numbers keep the blank of their sign position, so that double blanks stand in
/// the sentences.
PlainEnglish inPlainEnglish(const LoggerSettings& record);

} // namespace orv
