#include "core/engine/WordOperators.h"

#include "core/engine/Characters.h"

#include <QHash>
#include <QList>
#include <QtNumeric>

#include <iterator>
#include <optional>

namespace {

struct OperatorRow {
    QStringView phrase; // upper case, words separated by one blank
    QStringView symbol;
};

// Where two rows want the same word, the earlier one has it.
// clang-format off
constexpr OperatorRow operatorRows[] = {
    {u"RAISED TO THE POWER OF", u"^"},
    {u"TO THE POWER OF",        u"^"},
    {u"RAISED TO",              u"^"},
    {u"MULTIPLIED BY",          u"*"},
    {u"DIVIDED BY",             u"/"},
    {u"ADDED TO",               u"+"},
    {u"EQUALS",                 u"="},
    {u"EQUAL",                  u"="},
    {u"PLUS",                   u"+"},
    {u"ADD",                    u"+"},
    {u"ADDED",                  u"+"},
    {u"MINUS",                  u"-"},
    {u"SUBTRACT",               u"-"},
    {u"SUBTRACTED",             u"-"},
    {u"MULTIPLY",               u"*"},
    {u"MULTIPLIED",             u"*"},
    {u"TIMES",                  u"*"},
    {u"OF",                     u"*"},
    {u"DIVIDE",                 u"/"},
    {u"DIVIDED",                u"/"},
    {u"OVER",                   u"/"},
    {u"POWER",                  u"^"},
    {u"EXPONENT",               u"^"},
    {u"POSITIVE",               u"+"},
    {u"NEGATIVE",               u"-"},
};

enum class NumberKind { None, Unit, Ten, Hundred, Scale, Point, Negative };

struct NumberRow {
    QStringView word;
    NumberKind kind;
    qint64 value;
};

constexpr NumberRow numberRows[] = {
    {u"ZERO",      NumberKind::Unit, 0},        {u"ONE",       NumberKind::Unit, 1},
    {u"TWO",       NumberKind::Unit, 2},        {u"THREE",     NumberKind::Unit, 3},
    {u"FOUR",      NumberKind::Unit, 4},        {u"FIVE",      NumberKind::Unit, 5},
    {u"SIX",       NumberKind::Unit, 6},        {u"SEVEN",     NumberKind::Unit, 7},
    {u"EIGHT",     NumberKind::Unit, 8},        {u"NINE",      NumberKind::Unit, 9},
    {u"TEN",       NumberKind::Unit, 10},       {u"ELEVEN",    NumberKind::Unit, 11},
    {u"TWELVE",    NumberKind::Unit, 12},       {u"THIRTEEN",  NumberKind::Unit, 13},
    {u"FOURTEEN",  NumberKind::Unit, 14},       {u"FIFTEEN",   NumberKind::Unit, 15},
    {u"SIXTEEN",   NumberKind::Unit, 16},       {u"SEVENTEEN", NumberKind::Unit, 17},
    {u"EIGHTEEN",  NumberKind::Unit, 18},       {u"NINETEEN",  NumberKind::Unit, 19},
    {u"TWENTY",    NumberKind::Ten, 20},        {u"THIRTY",    NumberKind::Ten, 30},
    {u"FORTY",     NumberKind::Ten, 40},        {u"FIFTY",     NumberKind::Ten, 50},
    {u"SIXTY",     NumberKind::Ten, 60},        {u"SEVENTY",   NumberKind::Ten, 70},
    {u"EIGHTY",    NumberKind::Ten, 80},        {u"NINETY",    NumberKind::Ten, 90},
    {u"HUNDRED",   NumberKind::Hundred, 100},   {u"THOUSAND",  NumberKind::Scale, 1'000},
    {u"MILLION",   NumberKind::Scale, 1'000'000}, {u"BILLION", NumberKind::Scale, 1'000'000'000},
    {u"TRILLION",  NumberKind::Scale, 1'000'000'000'000},
    {u"POINT",     NumberKind::Point, 0},       {u"NEGATIVE",  NumberKind::Negative, 0},
};
// clang-format on

constexpr QChar longS(0x017F);      // the long s and the kelvin sign are letters of ASCII
constexpr QChar kelvinSign(0x212A); // to whoever compares in any case

// A word's letters, five bits each; 0 for what is no word of ours.
using WordKey = quint64;
constexpr qsizetype longestKey = 12;

constexpr WordKey NextKey(WordKey key, QChar letter)
{
    return key << 5 | (letter.unicode() & 31);
}

WordKey KeyOfWord(QStringView word)
{
    WordKey key = 0;
    for (const QChar c : word) {
        if (!IsAsciiLetter(c) || word.size() > longestKey)
            return 0;
        key = NextKey(key, c);
    }
    return key;
}

// What the tables say about one word.
struct WordEntry {
    QList<const OperatorRow*> operators; // those that begin with the word, in the order of the table
    NumberKind kind = NumberKind::None;
    qint64 value = 0;
};

const WordEntry* FindWord(WordKey key)
{
    static const QHash<WordKey, WordEntry> words = [] {
        QHash<WordKey, WordEntry> built;
        for (const OperatorRow& row : operatorRows)
            built[KeyOfWord(row.phrase.left(row.phrase.indexOf(u' ')))].operators += &row;
        for (const NumberRow& row : numberRows) {
            WordEntry& entry = built[KeyOfWord(row.word)];
            entry.kind = row.kind;
            entry.value = row.value;
        }
        return built;
    }();
    const auto found = words.constFind(key);
    return found == words.constEnd() ? nullptr : &*found;
}

NumberKind KindOfWord(QStringView word, qint64& value)
{
    const WordEntry* entry = FindWord(KeyOfWord(word));
    if (!entry)
        return NumberKind::None;
    value = entry->value;
    return entry->kind;
}

bool IsBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

// What a phrase must not touch.
bool IsPhraseCharacter(QChar c)
{
    return IsAsciiWord(c) || c == longS || c == kelvinSign;
}

qsizetype SkipBlanks(QStringView text, qsizetype position)
{
    while (position < text.size() && IsBlank(text[position]))
        ++position;
    return position;
}

// Where `phrase` ends that stands at `position`, -1 if it does not. What stands before `position` is not looked at.
qsizetype PhraseEnd(QStringView text, qsizetype position, QStringView phrase)
{
    for (const QChar expected : phrase) {
        const qsizetype start = position;
        if (expected == u' ')
            position = SkipBlanks(text, start);
        else if (start < text.size() && text[start].toCaseFolded() == expected.toCaseFolded())
            ++position;
        if (position == start)
            return -1;
    }
    return position < text.size() && IsPhraseCharacter(text[position]) ? -1 : position;
}

// Whether a row before `row` has one of the words behind the first of the phrase from `start` to `end`.
bool LosesWord(QStringView text, const OperatorRow* row, qsizetype start, qsizetype end)
{
    for (qsizetype i = start + 1; i < end; ++i) {
        if (!IsBlank(text[i - 1]) || IsBlank(text[i]))
            continue;
        for (const OperatorRow* earlier = std::begin(operatorRows); earlier != row; ++earlier) {
            if (PhraseEnd(text, i, earlier->phrase) >= 0)
                return true;
        }
    }
    return false;
}

// The number that words stand for which are taken one by one.
class SpokenNumber {
public:
    enum Taking { Taken, Refused, Overflow };

    // A word refused leaves the number as it was.
    Taking Take(NumberKind kind, qint64 value)
    {
        if (kind == NumberKind::Negative)
            return TakeSign();
        const Taking taking = hasPoint ? TakeDecimal(kind, value) : TakeInteger(kind, value);
        hasValue = hasValue || taking == Taken;
        return taking;
    }

    // A sign alone has none.
    bool HasValue() const { return hasValue; }

    QString Text() const
    {
        QString text = QString::number(total + group);
        if (negative)
            text.prepend(u'-');
        if (!decimals.isEmpty())
            text += u'.' + decimals;
        return text;
    }

private:
    Taking TakeSign()
    {
        if (negative || hasValue)
            return Refused;
        negative = true;
        return Taken;
    }

    Taking TakeInteger(NumberKind kind, qint64 value)
    {
        bool overflow = false;
        qint64 scaled = 0;
        switch (kind) {
        case NumberKind::Point:
            hasPoint = true;
            break;
        case NumberKind::Hundred:
            overflow = qMulOverflow(group == 0 ? 1 : group, value, &group);
            break;
        case NumberKind::Scale:
            overflow = qMulOverflow(group == 0 ? 1 : group, value, &scaled) || qAddOverflow(total, scaled, &total);
            group = 0;
            break;
        default:
            overflow = qAddOverflow(group, value, &group);
        }
        return overflow || qAddOverflow(total, group, &scaled) ? Overflow : Taken;
    }

    Taking TakeDecimal(NumberKind kind, qint64 value)
    {
        if (kind != NumberKind::Unit || value > 9)
            return Refused;
        decimals += QChar(static_cast<char16_t>(u'0' + value));
        return Taken;
    }

    bool negative = false;
    bool hasValue = false;
    bool hasPoint = false;
    qint64 total = 0;
    qint64 group = 0;
    QString decimals;
};

// A run of letters, digits and underscores in the line.
struct Word {
    qsizetype start = 0;
    qsizetype end = 0;
    const WordEntry* entry = nullptr; // what the tables say; null if they do not know it
    bool canBeNumber = false;         // no letter, digit or underscore of any script belongs to it or touches it
};

// One walk over the words of a line. The line is copied only from the first rewriting on.
class LineRewriter {
public:
    enum Vocabulary { NumbersOnly, OperatorsAndNumbers };

    LineRewriter(const QString& line, Vocabulary vocabulary)
        : text(line), original(line), withOperators(vocabulary == OperatorsAndNumbers)
    {
    }

    QString Rewrite()
    {
        for (qsizetype position = 0; position < text.size();)
            position = IsPhraseCharacter(text[position]) ? RewriteWord(WordAt(position)) : position + 1;
        if (written == 0)
            return original;
        return result += text.sliced(written);
    }

private:
    Word WordAt(qsizetype start) const
    {
        WordKey key = 0;
        bool lettersOnly = true;
        bool asciiOnly = true;
        qsizetype end = start;
        for (; end < text.size() && IsPhraseCharacter(text[end]); ++end) {
            const QChar c = text[end];
            lettersOnly = lettersOnly && (IsAsciiLetter(c) || c == longS);
            asciiOnly = asciiOnly && c != longS;
            key = NextKey(key, c == longS ? QChar(u'S') : c);
        }
        Word word{start, end};
        if (lettersOnly && end - start <= longestKey)
            word.entry = FindWord(key);
        word.canBeNumber = word.entry && word.entry->kind != NumberKind::None && asciiOnly &&
                           !(start > 0 && IsIdentifierPart(text[start - 1])) &&
                           !(end < text.size() && IsIdentifierPart(text[end]));
        return word;
    }

    // Gives where the walk goes on.
    qsizetype RewriteWord(const Word& word)
    {
        if (!word.entry)
            return word.end;
        if (withOperators) {
            for (const OperatorRow* row : word.entry->operators) {
                const qsizetype end = PhraseEnd(text, word.start, row->phrase);
                if (end >= 0 && !LosesWord(text, row, word.start, end))
                    return Write(word.start, end, row->symbol);
            }
        }
        return word.canBeNumber ? RewriteNumber(word) : word.end;
    }

    qsizetype RewriteNumber(const Word& first)
    {
        SpokenNumber number;
        qsizetype end = first.end;
        for (std::optional<Word> word = first; word; word = JoinedNumberWord(word->end)) {
            const SpokenNumber::Taking taking = number.Take(word->entry->kind, word->entry->value);
            if (taking == SpokenNumber::Overflow)
                return EndOfNumberWords(*word);
            if (taking == SpokenNumber::Refused)
                break;
            end = word->end;
        }
        return number.HasValue() ? Write(first.start, end, number.Text()) : end;
    }

    // The number word that belongs to the one that ends at `end`: white space joins, and so do hyphens that touch none.
    std::optional<Word> JoinedNumberWord(qsizetype end) const
    {
        qsizetype start = SkipBlanks(text, end);
        if (start == end) {
            while (start < text.size() && text[start] == u'-')
                ++start;
        }
        if (start == end || start == text.size() || !IsAsciiLetter(text[start]))
            return std::nullopt;
        const Word word = WordAt(start);
        const bool isNumber = word.canBeNumber && !(withOperators && !word.entry->operators.isEmpty());
        return isNumber ? std::optional(word) : std::nullopt;
    }

    qsizetype EndOfNumberWords(Word word) const
    {
        while (const std::optional<Word> next = JoinedNumberWord(word.end))
            word = *next;
        return word.end;
    }

    qsizetype Write(qsizetype start, qsizetype end, QStringView replacement)
    {
        if (written == 0)
            result.reserve(text.size());
        result += text.sliced(written, start - written);
        result += replacement;
        return written = end;
    }

    const QStringView text;
    const QString& original;
    const bool withOperators;
    QString result;
    qsizetype written = 0; // how much of the line stands rewritten in `result`
};

} // namespace

QString WordOp(const QString& text)
{
    return LineRewriter(text, LineRewriter::OperatorsAndNumbers).Rewrite();
}

QString ReplaceNumberWordPhrases(const QString& text)
{
    return LineRewriter(text, LineRewriter::NumbersOnly).Rewrite();
}

QString ReplaceWordPhrase(const QString& text, QStringView phrase, QStringView replacement)
{
    const QString words = phrase.toString().split(u' ', Qt::SkipEmptyParts).join(u' ');
    if (words.isEmpty())
        return text;
    QString result;
    qsizetype written = 0;
    for (qsizetype position = 0; position < text.size(); ++position) {
        const bool atStart = position == 0 || !IsPhraseCharacter(text[position - 1]);
        const qsizetype end = atStart ? PhraseEnd(text, position, words) : -1;
        if (end < 0)
            continue;
        result += QStringView(text).sliced(written, position - written);
        result += replacement;
        written = end;
        position = end - 1;
    }
    return written == 0 ? text : result += QStringView(text).sliced(written);
}

bool IsNumberWord(QStringView word)
{
    qint64 value = 0;
    return KindOfWord(word, value) != NumberKind::None;
}

bool IsNumberUnit(QStringView word, long long& value)
{
    qint64 found = 0;
    const bool isUnit = KindOfWord(word, found) == NumberKind::Unit;
    if (isUnit)
        value = found;
    return isUnit;
}

bool IsNumberTens(QStringView word, long long& value)
{
    qint64 found = 0;
    const bool isTen = KindOfWord(word, found) == NumberKind::Ten;
    if (isTen)
        value = found;
    return isTen;
}
