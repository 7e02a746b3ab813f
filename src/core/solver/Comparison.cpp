#include "core/solver/Comparison.h"

#include "core/engine/Substitution.h"
#include "core/solver/EquationText.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double tolerance = 1e-12;
constexpr qsizetype longestReport = 10'000'000; // characters; it grows with the square of the chain

bool Equal(double a, double b)
{
    const double scale = std::max({std::fabs(a), std::fabs(b), 1.0});
    return std::fabs(a - b) <= scale * tolerance;
}

struct ComparisonRow {
    QStringView sign;
    bool (*holds)(double a, double b);
};

// The first that stands at a place counts: the longer ones lead.
constexpr ComparisonRow comparisons[] = {
    {u"<=", [](double a, double b) { return a < b || Equal(a, b); }},
    {u">=", [](double a, double b) { return a > b || Equal(a, b); }},
    {u"<>", [](double a, double b) { return !Equal(a, b); }},
    {u"<", [](double a, double b) { return a < b; }},
    {u">", [](double a, double b) { return a > b; }},
    {u"=", [](double a, double b) { return Equal(a, b); }},
};

const ComparisonRow* ComparisonAt(QStringView text)
{
    const auto row = std::find_if(std::begin(comparisons), std::end(comparisons),
                                  [&](const ComparisonRow& comparison) { return text.startsWith(comparison.sign); });
    return row == std::end(comparisons) ? nullptr : row;
}

struct Chain {
    QStringList operands;
    std::vector<const ComparisonRow*> links;

    bool HasEmptyOperand() const
    {
        return std::any_of(operands.begin(), operands.end(), [](const QString& operand) { return operand.isEmpty(); });
    }

    bool MayBeEquation() const
    {
        return std::all_of(links.begin(), links.end(), [](const ComparisonRow* link) { return link->sign == u"="; });
    }
};

Chain SplitChain(QStringView text)
{
    Chain chain;
    qsizetype begin = 0;
    for (qsizetype position = 0; position < text.size();) {
        const ComparisonRow* link = ComparisonAt(text.sliced(position));
        if (!link) {
            ++position;
            continue;
        }
        chain.operands.append(text.sliced(begin, position - begin).trimmed().toString());
        chain.links.push_back(link);
        begin = position += link->sign.size();
    }
    chain.operands.append(text.sliced(begin).trimmed().toString());
    return chain;
}

std::optional<double> EvaluateOperand(const QString& operand, const EquationSetting& setting)
{
    QString expanded = ReplaceANS(operand, setting.lastAnswer);
    if (setting.expandCustomFunctions && !setting.expandCustomFunctions(QString(expanded), expanded))
        return std::nullopt;
    return EvaluateStrictly(ReplaceVariables(expanded, setting.variables), setting);
}

bool EvaluateOperands(const QStringList& operands, std::vector<double>& values, const EquationSetting& setting)
{
    for (const QString& operand : operands) {
        const std::optional<double> value = EvaluateOperand(operand, setting);
        if (!value)
            return false;
        values.push_back(*value);
    }
    return true;
}

bool Holds(const Chain& chain, const std::vector<double>& values)
{
    for (size_t i = 0; i < chain.links.size(); ++i) {
        if (!chain.links[i]->holds(values[i], values[i + 1]))
            return false;
    }
    return true;
}

template <typename List>
void HandOut(List* list, const List& content)
{
    if (list)
        *list = content;
}

void Append(QList<PadRun>& runs, const QString& text, bool bold)
{
    if (!runs.isEmpty() && runs.last().bold == bold)
        runs.last().text += text;
    else
        runs.append({text, bold});
}

// The whole chain with one operand in bold.
void AppendChain(QList<PadRun>& runs, const QStringList& operands, const QStringList& operators, qsizetype bold)
{
    for (qsizetype i = 0; i < operands.size(); ++i) {
        if (i > 0)
            Append(runs, u' ' + operators[i - 1] + u' ', false);
        Append(runs, operands[i], i == bold);
    }
}

QList<PadRun> FalseReport(const QStringList& operands, const QStringList& operators, const std::vector<double>& values,
                          const EquationSetting& setting)
{
    QList<PadRun> runs = {{u"FALSE"_s, true}, {u"\n"_s, false}};
    QStringList answers;
    for (qsizetype i = 0; i < operands.size(); ++i) {
        answers.append(setting.formatAnswer(values[static_cast<size_t>(i)]));
        AppendChain(runs, operands, operators, i);
        Append(runs, u"  ->  "_s + answers.last() + u'\n', false);
    }
    AppendChain(runs, answers, operators, -1);
    Append(runs, u"  ->  FALSE\n"_s, false);
    return runs;
}

} // namespace

bool EvaluateComparison(const QString& text, bool& valid, bool& result, QStringList* operands, QStringList* operators,
                        std::vector<double>* values, const EquationSetting& setting)
{
    valid = result = false;
    HandOut(operands, {});
    HandOut(operators, {});
    HandOut(values, {});
    const Chain chain = SplitChain(text);
    if (chain.links.empty())
        return false;
    if (chain.HasEmptyOperand())
        return true;
    std::vector<double> numbers;
    if (!EvaluateOperands(chain.operands, numbers, setting))
        return !chain.MayBeEquation();
    QStringList signs;
    for (const ComparisonRow* link : chain.links)
        signs.append(link->sign.toString());
    HandOut(operands, chain.operands);
    HandOut(operators, signs);
    HandOut(values, numbers);
    valid = true;
    result = Holds(chain, numbers);
    return true;
}

std::optional<Submission> HandleComparisonSubmission(const QString& text, const EquationSetting& setting)
{
    bool valid = false;
    bool result = false;
    QStringList operands;
    QStringList operators;
    std::vector<double> values;
    if (!EvaluateComparison(text, valid, result, &operands, &operators, &values, setting))
        return std::nullopt;
    if (!valid || (!result && operands.size() * text.size() > longestReport))
        return LineWithStatus(u"Cannot Compare"_s, false, u"Cannot Compare"_s);
    if (result)
        return LineWithStatus(u"TRUE"_s, true, u"TRUE"_s);
    return Submission{u"FALSE"_s, FalseReport(operands, operators, values, setting)};
}
