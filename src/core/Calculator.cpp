#include "core/Calculator.h"

#include "core/CommandText.h"
#include "core/engine/AnswerFormat.h"
#include "core/engine/Characters.h"
#include "core/engine/ProgrammerMath.h"
#include "core/engine/ReservedNames.h"
#include "core/engine/Substitution.h"
#include "core/engine/SyntaxCatalog.h"
#include "core/engine/Variables.h"
#include "core/engine/WordOperators.h"
#include "core/units/UnitConversions.h"

#include <QStringList>

#include <utility>

namespace {

// HEX(BIN(...)): how many conversions inside each other are taken apart. Those within are plain functions.
constexpr int mostNestedConversions = 50;

// Takes a whole-line output conversion apart; the outermost base counts.
bool UnwrapOutputConversion(const QString& text, QString& inner, int& base)
{
    if (!ProgrammerMath::TryExtractOutputConversion(text, inner, base))
        return false;
    QString next;
    int innerBase = 0;
    for (int i = 0; i < mostNestedConversions; ++i) {
        if (!ProgrammerMath::TryExtractOutputConversion(inner, next, innerBase))
            break;
        inner = next;
    }
    return true;
}

// Whether a call of a known function stands in the text: then its words are no talk, and it stays an error.
bool CallsKnownFunction(QStringView text, const CustomFunctionMap& customFunctions)
{
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start;
        while (end < text.size() && IsAsciiWord(text[end]) && (end > start || !IsAsciiDigit(text[end])))
            ++end;
        const QStringView name = text.sliced(start, end - start);
        while (end > start && end < text.size() && IsSpace(text[end]))
            ++end;
        if (!name.isEmpty() && end < text.size() && text[end] == u'(' &&
            (IsCatalogFunction(name) || customFunctions.contains(name.toString().toUpper())))
            return true;
        start = std::max(end, start + 1);
    }
    return false;
}

bool KeepsItsWords(const QString& line)
{
    QString rest;
    return line.compare(u"HELP", Qt::CaseInsensitive) == 0 || line.startsWith(u"HELP ", Qt::CaseInsensitive) ||
           MatchCommand(line, u"CREATE FUNCTION", rest);
}

} // namespace

Calculator::Calculator(Surroundings outside) : surroundings(std::move(outside)) {}

double Calculator::EvaluateExpression(const QString& text, bool& ok, QString& processedText)
{
    const std::optional<double> value = Evaluate(text, &processedText);
    ok = value.has_value();
    return value.value_or(0);
}

std::optional<double> Calculator::EvaluateExpression(const QString& text)
{
    return Evaluate(text, nullptr);
}

double Calculator::Eval(const QString& text, bool& ok) const
{
    static const Variables none;
    QString expanded;
    QString errorText;
    const bool expands = customFunctions.ExpandCustomFunctions(text, expanded, errorText);
    const std::optional<double> value = expands ? EvaluateText(expanded, none, surroundings.random) : std::nullopt;
    ok = value.has_value();
    return value.value_or(0);
}

DateTimeAnswer Calculator::EvaluateDateTimeExpression(const QString& text)
{
    const NumericResolver resolver = [this](const QString& name) {
        return EvaluateText(ReplaceANS(name), values.variables, surroundings.random);
    };
    DateTimeAnswer answer = EvaluateDateTimeLanguageInternal(text, resolver, values.ansIsDateTime,
                                                             values.ansDateTimeText, surroundings.clock);
    if (answer.ok && answer.isNumeric)
        answer.answerText = FormatAnswer(answer.number);
    return answer;
}

QString Calculator::ReplaceANS(const QString& text) const
{
    return ::ReplaceANS(text, values.lastAnswer);
}

bool Calculator::ExpandCustomFunctions(const QString& text, QString& expanded, QString& errorText) const
{
    return customFunctions.ExpandCustomFunctions(text, expanded, errorText);
}

QString Calculator::ReplaceVariables(const QString& text) const
{
    return ::ReplaceVariables(text, values.variables);
}

std::optional<double> Calculator::Evaluate(const QString& text, QString* processedText)
{
    oneTimeOutputBase = 0;
    QString inner;
    int base = 0;
    if (!UnwrapOutputConversion(text, inner, base))
        return EvaluateTries(text, processedText);
    if (processedText)
        *processedText = text;
    const std::optional<double> value = EvaluateTries(inner, nullptr);
    QString digits;
    if (!value || !ProgrammerMath::FormatInteger(*value, base, digits))
        return std::nullopt;
    oneTimeOutputBase = base;
    return value;
}

std::optional<double> Calculator::EvaluateTries(const QString& text, QString* processedText) const
{
    QString processed;
    QString errorText;
    const bool expands = ExpandCustomFunctions(ReplaceANS(text), processed, errorText);
    std::optional<double> value =
        expands ? EvaluateText(processed, values.variables, surroundings.random) : std::nullopt;
    if (!processedText && (value || !expands))
        return value;
    processed = ReplaceVariables(processed);
    if (!value && expands)
        value = EvaluateForgiving(processed);
    if (processedText)
        *processedText = processed;
    return value;
}

// The tries behind the first. `text` becomes what the last of them read.
std::optional<double> Calculator::EvaluateForgiving(QString& text) const
{
    const CalculatorOptions options = Options();
    bool ok = false;
    double value = 0;
    if (options.useWordOperators) {
        text = WordOp(text);
        value = Eval(text, ok);
    }
    if (!ok && options.ignoreText && !CallsKnownFunction(text, customFunctions.Definitions()) &&
        !ProgrammerMath::ContainsInvalidBaseLiteral(text)) {
        text = RemoveNonMathText(text);
        value = Eval(text, ok);
    }
    return ok ? std::optional(value) : std::nullopt;
}

QString Calculator::NormalizeSubmittedMath(const QString& text) const
{
    QString line = text.trimmed();
    if (KeepsItsWords(line))
        return line;
    if (Options().useWordOperators)
        line = WordOp(line);
    line = ExpandUnitConversions(line);
    QString expanded;
    QString errorText;
    return ExpandCustomFunctions(line, expanded, errorText) ? expanded : line;
}

EquationSetting Calculator::SettingForEquations()
{
    EquationSetting setting;
    setting.variables = values.variables;
    setting.lastAnswer = values.lastAnswer;
    setting.useWordOperators = Options().useWordOperators;
    setting.wordOp = WordOp;
    setting.expandCustomFunctions = [this](const QString& text, QString& expanded) {
        QString errorText;
        return ExpandCustomFunctions(text, expanded, errorText);
    };
    setting.random = surroundings.random;
    setting.formatAnswer = [this](double value) { return FormatAnswer(value); };
    return setting;
}

QString Calculator::FormatAnswer(double value)
{
    const int asked = std::exchange(oneTimeOutputBase, 0);
    return ::FormatAnswer(value, {values.formatPattern, asked != 0 ? asked : Options().outputBase});
}

bool Calculator::IsReservedVariableName(const QString& name) const
{
    return IsReservedBuiltInName(name) || customFunctions.Definitions().contains(name.trimmed().toUpper());
}

std::optional<VariableAssignment> Calculator::EvaluateVariableAssignment(const QString& text)
{
    VariableAssignment assignment;
    if (!ParseVariableAssignment(text, assignment.name, assignment.expression))
        return std::nullopt;
    assignment.reserved = IsReservedVariableName(assignment.name);
    if (!assignment.reserved && !assignment.expression.isEmpty())
        assignment.value = EvaluateExpression(assignment.expression);
    return assignment;
}

QString Calculator::GetVariablesList()
{
    if (values.variables.isEmpty())
        return QStringLiteral("-No Variables-");
    QStringList lines;
    for (auto variable = values.variables.cbegin(); variable != values.variables.cend(); ++variable)
        lines.append(variable.key() + QStringLiteral(" = ") + FormatAnswer(variable.value()));
    return lines.join(u'\n');
}
