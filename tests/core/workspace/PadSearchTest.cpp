#include "core/workspace/PadSearch.h"
#include "../Table.h"

#include "core/workspace/PatternSearch.h"

#include <QRandomGenerator>

class PadSearchTest : public QObject {
    Q_OBJECT

private slots:
    void Matches_data();
    void Matches() { CheckRow(); }
    void PiecesDoNotShow();
    void LargePads_data();
    void LargePads() { CheckRow(); }
};

namespace {

const QString error = "error: ";

// The matches as "position+length", or the error.
QString Found(const QString& text, const QString& sought, const QString& options)
{
    bool ok = false;
    QString message;
    const auto matches =
        BuildSearchMatches(text, {sought, options.contains("case"), options.contains("regex")}, ok, message);
    if (!ok)
        return error + message;
    QStringList found;
    for (const SearchMatch& match : matches)
        found += QString("%1+%2").arg(match.position).arg(match.length);
    return found.join(' ');
}

} // namespace

void PadSearchTest::Matches_data()
{
    const Table row([](const QString& text, const QString& sought, const QString& options, const QString& found) {
        QCOMPARE(Found(text, sought, options), found);
    });
    const QString pad = "Car 12\ncar 3\nCARGO";
    // clang-format off
    row("a word, in any case",                  pad,      "car",            "",           "0+3 7+3 13+3");
    row("a word in its case",                   pad,      "car",            "case",       "7+3");
    row("two words, in the pad's order",        pad,      "go car",         "",           "0+3 7+3 13+3 16+2");
    row("one of two is missing",                pad,      "car boat",       "",           "");
    row("a phrase",                             pad,      "\"car 3\"",      "",           "7+5");
    row("no phrase across lines",               pad,      "\"12 car\"",     "",           "");
    row("an excluded word that is there",       pad,      "car -12",        "",           "");
    row("an excluded word that is not",         pad,      "car -boat",      "",           "0+3 7+3 13+3");
    row("an excluded pattern that takes all",   pad,      "car -*",         "",           "");
    row("matches of two terms overlap",         "abcd",   "abc bcd",        "",           "0+3 1+3");
    row("the same match of two terms is one",   "abc",    "abc a?c",        "",           "0+3");
    row("at one place the shorter comes first", "abc",    "abc a",          "",           "0+1 0+3");
    row("any text takes as little as it can",   "a1b2b",  "a*b",            "",           "0+3");
    row("any text ends with the line",          "a\nb",   "a*b",            "",           "");
    row("a digit",                              pad,      "#",              "",           "4+1 5+1 11+1");
    row("a digit that no calculation reads",    QString::fromUtf8("\xd9\xa3"), "#", "",  "");
    row("a bracket alone",                      "x[1",    "[",              "",           "1+1");
    row("an expression",                        pad,      "car\\s\\d",      "regex",      "0+5 7+5");
    row("an expression in its case",            pad,      "Car\\s\\d",      "regex case", "0+5");
    row("an expression with blanks and quotes", "a \"b",  " \"b",           "regex",      "1+3");
    row("no empty match",                       "aXbX",   "X*",             "regex",      "1+1 3+1");
    row("nothing but empty matches",            "ab",     "^|$|(?=b)",      "regex",      "");
    row("a look behind",                        pad,      "(?<=car )\\d",   "regex",      "4+1 11+1");
    row("an accent and its letter's case",      QString::fromUtf8("\xc3\x89t\xc3\xa9"), QString::fromUtf8("\xc3\xa9"), "", "0+1 2+1");
    row("a character of two units is one",      QString::fromUtf8("a\xf0\x9f\x98\x80z"), "a?z", "",         "0+4");
    row("half a character in the pad",          "a" + QString(QChar(0xd83d)) + "b 5", "b", "",              "2+1");
    row("a whole one beside a half",            QString::fromUtf16(u"\xd83d\U0001F600"), QString::fromUtf16(u"\U0001F600"), "",  "1+2");
    row("half a character sought",              "ab",     QString(QChar(0xde00)), "",     "");
    row("a far beginning without its end",      QString::fromUtf16(u"\U0001F600") + QString(300'000, 'a') + 'b', QString::fromUtf16(u"\U0001F600.*z|b"), "regex", "300002+1");
    row("an empty pad",                         "",       "a",              "",           "");
    row("no text",                              pad,      "",               "",           error + "Enter text to find");
    row("blanks are no text",                   pad,      "  ",             "",           error + "Enter text to find");
    row("blanks are an expression",             "a  b",   "  ",             "regex",      "1+2");
    row("nothing positive",                     pad,      "-car -boat",     "",           error + "Enter at least one term to find");
    row("an invalid expression",                pad,      "(",              "regex",      error + "Invalid regular expression");
    row("an invalid set",                       pad,      "[z-a]",          "",           error + "Invalid wildcard expression");
    row("an invalid set to exclude",            pad,      "car -[z-a]",     "",           error + "Invalid wildcard expression");
    const QString as = QString(40, 'a');
    row("an expression without an end",         as + "b", "(a+)+c|(a|aa)+d", "regex",     error + "Invalid regular expression");
    row("wildcards without an end",             QString(300, 'a'), "a*a*a*a*a*a*a*a*[bc]", "", error + "Invalid wildcard expression");
    // clang-format on
}

// A long text is searched in pieces. What is found must be what one search of the whole finds.
void PadSearchTest::PiecesDoNotShow()
{
    QRandomGenerator random(7);
    QString text;
    while (text.size() < 200'000)
        text += QString(random.bounded(1, 4000), u"ab1 \n"[random.bounded(5)]) + "xyz";
    for (const char* pattern :
         {"a+", "xyz", "b+\\s?x", "(?s)a.{0,5000}z", "(?<=x)yz", "\\d+$", "(?m)^x", "z\\b", "yz(?!1)"}) {
        QString expected;
        const QRegularExpression plain(pattern, QRegularExpression::CaseInsensitiveOption);
        for (const auto& match : plain.globalMatch(text)) {
            if (match.capturedLength() > 0)
                expected += QString("%1+%2 ").arg(match.capturedStart()).arg(match.capturedLength());
        }
        QVERIFY2(Found(text, pattern, "regex") == expected.trimmed(), pattern);
    }
}

void PadSearchTest::LargePads_data()
{
    const Table row([](const QString& line, const QString& sought, const QString& options, const QString& outcome) {
        const QString found = Found(line.repeated(100'000), sought, options);
        QCOMPARE(found.startsWith(error) ? found : QString::number(found.count(' ') + 1), outcome);
    });
    // clang-format off
    row("a word in every line",         "12*(3+4)\n", "3+4",                 "",      "100000");
    row("an expression for each digit", "12*(3+4)\n", "\\d",                 "regex", "400000");
    row("no line at all, characters of two units", QString::fromUtf16(u"a\U0001F600"), "?a", "", "99999");
    row("slow in every line",           QString(22, 'a') + "\n", "(a+)+b",   "regex", error + "Invalid regular expression");
    row("slow over the whole",          "12*(3+4)\n", "(?s)(.*)(.*)(.*)=x",  "regex", error + "Invalid regular expression");
    // clang-format on
}

QTEST_GUILESS_MAIN(PadSearchTest)
#include "PadSearchTest.moc"
