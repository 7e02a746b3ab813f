// Lines of a sheet through the whole road of the core, one after the other in one workspace.
#include "core/Calculator.h"
#include "core/LineAnswers.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    Calculator calculator;
    const QString sheet = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const QString& line : sheet.split(u'\n')) {
        PreviewText(calculator, line);
        const QString normalized = calculator.NormalizeSubmittedMath(line);
        bool changed = false;
        if (!SubmitCustomFunctionCommand(calculator, normalized, changed) && !SubmitAssignment(calculator, normalized))
            SubmitExpression(calculator, normalized);
    }
    return 0;
}
