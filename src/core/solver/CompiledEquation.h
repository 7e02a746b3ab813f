// An equation read once and evaluated often.
//
// Its value and validity at a point are, to the last bit, those of the text with the point's numbers put in (see
// EquationText.h). That holds by construction: the same passes run over the text once, with a marker in brackets
// where each number would stand, and the same grammar reads the outcome.
#pragma once

#include "core/solver/EquationSetting.h"

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

class CompiledEquation {
public:
    /// @param names  the unknowns, in upper case; the i-th value of a point belongs to the i-th name
    CompiledEquation(const QString& equation, const QStringList& names, const EquationSetting& setting);

    /// Left minus right, or nothing where the equation has no value at that point or an infinite one, or where it is no
    /// equation.
    ///
    /// @param values  one for each name
    Value Residual(std::span<const double> values) const;

    /// Whether the residual can differ between two evaluations that differ in this unknown alone. Random functions
    /// make it depend on all.
    bool DependsOn(size_t unknown) const { return drawsRandomly || dependsOn[unknown]; }

    bool DrawsRandomly() const { return drawsRandomly; }

    /// How much work one evaluation is, in additions or the like; at least 1.
    size_t Work() const { return work; }

private:
    enum class Code : quint8 {
        Number,
        Unknown,
        Add,
        AddNumber, // its right operand is the operation's own number
        Subtract,
        SubtractNumber,
        Multiply,
        MultiplyByNumber,
        Divide,
        DivideByNumber,
        Power,
        RaiseToNumber,
        Negate,
        Percent,
        Factorial,
        Call
    };

    struct Operation {
        Code code;
        quint32 count = 0; // the unknown's index, or the number of arguments
        double number = 0;
        const FunctionRow* function = nullptr;
    };

    class Sink;
    struct Stack;

    bool Apply(const Operation& operation, std::span<const double> values, Stack& stack) const;

    std::vector<Operation> operations; // empty: no value anywhere
    qsizetype depth = 0;               // of the value stack
    size_t work = 1;
    std::vector<bool> dependsOn;
    bool drawsRandomly = false;
    RandomSource random;
};
