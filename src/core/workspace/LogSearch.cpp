#include "core/workspace/LogSearch.h"

#include "core/workspace/FriendlySearch.h"

bool BuildFriendlySearchTerms(const QString& text, Qt::CaseSensitivity caseSensitivity, QList<SearchTerm>& terms,
                              QString& error)
{
    terms.clear();
    for (const FriendlySearchTerm& term : ParseFriendlySearchTerms(text, SearchDialect::Log)) {
        const QString pattern = WildcardTermToRegularExpression(term.text, SearchDialect::Log);
        const QRegularExpression expression = SearchExpression(pattern, caseSensitivity);
        if (!expression.isValid()) {
            terms.clear();
            error = expression.errorString();
            return false;
        }
        terms.append({term.excluded, expression});
    }
    return true;
}

SearchResult LogSearch::Continue(const QDeadlineTimer& until)
{
    for (; currentDay < days.size(); ++currentDay) {
        const SearchResult result = LogDayMatchesSearch(days[currentDay], until);
        if (result == SearchResult::Unfinished || result == SearchResult::Failed)
            return result;
        if (result == SearchResult::Found)
            matchingDays.append(currentDay);
        currentTerm = 0;
        current.reset();
    }
    return matchingDays.isEmpty() ? SearchResult::Absent : SearchResult::Found;
}

SearchResult LogSearch::LogDayMatchesSearch(const LogDay& day, const QDeadlineTimer& until)
{
    for (; currentTerm < terms.size(); ++currentTerm) {
        const SearchTerm& term = terms[currentTerm];
        if (!current)
            current.emplace(term.expression, day.text);
        const SearchResult result = current->Continue(until);
        if (result == SearchResult::Unfinished || result == SearchResult::Failed)
            return result;
        if ((result == SearchResult::Found) == term.excluded)
            return SearchResult::Absent;
        current.reset();
    }
    return SearchResult::Found;
}
