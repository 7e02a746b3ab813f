#include "core/engine/NumberText.h"

#include "core/engine/Characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

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

constexpr int largestExactPower = 22; // 10^22 is the largest power of ten that a double holds exactly
constexpr quint64 largestExactMantissa = quint64(1) << 53;

constexpr std::array<double, largestExactPower + 1> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// A mantissa below 2^53 times or over an exact power of ten rounds once, and so rightly (Clinger, How to Read Floating
// Point Numbers Accurately, 1990). Nothing where the literal has an exponent or is not of that size.
std::optional<double> ShortLiteralValue(QStringView literal)
{
    quint64 mantissa = 0;
    qsizetype digits = 0;
    qsizetype decimals = 0;
    bool point = false;
    for (const QChar c : literal) {
        if (IsAsciiDigit(c)) {
            mantissa = mantissa * 10 + (c.unicode() - u'0');
            decimals += point;
            if (mantissa > largestExactMantissa)
                return std::nullopt;
            ++digits;
        } else if (c == u'.') {
            point = true;
        } else {
            return std::nullopt;
        }
    }
    if (digits == 0 || decimals > largestExactPower)
        return std::nullopt;
    return static_cast<double>(mantissa) / powersOfTen[static_cast<size_t>(decimals)];
}

// Whether the value may lie just between two texts of this many digits. The toolkit rounds such a one up in magnitude,
// the standard library to the even digit.
//
// A value just between has one digit more and a 5 there, and below 17 digits no shorter text reads back as it.
bool MayBeTie(double value, int precision)
{
    std::array<char, 32> text;
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
    const std::string_view shortest(text.data(), static_cast<size_t>(end - text.data()));
    const std::string_view mantissa = shortest.substr(0, shortest.find('e'));
    const auto digits = std::count_if(mantissa.begin(), mantissa.end(), [](char c) { return c >= '0' && c <= '9'; });
    return error != std::errc() || precision >= 17 || (digits == precision + 1 && mantissa.back() == '5');
}

std::optional<double> ToolkitValue(QStringView literal)
{
    bool ok = false;
    const double value = literal.toDouble(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

} // namespace

qsizetype DecimalLiteralEnd(QStringView text, qsizetype position)
{
    qsizetype end = SkipDigits(text, position);
    if (end < text.size() && text[end] == u'.')
        end = SkipDigits(text, end + 1);
    return end == position ? position : ExponentEnd(text, end);
}

bool BeginsBaseLiteral(QStringView text, qsizetype position)
{
    if (position + 1 >= text.size() || text[position] != u'0')
        return false;
    const char16_t mark = text[position + 1].unicode() | 0x20;
    return mark == u'b' || mark == u'o' || mark == u'x';
}

qsizetype NumberLiteralEnd(QStringView text, qsizetype position)
{
    if (!BeginsBaseLiteral(text, position))
        return DecimalLiteralEnd(text, position);
    while (position < text.size() && IsIdentifierPart(text[position]))
        ++position;
    return position;
}

std::optional<double> DecimalLiteralValue(QStringView literal)
{
    if (const std::optional<double> value = ShortLiteralValue(literal))
        return value;
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

QString GeneralText(double value, int precision)
{
    if (value == 0)
        return QStringLiteral("0"); // no sign on a zero
    if (!std::isfinite(value) || MayBeTie(value, precision))
        return QString::number(value, 'g', precision);
    std::array<char, 32> text;
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, precision);
    return error == std::errc() ? QString::fromLatin1(text.data(), end - text.data())
                                : QString::number(value, 'g', precision);
}
