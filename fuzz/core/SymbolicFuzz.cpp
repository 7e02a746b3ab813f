// SIMPLIFY and ISOLATE: what they answer can be read again, and simplifying it leaves it as it is.
#include "core/symbolic/Isolation.h"
#include "core/symbolic/Simplification.h"
#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QString text = TextOf(data, size);
    QString result;
    QString again;
    if (SimplifyText(text, result))
        Require(SimplifyText(result, again), "a simplified text is one", text);
    if (IsolateText(text, result)) {
        for (const QString& solution : result.split('\n'))
            Require(SimplifyText(solution, again), "a solution is an equation", text);
    }
    return 0;
}
