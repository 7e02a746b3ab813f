#include "core/engine/Evaluator.h"

#include "core/engine/ExpressionReader.h"

#include <QVarLengthArray>

#include <array>
#include <cmath>

namespace {

constexpr int largestFactorial = 170; // 171! is beyond the largest double

// A sink that computes: each operation takes its operands off the stack and leaves its value there.
class EvaluatingSink {
public:
    EvaluatingSink(const Variables& names, const RandomSource& bits) : variables(names), random(bits) {}

    double Result() const { return values.last(); }

    void Number(double value) { values.append(value); }

    bool IsValue(QStringView name)
    {
        if (variables.isEmpty())
            return false;
        const auto variable = variables.constFind(name.toString().toUpper());
        found = variable == variables.constEnd() ? nullptr : &variable.value();
        return found && std::isfinite(*found);
    }

    void Named(QStringView) { values.append(*found + 0.0); } // no sign on a zero, as in its text

    void Negate() { values.last() = -values.last(); }
    void Percent() { values.last() /= 100.0; }

    void Add()
    {
        const double right = Take();
        values.last() += right;
    }

    void Subtract()
    {
        const double right = Take();
        values.last() -= right;
    }

    void Multiply()
    {
        const double right = Take();
        values.last() *= right;
    }

    bool Divide()
    {
        const double divisor = Take();
        values.last() /= divisor;
        return divisor != 0.0; // NaN is no zero
    }

    void Power()
    {
        const double exponent = Take();
        values.last() = std::pow(values.last(), exponent);
    }

    bool Factorial() { return Replace(1, FactorialOf(values.last())); }

    bool Call(const FunctionRow& function, qsizetype count)
    {
        const auto size = static_cast<size_t>(count);
        const Arguments arguments(values.constData() + (values.size() - count), size);
        return Replace(count, CallFunction(function, arguments, random));
    }

private:
    double Take()
    {
        const double value = values.last();
        values.removeLast();
        return value;
    }

    bool Replace(qsizetype count, Value value)
    {
        if (!value)
            return false;
        values.resize(values.size() - count);
        values.append(*value);
        return true;
    }

    const Variables& variables;
    const RandomSource& random;
    const double* found = nullptr;
    QVarLengthArray<double, 32> values;
};

std::array<double, largestFactorial + 1> BuildFactorials()
{
    std::array<double, largestFactorial + 1> products;
    products[0] = 1.0;
    for (int n = 1; n <= largestFactorial; ++n)
        products[static_cast<size_t>(n)] = products[static_cast<size_t>(n - 1)] * n;
    return products;
}

} // namespace

std::optional<double> EvaluateText(QStringView text, const Variables& variables, const RandomSource& random)
{
    EvaluatingSink sink(variables, random);
    ExpressionReader<EvaluatingSink> reader(text, sink);
    return reader.Read() ? std::optional(sink.Result()) : std::nullopt;
}

Value FactorialOf(double number)
{
    static const std::array<double, largestFactorial + 1> products = BuildFactorials();
    if (!(number >= 0 && number <= largestFactorial) || std::round(number) != number)
        return std::nullopt;
    return products[static_cast<size_t>(number)];
}
