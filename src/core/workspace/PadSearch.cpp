#include "core/workspace/PadSearch.h"

#include "core/workspace/FriendlySearch.h"
#include "core/workspace/PatternSearch.h"

#include <algorithm>
#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds longestSearch(2);

struct Outcome {
    QList<SearchMatch> matches;
    QString error = {};
};

struct TermExpression {
    QRegularExpression expression;
    bool excluded;
};

// Half of a surrogate pair is no character to the engine, and it would search no text that has one.
QString WellFormed(QString text)
{
    if (text.isValidUtf16())
        return text;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
            ++at;
        else if (text[at].isSurrogate())
            text[at] = QChar::ReplacementCharacter;
    }
    return text;
}

// Nothing where the search takes too long or too many steps.
std::optional<QList<SearchMatch>>
FindRegularExpressionMatches(const QString& text, const QRegularExpression& expression, const QDeadlineTimer& until)
{
    QList<SearchMatch> matches;
    PatternSearch search(expression, text);
    SearchResult result = SearchResult::Unfinished;
    while ((result = search.Continue(until)) == SearchResult::Found && !until.hasExpired())
        matches.append({static_cast<int>(search.MatchPosition()), static_cast<int>(search.MatchLength())});
    return result == SearchResult::Absent ? std::optional(matches) : std::nullopt;
}

Qt::CaseSensitivity CaseSensitivityOf(const SearchCriteria& criteria)
{
    return criteria.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

Outcome RawMatches(const QString& text, const SearchCriteria& criteria)
{
    const QRegularExpression expression =
        SearchExpression(WellFormed(criteria.text), CaseSensitivityOf(criteria), EmptyMatches::PassedOver);
    const auto found = expression.isValid()
                           ? FindRegularExpressionMatches(text, expression, QDeadlineTimer(longestSearch))
                           : std::nullopt;
    return found ? Outcome{*found} : Outcome{{}, u"Invalid regular expression"_s};
}

QRegularExpression BuildFriendlyTermExpression(const FriendlySearchTerm& term, const SearchCriteria& criteria)
{
    return SearchExpression(WildcardTermToRegularExpression(term.text, SearchDialect::Pad), CaseSensitivityOf(criteria),
                            EmptyMatches::PassedOver);
}

// Every match of a positive term, if the text has all of those and none of the others.
Outcome TermMatches(const QString& text, const QList<TermExpression>& terms)
{
    const QDeadlineTimer until(longestSearch);
    QList<SearchMatch> matches;
    for (const TermExpression& term : terms) {
        const auto found = FindRegularExpressionMatches(text, term.expression, until);
        if (!found)
            return {{}, u"Invalid wildcard expression"_s};
        if (found->isEmpty() != term.excluded)
            return {};
        matches += *found;
    }
    std::sort(matches.begin(), matches.end());
    matches.resize(std::unique(matches.begin(), matches.end()) - matches.begin());
    return {matches};
}

Outcome FriendlyMatches(const QString& text, const SearchCriteria& criteria)
{
    QList<TermExpression> terms;
    for (const FriendlySearchTerm& term : ParseFriendlySearchTerms(WellFormed(criteria.text), SearchDialect::Pad))
        terms.append({BuildFriendlyTermExpression(term, criteria), term.excluded});
    if (terms.isEmpty())
        return {{}, u"Enter text to find"_s};
    // Those to exclude come first, as they may end the search.
    const auto firstPositive =
        std::stable_partition(terms.begin(), terms.end(), [](const TermExpression& term) { return term.excluded; });
    if (firstPositive == terms.end())
        return {{}, u"Enter at least one term to find"_s};
    if (!std::all_of(terms.begin(), terms.end(), [](const TermExpression& term) { return term.expression.isValid(); }))
        return {{}, u"Invalid wildcard expression"_s};
    return TermMatches(text, terms);
}

} // namespace

QList<SearchMatch> BuildSearchMatches(const QString& text, const SearchCriteria& criteria, bool& ok, QString& error)
{
    Outcome outcome;
    if (criteria.text.isEmpty())
        outcome.error = u"Enter text to find"_s;
    else
        outcome = criteria.regularExpression ? RawMatches(WellFormed(text), criteria)
                                             : FriendlyMatches(WellFormed(text), criteria);
    ok = outcome.error.isEmpty();
    error = outcome.error;
    return outcome.matches;
}
