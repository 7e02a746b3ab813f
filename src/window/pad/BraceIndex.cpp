#include "window/pad/BraceIndex.h"

#include "window/pad/PadText.h"

#include <algorithm>

namespace {

bool StandsBefore(const Brace& brace, int position)
{
    return brace.position < position;
}

} // namespace

BraceIndex::BraceIndex(QTextDocument* watched) : document(watched)
{
    connect(document, &QTextDocument::contentsChange, this, &BraceIndex::Update);
    braces = BracesIn(0, document->characterCount());
}

const Brace* BraceIndex::LastBefore(int position) const
{
    const auto behind = std::lower_bound(braces.begin(), braces.end(), position, StandsBefore);
    return behind == braces.begin() ? nullptr : &*std::prev(behind);
}

const Brace* BraceIndex::Previous(const Brace* brace) const
{
    return brace == braces.data() ? nullptr : brace - 1;
}

// Both counts may reach one unit past the document's end: the toolkit counts its closing block in some changes.
void BraceIndex::Update(int from, int removed, int added)
{
    const auto first = std::lower_bound(braces.begin(), braces.end(), from, StandsBefore);
    const auto behind = std::lower_bound(first, braces.end(), from + removed, StandsBefore);
    std::for_each(behind, braces.end(), [shift = added - removed](Brace& brace) { brace.position += shift; });
    const std::vector<Brace> fresh = BracesIn(from, from + added);
    braces.insert(braces.erase(first, behind), fresh.begin(), fresh.end());
}

std::vector<Brace> BraceIndex::BracesIn(int from, int end) const
{
    std::vector<Brace> found;
    const QString text = RawText(*document, from, end);
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == u'{' || text[i] == u'}')
            found.push_back({from + i, text[i] == u'{'});
    }
    return found;
}
