// What a search of the pad finds: friendly terms or a raw regular expression, over the whole text at once.
//
// Letters are compared without their case unless the criteria ask for it. Digits are those of the calculator, ASCII:
// "#" finds 0 to 9 and no digit that no calculation would read.
#pragma once

#include <QList>
#include <QString>

struct SearchCriteria {
    QString text; ///< as it was typed
    bool caseSensitive = false;
    bool regularExpression = false; ///< the text is one, and no list of friendly terms
};

/// In UTF-16 units of the text.
struct SearchMatch {
    int position = 0;
    int length = 0;

    bool operator==(const SearchMatch&) const = default;
    bool operator<(const SearchMatch& other) const
    {
        return position != other.position ? position < other.position : length < other.length;
    }
};

/// All matches that are not empty, sorted by position and then by length, each once.
///
/// Positive friendly terms must all occur somewhere, and a term to exclude nowhere; otherwise there is no match.
/// Those of different terms may overlap.
///
/// @param ok     whether a search was possible
/// @param error  what to tell the user where it was not: no text, no valid expression, or one that takes more than two
///               seconds or too many steps
QList<SearchMatch> BuildSearchMatches(const QString& text, const SearchCriteria& criteria, bool& ok, QString& error);
