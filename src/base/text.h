// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QTime>

#include <optional>

namespace orv {

/// The number that `text` begins with: blanks, an optional sign, digits with an optional point, an optional exponent;
/// the rest is ignored. 0 if there is none. The point is "." under every locale.
double leadingNumber(QStringView text);

/// The number that is the whole of `text` but for blanks around it; nothing if the text is anything else.
std::optional<double> numberText(QStringView text);

/// The same for text that must be a number.
/// Throws RuntimeError TypeMismatch if the text is anything else.
double wholeNumberText(QStringView text);

/// Plain decimal text: point, no exponent, no trailing zeros, no leading blank; "0" for a negative zero.
QString plainNumber(double value);

/// Number print form: plain decimal text after one blank for a value that is not negative (" 5", "-5").
QString printedNumber(double value);

/// `value` rounded to the nearest whole number, halves to even.
double roundHalfEven(double value);

/// `value` rounded half to even. Throws RuntimeError Overflow outside -32768..32767.
qint16 toInteger16(double value);

/// `value` rounded half to even. Throws RuntimeError Overflow outside -2147483648..2147483647.
qint32 toInteger32(double value);

/// Integer division: both operands are rounded half to even to 32 bits, the quotient is cut toward zero.
/// Throws RuntimeError Overflow (an operand or the quotient does not fit) or DivisionByZero.
qint32 integerDivide(double dividend, double divisor);

/// Characters as they can be read: a control character as "\r", "\n", "\t" or "\x1b", a backslash doubled.
QString inVisibleCharacters(const QByteArray& bytes);

/// The short date of every screen and file, M/d/yy ("1/5/99"), under every locale.
QString shortDate(QDate date);

/// The time of every screen and file, h:mm:ss AM/PM ("3:07:09 PM", "12:00:00 AM"), under every locale.
QString clockText(QTime time);

/// A length of time for the operator: "48 s", "2 min 31 s", "1 h 2 min", "3 days".
Words durationInWords(qint64 seconds);

/// Date and time as they stand in the name under which an older file is kept, "20261121-093015".
QString fileNameStamp(const QDateTime& moment);

/// The text as one word of a shell's command line.
QString shellWord(const QString& text);

/// A date as the instrument writes it: month, day, year, separated by "/" or "-", blanks and tabs around it. Two-digit
/// years 00-29 are 20xx, 30-99 are 19xx. Nothing if the text is no such date.
std::optional<QDate> instrumentDate(QStringView text);

/// A time of day as the sheet shows it, h:mm:ss, or with "AM" or "PM" after it as spreadsheets write it; the hour of
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
