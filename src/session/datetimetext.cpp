// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/datetimetext.h"

#include "session/numbertext.h"

#include <QDateTime>
#include <QList>

#include <cmath>
#include <cstdlib>

namespace orv {

namespace {

constexpr double countsPerDay = 64800.0;

QString twoDigits(int value) {
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

QString timeText(qint64 hours, int minutes, int seconds) {
    return QStringLiteral("%1:%2:%3").arg(QString::number(hours), twoDigits(minutes), twoDigits(seconds));
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

QString shortDate(QDate date) {
    return QStringLiteral("%1/%2/%3").arg(date.month()).arg(date.day()).arg(twoDigits(date.year() % 100));
}

QString clockText(QTime time) {
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QStringLiteral("%1:%2:%3 %4")
        .arg(QString::number(hour), twoDigits(time.minute()), twoDigits(time.second()),
             time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

QString fileNameStamp(const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    return QStringLiteral("%1%2%3-%4%5%6")
        .arg(QString::number(date.year()), twoDigits(date.month()), twoDigits(date.day()), twoDigits(time.hour()),
             twoDigits(time.minute()), twoDigits(time.second()));
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
    const double minutes = (hours - std::floor(hours)) * 60.0;
    const double seconds = (minutes - std::floor(minutes)) * 60.0;
    return {.hours = toInteger32(std::floor(hours)),
            .minutes = static_cast<int>(std::floor(minutes)),
            .seconds = static_cast<int>(std::floor(seconds))};
}

} // namespace orv
