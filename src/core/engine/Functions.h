// The single door from an expression to every named function, and the order in which the libraries are asked.
#pragma once

#include "core/engine/FunctionTable.h"

#include <string_view>

/// The libraries in the order in which they are asked: the first that has a name owns it, whatever it makes of a call.
std::span<const FunctionLibrary> FunctionLibraries();

/// No function's name is longer, in characters.
constexpr size_t longestName = 32;

/// The row of a function, or null where no library has the name.
///
/// @param upperName  upper case, ASCII
const FunctionRow* FindFunction(std::string_view upperName);

/// Calls a function by its upper-case name; `ok` is false and the result 0 where there is no such function, the number
/// of arguments is wrong, or they lie outside its domain.
double RunFunction(const QString& name, const QList<double>& arguments, bool& ok);
