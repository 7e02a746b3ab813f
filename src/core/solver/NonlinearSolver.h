// The last resort for equations: a damped Gauss-Newton search that begins anew, from a fixed sequence of starts, until
// it meets an exact answer or is told to stop.
//
// Any number of equations and unknowns: the steps solve the normal equations. Two searches of the same system visit the
// same points, however often they are asked whether they may go on.
#pragma once

#include "core/solver/EquationSystem.h"
#include "core/solver/SearchPulse.h"

/// How a search ended.
enum class SearchEnd {
    Exact,       ///< the values solve the system, every residual below 1e-12
    Approximate, ///< stopped; the values are those with the smallest sum of squared residuals that was seen
    Cancelled,   ///< stopped before any point was seen at which all equations have a value
};

/// Searches until it finds an exact answer or `pulse` stops.
///
/// @param values  one for each unknown; none where the search was cancelled
SearchEnd SolveNonlinearEquationSystem(const EquationSystem& system, Point& values, SearchPulse& pulse);

/// An approximate answer with its values rounded to the fewest decimals that change one of them and cost nothing. Only
/// values within 1e-9 (relative above 1) of a rounded one are changed.
Point TidyApproximateAnswer(const EquationSystem& system, const Point& values);
