// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "simulator/commandinterpreter.h"
#include "simulator/simulatoroptions.h"

#include <QByteArray>

#include <optional>

namespace orv {

/// How often a serial adapter hands over what has come, in milliseconds: every character by itself would wake the host
/// 960 times a second, which no adapter does.
inline constexpr qint64 handOverInterval = 8;

/// The line from the instrument to the host: what is sent arrives at the pace of the line, ten bits a character.
///
/// Time is counted in ticks, a whole number of which make a millisecond and a character, so that no rounding adds up.
/// Every call takes a time that is not before the one of the call before it.
class TransmitLine {
public:
    /// `baud` 0: every character arrives at the moment it is sent.
    explicit TransmitLine(int baud);

    qint64 ticksPerMillisecond() const { return ticksPerMillisecond_; }

    /// Queues bytes after those still on their way.
    void send(const QByteArray& bytes, qint64 now);

    /// Moves what has arrived by now to the host's end.
    void advance(qint64 now);

    /// Drops what has not arrived by now.
    void abandon(qint64 now);

    /// When everything sent so far will have arrived; in the past if it has.
    qint64 drainedAt() const { return drainedAt_; }

    /// When the next character arrives; nothing if none is on its way.
    std::optional<qint64> nextArrival() const;

    qsizetype arrivedCount() const { return arrived_.size(); }

    /// Removes and returns what has arrived.
    QByteArray takeArrived();

private:
    qint64 ticksPerMillisecond_;
    qint64 ticksPerCharacter_;
    qint64 drainedAt_ = 0;
    QByteArray queued_;
    QByteArray arrived_;
};

/// The instrument's side of the serial protocol.
///
/// It has no thread and no timer: every call first plays what has happened up to the clock's present millisecond. While
/// 64 KB wait to be taken it stands still, so that a host that does not read costs no memory; with `baud` 0 a dump
/// therefore comes in pieces of that size, the next one as soon as the one before is taken.
///
/// It is asleep, and deaf, until it is woken. It then greets and obeys commands. What it is sent while it greets, runs,
/// dumps or moves its shutter is neither echoed nor obeyed. Settings, clock and memory stay when it sleeps.
class SimulatedInstrument {
public:
    /// Milliseconds from being woken to the greeting (a late instrument's delay comes on top), so that a host that
    /// discards its input after the wake-up pulse does not lose the greeting.
    static constexpr qint64 wakeUpMilliseconds = 100;

    /// `clock` must live longer than this. The instrument's own clock starts at the computer's date and time.
    SimulatedInstrument(const SimulatorOptions& options, const Clock& clock);

    SimulatedInstrument(const SimulatedInstrument&) = delete;
    SimulatedInstrument& operator=(const SimulatedInstrument&) = delete;
    ~SimulatedInstrument() = default;

    /// The DTR line. Raised and then dropped it wakes the instrument.
    void setWakeLine(bool raised);

    /// Stops whatever the instrument is doing and lets it greet.
    void wake();

    /// Stops whatever the instrument is doing, drops what has not been taken, and sleeps.
    void sleep();

    /// Characters from the host. Returns false if the instrument is asleep or has not greeted yet.
    bool receive(const QByteArray& characters);

    /// How many characters have arrived at the host, at most about 64 KB.
    qsizetype arrivedCount();

    /// Removes and returns them.
    QByteArray takeArrived();

    /// Drops all that have arrived by now.
    void discardArrived();

    /// Monotonic milliseconds at which something next happens by itself, as far as is known now; in the past if there
    /// is something to take. Nothing if it is up to the host.
    std::optional<qint64> nextChange();

    /// Whether the line has failed; it stays so until plugIn().
    bool isUnplugged();

    /// Makes the line whole again.
    void plugIn() { unplugged_ = false; }

private:
    enum class Activity { Asleep, WakingUp, Ready, Answering, Running, Dumping, MovingShutter };

    qint64 ticks(qint64 milliseconds) const { return milliseconds * line_.ticksPerMillisecond(); }
    qint64 ticksNow() const { return ticks(clock_.monotonicMilliseconds() - origin_); }
    qint64 monotonicTime() const { return origin_ + time_ / line_.ticksPerMillisecond(); }

    void advance();
    void stop(); ///< Drops what is on its way and what would have come.
    std::optional<qint64> nextEvent() const;
    void handleEvent();
    void strike();
    void greet();
    void takeCharacter(char character);
    void takeHeldInput();
    void perform(const CommandReply& reply);
    void startRun();
    void sendPoint();
    void sendRecord();
    bool sendCollectionLine(const QByteArray& line);
    void send(const QByteArray& bytes);
    QByteArray noise();

    const SimulatorOptions options_;
    const Clock& clock_;
    const qint64 origin_; ///< monotonic milliseconds at tick 0
    TransmitLine line_;
    InstrumentClock instrumentClock_;
    InstrumentSettings settings_;
    InstrumentMemory memory_;
    CommandInterpreter interpreter_;
    FaultStrike fault_;

    // All times are ticks.
    qint64 time_ = 0; ///< up to which everything has been played
    Activity activity_ = Activity::Asleep;
    qint64 activityDue_ = 0; ///< when the greeting, the answer, the next point or the shutter's end is due
    std::optional<qint64> strikeAt_;
    bool wakeLine_ = false;
    bool unplugged_ = false;

    QByteArray heldInput_; ///< what came while a late answer was due
    CommandReply lateReply_;

    qint64 pointPeriod_ = 0;          ///< whole ticks from one point to the next
    qint64 pointPeriodRemainder_ = 0; ///< and so many more of `pointPeriodParts_`
    qint64 pointPeriodParts_ = 1;
    qint64 pointRemainder_ = 0; ///< what these remainders have added up to
    quint32 pointNumber_;
    qsizetype linesSent_ = 0; ///< of this run or dump
    quint64 random_;          ///< what garbage and noise follow from; counts them
};

} // namespace orv
