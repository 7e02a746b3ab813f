// A line up to the cursor and behind it, parted by the first "|": suggestions, hint and manual.
#include "core/assist/Suggestions.h"
#include "core/assist/SyntaxHints.h"
#include "core/manual/HelpCommand.h"
#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    static Calculator calculator = [] {
        Calculator made = PredictableCalculator(3);
        SubmitLine(made, "RADIUS = 2", StopSearch);
        SubmitLine(made, "CREATE FUNCTION RAMP(X, STEP) = X*STEP", StopSearch);
        return made;
    }();
    const QString text = TextOf(data, size);
    const QString before = text.section('|', 0, 0);
    const Suggestions suggestions = SuggestionsFor(calculator, before, text.section('|', 1));
    Require(suggestions.names.isEmpty() || before.endsWith(suggestions.prefix), "a prefix stands there", text);
    for (const QString& name : suggestions.names)
        Require(name.startsWith(suggestions.prefix, Qt::CaseInsensitive), "a name begins as typed", text);
    SyntaxHintFor(calculator, before);
    if (const auto page = HandleHelpCommand(text))
        FormattedHelpText(page->text);
    return 0;
}
