// One pass of the simplifier over a tree: operands first, then the rules of the node above them.
//
// Constants are folded, zeros and ones go, like terms and like factors are merged, signs move outwards, and a product
// of one sum and something else is distributed. Nothing is factored, X/X is not cancelled, a product of two sums is not
// expanded. A pass can leave work for another; Simplification.h repeats it.
#pragma once

#include "core/symbolic/SymbolicTree.h"

/// What one command may spend on algebra before it gives up: distribution can double a tree again and again.
class Effort {
public:
    /// @return whether there was so much left
    bool Spend(size_t steps)
    {
        left = steps < left ? left - steps : 0;
        return left > 0;
    }

private:
    size_t left = 5'000'000; // a few seconds at most
};

/// The simplified tree.
///
/// @param keepProducts  a product exactly one of whose operands is a sum stays as it is, instead of being distributed
/// @return null where the effort is spent, where the tree would grow beyond `largestTree`, and for null
NodePointer SimplifyNodeTree(const NodePointer& node, bool keepProducts, Effort& effort);

/// The same with an effort of its own.
NodePointer SimplifyNodeTree(const NodePointer& node, bool keepProducts);
