#include "core/symbolic/Sums.h"

#include <algorithm>
#include <utility>

namespace {

using Type = SimplifyNodeType;

bool HasNumericFactor(const NodePointer& node)
{
    return IsOfType(node, Type::Multiply) && (IsNumber(node->left) || IsNumber(node->right));
}

// Whether the node written for a term is taken apart into that term again. It is not if the coefficient is left
// unwritten and the node brings a coefficient, or terms, of its own.
bool IsReadBack(double coefficient, const NodePointer& node)
{
    const bool unwritten = coefficient == 1;
    if (!node || (!unwritten && coefficient != -1))
        return true;
    return !IsNumber(node) && !IsOfType(node, Type::Negate) && !HasNumericFactor(node) && !(unwritten && IsSum(node));
}

// What is no number counts as nothing too.
bool IsNothing(double coefficient)
{
    return !(std::abs(coefficient) >= symbolicTolerance);
}

} // namespace

void ExtractCoefficient(const NodePointer& node, double& coefficient, NodePointer& rest)
{
    double sign = 1;
    const NodePointer* unsignedNode = &node;
    while (IsOfType(*unsignedNode, Type::Negate)) {
        sign = -sign;
        unsignedNode = &(*unsignedNode)->left;
    }
    const NodePointer& inner = *unsignedNode;
    coefficient = sign;
    if (IsNumber(inner)) {
        coefficient *= inner->number;
        rest = nullptr;
    } else if (!HasNumericFactor(inner)) {
        rest = inner;
    } else {
        const bool leads = IsNumber(inner->left);
        coefficient *= (leads ? inner->left : inner->right)->number;
        rest = leads ? inner->right : inner->left;
    }
}

NodePointer BuildCoefficientTerm(double coefficient, const NodePointer& node)
{
    if (!node)
        return MakeNumber(coefficient);
    if (IsZero(coefficient))
        return MakeNumber(0);
    if (IsOne(coefficient))
        return node;
    if (IsOne(-coefficient))
        return MakeUnary(Type::Negate, node);
    const NodePointer product = MakeBinary(Type::Multiply, MakeNumber(std::abs(coefficient)), node);
    return coefficient < 0 ? MakeUnary(Type::Negate, product) : product;
}

bool IsWrittenTerm(const NodePointer& node)
{
    if (IsSum(node))
        return false;
    double coefficient = 0;
    NodePointer rest;
    ExtractCoefficient(node, coefficient, rest);
    if (!rest || coefficient == 1)
        return rest == node || IsNumber(node);
    const bool isNegation = IsOfType(node, Type::Negate);
    if (isNegation != (coefficient < 0) || IsZero(coefficient) || IsOne(std::abs(coefficient)))
        return coefficient == -1 && isNegation && node->left == rest;
    const NodePointer& product = isNegation ? node->left : node;
    return IsOfType(product, Type::Multiply) && product->right == rest && IsNumber(product->left) &&
           product->left->number == std::abs(coefficient);
}

void CollectTerms(const NodePointer& root, double rootSign, std::vector<SimplifyTerm>& terms)
{
    std::vector<std::pair<const NodePointer*, double>> waiting = {{&root, rootSign}};
    while (!waiting.empty()) {
        const auto [node, sign] = waiting.back();
        waiting.pop_back();
        if (IsSum(*node)) {
            waiting.emplace_back(&(*node)->right, (*node)->type == Type::Subtract ? -sign : sign);
            waiting.emplace_back(&(*node)->left, sign);
            continue;
        }
        SimplifyTerm term;
        ExtractCoefficient(*node, term.coefficient, term.node);
        term.coefficient *= sign;
        terms.push_back(std::move(term));
    }
}

NodePointer SimplifySum(const NodePointer& node)
{
    std::vector<SimplifyTerm> terms;
    CollectTerms(node, 1.0, terms);
    RunningSum sum;
    sum.Merge(terms);
    return sum.ToNode();
}

bool RunningSum::Merge(const std::vector<SimplifyTerm>& terms)
{
    std::vector<Item*> added;
    std::vector<Item*> changed;
    for (const SimplifyTerm& term : terms) {
        const auto [place, isNew] = entries.try_emplace(term.node, Place{term.coefficient});
        if (isNew) {
            added.push_back(&*place);
            continue;
        }
        place->second.coefficient += term.coefficient;
        if (!place->second.isNew)
            changed.push_back(&*place);
    }
    MoveChanged(changed);
    const bool inOrder = PlaceNew(added);
    DropZeros(changed);
    DropZeros(added);
    return inOrder && added.size() == terms.size();
}

// Who became positive follows the positive ones, in the order of the negative ones that it leaves; who became negative
// comes before the negative ones.
void RunningSum::MoveChanged(const std::vector<Item*>& changed)
{
    std::vector<Item*> risen;
    std::vector<Item*> fallen;
    for (Item* item : changed) {
        Settle(*item);
        const bool isNegative = item->second.coefficient < 0;
        if (isNegative != std::exchange(item->second.wasNegative, isNegative))
            (isNegative ? fallen : risen).push_back(item);
    }
    const auto earlier = [](const Item* a, const Item* b) { return a->second.position < b->second.position; };
    std::sort(risen.begin(), risen.end(), earlier);
    std::sort(fallen.rbegin(), fallen.rend(), earlier);
    for (Item* item : risen)
        item->second.position = ++last;
    for (Item* item : fallen)
        item->second.position = --first;
    negatives += static_cast<qsizetype>(fallen.size()) - static_cast<qsizetype>(risen.size());
}

bool RunningSum::PlaceNew(const std::vector<Item*>& added)
{
    bool inOrder = true;
    for (Item* item : added) {
        Place& place = item->second;
        Settle(*item);
        place.isNew = false;
        place.position = ++last;
        place.wasNegative = place.coefficient < 0;
        inOrder = inOrder && !IsNothing(place.coefficient) && (place.wasNegative || negatives == 0);
        negatives += place.wasNegative;
    }
    return inOrder;
}

// A coefficient of one is not written, and so reads back as exactly one.
void RunningSum::Settle(Item& item)
{
    double& coefficient = item.second.coefficient;
    if (item.first && (IsOne(coefficient) || IsOne(-coefficient)))
        coefficient = std::round(coefficient);
    canGoOn = canGoOn && IsReadBack(coefficient, item.first);
}

void RunningSum::DropZeros(const std::vector<Item*>& touched)
{
    std::vector<NodePointer> zeros;
    for (const Item* item : touched) {
        if (IsNothing(item->second.coefficient))
            zeros.push_back(item->first);
    }
    for (const NodePointer& node : zeros) {
        const auto zero = entries.find(node);
        if (zero == entries.end())
            continue; // it came twice in this step
        negatives -= zero->second.wasNegative;
        entries.erase(zero);
    }
}

NodePointer RunningSum::ToNode() const
{
    if (written)
        return written;
    std::vector<const Item*> items;
    items.reserve(entries.size());
    for (const Item& item : entries)
        items.push_back(&item);
    std::sort(items.begin(), items.end(), [](const Item* a, const Item* b) {
        const Place& left = a->second;
        const Place& right = b->second;
        return left.wasNegative != right.wasNegative ? right.wasNegative : left.position < right.position;
    });
    NodePointer sum;
    for (const Item* item : items) {
        const NodePointer term = BuildCoefficientTerm(item->second.coefficient, item->first);
        sum = sum ? MakeBinary(Type::Add, sum, term) : term;
    }
    return sum ? sum : MakeNumber(0);
}
