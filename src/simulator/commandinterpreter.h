// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/instrumentclock.h"
#include "simulator/instrumentmemory.h"
#include "simulator/instrumentsettings.h"

#include <optional>

namespace orv {

/// What the instrument sets about once it has answered.
enum class Deed { Wait, Run, Dump, MoveShutter };

/// What follows the echo of a command or value. It ends with the prompt unless a deed follows.
struct CommandReply {
    QByteArray text;
    Deed deed = Deed::Wait;
};

/// Understands what the host types, and keeps what it sets.
///
/// A reply begins on a new line, except those that belong to a value: "B", "T", "D", "Q", "I" and "U" are answered with
/// ".", their values with ">", right behind the echo.
class CommandInterpreter {
public:
    /// What is handed in is changed as the host commands, and must live longer than this.
    CommandInterpreter(InstrumentSettings& settings, InstrumentClock& clock, const InstrumentMemory& memory);

    /// Forgets a value that is being entered.
    void reset();

    /// Takes one character. Returns the reply, or nothing if a value needs more characters. A character that does not
    /// belong into a value is passed over.
    std::optional<CommandReply> take(char character, qint64 monotonicMilliseconds);

private:
    enum class Entry { Command, Flags, Number, Date, Time };

    CommandReply command(char letter, qint64 monotonicMilliseconds);
    CommandReply ask(Entry entry);
    CommandReply finish();
    std::optional<CommandReply> takeFlag(char character);
    std::optional<CommandReply> takeNumber(char character);
    std::optional<CommandReply> takeDate(char character);
    std::optional<CommandReply> takeTime(char character, qint64 monotonicMilliseconds);

    InstrumentSettings& settings_;
    InstrumentClock& clock_;
    const InstrumentMemory& memory_;
    Entry entry_ = Entry::Command;
    int* number_ = nullptr; ///< the setting that Entry::Number writes
    int value_ = 0;
    QByteArray digits_;
    QByteArray date_;
};

} // namespace orv
