#include "core/engine/Substitution.h"

#include "core/engine/Characters.h"
#include "core/engine/NamesInText.h"
#include "core/engine/NumberText.h"

namespace {

constexpr int answerDigits = 15;
constexpr int exactDigits = 17; // enough to read the same double back

// The text with the tail of each name replaced. `replacement` gets a name, sets what comes in brackets and gives the
// number of characters that go; 0 leaves the name as it is.
template <typename Replacement>
QString ReplaceNames(const QString& text, Replacement replacement)
{
    QString replaced;
    qsizetype copied = 0;
    ForEachName(text, [&](qsizetype start, qsizetype length) {
        QString value;
        const qsizetype size = replacement(QStringView(text).sliced(start, length), value);
        if (size == 0)
            return;
        const qsizetype end = start + length;
        replaced += QStringView(text).sliced(copied, end - size - copied) + u'(' + value + u')';
        copied = end;
    });
    return copied == 0 ? text : replaced + QStringView(text).sliced(copied);
}

bool MayNameANS(QStringView text)
{
    for (qsizetype i = 2; i < text.size(); ++i) {
        if ((text[i].unicode() | 0x20) == u's' && (text[i - 1].unicode() | 0x20) == u'n')
            return true;
    }
    return false;
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
    if (!MayNameANS(text))
        return text;
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
