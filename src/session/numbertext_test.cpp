// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/numbertext.h"

#include "session/runtimeerror.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <optional>

namespace orv {
namespace {

using Kind = RuntimeError::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The kind of the error that `call` throws; nothing if it throws none.
std::optional<Kind> errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.kind();
    }
    return std::nullopt;
}

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

struct ParsedText {
    const char* text;
    double value;
};

TEST(LeadingNumber, readsTheNumberThatATextBeginsWith) {
    const ParsedText rows[] = {
        {"", 0},          {"   ", 0},         {"abc", 0},     {"5", 5},
        {" 5", 5},        {"\t 5", 5},        {"5 ", 5},      {"5abc", 5},
        {"12 34", 12},    {"+7", 7},          {"-7", -7},     {"- 7", 0},
        {"--7", 0},       {"+", 0},           {"-", 0},       {".", 0},
        {"-.", 0},        {".5", 0.5},        {"-.5", -0.5},  {"5.", 5},
        {"5.x", 5},       {"3.25rest", 3.25}, {"1.2.3", 1.2}, {"1,5", 1},
        {"1,000", 1},     {"1e3", 1000},      {"1E3", 1000},  {"1e+2", 100},
        {"1e-2", 0.01},   {"1e", 1},          {"1e+", 1},     {"1e-x", 1},
        {"1.e2", 100},    {".e2", 0},         {"e2", 0},      {"0512", 512},
        {"00", 0},        {"512\r", 512},     {"\r\n7", 7},   {"0x10", 0},
        {"inf", 0},       {"nan", 0},         {"-0", 0},      {"________", 0},
        {"65535", 65535}, {"1d2", 1},         {"1e2e3", 100}, {"2147483648", 2147483648.0},
    };
    for (const ParsedText& row : rows) {
        EXPECT_EQ(leadingNumber(QString::fromLatin1(row.text)), row.value) << '"' << row.text << '"';
    }
}

TEST(LeadingNumber, overflowsToInfinityAndNeverToZero) {
    EXPECT_EQ(leadingNumber(QStringLiteral("1e999")), infinity);
    EXPECT_EQ(leadingNumber(QStringLiteral("-1e999x")), -infinity);
    EXPECT_EQ(leadingNumber(QStringLiteral("1e-999")), 0.0);
}

TEST(LeadingNumber, ignoresDigitsOfOtherScripts) {
    EXPECT_EQ(leadingNumber(QStringLiteral("\u0665")), 0.0);
    EXPECT_EQ(leadingNumber(QStringLiteral("5\u0665")), 5.0);
}

TEST(LeadingNumber, readsAPointUnderEveryLocale) {
    const GermanLocale german;
    EXPECT_EQ(leadingNumber(QStringLiteral("1.5")), 1.5);
    EXPECT_EQ(leadingNumber(QStringLiteral("1,5")), 1.0);
    EXPECT_EQ(leadingNumber(QStringLiteral("1.000")), 1.0);
}

TEST(WholeNumberText, readsATextThatIsANumberAndNothingElse) {
    const ParsedText rows[] = {{"5", 5},         {" 5", 5},   {"5\t", 5},      {" -2.5 ", -2.5},
                               {"+1", 1},        {".5", 0.5}, {"5.", 5},       {"1e3", 1000},
                               {"1.5E-1", 0.15}, {"0", 0},    {"32400", 32400}};
    for (const ParsedText& row : rows) {
        EXPECT_EQ(wholeNumberText(QString::fromLatin1(row.text)), row.value) << '"' << row.text << '"';
    }
}

TEST(WholeNumberText, refusesEveryOtherText) {
    for (const char* text : {"", " ", "abc", "5a", "a5", "1 2", "1,5", "--1", "1e", "1e+", ".", "-", "0x10", "nan",
                             "inf", "5>", "1.2.3"}) {
        EXPECT_EQ(errorOf([text] { wholeNumberText(QString::fromLatin1(text)); }), Kind::TypeMismatch)
            << '"' << text << '"';
    }
}

TEST(WholeNumberText, readsAPointUnderEveryLocale) {
    const GermanLocale german;
    EXPECT_EQ(wholeNumberText(QStringLiteral("1.5")), 1.5);
    EXPECT_EQ(errorOf([] { wholeNumberText(QStringLiteral("1,5")); }), Kind::TypeMismatch);
}

struct WrittenNumber {
    double value;
    const char* plain;
    const char* printed;
};

constexpr WrittenNumber writtenNumbers[] = {
    {0, "0", " 0"},
    {-0.0, "0", " 0"},
    {5, "5", " 5"},
    {-5, "-5", "-5"},
    {999, "999", " 999"},
    {0.5, "0.5", " 0.5"},
    {-0.5, "-0.5", "-0.5"},
    {1.25, "1.25", " 1.25"},
    {0.1, "0.1", " 0.1"},
    {12.34567, "12.34567", " 12.34567"},
    {0.00001, "0.00001", " 0.00001"},
    {100000, "100000", " 100000"},
    {1e6, "1000000", " 1000000"},
    {123456789012.0, "123456789012", " 123456789012"},
    {1e20, "100000000000000000000", " 100000000000000000000"},
    {-2147483648.0, "-2147483648", "-2147483648"},
};

TEST(PlainNumber, hasNeitherExponentNorTrailingZerosNorLeadingBlank) {
    for (const WrittenNumber& row : writtenNumbers) {
        EXPECT_EQ(plainNumber(row.value), QLatin1String(row.plain)) << row.value;
    }
}

TEST(PrintedNumber, putsABlankBeforeAValueThatIsNotNegative) {
    for (const WrittenNumber& row : writtenNumbers) {
        EXPECT_EQ(printedNumber(row.value), QLatin1String(row.printed)) << row.value;
    }
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

struct Rounded {
    double value;
    double whole;
};

TEST(RoundHalfEven, roundsHalvesToTheEvenNeighbour) {
    const Rounded rows[] = {{0, 0},
                            {0.5, 0},
                            {1.5, 2},
                            {2.5, 2},
                            {3.5, 4},
                            {-0.5, 0},
                            {-1.5, -2},
                            {-2.5, -2},
                            {-3.5, -4},
                            {0.49, 0},
                            {0.51, 1},
                            {-0.49, 0},
                            {-0.51, -1},
                            {2.4999, 2},
                            {2.5001, 3},
                            {9.5, 10},
                            {32766.5, 32766},
                            {32767.5, 32768},
                            {-32768.5, -32768},
                            {0.49999999999999994, 0},
                            {1e15 + 0.5, 1e15},
                            {4503599627370495.5, 4503599627370496.0},
                            {1e300, 1e300},
                            {-1e-20, 0}};
    for (const Rounded& row : rows) {
        EXPECT_EQ(roundHalfEven(row.value), row.whole) << row.value;
    }
}

TEST(ToInteger16, roundsHalfToEvenWithinItsBounds) {
    EXPECT_EQ(toInteger16(0.5), 0);
    EXPECT_EQ(toInteger16(1.5), 2);
    EXPECT_EQ(toInteger16(-1.5), -2);
    EXPECT_EQ(toInteger16(32767), 32767);
    EXPECT_EQ(toInteger16(32767.49), 32767);
    EXPECT_EQ(toInteger16(-32768), -32768);
    EXPECT_EQ(toInteger16(-32768.5), -32768);
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

struct Division {
    double dividend;
    double divisor;
    qint32 quotient;
};

TEST(IntegerDivide, roundsTheOperandsAndCutsTheQuotientTowardZero) {
    const Division rows[] = {{10, 4, 2},
                             {9.5, 2, 5},
                             {8.5, 2, 4},
                             {7, 2, 3},
                             {-7, 2, -3},
                             {7, -2, -3},
                             {-7, -2, 3},
                             {0, 5, 0},
                             {5, 1.5, 2},
                             {5, 2.5, 2},
                             {5, 0.51, 5},
                             {1, 2, 0},
                             {-1, 2, 0},
                             {2147483647, 1, 2147483647},
                             {2147483647.49, 1, 2147483647},
                             {-2147483648.0, 1, std::numeric_limits<qint32>::min()},
                             {-2147483648.0, 2, -1073741824}};
    for (const Division& row : rows) {
        EXPECT_EQ(integerDivide(row.dividend, row.divisor), row.quotient) << row.dividend << " \\ " << row.divisor;
    }
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

} // namespace
} // namespace orv
