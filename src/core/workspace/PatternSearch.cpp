#include "core/workspace/PatternSearch.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestPiece = 1 << 10; // UTF-16 units
constexpr qsizetype firstPiece = 1 << 14;
constexpr qsizetype longestPiece = 1 << 18;
constexpr qint64 slowPiece = 10; // milliseconds
constexpr qint64 quickPiece = 2;

// Checking the text would cost more than most searches.
constexpr auto wellFormed = QRegularExpression::DontCheckSubjectStringMatchOption;

// What SearchExpression puts in front of a pattern.
constexpr QStringView limitSteps = u"(*LIMIT_MATCH=1000000)";
constexpr QStringView passEmptyMatchesOver = u"(*NOTEMPTY)";

// \G is the place where a match is begun to be looked for, and verbs such as (*COMMIT) end the search of the whole
// text: such a pattern tells how the text is gone through. The verbs that SearchExpression has put in front do not.
bool DependsOnPieces(const QString& pattern)
{
    QStringView own = pattern;
    for (const QStringView verb : {limitSteps, passEmptyMatchesOver})
        own = own.sliced(own.startsWith(verb) ? verb.size() : 0);
    return own.contains(u"\\G"_s) || own.contains(u"(*"_s);
}

} // namespace

QRegularExpression SearchExpression(const QString& pattern, Qt::CaseSensitivity caseSensitivity,
                                    EmptyMatches emptyMatches)
{
    QString verbs = limitSteps.toString();
    if (emptyMatches == EmptyMatches::PassedOver)
        verbs += passEmptyMatchesOver;
    return QRegularExpression(verbs + pattern, caseSensitivity == Qt::CaseSensitive
                                                   ? QRegularExpression::NoPatternOption
                                                   : QRegularExpression::CaseInsensitiveOption);
}

PatternSearch::PatternSearch(const QRegularExpression& searchedFor, QStringView searched)
    : expression(searchedFor), text(searched),
      pieceLength(DependsOnPieces(searchedFor.pattern()) ? searched.size() : firstPiece)
{
}

SearchResult PatternSearch::Continue(const QDeadlineTimer& until)
{
    SearchResult result = SearchPiece();
    while (result == SearchResult::Unfinished && !until.hasExpired())
        result = SearchPiece();
    return result;
}

SearchResult PatternSearch::SearchPiece()
{
    if (from > text.size())
        return SearchResult::Absent;
    QElapsedTimer clock;
    clock.start();
    const qsizetype end = PieceEnd();
    const bool isLast = end == text.size();
    const QRegularExpressionMatch match = expression.match(
        text.first(end), from, isLast ? QRegularExpression::NormalMatch : QRegularExpression::PartialPreferFirstMatch,
        wellFormed);
    if (match.hasPartialMatch())
        return FollowPartialMatch(match.capturedStart());
    const SearchResult result = Take(match);
    if (isLast || result != SearchResult::Absent)
        return result;
    from = end;
    if (clock.elapsed() > slowPiece)
        pieceLength = std::max(shortestPiece, pieceLength / 4);
    else if (clock.elapsed() < quickPiece)
        pieceLength = std::min(longestPiece, pieceLength * 4);
    return SearchResult::Unfinished;
}

// What comes behind a match does not overlap it.
SearchResult PatternSearch::Take(const QRegularExpressionMatch& match)
{
    if (!match.hasMatch())
        return match.isValid() ? SearchResult::Absent : SearchResult::Failed;
    matchPosition = match.capturedStart();
    matchLength = match.capturedLength();
    from = matchPosition + std::max(matchLength, qsizetype(1));
    return SearchResult::Found;
}

// A longer piece may tell. If even the longest does not, the one place is tried in the whole text. The start that Qt
// tells of lies before the match by as much as the expression may look back.
SearchResult PatternSearch::FollowPartialMatch(qsizetype start)
{
    from = std::max(from, start);
    if (pieceLength < longestPiece) {
        pieceLength *= 4;
        return SearchResult::Unfinished;
    }
    const SearchResult result = Take(expression.match(text, from, QRegularExpression::NormalMatch,
                                                      wellFormed | QRegularExpression::AnchorAtOffsetMatchOption));
    if (result != SearchResult::Absent)
        return result;
    from += text[from].isHighSurrogate() ? 2 : 1;
    return SearchResult::Unfinished;
}

// Behind a line if one ends soon, since few expressions look beyond it.
qsizetype PatternSearch::PieceEnd() const
{
    const qsizetype end = from + pieceLength;
    if (end >= text.size())
        return text.size();
    const qsizetype lineFeed = text.sliced(end, std::min(pieceLength, text.size() - end)).indexOf(u'\n');
    if (lineFeed >= 0)
        return end + lineFeed + 1;
    return text[end].isLowSurrogate() ? end + 1 : end;
}
