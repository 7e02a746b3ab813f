#include "core/engine/Fractions.h"

#include <QRegularExpression>
#include <QStringList>
#include <QtNumeric>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr long double largestInteger = std::numeric_limits<qint64>::max();
constexpr qint64 largestDenominator = 999'999;
constexpr int mostRows = 6;
constexpr long double tolerance = 1e-14L; // absolute up to 1, relative above

struct Fraction {
    qint64 numerator = 0;
    qint64 denominator = 1;
};

Fraction Reduced(qint64 numerator, qint64 denominator)
{
    const qint64 divisor = std::gcd(numerator, denominator);
    return {numerator / divisor, denominator / divisor};
}

std::optional<qint64> TimesPowerOfTen(qint64 number, int exponent)
{
    for (; exponent > 0; --exponent) {
        if (qMulOverflow(number, qint64(10), &number))
            return std::nullopt;
    }
    return number;
}

// The fifteen significant digits of `magnitude`, as they are printed, over a power of ten.
std::optional<Fraction> DecimalFraction(double magnitude)
{
    const QStringList parts = QString::number(magnitude, 'g', 15).split(u'e');
    QString digits = parts[0];
    const int exponent = parts.size() > 1 ? parts[1].toInt() : 0;
    const qsizetype point = digits.indexOf(u'.');
    const int fractionDigits = point < 0 ? 0 : static_cast<int>(digits.size() - 1 - point);
    const qint64 number = digits.remove(u'.').toLongLong();
    const int shift = fractionDigits - exponent;
    const std::optional<qint64> numerator = TimesPowerOfTen(number, -shift);
    const std::optional<qint64> denominator = TimesPowerOfTen(1, shift);
    if (!numerator || !denominator)
        return std::nullopt;
    return Reduced(*numerator, *denominator);
}

// The fractions n/d nearest to a magnitude for ascending d, with those left out that are certainly further away than a
// given distance, or that are the one before in other terms.
//
// What counts is the distance in floating point, which takes a division for each d. The distance of magnitude * d from
// the nearest integer is known much sooner: it is a sum in 64-bit fixed point, exact but for d units of 2^-64. Only
// where that is small enough is the division done.
class NearestFractions {
public:
    NearestFractions(long double magnitudeOfValue, qint64 firstDenominator)
        : magnitude(magnitudeOfValue), step(static_cast<quint64>((magnitude - std::floor(magnitude)) * 0x1p64L)),
          // Product, quotient and difference round by less than a unit in the last place each.
          rounding(4 * std::numeric_limits<long double>::epsilon() * std::max(magnitude, 1.0L)),
          denominator(static_cast<quint64>(firstDenominator - 1)), remainder(step * denominator)
    {
    }

    // The smallest distance for d from here to `last`, up to rounding.
    long double SmallestDistance(qint64 last) const
    {
        quint64 sum = remainder;
        double nearest = 0x1p64;
        double nearestDenominator = 1;
        for (quint64 d = denominator + 1; d <= static_cast<quint64>(last); ++d) {
            sum += step;
            const auto fromInteger = static_cast<double>(std::min(sum, -sum));
            if (fromInteger * nearestDenominator < nearest * static_cast<double>(d)) {
                nearest = fromInteger;
                nearestDenominator = static_cast<double>(d);
            }
        }
        return static_cast<long double>(nearest / nearestDenominator) * 0x1p-64L;
    }

    // Goes on to the next d up to `last` whose n/d may be within `distance`. False: there is none.
    bool Next(qint64 last, long double distance)
    {
        const double perDenominator = static_cast<double>((distance + rounding) * 0x1p64L) * (1 + 1e-12);
        while (denominator < static_cast<quint64>(last)) {
            ++denominator;
            remainder += step;
            const quint64 fromInteger = std::min(remainder, -remainder);
            if (static_cast<double>(fromInteger) <= perDenominator * static_cast<double>(denominator) &&
                IsNew(fromInteger))
                return Take();
        }
        return false;
    }

    qint64 Numerator() const { return numerator; }
    qint64 Denominator() const { return static_cast<qint64>(denominator); }
    long double Error() const { return error; }

private:
    // Many a magnitude has a near fraction with a small d, and every multiple of it is as near. Half-way between two
    // integers the rounded product may be nearest to the other one, so that nothing is said there.
    bool IsNew(quint64 fromInteger)
    {
        const quint64 high = (step >> 32) * denominator;
        const quint64 low = (step & 0xFFFF'FFFFu) * denominator;
        const quint64 part = ((high + (low >> 32)) >> 32) + (remainder >> 63);
        if (part * takenDenominator == takenPart * denominator && fromInteger < (1ull << 63) - (1ull << 56))
            return false;
        takenPart = part;
        takenDenominator = denominator;
        return true;
    }

    bool Take()
    {
        const long double product = magnitude * static_cast<long double>(denominator);
        if (product > largestInteger)
            return false; // and so are the products of all that follow
        numerator = std::llround(product);
        error = std::fabs(static_cast<long double>(numerator) / static_cast<long double>(denominator) - magnitude);
        return true;
    }

    const long double magnitude;
    const quint64 step; // what magnitude has behind the point, in units of 2^-64
    const long double rounding;
    quint64 denominator;
    quint64 remainder;     // what magnitude * denominator has behind the point
    quint64 takenPart = 1; // of the fraction taken last, without the whole of the magnitude
    quint64 takenDenominator = 0;
    qint64 numerator = 0;
    long double error = 0;
};

// The first fraction within the tolerance.
std::optional<Fraction> SimpleFraction(double magnitude)
{
    const long double allowed = magnitude <= 1 ? tolerance : magnitude * tolerance;
    NearestFractions fractions(magnitude, 1);
    while (fractions.Next(largestDenominator, allowed)) {
        if (fractions.Error() <= allowed)
            return Reduced(fractions.Numerator(), fractions.Denominator());
    }
    return std::nullopt;
}

struct Approximation {
    Fraction fraction; // without the sign
    long double error = 0;
};

// The fraction nearest to `magnitude` with a denominator from `first` to `last`, the first of equals. Nothing where it
// is no fraction of that length once it is reduced.
std::optional<Approximation> BestApproximation(long double magnitude, qint64 first, qint64 last)
{
    NearestFractions fractions(magnitude, first);
    Fraction best{0, 0};
    long double error = std::numeric_limits<long double>::max();
    const long double distance = fractions.SmallestDistance(last);
    while (error > 0 && fractions.Next(last, distance)) {
        if (fractions.Error() >= error)
            continue;
        error = fractions.Error();
        best = {fractions.Numerator(), fractions.Denominator()};
    }
    if (best.denominator == 0)
        return std::nullopt;
    best = Reduced(best.numerator, best.denominator);
    if (best.denominator < first)
        return std::nullopt;
    return Approximation{best, error};
}

QString TextOf(const Fraction& fraction)
{
    return QString::number(fraction.numerator) + u'/' + QString::number(fraction.denominator);
}

QString TableOf(const std::vector<Approximation>& rows, qint64 sign, long double magnitude)
{
    QStringList fractions;
    qsizetype width = 0;
    for (const Approximation& row : rows) {
        fractions += TextOf({sign * row.fraction.numerator, row.fraction.denominator});
        width = std::max(width, fractions.last().size() + 2);
    }
    const long double noError = std::max(1.0L, magnitude) * tolerance;
    QString table;
    for (size_t i = 0; i < rows.size(); ++i) {
        const auto& [fraction, error] = rows[i];
        const long double value =
            static_cast<long double>(sign * fraction.numerator) / static_cast<long double>(fraction.denominator);
        table += u'\n' + fractions[static_cast<qsizetype>(i)].leftJustified(width) +
                 QString::number(static_cast<double>(value), 'g', 12).leftJustified(18) + u"error " +
                 QString::number(error <= noError ? 0 : static_cast<double>(error), 'g', 12);
    }
    return table;
}

} // namespace

bool MatchFractionCommand(const QString& text, QString& expression)
{
    expression.clear();
    static const QRegularExpression start(u"^FRACTION\\s*\\("_s, QRegularExpression::CaseInsensitiveOption);
    const QString line = text.trimmed();
    const QRegularExpressionMatch match = start.match(line);
    if (!match.hasMatch())
        return false;
    if (line.endsWith(u')'))
        expression = line.sliced(match.capturedEnd()).chopped(1).trimmed();
    return true;
}

std::optional<QString> FractionText(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    const double magnitude = std::fabs(value);
    const qint64 sign = value < 0 ? -1 : 1;
    const std::optional<Fraction> decimal = DecimalFraction(magnitude);
    if (!decimal)
        return std::nullopt;
    const Fraction fraction = SimpleFraction(magnitude).value_or(*decimal);

    const long double base =
        static_cast<long double>(fraction.numerator) / static_cast<long double>(fraction.denominator);
    std::vector<Approximation> rows;
    qint64 first = 1;
    for (int digits = 1; digits <= mostRows && first <= fraction.denominator; ++digits, first *= 10) {
        if (const std::optional<Approximation> row = BestApproximation(base, first, 10 * first - 1))
            rows.push_back(*row);
    }
    return TextOf({sign * fraction.numerator, fraction.denominator}) + u"\n\nApproximate Values" +
           TableOf(rows, sign, base);
}
