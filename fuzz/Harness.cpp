#include "fuzz/Harness.h"

#include "core/CommandText.h"
#include "core/WindowCommands.h"
#include "core/manual/HelpCommand.h"
#include "core/symbolic/SymbolicCommands.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

using Try = std::optional<Submission> (*)(Calculator& calculator, const QString& line, const SearchTick& onTick);

// clang-format off
constexpr Try tries[] = {
    [](Calculator& calculator, const QString& line, const SearchTick&) {
        bool changed = false;
        return SubmitCustomFunctionCommand(calculator, line, changed);
    },
    [](Calculator& calculator, const QString& line, const SearchTick&) { return SubmitFraction(calculator, line); },
    [](Calculator& calculator, const QString& line, const SearchTick&) {
        return line == "CLEAR VARIABLES" ? std::optional(ClearVariables(calculator)) : std::nullopt;
    },
    [](Calculator& calculator, const QString& line, const SearchTick&) {
        return line == "VARS" ? std::optional(ListVariables(calculator)) : std::nullopt;
    },
    [](Calculator&, const QString& line, const SearchTick&) -> std::optional<Submission> {
        const std::optional<HelpPage> page = HandleHelpCommand(line);
        return page ? std::optional(Submission{"Help", FormattedHelpText(page->text)}) : std::nullopt;
    },
    [](Calculator&, const QString& line, const SearchTick&) { return HandleSymbolicCommand(line); },
    [](Calculator& calculator, const QString& line, const SearchTick&) {
        QString rest;
        return MatchCommand(line, u"FORMAT", rest) ? std::optional(SubmitFormat(calculator, rest)) : std::nullopt;
    },
    [](Calculator&, const QString& line, const SearchTick&) {
        QString result;
        return HandleWindowsCommand(line, result) ? std::optional(LineWithStatus(result, false, {})) : std::nullopt;
    },
    [](Calculator& calculator, const QString& line, const SearchTick&) { return SubmitAssignment(calculator, line); },
    [](Calculator& calculator, const QString& line, const SearchTick&) { return SubmitComparison(calculator, line); },
    SubmitEquation,
    [](Calculator& calculator, const QString& line, const SearchTick&) {
        return std::optional(SubmitExpression(calculator, line));
    },
};
// clang-format on

bool SameNumber(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool SameVariables(const Variables& a, const Variables& b)
{
    return a.keys() == b.keys() && std::equal(a.cbegin(), a.cend(), b.cbegin(), SameNumber);
}

bool SameWorkspace(const Calculator& a, const Calculator& b)
{
    return SameVariables(a.values.variables, b.values.variables) &&
           SameNumber(a.values.lastAnswer, b.values.lastAnswer) &&
           a.values.ansDateTimeText == b.values.ansDateTimeText && a.values.ansIsDateTime == b.values.ansIsDateTime &&
           a.values.formatPattern == b.values.formatPattern &&
           a.customFunctions.Definitions() == b.customFunctions.Definitions();
}

// The text that types an answer; empty where it has none. A number of another base or beyond the range is no text that
// gives itself, nor is a date whose year has not four digits.
QString TypedText(const Calculator& calculator, const QString& answer)
{
    const QString& dateTime = calculator.values.ansDateTimeText;
    if (dateTime == answer)
        return dateTime;
    if (dateTime == "DATE(\"" + answer + "\")")
        return answer.section('/', 2).section(' ', 0, 0).size() == 4 ? dateTime : QString();
    bool isNumber = false;
    const double number = answer.toDouble(&isNumber);
    const bool byDefault = calculator.Options().outputBase == 10 && calculator.values.formatPattern.isEmpty();
    return isNumber && byDefault && std::abs(number) < 1.797693134862315e308 && !answer.contains('E') ? answer
                                                                                                      : QString();
}

QString BoldText(const Submission& submission)
{
    return submission.runs.isEmpty() || !submission.runs.first().bold ? QString() : submission.runs.first().text;
}

} // namespace

bool DifferByResidue(const QString& a, const QString& b)
{
    bool isNumber[2] = {};
    const double numbers[] = {a.toDouble(&isNumber[0]), b.toDouble(&isNumber[1])};
    const double residue = 1e-14 * std::max(1.0, std::abs(numbers[0]));
    return isNumber[0] && isNumber[1] && std::abs(numbers[0] - numbers[1]) <= 1.01 * residue;
}

QString TextOf(const quint8* data, size_t size)
{
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (QChar& c : text) {
        if (c >= QChar(0xe000) && c < QChar(0xe800))
            c = QChar(c.unicode() - 0x800);
    }
    return text;
}

void Require(bool holds, const char* rule, const QString& text)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken rule: %s\nText: %s\n", rule, qPrintable(text));
    std::abort();
}

Calculator PredictableCalculator(unsigned options)
{
    constexpr int bases[] = {10, 2, 8, 16};
    const CalculatorOptions chosen = {(options & 1) != 0, (options & 2) != 0, bases[options >> 2 & 3]};
    Surroundings outside;
    outside.options = [chosen] { return chosen; };
    outside.random = [engine = std::mt19937_64()]() mutable { return engine(); };
    outside.clock = [] { return QDateTime(QDate(2026, 11, 15), QTime(5, 33, 44)); };
    return Calculator(outside);
}

Submission SubmitLine(Calculator& calculator, const QString& line, const SearchTick& onTick)
{
    const QString normalized = calculator.NormalizeSubmittedMath(line);
    for (const Try take : tries) {
        if (const std::optional<Submission> submission = take(calculator, normalized, onTick))
            return *submission;
    }
    return {};
}

QString PreviewChangingNothing(Calculator& calculator, const QString& line)
{
    const Calculator before = calculator;
    const QString preview = PreviewText(calculator, line);
    Require(SameWorkspace(before, calculator), "a preview changes nothing", line);
    Calculator after = calculator;
    Require(after.FormatAnswer(255) == Calculator(before).FormatAnswer(255), "a preview leaves no base behind", line);
    return preview;
}

void RequireAnswerGivesItself(const Calculator& calculator, const Submission& answer)
{
    const QString text = BoldText(answer);
    const QString typed = TypedText(calculator, text);
    if (typed.isEmpty() || answer.status != "Value = " + text)
        return;
    Calculator again = calculator;
    const QString back = BoldText(SubmitLine(again, typed, StopSearch));
    Require(back == text || DifferByResidue(back, text), "an answer gives itself", text);
}
