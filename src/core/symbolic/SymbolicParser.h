// Text to expression tree, for the symbolic commands. A grammar of its own, apart from the evaluator's: names that are
// no function read as variables, and a digit begins an implied factor.
//
//     expression := term { ("+" | "-") term }
//     term       := unary { ("*" | "/") unary | unary }       the second form is a product
//     unary      := { "+" } ( "-" unary | primary [ "^" unary ] )
//     primary    := "(" expression ")" | function "(" expression ")" | name | number
//     function   := SIN | COS | TAN | SQRT | ABS, in any case
//
// So -2^2 is the negation of a power, powers group to the right, SIN X is a product of two variables, and LOG(X) is LOG
// times X. White space may stand between any two tokens.
#pragma once

#include "core/symbolic/SymbolicTree.h"

#include <QStringView>

/// Reads the whole text as one expression.
///
/// @param node  the tree; null without one
/// @return false for anything that is no expression, left-over text included, and for a tree beyond `largestTree`
///
/// How deep the text nests is bounded by memory alone.
bool ParseSymbolicExpression(QStringView text, NodePointer& node);

/// What FindTopLevelEquals gives besides a position.
inline constexpr int noTopLevelEquals = -1;
inline constexpr int brokenEquation = -2;

/// Where the one equals sign outside all brackets stands.
///
/// @return its position, `noTopLevelEquals` where there is none, `brokenEquation` where there are several or where the
///         brackets do not match
int FindTopLevelEquals(QStringView text);
