// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatedinstrument.h"

#include "simulator/instrumentmemory.h"

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr qsizetype arrivedLimit = 65536;

/// Ten bits; a second has a thousand times as many ticks as the line has bits.
constexpr qint64 ticksOfACharacter = 10'000;

/// Some garbage stands before one in so many bytes.
constexpr quint64 garbageInterval = 24;

/// Noise stands before one in so many data lines.
constexpr quint64 noiseInterval = 8;

qint64 delayOf(const SimulatorOptions& options) {
    return options.fault == SimulatedFault::Late ? options.delayMilliseconds : 0;
}

} // namespace

TransmitLine::TransmitLine(int baud)
    : ticksPerMillisecond_(baud == 0 ? 1 : baud)
    , ticksPerCharacter_(baud == 0 ? 0 : ticksOfACharacter) {}

void TransmitLine::send(const QByteArray& bytes, qint64 now) {
    advance(now);
    drainedAt_ = std::max(drainedAt_, now) + bytes.size() * ticksPerCharacter_;
    queued_ += bytes;
    advance(now);
}

void TransmitLine::advance(qint64 now) {
    const std::optional<qint64> next = nextArrival();
    if (!next || *next > now) {
        return;
    }
    qsizetype count = queued_.size();
    if (now < drainedAt_) {
        count = (now - *next) / ticksPerCharacter_ + 1;
    }
    arrived_ += queued_.left(count);
    queued_.remove(0, count);
}

void TransmitLine::abandon(qint64 now) {
    advance(now);
    queued_.clear();
    drainedAt_ = std::min(drainedAt_, now);
}

std::optional<qint64> TransmitLine::nextArrival() const {
    if (queued_.isEmpty()) {
        return std::nullopt;
    }
    return drainedAt_ - (queued_.size() - 1) * ticksPerCharacter_;
}

QByteArray TransmitLine::takeArrived() {
    return std::exchange(arrived_, {});
}

SimulatedInstrument::SimulatedInstrument(const SimulatorOptions& options, const Clock& clock)
    : options_(options)
    , clock_(clock)
    , origin_(clock.monotonicMilliseconds())
    , line_(options.baud)
    , instrumentClock_(clock.now(), origin_)
    , settings_(InstrumentSettings::initial(options))
    , memory_(options.records, instrumentClock_.at(origin_))
    , interpreter_(settings_, instrumentClock_, memory_)
    , fault_(options)
    , pointNumber_(static_cast<quint32>(options.records))
    , random_(options.seed) {}

void SimulatedInstrument::setWakeLine(bool raised) {
    const bool dropped = wakeLine_ && !raised;
    wakeLine_ = raised;
    if (dropped) {
        wake();
    }
}

void SimulatedInstrument::stop() {
    advance();
    time_ = ticksNow();
    line_.abandon(time_);
    strikeAt_.reset();
}

void SimulatedInstrument::wake() {
    stop();
    heldInput_.clear();
    interpreter_.reset();
    if (options_.fault == SimulatedFault::Silent || unplugged_) {
        activity_ = Activity::Asleep;
        return;
    }
    activity_ = Activity::WakingUp;
    activityDue_ = time_ + ticks(wakeUpMilliseconds + delayOf(options_));
}

void SimulatedInstrument::sleep() {
    stop();
    line_.takeArrived();
    activity_ = Activity::Asleep;
    wakeLine_ = false;
}

bool SimulatedInstrument::receive(const QByteArray& characters) {
    advance();
    if (activity_ == Activity::Asleep || activity_ == Activity::WakingUp) {
        return false;
    }
    for (const char character : characters) {
        takeCharacter(character);
    }
    return true;
}

qsizetype SimulatedInstrument::arrivedCount() {
    advance();
    return line_.arrivedCount();
}

QByteArray SimulatedInstrument::takeArrived() {
    advance();
    return line_.takeArrived();
}

void SimulatedInstrument::discardArrived() {
    while (arrivedCount() > 0) {
        line_.takeArrived();
    }
}

std::optional<qint64> SimulatedInstrument::nextChange() {
    if (arrivedCount() > 0) {
        return monotonicTime();
    }
    std::optional<qint64> next = nextEvent();
    if (const std::optional<qint64> arrival = line_.nextArrival()) {
        next = next ? std::min(*next, *arrival) : arrival;
    }
    if (!next) {
        return std::nullopt;
    }
    const qint64 perMillisecond = line_.ticksPerMillisecond();
    return origin_ + (*next + perMillisecond - 1) / perMillisecond;
}

bool SimulatedInstrument::isUnplugged() {
    advance();
    return unplugged_;
}

void SimulatedInstrument::advance() {
    const qint64 now = ticksNow();
    while (line_.arrivedCount() < arrivedLimit) {
        const std::optional<qint64> next = nextEvent();
        if (!next || *next > now) {
            line_.advance(now);
            time_ = now;
            return;
        }
        line_.advance(*next);
        time_ = *next;
        handleEvent();
    }
}

std::optional<qint64> SimulatedInstrument::nextEvent() const {
    std::optional<qint64> next;
    switch (activity_) {
    case Activity::Asleep:
    case Activity::Ready:
        break;
    case Activity::WakingUp:
    case Activity::Answering:
    case Activity::MovingShutter:
        next = activityDue_;
        break;
    case Activity::Running:
    case Activity::Dumping:
        // A line is made when the one before it has left, so that a slow line holds up the points and nothing piles up.
        next = std::max(activityDue_, line_.drainedAt());
        break;
    }
    if (strikeAt_) {
        next = next ? std::min(*next, *strikeAt_) : strikeAt_;
    }
    return next;
}

void SimulatedInstrument::handleEvent() {
    if (strikeAt_ && *strikeAt_ <= time_) {
        strike();
        return;
    }
    switch (activity_) {
    case Activity::Asleep:
    case Activity::Ready:
        break;
    case Activity::MovingShutter:
        activity_ = Activity::Ready;
        send(">");
        break;
    case Activity::WakingUp:
        greet();
        break;
    case Activity::Answering:
        perform(lateReply_);
        break;
    case Activity::Running:
        sendPoint();
        break;
    case Activity::Dumping:
        sendRecord();
        break;
    }
}

void SimulatedInstrument::strike() {
    fault_.disarm();
    strikeAt_.reset();
    activity_ = Activity::Asleep;
    line_.abandon(time_);
    unplugged_ = options_.fault == SimulatedFault::Unplug;
}

void SimulatedInstrument::greet() {
    activity_ = Activity::Ready;
    QByteArray greeting = options_.fault == SimulatedFault::Noise ? noise() : QByteArray();
    greeting += options_.kind == InstrumentKind::Trx ? "V" : "F";
    greeting += QByteArray::number(options_.firmware);
    if (options_.fault != SimulatedFault::NoCr) {
        greeting += '\r';
    }
    send(greeting);
    if (const std::optional<qint64> milliseconds = fault_.millisecondsAfterGreeting()) {
        strikeAt_ = time_ + ticks(*milliseconds);
    }
}

void SimulatedInstrument::takeCharacter(char character) {
    constexpr qsizetype heldLimit = 256;
    if (activity_ == Activity::Answering && heldInput_.size() < heldLimit) {
        heldInput_ += character;
    }
    if (activity_ != Activity::Ready) {
        return;
    }
    send(QByteArray(1, character));
    const std::optional<CommandReply> reply = interpreter_.take(character, monotonicTime());
    if (!reply) {
        return;
    }
    const qint64 delay = delayOf(options_);
    if (delay == 0) {
        perform(*reply);
        return;
    }
    lateReply_ = *reply;
    activity_ = Activity::Answering;
    activityDue_ = time_ + ticks(delay);
}

void SimulatedInstrument::takeHeldInput() {
    while (activity_ == Activity::Ready && !heldInput_.isEmpty()) {
        const char character = heldInput_.front();
        heldInput_.remove(0, 1);
        takeCharacter(character);
    }
}

void SimulatedInstrument::perform(const CommandReply& reply) {
    send(reply.text);
    if (reply.deed != Deed::Wait) {
        heldInput_.clear();
        linesSent_ = 0;
    }
    switch (reply.deed) {
    case Deed::Wait:
        activity_ = Activity::Ready;
        takeHeldInput();
        break;
    case Deed::Run:
        startRun();
        break;
    case Deed::Dump:
        activity_ = Activity::Dumping;
        activityDue_ = time_;
        fault_.beginCollection(memory_.count() + options_.erasedRecords);
        break;
    case Deed::MoveShutter:
        activity_ = Activity::MovingShutter;
        activityDue_ = time_ + ticks(options_.shutterMilliseconds);
        break;
    }
}

void SimulatedInstrument::startRun() {
    constexpr qint64 millisecondsPerHour = 3'600'000;
    constexpr qint64 second = 1000;
    constexpr qsizetype linesOfEndlessRun = 100;
    if (settings_.logEnabled && !settings_.append) {
        memory_.erase();
    }
    if (options_.linesPerThousandSeconds) {
        const qint64 thousandSeconds = ticks(1'000'000);
        pointPeriodParts_ = *options_.linesPerThousandSeconds;
        pointPeriod_ = thousandSeconds / pointPeriodParts_;
        pointPeriodRemainder_ = thousandSeconds % pointPeriodParts_;
    } else {
        pointPeriodParts_ = 1;
        pointPeriod_ = ticks(settings_.samplingMilliseconds(options_.kind));
        pointPeriodRemainder_ = 0;
    }
    pointRemainder_ = 0;
    activity_ = Activity::Running;
    activityDue_ = time_ + ticks(settings_.hoursBeforeBlock * millisecondsPerHour) + pointPeriod_;
    pointPeriod_ += ticks(settings_.secondsBetweenPoints * second);
    fault_.beginCollection(settings_.pointsPerBlock > 0 ? settings_.pointsPerBlock : linesOfEndlessRun);
}

void SimulatedInstrument::sendPoint() {
    activityDue_ = time_ + pointPeriod_;
    pointRemainder_ += pointPeriodRemainder_;
    if (pointRemainder_ >= pointPeriodParts_) {
        pointRemainder_ -= pointPeriodParts_;
        ++activityDue_;
    }
    const DataPoint point{instrumentClock_.at(monotonicTime()), pointNumber_};
    ++pointNumber_;
    if (settings_.logEnabled) {
        memory_.append(point);
    }
    if (!sendCollectionLine(dataLine(options_, point))) {
        return;
    }
    ++linesSent_;
    if (linesSent_ == settings_.pointsPerBlock && sendCollectionLine(">")) {
        activity_ = Activity::Ready;
    }
}

void SimulatedInstrument::sendRecord() {
    if (linesSent_ < memory_.count()) {
        sendCollectionLine(dataLine(options_, memory_.at(linesSent_)));
    } else if (linesSent_ < memory_.count() + options_.erasedRecords) {
        sendCollectionLine("65535\r\n");
    } else if (sendCollectionLine(options_.dumpEndsWithZero ? "0\r\n>" : "EOF\r\n>")) {
        activity_ = Activity::Ready;
    }
    ++linesSent_;
}

/// From one to four bytes, the first of them NUL, the others above 127.
QByteArray SimulatedInstrument::noise() {
    constexpr quint64 most = 4;
    constexpr unsigned above127 = 0x80;
    quint64 random = mixed(random_);
    ++random_;
    QByteArray bytes(1, '\0');
    for (quint64 more = random % most; more > 0; --more) {
        random = mixed(random);
        bytes += static_cast<char>(above127 | (random >> 56U));
    }
    return bytes;
}

bool SimulatedInstrument::sendCollectionLine(const QByteArray& line) {
    if (options_.fault == SimulatedFault::Noise && mixed(++random_) % noiseInterval == 0) {
        send(noise());
    }
    const qsizetype allowed = fault_.allowance(line.size());
    send(line.left(allowed));
    if (allowed == line.size()) {
        return true;
    }
    // The fault shows when what was sent before it has arrived.
    fault_.disarm();
    activity_ = Activity::Asleep;
    strikeAt_ = std::max(time_, line_.drainedAt());
    return false;
}

void SimulatedInstrument::send(const QByteArray& bytes) {
    if (options_.fault != SimulatedFault::Garbage) {
        line_.send(bytes, time_);
        return;
    }
    QByteArray spoilt;
    for (const char byte : bytes) {
        const quint64 random = mixed(random_);
        ++random_;
        if (random % garbageInterval == 0) {
            spoilt += static_cast<char>(random >> 56U);
        }
        spoilt += byte;
    }
    line_.send(spoilt, time_);
}

} // namespace orv
