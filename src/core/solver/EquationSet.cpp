#include "core/solver/EquationSet.h"

#include "core/solver/EquationText.h"
#include "core/solver/LinearSolver.h"
#include "core/solver/NonlinearSolver.h"
#include "core/solver/SingleUnknownSolver.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

enum class Outcome { Solved, OneOfMany, Approximate, Cancelled };

struct Solution {
    Outcome outcome;
    Point values;
};

Solution Solve(const EquationSystem& system, const SearchTick& onTick)
{
    SearchPulse pulse(onTick);
    Point values;
    bool underdetermined = false;
    if (SolveLinearEquationSystem(system, values, underdetermined, pulse))
        return {underdetermined ? Outcome::OneOfMany : Outcome::Solved, values};
    if (SolveSingleVariableEquationBlock(system, values, pulse))
        return {Outcome::Solved, values};
    switch (SolveNonlinearEquationSystem(system, values, pulse)) {
    case SearchEnd::Exact:
        return {Outcome::Solved, values};
    case SearchEnd::Approximate:
        return {Outcome::Approximate, TidyApproximateAnswer(system, values)};
    case SearchEnd::Cancelled:
        break;
    }
    return {Outcome::Cancelled, {}};
}

QString Status(Outcome outcome, qsizetype equationCount)
{
    switch (outcome) {
    case Outcome::OneOfMany:
        return u"One solution found"_s;
    case Outcome::Approximate:
        return u"Approximate answer"_s;
    case Outcome::Cancelled:
        return u"Solve cancelled"_s;
    case Outcome::Solved:
        break;
    }
    return equationCount == 1 ? u"Equation solved"_s : u"Equation system solved"_s;
}

QString ValueLines(const EquationSystem& system, const Point& values)
{
    QString lines;
    for (size_t i = 0; i < values.size(); ++i)
        lines += system.names[static_cast<qsizetype>(i)] + u" = " + system.setting.formatAnswer(values[i]) + u'\n';
    return lines;
}

// How far the equations are from being solved, over those that have a value.
struct Errors {
    int count = 0;
    double largest = 0;
    double squares = 0;
};

// One equation of the report; nothing where a side has no value.
void AppendEquation(QList<PadRun>& runs, const EquationSystem& system, const Point& values, qsizetype index,
                    Errors& errors)
{
    const QString& equation = system.equations[index];
    const auto& format = system.setting.formatAnswer;
    double left = 0;
    double right = 0;
    bool ok = false;
    const double difference =
        EvaluateSystemEquationSides(equation, system.names, values, left, right, ok, system.setting);
    if (!ok)
        return;
    ++errors.count;
    errors.largest = std::max(errors.largest, std::fabs(difference));
    errors.squares += difference * difference;
    runs.append({u"Equation "_s + QString::number(index + 1) + u":\n", true});
    runs.append({equation + u"\nCalculated Left Side:  " + format(left) + u"\nCalculated Right Side: " + format(right) +
                     u"\nDifference:             " + (difference > 0 ? u"+"_s : QString()) + format(difference) +
                     u"\n\n",
                 false});
}

QList<PadRun> ApproximateReport(const EquationSystem& system, const Point& values)
{
    QList<PadRun> runs = {
        {u"Approximate Answer\n\n"_s + ValueLines(system, values), true},
        {u"\nNo exact solution was found before solving stopped.\n\n"_s, false},
    };
    Errors errors;
    for (qsizetype i = 0; i < system.equations.size(); ++i)
        AppendEquation(runs, system, values, i, errors);
    const auto& format = system.setting.formatAnswer;
    const double rootMeanSquare = errors.count == 0 ? 0 : std::sqrt(errors.squares / errors.count);
    runs.append({u"Maximum Error: "_s + format(errors.largest) + u"\nRMS Error: " + format(rootMeanSquare) +
                     u"\nTotal Squared Error: " + format(errors.squares) + u'\n',
                 false});
    return runs;
}

} // namespace

EquationAnswer HandleEquationSet(const QStringList& equations, const EquationSetting& setting, const SearchTick& onTick)
{
    const std::optional<EquationSystem> system = BuildEquationSystem(equations, setting);
    const bool single = equations.size() == 1;
    if (!system)
        return {CannotSolve(single ? u"Cannot Solve Equation"_s : u"Cannot Solve Equation System"_s), {}};
    const Solution solution = Solve(*system, onTick);
    const QString status = Status(solution.outcome, equations.size());
    switch (solution.outcome) {
    case Outcome::Cancelled:
        return {StatusOnly(status), {}};
    case Outcome::Approximate:
        return {{status, ApproximateReport(*system, solution.values)}, {}};
    case Outcome::Solved:
    case Outcome::OneOfMany:
        break;
    }
    EquationAnswer answer{{status, {{ValueLines(*system, solution.values), true}}}, {}};
    if (single && solution.values.size() == 1)
        answer.lastAnswer = solution.values.front();
    return answer;
}
