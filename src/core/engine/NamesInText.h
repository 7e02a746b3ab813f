// The names in an expression's text: identifiers of ASCII that are no part of a number literal.
#pragma once

#include "core/engine/Characters.h"
#include "core/engine/NumberText.h"

#include <QStringView>

#include <algorithm>

/// Calls `visit(start, size)` for each name, from left to right. A name may stand straight behind a digit: the X of 2X.
template <typename Visit>
void ForEachName(QStringView text, Visit visit)
{
    for (qsizetype position = 0; position < text.size();) {
        const qsizetype start = position;
        if (!IsAsciiLetter(text[start]) && text[start] != u'_') {
            position = std::max(NumberLiteralEnd(text, start), start + 1);
            continue;
        }
        while (position < text.size() && IsAsciiWord(text[position]))
            ++position;
        visit(start, position - start);
    }
}
