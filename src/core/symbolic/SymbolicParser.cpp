#include "core/symbolic/SymbolicParser.h"

#include "core/engine/NumberText.h"
#include "core/engine/OperatorPrecedence.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Type = SimplifyNodeType;

constexpr const char* functionNames[] = {"SIN", "COS", "TAN", "SQRT", "ABS"};

bool IsFunctionName(const QString& name)
{
    return std::any_of(std::begin(functionNames), std::end(functionNames),
                       [&name](const char* known) { return name == QLatin1StringView(known); });
}

qsizetype SkipDigits(QStringView text, qsizetype position)
{
    while (position < text.size() && IsDigit(text[position]))
        ++position;
    return position;
}

// Behind the number that begins at the position. Unlike the evaluator's, it takes an exponent mark that no digit
// follows, and then has no value.
qsizetype NumberEnd(QStringView text, qsizetype position)
{
    qsizetype end = SkipDigits(text, position);
    if (end < text.size() && text[end] == u'.')
        end = SkipDigits(text, end + 1);
    if (end >= text.size() || (text[end] != u'e' && text[end] != u'E'))
        return end;
    ++end;
    if (end < text.size() && (text[end] == u'+' || text[end] == u'-'))
        ++end;
    return SkipDigits(text, end);
}

// Its calls are remembered by the function's name.
class SimplifyParser : public OperatorPrecedence<SimplifyParser, QString> {
    friend OperatorPrecedence;

public:
    using OperatorPrecedence::OperatorPrecedence;

    NodePointer ParseExpression() { return Read() ? TakeOperand() : nullptr; }

private:
    NodePointer TakeOperand()
    {
        NodePointer last = std::move(operands.back());
        operands.pop_back();
        return last;
    }

    Primary ReadPrimary()
    {
        if (IsIdentifierStart(Current()))
            return ReadName();
        const bool numeric = IsDigit(Current()) || Current() == u'.';
        return numeric && ReadNumber() ? Primary::Operand : Primary::Failure;
    }

    bool ReadNumber()
    {
        const qsizetype end = NumberEnd(text, position);
        const std::optional<double> value = DecimalLiteralValue(text.sliced(position, end - position));
        if (!value)
            return false;
        operands.push_back(MakeNumber(*value));
        position = end;
        return true;
    }

    // A variable is an operand; a function waits for its own.
    Primary ReadName()
    {
        const qsizetype start = position;
        while (!AtEnd() && IsIdentifierPart(Current()))
            ++position;
        const QString name = text.sliced(start, position - start).toString();
        const QString upper = name.toUpper();
        const qsizetype behind = position;
        SkipSpaces();
        if (!AtEnd() && Current() == u'(' && IsFunctionName(upper)) {
            ++position;
            Open(upper);
            return Primary::OpenCall;
        }
        position = behind;
        operands.push_back(MakeVariable(name));
        return Primary::Operand;
    }

    static Postfix ReadPostfix() { return Postfix::None; }
    static Next ReadOtherOperator() { return Next::Failure; }

    static bool BeginsFactor(QChar c) { return c == u'(' || c == u'.' || IsDigit(c) || IsIdentifierStart(c); }

    bool EndCall(const QString& function)
    {
        operands.push_back(MakeFunction(function, TakeOperand()));
        return true;
    }

    bool Complete(Waiting what)
    {
        const NodePointer last = TakeOperand();
        if (what == Waiting::Negate)
            operands.push_back(MakeUnary(Type::Negate, last));
        else
            operands.back() = MakeBinary(BinaryType(what), operands.back(), last);
        return true;
    }

    static Type BinaryType(Waiting what)
    {
        switch (what) {
        case Waiting::Add:
            return Type::Add;
        case Waiting::Subtract:
            return Type::Subtract;
        case Waiting::Multiply:
            return Type::Multiply;
        case Waiting::Divide:
            return Type::Divide;
        default:
            return Type::Power;
        }
    }

    std::vector<NodePointer> operands;
};

} // namespace

bool ParseSymbolicExpression(QStringView text, NodePointer& node)
{
    node = SimplifyParser(text).ParseExpression();
    if (node && node->size > largestTree)
        node.reset();
    return node != nullptr;
}

int FindTopLevelEquals(QStringView text)
{
    int depth = 0;
    int found = noTopLevelEquals;
    for (int position = 0; position < static_cast<int>(text.size()); ++position) {
        const QChar c = text[position];
        if (c == u'(')
            ++depth;
        else if (c == u')' && --depth < 0)
            return brokenEquation;
        else if (c == u'=' && depth == 0 && std::exchange(found, position) >= 0)
            return brokenEquation;
    }
    return depth == 0 ? found : brokenEquation;
}
