#include "core/symbolic/Isolation.h"

#include "core/engine/Variables.h"
#include "core/symbolic/SymbolicParser.h"
#include "core/symbolic/SymbolicText.h"

#include <QSet>
#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Type = SimplifyNodeType;

constexpr int mostSteps = 50;
constexpr size_t mostEvenPowers = 10; // within each other; each doubles the number of solutions

constexpr QStringView tooManySteps = u"ISOLATE stopped after too many algebra steps.";

// How an operator is undone, by the operand that holds the variable: it equals the inverse of the target and the other
// operand, in the order given.
struct Inverse {
    Type of;
    Type forLeft; // target first
    Type forRight;
    bool targetFirstForRight;
};

// clang-format off
constexpr Inverse inverses[] = {
    {Type::Add,      Type::Subtract, Type::Subtract, true},
    {Type::Subtract, Type::Add,      Type::Subtract, false},
    {Type::Multiply, Type::Divide,   Type::Divide,   true},
    {Type::Divide,   Type::Multiply, Type::Divide,   false},
};
// clang-format on

const Inverse* InverseOf(Type type)
{
    for (const Inverse& inverse : inverses) {
        if (inverse.of == type)
            return &inverse;
    }
    return nullptr;
}

// The root that an odd power has, and an even one too beside its negation.
NodePointer RootOf(const NodePointer& target, double degree)
{
    if (degree == 2)
        return MakeFunction(u"SQRT"_s, target);
    const bool isOdd = std::fmod(degree, 2) != 0;
    if (!IsNumber(target) || (target->number < 0 && !isOdd))
        return MakeBinary(Type::Power, target, MakePreservedDivision(MakeNumber(1), MakeNumber(degree)));
    const double magnitude = std::pow(std::abs(target->number), 1 / degree);
    return MakeNumber(std::copysign(magnitude, target->number));
}

// One way through the equation. Of two roots the positive one is followed first; the other waits.
struct Branch {
    NodePointer expression;
    NodePointer target;
};

class Isolator {
public:
    Isolator(const QString& name, Effort& budget) : variable(name), effort(budget) {}

    bool Run(const Branch& whole)
    {
        waiting.push_back(whole);
        while (!waiting.empty()) {
            current = std::move(waiting.back());
            waiting.pop_back();
            if (!FollowBranch())
                return false;
        }
        return true;
    }

    std::vector<NodePointer> solutions;
    QString error;

private:
    enum class Step { Onward, BranchEnds, Failure };

    bool FollowBranch()
    {
        for (int step = 0; step < mostSteps; ++step) {
            switch (TakeStep()) {
            case Step::Onward:
                continue;
            case Step::BranchEnds:
                return true;
            case Step::Failure:
                return false;
            }
        }
        Fail(tooManySteps);
        return false;
    }

    Step TakeStep()
    {
        current = {SimplifyNodeTree(current.expression, true, effort), SimplifyNodeTree(current.target, true, effort)};
        if (!current.expression || !current.target)
            return Fail(tooManySteps);
        const SimplifyNode& expression = *current.expression;
        if (expression.type == Type::Variable && expression.text.compare(variable, Qt::CaseInsensitive) == 0) {
            solutions.push_back(current.target);
            return Step::BranchEnds;
        }
        switch (expression.type) {
        case Type::Negate:
            return Onward(expression.left, MakeUnary(Type::Negate, current.target));
        case Type::Function:
            return UndoFunction(expression);
        case Type::Power:
            return UndoPower(expression);
        default:
            return UndoOperator(expression);
        }
    }

    // Copies, since the old expression owns the new one.
    Step Onward(NodePointer expression, NodePointer target)
    {
        current = {std::move(expression), std::move(target)};
        return Step::Onward;
    }

    Step Fail(QStringView words)
    {
        error = words.toString();
        return Step::Failure;
    }

    bool HoldsVariable(const NodePointer& node) const { return NodeContainsVariable(node, variable); }

    Step UndoFunction(const SimplifyNode& function)
    {
        if (function.text != "SQRT"_L1)
            return Fail(u"ISOLATE cannot yet reverse this part of the expression.");
        if (!HoldsVariable(function.left))
            return Fail(u"ISOLATE lost track of the target variable inside SQRT.");
        return Onward(function.left, MakeBinary(Type::Power, current.target, MakeNumber(2)));
    }

    Step UndoOperator(const SimplifyNode& operation)
    {
        const Inverse* inverse = InverseOf(operation.type);
        if (!inverse)
            return Fail(u"ISOLATE cannot yet reverse this part of the expression.");
        const bool inLeft = HoldsVariable(operation.left);
        const bool inRight = HoldsVariable(operation.right);
        if (inLeft && inRight)
            return Fail(u"ISOLATE found the target variable in two parts of one step.\n"
                        u"Simplify it further first, or rearrange the equation.");
        if (inLeft)
            return Onward(operation.left, MakeBinary(inverse->forLeft, current.target, operation.right));
        if (!inRight)
            return Fail(u"ISOLATE lost track of the target variable.");
        const NodePointer& first = inverse->targetFirstForRight ? current.target : operation.left;
        const NodePointer& second = inverse->targetFirstForRight ? operation.left : current.target;
        return Onward(operation.right, MakeBinary(inverse->forRight, first, second));
    }

    Step UndoPower(const SimplifyNode& power)
    {
        if (!HoldsVariable(power.left) || HoldsVariable(power.right))
            return Fail(u"ISOLATE cannot yet isolate a variable that appears in an exponent.");
        if (!IsNumber(power.right))
            return Fail(u"ISOLATE can currently reverse only numeric powers.");
        if (!IsPositiveWhole(power.right->number))
            return Fail(u"ISOLATE can currently reverse only positive whole-number powers.");
        const double degree = std::round(power.right->number);
        const NodePointer root = RootOf(current.target, degree);
        if (std::fmod(degree, 2) != 0)
            return Onward(power.left, root);
        if (waiting.size() >= mostEvenPowers)
            return Fail(tooManySteps);
        waiting.push_back({power.left, MakeUnary(Type::Negate, root)});
        waiting.push_back({power.left, root});
        return Step::BranchEnds;
    }

    const QString& variable;
    Effort& effort;
    Branch current;
    std::vector<Branch> waiting;
};

// The command's argument, taken apart and read.
struct Equation {
    QString variable;
    NodePointer left;
    NodePointer right;
};

// The words for what is wrong with the argument; nothing where it could be read.
std::optional<QString> ReadArgument(QStringView text, Equation& equation)
{
    const qsizetype comma = text.indexOf(u',');
    if (comma <= 0 || text.indexOf(u',', comma + 1) >= 0)
        return u"Use: ISOLATE variable, equation\nExample: ISOLATE X, 3*X + Y = 12"_s;
    equation.variable = text.first(comma).trimmed().toString();
    if (!IsValidVariableName(equation.variable))
        return u"ISOLATE needs one valid variable name before the comma."_s;
    const QStringView sides = text.sliced(comma + 1).trimmed();
    const int equals = FindTopLevelEquals(sides);
    if (equals < 0)
        return u"ISOLATE needs one equation containing =."_s;
    const QStringView left = sides.first(equals).trimmed();
    const QStringView right = sides.sliced(equals + 1).trimmed();
    if (left.isEmpty() || right.isEmpty())
        return u"ISOLATE needs an expression on both sides of =."_s;
    if (!ParseSymbolicExpression(left, equation.left) || !ParseSymbolicExpression(right, equation.right))
        return u"ISOLATE could not read that equation."_s;
    return std::nullopt;
}

QString WordsForVanished(const Equation& equation, const NodePointer& combined)
{
    const QString subject = u"The variable "_s + equation.variable;
    const bool wasPresent = NodeContainsVariable(equation.left, equation.variable) ||
                            NodeContainsVariable(equation.right, equation.variable);
    if (!wasPresent)
        return subject + u" does not appear in this equation."_s;
    if (!IsNumber(combined))
        return subject + u" cancels out of this equation."_s;
    if (!IsZero(combined->number))
        return subject + u" cancels out. The equation has no solution."_s;
    return subject + u" cancels out. The equation is true for all values of "_s + equation.variable + u'.';
}

bool IsolateCombined(const QString& variable, const NodePointer& combined, QString& result, Effort& effort)
{
    Isolator isolator(variable, effort);
    if (!isolator.Run({combined, MakeNumber(0)})) {
        result = isolator.error;
        return false;
    }
    QStringList lines;
    QSet<QString> known;
    for (const NodePointer& solution : isolator.solutions) {
        const NodePointer simplified = SimplifyNodeTree(solution, true, effort);
        if (!simplified) {
            result = tooManySteps.toString();
            return false;
        }
        const QString line = variable + u" = "_s + NodeToText(simplified);
        if (known.contains(line))
            continue;
        known.insert(line);
        lines.append(line);
    }
    result = lines.join(u'\n');
    return true;
}

} // namespace

bool IsolateNode(const NodePointer& expression, const NodePointer& target, const QString& variable,
                 std::vector<NodePointer>& solutions, QString& error)
{
    Effort effort;
    Isolator isolator(variable, effort);
    const bool isolated = isolator.Run({expression, target});
    error = isolator.error;
    if (isolated)
        solutions.insert(solutions.end(), isolator.solutions.begin(), isolator.solutions.end());
    return isolated;
}

bool IsolateText(const QString& text, QString& result)
{
    Equation equation;
    if (const std::optional<QString> words = ReadArgument(QStringView(text).trimmed(), equation)) {
        result = *words;
        return false;
    }
    Effort effort;
    const NodePointer combined =
        SimplifyNodeTree(MakeBinary(Type::Subtract, equation.left, equation.right), false, effort);
    if (!combined) {
        result = tooManySteps.toString();
        return false;
    }
    if (NodeContainsVariable(combined, equation.variable))
        return IsolateCombined(equation.variable, combined, result, effort);
    result = WordsForVanished(equation, combined);
    return false;
}
