// ISOLATE: one equation rearranged so that one variable stands alone on the left.
//
// The operations above the variable are undone one after another, from the outside in, without choosing a number for
// any other variable: sums, products, quotients, signs, positive whole-number powers and square roots. The variable has
// to be in one operand at each step. An even power has two roots, and each gives an equation of its own.
#pragma once

#include "core/symbolic/TreePass.h"

#include <QString>

#include <vector>

/// @param text    "variable, equation"
/// @param result  a line "variable = expression" for each solution; on failure the words for the user
bool IsolateText(const QString& text, QString& result);

/// Solves `expression` = `target` for the variable.
///
/// @param solutions  what the variable equals is appended, the positive root of an even power first; not simplified
/// @param error      on failure the words for the user
bool IsolateNode(const NodePointer& expression, const NodePointer& target, const QString& variable,
                 std::vector<NodePointer>& solutions, QString& error);
