// What can be offered to complete the words left of the cursor: names of the language, variables, the user's functions
// and the words of unit conversions.
//
// Names that never change are kept sorted and found by their beginning; variables and functions are looked up in the
// ordered maps that hold them. A request costs microseconds, however many names there are.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

class Calculator;

/// What is offered at a place of a line. Nothing where `names` is empty.
struct Suggestions {
    QStringList names;        ///< sorted ignoring case, none twice; each begins with the prefix
    QString prefix;           ///< the last characters before the cursor that begin a name, as typed; may hold blanks
    qsizetype wordBehind = 0; ///< characters behind the cursor that belong to the same word and are replaced as well
};

/// The names that begin with the longest possible end of the text before the cursor.
///
/// The end must have two characters at least and begin where a word begins. A name that stands there in full and is
/// the only one is offered only if it is a function, for the sake of its bracket.
///
/// @param before  the cursor's line up to the cursor
/// @param behind  the rest of that line
Suggestions SuggestionsFor(const Calculator& calculator, QStringView before, QStringView behind);

/// What a name puts into the line: a function brings its opening bracket.
QString SuggestedText(const Calculator& calculator, const QString& name);

/// How many characters of an identifier a text ends with, and begins with.
qsizetype WordAtEnd(QStringView text);
qsizetype WordAtStart(QStringView text);
