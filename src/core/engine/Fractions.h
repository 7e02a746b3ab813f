// FRACTION(expression): a number as a fraction, the simplest exact form first, then the best approximations by the
// number of digits of their denominators.
//
// This room takes the line apart and writes the text; the caller evaluates the expression in between and says
// "-Cannot Solve-" where there is nothing to show. The search runs in `long double` with a 64-bit mantissa; where the
// platform's is narrower, results may differ in the last place of the errors shown.
#pragma once

#include <QString>

#include <optional>

/// Whether the line is the command: FRACTION, in any case, and an opening bracket.
///
/// @param expression  what stands between the brackets, trimmed; empty where the line cannot be solved because there
///                    is nothing between them or something behind them
bool MatchFractionCommand(const QString& text, QString& expression);

/// The lines to show for a value: "numerator/denominator" in lowest terms, an empty line, the heading "Approximate
/// Values", and a row for each number of digits up to six that the denominator can have without a shorter one giving
/// the same value. No line feed at the end.
///
/// The fraction is the first n/d with d below 1000000 that is within 1e-14 of the value (times the value's magnitude
/// where that is above 1), else the value's fifteen significant digits as a decimal fraction.
///
/// @return nothing where the value is not finite, or its fifteen digits do not fit a fraction of 64-bit integers with a
///         power of ten up to 10^18 below
std::optional<QString> FractionText(double value);
