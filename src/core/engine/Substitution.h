// The passes that put values into an expression's text, and the one that takes everything else out of it.
//
// A number literal is one thing: no pass replaces letters inside it, neither the tail of 0x1F nor an exponent mark.
#pragma once

#include "core/engine/Evaluator.h"

#include <QString>

/// The text with each `ANS` (in any case, also straight behind a digit) replaced by the value in brackets.
///
/// @param ans  the last numeric answer; it travels with 15 significant digits
QString ReplaceANS(const QString& text, double ans);

/// The text with each variable's name replaced by its value in brackets, at 17 significant digits.
QString ReplaceVariables(const QString& text, const Variables& variables);

/// What is left of a text when all that no number and no operator is made of is taken out; trimmed. Names and commas
/// go, an E stays only where it is an exponent mark.
QString RemoveNonMathText(const QString& text);
