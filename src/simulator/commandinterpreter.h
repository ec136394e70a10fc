// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/instrumentmemory.h"
#include "simulator/simulatoroptions.h"

#include <QByteArray>

#include <optional>

namespace orv {

/// The logger settings as the instrument keeps them.
struct InstrumentSettings {
    /// Those of an instrument that nobody has changed: flags 0 but `wakeUp` and `append`; the samples per point of its
    /// fastest preset (TRX 10, GLOW 25); no delays; `pointsPerBlock` as in the options.
    static InstrumentSettings initial(const SimulatorOptions& options);

    bool autoStart = false; ///< only kept: a simulated instrument never loses its power
    bool gain = false;
    bool auxAdc = false;
    bool logEnabled = false;
    bool wakeUp = true; ///< only kept: after a block the simulated instrument stays awake in any case
    bool append = true;
    int samplesPerPoint = 0;
    int hoursBeforeBlock = 0;
    int pointsPerBlock = 0;
    int secondsBetweenPoints = 0;

    bool operator==(const InstrumentSettings&) const = default;

    /// Takes the six flags from six characters "0" or "1", in the order in which they are declared here.
    void setFlags(const QByteArray& bits);

    /// The number that the command `letter` ("T", "D", "Q" or "I") sets; nothing for any other letter.
    int* number(char letter);

    /// The report: one line for each setting, ended by CR LF, the memory pointer last.
    QByteArray report(qsizetype memoryPointer) const;

    /// Whether they are the ones under which the shutter moves: flags 0, no delays, one sample, one point.
    bool allowShutter() const;

    /// Time that the samples of one point take. The presets give their rates (TRX 10, 30, 100, 210 samples: 2, 1, 1/2,
    /// 1/4 points a second; GLOW 25, 55, 90, 200 samples: 5, 3, 2, 1), other numbers what lies between; 0 counts as 1.
    qint64 samplingMilliseconds(InstrumentKind kind) const;
};

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
/// ".", their values with ">", right after the echo.
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
