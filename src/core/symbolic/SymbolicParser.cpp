#include "core/symbolic/SymbolicParser.h"

#include "core/engine/Characters.h"
#include "core/engine/NumberText.h"

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

// Operators that lack their right operand, and open brackets, wait on a stack of their own; complete operands on
// another.
class SimplifyParser {
public:
    explicit SimplifyParser(QStringView expression) : text(expression) {}

    NodePointer ParseExpression()
    {
        while (ReadOperand()) {
            switch (ReadOperator()) {
            case Next::Operand:
                continue;
            case Next::End:
                return TakeOperand();
            case Next::Failure:
                return nullptr;
            }
        }
        return nullptr;
    }

private:
    // The order is that of binding.
    enum class Waiting : quint8 { Bracket, Function, Add, Subtract, Multiply, Divide, Negate, Power };

    struct Pending {
        Waiting what;
        QString function;
    };

    enum class Next { Operand, End, Failure };

    bool AtEnd() const { return position >= text.size(); }
    QChar Current() const { return text[position]; }

    void SkipSpaces()
    {
        while (!AtEnd() && IsSpace(Current()))
            ++position;
    }

    NodePointer TakeOperand()
    {
        NodePointer last = std::move(operands.back());
        operands.pop_back();
        return last;
    }

    // Everything up to and including the next operand's last character.
    bool ReadOperand()
    {
        for (;;) {
            SkipSpaces();
            if (AtEnd())
                return false;
            const QChar c = Current();
            if (IsDigit(c) || c == u'.')
                return ReadNumber();
            if (IsIdentifierStart(c)) {
                if (ReadName())
                    return true;
                continue;
            }
            if (c == u'-')
                pending.push_back({Waiting::Negate, {}});
            else if (c == u'(')
                pending.push_back({Waiting::Bracket, {}});
            else if (c != u'+')
                return false;
            ++position;
        }
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
    bool ReadName()
    {
        const qsizetype start = position;
        while (!AtEnd() && IsIdentifierPart(Current()))
            ++position;
        const QString name = text.sliced(start, position - start).toString();
        QString upper = name.toUpper();
        const qsizetype behind = position;
        SkipSpaces();
        if (!AtEnd() && Current() == u'(' && IsFunctionName(upper)) {
            ++position;
            pending.push_back({Waiting::Function, std::move(upper)});
            return false;
        }
        position = behind;
        operands.push_back(MakeVariable(name));
        return true;
    }

    Next ReadOperator()
    {
        for (;;) {
            SkipSpaces();
            if (AtEnd()) {
                Reduce(Waiting::Add);
                return pending.empty() ? Next::End : Next::Failure;
            }
            if (Current() != u')')
                return ReadBinaryOperator();
            if (!Close())
                return Next::Failure;
            ++position;
        }
    }

    Next ReadBinaryOperator()
    {
        switch (Current().unicode()) {
        case u'^':
            ++position;
            pending.push_back({Waiting::Power, {}}); // groups to the right: nothing before it is complete
            return Next::Operand;
        case u'+':
            return Binary(Waiting::Add, Waiting::Add);
        case u'-':
            return Binary(Waiting::Subtract, Waiting::Add);
        case u'*':
            return Binary(Waiting::Multiply, Waiting::Multiply);
        case u'/':
            return Binary(Waiting::Divide, Waiting::Multiply);
        default:
            return BeginsFactor(Current()) ? Binary(Waiting::Multiply, Waiting::Multiply, 0) : Next::Failure;
        }
    }

    static bool BeginsFactor(QChar c) { return c == u'(' || c == u'.' || IsDigit(c) || IsIdentifierStart(c); }

    // `weakestComplete`: what waits and binds at least so tightly has both its operands now.
    Next Binary(Waiting what, Waiting weakestComplete, qsizetype length = 1)
    {
        position += length;
        Reduce(weakestComplete);
        pending.push_back({what, {}});
        return Next::Operand;
    }

    bool Close()
    {
        Reduce(Waiting::Add);
        if (pending.empty())
            return false;
        if (pending.back().what == Waiting::Function)
            operands.push_back(MakeFunction(pending.back().function, TakeOperand()));
        pending.pop_back();
        return true;
    }

    // Completes what waits and binds at least as tightly as `weakest`, the last first. An open bracket stops it.
    void Reduce(Waiting weakest)
    {
        while (!pending.empty() && pending.back().what >= weakest) {
            Complete(pending.back().what);
            pending.pop_back();
        }
    }

    void Complete(Waiting what)
    {
        const NodePointer last = TakeOperand();
        if (what == Waiting::Negate)
            operands.push_back(MakeUnary(Type::Negate, last));
        else
            operands.back() = MakeBinary(BinaryType(what), operands.back(), last);
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

    QStringView text;
    qsizetype position = 0;
    std::vector<NodePointer> operands;
    std::vector<Pending> pending;
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
