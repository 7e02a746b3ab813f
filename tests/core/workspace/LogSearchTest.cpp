#include "core/workspace/LogSearch.h"
#include "../Table.h"

#include <array>

namespace {

const QDeadlineTimer noTime(0);

SearchResult RunToEnd(PatternSearch& search, int& slices)
{
    for (slices = 1;; ++slices) {
        const SearchResult result = search.Continue(noTime);
        if (result != SearchResult::Unfinished || slices == 100000)
            return result;
    }
}

// Lines as a log has them, with characters of one and of two units.
QString Filler(qsizetype size)
{
    QString text;
    for (int i = 0; text.size() < size; ++i)
        text += QString::number(i) + QString::fromUtf8(i % 7 == 0 ? " + 12*RATE 𝛑𝛑\n" : " + SQRT(4) MONTHLY=3\n");
    return text;
}

// The needle stands around the places where pieces can end, at the ends of the text, and nowhere.
QStringList TextsWithNeedles()
{
    const QString lines = Filler(600000);
    QStringList texts;
    for (const QString& base : {lines, QString(lines).replace('\n', ' ')}) {
        for (const qsizetype place : {0, 30, 16381, 16384, 81917, 344061, 599990}) {
            const qsizetype between = base[place].isLowSurrogate() ? place + 1 : place;
            const QString text = QString(base).insert(between, place % 2 == 0 ? "needle" : "needle\n");
            texts << text << text.first(40000) << text + "\nneedle";
        }
    }
    return texts;
}

} // namespace

class LogSearchTest : public QObject {
    Q_OBJECT

private slots:
    void PiecesAsTheWhole_data();
    void PiecesAsTheWhole() { CheckRow(); }
    void Costly_data();
    void Costly() { CheckRow(); }
    void Days_data();
    void Days() { CheckRow(); }
    void InvalidTerms_data();
    void InvalidTerms() { CheckRow(); }
};

void LogSearchTest::PiecesAsTheWhole_data()
{
    const Table row([](const QString& pattern) {
        const QRegularExpression expression = SearchExpression(pattern, Qt::CaseSensitive);
        QVERIFY(expression.isValid());
        static const QStringList texts = TextsWithNeedles();
        for (const QString& text : texts) {
            PatternSearch search(expression, text);
            int slices = 0;
            const bool found = expression.match(text).hasMatch();
            QCOMPARE(RunToEnd(search, slices), found ? SearchResult::Found : SearchResult::Absent);
        }
    });
    // clang-format off
    for (const char* pattern :
         {"needle", "NEEDLE", "n.*e", "needle$", "(?m)needle$", "(?m)^needle", "^needle", "needle\\z", "needle\\Z",
          "\\bneedle\\b", "needle\\B", "(?<=\\n)needle", "(?<!\\n)needle", "needle(?=\\n)", "needle(?!\\n)",
          "needle(?=\\nx)", "(?s)needle.{5}", "(?s)needle.*MONTHLY", "(?s)\\n12 .*needle", "(?s)\\n12 .*?needle\\s",
          "needle[^x]+RATE", "(n)(e)\\2dle", "needle\\R", "needle|pin", "(?s)needle.\\K.", "x*needle", "needle\\d*$",
          "\\Gneedle", "x(*COMMIT)y|needle", "needle(?s).+", "needle\\X\\X", "𝛑needle", "[^\\n]needle", "needle.",
          "\\A(?s).*needle", ".*needle", "(?s).*needle", "needle\\s*\\n\\s*\\d", "(?<=ne)edle\\n\\d",
          "(?s)(?<=\\n12 \\+).*needle"}) {
        row(pattern, pattern);
    }
    // clang-format on
}

void LogSearchTest::Costly_data()
{
    const Table row([](const QString& pattern, const QString& text, SearchResult result) {
        PatternSearch search(SearchExpression(pattern, Qt::CaseInsensitive), text);
        int slices = 0;
        QCOMPARE(RunToEnd(search, slices), result);
        QVERIFY(text.size() < 200000 || slices > 2);
    });
    const QString letters(2000, 'a');
    // clang-format off
    row("more and more ways to the same end", "(a+)+$",    letters + "!\n",                SearchResult::Failed);
    row("also in a later piece",              "(a+)+$",    Filler(300000) + letters + "!", SearchResult::Failed);
    row("more depth than there is memory",    "(a|b)*x",   letters.repeated(50) + "x",     SearchResult::Failed);
    row("only many steps",                    ".*=.*=.*x", Filler(3000000),                SearchResult::Absent);
    // clang-format on
}

void LogSearchTest::Days_data()
{
    const Table row([](const QString& text, bool caseSensitive, const QList<qsizetype>& matching) {
        const std::array<QString, 4> texts{"MORTGAGE\n--\n[a] PAYMENT\nCAR\n", "Mortgage\nx=4\n",
                                           "MORTGAGE PAYMENT\ny=5\n", "rate=3\n5+(2)\n"};
        QList<LogDay> days;
        for (const QString& day : texts) // longer than a piece, so that a day goes on where it was left
            days.append({QDate(2026, 11, 30).addDays(-days.size()), QString(40'000, '.') + '\n' + day});
        QList<SearchTerm> terms;
        QString error;
        QVERIFY(BuildFriendlySearchTerms(text, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive, terms, error));
        LogSearch search(days, terms);
        while (search.Continue(noTime) == SearchResult::Unfinished) {
        }
        QCOMPARE(search.MatchingDays(), matching);
    });
    using Indices = QList<qsizetype>;
    // clang-format off
    row("nothing: every day",                 "",                       false, Indices{0, 1, 2, 3});
    row("blanks too",                         "  ",                     false, Indices{0, 1, 2, 3});
    row("a word in any case",                 "mortgage",               false, Indices{0, 1, 2});
    row("a word in its case",                 "MORTGAGE",               true,  Indices{0, 2});
    row("all words, from different entries",  "mortgage payment",       false, Indices{0, 2});
    row("a phrase stays together",            "\"mortgage payment\"",   false, Indices{2});
    row("no day with an excluded word",       "mortgage -car",          false, Indices{1, 2});
    row("an excluded word alone",             "-mortgage",              false, Indices{3});
    row("an excluded phrase",                 "-\"mortgage payment\"",  false, Indices{0, 1, 3});
    row("any text, within a line",            "mort*payment",           false, Indices{2});
    row("one character and a digit",          "r?te=#",                 false, Indices{3});
    row("a set",                              "[x-z]=[!5]",             false, Indices{1});
    row("an open bracket is itself",          "[a",                     false, Indices{0});
    row("what is special to expressions is itself", "5+(2",             false, Indices{3});
    row("nowhere",                            "mortgage -mortgage",     false, Indices{});
    // clang-format on
}

void LogSearchTest::InvalidTerms_data()
{
    const Table row([](const QString& text) {
        QList<SearchTerm> terms{{}};
        QString error;
        QVERIFY(!BuildFriendlySearchTerms(text, Qt::CaseInsensitive, terms, error));
        QVERIFY(terms.isEmpty());
        QVERIFY(!error.isEmpty() && error != "no error");
    });
    row("a range the wrong way round", "[z-a]");
    row("behind a valid term", "mortgage [z-a]");
    row("an excluded one", "-[z-a]");
}

QTEST_GUILESS_MAIN(LogSearchTest)
#include "LogSearchTest.moc"
