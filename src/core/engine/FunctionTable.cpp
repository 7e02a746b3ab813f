#include "core/engine/FunctionTable.h"

#include <QRandomGenerator>

#include <algorithm>

quint64 GlobalRandomBits()
{
    return QRandomGenerator64::global()->generate();
}

double RunLibraryFunction(FunctionLibrary library, const QString& name, const QList<double>& arguments, bool& ok,
                          bool& handled)
{
    const auto row = std::find_if(library.begin(), library.end(),
                                  [&](const FunctionRow& candidate) { return name == candidate.name; });
    handled = row != library.end();
    const Value value = handled ? CallFunction(*row, arguments, GlobalRandomBits) : std::nullopt;
    ok = value.has_value();
    return value.value_or(0);
}
