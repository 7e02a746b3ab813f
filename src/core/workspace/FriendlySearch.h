// The friendly search language: words, quoted phrases, words to exclude, and simple wildcards.
//
// Search dialog and log viewer speak it in two dialects. Both turn a term into a regular expression; what is searched
// with it, and what several terms mean together, is theirs.
#pragma once

#include <QList>
#include <QString>

/// Who reads the terms. In the pad, "- word" excludes the word too, a phrase may lack its closing quote, and "*" takes
/// as little as it can; over the log, the minus stands right before its word and "*" takes as much as it can.
enum class SearchDialect { Pad, Log };

struct FriendlySearchTerm {
    QString text;
    bool excluded = false;
};

/// The terms in their order, without empty ones.
QList<FriendlySearchTerm> ParseFriendlySearchTerms(const QString& text, SearchDialect dialect);

/// A term's pattern: "*" any text, "?" one character, "#" one digit, "[abc]" and "[!abc]" a set; all else is itself.
/// It may be no valid expression (a range whose ends are the wrong way round).
QString WildcardTermToRegularExpression(const QString& term, SearchDialect dialect);
