// Word operators, number words and unit conversions: rewriting a line once more changes nothing.
#include "core/engine/WordOperators.h"
#include "core/units/UnitConversions.h"
#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QString text = TextOf(data, size);
    const QString words = WordOp(text);
    Require(WordOp(words) == words, "words are rewritten once", text);
    const QString units = ExpandUnitConversions(words);
    Require(ExpandUnitConversions(units) == units, "conversions are rewritten once", text);
    return 0;
}
