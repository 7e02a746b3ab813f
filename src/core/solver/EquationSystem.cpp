#include "core/solver/EquationSystem.h"

#include "core/solver/EquationText.h"

#include <algorithm>
#include <cmath>

bool EquationSystem::Evaluate(std::span<const double> values, std::vector<double>& residuals, double& cost) const
{
    residuals.resize(compiled.size());
    cost = 0;
    for (size_t i = 0; i < compiled.size(); ++i) {
        const Value residual = compiled[i].Residual(values);
        if (!residual)
            return false;
        residuals[i] = *residual;
        cost += *residual * *residual;
    }
    return std::isfinite(cost);
}

bool EquationSystem::IsSolvedBy(std::span<const double> values, double tolerance) const
{
    return std::all_of(compiled.begin(), compiled.end(), [&](const CompiledEquation& equation) {
        const Value residual = equation.Residual(values);
        return residual && std::fabs(*residual) <= tolerance;
    });
}

std::optional<EquationSystem> BuildEquationSystem(const QStringList& equations, const EquationSetting& setting)
{
    EquationSystem system{equations, {}, setting, {}};
    if (!FindEquationSystemVariables(equations, system.names, setting))
        return std::nullopt;
    system.compiled.reserve(static_cast<size_t>(equations.size()));
    for (const QString& equation : equations)
        system.compiled.emplace_back(equation, system.names, setting);
    return system;
}

double LargestResidual(std::span<const double> residuals)
{
    double largest = 0;
    for (const double residual : residuals)
        largest = std::max(largest, std::fabs(residual));
    return largest;
}
