// Expressions by chance and their values at a point, for what must hold of every expression.
#pragma once

#include "core/symbolic/SymbolicParser.h"

#include <QMap>
#include <QRandomGenerator>
#include <QString>

#include <cmath>
#include <optional>

class RandomExpressions {
public:
    explicit RandomExpressions(quint32 seed) : random(seed) {}

    int Below(int bound) { return random.bounded(bound); }

    template <size_t count>
    QString OneOf(const char* const (&choices)[count])
    {
        return QString::fromLatin1(choices[random.bounded(static_cast<int>(count))]);
    }

    QString Number() { return OneOf({"0", "1", "2", "3", "0.5", "12", "7.25", "0.1", "4"}); }

    QString Leaf() { return Below(3) > 0 ? OneOf({"X", "Y", "z", "x", "A"}) : Number(); }

    /// Brackets stand where chance puts them, so that signs and powers meet every neighbour.
    QString Text(int depth)
    {
        if (depth <= 0 || Below(8) == 0)
            return Leaf();
        const QString a = Text(depth - 1);
        switch (Below(9)) {
        case 0:
            return u'(' + a + u")^" + QString::number(Below(4));
        case 1:
            return u"-(" + a + u')';
        case 2:
            return OneOf({"SIN", "SQRT", "ABS", "-", "+"}) + u'(' + a + u')';
        case 3:
            return u'(' + a + u")/(" + Text(depth - 1) + u')';
        case 4:
            return u'(' + a + u")(" + Text(depth - 1) + u')';
        case 5:
            return a + u'*' + Text(depth - 1);
        default:
            return a + OneOf({" + ", " - "}) + Text(depth - 1);
        }
    }

    QMap<QString, double> Point()
    {
        QMap<QString, double> point;
        for (const char* name : {"X", "Y", "Z", "A"})
            point.insert(QString::fromLatin1(name), random.generateDouble() * 6 - 3);
        return point;
    }

private:
    QRandomGenerator random;
};

/// Nothing where a step on the way is not finite, or so large or so close to a pole that two ways to write one
/// expression may differ visibly.
inline std::optional<double> ValueAt(const NodePointer& node, const QMap<QString, double>& point)
{
    using Type = SimplifyNodeType;
    if (node->type == Type::Number)
        return node->number;
    if (node->type == Type::Variable)
        return point.value(node->text.toUpper());
    const std::optional<double> left = ValueAt(node->left, point);
    const std::optional<double> right = node->right ? ValueAt(node->right, point) : 0;
    if (!left || !right || (node->type == Type::Divide && std::abs(*right) < 1e-2))
        return std::nullopt;
    if (node->type == Type::Power && std::abs(*left) < 1e-2)
        return std::nullopt;
    const QMap<QString, double> functions = {{"SIN", std::sin(*left)},
                                             {"COS", std::cos(*left)},
                                             {"TAN", std::tan(*left)},
                                             {"SQRT", std::sqrt(*left)},
                                             {"ABS", std::abs(*left)}};
    double value = 0;
    switch (node->type) {
    case Type::Add:
        value = *left + *right;
        break;
    case Type::Subtract:
        value = *left - *right;
        break;
    case Type::Multiply:
        value = *left * *right;
        break;
    case Type::Divide:
        value = *left / *right;
        break;
    case Type::Power:
        value = std::pow(*left, *right);
        break;
    case Type::Negate:
        value = -*left;
        break;
    default:
        value = functions.value(node->text);
    }
    return std::abs(value) < 1e5 ? std::optional(value) : std::nullopt;
}

inline bool IsClose(double a, double b)
{
    return std::abs(a - b) <= 1e-6 * (1 + std::abs(a));
}

/// Whether the text of a tree says all that the tree says. The operand of a minus sign and a negative number go without
/// brackets: not if a sum is negated, something is divided by a negated product, a negative number has a power, or is
/// one (X^-2 reads as a power of a negation, which prints as X^(-2)), or a sum is added that begins below zero.
inline bool SaysAll(const NodePointer& node)
{
    using Type = SimplifyNodeType;
    if (!node)
        return true;
    const auto isBelowZero = [](const NodePointer& operand) { return IsNumber(operand) && operand->number < 0; };
    const auto isProduct = [](const NodePointer& operand) {
        return IsOfType(operand, Type::Multiply) || IsOfType(operand, Type::Divide) || IsOfType(operand, Type::Negate);
    };
    const auto beginsBelowZero = [&](NodePointer operand) {
        while (IsSum(operand))
            operand = operand->left;
        return isBelowZero(operand) || IsOfType(operand, Type::Negate);
    };
    const bool hides =
        (node->type == Type::Add && IsSum(node->right) && beginsBelowZero(node->right)) ||
        (node->type == Type::Negate && IsSum(node->left)) ||
        (node->type == Type::Divide && IsOfType(node->right, Type::Negate) && isProduct(node->right->left)) ||
        (node->type == Type::Power && (isBelowZero(node->left) || isBelowZero(node->right)));
    return !hides && SaysAll(node->left) && SaysAll(node->right);
}
