#include "core/LineAnswers.h"

#include "core/CommandText.h"
#include "core/engine/Fractions.h"
#include "core/engine/ReservedNames.h"
#include "core/solver/Comparison.h"
#include "core/solver/EquationSet.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestPreview = 10'000; // characters, of the line as well as of what is said of it

std::optional<QString> PreviewFunctionDefinition(Calculator&, const QString& line)
{
    QString rest;
    if (!MatchCommand(line, u"CREATE FUNCTION", rest))
        return std::nullopt;
    return rest.isEmpty() ? u"CREATE FUNCTION name(parameter, ...) = expression"_s : u"Custom function definition"_s;
}

std::optional<QString> PreviewAssignment(Calculator& calculator, const QString& line)
{
    const std::optional<VariableAssignment> assignment = calculator.EvaluateVariableAssignment(line);
    if (!assignment)
        return std::nullopt;
    if (assignment->reserved)
        return u"Invalid variable name: "_s + assignment->name;
    if (assignment->expression.isEmpty())
        return assignment->name + u" ="_s;
    return assignment->name + u" = "_s +
           (assignment->value ? calculator.FormatAnswer(*assignment->value) : u"Cannot Solve"_s);
}

std::optional<QString> PreviewDateTime(Calculator& calculator, const QString& line)
{
    const DateTimeAnswer answer = calculator.EvaluateDateTimeExpression(line);
    if (!answer.recognised)
        return std::nullopt;
    return answer.ok ? QString(line + u" = "_s + answer.answerText) : u"Cannot Solve"_s;
}

std::optional<QString> PreviewComparison(Calculator& calculator, const QString& line)
{
    bool valid = false;
    bool result = false;
    const EquationSetting setting = calculator.SettingForEquations();
    if (!EvaluateComparison(line, valid, result, nullptr, nullptr, nullptr, setting))
        return std::nullopt;
    return !valid ? u"Cannot Compare"_s : result ? u"TRUE"_s : u"FALSE"_s;
}

std::optional<QString> PreviewExpression(Calculator& calculator, const QString& line)
{
    bool ok = false;
    QString processed;
    const double value = calculator.EvaluateExpression(line, ok, processed);
    return ok ? processed + u" = "_s + calculator.FormatAnswer(value) : u"Cannot Solve"_s;
}

// Who previews a line. The first that knows the line has the word; the last knows every line.
constexpr std::optional<QString> (*previews[])(Calculator&, const QString&) = {
    PreviewFunctionDefinition, PreviewAssignment, PreviewDateTime, PreviewComparison, PreviewExpression,
};

Submission Answer(const QString& answer)
{
    return LineWithStatus(answer, true, u"Value = "_s + answer);
}

void RememberNumber(WorkspaceValues& values, double number)
{
    values.lastAnswer = number;
    values.ansDateTimeText.clear();
    values.ansIsDateTime = false;
}

// Words such as a weekday's name leave ANS as it was.
void RememberDateTime(WorkspaceValues& values, const DateTimeAnswer& answer)
{
    if (answer.isNumeric) {
        RememberNumber(values, answer.number);
    } else if (!answer.newAnsText.isEmpty()) {
        values.ansDateTimeText = answer.newAnsText;
        values.ansIsDateTime = true;
    }
}

} // namespace

Submission SubmitExpression(Calculator& calculator, const QString& line)
{
    const DateTimeAnswer dateTime = calculator.EvaluateDateTimeExpression(line);
    const std::optional<double> value = dateTime.recognised ? std::nullopt : calculator.EvaluateExpression(line);
    if (!dateTime.ok && !value)
        return CannotSolve(u"Cannot Solve"_s);
    if (dateTime.ok) {
        RememberDateTime(calculator.values, dateTime);
        return Answer(dateTime.answerText);
    }
    RememberNumber(calculator.values, *value);
    return Answer(calculator.FormatAnswer(*value));
}

std::optional<Submission> SubmitAssignment(Calculator& calculator, const QString& line)
{
    const std::optional<VariableAssignment> assignment = calculator.EvaluateVariableAssignment(line);
    if (!assignment)
        return std::nullopt;
    if (assignment->reserved) {
        const QString refusal = u"Cannot use "_s + assignment->name + u" as a variable name"_s;
        return LineWithStatus(refusal, false, refusal);
    }
    if (assignment->expression.isEmpty())
        return StatusOnly(u"Variable has no value"_s);
    if (!assignment->value)
        return StatusOnly(u"Cannot Solve Variable"_s);
    const QString key = assignment->name.toUpper();
    calculator.values.variables.insert(key, *assignment->value);
    const QString assigned = key + u" = "_s + calculator.FormatAnswer(*assignment->value);
    return LineWithStatus(assigned, true, assigned);
}

std::optional<Submission> SubmitComparison(Calculator& calculator, const QString& line)
{
    return HandleComparisonSubmission(line, calculator.SettingForEquations());
}

Submission SubmitEquations(Calculator& calculator, const QStringList& equations, const SearchTick& onTick)
{
    const EquationAnswer answer = HandleEquationSet(equations, calculator.SettingForEquations(), onTick);
    if (answer.lastAnswer)
        calculator.values.lastAnswer = *answer.lastAnswer;
    return answer.submission;
}

std::optional<Submission> SubmitEquation(Calculator& calculator, const QString& line, const SearchTick& onTick)
{
    const auto equals = line.count(u'=');
    if (equals == 0)
        return std::nullopt;
    return equals > 1 ? CannotSolve(u"Cannot Solve Equation"_s) : SubmitEquations(calculator, {line}, onTick);
}

std::optional<Submission> SubmitCustomFunctionCommand(Calculator& calculator, const QString& line, bool& changed)
{
    const CustomFunctionSurroundings around = {
        [](const QString& name) { return IsReservedBuiltInName(name); },
        [&](const QString& name) { return calculator.values.variables.contains(name); },
        [&](const QString& expression) {
            bool ok = false;
            calculator.Eval(calculator.ReplaceVariables(calculator.ReplaceANS(expression)), ok);
            return ok;
        },
    };
    return calculator.customFunctions.HandleCustomFunctionCommand(line, around, changed);
}

std::optional<Submission> SubmitFraction(Calculator& calculator, const QString& line)
{
    QString expression;
    if (!MatchFractionCommand(line, expression))
        return std::nullopt;
    const std::optional<double> value = expression.isEmpty() ? std::nullopt : calculator.EvaluateExpression(expression);
    calculator.ForgetOneTimeOutputBase();
    const std::optional<QString> text = value && std::isfinite(*value) ? FractionText(*value) : std::nullopt;
    if (!text)
        return CannotSolve(u"Cannot Solve"_s);
    calculator.values.lastAnswer = *value;
    return LineWithStatus(*text, true, u"Value = "_s + text->first(std::max<qsizetype>(text->indexOf(u'\n'), 0)));
}

Submission ListVariables(Calculator& calculator)
{
    return LineWithStatus(calculator.GetVariablesList(), false, u"Variables listed"_s);
}

Submission ClearVariables(Calculator& calculator)
{
    calculator.values.variables.clear();
    return StatusOnly(u"Variables cleared"_s);
}

Submission SubmitFormat(Calculator& calculator, const QString& rest)
{
    QString& pattern = calculator.values.formatPattern;
    if (rest.isEmpty())
        return StatusOnly(u"Format = "_s + pattern);
    if (!rest.startsWith(u'='))
        return StatusOnly(u"Use FORMAT = <format>"_s);
    pattern = rest.sliced(1).trimmed();
    return StatusOnly(u"Format set to '"_s + pattern + u'\'');
}

QString PreviewText(Calculator& calculator, const QString& line)
{
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.size() > longestPreview)
        return QString();
    const QString normalized = calculator.NormalizeSubmittedMath(trimmed);
    if (normalized.size() > longestPreview)
        return QString();
    for (const auto preview : previews) {
        if (const std::optional<QString> text = preview(calculator, normalized))
            return text->size() > longestPreview ? QString() : *text;
    }
    return QString();
}
