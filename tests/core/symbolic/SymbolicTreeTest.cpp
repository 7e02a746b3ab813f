#include "../Table.h"
#include "RandomExpressions.h"

#include "core/symbolic/SymbolicParser.h"
#include "core/symbolic/SymbolicText.h"

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
    void Reading() { CheckRow(); }
    void Printing_data();
    void Printing() { CheckRow(); }
    void TopLevelEquals_data();
    void TopLevelEquals() { CheckRow(); }
    void KeysAndTheirOrder();
    void TextRoundTrip();
};

void SymbolicTreeTest::Reading_data()
{
    // No key: it can't be read.
    const Table row([](const QString& text, const QString& key) { QCOMPARE(NodeKey(Parsed(text)), key); });
    // clang-format off
    row("a name behind a number is a factor",  "2X",            "MUL(N:2,V:X)");
    row("spaces are free between tokens",      " 2\u00A0 x\t", "MUL(N:2,V:X)");
    row("a bracket is a factor",               "2(X)",          "MUL(N:2,V:X)");
    row("brackets side by side are factors",   "(X)(Y)",        "MUL(V:X,V:Y)");
    row("a digit begins a factor",             "(X)3",          "MUL(V:X,N:3)");
    row("a letter of any script is a name",    "3\u00E4_1",    "MUL(N:3,V:\u00C4_1)");
    row("sums group to the left",              "A-B+C",         "ADD(SUB(V:A,V:B),V:C)");
    row("products group to the left",          "A/B*C D",       "MUL(MUL(DIV(V:A,V:B),V:C),V:D)");
    row("powers group to the right",           "3 ^ 2 ^ 2",     "POW(N:3,POW(N:2,N:2))");
    row("a power before the minus before it",  "-2^2",          "NEG(POW(N:2,N:2))");
    row("a minus before a product",            "-A B",          "MUL(NEG(V:A),V:B)");
    row("an exponent has its own sign",        "2^-1",          "POW(N:2,NEG(N:1))");
    row("an exponent is no product",           "2^-X Y",        "MUL(POW(N:2,NEG(V:X)),V:Y)");
    row("plus signs leave nothing",            "+-+X",          "NEG(V:X)");
    row("a function needs its bracket",        "SIN X",         "MUL(V:SIN,V:X)");
    row("a function in any case",              "abs (x)^2",     "POW(F:ABS(V:X),N:2)");
    row("other names are variables",           "LOG(X)",        "MUL(V:LOG,V:X)");
    row("an exponent mark is of the number",   "1e3",           "N:1000");
    row("a point ends an exponent",            "1e3.5",         "MUL(N:1000,N:0.5)");
    row("a second point ends a number",        "1.5.2",         "MUL(N:1.5,N:0.2)");
    row("a second mark ends a number",         "1e2e3",         "MUL(N:100,V:E3)");
    row("a mark without digits has no value",  "2E",            "");
    row("a lone point has no value",           ".",             "");
    row("nothing",                             "  ",            "");
    row("nothing in brackets",                 "()",            "");
    row("an operand is missing",               "2+",            "");
    row("an operand is missing before",        "*2",            "");
    row("an open bracket",                     "(2",            "");
    row("an open call",                        "SIN(2",         "");
    row("a bracket too many",                  "2)",            "");
    row("a character of no meaning",           "2 # 3",         "");
    row("a comma",                             "ABS(1,2)",      "");
    // clang-format on
}

void SymbolicTreeTest::Printing_data()
{
    const Table row([](NodePointer tree, const QString& text) { QCOMPARE(NodeToText(tree), text); });
    const NodePointer a = MakeVariable("A");
    const NodePointer b = MakeVariable("b");
    const NodePointer minusTwo = MakeNumber(-2);
    const NodePointer sum = Binary(Type::Add, a, b);
    // clang-format off
    row("null",                                  NodePointer(),                                "");
    row("nearly zero",                           MakeNumber(-9e-13),                           "0");
    row("nearly whole",                          MakeNumber(2.9999999999999),                  "3");
    row("a large number in plain digits",        MakeNumber(1e22),                             "10000000000000000000000");
    row("15 digits",                             MakeNumber(2.0 / 3),                          "0.666666666666667");
    row("no number",                             MakeNumber(HUGE_VAL),                         "inf");
    row("a negative number to add",              Binary(Type::Add, a, minusTwo),               "A - 2");
    row("a negation to add",                     Binary(Type::Add, a, MakeUnary(Type::Negate, sum)), "A - (A + b)");
    row("a sum to add",                          Binary(Type::Add, a, sum),                    "A + A + b");
    row("a sum to subtract",                     Binary(Type::Subtract, a, sum),               "A - (A + b)");
    row("a sum as factor",                       Binary(Type::Multiply, minusTwo, sum),        "-2*(A + b)");
    row("a product as divisor",                  Parsed("A/(B*C)"),                            "A/(B*C)");
    row("a quotient as factor",                  Parsed("A*(B/C)"),                            "A*B/C");
    row("a quotient as divisor",                 Parsed("A/(B/C)"),                            "A/(B/C)");
    row("a sum as base",                         Binary(Type::Power, sum, MakeNumber(2)),      "(A + b)^2");
    row("powers as base and exponent",           Parsed("(A^B)^C^D"),                          "(A^B)^C^D");
    row("a product as exponent",                 Parsed("A^(2B)"),                             "A^(2*B)");
    row("a negation as base",                    Parsed("(-A)^B"),                             "(-A)^B");
    row("a negative base gets no brackets",      Binary(Type::Power, minusTwo, a),             "-2^A");
    row("a negated sum gets no brackets",        MakeUnary(Type::Negate, sum),                 "-A + b");
    row("a negated product as divisor",          Parsed("A/(-(B*C))"),                         "A/-B*C");
    row("a function in upper case",              Parsed("sqrt(x + 1)"),                        "SQRT(x + 1)");
    // clang-format on
}

void SymbolicTreeTest::TopLevelEquals_data()
{
    const Table row([](const QString& text, int position) { QCOMPARE(FindTopLevelEquals(text), position); });
    row("nothing", "", -1);
    row("none", "(X) + 1", -1);
    row("one", "(X) = 1", 4);
    row("one in brackets", "(X = 1)", -1);
    row("two", "X = 1 = 2", -2);
    row("a bracket too many", "X) = (1", -2);
    row("a bracket too few", "(X = 1", -2);
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
