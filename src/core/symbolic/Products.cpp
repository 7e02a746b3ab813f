#include "core/symbolic/Products.h"

#include <iterator>

namespace {

using Type = SimplifyNodeType;

// A quotient whose divisor can go to the product's number.
bool IsNumericQuotient(const NodePointer& node)
{
    return IsOfType(node, Type::Divide) && !node->preserveDivision && IsNumber(node->right) &&
           !IsZero(node->right->number);
}

// Whether a base, written as a factor, is that base again when the factors are collected.
bool IsReadBack(const NodePointer& base)
{
    return !IsNumber(base) && !IsOfType(base, Type::Multiply) && !IsNumericQuotient(base) && !IsWholePower(base);
}

} // namespace

void CollectProductFactors(const NodePointer& root, std::vector<NodePointer>& factors)
{
    std::vector<const NodePointer*> waiting = {&root};
    while (!waiting.empty()) {
        const NodePointer& node = *waiting.back();
        waiting.pop_back();
        if (!IsOfType(node, Type::Multiply)) {
            factors.push_back(node);
            continue;
        }
        waiting.push_back(&node->right);
        waiting.push_back(&node->left);
    }
}

NodePointer SimplifyProduct(const NodePointer& node)
{
    std::vector<NodePointer> factors;
    CollectProductFactors(node, factors);
    RunningProduct product;
    product.Merge(factors);
    return product.ToNode();
}

bool RunningProduct::Merge(const std::vector<NodePointer>& factors)
{
    bool appended = true;
    for (const NodePointer& factor : factors)
        appended = MergeFactor(factor) && appended;
    if (IsOne(coefficient))
        coefficient = 1; // it is not written, and so reads back as exactly one
    return appended;
}

// Whether the factor stands, as given, behind all others.
bool RunningProduct::MergeFactor(const NodePointer& factor)
{
    if (IsNumber(factor)) {
        coefficient *= factor->number;
        return exponents.empty() && coefficient == factor->number && coefficient >= symbolicTolerance &&
               HasWrittenCoefficient();
    }
    const bool isQuotient = IsNumericQuotient(factor);
    if (isQuotient)
        coefficient /= factor->right->number;
    const NodePointer& undivided = isQuotient ? factor->left : factor;
    const bool isPower = IsWholePower(undivided);
    const double exponent = isPower ? std::round(undivided->right->number) : 1;
    const NodePointer& base = isPower ? undivided->left : undivided;
    const auto [place, isNew] = exponents.try_emplace(base, 0);
    place->second += exponent;
    readsBack = readsBack && IsReadBack(base);
    const bool asGiven = !isQuotient && (!isPower || (exponent != 1 && exponent == undivided->right->number));
    return asGiven && isNew && std::next(place) == exponents.end();
}

bool RunningProduct::HasWrittenCoefficient() const
{
    return !IsOne(std::abs(coefficient));
}

bool RunningProduct::CanGoOn() const
{
    return readsBack && coefficient >= symbolicTolerance && exponents.size() + HasWrittenCoefficient() >= 2;
}

NodePointer RunningProduct::ToNode() const
{
    if (written)
        return written;
    if (IsZero(coefficient))
        return MakeNumber(0);
    NodePointer product;
    if (HasWrittenCoefficient() || exponents.empty())
        product = MakeNumber(std::abs(coefficient));
    for (const auto& [base, exponent] : exponents) {
        const NodePointer factor = exponent == 1 ? base : MakeBinary(Type::Power, base, MakeNumber(exponent));
        product = product ? MakeBinary(Type::Multiply, product, factor) : factor;
    }
    return coefficient < 0 ? MakeUnary(Type::Negate, product) : product;
}
