// Trigonometry (radians throughout), roots, logarithms, rounding and whole-number arithmetic.
#pragma once

#include "core/engine/FunctionTable.h"

/// SIN to LCM. LOG is the logarithm to base 10, LN the natural one; ROUND takes the number of decimals first.
FunctionLibrary MathFunctions();
