#include "core/datetime/DateTimeLanguage.h"

#include "core/datetime/DateTimeParser.h"
#include "core/datetime/DateTimeText.h"
#include "core/engine/Characters.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar longS(0x17f);
constexpr QChar kelvinSign(0x212a);

// Between a character of a word and none; the words of a line are ASCII.
bool IsBoundary(QStringView text, qsizetype index)
{
    const bool before = index > 0 && IsAsciiWord(text[index - 1]);
    const bool behind = index < text.size() && IsAsciiWord(text[index]);
    return before != behind;
}

bool EndsWord(QStringView text, qsizetype index)
{
    return index >= text.size() || !IsAsciiWord(text[index]);
}

// The letter in upper case. The only two characters beyond ASCII that are a letter of it in another case count.
QChar Folded(QChar c)
{
    if (c >= u'a' && c <= u'z')
        return QChar(c.unicode() - u'a' + u'A');
    if (c == longS)
        return u'S';
    return c == kelvinSign ? QChar(u'K') : c;
}

bool StartsWithWord(QStringView text, QLatin1StringView word)
{
    if (text.size() < word.size())
        return false;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (Folded(text[i]) != QChar(word[i]))
            return false;
    }
    return true;
}

bool HasBracketNext(QStringView text, qsizetype index)
{
    while (index < text.size() && IsLiteralSpace(text[index]))
        ++index;
    return index < text.size() && text[index] == u'(';
}

bool IsRecognisedBy(WordRecognition recognition, QStringView text, qsizetype wordEnd, bool ansIsDateTime)
{
    switch (recognition) {
    case WordRecognition::Alone:
        return IsBoundary(text, wordEnd);
    case WordRecognition::BeforeBracket:
        return HasBracketNext(text, wordEnd);
    case WordRecognition::AsAnswer:
        return ansIsDateTime && IsBoundary(text, wordEnd);
    }
    return false;
}

bool IsRecognisedWord(QStringView text, qsizetype start, bool ansIsDateTime)
{
    const QStringView rest = text.mid(start);
    const QChar initial = Folded(text[start]);
    for (const DateTimeWord& word : DateTimeWords()) {
        if (initial == QChar(word.name.front()) && StartsWithWord(rest, word.name) &&
            IsRecognisedBy(word.recognition, text, start + word.name.size(), ansIsDateTime))
            return true;
    }
    return false;
}

// Hours before the colon and two digits behind it, neither part of a longer word; AM or PM may touch the digits.
bool IsTimeAroundColon(QStringView text, qsizetype colon)
{
    qsizetype start = colon;
    while (start > 0 && IsAsciiDigit(text[start - 1]))
        --start;
    if (start == colon || !IsBoundary(text, start))
        return false;
    const QStringView behind = text.mid(colon + 1);
    if (behind.size() < 2 || !IsAsciiDigit(behind[0]) || !IsAsciiDigit(behind[1]))
        return false;
    if (EndsWord(behind, 2))
        return true;
    const QStringView touching = behind.mid(2);
    return (StartsWithWord(touching, "AM"_L1) || StartsWithWord(touching, "PM"_L1)) && EndsWord(touching, 2);
}

bool LooksLikeDateTime(QStringView text, bool ansIsDateTime)
{
    bool inWord = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool wasInWord = std::exchange(inWord, IsAsciiWord(c));
        if (inWord != wasInWord && (IsAsciiLetter(c) || c == longS) && IsRecognisedWord(text, i, ansIsDateTime))
            return true;
        if (c == u':' && IsTimeAroundColon(text, i))
            return true;
    }
    return false;
}

// Date answers go into the next line as a call, since a bare date reads as a division.
QString AnsText(const DateTimeValue& value, const QString& printed)
{
    switch (value.kind) {
    case DateTimeKind::Duration:
    case DateTimeKind::ClockTime:
        return printed;
    case DateTimeKind::Date:
    case DateTimeKind::DateTimeStamp:
        return "DATE(\""_L1 + printed + "\")"_L1;
    default:
        return {};
    }
}

} // namespace

bool ExpressionLooksLikeDateTimeLanguage(QStringView text)
{
    return LooksLikeDateTime(text, false);
}

DateTimeAnswer EvaluateDateTimeLanguageInternal(QStringView text, const NumericResolver& resolver, bool ansAllowed,
                                                const QString& ansText, const DateTimeClock& clock)
{
    DateTimeSources sources = {resolver, clock, ansAllowed ? ansText : QString()};
    DateTimeAnswer answer;
    answer.recognised = LooksLikeDateTime(text, !sources.ansText.isEmpty());
    if (!answer.recognised)
        return answer;
    const DateTimeValue value = EvaluateDateTimeParser(text, sources);
    answer.ok = value.IsValid();
    answer.isNumeric = value.kind == DateTimeKind::Number;
    answer.number = value.number;
    answer.answerText = FormatDateTimeValue(value);
    answer.newAnsText = AnsText(value, answer.answerText);
    return answer;
}
