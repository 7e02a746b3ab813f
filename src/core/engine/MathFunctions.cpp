#include "core/engine/MathFunctions.h"

#include "core/engine/Constants.h"
#include "core/engine/ProgrammerMath.h"

#include <cmath>
#include <cstdlib>
#include <numeric>

namespace {

template <double (*function)(double)>
Value Plain(Arguments arguments)
{
    return function(arguments[0]);
}

Value SquareRoot(Arguments arguments)
{
    return arguments[0] >= 0 ? Value(std::sqrt(arguments[0])) : std::nullopt;
}

template <double (*function)(double)>
Value OfPositive(Arguments arguments)
{
    return arguments[0] > 0 ? Value(function(arguments[0])) : std::nullopt;
}

template <double (*function)(double)>
Value OfUnitRange(Arguments arguments)
{
    return std::fabs(arguments[0]) <= 1 ? Value(function(arguments[0])) : std::nullopt;
}

Value Sign(Arguments arguments)
{
    return arguments[0] > 0 ? 1.0 : arguments[0] < 0 ? -1.0 : 0.0;
}

// Multiplied first: the order decides the last digit.
Value RadiansOfDegrees(Arguments arguments)
{
    return arguments[0] * pi / 180.0;
}

Value DegreesOfRadians(Arguments arguments)
{
    return arguments[0] * 180.0 / pi;
}

// ROUND(value), or ROUND(decimalPlaces, value) with 0 to 15 places; halves go away from zero.
Value Round(Arguments arguments)
{
    if (arguments.size() == 1)
        return std::round(arguments[0]);
    const double places = arguments[0];
    if (!IsSafeInteger(places) || places < 0 || places > 15)
        return std::nullopt;
    const double scale = std::pow(10.0, places);
    return std::round(arguments[1] * scale) / scale; // an overflow stays infinite, and the caller refuses that
}

Value ArcTangentOfQuotient(Arguments arguments)
{
    return std::atan2(arguments[0], arguments[1]);
}

Value GreatestCommonDivisor(Arguments arguments)
{
    if (!IsSafeInteger(arguments[0]) || !IsSafeInteger(arguments[1]))
        return std::nullopt;
    return static_cast<double>(std::gcd(static_cast<qint64>(arguments[0]), static_cast<qint64>(arguments[1])));
}

// Fails where the multiple does not fit 64 bits.
Value LeastCommonMultiple(Arguments arguments)
{
    if (!IsSafeInteger(arguments[0]) || !IsSafeInteger(arguments[1]))
        return std::nullopt;
    const qint64 a = std::llabs(static_cast<qint64>(arguments[0]));
    const qint64 b = std::llabs(static_cast<qint64>(arguments[1]));
    if (a == 0 || b == 0)
        return 0.0;
    const qint64 quotient = a / std::gcd(a, b);
    if (quotient > std::numeric_limits<qint64>::max() / b)
        return std::nullopt;
    return static_cast<double>(quotient * b);
}

// clang-format off
constexpr FunctionRow functions[] = {
    {QLatin1StringView("SIN"),   1, 1, Plain<std::sin>},             // radians
    {QLatin1StringView("COS"),   1, 1, Plain<std::cos>},             // radians
    {QLatin1StringView("TAN"),   1, 1, Plain<std::tan>},             // radians
    {QLatin1StringView("SQRT"),  1, 1, SquareRoot},
    {QLatin1StringView("ABS"),   1, 1, Plain<std::fabs>},
    {QLatin1StringView("LOG"),   1, 1, OfPositive<std::log10>},
    {QLatin1StringView("LN"),    1, 1, OfPositive<std::log>},
    {QLatin1StringView("EXP"),   1, 1, Plain<std::exp>},
    {QLatin1StringView("ASIN"),  1, 1, OfUnitRange<std::asin>},      // gives radians
    {QLatin1StringView("ACOS"),  1, 1, OfUnitRange<std::acos>},      // gives radians
    {QLatin1StringView("ATAN"),  1, 1, Plain<std::atan>},            // gives radians
    {QLatin1StringView("FLOOR"), 1, 1, Plain<std::floor>},
    {QLatin1StringView("CEIL"),  1, 1, Plain<std::ceil>},
    {QLatin1StringView("SIGN"),  1, 1, Sign},
    {QLatin1StringView("RAD"),   1, 1, RadiansOfDegrees},
    {QLatin1StringView("DEG"),   1, 1, DegreesOfRadians},
    {QLatin1StringView("ROUND"), 1, 2, Round},                       // [decimalPlaces,] value
    {QLatin1StringView("ATAN2"), 2, 2, ArcTangentOfQuotient},        // y, x
    {QLatin1StringView("GCD"),   2, 2, GreatestCommonDivisor},
    {QLatin1StringView("LCM"),   2, 2, LeastCommonMultiple},
};
// clang-format on

} // namespace

FunctionLibrary MathFunctions()
{
    return functions;
}
