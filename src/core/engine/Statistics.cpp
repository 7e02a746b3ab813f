#include "core/engine/Statistics.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <vector>

namespace {

constexpr double twoTo53 = 9007199254740992.0; // every whole number up to here is a double

std::vector<double> Sorted(Arguments values)
{
    std::vector<double> sorted(values.begin(), values.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

bool AllPositive(Arguments values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return value > 0; });
}

bool IsNearlyWhole(double value)
{
    return std::fabs(value - std::round(value)) <= 1e-12;
}

template <typename Term>
long double ExtendedSum(Arguments values, Term term)
{
    long double sum = 0;
    for (const long double value : values)
        sum += term(value);
    return sum;
}

long double ExtendedSumOfSquares(Arguments values)
{
    return ExtendedSum(values, [](long double value) { return value * value; });
}

Value Smallest(Arguments values)
{
    return *std::min_element(values.begin(), values.end());
}

Value Largest(Arguments values)
{
    return *std::max_element(values.begin(), values.end());
}

Value Range(Arguments values)
{
    const auto [smallest, largest] = std::minmax_element(values.begin(), values.end());
    return *largest - *smallest;
}

Value Count(Arguments values)
{
    return static_cast<double>(values.size());
}

Value Sum(Arguments values)
{
    return std::accumulate(values.begin(), values.end(), 0.0);
}

Value Average(Arguments values)
{
    double mean = 0;
    double count = 0;
    for (const double value : values)
        mean += (value - mean) / ++count;
    return mean;
}

Value Median(Arguments values)
{
    const std::vector<double> sorted = Sorted(values);
    const size_t middle = sorted.size() / 2;
    return sorted.size() % 2 != 0 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) * 0.5;
}

// Among tied values the smallest wins; a list without a repeated value has no mode.
Value Mode(Arguments values)
{
    std::map<double, size_t> counts;
    for (const double value : values)
        ++counts[value];
    const auto mode = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& left, const auto& right) { return left.second < right.second; });
    return mode->second > 1 ? Value(mode->first) : std::nullopt;
}

Value Variance(Arguments values, double divisor)
{
    const auto deviations = CalculateSumOfSquaredDeviations(values);
    return deviations ? Value(deviations->sumOfSquares / divisor) : std::nullopt;
}

Value SampleVariance(Arguments values)
{
    return Variance(values, static_cast<double>(values.size() - 1));
}

Value PopulationVariance(Arguments values)
{
    return Variance(values, static_cast<double>(values.size()));
}

Value SquareRoot(Value variance)
{
    return variance ? Value(std::sqrt(*variance)) : std::nullopt;
}

Value SampleDeviation(Arguments values)
{
    return SquareRoot(SampleVariance(values));
}

Value PopulationDeviation(Arguments values)
{
    return SquareRoot(PopulationVariance(values));
}

Value GeometricMean(Arguments values)
{
    if (!AllPositive(values))
        return std::nullopt;
    const long double sum = ExtendedSum(values, [](long double value) { return std::log(value); });
    return static_cast<double>(std::exp(sum / static_cast<long double>(values.size())));
}

Value HarmonicMean(Arguments values)
{
    if (!AllPositive(values))
        return std::nullopt;
    const long double sum = ExtendedSum(values, [](long double value) { return 1 / value; });
    return static_cast<double>(static_cast<long double>(values.size()) / sum);
}

Value SumOfSquares(Arguments values)
{
    return static_cast<double>(ExtendedSumOfSquares(values));
}

Value RootMeanSquare(Arguments values)
{
    return static_cast<double>(std::sqrt(ExtendedSumOfSquares(values) / static_cast<long double>(values.size())));
}

Value Percentile(Arguments arguments)
{
    return CalculateInclusivePercentile(arguments.subspan(1), arguments[0]);
}

Value Quartile(Arguments arguments)
{
    const double quartile = arguments[0];
    if (!IsNearlyWhole(quartile)) // the range of percentiles refuses what lies outside 0 to 4
        return std::nullopt;
    return CalculateInclusivePercentile(arguments.subspan(1), quartile * 25.0);
}

// Sum of ((x - mean) / s)^power; nothing where all values are the same.
std::optional<long double> StandardizedSum(Arguments values, int power)
{
    const auto deviations = CalculateSumOfSquaredDeviations(values);
    if (!deviations)
        return std::nullopt;
    const double variance = deviations->sumOfSquares / static_cast<double>(values.size() - 1);
    if (!(variance > 0))
        return std::nullopt;
    const double deviation = std::sqrt(variance);
    return ExtendedSum(values, [=, mean = deviations->mean](long double value) {
        return std::pow((value - mean) / deviation, power);
    });
}

// Adjusted Fisher-Pearson coefficient of skewness.
Value Skewness(Arguments values)
{
    const auto sum = StandardizedSum(values, 3);
    if (!sum)
        return std::nullopt;
    const auto n = static_cast<long double>(values.size());
    return static_cast<double>(*sum * (n / ((n - 1) * (n - 2))));
}

// Excess over the normal distribution's, estimated from a sample.
Value Kurtosis(Arguments values)
{
    const auto sum = StandardizedSum(values, 4);
    if (!sum)
        return std::nullopt;
    const auto n = static_cast<long double>(values.size());
    const long double factor = n * (n + 1) / ((n - 1) * (n - 2) * (n - 3));
    const long double normal = 3 * (n - 1) * (n - 1) / ((n - 2) * (n - 3));
    return static_cast<double>(factor * *sum - normal);
}

// Uniform in [0, 1), all 53 bits of the fraction random.
double UniformFraction(const RandomSource& random)
{
    return static_cast<double>(random() >> 11) * 0x1p-53;
}

Value RandomFraction(Arguments, const RandomSource& random)
{
    return UniformFraction(random);
}

// Extended precision holds the size of the widest span, 2^54 + 1, which a double does not. The limit keeps the result
// in the range whatever the product's rounding does.
Value RandomWhole(Arguments arguments, const RandomSource& random)
{
    if (!IsNearlyWhole(arguments[0]) || !IsNearlyWhole(arguments[1]))
        return std::nullopt;
    const long double lowest = std::round(arguments[0]);
    const long double highest = std::round(arguments[1]);
    if (lowest > highest || lowest < -twoTo53 || highest > twoTo53)
        return std::nullopt;
    if (lowest == highest)
        return static_cast<double>(lowest);
    const long double step = std::floor((highest - lowest + 1) * UniformFraction(random));
    return static_cast<double>(std::min(highest, lowest + step));
}

// clang-format off
constexpr FunctionRow functions[] = {
    {QLatin1StringView("RANDOM"),     0, 0,        nullptr, RandomFraction},
    {QLatin1StringView("RANDINT"),    2, 2,        nullptr, RandomWhole}, // minimum, maximum
    {QLatin1StringView("MIN"),        1, anyCount, Smallest},
    {QLatin1StringView("MAX"),        1, anyCount, Largest},
    {QLatin1StringView("SUM"),        1, anyCount, Sum},
    {QLatin1StringView("AVG"),        1, anyCount, Average},
    {QLatin1StringView("MEDIAN"),     1, anyCount, Median},
    {QLatin1StringView("MODE"),       1, anyCount, Mode},
    {QLatin1StringView("COUNT"),      1, anyCount, Count},
    {QLatin1StringView("RANGE"),      1, anyCount, Range},
    {QLatin1StringView("STDEV"),      2, anyCount, SampleDeviation},
    {QLatin1StringView("STDEVP"),     1, anyCount, PopulationDeviation},
    {QLatin1StringView("VARIANCE"),   2, anyCount, SampleVariance},
    {QLatin1StringView("VARIANCEP"),  1, anyCount, PopulationVariance},
    {QLatin1StringView("GEOMEAN"),    1, anyCount, GeometricMean},
    {QLatin1StringView("HARMEAN"),    1, anyCount, HarmonicMean},
    {QLatin1StringView("RMS"),        1, anyCount, RootMeanSquare},
    {QLatin1StringView("SUMSQ"),      1, anyCount, SumOfSquares},
    {QLatin1StringView("PERCENTILE"), 2, anyCount, Percentile},           // percentile, values
    {QLatin1StringView("QUARTILE"),   2, anyCount, Quartile},             // quartile, values
    {QLatin1StringView("SKEW"),       3, anyCount, Skewness},
    {QLatin1StringView("KURTOSIS"),   4, anyCount, Kurtosis},
};
// clang-format on

} // namespace

std::optional<SquaredDeviations> CalculateSumOfSquaredDeviations(Arguments values)
{
    SquaredDeviations deviations;
    double count = 0;
    for (const double value : values) {
        const double delta = value - deviations.mean;
        deviations.mean += delta / ++count;
        deviations.sumOfSquares += (value - deviations.mean) * delta;
    }
    const bool valid =
        std::isfinite(deviations.mean) && std::isfinite(deviations.sumOfSquares) && deviations.sumOfSquares >= 0;
    return valid ? std::optional(deviations) : std::nullopt;
}

Value CalculateInclusivePercentile(Arguments values, double percentile)
{
    if (values.empty() || !(percentile >= 0) || !(percentile <= 100))
        return std::nullopt;
    const std::vector<double> sorted = Sorted(values);
    const size_t last = sorted.size() - 1;
    const double position = percentile / 100.0 * static_cast<double>(last);
    const auto lower = static_cast<size_t>(position);
    const size_t upper = std::min(lower + 1, last);
    if (lower == upper)
        return sorted[lower];
    const double value = sorted[lower] + (sorted[upper] - sorted[lower]) * (position - static_cast<double>(lower));
    return std::isfinite(value) ? Value(value) : std::nullopt;
}

FunctionLibrary StatisticsFunctions()
{
    return functions;
}

double RunStatisticsFunction(const QString& name, const QList<double>& arguments, bool& ok, bool& handled)
{
    return RunLibraryFunction(functions, name.toUpper(), arguments, ok, handled);
}
