// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"

#include <QString>

#include <optional>

namespace orv {

enum class InstrumentKind { Trx, Glow };

/// What a simulated instrument does wrong.
enum class SimulatedFault {
    None,
    Silent,  ///< never sends anything
    Late,    ///< greets and answers `delayMilliseconds` late; echoes are not late
    Garbage, ///< random bytes stand between the bytes that it sends
    Cut,     ///< goes dead at `faultPoint`, until its next wake-up; strikes once in the instrument's life
    Unplug,  ///< its line fails at `faultPoint`, until the port is opened again; strikes once
    NoCr,    ///< greets without the CR
    Noise    ///< noise bytes, never a character of the protocol, stand before its greeting and some data lines
};

/// Where a cut or an unplugging strikes.
struct FaultPoint {
    enum class Unit {
        Bytes,       ///< after so many bytes of a dump's or run's lines
        Percent,     ///< in the middle of the line that follows this share of a dump's records or a block's points
        Milliseconds ///< so long after a greeting is due, whatever the instrument is doing
    };
    Unit unit = Unit::Percent;
    qint64 amount = 50;

    bool operator==(const FaultPoint&) const = default;
};

/// How a simulated instrument is made. The device text is "sim:trx" or "sim:glow", then optionally "?" and options
/// "name=value" joined by "&", each at most once:
///
///     firmware=0..99999      version that it greets with; default 512 (trx), 310 (glow)
///     baud=0..1000000        pace of its output, ten bits a character; 0 = everything at once; default 9600
///     rate=0.001..1000       data lines a second; default: as its samples per point say (see InstrumentSettings)
///     records=0..65525       records in its memory at the start; default 200
///     points=0..65535        points of a block, 0 = a run has no end; default 0
///     erased=0..1000000      lines "65535" for erased memory, sent after the records of a dump; default 0
///     end=eof|0              last line of a dump, "EOF" or "0"; default eof
///     shutter=0..3600        seconds that its shutter moves; default 31
///     seed=0..4294967295     its readings, its garbage and its noise follow from this number; default 1
///     fault=none|silent|late|garbage|cut|unplug|nocr|noise   see SimulatedFault; default none
///     delay=0..3600          seconds; only with fault=late; default 3
///     after=BYTES|N%|Nms     only with fault=cut and fault=unplug, see FaultPoint; default 50%. A run without end
///                            counts as one of 100 points
///
/// `rate`, `shutter` and `delay` may have up to three decimals.
struct SimulatorOptions {
    InstrumentKind kind = InstrumentKind::Trx;
    int firmware = 512;
    int baud = 9600;
    std::optional<qint64> linesPerThousandSeconds;
    int records = 200;
    int pointsPerBlock = 0;
    int erasedRecords = 0;
    bool dumpEndsWithZero = false;
    qint64 shutterMilliseconds = 31000;
    quint32 seed = 1;
    SimulatedFault fault = SimulatedFault::None;
    qint64 delayMilliseconds = 3000;
    FaultPoint faultPoint;

    bool operator==(const SimulatorOptions&) const = default;
};

/// The options of a device text, or why it has none.
struct ParsedSimulatorOptions {
    SimulatorOptions options;
    Words error; ///< empty, or what is wrong and what is allowed, in whole sentences
};

/// Whether a device text names a simulated instrument (begins with "sim:"), well formed or not.
bool namesSimulator(const QString& device);

ParsedSimulatorOptions parseSimulatorOptions(const QString& device);

/// Decides where a cut or an unplugging strikes. With any other fault, and once it has struck, it never does.
class FaultStrike {
public:
    explicit FaultStrike(const SimulatorOptions& options);

    /// A dump or run of so many data lines begins.
    void beginCollection(qsizetype lines);

    /// How many bytes of the next line go out; fewer than its size if the fault strikes in it.
    qsizetype allowance(qsizetype lineSize);

    /// How long after the greeting it strikes, if it goes by time.
    std::optional<qint64> millisecondsAfterGreeting() const;

    /// It has struck.
    void disarm() { armed_ = false; }

private:
    FaultPoint point_;
    bool armed_;
    qsizetype lineToStrike_ = 0;
    qsizetype linesPassed_ = 0;
    qsizetype bytesLeft_ = 0;
};

} // namespace orv
