#include "core/solver/CompiledEquation.h"

#include "core/engine/ExpressionReader.h"
#include "core/solver/EquationText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool HasVariableWithPrefix(const Variables& variables, const QString& prefix)
{
    const auto first = variables.lowerBound(prefix);
    return first != variables.cend() && first.key().startsWith(prefix);
}

// What begins a marker and no other name. Markers hold no letters: no word of the language can be found in them.
QString MarkerPrefix(const QString& equation, const EquationSetting& setting)
{
    QString expanded;
    if (setting.expandCustomFunctions)
        setting.expandCustomFunctions(equation, expanded);
    QString prefix = u"__"_s;
    while (equation.contains(prefix) || expanded.contains(prefix) || HasVariableWithPrefix(setting.variables, prefix))
        prefix += u'_';
    return prefix;
}

// "left minus right" as one expression of plain arithmetic and markers; empty where there is none.
QString ResidualText(const QString& equation, const QStringList& names, const QString& prefix,
                     const EquationSetting& setting)
{
    QStringList markers;
    for (qsizetype i = 0; i < names.size(); ++i)
        markers.append(prefix + QString::number(i));
    QString left;
    QString right;
    if (!SplitEquation(equation, left, right) || !PrepareEquationTexts(left, right, names, markers, setting))
        return QString();
    const QString text = u'(' + left + u")-("_s + right + u')';
    QString expanded = text;
    if (setting.expandCustomFunctions && !setting.expandCustomFunctions(text, expanded))
        return QString();
    return expanded;
}

} // namespace

// Keeps the operations that the reader finds.
class CompiledEquation::Sink {
public:
    Sink(CompiledEquation& target, const QString& prefix) : equation(target), markerPrefix(prefix) {}

    void Number(double value) { Load({Code::Number, 0, value}); }

    bool IsValue(QStringView name) const { return name.startsWith(markerPrefix); }

    void Named(QStringView name)
    {
        const quint32 unknown = name.sliced(markerPrefix.size()).toUInt();
        equation.dependsOn[unknown] = true;
        Load({Code::Unknown, unknown});
    }

    void Negate() { equation.operations.push_back({Code::Negate}); }
    void Percent() { equation.operations.push_back({Code::Percent}); }
    void Add() { Combine(Code::Add); }
    void Subtract() { Combine(Code::Subtract); }
    void Multiply() { Combine(Code::Multiply); }
    void Power() { Combine(Code::Power); }

    bool Divide()
    {
        Combine(Code::Divide);
        return true;
    }

    bool Factorial()
    {
        equation.operations.push_back({Code::Factorial});
        return true;
    }

    bool Call(const FunctionRow& function, qsizetype count)
    {
        held -= count;
        equation.drawsRandomly |= function.drawn != nullptr;
        Load({Code::Call, static_cast<quint32>(count), 0, &function});
        return true;
    }

private:
    void Load(const Operation& operation)
    {
        equation.operations.push_back(operation);
        equation.depth = std::max(equation.depth, ++held);
    }

    void Combine(Code code)
    {
        equation.operations.push_back({code});
        --held;
    }

    CompiledEquation& equation;
    const QString& markerPrefix;
    qsizetype held = 0; // values on the stack
};

CompiledEquation::CompiledEquation(const QString& equation, const QStringList& names, const EquationSetting& setting)
    : dependsOn(static_cast<size_t>(names.size())), random(setting.random)
{
    const QString prefix = MarkerPrefix(equation, setting);
    const QString text = ResidualText(equation, names, prefix, setting);
    Sink sink(*this, prefix);
    ExpressionReader<Sink> reader(text, sink);
    if (!reader.Read())
        operations.clear();
}

Value CompiledEquation::Residual(std::span<const double> values) const
{
    if (operations.empty())
        return std::nullopt;
    QVarLengthArray<double, 32> stack(depth);
    double* next = stack.data();
    for (const Operation& operation : operations) {
        if (!Apply(operation, values, next))
            return std::nullopt;
    }
    return std::isfinite(next[-1]) ? Value(next[-1]) : std::nullopt;
}

inline bool CompiledEquation::Apply(const Operation& operation, std::span<const double> values, double*& next) const
{
    switch (operation.code) {
    case Code::Number:
        *next++ = operation.number;
        return true;
    case Code::Unknown:
        *next++ = values[operation.count] + 0.0; // no sign on a zero, as in its text
        return std::isfinite(next[-1]);
    case Code::Negate:
        next[-1] = -next[-1];
        return true;
    case Code::Add:
        --next;
        next[-1] += next[0];
        return true;
    case Code::Subtract:
        --next;
        next[-1] -= next[0];
        return true;
    case Code::Multiply:
        --next;
        next[-1] *= next[0];
        return true;
    case Code::Divide:
        --next;
        next[-1] /= next[0];
        return next[0] != 0.0; // NaN is no zero
    case Code::Power:
        --next;
        next[-1] = std::pow(next[-1], next[0]);
        return true;
    case Code::Percent:
        next[-1] /= 100.0;
        return true;
    case Code::Factorial:
        return Replace(next, 1, FactorialOf(next[-1]));
    case Code::Call:
        return Replace(next, operation.count,
                       CallFunction(*operation.function, {next - operation.count, operation.count}, random));
    }
    return false;
}

bool CompiledEquation::Replace(double*& next, size_t count, const Value& value)
{
    if (!value)
        return false;
    next -= count;
    *next++ = *value;
    return true;
}
