// Products as lists of factors: numbers are multiplied, like factors become powers, and the rest is put in order.
//
// The order is that of the factors' keys, a number first. Likeness is equality of keys.
#pragma once

#include "core/symbolic/SymbolicTree.h"

#include <map>
#include <vector>

/// The factors of nested products, left before right, as they stand.
void CollectProductFactors(const NodePointer& node, std::vector<NodePointer>& factors);

/// The product with its like factors merged and in order. Its factors are taken as they stand.
NodePointer SimplifyProduct(const NodePointer& node);

/// A product that grows by steps, each of which gives what SimplifyProduct would give for the product so far and what
/// comes to it, without writing the product out in between. A step costs what it adds.
class RunningProduct {
public:
    /// One step.
    ///
    /// @return whether all of the factors now stand, as given, behind all that stood there before
    bool Merge(const std::vector<NodePointer>& factors);

    /// Whether the product is one of several factors above zero, and its factors, written, would be those that stand
    /// here. If not, the next step has to begin with the written product.
    bool CanGoOn() const;

    NodePointer ToNode() const;

    NodePointer written; ///< what ToNode would write again, if the owner knows that there is such a node

private:
    struct KeyLess {
        bool operator()(const NodePointer& a, const NodePointer& b) const { return CompareKeys(a, b) < 0; }
    };

    bool MergeFactor(const NodePointer& factor);
    bool HasWrittenCoefficient() const;

    double coefficient = 1;
    std::map<NodePointer, double, KeyLess> exponents; // by base
    bool readsBack = true;
};
