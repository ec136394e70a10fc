// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/datetimetext.h"

#include "session/runtimeerror.h"

#include <QDateTime>
#include <QLocale>

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace orv {
namespace {

struct DateRow {
    QDate date;
    const char* text;
};

const DateRow shortDates[] = {
    {QDate(1999, 1, 5), "1/5/99"},     {QDate(2026, 11, 21), "11/21/26"}, {QDate(2000, 1, 1), "1/1/00"},
    {QDate(2009, 12, 31), "12/31/09"}, {QDate(2026, 2, 3), "2/3/26"},
};

struct TimeRow {
    QTime time;
    const char* text;
};

const TimeRow clockTexts[] = {
    {QTime(0, 0, 0), "12:00:00 AM"},  {QTime(0, 59, 1), "12:59:01 AM"},   {QTime(1, 2, 3), "1:02:03 AM"},
    {QTime(9, 30, 15), "9:30:15 AM"}, {QTime(11, 59, 59), "11:59:59 AM"}, {QTime(12, 0, 0), "12:00:00 PM"},
    {QTime(13, 5, 0), "1:05:00 PM"},  {QTime(15, 7, 9), "3:07:09 PM"},    {QTime(23, 59, 59, 999), "11:59:59 PM"},
};

TEST(ShortDate, isMonthDayAndTwoDigitYear) {
    for (const DateRow& row : shortDates) {
        EXPECT_EQ(shortDate(row.date), QLatin1String(row.text)) << row.text;
    }
}

TEST(ClockText, isATwelveHourTimeWithTwelveForNoonAndMidnight) {
    for (const TimeRow& row : clockTexts) {
        EXPECT_EQ(clockText(row.time), QLatin1String(row.text)) << row.text;
    }
}

TEST(DateAndTimeTexts, areTheSameUnderEveryLocale) {
    const QLocale before;
    for (const QLocale& locale : {QLocale(QLocale::German), QLocale(QLocale::Arabic, QLocale::Egypt),
                                  QLocale(QLocale::Japanese), QLocale(QLocale::English, QLocale::UnitedKingdom)}) {
        SCOPED_TRACE(locale.name().toStdString());
        QLocale::setDefault(locale);
        for (const DateRow& row : shortDates) {
            EXPECT_EQ(shortDate(row.date), QLatin1String(row.text));
        }
        for (const TimeRow& row : clockTexts) {
            EXPECT_EQ(clockText(row.time), QLatin1String(row.text));
        }
        EXPECT_EQ(fileNameStamp(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15))), QStringLiteral("20261121-093015"));
        EXPECT_EQ(instrumentDate(QStringLiteral("1/5/99")), QDate(1999, 1, 5));
        EXPECT_EQ(timeOfDay(2700).text12(), QStringLiteral("1:00:00 AM"));
    }
    QLocale::setDefault(before);
}

TEST(FileNameStamp, isPaddedSoThatNamesSortByTime) {
    EXPECT_EQ(fileNameStamp(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15))), QStringLiteral("20261121-093015"));
    EXPECT_EQ(fileNameStamp(QDateTime(QDate(2027, 1, 2), QTime(0, 3, 4))), QStringLiteral("20270102-000304"));
}

TEST(InstrumentDate, readsMonthDayAndYear) {
    const DateRow rows[] = {
        {QDate(1999, 1, 5), "1/5/99"},       {QDate(1999, 1, 5), "01/05/99"},     {QDate(1999, 1, 5), "01-05-99"},
        {QDate(1999, 1, 5), "1-5-1999"},     {QDate(2026, 11, 21), "11/21/26"},   {QDate(2026, 11, 21), "11/21/2026"},
        {QDate(2026, 11, 21), " 11/21/26 "}, {QDate(2026, 11, 21), "11/21/26\t"}, {QDate(2000, 2, 29), "2/29/00"},
        {QDate(2029, 12, 31), "12/31/29"},   {QDate(1930, 1, 1), "1/1/30"},       {QDate(2009, 1, 5), "1/5/9"},
        {QDate(2026, 3, 12), "3/12/26"},     {QDate(1930, 1, 1), "1/1/1930"},
    };
    for (const DateRow& row : rows) {
        EXPECT_EQ(instrumentDate(QString::fromLatin1(row.text)), row.date) << '"' << row.text << '"';
    }
}

TEST(InstrumentDate, refusesWhatIsNoSuchDate) {
    for (const char* text :
         {"",        "\t",        "abc",      "1/5",      "1/5/",     "/5/99",        "1//99",  "1/5/99/1",
          "13/1/99", "21/11/26",  "0/1/99",   "1/0/99",   "2/29/99",  "4/31/99",      "1/5-99", "1-5/99",
          "1/5/999", "1/5/12345", "001/5/99", "1/005/99", "1/5/0000", "a/5/99",       "1/5/9x", "-1/5/99",
          "+1/5/99", "1 /5/99",   "1/ 5/99",  "1.5.99",   "010599",   "1/5/99 12:00", "1--5-99"}) {
        EXPECT_EQ(instrumentDate(QString::fromLatin1(text)), std::nullopt) << '"' << text << '"';
    }
}

struct CountRow {
    double count;
    TimeOfDay time;
    const char* text24;
    const char* text12;
};

TEST(TimeOfDay, isCountedInSixtyFourThousandEightHundredthsOfADay) {
    const CountRow rows[] = {
        {0, {0, 0, 0}, "0:00:00", "0:00:00 AM"},          {1, {0, 0, 1}, "0:00:01", "0:00:01 AM"},
        {675, {0, 15, 0}, "0:15:00", "0:15:00 AM"},       {2700, {1, 0, 0}, "1:00:00", "1:00:00 AM"},
        {13500, {5, 0, 0}, "5:00:00", "5:00:00 AM"},      {32399, {11, 59, 58}, "11:59:58", "11:59:58 AM"},
        {32400, {12, 0, 0}, "12:00:00", "0:00:00 PM"},    {33075, {12, 15, 0}, "12:15:00", "0:15:00 PM"},
        {35100, {13, 0, 0}, "13:00:00", "1:00:00 PM"},    {48600, {18, 0, 0}, "18:00:00", "6:00:00 PM"},
        {64799, {23, 59, 58}, "23:59:58", "11:59:58 PM"},
    };
    for (const CountRow& row : rows) {
        SCOPED_TRACE(row.count);
        EXPECT_EQ(timeOfDay(row.count), row.time);
        EXPECT_EQ(timeOfDay(row.count).text24(), QLatin1String(row.text24));
        EXPECT_EQ(timeOfDay(row.count).text12(), QLatin1String(row.text12));
    }
}

TEST(TimeOfDay, isCutAfterEachFloatingPointStep) {
    int lower = 0;
    for (int count = 0; count < 64800; ++count) {
        const int exact = count * 4 / 3;
        const TimeOfDay time = timeOfDay(count);
        ASSERT_GE(time.minutes, 0);
        ASSERT_LT(time.minutes, 60);
        ASSERT_GE(time.seconds, 0);
        ASSERT_LT(time.seconds, 60);
        const int shown = (time.hours * 60 + time.minutes) * 60 + time.seconds;
        ASSERT_TRUE(shown == exact || shown == exact - 1) << count;
        lower += shown == exact - 1 ? 1 : 0;
    }
    EXPECT_EQ(lower, 10711);
    EXPECT_EQ(timeOfDay(9), (TimeOfDay{0, 0, 11})) << "exact: 12 s";
    EXPECT_EQ(timeOfDay(18), (TimeOfDay{0, 0, 23})) << "exact: 24 s";
    EXPECT_EQ(timeOfDay(39), (TimeOfDay{0, 0, 52}));
    EXPECT_EQ(timeOfDay(63), (TimeOfDay{0, 1, 23})) << "exact: 1 min 24 s";
}

TEST(TimeOfDay, hasHoursOutsideADayForCountsOutsideADay) {
    EXPECT_EQ(timeOfDay(64800), (TimeOfDay{24, 0, 0}));
    EXPECT_EQ(timeOfDay(64800).text24(), QStringLiteral("24:00:00"));
    EXPECT_EQ(timeOfDay(64800).text12(), QStringLiteral("12:00:00 PM"));
    EXPECT_EQ(timeOfDay(-2700), (TimeOfDay{-1, 0, 0}));
    EXPECT_EQ(timeOfDay(-675), (TimeOfDay{-1, 45, 0}));
    EXPECT_EQ(timeOfDay(-675).text24(), QStringLiteral("1:45:00"));
    EXPECT_EQ(timeOfDay(-675).text12(), QStringLiteral("-1:45:00 AM"));
}

TEST(TimeOfDay, overflowsWhenTheHoursDoNotFit) {
    for (const double count :
         {1e300, -1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        try {
            timeOfDay(count);
            ADD_FAILURE() << count << " was converted";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.kind(), RuntimeError::Kind::Overflow);
        }
    }
}

TEST(TimeOfDay, padsMinutesAndSecondsButNotHours) {
    EXPECT_EQ((TimeOfDay{9, 5, 7}.text24()), QStringLiteral("9:05:07"));
    EXPECT_EQ((TimeOfDay{5, 5, 5}.text12()), QStringLiteral("5:05:05 AM"));
    EXPECT_EQ((TimeOfDay{15, 5, 9}.text12()), QStringLiteral("3:05:09 PM"));
    EXPECT_EQ((TimeOfDay{12, 15, 7}.text12()), QStringLiteral("0:15:07 PM"));
    EXPECT_EQ((TimeOfDay{0, 10, 11}.text12()), QStringLiteral("0:10:11 AM"));
}

TEST(SheetTime, ReadsTheSheetsTimesAndThoseOfSpreadsheets) {
    const auto read = [](const char* text) {
        const std::optional<QTime> time = sheetTime(QString::fromLatin1(text));
        return time ? time->toString(QStringLiteral("HH:mm:ss")).toStdString() : std::string("none");
    };
    EXPECT_EQ(read("9:05:07"), "09:05:07");
    EXPECT_EQ(read(" 23:59:59\t"), "23:59:59");
    EXPECT_EQ(read("0:00:00"), "00:00:00");
    EXPECT_EQ(read("3:07:09 PM"), "15:07:09");
    EXPECT_EQ(read("3:07:09am"), "03:07:09");
    EXPECT_EQ(read("12:00:00 AM"), "00:00:00");
    EXPECT_EQ(read("12:30:00 PM"), "12:30:00");
    EXPECT_EQ(read("0:15:07 PM"), "12:15:07");
    for (const char* text : {"", "9:05", "24:00:00", "25:00:00", "9:5:07", "9:05:60", "-1:05:07", "9:05:07 XM",
                             ":05:07", ":05:07 AM", "13:00:00 PM", "9:05:07:08", "99999", "009:05:07"}) {
        EXPECT_EQ(read(text), "none") << text;
    }
}

} // namespace
} // namespace orv
