// Equations through the road that the pad takes, the searches of one unknown beside the text-substitution form, and
// symbolic commands.
#include "core/Calculator.h"
#include "core/LineAnswers.h"
#include "core/solver/CompiledEquation.h"
#include "core/solver/EquationSystem.h"
#include "core/solver/EquationText.h"
#include "core/solver/SingleUnknownSolver.h"
#include "core/symbolic/SymbolicCommands.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

bool GoOn(const QString&)
{
    return true;
}

void Solve(benchmark::State& state, const QStringList& equations)
{
    Calculator calculator;
    for (auto _ : state)
        benchmark::DoNotOptimize(SubmitEquations(calculator, equations, GoOn).runs.size());
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

// A search that finds nothing: all ranges are scanned.
void SearchInVain(benchmark::State& state, const QString& equation)
{
    Calculator calculator;
    const auto system = BuildEquationSystem({equation}, calculator.SettingForEquations());
    for (auto _ : state) {
        SearchPulse pulse(GoOn);
        benchmark::DoNotOptimize(SolveSingleVariableEquation(system->compiled[0], pulse));
    }
}

// One evaluation, compiled and by text substitution.
void ResidualCompiled(benchmark::State& state)
{
    Calculator calculator;
    const CompiledEquation equation(u"X^3 - 2*X - 5 = 0"_s, {u"X"_s}, calculator.SettingForEquations());
    double x = 0;
    for (auto _ : state) {
        x += 0.001;
        benchmark::DoNotOptimize(equation.Residual(std::span(&x, 1)));
    }
}

void ResidualByText(benchmark::State& state)
{
    Calculator calculator;
    const EquationSetting setting = calculator.SettingForEquations();
    double x = 0;
    bool ok = false;
    for (auto _ : state) {
        x += 0.001;
        benchmark::DoNotOptimize(
            EvaluateSystemEquation(u"X^3 - 2*X - 5 = 0"_s, {u"X"_s}, std::span(&x, 1), ok, setting));
    }
}

void Symbolic(benchmark::State& state, const QString& line)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(HandleSymbolicCommand(line)->runs.size());
}

QString LikeTerms(int count)
{
    QStringList terms;
    for (int i = 0; i < count; ++i)
        terms.append(u"%1*X"_s.arg(i + 1));
    return u"SIMPLIFY "_s + terms.join(u" + "_s);
}

BENCHMARK_CAPTURE(Solve, cubic, QStringList{u"X^3 - 2*X - 5 = 0"_s})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Solve, exponential, QStringList{u"X*EXP(X) = 1"_s})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Solve, circle_and_line, QStringList{u"X^2+Y^2=25"_s, u"X-Y=1"_s})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Solve, linear_10, DenseLinearSystem(10))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Solve, linear_50, DenseLinearSystem(50))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SearchInVain, square, u"X^2 + 1 = 0"_s)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SearchInVain, poles, u"1/SIN(X) = 0"_s)->Unit(benchmark::kMicrosecond);
BENCHMARK(ResidualCompiled);
BENCHMARK(ResidualByText);
BENCHMARK_CAPTURE(Symbolic, typical, u"SIMPLIFY 2*(X + 3) - X/2 + 4*X*Y - (X - 1)"_s)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Symbolic, isolate, u"ISOLATE X, 3*X + Y = 12"_s)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Symbolic, like_terms_1000, LikeTerms(1000))->Unit(benchmark::kMicrosecond);

} // namespace
