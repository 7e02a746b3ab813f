#include "core/assist/SyntaxHints.h"

#include "core/Calculator.h"
#include "core/engine/SyntaxCatalog.h"

#include <QTest>

class SyntaxHintsTest : public QObject {
    Q_OBJECT

private slots:
    void ActiveCalls_data();
    void ActiveCalls();
    void Hints_data();
    void Hints();
    void WhatIsShownIsEscaped();
    void BracketsWithoutEnd();
};

void SyntaxHintsTest::ActiveCalls_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("call"); // name and index
    // clang-format off
    QTest::newRow("no bracket is no call")             << "SIN"                << "";
    QTest::newRow("the first argument")                << "2*sin("             << "sin 0";
    QTest::newRow("a comma leads to the next")         << "ATAN2(1,"           << "ATAN2 1";
    QTest::newRow("a closed call is over")             << "SIN(1)"             << "";
    QTest::newRow("the innermost open call")           << "MAX(1, MIN(2, 3, "  << "MIN 2";
    QTest::newRow("inner commas do not count")         << "MAX(MIN(2, 3), "    << "MAX 1";
    QTest::newRow("a group is passed")                 << "SQRT((1+2"          << "SQRT 0";
    QTest::newRow("commas of a group do not count")    << "MAX(1, (2, 3"       << "MAX 1";
    QTest::newRow("a group alone is no call")          << "1+(2"               << "";
    QTest::newRow("a group at the start is no call")   << "  ("                << "";
    QTest::newRow("space before the bracket")          << "MAX \t\u00a0(1,2"   << "MAX 1";
    QTest::newRow("names of any letters and digits")   << "x_2\u00e9("         << "x_2\u00e9 0";
    // clang-format on
}

void SyntaxHintsTest::ActiveCalls()
{
    QFETCH(QString, line);
    const std::optional<ActiveCall> call = FindActiveFunctionCall(line);
    QTEST(call ? QString("%1 %2").arg(call->name).arg(call->argumentIndex) : QString(), "call");
}

void SyntaxHintsTest::Hints_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("hint");
    // clang-format off
    QTest::newRow("the present parameter is bold")          << "ATAN2(1,"            << "ATAN2(y, <b>x</b>)";
    QTest::newRow("further arguments are the last")         << "min(1,2,3,4"         << "MIN(value1, <b>value2, ...</b>)";
    QTest::newRow("without parameters nothing is bold")     << "RANDOM("             << "RANDOM()";
    QTest::newRow("a date's text is not in its syntax")     << "DATE("               << "DATE(&quot;M/D/YYYY [H:MM AM/PM]&quot;)";
    QTest::newRow("the user's own function")                << "1+area(3,"           << "AREA(W, <b>H</b>)";
    QTest::newRow("an unknown call has none")               << "FOO(1,"              << "";
    QTest::newRow("a name without its bracket has none")    << "SIN"                 << "";
    QTest::newRow("a name without syntax has none")         << "PI"                  << "";
    QTest::newRow("a command")                              << "  font 1"            << "FONT <b>size</b>";
    QTest::newRow("a command with a sign behind its word")  << "FORMAT=0"            << "FORMAT=<b>formatString</b>";
    QTest::newRow("its second parameter")                   << "ISOLATE X, "         << "ISOLATE variable, <b>equation</b>";
    QTest::newRow("commas in brackets do not count")        << "ISOLATE (X,Y), Z"    << "ISOLATE variable, <b>equation</b>";
    QTest::newRow("the longest command wins")               << "menu output base H"  << "MENU OUTPUT BASE [DEC/BIN/OCT/HEX]";
    QTest::newRow("a word goes on")                         << "MENU OUTPUT BASES"   << "MENU <b>option</b> [value]";
    QTest::newRow("a command that is a function too")       << "MAX"                 << "MAX";
    QTest::newRow("a command is the line's first word")     << "1 FONT"              << "";
    QTest::newRow("no word begins with a digit")            << "0b"                  << "";
    QTest::newRow("a call inside a command")                << "SIMPLIFY ABS("       << "ABS(<b>value</b>)";
    QTest::newRow("an unknown call inside a command")       << "SIMPLIFY F("         << "SIMPLIFY <b>expression-or-equation</b>";
    // clang-format on
}

void SyntaxHintsTest::Hints()
{
    QFETCH(QString, line);
    Calculator calculator;
    calculator.customFunctions.SetDefinitions({{"AREA", {"AREA", {"W", "H"}, "W*H"}}});
    QTEST(SyntaxHintFor(calculator, line), "hint");
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
