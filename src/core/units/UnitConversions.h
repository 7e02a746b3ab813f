// Unit conversions in plain words, rewritten into arithmetic before anything evaluates: "12 IN TO CM" becomes
// ((((12) * 0.025399999999999999)) / 0.01). Nothing is evaluated here, so the value may be any expression, also one
// with unknowns.
//
// A conversion is a value, a unit, the word TO and a unit of the same family. The value reaches back to the nearest
// opening bracket, comma, comparison sign, brace or binary plus or minus, so it takes whole products: in
// 2 + 3 * 4 IN TO CM it is 3 * 4. Which units there are stands in UnitTable.
#pragma once

#include <QString>

/// The text with every conversion written as arithmetic; numbers have 17 significant digits.
///
/// A TO without a value, or without two units of one family beside it, stays as it is. A text without the word TO
/// comes back as the same shared string. The names that fit best are those with the most characters together; equally
/// long pairs are decided by the order of the unit table. A conversion may be the value of a later one.
///
/// @return "()", which no reader accepts, if a conversion's target is followed by TO once more (12 IN TO CM TO M), or
///         if the text holds so many conversions (hundreds) that rewriting it would take noticeable time
QString ExpandUnitConversions(const QString& text);
