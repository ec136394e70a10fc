// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/simulatoroptions.h"

#include <QByteArray>
#include <QDateTime>
#include <QtGlobal>

#include <vector>

namespace orv {

/// Spreads a number over all 64 bits; equal numbers give equal results on every platform.
constexpr quint64 mixed(quint64 number) {
    number += 0x9E3779B97F4A7C15U;
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31U);
}

/// A moment on the instrument's own clock, which knows no time zone.
struct InstrumentMoment {
    qint64 seconds = 0; ///< since the start of 1970

    bool operator==(const InstrumentMoment&) const = default;

    /// "MM/DD/YY", TAB and the count of the day, 64800 of which are a whole day: "11/21/26\t25661".
    QByteArray text() const;
};

/// The instrument's clock: runs from what it was set to, by the computer's monotonic milliseconds.
class InstrumentClock {
public:
    InstrumentClock(const QDateTime& moment, qint64 monotonicMilliseconds);

    /// Sets it to a date as the six digits MMDDYY (years 00-29 are 20xx) and a time as the four digits HHMM, at its
    /// first second. Digits that are no date or no time leave it as it was.
    void set(const QByteArray& date, const QByteArray& time, qint64 monotonicMilliseconds);

    InstrumentMoment at(qint64 monotonicMilliseconds) const;

private:
    qint64 offset_; ///< milliseconds since the start of 1970, minus monotonic milliseconds
};

/// One data point: when it was taken, and its number, from which its readings follow.
struct DataPoint {
    InstrumentMoment moment;
    quint32 number = 0;
};

/// A data point as the instrument sends it, ended by CR LF: date TAB count TAB values. A GLOW has one value, a TRX of
/// firmware below 500 three pairs of value and reference, of 500 or more three values and one reference.
///
/// The values are counts within 0..65535 that vary slowly and depend on the options' seed and the point alone.
QByteArray dataLine(const SimulatorOptions& options, const DataPoint& point);

/// The records that the instrument keeps. The records from before its time are not held but made up when asked for.
class InstrumentMemory {
public:
    static constexpr qsizetype capacity = 65525;

    /// Memory with `records` records, one a minute up to `made`.
    InstrumentMemory(int records, InstrumentMoment made);

    /// How many records there are; this is also the memory pointer.
    qsizetype count() const { return earlierRecords_ + static_cast<qsizetype>(points_.size()); }

    /// The record at 0..count() - 1, oldest first.
    DataPoint at(qsizetype index) const;

    /// Keeps a point; a full memory drops it.
    void append(const DataPoint& point);

    void erase();

private:
    qsizetype earlierRecords_;
    InstrumentMoment made_;
    std::vector<DataPoint> points_;
};

} // namespace orv
