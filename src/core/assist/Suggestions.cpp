#include "core/assist/Suggestions.h"

#include "core/Calculator.h"
#include "core/engine/Characters.h"
#include "core/engine/SyntaxCatalog.h"
#include "core/units/UnitTable.h"

#include <QSet>

#include <algorithm>

namespace {

constexpr qsizetype shortestPrefix = 2;

// The names that no workspace changes.
struct FixedNames {
    explicit FixedNames(bool useWordOperators);

    QStringList sorted; // ignoring case
    qsizetype longest = 0;
};

FixedNames::FixedNames(bool useWordOperators)
{
    const QStringList& unitWords = GetUnitConversionVocabulary();
    QSet<QString> names(unitWords.cbegin(), unitWords.cend());
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        if (useWordOperators || !item.isWordOperator)
            names.insert(item.name);
    }
    sorted = QStringList(names.cbegin(), names.cend());
    sorted.sort(Qt::CaseInsensitive);
    for (const QString& name : sorted)
        longest = std::max(longest, name.size());
}

const FixedNames& FixedNamesFor(bool useWordOperators)
{
    static const FixedNames withWords(true);
    static const FixedNames withoutWords(false);
    return useWordOperators ? withWords : withoutWords;
}

// Orders names and a prefix by as many characters as the prefix has; all names that begin with it are equal to it.
struct ByBeginning {
    static int Compare(QStringView name, QStringView prefix)
    {
        return name.left(prefix.size()).compare(prefix, Qt::CaseInsensitive);
    }
    bool operator()(const QString& name, QStringView prefix) const { return Compare(name, prefix) < 0; }
    bool operator()(QStringView prefix, const QString& name) const { return Compare(name, prefix) > 0; }
};

// The keys of a map by upper-case names that begin with a prefix in any case.
template <typename Map>
void AppendNames(QStringList& names, const Map& map, QStringView prefix)
{
    for (auto entry = map.lowerBound(prefix.toString().toUpper());
         entry != map.end() && entry.key().startsWith(prefix, Qt::CaseInsensitive); ++entry)
        names += entry.key();
}

// Equal names end up side by side, also between others that differ from them in case alone.
void SortAndUnite(QStringList& names)
{
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    names.resize(std::unique(names.begin(), names.end()) - names.begin());
}

QStringList NamesBeginningWith(const Calculator& calculator, const FixedNames& fixed, QStringView prefix)
{
    const auto [first, end] = std::equal_range(fixed.sorted.cbegin(), fixed.sorted.cend(), prefix, ByBeginning());
    QStringList names(first, end);
    const qsizetype fixedCount = names.size();
    AppendNames(names, calculator.customFunctions.Definitions(), prefix);
    AppendNames(names, calculator.values.variables, prefix);
    if (names.size() > fixedCount)
        SortAndUnite(names);
    return names;
}

bool IsFunction(const Calculator& calculator, const QString& name)
{
    const CalculatorSyntaxItem* builtIn = FindCalculatorSyntaxItem(name);
    return builtIn ? builtIn->isFunction : calculator.customFunctions.Definitions().contains(name.toUpper());
}

} // namespace

qsizetype WordAtEnd(QStringView text)
{
    const auto end = std::find_if_not(text.rbegin(), text.rend(), IsIdentifierPart);
    return end - text.rbegin();
}

qsizetype WordAtStart(QStringView text)
{
    return std::find_if_not(text.begin(), text.end(), IsIdentifierPart) - text.begin();
}

// Names of the workspace are single words, so that an end longer than the word can begin fixed names alone.
Suggestions SuggestionsFor(const Calculator& calculator, QStringView before, QStringView behind)
{
    const FixedNames& fixed = FixedNamesFor(calculator.Options().useWordOperators);
    const qsizetype word = WordAtEnd(before);
    for (qsizetype size = std::min(before.size(), std::max(fixed.longest, word)); size >= shortestPrefix; --size) {
        const qsizetype start = before.size() - size;
        if (start > 0 && IsIdentifierPart(before[start - 1]))
            continue;
        Suggestions found{{}, before.last(size).toString(), 0};
        found.names = NamesBeginningWith(calculator, fixed, found.prefix);
        if (found.names.isEmpty())
            continue;
        const bool complete =
            found.names.size() == 1 && found.names.first().compare(found.prefix, Qt::CaseInsensitive) == 0;
        if (complete && !IsFunction(calculator, found.prefix))
            return {};
        if (size == word)
            found.wordBehind = WordAtStart(behind);
        return found;
    }
    return {};
}

QString SuggestedText(const Calculator& calculator, const QString& name)
{
    return IsFunction(calculator, name) ? QString(name + u'(') : name;
}
