#include "core/engine/CustomFunctions.h"

#include "core/CommandText.h"
#include "core/engine/Brackets.h"
#include "core/engine/Characters.h"
#include "core/engine/NumberText.h"
#include "core/engine/Variables.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>

#include <algorithm>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int callLimit = 100;               // the call that reaches it fails
constexpr qsizetype lengthLimit = 1'000'000; // a body may double the text a hundred times over

struct Identifier {
    qsizetype start = 0;
    qsizetype end = 0;
};

template <typename Predicate>
qsizetype SkipWhile(QStringView text, qsizetype position, Predicate belongs)
{
    while (position < text.size() && belongs(text[position]))
        ++position;
    return position;
}

// The first identifier at or behind `position`, which is not inside one or inside a number.
std::optional<Identifier> NextIdentifier(QStringView text, qsizetype position)
{
    while (position < text.size()) {
        const QChar c = text[position];
        if (IsIdentifierStart(c))
            return Identifier{position, SkipWhile(text, position, IsIdentifierPart)};
        position = IsDigit(c) || c == u'.' ? NumberLiteralEnd(text, position) : position + 1;
    }
    return std::nullopt;
}

// Nothing where the result would be longer than `limit`.
std::optional<QString> ReplaceIdentifiers(QStringView text, const QMap<QString, QString>& replacements, qsizetype limit)
{
    QString result;
    qsizetype written = 0;
    for (auto name = NextIdentifier(text, 0); name; name = NextIdentifier(text, name->end)) {
        const auto found =
            replacements.constFind(text.sliced(name->start, name->end - name->start).toString().toUpper());
        if (found == replacements.constEnd())
            continue;
        result += text.sliced(written, name->start - written);
        result += *found;
        written = name->end;
        if (result.size() > limit)
            return std::nullopt;
    }
    result += text.sliced(written);
    return result.size() > limit ? std::nullopt : std::optional(result);
}

struct Call {
    const CustomFunctionDefinition* function = nullptr;
    qsizetype chain = 0; // where the identifiers begin that stand before the call with blanks alone between
    qsizetype start = 0;
    qsizetype open = 0; // the bracket
};

std::optional<Call> NextCall(QStringView text, qsizetype position, const CustomFunctionMap& definitions)
{
    Call call;
    qsizetype behindLast = -1;
    for (auto name = NextIdentifier(text, position); name; name = NextIdentifier(text, name->end)) {
        call.start = name->start;
        call.open = SkipWhile(text, name->end, IsSpace);
        if (call.start != behindLast)
            call.chain = call.start;
        behindLast = call.open;
        if (call.open == text.size() || text[call.open] != u'(')
            continue;
        const auto found =
            definitions.constFind(text.sliced(name->start, name->end - name->start).toString().toUpper());
        if (found == definitions.constEnd())
            continue;
        call.function = &*found;
        return call;
    }
    return std::nullopt;
}

// The pieces between commas that stand in no bracket, trimmed. Brackets are in pairs here.
QList<QStringView> SplitArguments(QStringView text)
{
    QList<QStringView> arguments;
    if (text.trimmed().isEmpty())
        return arguments;
    qsizetype depth = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'(')
            ++depth;
        else if (text[i] == u')')
            --depth;
        else if (text[i] == u',' && depth == 0) {
            arguments += text.sliced(start, i - start).trimmed();
            start = i + 1;
        }
    }
    arguments += text.sliced(start).trimmed();
    return arguments;
}

// Replaces one call in `text`. False, with the reason, where that fails.
bool ReplaceCall(QString& text, const Call& call, QString& errorText)
{
    const CustomFunctionDefinition& function = *call.function;
    const qsizetype close = ClosingBracket(text, call.open);
    if (close < 0) {
        errorText = u"Unclosed custom function call: "_s + function.name;
        return false;
    }
    const QList<QStringView> arguments = SplitArguments(QStringView(text).sliced(call.open + 1, close - call.open - 1));
    if (std::any_of(arguments.begin(), arguments.end(), [](QStringView argument) { return argument.isEmpty(); })) {
        errorText = u"Invalid arguments for "_s + function.name;
        return false;
    }
    if (arguments.size() != function.parameters.size()) {
        errorText = function.name + u" expects "_s + QString::number(function.parameters.size()) + u" argument(s)"_s;
        return false;
    }
    QMap<QString, QString> replacements;
    for (qsizetype i = 0; i < arguments.size(); ++i)
        replacements.insert(function.parameters[i], u'(' + arguments[i].toString() + u')');
    const std::optional<QString> body = ReplaceIdentifiers(function.expression, replacements, lengthLimit);
    if (body)
        text.replace(call.start, close + 1 - call.start, QString(u'(' + *body + u')'));
    if (!body || text.size() > lengthLimit) {
        errorText = u"Custom function expansion limit reached"_s;
        return false;
    }
    return true;
}

QStringList CalledNames(const CustomFunctionDefinition& caller, const CustomFunctionMap& definitions)
{
    QStringList names;
    for (auto call = NextCall(caller.expression, 0, definitions); call;
         call = NextCall(caller.expression, call->open, definitions))
        names += call->function->name;
    return names;
}

// Whether a chain of calls comes back to one of its functions. A chain can be as long as there are functions, so the
// path is kept here and not on the stack.
bool HasCycle(const CustomFunctionMap& definitions)
{
    enum State { Unseen, OnPath, Finished };
    struct Step {
        QString name;
        QStringList callees; // those still to look at
    };
    QHash<QString, State> states;
    std::vector<Step> path;
    const auto enter = [&](const CustomFunctionDefinition& function) {
        states[function.name] = OnPath;
        path.push_back({function.name, CalledNames(function, definitions)});
    };
    for (const CustomFunctionDefinition& function : definitions) {
        if (states.value(function.name) == Unseen)
            enter(function);
        while (!path.empty()) {
            if (path.back().callees.isEmpty()) {
                states[path.back().name] = Finished;
                path.pop_back();
                continue;
            }
            const QString callee = path.back().callees.takeLast();
            if (states.value(callee) == OnPath)
                return true;
            if (states.value(callee) == Unseen)
                enter(*definitions.constFind(callee));
        }
    }
    return false;
}

using NameTest = std::function<bool(const QString&)>;

// The pieces as names in upper case. Nothing where one is no name, taken or repeated: `invalid` is that piece.
std::optional<QStringList> ParameterNames(const QStringList& pieces, const NameTest& isTaken, QString& invalid)
{
    QStringList names;
    QSet<QString> seen;
    for (const QString& piece : pieces) {
        const QString name = piece.trimmed().toUpper();
        if (!IsValidVariableName(name) || isTaken(name) || seen.contains(name)) {
            invalid = piece.trimmed();
            return std::nullopt;
        }
        names += name;
        seen.insert(name);
    }
    return names;
}

// Why a definition cannot stay among the others, which it stands with already; empty if it can.
QString Objection(const CustomFunctionDefinition& definition, const CustomFunctionMap& definitions,
                  const CustomFunctionSurroundings& around)
{
    if (HasCycle(definitions))
        return u"Custom functions cannot call themselves recursively"_s;
    QMap<QString, QString> trial;
    for (const QString& parameter : definition.parameters)
        trial.insert(parameter, u"(2)"_s);
    const bool hasValue = around.canEvaluate(ReplaceIdentifierTokens(definition.expression, trial));
    return hasValue ? QString() : u"Cannot solve function expression"_s;
}

QString CallForm(const CustomFunctionDefinition& function)
{
    return function.name + u'(' + function.parameters.join(u", "_s) + u')';
}

QString DefinitionLine(const CustomFunctionDefinition& function)
{
    return CallForm(function) + u" = "_s + function.expression;
}

QString DeleteLine(const CustomFunctionDefinition& function)
{
    return u"DELETE FUNCTION "_s + function.name;
}

QString LinePerFunction(const CustomFunctionMap& definitions, QString (*line)(const CustomFunctionDefinition&))
{
    QStringList lines;
    for (const CustomFunctionDefinition& function : definitions)
        lines += line(function);
    return lines.isEmpty() ? u"-No Custom Functions-"_s : lines.join(u'\n');
}

// The array's entries that are there, counted from 0. The size that a file claims may be anything.
QList<int> ArrayEntries(QSettings& settings, const QString& array)
{
    settings.beginGroup(array);
    const QStringList groups = settings.childGroups();
    settings.endGroup();
    const int size = settings.beginReadArray(array);
    settings.endArray();
    QList<int> entries;
    for (const QString& group : groups) {
        const int number = group.toInt();
        if (number >= 1 && number <= size)
            entries += number - 1;
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

} // namespace

bool CustomFunctions::ExpandCustomFunctions(const QString& text, QString& expanded, QString& errorText) const
{
    expanded = text;
    errorText.clear();
    if (definitions.isEmpty())
        return true;
    QString working = text;
    int budget = callLimit;
    // A replacement begins with a bracket, so that a name just before it may have become a call. What stands before
    // that stays as it was found, without a call.
    for (auto call = NextCall(working, 0, definitions); call; call = NextCall(working, call->chain, definitions)) {
        if (!ReplaceCall(working, *call, errorText))
            return false;
        if (--budget == 0) {
            errorText = u"Custom function expansion limit reached"_s;
            return false;
        }
    }
    expanded = working;
    return true;
}

std::optional<Submission> CustomFunctions::HandleCustomFunctionCommand(const QString& text,
                                                                       const CustomFunctionSurroundings& around,
                                                                       bool& changed)
{
    changed = false;
    QString rest;
    if (MatchCommand(text, u"CREATE FUNCTION", rest))
        return CreateFunction(rest, around, changed);
    if (text.compare("FUNCTIONS"_L1, Qt::CaseInsensitive) == 0)
        return LineWithStatus(GetCustomFunctionsList(), false, u"Custom functions listed"_s);
    if (MatchCommand(text, u"DELETE FUNCTION", rest))
        return DeleteFunction(rest, changed);
    return std::nullopt;
}

Submission CustomFunctions::CreateFunction(const QString& rest, const CustomFunctionSurroundings& around, bool& changed)
{
    static const QRegularExpression head(u"^\\s*([A-Za-z_][A-Za-z0-9_]*)\\s*\\(([^()]*)\\)\\s*="_s);
    const QRegularExpressionMatch match = head.match(rest);
    const QString expression = match.hasMatch() ? rest.sliced(match.capturedEnd()).trimmed() : QString();
    if (expression.isEmpty())
        return StatusOnly(u"Use CREATE FUNCTION NAME(parameter, ...) = expression"_s);

    const QString name = match.captured(1).toUpper();
    const bool exists = definitions.contains(name);
    if ((around.isReserved(name) && !exists) || around.isVariable(name))
        return StatusOnly(u"Cannot use "_s + name + u" as a function name"_s);

    const QString parameterText = match.captured(2).trimmed();
    const auto isTaken = [&](const QString& word) { return around.isReserved(word) || definitions.contains(word); };
    QString invalid;
    const std::optional<QStringList> parameters =
        ParameterNames(parameterText.isEmpty() ? QStringList() : parameterText.split(u','), isTaken, invalid);
    if (!parameters)
        return StatusOnly(u"Invalid function parameter: "_s + invalid);
    if (expression.contains(u'='))
        return StatusOnly(u"A function definition must contain one expression"_s);

    const CustomFunctionMap before = definitions;
    const CustomFunctionDefinition definition{name, *parameters, expression};
    definitions.insert(name, definition);
    const QString objection = Objection(definition, definitions, around);
    if (!objection.isEmpty()) {
        definitions = before;
        return StatusOnly(objection);
    }
    changed = true;
    return LineWithStatus(DefinitionLine(definition), false,
                          (exists ? u"Function updated: "_s : u"Function created: "_s) + name);
}

Submission CustomFunctions::DeleteFunction(const QString& rest, bool& changed)
{
    if (rest.isEmpty())
        return LineWithStatus(GetDeleteCustomFunctionCommands(), false, u"Delete commands listed"_s);
    const QString name = rest.toUpper();
    changed = definitions.remove(name) > 0;
    if (!changed)
        return StatusOnly(u"No custom function named "_s + rest);
    const QString deleted = u"Function deleted: "_s + name;
    return LineWithStatus(deleted, false, deleted);
}

QString CustomFunctions::GetCustomFunctionsList() const
{
    return LinePerFunction(definitions, DefinitionLine);
}

QString CustomFunctions::GetDeleteCustomFunctionCommands() const
{
    return LinePerFunction(definitions, DeleteLine);
}

QList<CalculatorSyntaxItem> CustomFunctions::GetCustomFunctionSyntaxItems() const
{
    QList<CalculatorSyntaxItem> items;
    for (const CustomFunctionDefinition& function : definitions)
        items += {function.name, CallForm(function), function.parameters, true, false, false};
    return items;
}

void CustomFunctions::SaveCustomFunctions(QSettings& settings) const
{
    settings.remove("CustomFunctions"_L1);
    settings.beginWriteArray("CustomFunctions"_L1, static_cast<int>(definitions.size()));
    int index = 0;
    for (const CustomFunctionDefinition& function : definitions) {
        settings.setArrayIndex(index++);
        settings.setValue("Name"_L1, function.name);
        settings.setValue("Parameters"_L1, function.parameters);
        settings.setValue("Expression"_L1, function.expression);
    }
    settings.endArray();
}

void CustomFunctions::LoadCustomFunctions(QSettings& settings, const NameTest& isReserved)
{
    definitions.clear();
    const auto isTaken = [&](const QString& word) { return isReserved(word) || definitions.contains(word); };
    const QList<int> entries = ArrayEntries(settings, u"CustomFunctions"_s);
    settings.beginReadArray("CustomFunctions"_L1);
    for (const int entry : entries) {
        settings.setArrayIndex(entry);
        const QString name = settings.value("Name"_L1).toString().trimmed().toUpper();
        const QString expression = settings.value("Expression"_L1).toString().trimmed();
        QString invalid;
        const std::optional<QStringList> parameters =
            ParameterNames(settings.value("Parameters"_L1).toStringList(), isTaken, invalid);
        if (parameters && IsValidVariableName(name) && !isTaken(name) && !expression.isEmpty())
            definitions.insert(name, {name, *parameters, expression});
    }
    settings.endArray();
}

QString ReplaceIdentifierTokens(const QString& text, const QMap<QString, QString>& replacements)
{
    return *ReplaceIdentifiers(text, replacements, std::numeric_limits<qsizetype>::max());
}
