#include "core/solver/EquationBlock.h"

#include <algorithm>

namespace {

QStringView Before(QStringView text, qsizetype position)
{
    return text.first(std::clamp<qsizetype>(position, 0, text.size()));
}

} // namespace

bool IsInsideEquationBlock(QStringView text, qsizetype position)
{
    const QStringView before = Before(text, position);
    return before.lastIndexOf(u'{') > before.lastIndexOf(u'}');
}

bool ExtractEquationBlock(QStringView text, qsizetype position, QStringList& equations,
                          const std::function<QString(const QString&)>& normalize)
{
    equations.clear();
    const QStringView before = Before(text, position);
    const qsizetype close = before.lastIndexOf(u'}');
    if (close < 0 || !IsInsideEquationBlock(text, close))
        return false;
    const QStringView block = before.first(close);
    for (const QStringView line : block.sliced(block.lastIndexOf(u'{') + 1).split(u'\n')) {
        const QString equation = normalize(line.toString());
        if (!equation.isEmpty())
            equations.append(equation);
    }
    return !equations.isEmpty();
}
