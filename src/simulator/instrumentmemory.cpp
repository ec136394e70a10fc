// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentmemory.h"

#include <array>

namespace orv {

namespace {

constexpr qint64 secondsPerDay = 86400;
constexpr qint64 countsPerDay = 64800;
constexpr qint64 millisecondsPerSecond = 1000;

qint64 millisecondsOf(QDate date, QTime time) {
    const qint64 days = QDate(1970, 1, 1).daysTo(date);
    return days * secondsPerDay * millisecondsPerSecond + time.msecsSinceStartOfDay();
}

void appendTwoDigits(QByteArray& text, int number) {
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

} // namespace

QByteArray InstrumentMoment::text() const {
    const qint64 secondOfDay = (seconds % secondsPerDay + secondsPerDay) % secondsPerDay;
    const QDate date = QDate(1970, 1, 1).addDays((seconds - secondOfDay) / secondsPerDay);
    QByteArray text;
    appendTwoDigits(text, date.month());
    text += '/';
    appendTwoDigits(text, date.day());
    text += '/';
    appendTwoDigits(text, date.year());
    text += '\t';
    text += QByteArray::number(secondOfDay * countsPerDay / secondsPerDay);
    return text;
}

InstrumentClock::InstrumentClock(const QDateTime& moment, qint64 monotonicMilliseconds)
    : offset_(millisecondsOf(moment.date(), moment.time()) - monotonicMilliseconds) {}

void InstrumentClock::set(const QByteArray& date, const QByteArray& time, qint64 monotonicMilliseconds) {
    constexpr int firstYearOfLastCentury = 30;
    const int year = date.mid(4, 2).toInt();
    const QDate newDate(year + (year < firstYearOfLastCentury ? 2000 : 1900), date.left(2).toInt(),
                        date.mid(2, 2).toInt());
    const QTime newTime(time.left(2).toInt(), time.mid(2, 2).toInt());
    if (newDate.isValid() && newTime.isValid()) {
        offset_ = millisecondsOf(newDate, newTime) - monotonicMilliseconds;
    }
}

InstrumentMoment InstrumentClock::at(qint64 monotonicMilliseconds) const {
    return {(monotonicMilliseconds + offset_) / millisecondsPerSecond};
}

namespace {

/// Where the readings of one channel lie: they rise and fall by `swing` above `lowest`.
struct Channel {
    quint32 lowest;
    quint32 swing;
};

constexpr Channel output{2400, 900};
constexpr Channel angle100{21000, 1200};
constexpr Channel angle125{14500, 800};
constexpr Channel angle150{9800, 600};
constexpr Channel reference{30500, 40};

/// Points in one rise and fall.
constexpr quint32 cycle = 600;
constexpr quint32 noise = 24;

quint32 reading(const SimulatorOptions& options, const Channel& channel, quint32 column, quint32 number) {
    const quint64 channelSeed = mixed(quint64{options.seed} << 8U | column);
    const quint32 phase = (number % cycle + static_cast<quint32>(channelSeed % cycle)) % cycle;
    const quint32 height = phase < cycle / 2 ? phase : cycle - phase;
    const auto jitter = static_cast<quint32>(mixed(channelSeed + number) % noise);
    return channel.lowest + height * channel.swing / (cycle / 2) + jitter;
}

} // namespace

QByteArray dataLine(const SimulatorOptions& options, const DataPoint& point) {
    constexpr int firstWithOneReference = 500;
    QByteArray line = point.moment.text();
    quint32 column = 0;
    const auto add = [&](const Channel& channel) {
        line += '\t' + QByteArray::number(reading(options, channel, column, point.number));
        ++column;
    };
    if (options.kind == InstrumentKind::Glow) {
        add(output);
    } else {
        const bool pairs = options.firmware < firstWithOneReference;
        for (const Channel& angle : {angle100, angle125, angle150}) {
            add(angle);
            if (pairs) {
                add(reference);
            }
        }
        if (!pairs) {
            add(reference);
        }
    }
    return line + "\r\n";
}

InstrumentMemory::InstrumentMemory(int records, InstrumentMoment made)
    : earlierRecords_(records)
    , made_(made) {}

DataPoint InstrumentMemory::at(qsizetype index) const {
    constexpr qint64 secondsBetweenRecords = 60;
    if (index < earlierRecords_) {
        return {{made_.seconds - (earlierRecords_ - index) * secondsBetweenRecords}, static_cast<quint32>(index)};
    }
    return points_.at(static_cast<size_t>(index - earlierRecords_));
}

void InstrumentMemory::append(const DataPoint& point) {
    if (count() < capacity) {
        points_.push_back(point);
    }
}

void InstrumentMemory::erase() {
    earlierRecords_ = 0;
    points_.clear();
    points_.shrink_to_fit();
}

} // namespace orv
