#include "core/symbolic/Simplification.h"

#include "core/symbolic/Sums.h"
#include "core/symbolic/SymbolicParser.h"
#include "core/symbolic/SymbolicText.h"

#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRounds = 20; // ends any oscillation

// The terms of one side of an equation, simplified.
bool CollectSide(QStringView side, std::vector<SimplifyTerm>& terms, Effort& effort)
{
    QString simplified;
    NodePointer node;
    if (!SimplifyOneExpression(side.trimmed(), simplified, effort) || !ParseSymbolicExpression(simplified, node))
        return false;
    CollectTerms(node, 1.0, terms);
    return true;
}

// Each term on the left goes with the first equal one that is left on the right.
void CancelEqualTerms(std::vector<SimplifyTerm>& left, std::vector<SimplifyTerm>& right)
{
    std::unordered_map<size_t, std::vector<SimplifyTerm*>> rightByKey;
    const auto keyOf = [](const SimplifyTerm& term) { return term.node ? term.node->keyHash : 0; };
    for (SimplifyTerm& term : right)
        rightByKey[keyOf(term)].push_back(&term);
    for (SimplifyTerm& term : left) {
        const auto candidates = rightByKey.find(keyOf(term));
        if (IsZero(term.coefficient) || candidates == rightByKey.end())
            continue;
        for (SimplifyTerm* candidate : candidates->second) {
            if (IsZero(candidate->coefficient) || !IsZero(term.coefficient - candidate->coefficient) ||
                !SameNode(term.node, candidate->node))
                continue;
            term.coefficient = candidate->coefficient = 0;
            break;
        }
    }
}

NodePointer RebuildSide(const std::vector<SimplifyTerm>& terms, Effort& effort)
{
    NodePointer sum;
    for (const auto& [coefficient, node] : terms) {
        if (IsZero(coefficient))
            continue;
        const NodePointer term = BuildCoefficientTerm(coefficient, node);
        sum = sum ? MakeBinary(SimplifyNodeType::Add, sum, term) : term;
    }
    return SimplifyNodeTree(sum ? sum : MakeNumber(0), false, effort);
}

bool SimplifyEquation(QStringView left, QStringView right, QString& result, Effort& effort)
{
    std::vector<SimplifyTerm> leftTerms;
    std::vector<SimplifyTerm> rightTerms;
    if (!CollectSide(left, leftTerms, effort) || !CollectSide(right, rightTerms, effort))
        return false;
    CancelEqualTerms(leftTerms, rightTerms);
    const NodePointer leftSide = RebuildSide(leftTerms, effort);
    const NodePointer rightSide = RebuildSide(rightTerms, effort);
    if (!leftSide || !rightSide)
        return false;
    result = NodeToText(leftSide) + u" = "_s + NodeToText(rightSide);
    return true;
}

bool SimplifyTrimmed(QStringView text, QString& result)
{
    Effort effort;
    const int equals = FindTopLevelEquals(text);
    if (equals == noTopLevelEquals)
        return SimplifyOneExpression(text, result, effort);
    return equals != brokenEquation && SimplifyEquation(text.first(equals), text.sliced(equals + 1), result, effort);
}

} // namespace

bool SimplifyOneExpression(QStringView text, QString& result, Effort& effort)
{
    NodePointer node;
    if (!ParseSymbolicExpression(text, node))
        return false;
    QString previous;
    for (int round = 0; round < mostRounds; ++round) {
        const NodePointer simplified = SimplifyNodeTree(node, false, effort);
        if (!simplified)
            return false;
        if (round > 0 && simplified == node)
            break;
        node = simplified;
        result = NodeToText(node);
        if (result == previous)
            break;
        previous = result;
    }
    return true;
}

bool SimplifyText(const QString& text, QString& result)
{
    const QStringView trimmed = QStringView(text).trimmed();
    if (trimmed.isEmpty()) {
        result = u"SIMPLIFY requires an expression or equation."_s;
        return false;
    }
    if (SimplifyTrimmed(trimmed, result))
        return true;
    result = u"Cannot Simplify"_s;
    return false;
}
