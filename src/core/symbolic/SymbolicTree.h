// Expression trees of the symbolic commands: the nodes, and what tells two of them apart.
//
// A node never changes once it is made; trees share their parts. Operations on user-sized trees keep their own stacks,
// and so does the destruction of a tree, so that no depth of nesting exhausts the thread's stack. Reading and printing
// trees stand in SymbolicParser.h and SymbolicText.h, the rules of algebra in Simplification.h.
#pragma once

#include <QString>

#include <cmath>
#include <memory>

enum class SimplifyNodeType : quint8 { Number, Variable, Function, Add, Subtract, Multiply, Divide, Power, Negate };

class SimplifyNode;

/// A shared tree; null stands for a missing expression.
using NodePointer = std::shared_ptr<const SimplifyNode>;

/// Trees of more nodes than this, shared ones counted as often as they occur, are neither read nor simplified: their
/// text would be of that size too.
inline constexpr quint32 largestTree = 1'000'000;

/// Numbers closer than this are one number to the rules of algebra.
inline constexpr double symbolicTolerance = 1e-12;

class SimplifyNode {
public:
    SimplifyNode(SimplifyNodeType nodeType, double value, const QString& name, NodePointer leftOperand,
                 NodePointer rightOperand, bool preserve);
    ~SimplifyNode();
    SimplifyNode(const SimplifyNode&) = delete;
    SimplifyNode& operator=(const SimplifyNode&) = delete;

    SimplifyNodeType type;
    bool preserveDivision; ///< on a Divide: it is neither folded nor cancelled
    double number;         ///< of a Number
    QString text;          ///< a Variable's name as typed, a Function's in upper case
    NodePointer left;      ///< operand of a Function or Negate, left operand otherwise
    NodePointer right;

    QString ownKey; ///< a Number's printed text, a Variable's name in upper case
    size_t keyHash; ///< equal for nodes of equal key
    quint32 size;   ///< nodes of the whole tree, shared ones counted as often as they occur; stops at the largest value

    /// Which passes of the simplifier are known to leave this node as it is, a bit a kind of pass. The simplifier's own
    /// note; it says nothing that could not be found out again.
    mutable quint8 settled = 0;
};

NodePointer MakeNumber(double number);
NodePointer MakeVariable(const QString& name);
NodePointer MakeFunction(const QString& name, const NodePointer& child); ///< `name` in upper case
NodePointer MakeUnary(SimplifyNodeType type, const NodePointer& child);  ///< Negate alone
NodePointer MakeBinary(SimplifyNodeType type, const NodePointer& left, const NodePointer& right);

/// A Divide that stays a quotient whatever its operands are.
NodePointer MakePreservedDivision(const NodePointer& left, const NodePointer& right);

/// The same node over other operands; `node` itself where they are its own.
NodePointer WithOperands(const NodePointer& node, const NodePointer& left, const NodePointer& right);

/// A number as trees print it: an integer within the tolerance in plain digits, otherwise 15 significant digits.
QString SymbolicNumberText(double number);

/// A text that two nodes share exactly if the rules of algebra hold them for one: names count without regard to case,
/// numbers as they print.
QString NodeKey(const NodePointer& node);

/// The order of the keys by code unit, without writing them: negative, zero or positive.
int CompareKeys(const NodePointer& a, const NodePointer& b);

/// Whether the keys are equal.
bool SameNode(const NodePointer& a, const NodePointer& b);

/// Whether a variable of that name, in any case, occurs.
bool NodeContainsVariable(const NodePointer& node, const QString& name);

inline bool IsZero(double number)
{
    return std::abs(number) < symbolicTolerance;
}

inline bool IsOne(double number)
{
    return std::abs(number - 1) < symbolicTolerance;
}

/// Whether a number is above zero and whole within the tolerance. Infinity is not whole.
inline bool IsPositiveWhole(double number)
{
    return number > 0 && std::abs(number - std::round(number)) < symbolicTolerance;
}

inline bool IsOfType(const NodePointer& node, SimplifyNodeType type)
{
    return node && node->type == type;
}

inline bool IsNumber(const NodePointer& node)
{
    return IsOfType(node, SimplifyNodeType::Number);
}

inline bool IsSum(const NodePointer& node)
{
    return IsOfType(node, SimplifyNodeType::Add) || IsOfType(node, SimplifyNodeType::Subtract);
}

/// Whether a node is the power of something to a positive whole number.
inline bool IsWholePower(const NodePointer& node)
{
    return IsOfType(node, SimplifyNodeType::Power) && IsNumber(node->right) && IsPositiveWhole(node->right->number);
}
