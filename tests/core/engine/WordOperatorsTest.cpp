#include "core/engine/WordOperators.h"
#include "../Table.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The plain rewriting that the walk must agree with: row by row over the whole line, then number spans tried from the
// longest down. A minus that comes from a word is kept apart until the end, as it never joins two numbers.

const QChar minusOfWord(0xE000);

const QStringList phrases =
    u"RAISED TO THE POWER OF|TO THE POWER OF|RAISED TO|MULTIPLIED BY|DIVIDED BY|ADDED TO|EQUALS|EQUAL|"
    "PLUS|ADD|ADDED|MINUS|SUBTRACT|SUBTRACTED|MULTIPLY|MULTIPLIED|TIMES|OF|DIVIDE|DIVIDED|OVER|"
    "POWER|EXPONENT|POSITIVE|NEGATIVE"_s.split(u'|');
const QString symbols = u"^^^*/+==+++\uE000\uE000\uE000****///^^+\uE000"_s;
const QStringList units =
    u"ZERO ONE TWO THREE FOUR FIVE SIX SEVEN EIGHT NINE TEN ELEVEN TWELVE THIRTEEN FOURTEEN FIFTEEN SIXTEEN SEVENTEEN "
    "EIGHTEEN NINETEEN"_s.split(u' ');
const QStringList tens = u"TWENTY THIRTY FORTY FIFTY SIXTY SEVENTY EIGHTY NINETY"_s.split(u' ');
const QStringList scales = u"THOUSAND MILLION BILLION TRILLION"_s.split(u' ');
const QStringList others = u"HUNDRED POINT NEGATIVE"_s.split(u' ');

bool IsPlainNumberWord(const QString& word)
{
    const QString upper = word.toUpper();
    return units.contains(upper) || tens.contains(upper) || scales.contains(upper) || others.contains(upper);
}

enum class Outcome { Fails, Works, Overflows };

Outcome PlainInteger(const QStringList& words, quint64& value)
{
    long double total = 0;
    long double group = 0;
    for (const QString& word : words) {
        if (units.contains(word))
            group += units.indexOf(word);
        else if (tens.contains(word))
            group += 20 + 10 * tens.indexOf(word);
        else if (word == u"HUNDRED")
            group = group != 0 ? group * 100 : 100;
        else if (scales.contains(word)) {
            total += (group != 0 ? group : 1) * std::pow(1000.0L, 1 + scales.indexOf(word));
            group = 0;
        } else
            return Outcome::Fails;
        if (total + group > 9223372036854775807.0L)
            return Outcome::Overflows;
    }
    value = static_cast<quint64>(total + group);
    return Outcome::Works;
}

Outcome PlainNumber(const QString& span, QString& number)
{
    QStringList words = QString(span).replace(u'-', u' ').toUpper().simplified().split(u' ');
    const bool negative = words.first() == u"NEGATIVE";
    if (negative)
        words.removeFirst();
    if (words.isEmpty() || words.count(u"POINT"_s) > 1)
        return Outcome::Fails;
    const qsizetype point = words.indexOf(u"POINT"_s);
    quint64 value = 0;
    const Outcome outcome = PlainInteger(words.mid(0, point), value);
    if (outcome != Outcome::Works)
        return outcome;
    number = (negative ? u"-"_s : QString()) + QString::number(value);
    const QStringList decimals = point < 0 ? QStringList() : words.mid(point + 1);
    for (qsizetype i = 0; i < decimals.size(); ++i) {
        const qsizetype digit = units.indexOf(decimals[i]);
        if (digit < 0 || digit > 9)
            return Outcome::Fails;
        number += (i == 0 ? u"."_s : QString()) + QString::number(digit);
    }
    return Outcome::Works;
}

bool IsBoundary(const QString& text, qsizetype position)
{
    return position < 0 || position >= text.size() || !(text[position].isLetterOrNumber() || text[position] == u'_');
}

QString PlainNumberWords(QString text)
{
    static const QRegularExpression word(u"[A-Za-z]+"_s);
    static const QRegularExpression joint(u"^(\\s+|-+)$"_s);
    QList<QRegularExpressionMatch> matches;
    const auto collect = [&] {
        matches.clear();
        for (auto it = word.globalMatch(text); it.hasNext();)
            matches += it.next();
    };
    collect();
    for (qsizetype i = 0; i < matches.size(); ++i) {
        if (!IsPlainNumberWord(matches[i].captured()))
            continue;
        qsizetype last = i;
        while (last + 1 < matches.size() && IsPlainNumberWord(matches[last + 1].captured()) &&
               joint
                   .match(text.mid(matches[last].capturedEnd(),
                                   matches[last + 1].capturedStart() - matches[last].capturedEnd()))
                   .hasMatch())
            ++last;
        for (qsizetype j = last; j >= i; --j) {
            const qsizetype start = matches[i].capturedStart();
            const qsizetype end = matches[j].capturedEnd();
            if (!IsBoundary(text, start - 1) || !IsBoundary(text, end))
                continue;
            QString number;
            const Outcome outcome = PlainNumber(text.mid(start, end - start), number);
            if (outcome == Outcome::Fails)
                continue;
            if (outcome == Outcome::Overflows) {
                i = IsBoundary(text, matches[last].capturedEnd()) ? last : last - 1;
                break;
            }
            text.replace(start, end - start, number);
            collect();
            i = -1;
            break;
        }
    }
    return text;
}

QRegularExpression PhrasePattern(const QString& phrase)
{
    return QRegularExpression(u"(?<![A-Za-z0-9_])"_s + phrase.split(u' ').join(u"\\s+"_s) + u"(?![A-Za-z0-9_])"_s,
                              QRegularExpression::CaseInsensitiveOption);
}

QString PlainWordOp(QString text)
{
    static const QList<QRegularExpression> patterns = [] {
        QList<QRegularExpression> list;
        for (const QString& phrase : phrases)
            list += PhrasePattern(phrase);
        return list;
    }();
    for (qsizetype i = 0; i < patterns.size(); ++i)
        text.replace(patterns[i], symbols.sliced(i, 1));
    return PlainNumberWords(text).replace(minusOfWord, u'-');
}

// Lines of words that meet in every way: phrases that overlap, odd white space, hyphens, neighbours that make or do
// not make an identifier. `vocabulary` sets which words are frequent.
QString RandomLine(QRandomGenerator& random, const QStringList& vocabulary)
{
    static const QStringList gaps =
        u" | | | |  |\t |-| - |--| -|- |\u00A0|_|2||é|\u017F|\u212A|(|+|\u0662|\U0001F600"_s.split(u'|');
    QString line;
    for (int i = random.bounded(1, 14); i > 0; --i) {
        QString word = vocabulary[random.bounded(static_cast<int>(vocabulary.size()))];
        if (random.bounded(2))
            word = word.toLower();
        if (random.bounded(20) == 0)
            word.replace(u'S', u'\u017F');
        line += word + gaps[random.bounded(random.bounded(3) ? 5 : static_cast<int>(gaps.size()))];
    }
    return line;
}

} // namespace

class WordOperatorsTest : public QObject {
    Q_OBJECT

private slots:
    void Lines_data();
    void Lines() { CheckRow(); }
    void AgreesWithTheRowsInTheirOrder_data();
    void AgreesWithTheRowsInTheirOrder() { CheckRow(); }
    void PhrasesAgreeWithTheirPattern();
    void ALineWithoutWordsIsShared();
    void LongLinesTakeLinearTime_data();
    void LongLinesTakeLinearTime() { CheckRow(); }
    void NumberWords();
};

void WordOperatorsTest::Lines_data()
{
    const Table row([](const QString& line, const QString& rewritten) { QCOMPARE(WordOp(line), rewritten); });
    // clang-format off
    row("words and numbers, any case",    "x equals five Divided bY SIX",     "x = 5 / 6");
    row("the longest phrase",             "2 raised to the  power of 3",      "2 ^ 3");
    row("an earlier phrase has the word", "2 added to the power of 3",        "2 + ^ 3");
    row("tens and units, a hyphen",       "twenty-five, twenty five",         "25, 25");
    row("scales",                         "two thousand three hundred five",  "2305");
    row("another word ends a number",     "one hundred and five",             "100 and 5");
    row("decimals",                       "point five, three point one four", "0.5, 3.14");
    row("decimals are single digits",     "ten point twelve",                 "10 12");
    row("order is not tested",            "five twenty",                      "25");
    row("minus is an operator",           "minus five",                       "- 5");
    row("minus never joins",              "ten minus four",                   "10 - 4");
    row("minus never joins by hyphens",   "ten-minus-four",                   "10---4");
    row("a blank makes a hyphen a minus", "ten -four",                        "10 -4");
    row("identifiers stay",               "2five X_OF plush five_2 éfive",    "2five X_OF plush five_2 éfive");
    row("nine times hundred fits",        "hundred hundred hundred hundred hundred hundred hundred hundred hundred", "1000000000000000000");
    row("beyond 64 bits stays in words",  "two + one hundred hundred hundred hundred hundred hundred hundred hundred-hundred-hundred six", "2 + one hundred hundred hundred hundred hundred hundred hundred hundred-hundred-hundred six");
    row("the sum of the groups counts",   "nine hundred hundred hundred trillion ninety hundred hundred hundred hundred hundred hundred hundred hundred", "nine hundred hundred hundred trillion ninety hundred hundred hundred hundred hundred hundred hundred hundred");
    // clang-format on
}

void WordOperatorsTest::AgreesWithTheRowsInTheirOrder_data()
{
    const Table row([](const QStringList& vocabulary) {
        QRandomGenerator random(20240617);
        for (int i = 0; i < 8000; ++i) {
            const QString line = RandomLine(random, vocabulary);
            const QString rewritten = WordOp(line);
            QVERIFY2(rewritten == PlainWordOp(line), qPrintable(line + u" -> "_s + rewritten));
            QCOMPARE(WordOp(rewritten), rewritten);
            QCOMPARE(ReplaceNumberWordPhrases(line), PlainNumberWords(line));
        }
    });
    const QStringList operators = phrases + u"THE TO RAISED BY PLUSH x"_s.split(u' ');
    const QStringList numbers = units + tens + scales + others;
    row("operators", operators);
    row("pieces of phrases", u"ADDED TO RAISED TO THE POWER OF MULTIPLIED DIVIDED BY TO THE POWER OF"_s.split(u' '));
    row("numbers", numbers);
    row("signs and points", u"ONE TWELVE SIX POINT POINT NEGATIVE NINETY"_s.split(u' '));
    row("overflow", u"HUNDRED HUNDRED HUNDRED TRILLION POINT TWELVE"_s.split(u' '));
    row("all", operators + numbers);
}

void WordOperatorsTest::PhrasesAgreeWithTheirPattern()
{
    QRandomGenerator random(7);
    const QStringList words = u"RAISED TO TO THE POWER OF"_s.split(u' ');
    for (int i = 0; i < 2000; ++i) {
        const QString line = RandomLine(random, words);
        const QString phrase = words.mid(random.bounded(4), random.bounded(1, 3)).join(u' ');
        const QString expected = QString(line).replace(PhrasePattern(phrase), u"<>"_s);
        QCOMPARE(ReplaceWordPhrase(line, QString(u" "_s + phrase), u"<>"), expected);
    }
    QCOMPARE(ReplaceWordPhrase(u"a b"_s, u"  ", u"<>"), u"a b"_s);
}

void WordOperatorsTest::ALineWithoutWordsIsShared()
{
    const QString line = u"2*SIN(x_of) + 0x1F - plush/twofold"_s;
    QCOMPARE(WordOp(line).constData(), line.constData());
    QVERIFY(WordOp(QString()).isEmpty());
}

void WordOperatorsTest::LongLinesTakeLinearTime_data()
{
    const Table row([](const QString& line, const QString& start) {
        const QString rewritten = WordOp(line);
        QVERIFY2(rewritten.startsWith(start), qPrintable(rewritten.left(40)));
    });
    const auto repeated = [](const QString& piece) { return piece.repeated(100'000); };
    // clang-format off
    row("one number",                 repeated(u"one "_s),      u"100000 "_s);
    row("a point each",               repeated(u"point "_s),    u"0 0 0"_s);
    row("long decimals",              u"point "_s + repeated(u"one "_s), u"0.1111"_s);
    row("more than 64 bits",          repeated(u"hundred "_s),  u"hundred hundred"_s);
    row("the last word is no number", repeated(u"one "_s) + u"six2"_s, u"100000 six2"_s);
    row("operators",                  repeated(u"added to the power of "_s), u"+ ^ + ^"_s);
    // clang-format on
}

void WordOperatorsTest::NumberWords()
{
    long long value = -1;
    QVERIFY(IsNumberUnit(u"NINETEEN", value));
    QCOMPARE(value, 19);
    QVERIFY(IsNumberTens(u"NINETY", value));
    QCOMPARE(value, 90);
    for (const QStringView word : {u"TWENTY", u"HUNDRED", u"POINT", u"PLUS", u"\u017FIX", u""})
        QVERIFY2(!IsNumberUnit(word, value), qPrintable(word.toString()));
    QVERIFY(IsNumberWord(u"HUNDRED") && IsNumberWord(u"NEGATIVE") && IsNumberWord(u"POINT"));
    QVERIFY(!IsNumberWord(u"PLUS") && !IsNumberTens(u"TEN", value));
}

QTEST_APPLESS_MAIN(WordOperatorsTest)
#include "WordOperatorsTest.moc"
