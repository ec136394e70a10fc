// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/numbertext.h"

#include "session/runtimeerror.h"

#include <QLocale>

#include <cmath>
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

} // namespace orv
