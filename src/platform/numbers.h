#pragma once

#include <QString>

#include <cstdint>

namespace ovrano {

/// Nearest whole number, halves to the even neighbour (2.5 is 2, 3.5 is 4). Not finite stays as it is.
double roundHalfEven(double value);

/// roundHalfEven as a 16-bit number. Throws error::Overflow outside −32768..32767.
std::int16_t toInteger16(double value);

/// roundHalfEven as a 32-bit number. Throws error::Overflow outside the 32-bit range.
std::int32_t toInteger32(double value);

/// A coordinate rounded to a whole pixel, halves to even. Clamped to ±2^28, which is outside every surface;
/// NaN is 0.
int pixelOf(double coordinate);

/// A number in single precision. Throws error::Overflow when it is too large for that or no number.
float toSingle(double value);

/// The number at the start of a text, 0 when there is none: blanks are skipped wherever they stand,
/// then sign, digits, a decimal point and an exponent are read as far as they make sense ("12 px" is 12,
/// "abc" is 0, " 5 5.6" is 55.6); "&H" leads a hexadecimal number. The point is the decimal sign whatever
/// the locale.
double numericValue(const QString& text);

/// numericValue rounded to a 16-bit number: "55.6" is 56, "abc" is 0. Throws error::Overflow.
std::int16_t integerValue(const QString& text);

/// numericValue in single precision. Throws error::Overflow.
float singleValue(const QString& text);

} // namespace ovrano
