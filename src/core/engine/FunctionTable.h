// Functions as rows: what one row says, what a library of rows is, and how a call is checked against its row.
//
// A library (mathematics, statistics, finance ...) is a constexpr table of rows and knows no other library. Which
// library a name belongs to when several hold it is decided in Functions.cpp, and only there.
#pragma once

#include "core/engine/Value.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>

#include <cmath>
#include <functional>
#include <limits>
#include <span>

/// The already evaluated numbers of one call, in their order.
using Arguments = std::span<const double>;

/// Gives 64 random bits at each call.
using RandomSource = std::function<quint64()>;

/// `FunctionRow::most` of a function that takes as many arguments as the caller likes.
constexpr int anyCount = std::numeric_limits<int>::max();

/// All that is to be said about one function. A row has one of `value` and `drawn`.
struct FunctionRow {
    QLatin1StringView name; // upper case
    int fewest;             // arguments
    int most;
    Value (*value)(Arguments) = nullptr;
    Value (*drawn)(Arguments, const RandomSource&) = nullptr; // for functions that need random bits
};

using FunctionLibrary = std::span<const FunctionRow>;

inline bool TakesCount(const FunctionRow& row, qsizetype count)
{
    return count >= row.fewest && count <= row.most;
}

/// The value of a call with as many arguments as the function takes, or nothing: an argument that is not finite, a call
/// outside the function's domain, a result that is not finite.
inline Value CallRightly(const FunctionRow& row, Arguments arguments, const RandomSource& random)
{
    for (const double argument : arguments) {
        if (!std::isfinite(argument))
            return std::nullopt;
    }
    const Value value = row.value ? row.value(arguments) : row.drawn(arguments, random);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

/// The same with any number of arguments; nothing also where the function does not take so many.
inline Value CallFunction(const FunctionRow& row, Arguments arguments, const RandomSource& random)
{
    if (!TakesCount(row, static_cast<qsizetype>(arguments.size())))
        return std::nullopt;
    return CallRightly(row, arguments, random);
}

/// 64 bits of the toolkit's global generator.
quint64 GlobalRandomBits();

/// A call by name within one library.
///
/// @param name     upper case
/// @param ok       whether the call gave a value
/// @param handled  whether the library has a function of that name; `ok` and the result are final then
/// @return the value, 0 where there is none
double RunLibraryFunction(FunctionLibrary library, const QString& name, const QList<double>& arguments, bool& ok,
                          bool& handled);
