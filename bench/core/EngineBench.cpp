// What an answer costs without a window: reading, formatting, and the whole road of a line.
//
// "items_per_second" counts lines. The lines are those that people type; the mixed ones are read beside a minimal
// hand-written reader, the floor of what reading such a line can cost.
#include "core/Calculator.h"
#include "core/LineAnswers.h"
#include "core/assist/Suggestions.h"
#include "core/engine/AnswerFormat.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

QStringList MixedLines()
{
    const QStringList forms = {u"%1*(%2+%3)-%4/%5"_s, u"SQRT(%1)*SIN(%2)"_s, u"%1^%2+%3%"_s, u"(%1+%2)^2/%3"_s};
    QRandomGenerator random(1);
    QStringList lines;
    for (int i = 0; i < 1000; ++i) {
        QString line = forms[i % forms.size()];
        for (int place = 1; line.contains(u'%' + QString::number(place)); ++place)
            line.replace(u'%' + QString::number(place), QString::number(random.bounded(1, 2000) / 8.0));
        lines.append(line);
    }
    return lines;
}

// The least that can read the mixed lines: no names but two, no implied products, no checks.
class FloorReader {
public:
    static double Read(const QString& line)
    {
        std::array<char, 128> text;
        const auto size = std::min<qsizetype>(line.size(), 127);
        for (qsizetype i = 0; i < size; ++i)
            text[static_cast<size_t>(i)] = static_cast<char>(line[i].unicode());
        text[static_cast<size_t>(size)] = 0;
        FloorReader reader;
        reader.at = text.data();
        return reader.Sum();
    }

private:
    double Sum()
    {
        double value = Product();
        while (*at == '+' || *at == '-')
            value = *at++ == '+' ? value + Product() : value - Product();
        return value;
    }

    double Product()
    {
        double value = Power();
        while (*at == '*' || *at == '/')
            value = *at++ == '*' ? value * Power() : value / Power();
        return value;
    }

    double Power()
    {
        double value = Primary();
        while (*at == '%') {
            value /= 100;
            ++at;
        }
        if (*at != '^')
            return value;
        ++at;
        return std::pow(value, Power());
    }

    double Primary()
    {
        if (*at == '(' || *at == 'S') {
            const char function = *at == '(' ? '(' : at[1];
            at += function == '(' ? 1 : function == 'Q' ? 5 : 4;
            const double value = Sum();
            ++at;
            return function == '(' ? value : function == 'Q' ? std::sqrt(value) : std::sin(value);
        }
        double value = 0;
        double scale = 1;
        for (; *at >= '0' && *at <= '9'; ++at)
            value = value * 10 + (*at - '0');
        if (*at == '.') {
            for (++at; *at >= '0' && *at <= '9'; ++at) {
                value = value * 10 + (*at - '0');
                scale *= 10;
            }
        }
        return value / scale;
    }

    const char* at = nullptr;
};

template <typename Work>
void PerLine(benchmark::State& state, const QStringList& lines, Work work)
{
    qsizetype next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(work(lines[next]));
        next = next + 1 == lines.size() ? 0 : next + 1;
    }
    state.SetItemsProcessed(state.iterations());
}

void ReadMixedLinesFloor(benchmark::State& state)
{
    PerLine(state, MixedLines(), FloorReader::Read);
}

void EvaluateMixedLines(benchmark::State& state)
{
    Calculator calculator;
    PerLine(state, MixedLines(), [&](const QString& line) { return calculator.EvaluateExpression(line); });
}

void EvaluateAndFormatMixedLines(benchmark::State& state)
{
    Calculator calculator;
    PerLine(state, MixedLines(), [&](const QString& line) {
        return calculator.FormatAnswer(calculator.EvaluateExpression(line).value_or(0));
    });
}

void FormatAnswers(benchmark::State& state)
{
    QRandomGenerator random(2);
    std::array<double, 1024> values;
    for (double& value : values)
        value = random.generateDouble() * std::pow(10.0, random.bounded(12));
    size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(FormatAnswer(values[next++ % values.size()], {}));
    state.SetItemsProcessed(state.iterations());
}

// Normalised, offered to the date and time language and to the evaluator, formatted.
void AnswerMixedLines(benchmark::State& state)
{
    Calculator calculator;
    PerLine(state, MixedLines(), [&](const QString& line) {
        return SubmitExpression(calculator, calculator.NormalizeSubmittedMath(line)).runs.size();
    });
}

void AnswerConversions(benchmark::State& state)
{
    Calculator calculator;
    PerLine(state, {u"12 IN TO CM"_s, u"32 F TO C"_s, u"3.5 miles to km"_s, u"250 g to oz"_s},
            [&](const QString& line) {
                return SubmitExpression(calculator, calculator.NormalizeSubmittedMath(line)).runs.size();
            });
}

void AnswerWithVariables(benchmark::State& state)
{
    Calculator calculator;
    calculator.values.variables = {{u"PRICE"_s, 19.99}, {u"QTY"_s, 12}, {u"TAXES"_s, 0.19}};
    PerLine(state, {u"price*qty"_s, u"price*qty*(1+taxes)"_s, u"2price + ANS"_s}, [&](const QString& line) {
        return SubmitExpression(calculator, calculator.NormalizeSubmittedMath(line)).runs.size();
    });
}

void PreviewLines(benchmark::State& state)
{
    Calculator calculator;
    PerLine(state, MixedLines(), [&](const QString& line) { return PreviewText(calculator, line).size(); });
}

void PreviewConversions(benchmark::State& state)
{
    Calculator calculator;
    PerLine(state, {u"12 IN TO CM"_s, u"3.5 miles to km"_s},
            [&](const QString& line) { return PreviewText(calculator, line).size(); });
}

// The names offered behind a prefix of two letters.
void SuggestNames(benchmark::State& state)
{
    const Calculator calculator;
    PerLine(state, {u"1+MI"_s, u"SQ"_s, u"2*AT"_s, u"CO"_s},
            [&](const QString& line) { return SuggestionsFor(calculator, line, {}).names.size(); });
}

BENCHMARK(ReadMixedLinesFloor);
BENCHMARK(EvaluateMixedLines);
BENCHMARK(FormatAnswers);
BENCHMARK(EvaluateAndFormatMixedLines);
BENCHMARK(AnswerMixedLines);
BENCHMARK(AnswerWithVariables);
BENCHMARK(AnswerConversions);
BENCHMARK(PreviewLines);
BENCHMARK(PreviewConversions);
BENCHMARK(SuggestNames);

} // namespace

BENCHMARK_MAIN();
