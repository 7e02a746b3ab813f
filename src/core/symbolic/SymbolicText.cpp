#include "core/symbolic/SymbolicText.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

// By SimplifyNodeType.
constexpr int precedences[] = {50, 50, 50, 10, 10, 20, 20, 40, 30};

constexpr int aroundNothing = 0;

// What is still to be written, the last first: a node as it stands among its neighbours, or, without one, a text.
struct Piece {
    NodePointer node;
    int parentPrecedence = 0;
    bool isRightOperand = false;
    QString text;
};

class NodePrinter {
public:
    QString Print(const Piece& root)
    {
        waiting.push_back(root);
        while (!waiting.empty()) {
            const Piece piece = std::move(waiting.back());
            waiting.pop_back();
            output += piece.text;
            if (piece.node)
                PrintNode(piece);
        }
        return output;
    }

private:
    void PrintNode(const Piece& piece)
    {
        const SimplifyNode& node = *piece.node;
        const int precedence = precedences[static_cast<size_t>(node.type)];
        if (NeedsBrackets(piece, precedence)) {
            output += u'(';
            Later(u")"_s);
        }
        switch (node.type) {
        case SimplifyNodeType::Number:
            output += node.ownKey;
            break;
        case SimplifyNodeType::Variable:
            output += node.text;
            break;
        case SimplifyNodeType::Function:
            output += node.text + u'(';
            Later(u")"_s);
            Later(node.left, aroundNothing);
            break;
        case SimplifyNodeType::Negate:
            output += u'-';
            Later(node.left, aroundNothing);
            break;
        case SimplifyNodeType::Add:
            PrintAdd(node, precedence);
            break;
        case SimplifyNodeType::Subtract:
            PrintBinary(node, precedence, u" - "_s, precedence + 1, true);
            break;
        case SimplifyNodeType::Multiply:
            PrintBinary(node, precedence, u"*"_s, precedence, false);
            break;
        case SimplifyNodeType::Divide:
            PrintBinary(node, precedence, u"/"_s, precedence + 1, true);
            break;
        case SimplifyNodeType::Power:
            PrintBinary(node, precedence + 1, u"^"_s, precedence, false);
            break;
        }
    }

    static bool NeedsBrackets(const Piece& piece, int precedence)
    {
        if (piece.parentPrecedence != precedence)
            return piece.parentPrecedence > precedence;
        return piece.isRightOperand && IsSum(piece.node);
    }

    void PrintAdd(const SimplifyNode& node, int precedence)
    {
        if (IsNumber(node.right) && node.right->number < 0) {
            Later(SymbolicNumberText(-node.right->number));
            Later(u" - "_s);
        } else if (IsOfType(node.right, SimplifyNodeType::Negate)) {
            Later(node.right->left, precedence + 1, true);
            Later(u" - "_s);
        } else {
            Later(node.right, precedence);
            Later(u" + "_s);
        }
        Later(node.left, precedence);
    }

    void PrintBinary(const SimplifyNode& node, int leftPrecedence, const QString& sign, int rightPrecedence,
                     bool isRightOperand)
    {
        Later(node.right, rightPrecedence, isRightOperand);
        Later(sign);
        Later(node.left, leftPrecedence);
    }

    void Later(const QString& text) { waiting.push_back({nullptr, 0, false, text}); }

    void Later(const NodePointer& node, int parentPrecedence, bool isRightOperand = false)
    {
        waiting.push_back({node, parentPrecedence, isRightOperand, QString()});
    }

    QString output;
    std::vector<Piece> waiting;
};

} // namespace

QString NodeToText(const NodePointer& node, int parentPrecedence, bool isRightOperand)
{
    return NodePrinter().Print({node, parentPrecedence, isRightOperand, QString()});
}
