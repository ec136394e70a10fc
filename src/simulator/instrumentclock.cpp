// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentclock.h"

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

} // namespace orv
