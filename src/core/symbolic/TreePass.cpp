#include "core/symbolic/TreePass.h"

#include "core/symbolic/Products.h"
#include "core/symbolic/Sums.h"

#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Type = SimplifyNodeType;

bool IsZeroNumber(const NodePointer& node)
{
    return IsNumber(node) && IsZero(node->number);
}

bool IsOneNumber(const NodePointer& node)
{
    return IsNumber(node) && IsOne(node->number);
}

struct FunctionValue {
    QLatin1StringView name;
    double (*value)(double); // in radians, whatever the pad's setting
};

// A root below zero is no number, and so stays.
// clang-format off
constexpr FunctionValue functionValues[] = {
    {QLatin1StringView("SIN"),  [](double x) { return std::sin(x); }},
    {QLatin1StringView("COS"),  [](double x) { return std::cos(x); }},
    {QLatin1StringView("TAN"),  [](double x) { return std::tan(x); }},
    {QLatin1StringView("SQRT"), [](double x) { return std::sqrt(x); }},
    {QLatin1StringView("ABS"),  [](double x) { return std::abs(x); }},
};
// clang-format on

// The value of a function of a number; null where it has none.
NodePointer FoldFunction(const QString& name, double argument)
{
    for (const FunctionValue& function : functionValues) {
        if (name != function.name)
            continue;
        const double value = function.value(argument);
        return std::isfinite(value) ? MakeNumber(value) : nullptr;
    }
    return nullptr;
}

// Zero to the zero is left to the rules of powers, and so is what is not finite.
NodePointer FoldPower(double base, double exponent)
{
    if (IsZero(base) && IsZero(exponent))
        return nullptr;
    const double value = std::pow(base, exponent);
    return std::isfinite(value) ? MakeNumber(value) : nullptr;
}

// The value of an operator between two numbers; null where there is none.
NodePointer FoldBinary(const SimplifyNode& node, double left, double right)
{
    switch (node.type) {
    case Type::Add:
        return MakeNumber(left + right);
    case Type::Subtract:
        return MakeNumber(left - right);
    case Type::Multiply:
        return MakeNumber(left * right);
    case Type::Divide:
        return node.preserveDivision || IsZero(right) ? nullptr : MakeNumber(left / right);
    case Type::Power:
        return FoldPower(left, right);
    default:
        return nullptr;
    }
}

// A simplified tree. A sum or product may still be running, so that the operator above can go on with it.
struct Operand {
    NodePointer node;
    std::unique_ptr<RunningSum> sum;
    std::unique_ptr<RunningProduct> product;

    NodePointer Written() const
    {
        if (sum)
            return sum->ToNode();
        return product ? product->ToNode() : node;
    }
};

// A rule either has the simplified tree (Done) or another tree to be simplified in the place of its own (Begin). Of the
// trees that wait for their operands each is a frame on a stack.
class TreePass {
public:
    TreePass(bool keep, Effort& budget) : keepProducts(keep), mark(keep ? 2 : 1), effort(budget) {}

    NodePointer Run(const NodePointer& root)
    {
        Begin(root);
        while (!frames.empty() && !failed)
            Advance();
        NodePointer result = TakeWritten();
        return failed ? nullptr : result;
    }

private:
    struct Frame {
        NodePointer node;
        Operand left;
        NodePointer right;
        int operandsBegun = 0;
    };

    bool IsSettled(const NodePointer& node) const { return node->settled & mark; }

    void Begin(const NodePointer& node)
    {
        if (!node || node->type == Type::Number || node->type == Type::Variable || IsSettled(node))
            value = {node, {}, {}};
        else
            frames.push_back({node, {}, {}});
    }

    void Advance()
    {
        Spend(1);
        Frame& frame = frames.back();
        const NodePointer node = frame.node;
        switch (frame.operandsBegun++) {
        case 0:
            Begin(node->left);
            break;
        case 1:
            frame.left = TakeLeft(*node);
            Begin(node->right);
            break;
        default:
            frame.right = TakeWritten();
            Frame complete = std::move(frame);
            frames.pop_back();
            Apply(complete);
        }
    }

    void Spend(size_t steps) { failed = failed || !effort.Spend(steps); }

    NodePointer Checked(NodePointer node)
    {
        failed = failed || (node && node->size > largestTree);
        return node;
    }

    NodePointer TakeWritten() { return Checked(std::exchange(value, {}).Written()); }

    Operand TakeLeft(const SimplifyNode& parent)
    {
        const bool goesOn = value.sum ? parent.type == Type::Add || parent.type == Type::Subtract
                                      : value.product && parent.type == Type::Multiply;
        return goesOn ? std::exchange(value, {}) : Operand{TakeWritten(), {}, {}};
    }

    void Done(const Frame& frame, const NodePointer& result)
    {
        if (result == frame.node)
            result->settled |= mark;
        value = {result, {}, {}};
    }

    // A frame whose operands are simplified and to which no rule applies.
    void Stay(const Frame& frame) { Done(frame, WithOperands(frame.node, frame.left.Written(), frame.right)); }

    void Apply(Frame& frame)
    {
        switch (frame.node->type) {
        case Type::Function:
            return ApplyToFunction(frame);
        case Type::Negate:
            return ApplyToNegate(frame);
        default:
            return ApplyToBinary(frame);
        }
    }

    void ApplyToFunction(const Frame& frame)
    {
        const NodePointer& child = frame.left.node;
        const QString& name = frame.node->text;
        const NodePointer folded = IsNumber(child) ? FoldFunction(name, child->number) : nullptr;
        if (folded)
            return Done(frame, folded);
        if (name == "SQRT"_L1 && IsOfType(child, Type::Power) && IsNumber(child->right) &&
            IsZero(child->right->number - 2))
            return Done(frame, MakeFunction(u"ABS"_s, child->left));
        Stay(frame);
    }

    void ApplyToNegate(const Frame& frame)
    {
        const NodePointer& child = frame.left.node;
        if (IsNumber(child))
            Done(frame, MakeNumber(-child->number));
        else if (IsOfType(child, Type::Negate))
            Begin(child->left);
        else if (IsSum(child))
            Begin(MakeBinary(child->type, MakeUnary(Type::Negate, child->left), MakeUnary(Type::Negate, child->right)));
        else
            Stay(frame);
    }

    void ApplyToBinary(Frame& frame)
    {
        const bool isRunning = frame.left.sum || frame.left.product;
        const NodePointer& left = frame.left.node;
        if ((!isRunning && !left) || !frame.right)
            return Stay(frame);
        const NodePointer folded = IsNumber(left) && IsNumber(frame.right)
                                       ? FoldBinary(*frame.node, left->number, frame.right->number)
                                       : nullptr;
        if (folded)
            return Done(frame, folded);
        switch (frame.node->type) {
        case Type::Multiply:
            return ApplyToMultiply(frame);
        case Type::Divide:
            return ApplyToDivide(frame);
        case Type::Power:
            return ApplyToPower(frame);
        default:
            return ApplyToSum(frame);
        }
    }

    void ApplyToSum(Frame& frame)
    {
        const bool subtracts = frame.node->type == Type::Subtract;
        if (IsZeroNumber(frame.right))
            value = std::move(frame.left);
        else if (!subtracts && IsZeroNumber(frame.left.node))
            Done(frame, frame.right);
        else if (subtracts && CancelsOut(frame))
            Done(frame, MakeNumber(0));
        else
            MergeSum(frame);
    }

    // A running sum is written for this only where it has as many operators as the other.
    bool CancelsOut(const Frame& frame)
    {
        if (!frame.left.sum)
            return SameNode(frame.left.node, frame.right);
        if (!IsSum(frame.right))
            return false;
        std::vector<SimplifyTerm> terms;
        CollectTerms(frame.right, 1.0, terms);
        Spend(terms.size());
        return terms.size() == frame.left.sum->Count() && SameNode(frame.left.Written(), frame.right);
    }

    void MergeSum(Frame& frame)
    {
        const bool subtracts = frame.node->type == Type::Subtract;
        const bool isWritten = !subtracts && IsSumWritten(frame);
        std::vector<SimplifyTerm> terms;
        std::unique_ptr<RunningSum> sum = std::move(frame.left.sum);
        if (!sum) {
            sum = std::make_unique<RunningSum>();
            CollectTerms(frame.left.node, 1.0, terms);
        }
        CollectTerms(frame.right, subtracts ? -1.0 : 1.0, terms);
        Spend(terms.size());
        const bool appended = sum->Merge(terms);
        KeepWritten(frame, *sum, isWritten && appended);
        if (sum->CanGoOn() && sum->Count() >= 2)
            value = {nullptr, std::move(sum), {}};
        else
            Done(frame, sum->ToNode());
    }

    // Whether the operands are those of the node, and each as the sum would write it.
    bool IsSumWritten(const Frame& frame) const
    {
        if (frame.right != frame.node->right || !IsWrittenTerm(frame.right))
            return false;
        if (frame.left.sum)
            return frame.left.sum->written == frame.node->left;
        const NodePointer& left = frame.left.node;
        return left == frame.node->left && (IsSum(left) ? IsSettled(left) : IsWrittenTerm(left));
    }

    template <typename Running>
    void KeepWritten(const Frame& frame, Running& running, bool isWritten)
    {
        running.written = isWritten ? frame.node : nullptr;
        if (isWritten)
            frame.node->settled |= mark;
    }

    void ApplyToMultiply(Frame& frame)
    {
        const NodePointer& left = frame.left.node; // null while the product is running
        const NodePointer& right = frame.right;
        if (IsZeroNumber(left) || IsZeroNumber(right))
            Done(frame, MakeNumber(0));
        else if (IsOneNumber(left))
            Done(frame, right);
        else if (IsOneNumber(right))
            value = std::move(frame.left);
        else if (IsOfType(left, Type::Negate))
            Begin(MakeUnary(Type::Negate, MakeBinary(Type::Multiply, left->left, right)));
        else if (IsOfType(right, Type::Negate))
            Begin(MakeUnary(Type::Negate, MakeBinary(Type::Multiply, Checked(frame.left.Written()), right->left)));
        else if (IsSum(left) != IsSum(right))
            Distribute(frame);
        else
            MergeProduct(frame);
    }

    void Distribute(const Frame& frame)
    {
        if (keepProducts)
            return Stay(frame);
        const NodePointer left = Checked(frame.left.Written());
        const NodePointer& sum = IsSum(left) ? left : frame.right;
        const NodePointer& other = IsSum(left) ? frame.right : left;
        Begin(Checked(MakeBinary(sum->type, MakeBinary(Type::Multiply, sum->left, other),
                                 MakeBinary(Type::Multiply, sum->right, other))));
    }

    void MergeProduct(Frame& frame)
    {
        const bool isWritten = IsProductWritten(frame);
        std::vector<NodePointer> factors;
        std::unique_ptr<RunningProduct> product = std::move(frame.left.product);
        if (!product) {
            product = std::make_unique<RunningProduct>();
            CollectProductFactors(frame.left.node, factors);
        }
        CollectProductFactors(frame.right, factors);
        Spend(factors.size());
        const bool appended = product->Merge(factors);
        KeepWritten(frame, *product, isWritten && appended);
        if (product->CanGoOn())
            value = {nullptr, {}, std::move(product)};
        else
            Done(frame, product->ToNode());
    }

    // Whether the operands are those of the node, and each as the product would write it.
    bool IsProductWritten(const Frame& frame) const
    {
        if (frame.right != frame.node->right || IsOfType(frame.right, Type::Multiply))
            return false;
        if (frame.left.product)
            return frame.left.product->written == frame.node->left;
        const NodePointer& left = frame.left.node;
        if (left != frame.node->left || !IsOfType(left, Type::Multiply))
            return left == frame.node->left;
        return IsSettled(left) && IsSum(left->left) == IsSum(left->right); // a kept product may be in any order
    }

    void ApplyToDivide(const Frame& frame)
    {
        const NodePointer& dividend = frame.left.node;
        if (IsOneNumber(frame.right))
            return Done(frame, dividend);
        if (!IsNumber(frame.right) || IsZeroNumber(frame.right) || frame.node->preserveDivision)
            return Stay(frame);
        double coefficient = 0;
        NodePointer rest;
        ExtractCoefficient(dividend, coefficient, rest);
        if (!rest || IsOne(coefficient))
            return Stay(frame);
        Done(frame, BuildCoefficientTerm(coefficient / frame.right->number, rest));
    }

    void ApplyToPower(const Frame& frame)
    {
        const NodePointer& base = frame.left.node;
        const NodePointer& exponent = frame.right;
        if (IsWholePower(base) && IsNumber(exponent) && IsPositiveWhole(exponent->number)) {
            const double product = std::round(base->right->number) * std::round(exponent->number);
            if (!std::isfinite(product))
                return Stay(frame);
            return Done(frame, MakeBinary(Type::Power, base->left, MakeNumber(product)));
        }
        if (IsOneNumber(base))
            return Done(frame, MakeNumber(1));
        if (IsOneNumber(exponent))
            return Done(frame, base);
        if (IsZeroNumber(exponent) && !IsZeroNumber(base))
            return Done(frame, MakeNumber(1));
        Stay(frame);
    }

    const bool keepProducts;
    const quint8 mark;
    Effort& effort;
    std::vector<Frame> frames;
    Operand value; // of the tree that was simplified last
    bool failed = false;
};

} // namespace

NodePointer SimplifyNodeTree(const NodePointer& node, bool keepProducts, Effort& effort)
{
    return TreePass(keepProducts, effort).Run(node);
}

NodePointer SimplifyNodeTree(const NodePointer& node, bool keepProducts)
{
    Effort effort;
    return SimplifyNodeTree(node, keepProducts, effort);
}
