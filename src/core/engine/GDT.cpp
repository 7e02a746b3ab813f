#include "core/engine/GDT.h"

#include <cmath>

namespace {

// Checks are written so that NaN fails them.
bool AreSizes(Arguments arguments)
{
    return arguments[0] >= 0 && arguments[1] >= 0;
}

Value RadialDeviation(Arguments arguments)
{
    return std::hypot(arguments[0], arguments[1]);
}

Value Position(Arguments arguments)
{
    return 2 * std::hypot(arguments[0], arguments[1]);
}

Value Position3D(Arguments arguments)
{
    const double dx = arguments[0];
    const double dy = arguments[1];
    const double dz = arguments[2];
    return 2 * std::sqrt(dx * dx + dy * dy + dz * dz);
}

Value SignedDifference(Arguments arguments)
{
    return arguments[0] - arguments[1];
}

Value AbsoluteDifference(Arguments arguments)
{
    return std::fabs(arguments[0] - arguments[1]);
}

Value PositionAllowed(Arguments arguments)
{
    const double statedTolerance = arguments[0];
    if (!(statedTolerance >= 0))
        return std::nullopt;
    return statedTolerance + std::fabs(arguments[1] - arguments[2]);
}

Value SumOfSizes(Arguments arguments)
{
    return AreSizes(arguments) ? Value(arguments[0] + arguments[1]) : std::nullopt;
}

Value SizeLessTolerance(Arguments arguments)
{
    if (!AreSizes(arguments) || !(arguments[0] >= arguments[1]))
        return std::nullopt;
    return arguments[0] - arguments[1];
}

Value FixedFastener(Arguments arguments)
{
    const Value clearance = SizeLessTolerance(arguments);
    return clearance ? Value(*clearance * 0.5) : std::nullopt; // half for each of the two mating features
}

Value PositionMargin(Arguments arguments)
{
    return AreSizes(arguments) ? SignedDifference(arguments) : std::nullopt;
}

Value PositionUtilization(Arguments arguments)
{
    const double actualPosition = arguments[0];
    const double allowedPosition = arguments[1];
    if (!(actualPosition >= 0) || !(allowedPosition > 0))
        return std::nullopt;
    return actualPosition / allowedPosition * 100.0;
}

// clang-format off
constexpr FunctionRow functions[] = {
    {QLatin1StringView("POSITION"),         2, 2, Position},            // dx, dy
    {QLatin1StringView("TRUEPOSITION"),     2, 2, Position},            // dx, dy
    {QLatin1StringView("DIAMETRALDEV"),     2, 2, Position},            // dx, dy
    {QLatin1StringView("RADIALDEV"),        2, 2, RadialDeviation},     // dx, dy
    {QLatin1StringView("POSITION3D"),       3, 3, Position3D},          // dx, dy, dz
    {QLatin1StringView("COORDDEV"),         2, 2, SignedDifference},    // actual, basic
    {QLatin1StringView("BONUSTOL"),         2, 2, AbsoluteDifference},  // actualSize, materialConditionSize
    {QLatin1StringView("TOTALTOL"),         2, 2, SumOfSizes},          // statedTolerance, bonusTolerance
    {QLatin1StringView("POSITIONALLOW"),    3, 3, PositionAllowed},     // statedTolerance, actualSize, materialConditionSize
    {QLatin1StringView("ZEROTOLMMC"),       2, 2, AbsoluteDifference},  // actualSize, mmcSize
    {QLatin1StringView("VCINTERNAL"),       2, 2, SizeLessTolerance},   // mmcSize, geometricTolerance
    {QLatin1StringView("VCEXTERNAL"),       2, 2, SumOfSizes},          // mmcSize, geometricTolerance
    {QLatin1StringView("RCINTERNAL"),       2, 2, SumOfSizes},          // lmcSize, geometricTolerance
    {QLatin1StringView("RCEXTERNAL"),       2, 2, SizeLessTolerance},   // lmcSize, geometricTolerance
    {QLatin1StringView("BOUNDARYINTERNAL"), 2, 2, SizeLessTolerance},   // featureSize, geometricTolerance
    {QLatin1StringView("BOUNDARYEXTERNAL"), 2, 2, SumOfSizes},          // featureSize, geometricTolerance
    {QLatin1StringView("FLOATINGFASTENER"), 2, 2, SizeLessTolerance},   // holeMMC, fastenerMMC
    {QLatin1StringView("FIXEDFASTENER"),    2, 2, FixedFastener},       // holeMMC, fastenerMMC
    {QLatin1StringView("POSITIONMARGIN"),   2, 2, PositionMargin},      // allowedPosition, actualPosition
    {QLatin1StringView("POSITIONUTIL"),     2, 2, PositionUtilization}, // actualPosition, allowedPosition
};
// clang-format on

} // namespace

FunctionLibrary GDTFunctions()
{
    return functions;
}

double RunGDTFunction(const QString& name, const QList<double>& arguments, bool& ok, bool& handled)
{
    return RunLibraryFunction(functions, name.toUpper(), arguments, ok, handled);
}
