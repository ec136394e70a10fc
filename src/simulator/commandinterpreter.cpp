// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/commandinterpreter.h"

#include <algorithm>
#include <array>

namespace orv {

namespace {

struct Preset {
    qint64 samples;
    qint64 milliseconds;
};

constexpr std::array<Preset, 4> trxPresets{{{10, 500}, {30, 1000}, {100, 2000}, {210, 4000}}};
constexpr std::array<Preset, 4> glowPresets{{{25, 200}, {55, 333}, {90, 500}, {200, 1000}}};

const std::array<Preset, 4>& presetsOf(InstrumentKind kind) {
    return kind == InstrumentKind::Trx ? trxPresets : glowPresets;
}

QByteArray reportLine(const char* tag, qsizetype value) {
    return tag + QByteArray::number(value) + "\r\n";
}

} // namespace

InstrumentSettings InstrumentSettings::initial(const SimulatorOptions& options) {
    InstrumentSettings settings;
    settings.samplesPerPoint = static_cast<int>(presetsOf(options.kind).front().samples);
    settings.pointsPerBlock = options.pointsPerBlock;
    return settings;
}

void InstrumentSettings::setFlags(const QByteArray& bits) {
    const std::array flags{&autoStart, &gain, &auxAdc, &logEnabled, &wakeUp, &append};
    qsizetype position = 0;
    for (bool* flag : flags) {
        *flag = bits.at(position) == '1';
        ++position;
    }
}

int* InstrumentSettings::number(char letter) {
    switch (letter) {
    case 'T':
        return &samplesPerPoint;
    case 'D':
        return &hoursBeforeBlock;
    case 'Q':
        return &pointsPerBlock;
    case 'I':
        return &secondsBetweenPoints;
    default:
        return nullptr;
    }
}

QByteArray InstrumentSettings::report(qsizetype memoryPointer) const {
    const auto flag = [](const char* tag, bool value) { return reportLine(tag, value ? 1 : 0); };
    return flag("S", autoStart) + flag("G", gain) + flag("A", auxAdc) + flag("L", logEnabled) + flag("W", wakeUp) +
           flag("M", append) + reportLine("T", samplesPerPoint) + reportLine("D", hoursBeforeBlock) +
           reportLine("Q", pointsPerBlock) + reportLine("I", secondsBetweenPoints) + reportLine("MP", memoryPointer);
}

bool InstrumentSettings::allowShutter() const {
    InstrumentSettings required;
    required.wakeUp = false;
    required.append = false;
    required.samplesPerPoint = 1;
    required.pointsPerBlock = 1;
    return *this == required;
}

qint64 InstrumentSettings::samplingMilliseconds(InstrumentKind kind) const {
    const qint64 samples = std::max(samplesPerPoint, 1);
    Preset below{0, 0};
    for (const Preset& preset : presetsOf(kind)) {
        if (samples <= preset.samples) {
            return std::max<qint64>(1, below.milliseconds + (samples - below.samples) *
                                                                (preset.milliseconds - below.milliseconds) /
                                                                (preset.samples - below.samples));
        }
        below = preset;
    }
    return samples * below.milliseconds / below.samples;
}

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
