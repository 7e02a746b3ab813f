#include "core/engine/NumberText.h"

#include "core/engine/Characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace {

qsizetype SkipDigits(QStringView text, qsizetype position)
{
    while (position < text.size() && IsDigit(text[position]))
        ++position;
    return position;
}

// Behind an exponent that begins at `position`, or `position` where none does.
qsizetype ExponentEnd(QStringView text, qsizetype position)
{
    if (position >= text.size() || (text[position] != u'e' && text[position] != u'E'))
        return position;
    qsizetype digits = position + 1;
    if (digits < text.size() && (text[digits] == u'+' || text[digits] == u'-'))
        ++digits;
    const qsizetype end = SkipDigits(text, digits);
    return end > digits ? end : position;
}

constexpr qsizetype exactDigits = 15; // a double holds every integer of so many digits

constexpr std::array<double, exactDigits + 1> powersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Reads a literal of few digits that has no exponent. An exact mantissa over an exact power of ten rounds once, and so
// rightly (Clinger, How to Read Floating Point Numbers Accurately, 1990).
std::optional<double> TakeShortLiteral(QStringView text, qsizetype& position)
{
    qint64 mantissa = 0; // overflows in a literal that is not short
    qsizetype point = -1;
    qsizetype end = position;
    for (; end < text.size(); ++end) {
        const auto digit = static_cast<quint64>(text[end].unicode()) - u'0';
        if (digit <= 9)
            mantissa = static_cast<qint64>(static_cast<quint64>(mantissa) * 10 + digit);
        else if (text[end] == u'.' && point < 0)
            point = end;
        else
            break;
    }
    const qsizetype digits = end - position - (point < 0 ? 0 : 1);
    if (digits == 0 || digits > exactDigits)
        return std::nullopt;
    const char16_t next = end < text.size() ? text[end].unicode() | 0x20 : 0;
    if (next == u'e' || next > 127) // an exponent, or a digit of another script
        return std::nullopt;
    position = end;
    return static_cast<double>(mantissa) / powersOfTen[static_cast<size_t>(point < 0 ? 0 : end - point - 1)];
}

std::optional<double> ToolkitValue(QStringView literal)
{
    bool ok = false;
    const double value = literal.toDouble(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

std::optional<double> LongLiteralValue(QStringView literal)
{
    std::array<char, 64> ascii;
    if (literal.size() > static_cast<qsizetype>(ascii.size()))
        return ToolkitValue(literal);
    char* end = ascii.data();
    for (const QChar c : literal) {
        if (c.unicode() > 127)
            return ToolkitValue(literal);
        *end++ = static_cast<char>(c.unicode());
    }
    double value = 0;
    const auto [read, error] = std::from_chars(ascii.data(), end, value);
    if (error == std::errc() && read == end && std::fpclassify(value) == FP_NORMAL)
        return value;
    return ToolkitValue(literal); // zero, overflow and underflow: the toolkit has the last word on what is refused
}

// A number as d.ddd times a power of ten.
struct Decimal {
    bool negative = false;
    int exponent = 0; // of ten
    int count = 0;    // of digits; the last is no zero unless it is the only one
    std::array<char, 17> digits;
};

// The fewest digits that read back as the value, and of those the nearest to it.
Decimal ShortestDecimal(double value)
{
    std::array<char, 32> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
    Decimal decimal;
    const char* at = text.data();
    decimal.negative = *at == '-';
    for (at += decimal.negative; *at != 'e'; ++at) {
        if (*at != '.')
            decimal.digits[static_cast<size_t>(decimal.count++)] = *at;
    }
    at += at[1] == '+' ? 2 : 1;
    std::from_chars(at, end, decimal.exponent);
    return decimal;
}

// Rounds to at most `precision` digits. False where a 5 alone would go: which side of it the value lies on does not
// show in the shortest digits.
//
// Everywhere else they round as the value does. What is half-way between two decimals of fewer digits, and between the
// value and its shortest digits, would read back as the value too, and be shorter than they or nearer to it.
bool Round(Decimal& decimal, int precision)
{
    if (decimal.count <= precision)
        return true;
    char* const digits = decimal.digits.data();
    if (digits[precision] == '5' && decimal.count == precision + 1)
        return false;
    const bool up = digits[precision] >= '5';
    decimal.count = precision;
    while (decimal.count > 0 && digits[decimal.count - 1] == (up ? '9' : '0'))
        --decimal.count;
    if (decimal.count == 0) {
        digits[decimal.count++] = '1';
        ++decimal.exponent;
    } else if (up) {
        ++digits[decimal.count - 1];
    }
    return true;
}

char* AppendFixed(const Decimal& decimal, char* end)
{
    const int whole = decimal.exponent + 1; // digits before the point
    const char* const digits = decimal.digits.data();
    if (whole <= 0) {
        *end++ = '0';
        *end++ = '.';
        end = std::fill_n(end, -whole, '0');
        return std::copy_n(digits, decimal.count, end);
    }
    end = std::copy_n(digits, std::min(whole, decimal.count), end);
    if (decimal.count <= whole)
        return std::fill_n(end, whole - decimal.count, '0');
    *end++ = '.';
    return std::copy(digits + whole, digits + decimal.count, end);
}

char* AppendWithExponent(const Decimal& decimal, char* end)
{
    *end++ = decimal.digits[0];
    if (decimal.count > 1) {
        *end++ = '.';
        end = std::copy_n(decimal.digits.data() + 1, decimal.count - 1, end);
    }
    *end++ = 'e';
    *end++ = decimal.exponent < 0 ? '-' : '+';
    const int magnitude = std::abs(decimal.exponent);
    if (magnitude < 10)
        *end++ = '0';
    return std::to_chars(end, end + 3, magnitude).ptr;
}

} // namespace

qsizetype DecimalLiteralEnd(QStringView text, qsizetype position)
{
    qsizetype end = SkipDigits(text, position);
    if (end < text.size() && text[end] == u'.')
        end = SkipDigits(text, end + 1);
    return end == position ? position : ExponentEnd(text, end);
}

qsizetype NumberLiteralEnd(QStringView text, qsizetype position)
{
    if (!BeginsBaseLiteral(text, position))
        return DecimalLiteralEnd(text, position);
    while (position < text.size() && IsIdentifierPart(text[position]))
        ++position;
    return position;
}

std::optional<double> TakeDecimalLiteral(QStringView text, qsizetype& position)
{
    if (const std::optional<double> value = TakeShortLiteral(text, position))
        return value;
    const qsizetype end = DecimalLiteralEnd(text, position);
    const std::optional<double> value = LongLiteralValue(text.sliced(position, end - position));
    if (value)
        position = end;
    return value;
}

std::optional<double> DecimalLiteralValue(QStringView literal)
{
    qsizetype end = 0;
    const std::optional<double> value = TakeDecimalLiteral(literal, end);
    return end == literal.size() ? value : std::nullopt;
}

QString GeneralText(double value, int precision)
{
    if (value == 0)
        return QStringLiteral("0"); // no sign on a zero
    if (!std::isnormal(value) || precision > exactDigits)
        return QString::number(value, 'g', precision);
    Decimal decimal = ShortestDecimal(value);
    if (!Round(decimal, precision))
        return QString::number(value, 'g', precision);
    std::array<char, 32> text;
    char* end = text.data();
    if (decimal.negative)
        *end++ = '-';
    const bool fixed = decimal.exponent >= -4 && decimal.exponent < precision;
    end = fixed ? AppendFixed(decimal, end) : AppendWithExponent(decimal, end);
    return QString::fromLatin1(text.data(), end - text.data());
}
