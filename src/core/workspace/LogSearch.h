// A search over the days of the log. A day is one unit: its words may stand in different entries.
#pragma once

#include "core/workspace/LogBook.h"
#include "core/workspace/PatternSearch.h"

#include <optional>

struct SearchTerm {
    bool excluded = false; ///< a day that has it is no match
    QRegularExpression expression;
};

/// The terms of the friendly language as expressions.
///
/// @return whether each is valid; if not, there are no terms, and the error is Qt's text
bool BuildFriendlySearchTerms(const QString& text, Qt::CaseSensitivity caseSensitivity, QList<SearchTerm>& terms,
                              QString& error);

class LogSearch {
public:
    LogSearch(const QList<LogDay>& searchedDays, const QList<SearchTerm>& searchTerms)
        : days(searchedDays), terms(searchTerms)
    {
    }

    /// Goes on with the search until it has ended or the time is up.
    ///
    /// @return Found where some days match, Absent where none does
    SearchResult Continue(const QDeadlineTimer& until);

    const QList<qsizetype>& MatchingDays() const { return matchingDays; } ///< indices, in the days' order

private:
    SearchResult LogDayMatchesSearch(const LogDay& day, const QDeadlineTimer& until);

    QList<LogDay> days;
    QList<SearchTerm> terms;
    QList<qsizetype> matchingDays;

    // How far the search has come: the day, the term, the place in the day's text.
    qsizetype currentDay = 0;
    qsizetype currentTerm = 0;
    std::optional<PatternSearch> current;
};
