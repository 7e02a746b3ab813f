// From the text of one expression to one double, computed while it is read; see ExpressionReader.h for the grammar.
//
// Nothing here knows ANS, custom functions or the three tries of a typed line: that is the Calculator's job.
#pragma once

#include "core/engine/FunctionTable.h"

#include <QMap>
#include <QString>
#include <QStringView>

/// Variables by their upper-case names.
using Variables = QMap<QString, double>;

/// The value of an expression, or nothing where it is none, divides by zero or calls a function outside its domain.
/// Sums, products and powers may overflow to infinity or be NaN; that is a value.
///
/// @param variables  each stands for its number in brackets (so `2X` is a product and `X2` another name). An infinite
///                   or NaN value has no such number and fails.
std::optional<double> EvaluateText(QStringView text, const Variables& variables, const RandomSource& random);

/// The factorial of a whole number from 0 to 170, multiplied up in ascending order; nothing for any other number.
Value FactorialOf(double number);
