#include "core/solver/EquationText.h"

#include "core/engine/Characters.h"
#include "core/engine/NamesInText.h"
#include "core/engine/NumberText.h"
#include "core/engine/Substitution.h"
#include "core/engine/WordSet.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int exactDigits = 17;                 // enough to read the same double back
constexpr qsizetype mostCoefficients = 1000000; // a dense system of that size still fits the memory and some seconds

// clang-format off
constexpr const char* reservedEquationWords[] = {
    // constants and the last answer
    "PI", "EULER", "ANS",
    // mathematics
    "SIN", "COS", "TAN", "ASIN", "ACOS", "ATAN", "ATAN2", "RAD", "DEG", "SQRT", "ABS", "SIGN", "LOG", "LN", "EXP",
    "ROUND", "FLOOR", "CEIL", "MIN", "MAX", "GCD", "LCM",
    // statistics
    "SUM", "AVG", "MEDIAN", "STDEV", "MODE", "COUNT", "RANGE", "STDEVP", "VARIANCE", "VARIANCEP", "GEOMEAN", "HARMEAN",
    "RMS", "SUMSQ", "PERCENTILE", "QUARTILE", "SKEW", "KURTOSIS", "RANDOM", "RANDINT",
    "FRACTION",
    // finance
    "FV", "PV", "PMT", "NPER", "RATE", "IPMT", "PPMT", "BALANCE", "INTEREST", "COMPOUND", "APY", "APR", "NPV", "IRR",
    "ROI", "CAGR", "PERCENTCHANGE", "MARKUP", "MARGIN", "DISCOUNT", "TAX",
    // geometric tolerances
    "POSITION", "TRUEPOSITION", "POSITION3D", "RADIALDEV", "DIAMETRALDEV", "COORDDEV", "BONUSTOL", "TOTALTOL",
    "POSITIONALLOW", "ZEROTOLMMC", "VCINTERNAL", "VCEXTERNAL", "RCINTERNAL", "RCEXTERNAL", "BOUNDARYINTERNAL",
    "BOUNDARYEXTERNAL", "FLOATINGFASTENER", "FIXEDFASTENER", "POSITIONMARGIN", "POSITIONUTIL",
    // integers in other bases
    "BIN", "OCT", "HEX", "DEC", "AND", "BITAND", "OR", "BITOR", "XOR", "BITXOR", "NOT", "BITNOT", "SHL", "LSHIFT",
    "SHR", "RSHIFT",
    // word operators
    "PLUS", "ADD", "ADDED", "MINUS", "SUBTRACT", "SUBTRACTED", "MULTIPLY", "MULTIPLIED", "TIMES", "DIVIDE", "DIVIDED",
    "OVER", "POWER", "EXPONENT", "POSITIVE",
};
// clang-format on
static_assert(std::size(reservedEquationWords) == 118, "a word has come or gone: is that meant? Mend the number.");

bool IsReservedEquationWord(const QString& upperName)
{
    static const WordSet words(reservedEquationWords);
    return words.Contains(upperName);
}

// FRACTION is a command of whole lines: it takes a single equation, but no line of a system.
bool IsReservedSystemWord(const QString& upperName)
{
    return upperName != u"FRACTION" && IsReservedEquationWord(upperName);
}

// The unknowns of a text, in upper case.
void CollectUnknowns(const QString& text, bool (*isReserved)(const QString&), const Variables& variables,
                     QSet<QString>& names)
{
    ForEachName(text, [&](qsizetype start, qsizetype size) {
        const QString name = text.mid(start, size).toUpper();
        if (!variables.contains(name) && !isReserved(name))
            names.insert(name);
    });
}

// Whether an end of the name stands behind a digit, and so may be another name.
bool HasNameBehindDigit(QStringView name)
{
    return std::adjacent_find(name.begin(), name.end(), [](QChar before, QChar behind) {
               return IsAsciiDigit(before) && !IsAsciiDigit(behind);
           }) != name.end();
}

// Puts a text in brackets in the place of each name, one name after the other.
class NameReplacement {
public:
    NameReplacement(const QStringList& upperNames, const QStringList& replacements)
        : names(upperNames), texts(replacements)
    {
        for (qsizetype i = 0; i < names.size(); ++i)
            indices.insert(names[i], i);
    }

    QString Apply(const QString& text) const
    {
        QString replaced;
        qsizetype copied = 0;
        ForEachName(text, [&](qsizetype start, qsizetype size) {
            const QStringView name = QStringView(text).sliced(start, size);
            replaced += QStringView(text).sliced(copied, start - copied);
            replaced += HasNameBehindDigit(name) ? ReplaceEnds(name) : ReplaceWhole(name.toString());
            copied = start + size;
        });
        return replaced + QStringView(text).sliced(copied);
    }

private:
    QString ReplaceWhole(const QString& name) const
    {
        const auto index = indices.constFind(name.toUpper());
        return index == indices.constEnd() ? name : QString(u'(' + texts[*index] + u')');
    }

    // What is left before an end that was replaced may be a name that comes later.
    QString ReplaceEnds(QStringView name) const
    {
        QString replaced;
        for (qsizetype i = 0; i < names.size() && !name.isEmpty(); ++i) {
            if (!name.endsWith(names[i], Qt::CaseInsensitive))
                continue;
            const QStringView before = name.chopped(names[i].size());
            if (!before.isEmpty() && !IsAsciiDigit(before.back()))
                continue;
            replaced.prepend(u'(' + texts[i] + u')');
            name = before;
        }
        return name + replaced;
    }

    const QStringList& names;
    const QStringList& texts;
    QHash<QString, qsizetype> indices;
};

bool Expand(const QString& text, QString& expanded, const EquationSetting& setting)
{
    expanded = text;
    return !setting.expandCustomFunctions || setting.expandCustomFunctions(text, expanded);
}

QString WithoutWords(const QString& text, const EquationSetting& setting)
{
    const bool words = setting.useWordOperators && setting.wordOp;
    return words && std::any_of(text.begin(), text.end(), IsAsciiLetter) ? setting.wordOp(text) : text;
}

// Takes an equation apart and prepares both sides.
bool PrepareEquation(const QString& equation, const QStringList& names, std::span<const double> values, QString& left,
                     QString& right, const EquationSetting& setting)
{
    return SplitEquation(equation, left, right) && PrepareEquationExpressions(left, right, names, values, setting);
}

bool IsFinite(const std::optional<double>& value)
{
    return value && std::isfinite(*value);
}

} // namespace

bool SplitEquation(const QString& text, QString& left, QString& right)
{
    left.clear();
    right.clear();
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 0 || text.indexOf(u'=', equals + 1) >= 0)
        return false;
    left = text.first(equals).trimmed();
    right = text.sliced(equals + 1).trimmed();
    return !left.isEmpty() && !right.isEmpty();
}

bool ParseSingleVariableEquation(const QString& text, QString& left, QString& right, QString& variable,
                                 const EquationSetting& setting)
{
    variable.clear();
    if (!SplitEquation(text, left, right))
        return false;
    QSet<QString> names;
    CollectUnknowns(left, IsReservedEquationWord, setting.variables, names);
    CollectUnknowns(right, IsReservedEquationWord, setting.variables, names);
    if (names.size() != 1)
        return false;
    for (const QString& only : std::as_const(names))
        variable = only;
    return true;
}

bool FindEquationSystemVariables(const QStringList& equations, QStringList& names, const EquationSetting& setting)
{
    names.clear();
    QSet<QString> found;
    for (const QString& equation : equations) {
        QString expanded;
        if (!Expand(equation, expanded, setting))
            return false;
        CollectUnknowns(expanded, IsReservedSystemWord, setting.variables, found);
    }
    if (found.isEmpty() || found.size() * std::max(found.size(), equations.size()) > mostCoefficients)
        return false;
    names = found.values();
    names.sort();
    return true;
}

std::optional<double> EvaluateStrictly(const QString& text, const EquationSetting& setting)
{
    static const Variables none;
    QString expanded;
    return Expand(text, expanded, setting) ? EvaluateText(expanded, none, setting.random) : std::nullopt;
}

bool PrepareEquationTexts(QString& left, QString& right, const QStringList& names, const QStringList& texts,
                          const EquationSetting& setting)
{
    const NameReplacement unknowns(names, texts);
    left = ReplaceANS(unknowns.Apply(left), setting.lastAnswer);
    right = ReplaceANS(unknowns.Apply(right), setting.lastAnswer);
    QString expandedLeft;
    QString expandedRight;
    if (!Expand(left, expandedLeft, setting) || !Expand(right, expandedRight, setting))
        return false;
    left = WithoutWords(ReplaceVariables(expandedLeft, setting.variables), setting);
    right = WithoutWords(ReplaceVariables(expandedRight, setting.variables), setting);
    return true;
}

bool PrepareEquationExpressions(QString& left, QString& right, const QStringList& names, std::span<const double> values,
                                const EquationSetting& setting)
{
    if (names.size() != static_cast<qsizetype>(values.size()))
        return false;
    QStringList texts;
    for (const double value : values)
        texts.append(std::isfinite(value) ? GeneralText(value, exactDigits) : u"."_s); // "inf" might be a variable
    return PrepareEquationTexts(left, right, names, texts, setting);
}

double EvaluateEquationResidual(const QString& left, const QString& right, bool& ok, const EquationSetting& setting)
{
    const std::optional<double> value = EvaluateStrictly(u'(' + left + u")-("_s + right + u')', setting);
    ok = IsFinite(value);
    return value.value_or(0);
}

double EvaluateSystemEquation(const QString& equation, const QStringList& names, std::span<const double> values,
                              bool& ok, const EquationSetting& setting)
{
    ok = false;
    QString left;
    QString right;
    if (!PrepareEquation(equation, names, values, left, right, setting))
        return 0;
    return EvaluateEquationResidual(left, right, ok, setting);
}

double EvaluateSystemEquationSides(const QString& equation, const QStringList& names, std::span<const double> values,
                                   double& left, double& right, bool& ok, const EquationSetting& setting)
{
    ok = false;
    QString leftText;
    QString rightText;
    if (!PrepareEquation(equation, names, values, leftText, rightText, setting))
        return 0;
    const std::optional<double> leftValue = EvaluateStrictly(leftText, setting);
    const std::optional<double> rightValue = IsFinite(leftValue) ? EvaluateStrictly(rightText, setting) : std::nullopt;
    ok = IsFinite(rightValue);
    if (!ok)
        return 0;
    left = *leftValue;
    right = *rightValue;
    return left - right;
}
