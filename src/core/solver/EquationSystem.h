// A system of equations with its unknowns, ready to be evaluated at many points.
//
// A single equation is a system of one. A point is one value for each unknown, in the order of the names.
#pragma once

#include "core/solver/CompiledEquation.h"

#include <QStringList>

#include <optional>
#include <span>
#include <vector>

using Point = std::vector<double>;

struct EquationSystem {
    QStringList equations; ///< as entered
    QStringList names;     ///< the unknowns: upper case, sorted, at least one
    EquationSetting setting;
    std::vector<CompiledEquation> compiled; ///< one for each equation

    size_t Unknowns() const { return static_cast<size_t>(names.size()); }

    /// Left minus right of every equation at a point.
    ///
    /// @param cost  the sum of squared residuals
    /// @return false where an equation has no value at the point or the cost is not finite; neither counts then
    bool Evaluate(std::span<const double> values, std::vector<double>& residuals, double& cost) const;

    /// Whether the point solves every equation as entered, each within `tolerance`.
    bool IsSolvedBy(std::span<const double> values, double tolerance) const;
};

/// The system of the given equations; nothing where FindEquationSystemVariables has no names for it.
std::optional<EquationSystem> BuildEquationSystem(const QStringList& equations, const EquationSetting& setting);

/// The largest residual in magnitude; 0 where there are none.
double LargestResidual(std::span<const double> residuals);

/// How far a candidate may miss and still solve the equations.
constexpr double acceptedResidual = 1e-8;
