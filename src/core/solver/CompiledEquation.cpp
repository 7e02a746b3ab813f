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
    void Add() { Combine(Code::Add, Code::AddNumber); }

    void Subtract()
    {
        const Operation& right = equation.operations.back();
        if (right.code != Code::Number || right.number != 0)
            return Combine(Code::Subtract, Code::SubtractNumber);
        equation.operations.pop_back(); // "= 0": no double changes by it
        --held;
    }

    void Multiply() { Combine(Code::Multiply, Code::MultiplyByNumber); }
    void Power() { Combine(Code::Power, Code::RaiseToNumber); }

    bool Divide()
    {
        Combine(Code::Divide, Code::DivideByNumber);
        return true;
    }

    bool Factorial()
    {
        Append({Code::Factorial});
        return true;
    }

    bool Call(const FunctionRow& function, qsizetype count)
    {
        if (!TakesCount(function, count))
            return false;
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

    // A number as the right operand is held by the operation itself.
    void Combine(Code code, Code byNumber)
    {
        Operation& right = equation.operations.back();
        if (right.code == Code::Number)
            right.code = byNumber;
        else
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

// The last value stands apart from the others, in a register.
struct CompiledEquation::Stack {
    double* next; // behind the others
    double top = 0;

    void Push(double value)
    {
        *next++ = top;
        top = value;
    }

    double Pop() { return *--next; }

    bool Divide(double dividend, double divisor)
    {
        top = dividend / divisor;
        return divisor != 0.0; // NaN is no zero
    }

    bool Take(Value value)
    {
        top = *value;
        return value.has_value();
    }
};

Value CompiledEquation::Residual(std::span<const double> values) const
{
    if (operations.empty())
        return std::nullopt;
    QVarLengthArray<double, 32> places(depth + 1);
    Stack stack{places.data()};
    for (const Operation& operation : operations) {
        if (!Apply(operation, values, stack))
            return std::nullopt;
    }
    return std::isfinite(stack.top) ? Value(stack.top) : std::nullopt;
}

inline bool CompiledEquation::Apply(const Operation& operation, std::span<const double> values, Stack& stack) const
{
    switch (operation.code) {
    case Code::Number:
        stack.Push(operation.number);
        return true;
    case Code::Unknown:
        stack.Push(values[operation.count] + 0.0); // no sign on a zero, as in its text
        return std::isfinite(stack.top);
    case Code::Add:
        stack.top = stack.Pop() + stack.top;
        return true;
    case Code::AddNumber:
        stack.top += operation.number;
        return true;
    case Code::Subtract:
        stack.top = stack.Pop() - stack.top;
        return true;
    case Code::SubtractNumber:
        stack.top -= operation.number;
        return true;
    case Code::Multiply:
        stack.top = stack.Pop() * stack.top;
        return true;
    case Code::MultiplyByNumber:
        stack.top *= operation.number;
        return true;
    case Code::Divide:
        return stack.Divide(stack.Pop(), stack.top);
    case Code::DivideByNumber:
        return stack.Divide(stack.top, operation.number);
    case Code::Power:
        stack.top = std::pow(stack.Pop(), stack.top);
        return true;
    case Code::RaiseToNumber:
        stack.top = std::pow(stack.top, operation.number);
        return true;
    case Code::Negate:
        stack.top = -stack.top;
        return true;
    case Code::Percent:
        stack.top /= 100.0;
        return true;
    case Code::Factorial:
        return stack.Take(FactorialOf(stack.top));
    case Code::Call:
        *stack.next++ = stack.top;
        stack.next -= operation.count;
        return stack.Take(CallRightly(*operation.function, {stack.next, operation.count}, random));
    }
    Q_UNREACHABLE();
}
