// Descriptive statistics, percentiles and random numbers over the arguments of one call.
//
// Pure functions over finite doubles, in the order in which they were given; where the random functions get their bits
// is the caller's business. What each name of the pad's language takes stands in the table of Statistics.cpp.
#pragma once

#include "core/engine/FunctionTable.h"

/// How numbers lie around their mean.
struct SquaredDeviations {
    double mean = 0;
    double sumOfSquares = 0; // of the distances from the mean
};

/// Mean and sum of squared deviations in one pass, without the cancellation of "sum of squares minus square of sum".
///
/// @param values  finite numbers; none give zeros
/// @return nothing where a sum leaves the range of double
///
/// Algorithm: B. P. Welford, Note on a Method for Calculating Corrected Sums of Squares and Products, Technometrics 4
/// (1962) 419.
std::optional<SquaredDeviations> CalculateSumOfSquaredDeviations(Arguments values);

/// The value below which `percentile` percent of the numbers lie, interpolated linearly between neighbours.
///
/// @param values      finite numbers in any order
/// @param percentile  0 to 100; 0 gives the smallest number and 100 the largest
/// @return nothing where there are no values, the percentile is out of its range or the result is not finite
///
/// Inclusive method: position p/100 (n - 1) in the sorted list, counted from 0; definition 7 of R. J. Hyndman and
/// Y. Fan, Sample Quantiles in Statistical Packages, The American Statistician 50 (1996) 361.
Value CalculateInclusivePercentile(Arguments values, double percentile);

/// All functions of this library, a row each.
FunctionLibrary StatisticsFunctions();

/// A call by name, in any case of letters; random functions draw from the toolkit's global generator.
///
/// @param ok       whether the call gave a value
/// @param handled  whether the name is one of this library; `ok` and the result are final then
/// @return the value, 0 where there is none
double RunStatisticsFunction(const QString& name, const QList<double>& arguments, bool& ok, bool& handled);
