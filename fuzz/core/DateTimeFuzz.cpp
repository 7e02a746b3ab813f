// A line of dates and times, taken up once more by what `ANS` then stands for.
#include "core/datetime/DateTimeLanguage.h"
#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QString text = TextOf(data, size);
    Calculator calculator = PredictableCalculator(3);
    const DateTimeAnswer answer = calculator.EvaluateDateTimeExpression(text);
    Require(answer.recognised == ExpressionLooksLikeDateTimeLanguage(text), "what is recognised is read", text);
    if (!answer.ok)
        return 0;
    RequireAnswerGivesItself(calculator, SubmitExpression(calculator, text));
    SubmitExpression(calculator, text + "+ANS");
    return 0;
}
