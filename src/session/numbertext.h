// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

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

} // namespace orv
