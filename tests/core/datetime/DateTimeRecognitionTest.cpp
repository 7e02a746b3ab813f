#include "../Table.h"
#include "core/datetime/DateTimeLanguage.h"

#include <QRandomGenerator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

class DateTimeRecognitionTest : public QObject {
    Q_OBJECT

private slots:
    void Line_data();
    void Line() { CheckRow(); }
    void SaysWhatThePatternSays();
};

void DateTimeRecognitionTest::Line_data()
{
    const Table row(
        [](const QString& line, bool recognised) { QCOMPARE(ExpressionLooksLikeDateTimeLanguage(line), recognised); });
    // clang-format off
    row("a time anywhere",                        u"2 * (1:30)"_s,         true);
    row("a time that cannot be",                  u"1:60"_s,               true);
    row("one digit of minutes is no time",        u"1:5"_s,                false);
    row("three digits of minutes are no time",    u"1:300"_s,              false);
    row("a ratio of names is no time",            u"A1:30"_s,              false);
    row("AM and PM may touch the digits",         u"1:30pm"_s,             true);
    row("another word may not",                   u"1:30pmx"_s,            false);
    row("a word in any case",                     u"weekday(x)"_s,         true);
    row("a word within a longer one does not count", u"UPDATE + NOWHERE"_s, false);
    row("an underscore belongs to the word",      u"_TODAY"_s,             false);
    row("DAY needs a bracket",                    u"DAY + 1"_s,            false);
    row("the bracket may stand apart",            u"YEAR  ("_s,            true);
    row("plain arithmetic",                       u"2*(3+4)/7 - SQRT(16)"_s, false);
    row("ANS by itself",                          u"ANS + 1"_s,            false);
    row("an empty line",                          u""_s,                   false);
    // clang-format on
}

// The scan against the pattern that defines it, over lines put together from what the pattern looks at.
void DateTimeRecognitionTest::SaysWhatThePatternSays()
{
    const QRegularExpression pattern(u"(?:\\b\\d{1,}:\\d{2}(?::\\d{2})?\\s*(?:AM|PM)?\\b)|"
                                     "(?:\\b(?:DATE|DAYS|AGE|HOUR|MINUTE|SECOND|WEEKDAY|TODAY|NOW)\\b)|"
                                     "(?:\\b(?:DAY|MONTH|YEAR)\\s*\\()"_s,
                                     QRegularExpression::CaseInsensitiveOption);
    const QRegularExpression answer(u"\\bANS\\b"_s, QRegularExpression::CaseInsensitiveOption);
    const QStringList pieces = {u"1"_s, u"30"_s, u"123"_s, u":"_s, u":30"_s, u"1:30"_s, u"am"_s, u"PM"_s, u"A"_s,
                                u"_"_s, u" "_s, u"\t"_s, u"+"_s, u"("_s, u")"_s, u"date"_s, u"DAYS"_s, u"age"_s,
                                u"Hour"_s, u"MINUTE"_s, u"SECON"_s, u"week"_s, u"D"_s, u"tod"_s, u"NOW"_s, u"day"_s,
                                u"Month"_s, u"YEAR"_s, u"ans"_s, u"\u00e9"_s, u"\u00a0"_s, u"\u0663"_s, u"\u2003"_s,
                                u"\U0001d7d8"_s,
                                // the long s and the Kelvin sign, another case of S and of K
                                u"\u017fECOND"_s, u"WEE\u212aDAY"_s, u"DAY\u017f"_s, u"AN\u017f"_s};
    QRandomGenerator random(20260910);
    int matches = 0;
    constexpr int lines = 300'000;
    for (int i = 0; i < lines; ++i) {
        QString line;
        for (quint32 piece = random.bounded(7U) + 1; piece > 0; --piece)
            line += pieces[random.bounded(static_cast<int>(pieces.size()))];
        const bool expected = pattern.match(line).hasMatch();
        matches += expected ? 1 : 0;
        if (ExpressionLooksLikeDateTimeLanguage(line) != expected)
            QFAIL(qPrintable(u"differs from the pattern: \"%1\""_s.arg(line)));
        const bool withAnswer = expected || answer.match(line).hasMatch();
        if (EvaluateDateTimeLanguageInternal(line, {}, true, u"1:30"_s).recognised != withAnswer)
            QFAIL(qPrintable(u"differs from the pattern beside an answer: \"%1\""_s.arg(line)));
    }
    QVERIFY2(matches > lines / 5 && matches < lines * 4 / 5, "the lines must try both outcomes");
}

QTEST_APPLESS_MAIN(DateTimeRecognitionTest)
#include "DateTimeRecognitionTest.moc"
