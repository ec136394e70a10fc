// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include "base/runtimeerror.h"

#include <QDateTime>
#include <QList>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace orv {

namespace {

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool isSign(QChar character) {
    return character == u'+' || character == u'-';
}

qsizetype skipDigits(QStringView text, qsizetype at) {
    while (at < text.size() && isDigit(text[at])) {
        ++at;
    }
    return at;
}

/// Length of the number at the start of `text`; 0 if it does not start with one.
qsizetype numberLength(QStringView text) {
    const qsizetype start = !text.empty() && isSign(text[0]) ? 1 : 0;
    qsizetype end = skipDigits(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fractionEnd = skipDigits(text, end + 1);
        digits += fractionEnd - end - 1;
        end = fractionEnd;
    }
    if (digits == 0) {
        return 0;
    }
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const qsizetype exponent = end + 1 < text.size() && isSign(text[end + 1]) ? end + 2 : end + 1;
        const qsizetype exponentEnd = skipDigits(text, exponent);
        if (exponentEnd > exponent) {
            end = exponentEnd;
        }
    }
    return end;
}

template <typename Integer>
Integer toInteger(double value) {
    const double rounded = roundHalfEven(value);
    // Written so that a value that is no number overflows too.
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(RuntimeError::Kind::Overflow);
    }
    return static_cast<Integer>(rounded);
}

} // namespace

double leadingNumber(QStringView text) {
    while (!text.empty() && text[0].isSpace()) {
        text = text.sliced(1);
    }
    const qsizetype length = numberLength(text);
    return length == 0 ? 0.0 : QLocale::c().toDouble(text.first(length));
}

std::optional<double> numberText(QStringView text) {
    const QStringView number = text.trimmed();
    if (number.empty() || numberLength(number) != number.size()) {
        return std::nullopt;
    }
    constexpr qsizetype exactDigits = 15;
    if (number.size() <= exactDigits && skipDigits(number, 0) == number.size()) {
        return static_cast<double>(number.toLongLong()); // most are whole
    }
    return QLocale::c().toDouble(number);
}

double wholeNumberText(QStringView text) {
    const std::optional<double> number = numberText(text);
    if (!number) {
        throw RuntimeError(RuntimeError::Kind::TypeMismatch);
    }
    return *number;
}

QString plainNumber(double value) {
    if (value == 0.0) {
        return QStringLiteral("0");
    }
    return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

QString printedNumber(double value) {
    const QString text = plainNumber(value);
    return text.startsWith(u'-') ? text : QLatin1Char(' ') + text;
}

double roundHalfEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction != 0.5) {
        return fraction < 0.5 ? below : below + 1.0;
    }
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

qint16 toInteger16(double value) {
    return toInteger<qint16>(value);
}

qint32 toInteger32(double value) {
    return toInteger<qint32>(value);
}

qint32 integerDivide(double dividend, double divisor) {
    const qint32 wholeDividend = toInteger32(dividend);
    const qint32 wholeDivisor = toInteger32(divisor);
    if (wholeDivisor == 0) {
        throw RuntimeError(RuntimeError::Kind::DivisionByZero);
    }
    const qint64 quotient = qint64{wholeDividend} / qint64{wholeDivisor};
    return toInteger32(static_cast<double>(quotient));
}

namespace {

constexpr double countsPerDay = 64800.0;

/// Of 0 to 99.
QString twoDigits(int value) {
    return QString(QChar(u'0' + value / 10)) + QChar(u'0' + value % 10);
}

QString timeText(qint64 hours, int minutes, int seconds) {
    return QString::number(hours) + u':' + twoDigits(minutes) + u':' + twoDigits(seconds);
}

/// The value of one to four digits, or -1.
int digitsValue(QStringView text) {
    if (text.empty() || text.size() > 4) {
        return -1;
    }
    int value = 0;
    for (const QChar character : text) {
        if (character < u'0' || character > u'9') {
            return -1;
        }
        value = value * 10 + (character.unicode() - u'0');
    }
    return value;
}

} // namespace

QString inVisibleCharacters(const QByteArray& bytes) {
    QString text;
    for (const char character : bytes) {
        constexpr uchar firstPrintable = 0x20;
        constexpr uchar lastPrintable = 0x7e;
        const auto code = static_cast<uchar>(character);
        if (character == '\r') {
            text += QLatin1String("\\r");
        } else if (character == '\n') {
            text += QLatin1String("\\n");
        } else if (character == '\t') {
            text += QLatin1String("\\t");
        } else if (character == '\\') {
            text += QLatin1String("\\\\");
        } else if (code < firstPrintable || code > lastPrintable) {
            text += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        } else {
            text += QLatin1Char(character);
        }
    }
    return text;
}

QString shortDate(QDate date) {
    // Every row has one, and a format would be taken apart each time.
    return date.isValid() ? QString::number(date.month()) + u'/' + QString::number(date.day()) + u'/' +
                                twoDigits(std::abs(date.year()) % 100)
                          : QString();
}

QString clockText(QTime time) {
    return time.toString(QStringLiteral("h:mm:ss AP"));
}

Words durationInWords(qint64 seconds) {
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    constexpr qint64 twoDays = 48 * hour;
    if (seconds >= twoDays) {
        return Words::tr("%1 days").arg(seconds / (twoDays / 2));
    }
    if (seconds >= hour) {
        return Words::tr("%1 h %2 min").arg(seconds / hour).arg(seconds % hour / minute);
    }
    return seconds >= minute ? Words::tr("%1 min %2 s").arg(seconds / minute).arg(seconds % minute)
                             : Words::tr("%1 s").arg(seconds);
}

QString fileNameStamp(const QDateTime& moment) {
    return moment.toString(QStringLiteral("yyyyMMdd-HHmmss"));
}

std::optional<QDate> instrumentDate(QStringView text) {
    const QStringView trimmed = text.trimmed();
    const QChar separator = trimmed.contains(u'/') ? u'/' : u'-';
    const QList<QStringView> pieces = trimmed.split(separator);
    if (pieces.size() != 3 || pieces[0].size() > 2 || pieces[1].size() > 2) {
        return std::nullopt;
    }
    int year = digitsValue(pieces[2]);
    if (year < 0 || pieces[2].size() == 3) {
        return std::nullopt;
    }
    if (pieces[2].size() <= 2) {
        year += year < 30 ? 2000 : 1900;
    }
    const QDate date(year, digitsValue(pieces[0]), digitsValue(pieces[1]));
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> sheetTime(QStringView text) {
    QStringView trimmed = text.trimmed();
    const bool morning = trimmed.endsWith(u"AM", Qt::CaseInsensitive);
    const bool afternoon = trimmed.endsWith(u"PM", Qt::CaseInsensitive);
    if (morning || afternoon) {
        trimmed = trimmed.chopped(2).trimmed();
    }
    const QList<QStringView> pieces = trimmed.split(u':');
    if (pieces.size() != 3 || pieces[0].size() > 2 || pieces[1].size() != 2 || pieces[2].size() != 2) {
        return std::nullopt;
    }
    int hour = digitsValue(pieces[0]);
    if (morning || afternoon) {
        if (hour < 0 || hour > 12) {
            return std::nullopt;
        }
        hour = hour % 12 + (afternoon ? 12 : 0);
    }
    const QTime time(hour, digitsValue(pieces[1]), digitsValue(pieces[2]));
    return time.isValid() ? std::optional(time) : std::nullopt;
}

QString TimeOfDay::text24() const {
    return timeText(std::abs(qint64{hours}), minutes, seconds);
}

QString shellWord(const QString& text) {
    const auto isPlain = [](QChar character) {
        return character.isLetterOrNumber() || QStringView(u"/._-:=,@%+").contains(character);
    };
    if (!text.isEmpty() && std::ranges::all_of(text, isPlain)) {
        return text;
    }
    return u'\'' + QString(text).replace(u'\'', QLatin1String("'\\''")) + u'\'';
}

QString TimeOfDay::text12() const {
    // The instrument's 12-hour text takes 12 from every afternoon hour and leaves midnight as it is, so 12 o'clock is
    // shown with the hour 0 both times.
    return hours >= 12 ? timeText(hours - 12, minutes, seconds) + QLatin1String(" PM")
                       : timeText(hours, minutes, seconds) + QLatin1String(" AM");
}

TimeOfDay timeOfDay(double count) {
    // The divisor is 64800, not the seconds of a day: the instrument's clock counts that many a day. The steps are
    // floating-point and each part is cut, so some counts show one second less than exact arithmetic would.
    const double hours = count / countsPerDay * 24.0;
    // Of a count a hair below a whole hour the part would be rounded to 1, and the minutes would be 60.
    const double part = std::min(hours - std::floor(hours), std::nextafter(1.0, 0.0));
    const double minutes = part * 60.0;
    const double seconds = (minutes - std::floor(minutes)) * 60.0;
    return {.hours = toInteger32(std::floor(hours)),
            .minutes = static_cast<int>(std::floor(minutes)),
            .seconds = static_cast<int>(std::floor(seconds))};
}

} // namespace orv
