// Integers in other bases: literals such as 0xFF, bitwise functions, shifts, and output in base 2, 8, 10 or 16.
//
// Values stay doubles. Every integer is a safe integer: finite, whole, and of magnitude at most 2^53 - 1, the range
// in which a double tells all neighbours apart.
#pragma once

#include "core/engine/FunctionTable.h"

#include <QString>

#include <cmath>

constexpr qint64 largestSafeInteger = 9007199254740991; // 2^53 - 1

/// Whether a double is a safe integer; false for infinities and NaN.
inline bool IsSafeInteger(double value)
{
    return std::fabs(value) <= static_cast<double>(largestSafeInteger) && std::round(value) == value;
}

namespace ProgrammerMath {

/// Whether the identifier that begins at `position` is the tail of a base literal: the character before it is the "0"
/// that begins a token, and the one at it is b, o or x in any case.
bool IsBaseLiteralIdentifier(const QString& text, int position);

/// Reads the base literal at `position`.
///
/// @param position  a UTF-16 index; behind the literal after success, unchanged otherwise
/// @param value     the literal's value after success
/// @param invalid   after a failure: a base literal begins here but is none (no digit, a digit too large, a value
///                  beyond the safe integers, something that hangs on it)
bool TryParseBaseLiteral(QStringView text, qsizetype& position, double& value, bool& invalid);

/// Whether a base literal that is none stands anywhere in the text.
bool ContainsInvalidBaseLiteral(QStringView text);

/// BIN, OCT, HEX, DEC and the bitwise functions, on 64-bit two's complement.
FunctionLibrary Functions();

/// Runs a call by name, in any case; see RunLibraryFunction for `ok` and `handled`. Returns `value`.
double RunFunction(const QString& name, const QList<double>& arguments, double& value, bool& ok, bool& handled);

/// The integer's text in base 2, 8, 10 or 16: digits above 9 in upper case, no prefix, a minus sign where negative.
///
/// @return false where `value` is no safe integer or `base` none of the four; `text` is unchanged then
bool FormatInteger(double value, int base, QString& text);

/// Whether a whole line asks for one answer in another base, as `HEX(255)` does.
///
/// @param inner  what stands between the brackets, trimmed, not empty
/// @param base   2, 8, 10 or 16
bool TryExtractOutputConversion(QStringView text, QString& inner, int& base);

} // namespace ProgrammerMath
