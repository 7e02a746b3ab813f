// Lines of a sheet, previewed and submitted one after the other in one workspace. The first byte holds the options.
// Fractions and the manual take long and have doors of their own.
#include "fuzz/Harness.h"

#include <QRegularExpression>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    if (size == 0)
        return 0;
    Calculator calculator = PredictableCalculator(data[0]);
    static const QRegularExpression slow("^\\s*(FRACTION|HELP)", QRegularExpression::CaseInsensitiveOption);
    for (const QString& line : TextOf(data + 1, size - 1).split('\n')) {
        if (slow.match(line).hasMatch())
            continue;
        PreviewChangingNothing(calculator, line);
        RequireAnswerGivesItself(calculator, SubmitLine(calculator, line, StopSearch));
    }
    return 0;
}
