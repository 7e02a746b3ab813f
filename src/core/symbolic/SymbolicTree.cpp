#include "core/symbolic/SymbolicTree.h"

#include "core/engine/NumberText.h"

#include <QHash>
#include <QVarLengthArray>

#include <array>
#include <charconv>
#include <limits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct KeyForm {
    QLatin1StringView begin; // no two begin alike, so that the first difference of two keys decides their order
    bool leaf;
};

// By SimplifyNodeType.
// clang-format off
constexpr KeyForm keyForms[] = {
    {QLatin1StringView("N:"),   true},
    {QLatin1StringView("V:"),   true},
    {QLatin1StringView("F:"),   false},
    {QLatin1StringView("ADD("), false},
    {QLatin1StringView("SUB("), false},
    {QLatin1StringView("MUL("), false},
    {QLatin1StringView("DIV("), false},
    {QLatin1StringView("POW("), false},
    {QLatin1StringView("NEG("), false},
};
// clang-format on

const KeyForm& FormOf(SimplifyNodeType type)
{
    return keyForms[static_cast<size_t>(type)];
}

bool IsUnary(SimplifyNodeType type)
{
    return type == SimplifyNodeType::Function || type == SimplifyNodeType::Negate;
}

QString OwnKey(SimplifyNodeType type, double number, const QString& text)
{
    if (type == SimplifyNodeType::Number)
        return SymbolicNumberText(number);
    return type == SimplifyNodeType::Variable || type == SimplifyNodeType::Function ? text.toUpper() : QString();
}

// Mixes by multiplication with 2^64 over the golden ratio (Knuth, The Art of Computer Programming 3, section 6.4).
size_t Mix(size_t hash, size_t next)
{
    hash = (hash ^ next) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 29);
}

size_t HashOf(const NodePointer& node)
{
    return node ? node->keyHash : 0;
}

quint32 SizeOf(const NodePointer& node)
{
    return node ? node->size : 0;
}

quint32 SizeWith(const NodePointer& left, const NodePointer& right)
{
    const quint64 size = quint64(1) + SizeOf(left) + SizeOf(right);
    return static_cast<quint32>(qMin<quint64>(size, std::numeric_limits<quint32>::max()));
}

bool HasOperands(const NodePointer& node)
{
    return node && (node->left || node->right);
}

NodePointer Make(SimplifyNodeType type, double number, const QString& text, const NodePointer& left,
                 const NodePointer& right, bool preserve = false)
{
    return std::make_shared<SimplifyNode>(type, number, text, left, right, preserve);
}

} // namespace

SimplifyNode::SimplifyNode(SimplifyNodeType nodeType, double value, const QString& name, NodePointer leftOperand,
                           NodePointer rightOperand, bool preserve)
    : type(nodeType), preserveDivision(preserve), number(value), text(name), left(std::move(leftOperand)),
      right(std::move(rightOperand)), ownKey(OwnKey(nodeType, value, name)), size(SizeWith(left, right))
{
    const size_t own = Mix(static_cast<size_t>(type) + 1, ownKey.isEmpty() ? 0 : qHash(ownKey));
    keyHash = Mix(Mix(own, HashOf(left)), HashOf(right));
}

// A node that dies takes the operands from every node that dies with it, so that none has to destroy another.
SimplifyNode::~SimplifyNode()
{
    if (!HasOperands(left) && !HasOperands(right))
        return;
    std::vector<NodePointer> orphans;
    orphans.push_back(std::move(left));
    orphans.push_back(std::move(right));
    while (!orphans.empty()) {
        const NodePointer node = std::move(orphans.back());
        orphans.pop_back();
        if (!HasOperands(node) || node.use_count() != 1)
            continue;
        auto& dying = const_cast<SimplifyNode&>(*node); // nobody else knows it any more
        orphans.push_back(std::move(dying.left));
        orphans.push_back(std::move(dying.right));
    }
}

NodePointer MakeNumber(double number)
{
    return Make(SimplifyNodeType::Number, number, QString(), nullptr, nullptr);
}

NodePointer MakeVariable(const QString& name)
{
    return Make(SimplifyNodeType::Variable, 0, name, nullptr, nullptr);
}

NodePointer MakeFunction(const QString& name, const NodePointer& child)
{
    return Make(SimplifyNodeType::Function, 0, name, child, nullptr);
}

NodePointer MakeUnary(SimplifyNodeType type, const NodePointer& child)
{
    return Make(type, 0, QString(), child, nullptr);
}

NodePointer MakeBinary(SimplifyNodeType type, const NodePointer& left, const NodePointer& right)
{
    return Make(type, 0, QString(), left, right);
}

NodePointer MakePreservedDivision(const NodePointer& left, const NodePointer& right)
{
    return Make(SimplifyNodeType::Divide, 0, QString(), left, right, true);
}

NodePointer WithOperands(const NodePointer& node, const NodePointer& left, const NodePointer& right)
{
    if (left == node->left && right == node->right)
        return node;
    return Make(node->type, node->number, node->text, left, right, node->preserveDivision);
}

QString SymbolicNumberText(double number)
{
    if (IsZero(number))
        return u"0"_s;
    const double rounded = std::round(number);
    if (!(std::abs(number - rounded) < symbolicTolerance))
        return GeneralText(number, 15);
    std::array<char, std::numeric_limits<double>::max_exponent10 + 2> digits;
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), rounded, std::chars_format::fixed, 0);
    return error == std::errc() ? QString::fromLatin1(digits.data(), end - digits.data()) : GeneralText(number, 15);
}

QString NodeKey(const NodePointer& root)
{
    struct Piece {
        const SimplifyNode* node;
        QLatin1StringView text;
    };
    QString key;
    std::vector<Piece> waiting = {{root.get(), {}}};
    while (!waiting.empty()) {
        const auto [node, text] = waiting.back();
        waiting.pop_back();
        key += text;
        if (!node)
            continue;
        const KeyForm& form = FormOf(node->type);
        key += form.begin;
        key += node->ownKey;
        if (form.leaf)
            continue;
        if (node->type == SimplifyNodeType::Function)
            key += u'(';
        waiting.push_back({nullptr, QLatin1StringView(")")});
        if (!IsUnary(node->type)) {
            waiting.push_back({node->right.get(), {}});
            waiting.push_back({nullptr, QLatin1StringView(",")});
        }
        waiting.push_back({node->left.get(), {}});
    }
    return key;
}

// Both trees are walked in step up to the first difference. A name or number that begins another comes before it, as in
// the written keys: what follows there, a comma or bracket, comes before every character of a name or number.
int CompareKeys(const NodePointer& first, const NodePointer& second)
{
    struct Pair {
        const SimplifyNode* a;
        const SimplifyNode* b;
    };
    QVarLengthArray<Pair, 16> waiting;
    waiting.append(Pair{first.get(), second.get()});
    while (!waiting.isEmpty()) {
        const auto [a, b] = waiting.last();
        waiting.removeLast();
        if (a == b)
            continue;
        if (!a || !b)
            return a ? 1 : -1;
        if (a->type != b->type)
            return FormOf(a->type).begin.compare(FormOf(b->type).begin);
        if (const int order = a->ownKey.compare(b->ownKey))
            return order;
        waiting.append(Pair{a->right.get(), b->right.get()});
        waiting.append(Pair{a->left.get(), b->left.get()});
    }
    return 0;
}

bool SameNode(const NodePointer& a, const NodePointer& b)
{
    return HashOf(a) == HashOf(b) && CompareKeys(a, b) == 0;
}

bool NodeContainsVariable(const NodePointer& root, const QString& name)
{
    std::vector<const SimplifyNode*> waiting = {root.get()};
    while (!waiting.empty()) {
        const SimplifyNode* node = waiting.back();
        waiting.pop_back();
        if (!node)
            continue;
        if (node->type == SimplifyNodeType::Variable && node->text.compare(name, Qt::CaseInsensitive) == 0)
            return true;
        waiting.push_back(node->left.get());
        waiting.push_back(node->right.get());
    }
    return false;
}
