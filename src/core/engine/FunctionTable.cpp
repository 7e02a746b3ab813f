#include "core/engine/FunctionTable.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

Value CallFunction(const FunctionRow& row, Arguments arguments, const RandomSource& random)
{
    const auto count = static_cast<qsizetype>(arguments.size());
    if (count < row.fewest || count > row.most)
        return std::nullopt;
    if (!std::all_of(arguments.begin(), arguments.end(), [](double argument) { return std::isfinite(argument); }))
        return std::nullopt;
    const Value value = row.value ? row.value(arguments) : row.drawn(arguments, random);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

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
