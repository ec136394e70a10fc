// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/commandinterpreter.h"

#include <algorithm>

namespace orv {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

} // namespace

CommandInterpreter::CommandInterpreter(InstrumentSettings& settings, InstrumentClock& clock,
                                       const InstrumentMemory& memory)
    : settings_(settings)
    , clock_(clock)
    , memory_(memory) {}

void CommandInterpreter::reset() {
    entry_ = Entry::Command;
    digits_.clear();
}

std::optional<CommandReply> CommandInterpreter::take(char character, qint64 monotonicMilliseconds) {
    switch (entry_) {
    case Entry::Command:
        return command(character, monotonicMilliseconds);
    case Entry::Flags:
        return takeFlag(character);
    case Entry::Number:
        return takeNumber(character);
    case Entry::Date:
        return takeDate(character);
    case Entry::Time:
        return takeTime(character, monotonicMilliseconds);
    }
    return std::nullopt;
}

CommandReply CommandInterpreter::command(char letter, qint64 monotonicMilliseconds) {
    switch (letter) {
    case 'B':
        return ask(Entry::Flags);
    case 'T':
    case 'D':
    case 'Q':
    case 'I':
        number_ = settings_.number(letter);
        value_ = 0;
        return ask(Entry::Number);
    case 'U':
        return ask(Entry::Date);
    case 'P':
        return {"\r\n" + settings_.report(memory_.count()) + '>'};
    case 'C':
        return {"\r\n" + clock_.at(monotonicMilliseconds).text() + "\r\n>"};
    case 'R':
        return {"\r\n", Deed::Run};
    case 'O':
        return {"\r\n", Deed::Dump};
    case 'r':
        if (settings_.allowShutter()) {
            return {"\r\n", Deed::MoveShutter};
        }
        return {"\r\n>"};
    default:
        return {"\r\n>"};
    }
}

CommandReply CommandInterpreter::ask(Entry entry) {
    entry_ = entry;
    digits_.clear();
    return {"."};
}

CommandReply CommandInterpreter::finish() {
    reset();
    return {">"};
}

std::optional<CommandReply> CommandInterpreter::takeFlag(char character) {
    constexpr qsizetype flags = 6;
    if (character != '0' && character != '1') {
        return std::nullopt;
    }
    digits_ += character;
    if (digits_.size() < flags) {
        return std::nullopt;
    }
    settings_.setFlags(digits_);
    return finish();
}

std::optional<CommandReply> CommandInterpreter::takeNumber(char character) {
    constexpr int largest = 65535;
    if (character == '\r') {
        *number_ = value_;
        return finish();
    }
    if (isDigit(character)) {
        value_ = std::min(value_ * 10 + (character - '0'), largest);
    }
    return std::nullopt;
}

std::optional<CommandReply> CommandInterpreter::takeDate(char character) {
    constexpr qsizetype dateDigits = 6;
    if (isDigit(character)) {
        digits_ += character;
    }
    if (digits_.size() < dateDigits) {
        return std::nullopt;
    }
    date_ = digits_;
    return ask(Entry::Time);
}

std::optional<CommandReply> CommandInterpreter::takeTime(char character, qint64 monotonicMilliseconds) {
    constexpr qsizetype timeDigits = 4;
    if (isDigit(character)) {
        digits_ += character;
    }
    if (digits_.size() < timeDigits) {
        return std::nullopt;
    }
    clock_.set(date_, digits_, monotonicMilliseconds);
    return finish();
}

} // namespace orv
