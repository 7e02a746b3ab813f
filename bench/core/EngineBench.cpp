// What an answer costs without a window: reading, formatting, the whole road of a line, and its preview.
#include "FloorReader.h"
#include "Report.h"
#include "Rooms.h"

#include "core/Calculator.h"
#include "core/LineAnswers.h"
#include "core/assist/Suggestions.h"
#include "core/engine/AnswerFormat.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 300;
constexpr qsizetype linesPerRun = 1000;

// Keeps a result from being optimised away.
template <typename T>
void Use(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

QStringList MixedLines()
{
    const QStringList forms = {u"%1*(%2+%3)-%4/%5"_s, u"SQRT(%1)*SIN(%2)"_s, u"%1^%2+%3%"_s, u"(%1+%2)^2/%3"_s};
    QRandomGenerator random(1);
    QStringList lines;
    for (int i = 0; i < linesPerRun; ++i) {
        QString line = forms[i % forms.size()];
        for (int place = 1; line.contains(u'%' + QString::number(place)); ++place)
            line.replace(u'%' + QString::number(place), QString::number(random.bounded(1, 2000) / 8.0));
        lines.append(line);
    }
    return lines;
}

// A thousand lines that take turns.
QStringList Repeated(const QStringList& lines)
{
    QStringList all;
    for (qsizetype i = 0; i < linesPerRun; ++i)
        all.append(lines[i % lines.size()]);
    return all;
}

template <typename Answer>
Work ForEach(const QStringList& lines, Answer answer)
{
    return {[lines, answer] {
        for (const QString& line : lines)
            Use(answer(line));
    }};
}

Work WholeRoad(Calculator& calculator, const QStringList& lines)
{
    return ForEach(lines, [&calculator](const QString& line) {
        return SubmitExpression(calculator, calculator.NormalizeSubmittedMath(line));
    });
}

Work Preview(Calculator& calculator, const QStringList& lines)
{
    return ForEach(lines, [&calculator](const QString& line) { return PreviewText(calculator, line); });
}

} // namespace

void MeasureEngine(Report& report)
{
    Calculator calculator;
    Calculator withVariables;
    withVariables.values.variables = {{u"PRICE"_s, 19.99}, {u"QTY"_s, 12}, {u"TAXES"_s, 0.19}};
    const QStringList mixed = MixedLines();
    const QStringList conversions =
        Repeated({u"12 IN TO CM"_s, u"32 F TO C"_s, u"3.5 miles to km"_s, u"250 g to oz"_s});
    const QStringList named = Repeated({u"price*qty"_s, u"price*qty*(1+taxes)"_s, u"2price + ANS"_s});

    const std::vector<Laps> laps = RunInTurn(
        {
            ForEach(mixed, FloorReader::Answer),
            ForEach(mixed,
                    [&](const QString& line) {
                        return calculator.FormatAnswer(calculator.EvaluateExpression(line).value_or(0));
                    }),
            ForEach(mixed, FloorReader::Value),
            ForEach(mixed, [&](const QString& line) { return calculator.EvaluateExpression(line); }),
            WholeRoad(calculator, mixed),
            WholeRoad(calculator, conversions),
            WholeRoad(withVariables, named),
            Preview(calculator, mixed),
            Preview(calculator, conversions),
            ForEach(Repeated({u"1+MI"_s, u"SQ"_s, u"2*AT"_s, u"CO"_s}),
                    [&](const QString& line) { return SuggestionsFor(calculator, line, {}); }),
        },
        rounds);
    report.AddRate(u"evaluate and format, mixed lines"_s, laps[1], linesPerRun, 1e6);
    report.AddTimes(u"  a line of them"_s, laps[1], u"minimal reader"_s, laps[0], 3, linesPerRun);
    report.AddTimes(u"  evaluated only"_s, laps[3], u"minimal reader"_s, laps[2], 0, linesPerRun);
    report.AddRate(u"whole road of a mixed line"_s, laps[4], linesPerRun, 5e5);
    report.AddRate(u"whole road of a unit conversion"_s, laps[5], linesPerRun, 4e5);
    report.AddRate(u"whole road of a line with variables"_s, laps[6], linesPerRun, 0);
    report.AddTime(u"preview of a mixed line"_s, laps[7], 0, linesPerRun);
    report.AddTime(u"preview of a unit conversion"_s, laps[8], 0, linesPerRun);
    report.AddTime(u"names offered behind a prefix"_s, laps[9], 0, linesPerRun);
}
