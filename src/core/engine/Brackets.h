// Round brackets in a text.
#pragma once

#include <QStringView>

/// The index of the bracket that closes the one at `open`, or -1 where none does.
inline qsizetype ClosingBracket(QStringView text, qsizetype open)
{
    qsizetype depth = 0;
    for (qsizetype i = open; i < text.size(); ++i) {
        if (text[i] == u'(')
            ++depth;
        else if (text[i] == u')' && --depth == 0)
            return i;
    }
    return -1;
}
