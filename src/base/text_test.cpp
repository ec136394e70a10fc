// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include "testing/expected.h"

#include <QDateTime>
#include <QLocale>

#include <limits>
#include <tuple>

namespace orv {
namespace {

using Kind = RuntimeError::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Runs the test under a locale that writes a decimal comma.
class GermanLocale {
public:
    GermanLocale() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
    ~GermanLocale() { QLocale::setDefault(before_); }
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

private:
    QLocale before_;
};

using TextAndNumber = std::pair<const char*, double>;

double number(const char* text) {
    return leadingNumber(QString::fromUtf8(text));
}

double wholeNumber(const char* text) {
    return wholeNumberText(QString::fromUtf8(text));
}

TEST(LeadingNumber, readsTheNumberThatATextBeginsWith) {
    const std::pair<double, std::vector<const char*>> rows[] = {
        {0,
         {"", "   ", "abc", "- 7", "--7", "+", "-", ".", "-.", ".e2", "e2", "00", "0x10", "inf", "nan", "-0",
          "________", "1e-999", "\u0665"}},
        {0.01, {"1e-2"}},
        {0.5, {".5"}},
        {-0.5, {"-.5"}},
        {1, {"1,5", "1,000", "1e", "1e+", "1e-x", "1d2"}},
        {1.2, {"1.2.3"}},
        {3.25, {"3.25rest"}},
        {5, {"5", " 5", "\t 5", "5 ", "5abc", "5.", "5.x", "5\u0665"}},
        {7, {"+7", "\r\n7"}},
        {-7, {"-7"}},
        {12, {"12 34"}},
        {100, {"1e+2", "1.e2", "1e2e3"}},
        {512, {"0512", "512\r"}},
        {1000, {"1e3", "1E3"}},
        {65535, {"65535"}},
        {2147483648.0, {"2147483648"}},
        {infinity, {"1e999"}},
        {-infinity, {"-1e999x"}}};
    for (const auto& [value, texts] : rows) {
        for (const char* text : texts) {
            EXPECT_EQ(number(text), value) << '"' << text << '"';
        }
    }
}

TEST(LeadingNumber, readsAPointUnderEveryLocale) {
    const GermanLocale german;
    const TextAndNumber rows[] = {{"1.5", 1.5}, {"1,5", 1}, {"1.000", 1}};
    expectEach(rows, number);
}

TEST(WholeNumberText, readsATextThatIsANumberAndNothingElse) {
    const TextAndNumber rows[] = {{"5", 5},         {" 5", 5},   {"5\t", 5},      {" -2.5 ", -2.5},
                                  {"+1", 1},        {".5", 0.5}, {"5.", 5},       {"1e3", 1000},
                                  {"1.5E-1", 0.15}, {"0", 0},    {"32400", 32400}};
    expectEach(rows, wholeNumber);
    for (const char* text : {"", " ", "abc", "5a", "a5", "1 2", "1,5", "--1", "1e", "1e+", ".", "-", "0x10", "nan",
                             "inf", "5>", "1.2.3"}) {
        EXPECT_EQ(errorOf([text] { wholeNumber(text); }), Kind::TypeMismatch) << '"' << text << '"';
    }
}

TEST(WholeNumberText, readsAPointUnderEveryLocale) {
    const GermanLocale german;
    EXPECT_EQ(wholeNumber("1.5"), 1.5);
    EXPECT_EQ(errorOf([] { wholeNumber("1,5"); }), Kind::TypeMismatch);
}

TEST(PlainNumber, hasNeitherExponentNorTrailingZerosNorLeadingBlank) {
    for (const char* text : {"0", "5", "-5", "999", "0.5", "-0.5", "1.25", "0.1", "12.34567", "0.00001", "100000",
                             "1000000", "123456789012", "100000000000000000000", "-2147483648"}) {
        EXPECT_EQ(plainNumber(std::stod(text)).toStdString(), text);
        EXPECT_EQ(printedNumber(std::stod(text)).toStdString(), (*text == '-' ? "" : " ") + std::string(text));
    }
    EXPECT_EQ(plainNumber(-0.0), QStringLiteral("0"));
    EXPECT_EQ(printedNumber(-0.0), QStringLiteral(" 0"));
}

TEST(PlainNumber, isReadBackAsTheSameNumber) {
    for (const double value : {1.0 / 3.0, 2e-7, 123456.78901, -9.87654321e12, 0.1 + 0.2}) {
        EXPECT_EQ(leadingNumber(plainNumber(value)), value);
        EXPECT_EQ(leadingNumber(printedNumber(value)), value);
    }
}

TEST(PlainNumber, writesAPointAndNoGroupsUnderEveryLocale) {
    const GermanLocale german;
    EXPECT_EQ(plainNumber(1234567.5), QStringLiteral("1234567.5"));
    EXPECT_EQ(printedNumber(1234567.5), QStringLiteral(" 1234567.5"));
}

TEST(RoundHalfEven, roundsHalvesToTheEvenNeighbour) {
    const std::pair<double, double> rows[] = {
        {0, 0},      {0.5, 0},   {1.5, 2},         {2.5, 2},         {3.5, 4},           {-0.5, 0},      {-1.5, -2},
        {-2.5, -2},  {-3.5, -4}, {0.49, 0},        {0.51, 1},        {-0.49, 0},         {-0.51, -1},    {2.4999, 2},
        {2.5001, 3}, {9.5, 10},  {32766.5, 32766}, {32767.5, 32768}, {-32768.5, -32768}, {1e300, 1e300}, {-1e-20, 0},
    };
    expectEach(rows, roundHalfEven);
    EXPECT_EQ(roundHalfEven(0.49999999999999994), 0);
    EXPECT_EQ(roundHalfEven(1e15 + 0.5), 1e15);
    EXPECT_EQ(roundHalfEven(4503599627370495.5), 4503599627370496.0);
}

TEST(ToInteger16, roundsHalfToEvenWithinItsBounds) {
    const std::pair<double, int> rows[] = {{0.5, 0},          {1.5, 2},         {-1.5, -2},        {32767, 32767},
                                           {32767.49, 32767}, {-32768, -32768}, {-32768.5, -32768}};
    expectEach(rows, toInteger16);
}

TEST(ToInteger16, overflowsOutsideItsBounds) {
    for (const double value :
         {32767.5, 32768.0, -32768.51, -32769.0, 65535.0, 1e300, infinity, -infinity, notANumber}) {
        EXPECT_EQ(errorOf([value] { toInteger16(value); }), Kind::Overflow) << value;
    }
}

TEST(ToInteger32, roundsHalfToEvenWithinItsBounds) {
    EXPECT_EQ(toInteger32(2.5), 2);
    EXPECT_EQ(toInteger32(3.5), 4);
    EXPECT_EQ(toInteger32(2147483647.49), std::numeric_limits<qint32>::max());
    EXPECT_EQ(toInteger32(-2147483648.5), std::numeric_limits<qint32>::min());
}

TEST(ToInteger32, overflowsOutsideItsBounds) {
    for (const double value :
         {2147483647.5, 2147483648.0, -2147483648.51, -2147483649.0, infinity, -infinity, notANumber}) {
        EXPECT_EQ(errorOf([value] { toInteger32(value); }), Kind::Overflow) << value;
    }
}

TEST(IntegerDivide, roundsTheOperandsAndCutsTheQuotientTowardZero) {
    const std::tuple<double, double, qint32> rows[] = {
        {10, 4, 2}, {9.5, 2, 5}, {8.5, 2, 4}, {7, 2, 3},    {-7, 2, -3}, {7, -2, -3}, {-7, -2, 3},
        {0, 5, 0},  {5, 1.5, 2}, {5, 2.5, 2}, {5, 0.51, 5}, {1, 2, 0},   {-1, 2, 0},
    };
    for (const auto& [dividend, divisor, quotient] : rows) {
        EXPECT_EQ(integerDivide(dividend, divisor), quotient) << dividend << " \\ " << divisor;
    }
    EXPECT_EQ(integerDivide(2147483647, 1), 2147483647);
    EXPECT_EQ(integerDivide(2147483647.49, 1), 2147483647);
    EXPECT_EQ(integerDivide(-2147483648.0, 2), -1073741824);
    EXPECT_EQ(integerDivide(-2147483648.0, 1), std::numeric_limits<qint32>::min());
}

TEST(IntegerDivide, failsWhenTheDivisorRoundsToZero) {
    for (const double divisor : {0.0, 0.5, -0.5, 0.49}) {
        EXPECT_EQ(errorOf([divisor] { integerDivide(1, divisor); }), Kind::DivisionByZero) << divisor;
    }
}

TEST(IntegerDivide, overflowsWhenAnOperandOrTheQuotientDoesNotFit) {
    EXPECT_EQ(errorOf([] { integerDivide(2147483648.0, 2); }), Kind::Overflow);
    EXPECT_EQ(errorOf([] { integerDivide(2, 2147483648.0); }), Kind::Overflow);
    EXPECT_EQ(errorOf([] { integerDivide(-2147483648.0, -1); }), Kind::Overflow);
    EXPECT_EQ(errorOf([] { integerDivide(notANumber, 1); }), Kind::Overflow);
}

TEST(NumberText, IsTheWholeTextOrNothing) {
    EXPECT_EQ(numberText(u" -12.5e1 "), -125.0);
    EXPECT_EQ(numberText(u".5"), 0.5);
    for (const QStringView text : {u"", u" ", u"x", u"1x", u"1,5", u"1 2", u"nan", u"inf", u"0x10", u"."}) {
        EXPECT_EQ(numberText(text), std::nullopt) << text.toString().toStdString();
    }
}

const std::pair<QDate, const char*> shortDates[] = {
    {QDate(1999, 1, 5), "1/5/99"},     {QDate(2026, 11, 21), "11/21/26"}, {QDate(2000, 1, 1), "1/1/00"},
    {QDate(2009, 12, 31), "12/31/09"}, {QDate(2026, 2, 3), "2/3/26"},
};

const std::pair<QTime, const char*> clockTexts[] = {
    {QTime(0, 0, 0), "12:00:00 AM"},  {QTime(0, 59, 1), "12:59:01 AM"},   {QTime(1, 2, 3), "1:02:03 AM"},
    {QTime(9, 30, 15), "9:30:15 AM"}, {QTime(11, 59, 59), "11:59:59 AM"}, {QTime(12, 0, 0), "12:00:00 PM"},
    {QTime(13, 5, 0), "1:05:00 PM"},  {QTime(15, 7, 9), "3:07:09 PM"},    {QTime(23, 59, 59, 999), "11:59:59 PM"},
};

std::string dateText(QDate date) {
    return shortDate(date).toStdString();
}

std::string timeText(QTime time) {
    return clockText(time).toStdString();
}

TEST(DateAndTimeTexts, areTheSameUnderEveryLocale) {
    const QLocale before;
    for (const QLocale& locale : {before, QLocale(QLocale::German), QLocale(QLocale::Arabic, QLocale::Egypt),
                                  QLocale(QLocale::Japanese), QLocale(QLocale::English, QLocale::UnitedKingdom)}) {
        SCOPED_TRACE(locale.name().toStdString());
        QLocale::setDefault(locale);
        expectEach(shortDates, dateText);
        expectEach(clockTexts, timeText);
        EXPECT_EQ(fileNameStamp(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15))), QStringLiteral("20261121-093015"));
        EXPECT_EQ(instrumentDate(QStringLiteral("1/5/99")), QDate(1999, 1, 5));
        EXPECT_EQ(timeOfDay(2700).text12(), QStringLiteral("1:00:00 AM"));
    }
    QLocale::setDefault(before);
}

TEST(FileNameStamp, isPaddedSoThatNamesSortByTime) {
    EXPECT_EQ(fileNameStamp(QDateTime(QDate(2027, 1, 2), QTime(0, 3, 4))), QStringLiteral("20270102-000304"));
}

TEST(InstrumentDate, readsMonthDayAndYear) {
    const std::pair<QDate, const char*> rows[] = {
        {QDate(1999, 1, 5), "1/5/99"},       {QDate(1999, 1, 5), "01/05/99"},     {QDate(1999, 1, 5), "01-05-99"},
        {QDate(1999, 1, 5), "1-5-1999"},     {QDate(2026, 11, 21), "11/21/26"},   {QDate(2026, 11, 21), "11/21/2026"},
        {QDate(2026, 11, 21), " 11/21/26 "}, {QDate(2026, 11, 21), "11/21/26\t"}, {QDate(2000, 2, 29), "2/29/00"},
        {QDate(2029, 12, 31), "12/31/29"},   {QDate(1930, 1, 1), "1/1/30"},       {QDate(2009, 1, 5), "1/5/9"},
        {QDate(2026, 3, 12), "3/12/26"},     {QDate(1930, 1, 1), "1/1/1930"},
    };
    for (const auto& [date, text] : rows) {
        EXPECT_EQ(instrumentDate(QString::fromLatin1(text)), date) << '"' << text << '"';
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

TEST(TimeOfDay, isCountedInSixtyFourThousandEightHundredthsOfADay) {
    const std::tuple<double, TimeOfDay, const char*, const char*> rows[] = {
        {0, {0, 0, 0}, "0:00:00", "0:00:00 AM"},          {1, {0, 0, 1}, "0:00:01", "0:00:01 AM"},
        {675, {0, 15, 0}, "0:15:00", "0:15:00 AM"},       {2700, {1, 0, 0}, "1:00:00", "1:00:00 AM"},
        {13500, {5, 0, 0}, "5:00:00", "5:00:00 AM"},      {32399, {11, 59, 58}, "11:59:58", "11:59:58 AM"},
        {32400, {12, 0, 0}, "12:00:00", "0:00:00 PM"},    {33075, {12, 15, 0}, "12:15:00", "0:15:00 PM"},
        {35100, {13, 0, 0}, "13:00:00", "1:00:00 PM"},    {48600, {18, 0, 0}, "18:00:00", "6:00:00 PM"},
        {64799, {23, 59, 58}, "23:59:58", "11:59:58 PM"},
    };
    for (const auto& [count, time, text24, text12] : rows) {
        SCOPED_TRACE(count);
        EXPECT_EQ(timeOfDay(count), time);
        EXPECT_EQ(timeOfDay(count).text24(), QLatin1String(text24));
        EXPECT_EQ(timeOfDay(count).text12(), QLatin1String(text12));
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
    EXPECT_EQ(timeOfDay(-1e-20), (TimeOfDay{-1, 59, 59})) << "the part of the hour is rounded to a whole one";
    EXPECT_EQ(timeOfDay(-675).text24(), QStringLiteral("1:45:00"));
    EXPECT_EQ(timeOfDay(-675).text12(), QStringLiteral("-1:45:00 AM"));
}

TEST(TimeOfDay, overflowsWhenTheHoursDoNotFit) {
    for (const double count : {1e300, -1e300, infinity, notANumber}) {
        EXPECT_EQ(errorOf([count] { timeOfDay(count); }), Kind::Overflow) << count;
    }
}

TEST(TimeOfDay, padsMinutesAndSecondsButNotHours) {
    EXPECT_EQ((TimeOfDay{9, 5, 7}.text24()), QStringLiteral("9:05:07"));
    const std::pair<TimeOfDay, const char*> rows[] = {{{5, 5, 5}, "5:05:05 AM"},
                                                      {{15, 5, 9}, "3:05:09 PM"},
                                                      {{12, 15, 7}, "0:15:07 PM"},
                                                      {{0, 10, 11}, "0:10:11 AM"}};
    expectEach(rows, [](const TimeOfDay& time) { return time.text12().toStdString(); });
}

TEST(SheetTime, ReadsTheSheetsTimesAndThoseOfSpreadsheets) {
    const auto read = [](const char* text) {
        const std::optional<QTime> time = sheetTime(QString::fromLatin1(text));
        return time ? time->toString(QStringLiteral("HH:mm:ss")).toStdString() : std::string("none");
    };
    const std::pair<const char*, std::string> times[] = {{"9:05:07", "09:05:07"},     {" 23:59:59\t", "23:59:59"},
                                                         {"0:00:00", "00:00:00"},     {"3:07:09 PM", "15:07:09"},
                                                         {"3:07:09am", "03:07:09"},   {"12:00:00 AM", "00:00:00"},
                                                         {"12:30:00 PM", "12:30:00"}, {"0:15:07 PM", "12:15:07"}};
    expectEach(times, read);
    for (const char* text : {"", "9:05", "24:00:00", "25:00:00", "9:5:07", "9:05:60", "-1:05:07", "9:05:07 XM",
                             ":05:07", ":05:07 AM", "13:00:00 PM", "9:05:07:08", "99999", "009:05:07"}) {
        EXPECT_EQ(read(text), "none") << text;
    }
}

TEST(ShellWord, IsQuotedWhereTheShellNeedsIt) {
    constexpr std::pair<const char*, const char*> words[] = {{"/home/a/lake-1.csv", "/home/a/lake-1.csv"},
                                                             {"my lake.csv", "'my lake.csv'"},
                                                             {"a'b", "'a'\\''b'"},
                                                             {"sim:trx?seed=1&rate=2", "'sim:trx?seed=1&rate=2'"},
                                                             {"", "''"}};
    expectEach(words, [](const char* text) { return shellWord(QString::fromLatin1(text)).toStdString(); });
}

TEST(VisibleCharacters, AreThoseOfALine) {
    EXPECT_EQ(inVisibleCharacters(QByteArray("a\r\n\t\\\x1b\xe9>", 8)).toStdString(), "a\\r\\n\\t\\\\\\x1b\\xe9>");
}

} // namespace
} // namespace orv
