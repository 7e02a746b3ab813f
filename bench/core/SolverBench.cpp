// Equations through the road that the pad takes, from the line's text to the answer's, beside the search alone over a
// compiled function; and symbolic commands.
#include "FloorSearch.h"
#include "Report.h"
#include "Rooms.h"

#include "core/Calculator.h"
#include "core/LineAnswers.h"
#include "core/solver/NonlinearSolver.h"
#include "core/solver/SingleUnknownSolver.h"
#include "core/symbolic/SymbolicCommands.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 300;
constexpr int solvesPerRun = 10;

bool GoOn(const QString&)
{
    return true;
}

template <typename Function>
Work RootFloor(Function function)
{
    return {[function] {
        for (int i = 0; i < solvesPerRun; ++i) {
            [[maybe_unused]] volatile double root = FloorRootSearch(function).Run().value_or(0);
        }
    }};
}

template <typename Function>
Work SystemFloor(Function function)
{
    return {[function] {
        for (int i = 0; i < solvesPerRun; ++i) {
            [[maybe_unused]] volatile double root = FloorSystemSearch(function).Run()[0];
        }
    }};
}

Work Solve(Calculator& calculator, const QStringList& equations)
{
    return {[&calculator, equations] {
        for (int i = 0; i < solvesPerRun; ++i)
            SubmitEquations(calculator, equations, GoOn);
    }};
}

Work Symbolic(const QString& line)
{
    return {[line] {
        for (int i = 0; i < solvesPerRun; ++i)
            HandleSymbolicCommand(line);
    }};
}

QStringList DenseLinearSystem(int unknowns)
{
    QStringList equations;
    for (int row = 0; row < unknowns; ++row) {
        QString equation;
        for (int column = 0; column < unknowns; ++column)
            equation += u"%1*X%2 + "_s.arg((row * 7 + column * 3) % 11 + (row == column ? 20 : 0)).arg(column);
        equations.append(equation + u"0 = %1"_s.arg(row + 1));
    }
    return equations;
}

QString LikeTerms(int count)
{
    QStringList terms;
    for (int i = 0; i < count; ++i)
        terms.append(u"%1*X"_s.arg(i + 1));
    return u"SIMPLIFY "_s + terms.join(u" + "_s);
}

using Pair = std::array<double, 2>;

// Not known to the compiler: it would make a product of the square, whose last digit may be another one.
volatile double two = 2;

constexpr auto circleAndLine = [](const Pair& p) {
    return Pair{std::pow(p[0], two) + std::pow(p[1], two) - 25, p[0] - p[1] - 1};
};

constexpr auto rosenbrock = [](const Pair& p) { return Pair{10 * (p[1] - std::pow(p[0], two)), 1 - p[0]}; };

Work RootSearch(const EquationSystem& system)
{
    return {[&system] {
        for (int i = 0; i < solvesPerRun; ++i) {
            SearchPulse pulse(GoOn);
            SolveSingleVariableEquation(system.compiled[0], pulse);
        }
    }};
}

Work SystemSearch(const EquationSystem& system)
{
    return {[&system] {
        for (int i = 0; i < solvesPerRun; ++i) {
            SearchPulse pulse(GoOn);
            Point point;
            SolveNonlinearEquationSystem(system, point, pulse);
        }
    }};
}

// An equation's whole road, its search, and the floor of that.
struct Equations {
    QString name;
    QStringList lines;
    Work floor;
    Work (*search)(const EquationSystem&);
};

void MeasureEquations(Report& report, const Equations& equations)
{
    Calculator calculator;
    const auto system = BuildEquationSystem(equations.lines, calculator.SettingForEquations());
    const std::vector<Laps> laps =
        RunInTurn({equations.floor, equations.search(*system), Solve(calculator, equations.lines)}, rounds);
    const QString floor = u"compiled search"_s;
    report.AddTimes(u"search a solution of "_s + equations.name, laps[1], floor, laps[0], 3, solvesPerRun);
    report.AddTimes(u"  from the line to the answer"_s, laps[2], floor, laps[0], 0, solvesPerRun);
}

} // namespace

void MeasureSolver(Report& report)
{
    const Equations all[] = {
        {u"X^3-2*X-5=0"_s,
         {u"X^3-2*X-5=0"_s},
         RootFloor([](double x) { return std::pow(x, 3) - 2 * x - 5; }),
         RootSearch},
        {u"X*EXP(X)=1"_s, {u"X*EXP(X)=1"_s}, RootFloor([](double x) { return x * std::exp(x) - 1; }), RootSearch},
        {u"a circle and a line"_s, {u"X^2+Y^2=25"_s, u"X-Y=1"_s}, SystemFloor(circleAndLine), SystemSearch},
        {u"the Rosenbrock system"_s, {u"10*(Y-X^2)=0"_s, u"1-X=0"_s}, SystemFloor(rosenbrock), SystemSearch},
    };
    for (const Equations& equations : all)
        MeasureEquations(report, equations);

    Calculator calculator;
    const std::vector<Laps> laps = RunInTurn(
        {
            Solve(calculator, DenseLinearSystem(10)),
            Symbolic(u"SIMPLIFY 2*(X + 3) - X/2 + 4*X*Y - (X - 1)"_s),
            Symbolic(u"ISOLATE X, 3*X + Y = 12"_s),
            Symbolic(LikeTerms(1000)),
        },
        20);
    report.AddTime(u"solve a dense linear system of 10"_s, laps[0], 0, solvesPerRun);
    report.AddTime(u"SIMPLIFY, a typical line"_s, laps[1], 0, solvesPerRun);
    report.AddTime(u"ISOLATE"_s, laps[2], 0, solvesPerRun);
    report.AddTime(u"SIMPLIFY of 1,000 like terms"_s, laps[3], 0, solvesPerRun);
}
