// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>

namespace orv {

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

} // namespace orv
