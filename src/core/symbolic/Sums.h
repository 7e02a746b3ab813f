// Sums as lists of terms: like terms are merged, and a sum is put in order.
//
// Terms keep the order in which they first appear, those with a coefficient of zero or more before those below zero.
// Likeness is equality of keys.
#pragma once

#include "core/symbolic/SymbolicTree.h"

#include <unordered_map>
#include <vector>

/// A term of a sum: `node` times `coefficient`, or the coefficient alone where `node` is null.
struct SimplifyTerm {
    double coefficient = 0;
    NodePointer node;
};

/// Takes a number, a sign or a numeric factor off a node. Only the node itself and, in a product, its two operands are
/// looked at: 2*X*Y, which is (2*X)*Y, keeps its 2.
///
/// @param rest  null where nothing but a number was there
void ExtractCoefficient(const NodePointer& node, double& coefficient, NodePointer& rest);

/// The node of a term: the coefficient on the left, a minus sign before it, and neither 1 nor 0 written.
NodePointer BuildCoefficientTerm(double coefficient, const NodePointer& node);

/// Whether a node is what BuildCoefficientTerm makes of what ExtractCoefficient finds in it.
bool IsWrittenTerm(const NodePointer& node);

/// Appends the terms of a sum, each times `sign`; anything else than a sum is one term.
void CollectTerms(const NodePointer& node, double sign, std::vector<SimplifyTerm>& terms);

/// The sum with its like terms merged and in order. Its terms are taken as they stand.
NodePointer SimplifySum(const NodePointer& node);

/// A sum that grows by steps, each of which gives what SimplifySum would give for the sum so far and what comes to it,
/// without writing the sum out in between. A step costs what it adds.
class RunningSum {
public:
    /// One step.
    ///
    /// @return whether all of the terms now stand, as given, behind all that stood there before
    bool Merge(const std::vector<SimplifyTerm>& terms);

    /// How many terms the sum has.
    size_t Count() const { return entries.size(); }

    /// Whether the terms of the written sum would be those that stand here. If not, the next step has to begin with the
    /// written sum.
    bool CanGoOn() const { return canGoOn; }

    NodePointer ToNode() const;

    NodePointer written; ///< what ToNode would write again, if the owner knows that there is such a node

private:
    struct Place {
        double coefficient = 0;
        qint64 position = 0; // among those of the same sign
        bool isNew = true;   // within the step
        bool wasNegative = false;
    };
    struct KeyHash {
        size_t operator()(const NodePointer& node) const { return node ? node->keyHash : 0; }
    };
    struct KeyEqual {
        bool operator()(const NodePointer& a, const NodePointer& b) const { return SameNode(a, b); }
    };
    using Entries = std::unordered_map<NodePointer, Place, KeyHash, KeyEqual>;
    using Item = Entries::value_type;

    void MoveChanged(const std::vector<Item*>& changed);
    bool PlaceNew(const std::vector<Item*>& added);
    void Settle(Item& item);
    void DropZeros(const std::vector<Item*>& touched);

    Entries entries; // by node; the constant stands at null
    qint64 first = 0;
    qint64 last = 0;
    qsizetype negatives = 0;
    bool canGoOn = true;
};
