#include "RandomExpressions.h"

#include "core/symbolic/SymbolicParser.h"
#include "core/symbolic/SymbolicText.h"

#include <QTest>

using Type = SimplifyNodeType;

namespace {

NodePointer Parsed(const QString& text)
{
    NodePointer node;
    return ParseSymbolicExpression(text, node) ? node : nullptr;
}

NodePointer Binary(Type type, const NodePointer& left, const NodePointer& right)
{
    return MakeBinary(type, left, right);
}

} // namespace

class SymbolicTreeTest : public QObject {
    Q_OBJECT

private slots:
    void Reading_data();
    void Reading();
    void Printing_data();
    void Printing();
    void TopLevelEquals_data();
    void TopLevelEquals();
    void KeysAndTheirOrder();
    void TextRoundTrip();
};

void SymbolicTreeTest::Reading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key"); // empty: it can't be read
    // clang-format off
    QTest::newRow("a name behind a number is a factor")  << "2X"            << "MUL(N:2,V:X)";
    QTest::newRow("spaces are free between tokens")      << " 2\u00A0 x\t" << "MUL(N:2,V:X)";
    QTest::newRow("a bracket is a factor")               << "2(X)"          << "MUL(N:2,V:X)";
    QTest::newRow("brackets side by side are factors")   << "(X)(Y)"        << "MUL(V:X,V:Y)";
    QTest::newRow("a digit begins a factor")             << "(X)3"          << "MUL(V:X,N:3)";
    QTest::newRow("a letter of any script is a name")    << "3\u00E4_1"    << "MUL(N:3,V:\u00C4_1)";
    QTest::newRow("sums group to the left")              << "A-B+C"         << "ADD(SUB(V:A,V:B),V:C)";
    QTest::newRow("products group to the left")          << "A/B*C D"       << "MUL(MUL(DIV(V:A,V:B),V:C),V:D)";
    QTest::newRow("powers group to the right")           << "3 ^ 2 ^ 2"     << "POW(N:3,POW(N:2,N:2))";
    QTest::newRow("a power before the minus before it")  << "-2^2"          << "NEG(POW(N:2,N:2))";
    QTest::newRow("a minus before a product")            << "-A B"          << "MUL(NEG(V:A),V:B)";
    QTest::newRow("an exponent has its own sign")        << "2^-1"          << "POW(N:2,NEG(N:1))";
    QTest::newRow("an exponent is no product")           << "2^-X Y"        << "MUL(POW(N:2,NEG(V:X)),V:Y)";
    QTest::newRow("plus signs leave nothing")            << "+-+X"          << "NEG(V:X)";
    QTest::newRow("a function needs its bracket")        << "SIN X"         << "MUL(V:SIN,V:X)";
    QTest::newRow("a function in any case")              << "abs (x)^2"     << "POW(F:ABS(V:X),N:2)";
    QTest::newRow("other names are variables")           << "LOG(X)"        << "MUL(V:LOG,V:X)";
    QTest::newRow("an exponent mark is of the number")   << "1e3"           << "N:1000";
    QTest::newRow("a point ends an exponent")            << "1e3.5"         << "MUL(N:1000,N:0.5)";
    QTest::newRow("a second point ends a number")        << "1.5.2"         << "MUL(N:1.5,N:0.2)";
    QTest::newRow("a second mark ends a number")         << "1e2e3"         << "MUL(N:100,V:E3)";
    QTest::newRow("a mark without digits has no value")  << "2E"            << "";
    QTest::newRow("a lone point has no value")           << "."             << "";
    QTest::newRow("nothing")                             << "  "            << "";
    QTest::newRow("nothing in brackets")                 << "()"            << "";
    QTest::newRow("an operand is missing")               << "2+"            << "";
    QTest::newRow("an operand is missing before")        << "*2"            << "";
    QTest::newRow("an open bracket")                     << "(2"            << "";
    QTest::newRow("an open call")                        << "SIN(2"         << "";
    QTest::newRow("a bracket too many")                  << "2)"            << "";
    QTest::newRow("a character of no meaning")           << "2 # 3"         << "";
    QTest::newRow("a comma")                             << "ABS(1,2)"      << "";
    // clang-format on
}

void SymbolicTreeTest::Reading()
{
    QFETCH(QString, text);
    QTEST(NodeKey(Parsed(text)), "key");
}

void SymbolicTreeTest::Printing_data()
{
    QTest::addColumn<NodePointer>("tree");
    QTest::addColumn<QString>("text");
    const NodePointer a = MakeVariable("A");
    const NodePointer b = MakeVariable("b");
    const NodePointer minusTwo = MakeNumber(-2);
    const NodePointer sum = Binary(Type::Add, a, b);
    // clang-format off
    QTest::newRow("null")                                  << NodePointer()                                << "";
    QTest::newRow("nearly zero")                           << MakeNumber(-9e-13)                           << "0";
    QTest::newRow("nearly whole")                          << MakeNumber(2.9999999999999)                  << "3";
    QTest::newRow("a large number in plain digits")        << MakeNumber(1e22)                             << "10000000000000000000000";
    QTest::newRow("15 digits")                             << MakeNumber(2.0 / 3)                          << "0.666666666666667";
    QTest::newRow("no number")                             << MakeNumber(HUGE_VAL)                         << "inf";
    QTest::newRow("a negative number to add")              << Binary(Type::Add, a, minusTwo)               << "A - 2";
    QTest::newRow("a negation to add")                     << Binary(Type::Add, a, MakeUnary(Type::Negate, sum)) << "A - (A + b)";
    QTest::newRow("a sum to add")                          << Binary(Type::Add, a, sum)                    << "A + A + b";
    QTest::newRow("a sum to subtract")                     << Binary(Type::Subtract, a, sum)               << "A - (A + b)";
    QTest::newRow("a sum as factor")                       << Binary(Type::Multiply, minusTwo, sum)        << "-2*(A + b)";
    QTest::newRow("a product as divisor")                  << Parsed("A/(B*C)")                            << "A/(B*C)";
    QTest::newRow("a quotient as factor")                  << Parsed("A*(B/C)")                            << "A*B/C";
    QTest::newRow("a quotient as divisor")                 << Parsed("A/(B/C)")                            << "A/(B/C)";
    QTest::newRow("a sum as base")                         << Binary(Type::Power, sum, MakeNumber(2))      << "(A + b)^2";
    QTest::newRow("powers as base and exponent")           << Parsed("(A^B)^C^D")                          << "(A^B)^C^D";
    QTest::newRow("a product as exponent")                 << Parsed("A^(2B)")                             << "A^(2*B)";
    QTest::newRow("a negation as base")                    << Parsed("(-A)^B")                             << "(-A)^B";
    QTest::newRow("a negative base gets no brackets")      << Binary(Type::Power, minusTwo, a)             << "-2^A";
    QTest::newRow("a negated sum gets no brackets")        << MakeUnary(Type::Negate, sum)                 << "-A + b";
    QTest::newRow("a negated product as divisor")          << Parsed("A/(-(B*C))")                         << "A/-B*C";
    QTest::newRow("a function in upper case")              << Parsed("sqrt(x + 1)")                        << "SQRT(x + 1)";
    // clang-format on
}

void SymbolicTreeTest::Printing()
{
    QFETCH(NodePointer, tree);
    QTEST(NodeToText(tree), "text");
}

void SymbolicTreeTest::TopLevelEquals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("nothing") << "" << -1;
    QTest::newRow("none") << "(X) + 1" << -1;
    QTest::newRow("one") << "(X) = 1" << 4;
    QTest::newRow("one in brackets") << "(X = 1)" << -1;
    QTest::newRow("two") << "X = 1 = 2" << -2;
    QTest::newRow("a bracket too many") << "X) = (1" << -2;
    QTest::newRow("a bracket too few") << "(X = 1" << -2;
}

void SymbolicTreeTest::TopLevelEquals()
{
    QFETCH(QString, text);
    QTEST(FindTopLevelEquals(text), "position");
}

void SymbolicTreeTest::KeysAndTheirOrder()
{
    RandomExpressions expressions(1);
    int equal = 0;
    for (int i = 0; i < 20000; ++i) {
        const NodePointer a = Parsed(expressions.Text(i % 3));
        const NodePointer b = Parsed(expressions.Text(i % 3));
        const int byText = NodeKey(a).compare(NodeKey(b));
        const int order = CompareKeys(a, b);
        QVERIFY2((byText < 0) == (order < 0) && (byText > 0) == (order > 0), qPrintable(NodeKey(a) + " " + NodeKey(b)));
        QCOMPARE(SameNode(a, b), byText == 0);
        equal += byText == 0;
    }
    QVERIFY(equal > 100);
    QVERIFY(CompareKeys(nullptr, MakeNumber(1)) < 0);
    QVERIFY(SameNode(nullptr, nullptr));
}

void SymbolicTreeTest::TextRoundTrip()
{
    RandomExpressions expressions(2);
    int compared = 0;
    for (int i = 0; i < 20000; ++i) {
        const NodePointer tree = Parsed(expressions.Text(5));
        const QString text = NodeToText(tree);
        const NodePointer again = Parsed(text);
        QVERIFY2(again, qPrintable(text));
        // A sum to the right of a plus has no brackets, and a minus that it begins with becomes the operator.
        if (SaysAll(tree) && SaysAll(again) && !text.contains("+ -"))
            QCOMPARE(NodeToText(again), text);
        const QMap<QString, double> point = expressions.Point();
        const std::optional<double> value = SaysAll(tree) ? ValueAt(tree, point) : std::nullopt;
        if (!value)
            continue;
        ++compared;
        const std::optional<double> valueAgain = ValueAt(again, point);
        QVERIFY2(valueAgain && IsClose(*value, *valueAgain), qPrintable(text));
    }
    QVERIFY(compared > 5000);
}

QTEST_APPLESS_MAIN(SymbolicTreeTest)
#include "SymbolicTreeTest.moc"
