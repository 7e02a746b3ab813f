#include "core/engine/Variables.h"

#include "core/engine/Characters.h"

#include <algorithm>

bool IsValidVariableName(QStringView name)
{
    return !name.isEmpty() && !IsAsciiDigit(name.front()) && std::all_of(name.begin(), name.end(), IsAsciiWord);
}

bool ParseVariableAssignment(const QString& text, QString& name, QString& expression)
{
    name.clear();
    expression.clear();
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 0 || text.indexOf(u'=', equals + 1) >= 0)
        return false;
    const QStringView left = QStringView(text).first(equals).trimmed();
    if (!IsValidVariableName(left))
        return false;
    name = left.toString();
    expression = QStringView(text).sliced(equals + 1).trimmed().toString();
    return true;
}
