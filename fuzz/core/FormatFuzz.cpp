// A number, a base and a pattern. By default the text of a number is read as a number of that text.
#include "core/engine/AnswerFormat.h"
#include "core/engine/Evaluator.h"
#include "fuzz/Harness.h"

#include <cmath>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    double value = 0;
    if (size < sizeof value + 1)
        return 0;
    std::memcpy(&value, data, sizeof value);
    const QString pattern = TextOf(data + sizeof value + 1, size - sizeof value - 1);
    FormatAnswer(value, {pattern, data[sizeof value] % 17});
    if (std::abs(value) < 1.797693134862315e308) { // above, fifteen digits round to infinity
        const QString text = FormatAnswer(value, {});
        const std::optional<double> again = EvaluateText(text, {}, GlobalRandomBits);
        const QString back = again ? FormatAnswer(*again, {}) : QString();
        Require(back == text || DifferByResidue(back, text), "an answer gives itself", text);
    }
    return 0;
}
