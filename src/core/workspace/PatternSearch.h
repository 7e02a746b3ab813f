// Whether a regular expression matches in a text, asked in slices of time.
//
// A match of QRegularExpression cannot be interrupted, and one over a long text may take hours. So the text is gone
// through in pieces, each a short match. The outcome is the one that a match over the whole text would have: a match
// that begins in a piece and might reach beyond it is looked for from there in the whole text.
#pragma once

#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QStringView>

enum class SearchResult {
    Found,
    Absent,
    Unfinished, ///< time is up, and the search may go on
    Failed,     ///< the expression needs more steps or memory than a match may take
};

/// Whether a match may be an empty text, as "x*" finds it anywhere.
enum class EmptyMatches { Taken, PassedOver };

/// An expression for searches, matching without regard to case unless told otherwise. A match gives up after a million
/// steps from one place.
QRegularExpression SearchExpression(const QString& pattern, Qt::CaseSensitivity caseSensitivity,
                                    EmptyMatches emptyMatches = EmptyMatches::Taken);

class PatternSearch {
public:
    /// @param searchedFor  of SearchExpression
    /// @param searched     well-formed UTF-16, which must live as long as the search does
    PatternSearch(const QRegularExpression& searchedFor, QStringView searched);

    /// Goes on with the search until a match is found, there is none any more, or the time is up. It makes some headway
    /// even if no time is left. Behind a match it goes on to the next.
    SearchResult Continue(const QDeadlineTimer& until);

    /// The match that was found last, in UTF-16 units of the text.
    qsizetype MatchPosition() const { return matchPosition; }
    qsizetype MatchLength() const { return matchLength; }

private:
    SearchResult SearchPiece();
    SearchResult Take(const QRegularExpressionMatch& match);
    SearchResult FollowPartialMatch(qsizetype start);
    qsizetype PieceEnd() const;

    QRegularExpression expression;
    QStringView text;
    qsizetype from = 0;    // no match begins before
    qsizetype pieceLength; // at least
    qsizetype matchPosition = -1;
    qsizetype matchLength = 0;
};
