#include "core/assist/SyntaxHints.h"
#include "../Table.h"

#include "core/Calculator.h"
#include "core/engine/SyntaxCatalog.h"

class SyntaxHintsTest : public QObject {
    Q_OBJECT

private slots:
    void ActiveCalls_data();
    void ActiveCalls() { CheckRow(); }
    void Hints_data();
    void Hints() { CheckRow(); }
    void WhatIsShownIsEscaped();
    void BracketsWithoutEnd();
};

void SyntaxHintsTest::ActiveCalls_data()
{
    // Expected are the name and the index.
    const Table row([](const QString& line, const QString& expected) {
        const std::optional<ActiveCall> call = FindActiveFunctionCall(line);
        QCOMPARE(call ? QString("%1 %2").arg(call->name).arg(call->argumentIndex) : QString(), expected);
    });
    // clang-format off
    row("no bracket is no call",             "SIN",                "");
    row("the first argument",                "2*sin(",             "sin 0");
    row("a comma leads to the next",         "ATAN2(1,",           "ATAN2 1");
    row("a closed call is over",             "SIN(1)",             "");
    row("the innermost open call",           "MAX(1, MIN(2, 3, ",  "MIN 2");
    row("inner commas do not count",         "MAX(MIN(2, 3), ",    "MAX 1");
    row("a group is passed",                 "SQRT((1+2",          "SQRT 0");
    row("commas of a group do not count",    "MAX(1, (2, 3",       "MAX 1");
    row("a group alone is no call",          "1+(2",               "");
    row("a group at the start is no call",   "  (",                "");
    row("space before the bracket",          "MAX \t\u00a0(1,2",   "MAX 1");
    row("names of any letters and digits",   "x_2\u00e9(",         "x_2\u00e9 0");
    // clang-format on
}

void SyntaxHintsTest::Hints_data()
{
    const Table row([](const QString& line, const QString& hint) {
        Calculator calculator;
        calculator.customFunctions.SetDefinitions({{"AREA", {"AREA", {"W", "H"}, "W*H"}}});
        QCOMPARE(SyntaxHintFor(calculator, line), hint);
    });
    // clang-format off
    row("the present parameter is bold",          "ATAN2(1,",            "ATAN2(y, <b>x</b>)");
    row("further arguments are the last",         "min(1,2,3,4",         "MIN(value1, <b>value2, ...</b>)");
    row("without parameters nothing is bold",     "RANDOM(",             "RANDOM()");
    row("a date's text is not in its syntax",     "DATE(",               "DATE(&quot;M/D/YYYY [H:MM AM/PM]&quot;)");
    row("the user's own function",                "1+area(3,",           "AREA(W, <b>H</b>)");
    row("an unknown call has none",               "FOO(1,",              "");
    row("a name without its bracket has none",    "SIN",                 "");
    row("a name without syntax has none",         "PI",                  "");
    row("a command",                              "  font 1",            "FONT <b>size</b>");
    row("a command with a sign behind its word",  "FORMAT=0",            "FORMAT=<b>formatString</b>");
    row("its second parameter",                   "ISOLATE X, ",         "ISOLATE variable, <b>equation</b>");
    row("commas in brackets do not count",        "ISOLATE (X,Y), Z",    "ISOLATE variable, <b>equation</b>");
    row("the longest command wins",               "menu output base H",  "MENU OUTPUT BASE [DEC/BIN/OCT/HEX]");
    row("a word goes on",                         "MENU OUTPUT BASES",   "MENU <b>option</b> [value]");
    row("a command that is a function too",       "MAX",                 "MAX");
    row("a command is the line's first word",     "1 FONT",              "");
    row("no word begins with a digit",            "0b",                  "");
    row("a call inside a command",                "SIMPLIFY ABS(",       "ABS(<b>value</b>)");
    row("an unknown call inside a command",       "SIMPLIFY F(",         "SIMPLIFY <b>expression-or-equation</b>");
    // clang-format on
}

void SyntaxHintsTest::WhatIsShownIsEscaped()
{
    const CalculatorSyntaxItem item{"F", "F(<i>, a&b)", {"<i>", "a&b"}};
    QCOMPARE(BuildSyntaxHintText(item, -1), "F(&lt;i&gt;, a&amp;b)");
    QCOMPARE(BuildSyntaxHintText(item, 0), "F(<b>&lt;i&gt;</b>, a&amp;b)");
    QCOMPARE(BuildSyntaxHintText(item, 7), "F(&lt;i&gt;, <b>a&amp;b</b>)");
}

void SyntaxHintsTest::BracketsWithoutEnd()
{
    const QString brackets(200000, u'(');
    QVERIFY(!FindActiveFunctionCall(brackets));
    QCOMPARE(FindActiveFunctionCall(QString("SIN" + brackets)), (ActiveCall{"SIN", 0}));
}

QTEST_GUILESS_MAIN(SyntaxHintsTest)
#include "SyntaxHintsTest.moc"
