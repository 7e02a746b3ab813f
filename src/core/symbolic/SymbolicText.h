// Expression trees as text.
#pragma once

#include "core/symbolic/SymbolicTree.h"

/// The text of a tree as the pad shows it.
///
/// @param parentPrecedence  how tightly the text around it binds: 10 a sum, 20 a product or quotient, 30 a minus sign,
///                          40 a power, 50 what needs no brackets; 0 nothing around it
/// @param isRightOperand    whether it stands to the right of an operator that groups to the left
/// @return an empty text for null
///
/// A negative number and the operand of a minus sign get no brackets of their own, so that the power (-2)^X reads -2^X
/// and the negation of A + B reads -A + B.
QString NodeToText(const NodePointer& node, int parentPrecedence = 0, bool isRightOperand = false);
