// English arithmetic: operator words become symbols and number words become digits, "five plus six" becomes "5 + 6".
//
// Pure rewriting of a line's text; whether it is wanted, and what the result means, is the caller's. Words count in any
// case and never inside an identifier. Whatever the line, the time is linear in its length, and a line in which nothing
// is rewritten comes back as the same shared text.
#pragma once

#include <QString>
#include <QStringView>

/// The line with operator words, then number words rewritten. Running it again changes nothing.
///
/// Operators are phrases ("raised to the power of", any white space between the words) or single words; where phrases
/// overlap, the one that stands first in the table of operators has the words.
QString WordOp(const QString& text);

/// The line with number words alone rewritten, by the same rules as in WordOp().
///
/// Number words that white space or hyphens join are one number, the longest span that makes sense: "two thousand
/// three" is 2003, "three point one four" is 3.14. The words of a number add up, their order is not tested: "five
/// twenty" is 25. A hyphen joins only where no blank touches it: "twenty-five" is a number, "ten -five" a difference.
/// "negative" is a sign as the first word of a number.
///
/// A number beyond 64 bits stays in words to the end of its run of number words, so that the line fails rather than
/// have a wrong number.
QString ReplaceNumberWordPhrases(const QString& text);

/// The line with each `phrase` replaced that is no part of an identifier.
///
/// @param phrase  words in any case separated by blanks, each gap standing for any white space; without a word nothing
///                is replaced
QString ReplaceWordPhrase(const QString& text, QStringView phrase, QStringView replacement);

/// Whether the word, in any case, is part of spoken numbers: a unit, a ten, a scale, "point" or "negative".
bool IsNumberWord(QStringView word);

/// Whether the word, in any case, is one of "zero" to "nineteen"; `value` is written only then.
bool IsNumberUnit(QStringView word, long long& value);

/// Whether the word, in any case, is one of "twenty", "thirty" to "ninety"; `value` is written only then.
bool IsNumberTens(QStringView word, long long& value);
