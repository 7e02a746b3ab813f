// One real root of an equation in one unknown, from its values alone: ranges are scanned for a change of sign.
//
// The first root met wins: ranges grow from [-10, 10] to [-1000000, 1000000], each is scanned upwards in 400 steps, and
// of a pair of opposite roots the positive one is the answer. A search ends by itself, after some thousand evaluations.
#pragma once

#include "core/solver/EquationSystem.h"
#include "core/solver/SearchPulse.h"

/// A root of an equation in one unknown; nothing where the search meets none or `pulse` stops.
Value SolveSingleVariableEquation(const CompiledEquation& equation, SearchPulse& pulse);

/// A root of one equation of a system in one unknown that solves the others too.
///
/// @param values  one value
/// @return false where the system has more than one unknown, no root of any equation solves all, or `pulse` stops
bool SolveSingleVariableEquationBlock(const EquationSystem& system, Point& values, SearchPulse& pulse);
