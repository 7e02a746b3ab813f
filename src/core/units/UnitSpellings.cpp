#include "core/units/UnitSpellings.h"

#include <QHash>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// No spelling is longer. A name that does not fit is no unit.
constexpr qsizetype maximumLength = 32;

QChar Fold(QChar c)
{
    if (c.unicode() < 128)
        return c >= u'A' && c <= u'Z' ? QChar(c.unicode() | 0x20) : c;
    return c.toCaseFolded();
}

// Folded spelling to the units that have it, in table order.
class SpellingIndex {
public:
    SpellingIndex()
    {
        for (const UnitDefinition& unit : UnitDefinitions()) {
            for (const QString& alias : unit.aliases) {
                Q_ASSERT(alias.size() <= maximumLength);
                QString folded = alias;
                std::transform(alias.cbegin(), alias.cend(), folded.begin(), Fold);
                spellings.append(folded); // the hash's keys are views of these
                units[spellings.last()].append(&unit);
            }
        }
    }

    void AppendMatches(UnitMatches& matches, QStringView folded, qsizetype start, qsizetype length) const
    {
        const auto found = units.constFind(folded);
        if (found == units.cend())
            return;
        for (const UnitDefinition* unit : *found)
            matches.append({unit, start, length});
    }

private:
    QList<QString> spellings;
    QHash<QStringView, QList<const UnitDefinition*>> units;
};

const SpellingIndex& Spellings()
{
    static const SpellingIndex index;
    return index;
}

bool IsBehindTarget(QChar c)
{
    return IsUnitBlank(c) || "=<>+-*/^),}"_L1.contains(c);
}

} // namespace

UnitMatches FindSourceUnitMatches(QStringView text, qsizetype position)
{
    while (position > 0 && IsUnitBlank(text[position - 1]))
        --position;
    UnitMatches matches;
    std::array<QChar, maximumLength> folded; // filled from its end
    qsizetype first = maximumLength;
    for (qsizetype start = position; start > 0 && first > 0;) {
        const QChar c = text[--start];
        if (IsUnitBlank(c)) {
            if (folded[first] != u' ')
                folded[--first] = u' ';
            continue;
        }
        folded[--first] = Fold(c);
        if (start == 0 || IsUnitBlank(text[start - 1]))
            Spellings().AppendMatches(matches, QStringView(&folded[first], maximumLength - first), start,
                                      position - start);
    }
    return matches;
}

UnitMatches FindTargetUnitMatches(QStringView text, qsizetype position)
{
    while (position < text.size() && IsUnitBlank(text[position]))
        ++position;
    UnitMatches matches;
    std::array<QChar, maximumLength> folded;
    qsizetype length = 0;
    for (qsizetype end = position; length < maximumLength; ++end) {
        const bool behindWord = end > position && !IsUnitBlank(text[end - 1]);
        if (behindWord && (end == text.size() || IsBehindTarget(text[end])))
            Spellings().AppendMatches(matches, QStringView(folded.data(), length), position, end - position);
        if (end == text.size())
            break;
        if (!IsUnitBlank(text[end]))
            folded[length++] = Fold(text[end]);
        else if (behindWord)
            folded[length++] = u' ';
    }
    return matches;
}
