#include "core/workspace/FriendlySearch.h"
#include "../Table.h"

class FriendlySearchTest : public QObject {
    Q_OBJECT

private slots:
    void Terms_data();
    void Terms() { CheckRow(); }
    void Pattern_data();
    void Pattern() { CheckRow(); }
};

// Each term in angle brackets, with a minus before one to exclude: as the pad reads the text, and as the log does.
void FriendlySearchTest::Terms_data()
{
    const Table row([](const QString& text, const QString& pad, const QString& log) {
        const auto shown = [&](SearchDialect dialect) {
            QString all;
            for (const FriendlySearchTerm& term : ParseFriendlySearchTerms(text, dialect))
                all += (term.excluded ? "-<" : "<") + term.text + ">";
            return all;
        };
        QCOMPARE(shown(SearchDialect::Pad), pad);
        QCOMPARE(shown(SearchDialect::Log), log);
    });
    // clang-format off
    row("nothing",                            "",                 "",                 "");
    row("blanks alone",                       " \t  ",            "",                 "");
    row("words",                              " one  two ",       "<one><two>",       "<one><two>");
    row("a phrase keeps its blanks",          "\" a  b \" c",     "< a  b ><c>",      "< a  b ><c>");
    row("an excluded word",                   "a -b",             "<a>-<b>",          "<a>-<b>");
    row("an excluded phrase",                 "-\"a b\"",         "-<a b>",           "-<a b>");
    row("a minus on its own",                 "- b",              "-<b>",             "<-><b>");
    row("a minus at the end",                 "a -",              "<a>",              "<a><->");
    row("two minuses",                        "--a",              "-<-a>",            "-<-a>");
    row("a minus within a word",              "a-b",              "<a-b>",            "<a-b>");
    row("a phrase without an end",            "\"a b",            "<a b>",            "<\"a><b>");
    row("an empty phrase",                    "\"\" a",           "<a>",              "<a>");
    row("an empty phrase that is excluded",   "a -\"\"",          "<a>",              "<a>");
    row("a quote within a word",              "a\"b c\"",         "<a\"b><c\">",      "<a\"b><c\">");
    row("a phrase ends at its quote",         "\"a\"b",           "<a><b>",           "<a><b>");
    row("breaks are blanks in the pad",                  QString("a\u2028b\u2029c"), "<a><b><c>", QString("<a\u2028b\u2029c>"));
    // clang-format on
}

void FriendlySearchTest::Pattern_data()
{
    const Table row([](const QString& term, const QString& pad, const QString& log) {
        QCOMPARE(WildcardTermToRegularExpression(term, SearchDialect::Pad), pad);
        QCOMPARE(WildcardTermToRegularExpression(term, SearchDialect::Log), log);
    });
    const auto both = [&row](const char* rule, const QString& term, const QString& pattern) {
        row(rule, term, pattern, pattern);
    };
    // clang-format off
    row("any text", "a*b", "a.*?b", "a.*b");
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

QTEST_GUILESS_MAIN(FriendlySearchTest)
#include "FriendlySearchTest.moc"
