#include "../Table.h"
#include "RandomExpressions.h"

#include "core/symbolic/Products.h"
#include "core/symbolic/Simplification.h"
#include "core/symbolic/Sums.h"
#include "core/symbolic/SymbolicText.h"

#include <QElapsedTimer>
#include <QThread>

namespace {

QString Simplified(const QString& text)
{
    QString result;
    SimplifyText(text, result);
    return result;
}

QString Numbered(const QString& pattern, int count)
{
    QString text;
    for (int i = 1; i <= count; ++i)
        text += pattern.arg(i);
    return text;
}

} // namespace

class SimplificationTest : public QObject {
    Q_OBJECT

private slots:
    void Text_data();
    void Text() { CheckRow(); }
    void Unsettled_data();
    void Unsettled() { CheckRow(); }
    void KeepingProducts_data();
    void KeepingProducts() { CheckRow(); }
    void ValueAndTextStay();
    void StepsGiveTheWhole();
    void LargeInput_data();
    void LargeInput() { CheckRow(); }
};

void SimplificationTest::Text_data()
{
    const Table row([](const QString& text, const QString& simplified) {
        QString result;
        const bool ok = SimplifyText(text, result);
        QCOMPARE(result, simplified);
        QCOMPARE(ok, !simplified.startsWith("SIMPLIFY") && simplified != "Cannot Simplify");
    });
    // clang-format off
    row("like terms",                           "2*X + 3*X",            "5*X");
    row("the spelling seen first stays",        "x + X",                "2*x");
    row("terms stand as they first appeared",   "Y + X + 1 + Y",        "2*Y + X + 1");
    row("terms below zero come last",           "-X + 3",               "3 - X");
    row("the constant stands with its first",   "3 - X + 2",            "5 - X");
    row("a term that rises follows the risen",  "A - B + C + 2B",       "A + C + B");
    row("a term that falls leads the fallen",   "A + B - C - 2A",       "B - A - C");
    row("a term that was gone comes anew",      "X - X + Y + X",        "Y + X");
    row("terms that cancel",                    "X - X",                "0");
    row("a sum that cancels",                   "2X + Y - (Y + X + X)", "0");
    row("a coefficient is one level deep",      "2*X*Y + 3*X*Y",        "2*X*Y + 3*X*Y");
    row("like products",                        "X*Y + Y*X",            "2*X*Y");
    row("like factors",                         "2*X*3*X",              "6*X^2");
    row("factors in order",                     "Z*Y^2*SIN(X)*b*2",     "2*SIN(X)*b*Y^2*Z");
    row("a number is distributed",              "2(X + 3)",             "2*X + 6");
    row("a factor is distributed",              "X*(Y + 2)",            "X*Y + 2*X");
    row("two sums are not expanded",            "(X + 1)*(X + 2)",      "(X + 1)*(X + 2)");
    row("a sign over a sum",                    "A - (B - C)",          "A + C - B");
    row("signs of factors",                     "(-A)*(-B)*-C",         "-A*B*C");
    row("zero and one",                         "0*X + 1*Y + Z/1",      "Y + Z");
    row("a coefficient is divided",             "6*X/3",                "2*X");
    row("a coefficient within the tolerance",   "0.000001*X*0.0000001",  "0");
    row("a divided one within it",              "2*X/4000000000000",     "0");
    row("a divided variable stays",             "X/3",                  "X/3");
    row("a divisor in a product",               "X/2*Y",                "0.5*X*Y");
    row("nothing is cancelled",                 "X/X",                  "X/X");
    row("no division by zero",                  "1/0 + X/0",            "1/0 + X/0");
    row("15 digits",                            "1/3",                  "0.333333333333333");
    row("a power of a power",                   "(X^2)^3",              "X^6");
    row("a power of a root stays",              "(X^0.5)^2",            "(X^0.5)^2");
    row("exponents one and zero",               "X^1 + X^0 + 1^X",      "X + 2");
    row("zero to the zero stays",               "0^0",                  "0^0");
    row("an overflow stays",                    "10^400",               "10^400");
    row("a root of a square",                   "SQRT(X^2)",            "ABS(X)");
    row("a root below zero stays",              "SQRT(-4)",             "SQRT(-4)");
    row("functions of numbers, in radians",     "SIN(0) + COS(0) + SQRT(16) + ABS(-2) + TAN(1)", "8.5574077246549");
    row("a base below zero gets no brackets",   "(-2)^X",               "-2^X");
    row("equal terms leave an equation",        "2*X + 1 = X + 1",      "2*X = X");
    row("other terms stay in it",               "2*X + 4 = Y + 0",      "2*X + 4 = Y");
    row("an empty side is zero",                "X + 2 = X + 2",        "0 = 0");
    row("an equation is never judged",          "2 = 3",                "2 = 3");
    row("nothing",                              " ",                    "SIMPLIFY requires an expression or equation.");
    row("an empty side",                        "X =",                  "Cannot Simplify");
    row("two equals signs",                     "1 = 1 = 1",            "Cannot Simplify");
    row("a bracket too few",                    "(X",                   "Cannot Simplify");
    row("no expression",                        "X + * 2",              "Cannot Simplify");
    // clang-format on
}

// What reads otherwise than it was, so that a second SIMPLIFY finds more to do.
void SimplificationTest::Unsettled_data()
{
    const Table row([](const QString& text, const QString& once, const QString& twice) {
        QCOMPARE(Simplified(text), once);
        QCOMPARE(Simplified(once), twice);
    });
    // clang-format off
    row("a negated quotient",             "-(X/4)",     "-X/4",     "-0.25*X");
    row("a quotient negated twice",       "-((-X)/Y)",  "--X/Y",    "X/Y");
    row("a quotient of a negation",       "-X/A*3",     "3*-X/A",   "-3*X/A");
    row("a number before a quotient",     "2*(3/X)",    "2*3/X",    "6/X");
    row("a negated zero over a variable", "-(0/X)",     "-0/X",     "0/X");
    row("a power of minus one",           "(-1)^X",     "-1^X",     "-1");
    // clang-format on
}

void SimplificationTest::KeepingProducts_data()
{
    const Table row([](const QString& text, const QString& expected) {
        NodePointer node;
        QVERIFY(ParseSymbolicExpression(text, node));
        const NodePointer kept = SimplifyNodeTree(node, true);
        QCOMPARE(NodeToText(kept), expected);
        const NodePointer again = SimplifyNodeTree(kept, true);
        QCOMPARE(NodeToText(again), NodeToText(kept));
    });
    row("a number before a sum", "2*(X + 3)", "2*(X + 3)");
    row("a sum before a number", "(X + 3)*2", "(X + 3)*2");
    row("other products are put in order", "Y*3*X", "3*X*Y");
    row("two sums are put in order", "(Y + 3)*(X + 3)", "(X + 3)*(Y + 3)");
    row("a kept product within a sum is a term", "(X + 3)*2 + 0.5*Y", "2*(X + 3) + 0.5*Y");
}

// Simplified trees have the value of the tree that they come from; their text reads back as that text.
void SimplificationTest::ValueAndTextStay()
{
    RandomExpressions expressions(3);
    int compared = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString text = expressions.Text(5);
        NodePointer original;
        QVERIFY2(ParseSymbolicExpression(text, original), qPrintable(text));
        for (const bool keepProducts : {false, true}) {
            const NodePointer simplified = SimplifyNodeTree(original, keepProducts);
            QVERIFY2(simplified, qPrintable(text));
            const QString printed = NodeToText(simplified);
            NodePointer again;
            QVERIFY2(ParseSymbolicExpression(printed, again), qPrintable(printed));
            if (SaysAll(simplified) && SaysAll(again))
                QCOMPARE(NodeToText(again), printed);
            const QMap<QString, double> point = expressions.Point();
            const std::optional<double> before = ValueAt(original, point);
            const std::optional<double> after = ValueAt(simplified, point);
            if (!before || !after)
                continue;
            ++compared;
            QVERIFY2(IsClose(*before, *after), qPrintable(text + " and " + printed));
        }
    }
    QVERIFY(compared > 10000);
}

// A long chain is simplified in steps that are not written out between one operator and the next.
void SimplificationTest::StepsGiveTheWhole()
{
    RandomExpressions expressions(4);
    for (int i = 0; i < 5000; ++i) {
        const bool isSum = expressions.Below(2) == 0;
        NodePointer chain = MakeVariable("X");
        NodePointer written = chain;
        for (int step = 0; step < 12; ++step) {
            NodePointer operand;
            const QString text = isSum ? expressions.OneOf({"X", "2Y", "A", "3x", "0.5A", "B", "1", "3B"})
                                       : expressions.OneOf({"X", "Y^2", "A/4", "4", "x^3", "SIN(Y)", "X/A", "0.25"});
            QVERIFY(ParseSymbolicExpression(text, operand));
            const SimplifyNodeType type = !isSum                      ? SimplifyNodeType::Multiply
                                          : expressions.Below(2) == 0 ? SimplifyNodeType::Add
                                                                      : SimplifyNodeType::Subtract;
            chain = MakeBinary(type, chain, operand);
            written = MakeBinary(type, written, SimplifyNodeTree(operand, false));
            written = isSum ? SimplifySum(written) : SimplifyProduct(written);
        }
        QCOMPARE(NodeKey(SimplifyNodeTree(chain, false)), NodeKey(written));
    }
}

// The stack is that of a small thread. What would take too long is given up.
void SimplificationTest::LargeInput_data()
{
    const Table row([](const QString& text, const QString& begin) {
        QString result;
        QElapsedTimer timer;
        timer.start();
        const std::unique_ptr<QThread> thread(QThread::create([&] { SimplifyText(text, result); }));
        thread->setStackSize(256 * 1024);
        thread->start();
        QVERIFY(thread->wait());
        QVERIFY2(result.startsWith(begin), qPrintable(result.left(100)));
        QVERIFY2(timer.elapsed() < 30'000, qPrintable(QString::number(timer.elapsed())));
    });
    const int many = 100'000;
    const int terms = 10'000;
    const auto nested = [](const QString& open, const QString& close) -> QString {
        return open.repeated(many) + "X" + close.repeated(many);
    };
    // clang-format off
    row("brackets",                  nested("(", ")"),                     "X");
    row("open brackets",             nested("(", ""),                      "Cannot Simplify");
    row("functions",                 nested("ABS(", ")"),                  "ABS(ABS(");
    row("signs",                     nested("-", ""),                      "X");
    row("a chain of powers",         nested("", "^X"),                     "X^X^X");
    row("powers of powers",          nested("(", ")^2"),                   "(((");
    row("quotients to the right",    nested("Y/(", ")"),                   "Y/(Y/(");
    row("sums to the right",         nested("X + (", ")"),                 "100001*X");
    row("negated sums",              nested("-(Y + ", ")"),                "X");
    row("like terms",                Numbered("+%1*X", terms),             "50005000*X");
    row("terms",                     Numbered("+A%1", terms),              "A1 + A2 + A3 + ");
    row("terms negated",             "-(" + Numbered("-A%1", terms) + ")", "A1 + A2 + A3 + ");
    row("terms distributed",         "X*(0" + Numbered("+A%1", terms) + ")", "A1*X + A2*X + ");
    row("terms that cancel",         Numbered("+A%1", terms) + "=" + Numbered("+A%1", terms), "0 = 0");
    row("like factors",              "1" + QString("*X").repeated(terms), "X^10000");
    row("factors",                   "1" + Numbered("*A%1", terms),        "A1*A10*A100*A1000*A10000*A1001*");
    row("sums that double",          "1" + Numbered("*(A%1+B)", terms),    "Cannot Simplify");
    row("a polynomial by Horner",    QString("(").repeated(terms) + "X" + Numbered("*X+A%1)", terms), "Cannot Simplify");
    // clang-format on
}

QTEST_APPLESS_MAIN(SimplificationTest)
#include "SimplificationTest.moc"
