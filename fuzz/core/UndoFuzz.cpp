// Edits of a text, three bytes each: where, how much goes, how much comes. Every state leads back to every other.
#include "core/workspace/SharedText.h"
#include "fuzz/Harness.h"

namespace {

WeightedText Changed(const SharedText& text, const SharedText& wanted)
{
    SharedText changed = text;
    for (const TextChange& change : text.ChangesTo(wanted)) {
        WeightedText inserted;
        for (const PadRun& run : change.inserted)
            inserted.Append(run.text, run.bold);
        changed.Replace(change.position, change.removed, inserted);
    }
    return changed.Content();
}

// Long runs of few characters, so that neighbours are often alike and a piece is soon full.
WeightedText Inserted(quint8 amount)
{
    WeightedText text;
    text.Append(QString(amount * (amount & 1 ? 1 : 10), QChar('a' + amount % 3)), (amount & 2) != 0);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    QList<SharedText> states(1);
    for (size_t i = 0; i + 3 <= size && i < 36; i += 3) {
        SharedText text = states.last();
        const int from = static_cast<int>(qint64(text.Length()) * data[i] / 255);
        text.Replace(from, std::min(text.Length() - from, data[i + 1] * 5), Inserted(data[i + 2]));
        states.append(text);
    }
    for (const SharedText& state : states.mid(states.size() / 2)) {
        Require(Changed(states.last(), state) == state.Content(), "undo gives back the text", {});
        Require(Changed(state, states.last()) == states.last().Content(), "redo gives back the text", {});
    }
    return 0;
}
