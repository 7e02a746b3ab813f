#include "core/workspace/FriendlySearch.h"

#include <QTest>

class FriendlySearchTest : public QObject {
    Q_OBJECT

private slots:
    void Terms_data();
    void Terms();
    void Pattern_data();
    void Pattern();
};

// Each term in angle brackets, with a minus before one to exclude: as the pad reads the text, and as the log does.
void FriendlySearchTest::Terms_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pad");
    QTest::addColumn<QString>("log");
    // clang-format off
    QTest::newRow("nothing")                            << ""                 << ""                 << "";
    QTest::newRow("blanks alone")                       << " \t  "            << ""                 << "";
    QTest::newRow("words")                              << " one  two "       << "<one><two>"       << "<one><two>";
    QTest::newRow("a phrase keeps its blanks")          << "\" a  b \" c"     << "< a  b ><c>"      << "< a  b ><c>";
    QTest::newRow("an excluded word")                   << "a -b"             << "<a>-<b>"          << "<a>-<b>";
    QTest::newRow("an excluded phrase")                 << "-\"a b\""         << "-<a b>"           << "-<a b>";
    QTest::newRow("a minus on its own")                 << "- b"              << "-<b>"             << "<-><b>";
    QTest::newRow("a minus at the end")                 << "a -"              << "<a>"              << "<a><->";
    QTest::newRow("two minuses")                        << "--a"              << "-<-a>"            << "-<-a>";
    QTest::newRow("a minus within a word")              << "a-b"              << "<a-b>"            << "<a-b>";
    QTest::newRow("a phrase without an end")            << "\"a b"            << "<a b>"            << "<\"a><b>";
    QTest::newRow("an empty phrase")                    << "\"\" a"           << "<a>"              << "<a>";
    QTest::newRow("an empty phrase that is excluded")   << "a -\"\""          << "<a>"              << "<a>";
    QTest::newRow("a quote within a word")              << "a\"b c\""         << "<a\"b><c\">"      << "<a\"b><c\">";
    QTest::newRow("a phrase ends at its quote")         << "\"a\"b"           << "<a><b>"           << "<a><b>";
    QTest::newRow("breaks are blanks in the pad")                  << QString("a\u2028b\u2029c") << "<a><b><c>" << QString("<a\u2028b\u2029c>");
    // clang-format on
}

void FriendlySearchTest::Terms()
{
    QFETCH(QString, text);
    const auto shown = [&](SearchDialect dialect) {
        QString all;
        for (const FriendlySearchTerm& term : ParseFriendlySearchTerms(text, dialect))
            all += (term.excluded ? "-<" : "<") + term.text + ">";
        return all;
    };
    QTEST(shown(SearchDialect::Pad), "pad");
    QTEST(shown(SearchDialect::Log), "log");
}

void FriendlySearchTest::Pattern_data()
{
    QTest::addColumn<QString>("term");
    QTest::addColumn<QString>("pad");
    QTest::addColumn<QString>("log");
    const auto both = [](const char* rule, const QString& term, const QString& pattern) {
        QTest::newRow(rule) << term << pattern << pattern;
    };
    // clang-format off
    QTest::newRow("any text") << "a*b" << "a.*?b" << "a.*b";
    both("one character",                              "a?b",          "a.b");
    both("one digit",                                  "#",            "\\d");
    both("a set",                                      "[abc]",        "[abc]");
    both("a range",                                    "[a-z]",        "[a-z]");
    both("all but a set",                              "[!abc]",       "[^abc]");
    both("all but nothing",                            "[!]",          "[^]");
    both("a set with what is special in it",           "[a\\b^]",      "[a\\\\b\\^]");
    both("a set of a bracket",                         "[[]",          "[[]");
    both("no name of a class in a set",                "[[:alpha:]",   "[\\[:alpha:]");
    both("a bracket that none closes",                 "a[b",          "a\\[b");
    both("brackets with nothing in them",              "[]",           "\\[\\]");
    both("brackets closed at once, and once more",     "[]a]",         "\\[\\]a\\]");
    both("what is special to expressions is itself",   "(1+2).^$|{}",  "\\(1\\+2\\)\\.\\^\\$\\|\\{\\}");
    both("a character beyond the first plane",         QString::fromUtf8("\xf0\x9f\x98\x80"), QString::fromUtf8("\\\xf0\x9f\x98\x80"));
    // clang-format on
}

void FriendlySearchTest::Pattern()
{
    QFETCH(QString, term);
    QTEST(WildcardTermToRegularExpression(term, SearchDialect::Pad), "pad");
    QTEST(WildcardTermToRegularExpression(term, SearchDialect::Log), "log");
}

QTEST_GUILESS_MAIN(FriendlySearchTest)
#include "FriendlySearchTest.moc"
