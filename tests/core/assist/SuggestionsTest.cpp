#include "core/assist/Suggestions.h"
#include "../Table.h"

#include "core/Calculator.h"

#include <QElapsedTimer>

namespace {

CalculatorOptions options;

Calculator Workspace()
{
    Calculator calculator({[] { return options; }});
    calculator.values.variables = {{"ABCD", 1}, {"PRICE_OLD", 1}, {"SINE_OF_X", 1}, {"LINE", 1}};
    calculator.customFunctions.SetDefinitions({{"AREA", {"AREA", {"W", "H"}, "W*H"}}});
    return calculator;
}

} // namespace

class SuggestionsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { options = {}; }
    void Offered_data();
    void Offered() { CheckRow(); }
    void AllThatBeginWithIt();
    void WordOperatorsAreOfferedWhileTheyAreOn();
    void NamesFollowTheWorkspace();
    void SuggestedTexts();
    void AKeyIsCheapInALargeWorkspace();
};

// "|" is the cursor. The names are those offered, or the first of them with "..." behind.
void SuggestionsTest::Offered_data()
{
    const Table row([](const QString& line, const QString& prefix, const QString& names, int wordBehind) {
        const QString before = line.section('|', 0, 0);
        const QString behind = line.section('|', 1);
        const Suggestions found = SuggestionsFor(Workspace(), before, behind);
        QString list = found.names.join(u' ');
        if (names.endsWith(" ..."))
            list = list.left(names.size() - 3) + "...";
        QCOMPARE(list, names);
        QCOMPARE(found.prefix, prefix);
        QCOMPARE(static_cast<int>(found.wordBehind), wordBehind);
    });
    // clang-format off
    row("one letter is not enough",                   "S|",              "",           "",                       0);
    row("an empty line offers nothing",               "|",               "",           "",                       0);
    row("any case",                                   "1+asI|",          "asI",        "ASIN",                   0);
    row("sorted, variables among the names",          "SIN|",            "SIN",        "SIN SINE_OF_X",          0);
    row("units and their pairs",                      "PARSEC|",         "PARSEC",     "PARSEC PARSECS",         0);
    row("a function that is complete keeps being offered", "ASIN|",      "ASIN",       "ASIN",                   0);
    row("so does the user's own",                     "area|",           "area",       "AREA",                   0);
    row("a variable that is complete does not",       "ABCD|",           "",           "",                       0);
    row("others that go on from a complete name are offered", "PI|",     "PI",         "PI PIB ...",             0);
    row("no name begins inside a word",               "XASI|",           "",           "",                       0);
    row("nor behind a digit or a foreign letter",     "2ASI|",           "",           "",                       0);
    row("a foreign letter belongs to the word",       "\u00e9ASI|",      "",           "",                       0);
    row("a sign ends a word",                         "2*ASI|",          "ASI",        "ASIN",                   0);
    row("a name of several words",                    "CLEAR VA|",       "CLEAR VA",   "CLEAR VARIABLES",        0);
    row("also behind other words",                    "2 top m|",        "top m",      "TOP MOST",               0);
    row("the longest beginning wins",                 "NOT TOP M|",      "NOT TOP M",  "NOT TOP MOST",           0);
    row("a blank may end it",                         "CREATE |",        "CREATE ",    "CREATE FUNCTION",        0);
    row("the rest of the word is replaced as well",   "ab|c+1",          "ab",         "ABCD ...",               1);
    row("but not behind a name of several words",     "CLEAR VA|RS",     "CLEAR VA",   "CLEAR VARIABLES",        0);
    row("nothing begins right of the cursor",         "|PRICE",          "",           "",                       0);
    row("two blanks begin nothing",                   "1  |",            "",           "",                       0);
    // clang-format on
}

void SuggestionsTest::AllThatBeginWithIt()
{
    const Calculator calculator = Workspace();
    const QStringList names = SuggestionsFor(calculator, u"mi", {}).names;
    QVERIFY(names.contains("MIN") && names.contains("MINUTE") && names.contains("MI TO KM"));
    QCOMPARE(names.count("MIN"), 1); // a function, a command and a unit
    QStringList sorted = names;
    sorted.sort(Qt::CaseInsensitive);
    QCOMPARE(names, sorted);
    for (const QString& name : names)
        QVERIFY2(name.startsWith("MI"), qPrintable(name));
}

void SuggestionsTest::WordOperatorsAreOfferedWhileTheyAreOn()
{
    const Calculator calculator = Workspace();
    QVERIFY(SuggestionsFor(calculator, u"2 TIM", {}).names.contains("TIMES"));
    options.useWordOperators = false;
    QVERIFY(!SuggestionsFor(calculator, u"2 TIM", {}).names.contains("TIMES"));
}

void SuggestionsTest::NamesFollowTheWorkspace()
{
    Calculator calculator = Workspace();
    calculator.values.variables.insert("AREAS", 2);
    QCOMPARE(SuggestionsFor(calculator, u"are", {}).names, QStringList({"AREA", "AREAS"}));
    calculator.values.variables.clear();
    calculator.customFunctions.SetDefinitions({});
    QCOMPARE(SuggestionsFor(calculator, u"are", {}).names, QStringList());
}

void SuggestionsTest::SuggestedTexts()
{
    const Calculator calculator = Workspace();
    QCOMPARE(SuggestedText(calculator, "SIN"), "SIN(");
    QCOMPARE(SuggestedText(calculator, "AREA"), "AREA(");
    QCOMPARE(SuggestedText(calculator, "PI"), "PI");
    QCOMPARE(SuggestedText(calculator, "ABCD"), "ABCD");
    QCOMPARE(SuggestedText(calculator, "MENU OUTPUT"), "MENU OUTPUT");
}

void SuggestionsTest::AKeyIsCheapInALargeWorkspace()
{
    Calculator calculator = Workspace();
    for (int i = 0; i < 50000; ++i)
        calculator.values.variables.insert(QString("V%1").arg(i, 5, 10, QChar('0')), i);
    const QString line = QString("X+1 ").repeated(25000) + "V4999";
    QCOMPARE(SuggestionsFor(calculator, line, {}).names.size(), 10);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 100; ++i)
        SuggestionsFor(calculator, line, {});
    qInfo("%lld ns a key", clock.nsecsElapsed() / 100);
    QVERIFY2(clock.elapsed() < 200, "2 ms a key"); // some 30 us, a walk through all names takes 10 ms
}

QTEST_GUILESS_MAIN(SuggestionsTest)
#include "SuggestionsTest.moc"
