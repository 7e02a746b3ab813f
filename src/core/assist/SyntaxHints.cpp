#include "core/assist/SyntaxHints.h"

#include "core/Calculator.h"
#include "core/assist/Suggestions.h"
#include "core/engine/Characters.h"
#include "core/engine/SyntaxCatalog.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringView WithoutSpaceAtEnd(QStringView text)
{
    while (!text.isEmpty() && IsSpace(text.back()))
        text.chop(1);
    return text;
}

// How many commas separate arguments in a text; those in brackets belong to inner calls.
int ArgumentsPassed(QStringView text)
{
    int depth = 0;
    int passed = 0;
    for (const QChar c : text) {
        if (c == u'(')
            ++depth;
        else if (c == u')')
            depth = std::max(0, depth - 1);
        else if (c == u',' && depth == 0)
            ++passed;
    }
    return passed;
}

// The word that a bracket behind the text would call.
QStringView CalledName(QStringView beforeBracket)
{
    const QStringView text = WithoutSpaceAtEnd(beforeBracket);
    return text.last(WordAtEnd(text));
}

std::optional<CalculatorSyntaxItem> ItemOf(const Calculator& calculator, const QString& name)
{
    if (const CalculatorSyntaxItem* builtIn = FindCalculatorSyntaxItem(name))
        return *builtIn;
    if (!calculator.customFunctions.Definitions().contains(name.toUpper()))
        return std::nullopt;
    const QList<CalculatorSyntaxItem> items = calculator.customFunctions.GetCustomFunctionSyntaxItems();
    return *FindCalculatorSyntaxItem(name, items);
}

bool BeginsWithCommand(QStringView line, const QString& name)
{
    return line.startsWith(name, Qt::CaseInsensitive) && (line.size() == name.size() || IsSpace(line[name.size()]));
}

// The command of several words if the line begins with one, and among those the longest.
const CalculatorSyntaxItem* LongestCommand(QStringView line)
{
    const CalculatorSyntaxItem* longest = nullptr;
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        if (item.isCommand && (!longest || item.name.size() > longest->name.size()) &&
            BeginsWithCommand(line, item.name))
            longest = &item;
    }
    return longest;
}

QString CommandHint(QStringView before)
{
    const QStringView line = before.trimmed();
    const auto wordEnd = std::find_if_not(line.begin(), line.end(), IsAsciiWord);
    if (wordEnd == line.begin() || IsAsciiDigit(line.front()))
        return QString();
    const QStringView word(line.begin(), wordEnd);
    const CalculatorSyntaxItem* command = LongestCommand(line);
    if (!command) // a sign may follow the word, as in FORMAT=0.00
        command = FindCalculatorSyntaxItem(word.toString());
    if (!command || !command->isCommand)
        return QString();
    return BuildSyntaxHintText(*command, ArgumentsPassed(line.sliced(word.size())));
}

} // namespace

std::optional<ActiveCall> FindActiveFunctionCall(QStringView before)
{
    int depth = 0;
    for (qsizetype i = before.size() - 1; i >= 0; --i) {
        if (before[i] == u')') {
            ++depth;
        } else if (before[i] == u'(' && depth > 0) {
            --depth;
        } else if (before[i] == u'(') {
            const QStringView name = CalledName(before.first(i));
            if (!name.isEmpty())
                return ActiveCall{name.toString(), ArgumentsPassed(before.sliced(i + 1))};
        }
    }
    return std::nullopt;
}

QString BuildSyntaxHintText(const CalculatorSyntaxItem& item, int argumentIndex)
{
    QString text = item.syntax.toHtmlEscaped();
    if (argumentIndex < 0 || item.parameters.isEmpty())
        return text;
    const QString parameter = item.parameters[std::min<qsizetype>(argumentIndex, item.parameters.size() - 1)];
    const QString escaped = parameter.toHtmlEscaped();
    return text.replace(escaped, QString(u"<b>"_s + escaped + u"</b>"_s));
}

QString SyntaxHintFor(const Calculator& calculator, QStringView before)
{
    if (const std::optional<ActiveCall> call = FindActiveFunctionCall(before)) {
        const std::optional<CalculatorSyntaxItem> item = ItemOf(calculator, call->name);
        if (item && item->isFunction)
            return BuildSyntaxHintText(*item, call->argumentIndex);
    }
    return CommandHint(before);
}
