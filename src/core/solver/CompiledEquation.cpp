#include "core/solver/CompiledEquation.h"

#include "core/engine/ExpressionReader.h"
#include "core/engine/NamesInText.h"
#include "core/solver/EquationText.h"

#include <QHash>
#include <QSet>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t workOfCall = 50; // some functions iterate

// Adds the beginnings of names that a marker could be taken for: an underscore and digits.
void CollectMarkerLike(const QString& text, QSet<QString>& taken)
{
    ForEachName(text, [&](qsizetype start, qsizetype size) {
        const QStringView name = QStringView(text).sliced(start, size);
        if (name[0] == u'_')
            taken.insert(
                name.first(std::find_if_not(name.begin() + 1, name.end(), IsAsciiDigit) - name.begin()).toString());
    });
}

// Names for the unknowns that stand nowhere in the equation, no variable has, and no word of the language is in.
QStringList BuildMarkers(const QString& equation, qsizetype count, const EquationSetting& setting)
{
    QSet<QString> taken;
    CollectMarkerLike(equation, taken);
    QString expanded;
    if (setting.expandCustomFunctions && setting.expandCustomFunctions(equation, expanded))
        CollectMarkerLike(expanded, taken);
    QStringList markers;
    for (int number = 0; markers.size() < count; ++number) {
        const QString marker = u'_' + QString::number(number);
        if (!taken.contains(marker) && !setting.variables.contains(marker))
            markers.append(marker);
    }
    return markers;
}

// "left minus right" as one expression of plain arithmetic and markers; empty where there is none.
QString ResidualText(const QString& equation, const QStringList& names, const QStringList& markers,
                     const EquationSetting& setting)
{
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

// Puts the value of the last `count` operands in their place.
inline bool Replace(double*& next, size_t count, const Value& value)
{
    if (!value)
        return false;
    next -= count;
    *next++ = *value;
    return true;
}

} // namespace

// Keeps the operations that the reader finds.
class CompiledEquation::Sink {
public:
    Sink(CompiledEquation& target, const QStringList& markers) : equation(target)
    {
        for (qsizetype i = 0; i < markers.size(); ++i)
            unknowns.insert(markers[i], static_cast<quint32>(i));
    }

    void Number(double value) { Load({Code::Number, 0, value}); }

    bool IsValue(QStringView name)
    {
        if (name[0] != u'_')
            return false;
        const auto unknown = unknowns.constFind(name.toString());
        found = unknown == unknowns.constEnd() ? 0 : *unknown;
        return unknown != unknowns.constEnd();
    }

    void Named(QStringView)
    {
        equation.dependsOn[found] = true;
        Load({Code::Unknown, found});
    }

    void Negate() { Append({Code::Negate}); }
    void Percent() { Append({Code::Percent}); }
    void Add() { Combine(Code::Add); }

    void Subtract()
    {
        const Operation& right = equation.operations.back();
        if (right.code != Code::Number || right.number != 0)
            return Combine(Code::Subtract);
        equation.operations.pop_back(); // "= 0": no double changes by it
        --held;
    }

    void Multiply() { Combine(Code::Multiply); }
    void Power() { Combine(Code::Power); }

    bool Divide()
    {
        Combine(Code::Divide);
        return true;
    }

    bool Factorial()
    {
        Append({Code::Factorial});
        return true;
    }

    bool Call(const FunctionRow& function, qsizetype count)
    {
        held -= count;
        equation.work += workOfCall;
        equation.drawsRandomly |= function.drawn != nullptr;
        Load({Code::Call, static_cast<quint32>(count), 0, &function});
        return true;
    }

private:
    void Append(const Operation& operation)
    {
        equation.operations.push_back(operation);
        ++equation.work;
    }

    void Load(const Operation& operation)
    {
        Append(operation);
        equation.depth = std::max(equation.depth, ++held);
    }

    void Combine(Code code)
    {
        Append({code});
        --held;
    }

    CompiledEquation& equation;
    QHash<QString, quint32> unknowns; // by marker
    quint32 found = 0;
    qsizetype held = 0; // values on the stack
};

CompiledEquation::CompiledEquation(const QString& equation, const QStringList& names, const EquationSetting& setting)
    : dependsOn(static_cast<size_t>(names.size())), random(setting.random)
{
    const QStringList markers = BuildMarkers(equation, names.size(), setting);
    const QString text = ResidualText(equation, names, markers, setting);
    Sink sink(*this, markers);
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
