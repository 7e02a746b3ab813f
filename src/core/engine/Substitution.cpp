#include "core/engine/Substitution.h"

#include "core/engine/Characters.h"
#include "core/engine/NumberText.h"

#include <algorithm>

namespace {

constexpr int answerDigits = 15;
constexpr int exactDigits = 17; // enough to read the same double back

bool BeginsName(QChar c)
{
    return IsAsciiLetter(c) || c == u'_';
}

// Behind the name or number literal at `position`, or `position` where neither begins there.
qsizetype WordEnd(QStringView text, qsizetype position)
{
    if (!BeginsName(text[position]))
        return NumberLiteralEnd(text, position);
    while (position < text.size() && IsAsciiWord(text[position]))
        ++position;
    return position;
}

// The text with a part of each name replaced. `replacement` gets a name and says, by a view of it that reaches to the
// name's end, which part goes and what comes; an empty view leaves the name as it is.
template <typename Replacement>
QString ReplaceNames(const QString& text, Replacement replacement)
{
    QString replaced;
    qsizetype copied = 0;
    for (qsizetype position = 0; position < text.size();) {
        const qsizetype start = position;
        const qsizetype end = WordEnd(text, start);
        position = std::max(end, start + 1);
        if (end == start || !BeginsName(text[start]))
            continue;
        QString value;
        const qsizetype size = replacement(QStringView(text).sliced(start, end - start), value);
        if (size == 0)
            continue;
        replaced += QStringView(text).sliced(copied, end - size - copied) + u'(' + value + u')';
        copied = end;
    }
    return copied == 0 ? text : replaced + QStringView(text).sliced(copied);
}

bool IsKeptSign(QChar c)
{
    return QStringView(u".!%()*+-/^÷").contains(c);
}

// An E between a digit or point and a digit or sign.
bool IsExponentMark(QStringView text, qsizetype position)
{
    if (text[position] != u'e' && text[position] != u'E')
        return false;
    if (position == 0 || position + 1 == text.size())
        return false;
    const QChar before = text[position - 1];
    const QChar behind = text[position + 1];
    return (IsDigit(before) || before == u'.') && (IsDigit(behind) || behind == u'+' || behind == u'-');
}

} // namespace

QString ReplaceANS(const QString& text, double ans)
{
    constexpr QStringView word = u"ANS";
    return ReplaceNames(text, [&](QStringView name, QString& value) -> qsizetype {
        if (!name.endsWith(word, Qt::CaseInsensitive))
            return 0;
        const QStringView before = name.chopped(word.size());
        if (!before.isEmpty() && !IsAsciiDigit(before.back()))
            return 0;
        value = GeneralText(ans, answerDigits);
        return word.size();
    });
}

QString ReplaceVariables(const QString& text, const Variables& variables)
{
    if (variables.isEmpty())
        return text;
    return ReplaceNames(text, [&](QStringView name, QString& value) -> qsizetype {
        const auto variable = variables.constFind(name.toString().toUpper());
        if (variable == variables.constEnd())
            return 0;
        value = GeneralText(*variable, exactDigits);
        return name.size();
    });
}

QString RemoveNonMathText(const QString& text)
{
    QString kept;
    kept.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsDigit(text[i]) || IsKeptSign(text[i]) || IsSpace(text[i]) || IsExponentMark(text, i))
            kept.append(text[i]);
    }
    return kept.trimmed();
}
