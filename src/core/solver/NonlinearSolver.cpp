#include "core/solver/NonlinearSolver.h"

#include "core/solver/LinearSolver.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double exactResidual = 1e-12;
constexpr double wholeTolerance = 1e-9; // how near an answer is to the whole number that it is taken for
constexpr int mostIterations = 400;     // per start
constexpr int mostHalvings = 16;
constexpr double firstDamping = 0.001;
constexpr double leastDamping = 1e-12;
constexpr double mostDamping = 1e12;
constexpr double relativeStep = 1e-6; // of the central differences
constexpr double startScales[] = {1, 5, 10, 100};
constexpr int mostTidyDecimals = 12;

struct Sample {
    Point values;
    std::vector<double> residuals;
    double cost = 0;
};

// All zeros first; then points on spheres of four sizes without a pattern.
void SetStartPoint(Point& values, quint64 start)
{
    const double scale = startScales[start % std::size(startScales)];
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = start == 0 ? 0 : scale * std::sin(static_cast<double>(start + 1) * static_cast<double>(i + 2));
}

class NonlinearSearch {
public:
    NonlinearSearch(const EquationSystem& equations, SearchPulse& heartbeat);

    SearchEnd Run(Point& values);

private:
    // What comes of one iteration, or of a start.
    enum class Course { GoOn, StartIsOver, Solved };

    Course RunStart(quint64 start);
    Course Iterate();
    Course Fail();
    bool FindStep();
    bool FindUndampedOrDampedStep();
    bool SolveNormalEquations();
    bool BuildJacobian();
    bool DifferentiateBy(size_t unknown);
    bool EvaluateMoved(size_t unknown, double value, std::vector<double>& residuals);
    bool AcceptCandidate();
    bool Evaluate(Sample& sample);
    void KeepBest();
    Point SnappedAnswer();

    const EquationSystem& system;
    SearchPulse& pulse;
    size_t systemWork = 0; // of one evaluation
    bool drawsRandomly = false;
    Sample current;
    Sample candidate;
    Sample best;
    bool haveBest = false;
    double damping = firstDamping;
    Matrix jacobian;
    bool jacobianIsCurrent = false;
    Matrix normal;   // the normal equations, their right side as the last column
    Matrix workCopy; // of them
    std::vector<double> step;
    bool stepIsDamped = false;
    std::vector<double> above; // residuals with one unknown a little larger
    std::vector<double> below;
};

NonlinearSearch::NonlinearSearch(const EquationSystem& equations, SearchPulse& heartbeat)
    : system(equations), pulse(heartbeat), jacobian(equations.compiled.size(), equations.Unknowns()),
      normal(equations.Unknowns(), equations.Unknowns() + 1), workCopy(normal)
{
    current.values.resize(system.Unknowns());
    for (const CompiledEquation& equation : system.compiled) {
        systemWork += equation.Work();
        drawsRandomly |= equation.DrawsRandomly();
    }
}

SearchEnd NonlinearSearch::Run(Point& values)
{
    for (quint64 start = 0; !pulse.IsStopped(); ++start) {
        if (RunStart(start) == Course::Solved) {
            values = SnappedAnswer();
            return SearchEnd::Exact;
        }
    }
    values = best.values;
    return haveBest ? SearchEnd::Approximate : SearchEnd::Cancelled;
}

NonlinearSearch::Course NonlinearSearch::RunStart(quint64 start)
{
    damping = firstDamping;
    jacobianIsCurrent = false;
    SetStartPoint(current.values, start);
    if (!Evaluate(current))
        return Course::StartIsOver;
    Course course = Course::GoOn;
    for (int i = 0; i < mostIterations && course == Course::GoOn; ++i)
        course = Iterate();
    if (course != Course::Solved)
        KeepBest();
    return course;
}

// A stopped pulse makes every evaluation and every solve fail, and so ends the iteration without a decision.
NonlinearSearch::Course NonlinearSearch::Iterate()
{
    if (current.residuals.empty() || LargestResidual(current.residuals) < exactResidual)
        return Course::Solved;
    jacobianIsCurrent = jacobianIsCurrent || BuildJacobian();
    if (!jacobianIsCurrent)
        return Course::StartIsOver;
    if (!FindStep() || !AcceptCandidate())
        return Fail();
    std::swap(current, candidate);
    jacobianIsCurrent = false;
    damping = std::max(leastDamping, damping / 10);
    return Course::GoOn;
}

// The next iteration takes the same point with more damping. A step without damping would be the same again, and fail
// again, unless the equations draw random numbers.
NonlinearSearch::Course NonlinearSearch::Fail()
{
    damping *= 10;
    const bool hopeless = !stepIsDamped && !drawsRandomly;
    return pulse.IsStopped() || hopeless || damping > mostDamping ? Course::StartIsOver : Course::GoOn;
}

// The normal equations: (J transposed times J) step = -(J transposed times residuals).
bool NonlinearSearch::FindStep()
{
    const size_t unknowns = system.Unknowns();
    std::fill(normal.entries.begin(), normal.entries.end(), 0);
    for (size_t i = 0; i < jacobian.rows; ++i) {
        const double* row = jacobian.Row(i);
        for (size_t j = 0; j < unknowns; ++j) {
            double* sums = normal.Row(j);
            for (size_t k = 0; k < unknowns; ++k)
                sums[k] += row[j] * row[k];
            sums[unknowns] -= row[j] * current.residuals[i];
        }
        if (!pulse.MayGoOn(unknowns * unknowns))
            return false;
    }
    return FindUndampedOrDampedStep();
}

bool NonlinearSearch::FindUndampedOrDampedStep()
{
    stepIsDamped = !SolveNormalEquations();
    if (!stepIsDamped)
        return true;
    for (size_t i = 0; i < normal.rows; ++i)
        normal.Row(i)[i] += damping;
    return SolveNormalEquations();
}

bool NonlinearSearch::SolveNormalEquations()
{
    workCopy.entries = normal.entries;
    return SolveNumericLinearSystem(workCopy, step, pulse);
}

bool NonlinearSearch::BuildJacobian()
{
    for (size_t unknown = 0; unknown < system.Unknowns(); ++unknown) {
        if (!DifferentiateBy(unknown))
            return false;
    }
    return true;
}

// One column of the Jacobian by central differences, or one-sided ones where only one side has a value.
bool NonlinearSearch::DifferentiateBy(size_t unknown)
{
    const double x = current.values[unknown];
    const double h = (std::fabs(x) + 1) * relativeStep;
    const bool hasAbove = EvaluateMoved(unknown, x + h, above);
    const bool hasBelow = EvaluateMoved(unknown, x - h, below);
    if (!hasAbove && !hasBelow)
        return false;
    for (size_t i = 0; i < jacobian.rows; ++i) {
        const double high = hasAbove ? above[i] : current.residuals[i];
        const double low = hasBelow ? below[i] : current.residuals[i];
        jacobian.Row(i)[unknown] = (high - low) / (hasAbove && hasBelow ? 2 * h : h);
    }
    return true;
}

// The residuals with one unknown moved. Those of equations that it does not occur in stay.
bool NonlinearSearch::EvaluateMoved(size_t unknown, double value, std::vector<double>& residuals)
{
    if (!pulse.MayGoOn(systemWork))
        return false;
    const double kept = std::exchange(current.values[unknown], value);
    residuals.resize(current.residuals.size());
    double cost = 0;
    for (size_t i = 0; i < residuals.size(); ++i) {
        const CompiledEquation& equation = system.compiled[i];
        // Nothing becomes a NaN, which the cost shows.
        residuals[i] = equation.DependsOn(unknown) ? *equation.Residual(current.values) : current.residuals[i];
        cost += residuals[i] * residuals[i];
    }
    current.values[unknown] = kept;
    return std::isfinite(cost);
}

// Goes along the step, half as far each time, to the first point of smaller cost.
bool NonlinearSearch::AcceptCandidate()
{
    double fraction = 1;
    for (int i = 0; i < mostHalvings; ++i, fraction *= 0.5) {
        candidate.values.resize(step.size());
        for (size_t j = 0; j < step.size(); ++j)
            candidate.values[j] = current.values[j] + fraction * step[j];
        if (Evaluate(candidate) && current.cost > candidate.cost)
            return true;
    }
    return false;
}

bool NonlinearSearch::Evaluate(Sample& sample)
{
    return pulse.MayGoOn(systemWork) && system.Evaluate(sample.values, sample.residuals, sample.cost);
}

// At the end of a start: no point in it was better than the one that it has come to.
void NonlinearSearch::KeepBest()
{
    if (haveBest && !(best.cost > current.cost))
        return;
    best = current;
    haveBest = true;
}

// The answer with what is almost whole made whole, if that solves the system too.
Point NonlinearSearch::SnappedAnswer()
{
    candidate.values = current.values;
    for (double& value : candidate.values) {
        if (std::fabs(value - std::round(value)) < wholeTolerance)
            value = std::round(value);
    }
    const bool valid = system.Evaluate(candidate.values, candidate.residuals, candidate.cost);
    return std::move(valid && LargestResidual(candidate.residuals) < exactResidual ? candidate : current).values;
}

// Rounds what is that near to a number of `decimals` decimals; whether anything changed.
bool RoundValues(Point& values, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    bool changed = false;
    for (double& value : values) {
        const double rounded = std::round(scale * value) / scale;
        if (rounded == value || !((std::fabs(value) + 1) * wholeTolerance >= std::fabs(value - rounded)))
            continue;
        value = rounded;
        changed = true;
    }
    return changed;
}

} // namespace

SearchEnd SolveNonlinearEquationSystem(const EquationSystem& system, Point& values, SearchPulse& pulse)
{
    return NonlinearSearch(system, pulse).Run(values);
}

Point TidyApproximateAnswer(const EquationSystem& system, const Point& values)
{
    Sample sample;
    if (!system.Evaluate(values, sample.residuals, sample.cost))
        return values;
    const double accepted = (std::fabs(sample.cost) + 1) * 1e-12 + sample.cost;
    for (int decimals = 0; decimals <= mostTidyDecimals; ++decimals) {
        sample.values = values;
        if (RoundValues(sample.values, decimals) && system.Evaluate(sample.values, sample.residuals, sample.cost) &&
            accepted >= sample.cost)
            return sample.values;
    }
    return values;
}
