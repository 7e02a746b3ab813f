// Which characters count as what in a line of the pad. Everything here looks at one UTF-16 code unit.
#pragma once

#include <QChar>

inline bool IsAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

inline bool IsAsciiLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// A letter, digit or underscore of ASCII: what a variable's name is made of.
inline bool IsAsciiWord(QChar c)
{
    return IsAsciiLetter(c) || IsAsciiDigit(c) || c == u'_';
}

/// A digit of ASCII or of any other script.
inline bool IsDigit(QChar c)
{
    return IsAsciiDigit(c) || (c > QChar(127) && c.category() == QChar::Number_DecimalDigit);
}

/// A letter of ASCII or of any other script.
inline bool IsLetter(QChar c)
{
    return IsAsciiLetter(c) || (c > QChar(127) && c.isLetter());
}

/// What an identifier in the wide sense begins with.
inline bool IsIdentifierStart(QChar c)
{
    return IsLetter(c) || c == u'_';
}

/// What an identifier in the wide sense goes on with.
inline bool IsIdentifierPart(QChar c)
{
    return IsAsciiWord(c) || (c > QChar(127) && c.isLetterOrNumber());
}

/// White space between the tokens of an expression.
inline bool IsSpace(QChar c)
{
    const char16_t unit = c.unicode();
    if (unit <= 127)
        return unit == 32 || (unit >= 9 && unit <= 13);
    return unit == 133 || unit == 160 || c.isSpace();
}
