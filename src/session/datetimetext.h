// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <optional>

namespace orv {

/// The short date of every screen and file, M/d/yy ("1/5/99"), under every locale.
QString shortDate(QDate date);

/// The time of every screen and file, h:mm:ss AM/PM ("3:07:09 PM", "12:00:00 AM"), under every locale.
QString clockText(QTime time);

/// Date and time as they stand in the name under which an older file is kept, "20261121-093015".
QString fileNameStamp(const QDateTime& moment);

/// A date as the instrument writes it: month, day, year, separated by "/" or "-", blanks and tabs around it. Two-digit
/// years 00-29 are 20xx, 30-99 are 19xx. Nothing if the text is no such date.
std::optional<QDate> instrumentDate(QStringView text);

/// A time of day as the sheet shows it, h:mm:ss, or with "AM" or "PM" behind it as spreadsheets write it; the hour of
/// noon and midnight may then be 12 or 0. Nothing if the text is no time within one day.
std::optional<QTime> sheetTime(QStringView text);

/// A time of day as the instrument counts it.
struct TimeOfDay {
    int hours = 0;
    int minutes = 0;
    int seconds = 0;

    bool operator==(const TimeOfDay&) const = default;

    /// 24-hour text, hours unpadded and without sign: "9:05:07".
    QString text24() const;

    /// 12-hour text with "AM" or "PM", hours unpadded. Noon and midnight both have the hour "0": "0:15:07 PM".
    QString text12() const;
};

/// The time of day of an instrument's time count; 64800 counts are one day, so a count lasts 4/3 s. Counts outside
/// one day give hours outside 0..23. Throws RuntimeError Overflow if the hours do not fit 32 bits.
TimeOfDay timeOfDay(double count);

} // namespace orv
