// Numbers as text and text as numbers, the same in every locale.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Where the decimal literal that begins at `position` ends, behind its last character; `position` itself where none
/// begins there.
///
/// A literal is digits (of any script) with at most one point, and an exponent only if a digit stands in it: `2e` ends
/// before the `e`. A lone point is a literal too, one without a value.
qsizetype DecimalLiteralEnd(QStringView text, qsizetype position);

/// Whether a base literal begins at `position`: a `0` and one of `b`, `o`, `x` in any case, valid or not.
inline bool BeginsBaseLiteral(QStringView text, qsizetype position)
{
    if (position + 1 >= text.size() || text[position] != u'0')
        return false;
    const char16_t mark = text[position + 1].unicode() | 0x20;
    return mark == u'b' || mark == u'o' || mark == u'x';
}

/// Where the number literal (decimal, or base literal with all that hangs on it) that begins at `position` ends;
/// `position` itself where none begins there. Passes that replace names step over what this spans.
qsizetype NumberLiteralEnd(QStringView text, qsizetype position);

/// Reads the decimal literal at `position`; see DecimalLiteralValue.
///
/// @param position  behind the literal after success, unchanged otherwise
std::optional<double> TakeDecimalLiteral(QStringView text, qsizetype& position);

/// The value of a decimal literal, correctly rounded; nothing where QString::toDouble refuses it: no digit, digits of
/// another script, a magnitude that overflows or vanishes.
std::optional<double> DecimalLiteralValue(QStringView literal);

/// What QString::number(value, 'g', precision) gives.
///
/// @param precision  significant digits, 1 to 17
QString GeneralText(double value, int precision);
