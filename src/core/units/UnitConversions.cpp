#include "core/units/UnitConversions.h"

#include "core/engine/Characters.h"
#include "core/units/UnitSpellings.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// How many characters the rounds of one text may read in all; a tenth of a second or so.
constexpr qsizetype patience = 1 << 23;

struct UnitPair {
    UnitMatch source;
    UnitMatch target;

    qsizetype Score() const { return source.length + target.length; }
    qsizetype End() const { return target.start + target.length; }
};

bool IsWordTo(QStringView text, qsizetype position)
{
    return position + 1 < text.size() && (text[position].unicode() | 0x20) == u't' &&
           (text[position + 1].unicode() | 0x20) == u'o' && (position == 0 || !IsAsciiWord(text[position - 1])) &&
           (position + 2 == text.size() || !IsAsciiWord(text[position + 2]));
}

// Position of the next word TO, in any case; -1 without one.
qsizetype FindTo(QStringView text, qsizetype from)
{
    for (qsizetype o = from + 1; o < text.size(); ++o) {
        if ((text[o].unicode() | 0x20) == u'o' && IsWordTo(text, o - 1))
            return o - 1;
    }
    return -1;
}

bool IsBetter(const UnitPair& pair, const UnitPair& than)
{
    if (pair.Score() != than.Score())
        return pair.Score() > than.Score();
    return pair.source.unit < than.source.unit; // within a family no two pairs are equally long
}

std::optional<UnitPair> FindUnitPair(QStringView text, qsizetype to)
{
    std::optional<UnitPair> best;
    const UnitMatches targets = FindTargetUnitMatches(text, to + 2);
    if (targets.isEmpty())
        return best;
    for (const UnitMatch& source : FindSourceUnitMatches(text, to)) {
        for (const UnitMatch& target : targets) {
            const UnitPair pair{source, target};
            if (source.unit->family == target.unit->family && (!best || IsBetter(pair, *best)))
                best = pair;
        }
    }
    return best;
}

bool IsFollowedByTo(QStringView text, qsizetype position)
{
    const qsizetype behind = position;
    while (position < text.size() && IsUnitBlank(text[position]))
        ++position;
    return position > behind && IsWordTo(text, position);
}

bool HasChain(QStringView text)
{
    for (qsizetype to = FindTo(text, 0); to >= 0; to = FindTo(text, to + 2)) {
        const std::optional<UnitPair> pair = FindUnitPair(text, to);
        if (pair && IsFollowedByTo(text, pair->End()))
            return true;
    }
    return false;
}

// Whether the text ends in a number with an exponent's mark, such as 2.5E.
bool EndsInExponentMark(QStringView text)
{
    if (text.size() < 2 || (text.last().unicode() | 0x20) != u'e')
        return false;
    const QChar before = text[text.size() - 2];
    return IsAsciiDigit(before) || (before == u'.' && text.size() > 2 && IsAsciiDigit(text[text.size() - 3]));
}

// Whether a sign behind this text joins two operands.
bool EndsInOperand(QStringView text)
{
    while (!text.isEmpty() && IsSpace(text.last()))
        text.chop(1);
    return !text.isEmpty() && (IsIdentifierPart(text.last()) || "!%)."_L1.contains(text.last()));
}

bool StopsValue(QStringView text, qsizetype position)
{
    const QChar c = text[position];
    if (c == u'+' || c == u'-')
        return !EndsInExponentMark(text.first(position)) && EndsInOperand(text.first(position));
    return "{}<=>,"_L1.contains(c);
}

// Where a value that reaches back to the text's start begins: a command word in front of it is not part of it.
qsizetype BehindCommandWord(QStringView text)
{
    constexpr QStringView word = u"SIMPLIFY";
    qsizetype position = 0;
    while (position < text.size() && IsUnitBlank(text[position]))
        ++position;
    if (!text.sliced(position).startsWith(word, Qt::CaseInsensitive))
        return 0;
    position += word.size();
    if (position < text.size() && IsAsciiWord(text[position]))
        return 0;
    while (position < text.size() && IsUnitBlank(text[position]))
        ++position;
    return position;
}

// Where the value begins that ends at the end of the text.
qsizetype FindValueStart(QStringView text)
{
    qsizetype depth = 0;
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        if (depth == 0 && (text[i] == u'(' || StopsValue(text, i)))
            return i + 1;
        depth += (text[i] == u')') - (text[i] == u'(');
    }
    return BehindCommandWord(text);
}

QString ToBase(const UnitDefinition& unit, QStringView value)
{
    if (unit.transformKind == UnitTransformKind::Reciprocal)
        return u'(' % unit.factorText % " / ("_L1 % value % "))"_L1;
    if (unit.offset == 0)
        return "(("_L1 % value % ") * "_L1 % unit.factorText % u')';
    return "(("_L1 % value % ") * "_L1 % unit.factorText % " + "_L1 % unit.offsetText % u')';
}

QString FromBase(const UnitDefinition& unit, const QString& base)
{
    if (unit.transformKind == UnitTransformKind::Reciprocal)
        return u'(' % unit.factorText % " / ("_L1 % base % "))"_L1;
    if (unit.offset == 0)
        return "(("_L1 % base % ") / "_L1 % unit.factorText % u')';
    return "((("_L1 % base % ") - "_L1 % unit.offsetText % ") / "_L1 % unit.factorText % u')';
}

// The text with its first conversion written as arithmetic, or nothing if it has none.
std::optional<QString> ExpandFirstConversion(QStringView text)
{
    for (qsizetype to = FindTo(text, 0); to >= 0; to = FindTo(text, to + 2)) {
        const std::optional<UnitPair> pair = FindUnitPair(text, to);
        if (!pair)
            continue;
        const qsizetype start = FindValueStart(text.first(pair->source.start));
        const QStringView value = text.sliced(start, pair->source.start - start).trimmed();
        if (!value.isEmpty())
            return text.first(start) % FromBase(*pair->target.unit, ToBase(*pair->source.unit, value)) %
                   text.sliced(pair->End());
    }
    return std::nullopt;
}

} // namespace

QString ExpandUnitConversions(const QString& text)
{
    if (FindTo(text, 0) < 0)
        return text;
    QString failure = u"()"_s;
    if (HasChain(text))
        return failure;
    // Each round reads from the start: a replacement can shorten the names beside a TO that stood as it was.
    QString expanded = text;
    qsizetype read = text.size();
    while (const std::optional<QString> next = ExpandFirstConversion(expanded)) {
        expanded = *next;
        read += expanded.size();
        if (read > patience)
            return failure;
    }
    return expanded;
}
