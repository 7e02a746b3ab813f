// From a number to the text that the user reads: residue snapped off, then another base, a pattern, or the default.
//
// A pattern is one to three sections with ";" between them: for all values; for zero and above, below zero; for above,
// below, and zero or NaN. A section is made of 0, #, a comma, a point, % and an exponent form (E+00, e-0); everything
// around its digits is literal. No character escapes another, and no pattern is wrong.
#pragma once

#include <QString>
#include <QStringView>

/// How answers are shown.
struct AnswerStyle {
    QString pattern;     // empty: fifteen significant digits
    int outputBase = 10; // 2, 8, 10 or 16; values without an integer form are shown as in base 10
};

/// The text of an answer. "nan", "inf" and "-inf" stand for values that are not finite.
QString FormatAnswer(double value, const AnswerStyle& style);

/// The text that one section of a pattern gives, with a minus sign behind the prefix where the value is negative.
QString FormatNumberSection(double value, const QString& section);

/// The value without floating-point residue: the nearest number with at most twelve decimals where that is within
/// 1e-14 (relative above 1), else the value itself.
double SnapResidue(double value);
