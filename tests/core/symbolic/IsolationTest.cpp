#include "../Table.h"
#include "RandomExpressions.h"

#include "core/symbolic/Isolation.h"
#include "core/symbolic/SymbolicCommands.h"

#include <QThread>

class IsolationTest : public QObject {
    Q_OBJECT

private slots:
    void Answer_data();
    void Answer() { CheckRow(); }
    void Refusal_data();
    void Refusal() { CheckRow(); }
    void WithoutTheVariable_data();
    void WithoutTheVariable() { CheckRow(); }
    void AnswersHold();
    void DeepEquations_data();
    void DeepEquations() { CheckRow(); }
    void Command_data();
    void Command() { CheckRow(); }
};

void IsolationTest::Answer_data()
{
    const Table row([](const QString& text, const QString& answer) {
        QString result;
        const bool ok = IsolateText(text, result);
        QCOMPARE(result, answer);
        QVERIFY(ok);
    });
    // clang-format off
    row("terms and factors",                  "X, 3*X + Y = 12",               "X = (12 - Y)/3");
    row("the name as it was typed",           "Radius, Diameter = 2*radius",   "Radius = Diameter/2");
    row("a product with a sum is kept",       "X, X/3 + Y = 12",               "X = (12 - Y)*3");
    row("like terms of both sides",           "X, 5X - 2 = 2X + Y",            "X = (Y + 2)/3");
    row("a sign",                             "X, Y - X = Z",                  "X = Y - Z");
    row("a divisor",                          "X, A/X = B",                    "X = A/B");
    row("both roots, the positive first",     "X, X^2 = 25",                   "X = 5\nX = -5");
    row("equal roots are one answer",         "X, X^2 = 0",                    "X = 0");
    row("a symbolic square root",             "X, X^2 = Y",                    "X = SQRT(Y)\nX = -SQRT(Y)");
    row("an even root of a number",           "X, X^4 = 16",                   "X = 2\nX = -2");
    row("a symbolic even root",               "X, X^4 = Y",                    "X = Y^(1/4)\nX = -Y^(1/4)");
    row("an odd root below zero",             "X, X^3 = -27",                  "X = -3");
    row("a symbolic odd root",                "X, 2X^3 = Y",                   "X = (Y/2)^(1/3)");
    row("squares within a square",            "X, (X^2 - 5)^2 = 16",           "X = 3\nX = -3\nX = 1\nX = -1");
    row("a square root",                      "X, SQRT(X + 3) = Y",            "X = Y^2 - 3");
    // clang-format on
}

void IsolationTest::Refusal_data()
{
    const Table row([](const QString& text, const QString& words) {
        QString result;
        const bool ok = IsolateText(text, result);
        QCOMPARE(result, words);
        QVERIFY(!ok);
    });
    const QString usage = "Use: ISOLATE variable, equation\nExample: ISOLATE X, 3*X + Y = 12";
    const QString twoParts = "ISOLATE found the target variable in two parts of one step.\n"
                             "Simplify it further first, or rearrange the equation.";
    const QString exponent = "ISOLATE cannot yet isolate a variable that appears in an exponent.";
    const QString notReversed = "ISOLATE cannot yet reverse this part of the expression.";
    const QString notWhole = "ISOLATE can currently reverse only positive whole-number powers.";
    // clang-format off
    row("no comma",                     "X",                   usage);
    row("two commas",                   "X, Y, X = 1",         usage);
    row("nothing before the comma",     ", X = 1",             usage);
    row("no variable's name",           "2X, 2X = 1",          "ISOLATE needs one valid variable name before the comma.");
    row("no equation",                  "X, X + 1",            "ISOLATE needs one equation containing =.");
    row("two equals signs",             "X, X = 1 = 2",        "ISOLATE needs one equation containing =.");
    row("an empty side",                "X, = 1",              "ISOLATE needs an expression on both sides of =.");
    row("no expression",                "X, X + = 1",          "ISOLATE could not read that equation.");
    row("no solution",                  "x, X + 1 = X + 2",    "The variable x cancels out. The equation has no solution.");
    row("every value",                  "x, X = X",            "The variable x cancels out. The equation is true for all values of x.");
    row("gone beside others",           "X, X + Y = X + Z",    "The variable X cancels out of this equation.");
    row("never there",                  "X, Y = 3",            "The variable X does not appear in this equation.");
    row("an exponent",                  "X, 2^X = 8",          exponent);
    row("a base and its exponent",      "X, X^X = 8",          exponent);
    row("a symbolic power",             "X, X^Y = 8",          "ISOLATE can currently reverse only numeric powers.");
    row("a broken power",               "X, X^0.5 = 8",        notWhole);
    row("a negative power",             "X, X^-2 = 8",         notWhole);
    row("two parts",                    "X, X*X + X = 2",      twoParts);
    row("a function without a root",    "X, SIN(X) = 1",       notReversed);
    row("more than fifty steps",        "X, " + QString("SQRT(").repeated(60) + "X" + QString(")").repeated(60) + " = Y", "ISOLATE stopped after too many algebra steps.");
    // clang-format on
}

// Only a caller of one's own can bring what the variable is not in.
void IsolationTest::WithoutTheVariable_data()
{
    const Table row([](const QString& expression, const QString& words) {
        NodePointer node;
        QVERIFY(ParseSymbolicExpression(expression, node));
        std::vector<NodePointer> solutions;
        QString error;
        QVERIFY(!IsolateNode(node, node, "X", solutions, error) && solutions.empty());
        QCOMPARE(error, words);
    });
    // clang-format off
    row("another variable",     "Y",        "ISOLATE cannot yet reverse this part of the expression.");
    row("a number",             "-7",       "ISOLATE cannot yet reverse this part of the expression.");
    row("another square root",  "SQRT(Y)",  "ISOLATE lost track of the target variable inside SQRT.");
    row("another sum",          "Y + 1",    "ISOLATE lost track of the target variable.");
    row("another power",        "Y^2",      "ISOLATE cannot yet isolate a variable that appears in an exponent.");
    // clang-format on
}

// Around one X operations are put by chance; every answer, put back, gives the equation. The trees are evaluated and
// not their text, which leaves out some brackets. Where a root of what is below zero would be needed, nothing is
// compared.
void IsolationTest::AnswersHold()
{
    RandomExpressions expressions(5);
    int compared = 0;
    for (int i = 0; i < 20000; ++i) {
        QString left = "X";
        for (int step = expressions.Below(6); step >= 0; --step) {
            const QString other = expressions.OneOf({"Y", "z", "2", "-3", "0.5", "(Y + 1)", "A*Y"});
            const QString pattern = expressions.OneOf({"(%1) + %2", "%2 - (%1)", "(%1)*(%2)", "%2/(%1)", "(%1)/(%2)",
                                                       "-(%1)", "(%1)^2", "(%1)^3", "(%1)^4", "%2 + (%1)"});
            left = pattern.contains("%2") ? pattern.arg(left, other) : pattern.arg(left);
        }
        const bool underRoot = expressions.Below(4) == 0; // a root equals nothing below zero
        NodePointer expression;
        NodePointer target;
        QVERIFY(ParseSymbolicExpression(underRoot ? "SQRT(" + left + ")" : left, expression));
        QVERIFY(ParseSymbolicExpression(underRoot ? "7" : expressions.OneOf({"Y", "12", "z + 1", "0"}), target));
        std::vector<NodePointer> solutions;
        QString error;
        if (!IsolateNode(expression, target, "x", solutions, error))
            continue;
        QMap<QString, double> point = expressions.Point();
        for (const NodePointer& solution : solutions) {
            QVERIFY(!NodeContainsVariable(solution, "X"));
            const std::optional<double> x = ValueAt(solution, point);
            point.insert("X", x.value_or(0));
            const std::optional<double> leftValue = ValueAt(expression, point);
            const std::optional<double> rightValue = ValueAt(target, point);
            if (!x || !leftValue || !rightValue)
                continue;
            ++compared;
            QVERIFY2(IsClose(*rightValue, *leftValue), qPrintable(left));
        }
    }
    QVERIFY(compared > 5000);
}

void IsolationTest::DeepEquations_data()
{
    const Table row([](const QString& left, const QString& begin) {
        QString result;
        const std::unique_ptr<QThread> thread(QThread::create([&] { IsolateText("X, " + left + " = Y", result); }));
        thread->setStackSize(256 * 1024);
        thread->start();
        QVERIFY(thread->wait());
        QVERIFY2(result.startsWith(begin), qPrintable(result.left(100)));
    });
    const QString tooMany = "ISOLATE stopped after too many algebra steps.";
    const auto nested = [](const QString& open, const QString& close, int times) -> QString {
        return open.repeated(times) + "X" + close.repeated(times);
    };
    row("brackets", nested("(", ")", 100'000), "X = Y");
    row("signs", nested("-", "", 100'000), "X = Y");
    row("terms", nested("", " + Z*Z", 100'000), "X = Y - 100000*Z^2");
    row("square roots", nested("SQRT(", ")", 100'000), tooMany);
    row("sums that are multiplied out", nested("(B + ", ")*C", 1000), tooMany);
    row("squares that double the answers", nested("(", "^2 + 1)", 10'000), tooMany);
    row("eight squares", nested("(", "^2 + Z)", 8), "X = SQRT(SQRT(");
}

void IsolationTest::Command_data()
{
    // No status: the line is no symbolic command.
    const Table row([](const QString& line, const QString& status, const QString& text, bool bold) {
        const std::optional<Submission> submission = HandleSymbolicCommand(line);
        QCOMPARE(submission.has_value(), !status.isEmpty());
        if (!submission)
            return;
        QCOMPARE(submission->status, status);
        QCOMPARE(submission->runs.size(), 2);
        QCOMPARE(submission->runs[0].text, text);
        QCOMPARE(submission->runs[0].bold, bold);
        QCOMPARE(submission->runs[1].text, QString("\n"));
        QVERIFY(!submission->runs[1].bold);
    });
    // clang-format off
    row("a simplified text is bold",   "simplify X + X",       "Simplified",      "2*X",              true);
    row("a refusal is not",            "SIMPLIFY (X",          "Cannot Simplify", "Cannot Simplify",  false);
    row("without an argument",         "SIMPLIFY",             "Cannot Simplify", "SIMPLIFY requires an expression or equation.", false);
    row("answers are one run",         "ISOLATE X, X^2 = 4",   "Isolated",        "X = 2\nX = -2",   true);
    row("an equation that has none",   "ISOLATE X, Y = 3",     "Cannot Isolate",  "The variable X does not appear in this equation.", false);
    row("a longer word",               "SIMPLIFYX",            "",                "",                 false);
    row("another line",                "X + X",                "",                "",                 false);
    // clang-format on
}

QTEST_APPLESS_MAIN(IsolationTest)
#include "IsolationTest.moc"
