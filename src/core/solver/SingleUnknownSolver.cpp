#include "core/solver/SingleUnknownSolver.h"

#include "core/solver/EquationText.h"

#include <cmath>

namespace {

constexpr double ranges[] = {10, 100, 1000, 10000, 1000000};
constexpr int stepsPerRange = 400;
constexpr double zeroOnGrid = 1e-10;
constexpr double zeroInBracket = 1e-12;
constexpr int mostHalvings = 100;

struct Sample {
    double x;
    Value value;
};

bool IsBelow(const Value& value, double limit)
{
    return value && std::fabs(*value) < limit;
}

bool HaveOppositeSigns(double a, double b)
{
    return (a < 0 && b > 0) || (a > 0 && b < 0);
}

class RootSearch {
public:
    RootSearch(const CompiledEquation& compiled, SearchPulse& heartbeat) : equation(compiled), pulse(heartbeat) {}

    Value Run() const
    {
        if (IsBelow(Take(0).value, zeroOnGrid))
            return 0.0;
        for (const double limit : ranges) {
            if (const Value root = FindInRange(limit))
                return PreferPositive(*root);
        }
        return std::nullopt;
    }

private:
    // No point has a value once the pulse stopped.
    Sample Take(double x) const
    {
        return {x, pulse.MayGoOn(equation.Work()) ? equation.Residual({&x, 1}) : std::nullopt};
    }

    // The positive one of a pair of opposite roots.
    double PreferPositive(double root) const
    {
        return root < 0 && IsBelow(Take(-root).value, acceptedResidual) ? -root : root;
    }

    Value FindInRange(double limit) const
    {
        Sample previous = Take(-limit);
        for (int i = 1; i <= stepsPerRange; ++i) {
            const Sample sample = Take((i * (limit + limit)) / stepsPerRange - limit);
            if (IsBelow(sample.value, zeroOnGrid))
                return sample.x;
            if (sample.value && previous.value && HaveOppositeSigns(*previous.value, *sample.value)) {
                if (const Value root = Bisect(previous, sample.x))
                    return root;
            }
            previous = sample;
        }
        return std::nullopt;
    }

    // The root between two points of opposite signs; nothing where the sign changes at a jump or a pole.
    Value Bisect(Sample low, double high) const
    {
        double middle = (low.x + high) * 0.5;
        for (int i = 0; i < mostHalvings; ++i) {
            const Sample sample = Take(middle);
            if (!sample.value)
                break;
            if (std::fabs(*sample.value) < zeroInBracket)
                return middle;
            if (HaveOppositeSigns(*low.value, *sample.value))
                high = middle;
            else
                low = sample;
            const double next = (low.x + high) * 0.5;
            if (next == middle && !equation.DrawsRandomly())
                break; // no double is left between the two: the other rounds would not move either
            middle = next;
        }
        return IsBelow(Take(middle).value, acceptedResidual) ? Value(middle) : std::nullopt;
    }

    const CompiledEquation& equation;
    SearchPulse& pulse;
};

} // namespace

Value SolveSingleVariableEquation(const CompiledEquation& equation, SearchPulse& pulse)
{
    const Value root = RootSearch(equation, pulse).Run();
    return pulse.IsStopped() ? std::nullopt : root;
}

bool SolveSingleVariableEquationBlock(const EquationSystem& system, Point& values, SearchPulse& pulse)
{
    values.clear();
    if (system.Unknowns() != 1)
        return false;
    QString left;
    QString right;
    QString variable;
    for (size_t i = 0; i < system.compiled.size() && !pulse.IsStopped(); ++i) {
        const QString& equation = system.equations[static_cast<qsizetype>(i)];
        if (!ParseSingleVariableEquation(equation, left, right, variable, system.setting) ||
            variable != system.names.first())
            continue;
        const Value root = SolveSingleVariableEquation(system.compiled[i], pulse);
        if (root && system.IsSolvedBy({&*root, 1}, acceptedResidual)) {
            values = {*root};
            return true;
        }
    }
    return false;
}
