// An equation block as it stands in the pad: extracted, compiled and solved.
#include "core/solver/EquationBlock.h"
#include "core/solver/EquationSystem.h"
#include "core/solver/EquationText.h"
#include "fuzz/Harness.h"

#include <bit>

namespace {

// The compiled equations give what their text gives, to the last bit.
void RequireSameResiduals(const EquationSystem& system, double value)
{
    if (system.Unknowns() > 20)
        return;
    const Point point(system.Unknowns(), value);
    for (qsizetype i = 0; i < system.equations.size(); ++i) {
        const CompiledEquation& compiled = system.compiled[static_cast<size_t>(i)];
        bool ok = false;
        const double byText = EvaluateSystemEquation(system.equations[i], system.names, point, ok, system.setting);
        const Value residual = compiled.Residual(point);
        const bool same = residual ? ok && std::bit_cast<quint64>(*residual) == std::bit_cast<quint64>(byText) : !ok;
        Require(same || compiled.DrawsRandomly(), "compiled equations agree with their text", system.equations[i]);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QString text = TextOf(data, size);
    Calculator calculator = PredictableCalculator(3);
    calculator.values.variables = {{"K", 0.1}, {"E3", 7}, {"_V", -1e-7}};
    QStringList equations;
    const auto normalize = [&](const QString& line) { return calculator.NormalizeSubmittedMath(line); };
    if (!ExtractEquationBlock(text, text.size(), equations, normalize))
        equations = text.split('\n');
    if (const auto system = BuildEquationSystem(equations, calculator.SettingForEquations())) {
        for (const double value : {0.0, 1.0, -2.5, 1e300})
            RequireSameResiduals(*system, value);
    }
    auto patience = size % 4;
    SubmitEquations(calculator, equations, [&](const QString&) { return patience-- > 0; });
    return 0;
}
