#include "core/solver/EquationSet.h"
#include "../Table.h"

#include "core/engine/AnswerFormat.h"
#include "core/solver/EquationBlock.h"
#include "core/solver/EquationText.h"
#include "core/solver/NonlinearSolver.h"
#include "core/solver/SingleUnknownSolver.h"

#include <QElapsedTimer>

namespace {

EquationSetting Setting()
{
    EquationSetting setting;
    setting.variables = {{"A", 2}, {"FOUR", 4}};
    setting.lastAnswer = 7;
    setting.expandCustomFunctions = [](const QString& text, QString& expanded) { // a call of BAD cannot be written out
        expanded = text;
        return !text.contains("BAD(");
    };
    setting.formatAnswer = [](double value) { return FormatAnswer(value, {}); };
    return setting;
}

EquationAnswer Answer(
    const QString& equations, const SearchTick& tick = [](const QString&) { return false; })
{
    return HandleEquationSet(equations.split(u';'), Setting(), tick);
}

QString PadText(const Submission& submission)
{
    QString text;
    for (const PadRun& run : submission.runs)
        text += run.text;
    return text;
}

// x01 + ... + x[n] = i with one more of x[i] in line i.
QString DenseSystem(int size)
{
    QStringList terms;
    for (int i = 1; i <= size; ++i)
        terms << u"X%1"_qs.arg(i, 3, 10, QChar(u'0'));
    QStringList lines;
    for (int i = 1; i <= size; ++i)
        lines << terms.join(u'+') + u'+' + terms[i - 1] + u"=%1"_qs.arg(i);
    return lines.join(u';');
}

} // namespace

class EquationSetTest : public QObject {
    Q_OBJECT

private slots:
    void Solved_data();
    void Solved() { CheckRow(); }
    void AnswersOfOneValueBecomeANS();
    void NoRootOfOneUnknown();
    void ValuesInTheText();
    void LargeSystems();
    void AStoppedSearchReports();
    void AReportLeavesOutSidesWithoutAValue();
    void ApproximateValuesAreTidied();
    void ASearchStopsSoon_data();
    void ASearchStopsSoon() { CheckRow(); }
    void Unknowns_data();
    void Unknowns() { CheckRow(); }
    void Blocks_data();
    void Blocks() { CheckRow(); }
};

void EquationSetTest::Solved_data()
{
    const Table row([](const QString& equations, const QString& begin, const QString& status) {
        const EquationAnswer answer = Answer(equations);
        const QString text = PadText(answer.submission);
        QVERIFY2(text.left(begin.size()) == begin && text.isEmpty() == begin.isEmpty(), qPrintable(text));
        QCOMPARE(*answer.submission.status, status);
    });
    const QString one = "Equation solved", system = "Equation system solved", many = "One solution found";
    // clang-format off
    row("a linear equation",                       "X+5=20",            "X = 15\n",         one);
    row("the unknown in any case",                 "2*x=6",             "X = 3\n",          one);
    row("variables are known",                     "A*X=6",             "X = 3\n",          one);
    row("so is ANS",                               "X+ANS=2ANS",        "X = 7\n",          one);
    row("a digit before the unknown multiplies",   "10X=50",            "X = 5\n",          one);
    row("an exponent mark is no unknown",          "1E3+X=2000",        "X = 1000\n",       one);
    row("the tail of a literal is no unknown",     "0X1F+Y=0",          "Y = -31\n",        one);
    row("an unknown E is none of 1e-06",           "E*1E6=1E-6*1E6",    "E = 1e-06\n",      one);
    row("of two roots the positive one",           "X^2=25",            "X = 5\n",          one);
    row("a negative root that stands alone",       "X^3=-8",            "X = -2\n",         one);
    row("zero comes first",                        "X*(X-3)=0",         "X = 0\n",          one);
    row("a root between grid points",              "X^3-2*X-5=0",       "X = 2.094551481542", one); // Wallis, Algebra, 1685
    row("a root in a far range",                   "X^2=4E10",          "X = 200000\n",     one);
    row("a function after which the unknown stands", "SQRT X=3",        "X = 9\n",          one);
    row("no line, though it looks like 0 = 0",     "X^3=X",             "X = 0\n",          one);
    row("points without a value are stepped over", "SQRT(X-201)=2",     "X = 205\n",        one);
    row("two lines that cross",                    "X+Y=10;X-Y=2",      "X = 6\nY = 4\n",   system);
    row("free unknowns are zero",                  "X+Y=2",             "X = 2\nY = 0\n",   many);
    row("residue of rounding is no coefficient",   "0.1X+0.2Y=0.3;0.3X+0.6Y=0.9", "X = 3\nY = 0\n", many);
    row("every number solves it",                  "0*X=0",             "X = 0\n",          many);
    row("an equation twice",                       "X=1;X=1",           "X = 1\n",          system);
    row("more equations than unknowns",            "X+Y=3;X-Y=1;X+2Y=4", "X = 2\nY = 1\n",  system);
    row("the root that solves both",               "X^2=4;X=-2",        "X = -2\n",         system);
    row("a circle and a line",                     "X^2+Y^2=25;X-Y=1",  "X = 4\nY = 3\n",   system);
    row("no unknown",                              "5=4+A",             "-Cannot Solve-\n", "Cannot Solve Equation");
    row("no unknown in a system",                  "5=4;A=3",           "-Cannot Solve-\n", "Cannot Solve Equation System");
    row("a call that cannot be written out",       "BAD(X)=1",           "-Cannot Solve-\n", "Cannot Solve Equation");
    row("such a call in a system",                 "X=1;Y=BAD(X)",       "-Cannot Solve-\n", "Cannot Solve Equation System");
    row("a value on one side of the start alone",  "SQRT(-X)=2;X+Y=0",   "X = -4\nY = 4\n",  system);
    row("no root, and no point that has a value",  "SQRT(-X^2-1)=0",    "",                 "Solve cancelled");
    row("two signs in a line of a system",         "X=1;X=1=1",         "",                 "Solve cancelled");
    // clang-format on
}

void EquationSetTest::AnswersOfOneValueBecomeANS()
{
    QCOMPARE(*Answer("X+5=20").lastAnswer, 15.0);
    QCOMPARE(*Answer("0*X=0").lastAnswer, 0.0);
    for (const char* none : {"X=1;X=1", "X+Y=2", "X^2=-1", "5=4+A"})
        QVERIFY2(!Answer(none).lastAnswer, none);
}

// Poles and jumps change the sign and are no roots.
void EquationSetTest::NoRootOfOneUnknown()
{
    SearchPulse pulse([](const QString&) { return true; });
    for (const char* equation : {"1/X=0", "1/(X-0.01)=0", "X+9*SIGN(X-0.02)=0", "X^2=-1", "X=2000001"})
        QVERIFY2(!SolveSingleVariableEquation(CompiledEquation(equation, {"X"}, Setting()), pulse), equation);
}

void EquationSetTest::ValuesInTheText()
{
    QString left = "2X+x*Z2X+X2+0xA+_X", right = "1E-3*E+ANS*A";
    const double values[] = {1e-6, 3};
    QVERIFY(PrepareEquationExpressions(left, right, {"E", "X"}, values, Setting()));
    QCOMPARE(left, "2(3)+(3)*Z2(3)+X2+0xA+_X");
    QCOMPARE(right, "1E-3*(9.9999999999999995e-07)+(7)*(2)");
    QVERIFY(!PrepareEquationExpressions(left, right, {"X"}, values, Setting()));
}

void EquationSetTest::LargeSystems()
{
    // The sum of all lines gives s, the sum of the unknowns: (n + 1) s = n (n + 1) / 2. Then x[i] = i - s.
    QVERIFY(PadText(Answer(DenseSystem(50)).submission).startsWith("X001 = -24\nX002 = -23\n"));
    QCOMPARE(*Answer("X001=1;" + DenseSystem(3)).submission.status, "Approximate answer"); // they contradict
    QString unknowns = "X0";
    for (int i = 1; i < 100000; ++i)
        unknowns += u"+X%1"_qs.arg(i);
    QCOMPARE(*Answer(unknowns + "=1").submission.status, "Cannot Solve Equation");
}

void EquationSetTest::AStoppedSearchReports()
{
    QStringList ticks;
    const EquationAnswer answer = Answer("X^2=-1;X=0", [&](const QString& status) {
        ticks << status;
        return ticks.size() < 4;
    });
    const QString dots = "(Type to Cancel) Solving";
    QCOMPARE(ticks, QStringList({dots + ".", dots + "..", dots + "...", dots + "."}));
    QCOMPARE(*answer.submission.status, "Approximate answer");
    QCOMPARE(PadText(answer.submission), "Approximate Answer\n\nX = 0\n"
                                         "\nNo exact solution was found before solving stopped.\n\n"
                                         "Equation 1:\nX^2=-1\n"
                                         "Calculated Left Side:  0\nCalculated Right Side: -1\n"
                                         "Difference:             +1\n\n"
                                         "Equation 2:\nX=0\n"
                                         "Calculated Left Side:  0\nCalculated Right Side: 0\n"
                                         "Difference:             0\n\n"
                                         "Maximum Error: 1\nRMS Error: 0.707106781186548\nTotal Squared Error: 1\n");
    QVERIFY(answer.submission.runs[0].bold && !answer.submission.runs[1].bold && answer.submission.runs[2].bold);
}

// The left sides have a value only together with the right ones. Nor do they count.
void EquationSetTest::AReportLeavesOutSidesWithoutAValue()
{
    const QString heading = "Approximate Answer\n\nX = 0\n\nNo exact solution was found before solving stopped.\n\n";
    const QString errors = "Maximum Error: 0\nRMS Error: 0\nTotal Squared Error: 0\n";
    for (const auto& [equations, rest] :
         {std::pair("X)^2+(1=0", ""), std::pair("X)^2+(1=0;X=0", "Equation 2:\nX=0\n"
                                                                 "Calculated Left Side:  0\nCalculated Right Side: 0\n"
                                                                 "Difference:             0\n\n")}) {
        int ticks = 0;
        const EquationAnswer answer = Answer(equations, [&](const QString&) { return ++ticks < 3; });
        QCOMPARE(PadText(answer.submission), heading + rest + errors);
    }
}

// As far as that costs nothing.
void EquationSetTest::ApproximateValuesAreTidied()
{
    const auto flat = BuildEquationSystem({"(X-0.25)^2=-1", "(Y-3)^2=-1"}, Setting());
    QCOMPARE(TidyApproximateAnswer(*flat, {0.2500000003, 0.7499999998}), Point({0.25, 0.75}));
    QCOMPARE(TidyApproximateAnswer(*flat, {0.2500000003, 2.9999999998}), Point({0.2500000003, 3})); // fewer decimals
    const auto root = BuildEquationSystem({"SQRT(X)=1"}, Setting());
    QCOMPARE(TidyApproximateAnswer(*root, {-0.2500000003}), Point({-0.2500000003})); // has no value
    const auto steep = BuildEquationSystem({"1E9*X=300000000.3"}, Setting());
    QCOMPARE(TidyApproximateAnswer(*steep, {0.3000000003}), Point({0.3000000003}));
}

// 100 ms between two ticks, and less behind the last; thrice that, for the machine may be busy.
void EquationSetTest::ASearchStopsSoon_data()
{
    const Table row([](const QString& equations) {
        QElapsedTimer sinceTick;
        qint64 longest = 0;
        int ticks = 0;
        Answer(equations, [&](const QString&) {
            longest = ticks == 0 ? 0 : std::max(longest, sinceTick.elapsed());
            sinceTick.start();
            return ++ticks < 2;
        });
        QCOMPARE(ticks, 2);
        QVERIFY2(longest < 300, qPrintable(QString::number(longest)));
        QVERIFY2(sinceTick.elapsed() < 300, qPrintable(QString::number(sinceTick.elapsed())));
    });
    row("a small system", "X^2=-1");
    row("a large linear system", DenseSystem(600));
    row("a large system", DenseSystem(150) + ";X001^2=-1");
    row("a long equation", QString("X+").repeated(200000) + "X^2=-1E99");
}

void EquationSetTest::Unknowns_data()
{
    const Table row([](const QString& equation, const QString& unknowns, const QString& single) {
        QStringList names;
        QString left, right, variable;
        FindEquationSystemVariables({equation}, names, Setting());
        QCOMPARE(names.join(u','), unknowns);
        QCOMPARE(ParseSingleVariableEquation(equation, left, right, variable, Setting()) ? variable : QString(),
                 single);
    });
    // clang-format off
    row("sorted, in upper case",     "b+A1=a2+B",         "A1,A2,B", "");
    row("words of the language",     "SIN(X)+PI=over+A",  "X",       "X");
    row("number literals",           "1E3+0x1F=2e-5+10X", "X",       "X");
    row("a mark without its digits", "2E=1",              "E",       "E");
    row("a fraction, in systems",    "FRACTION+X=1",      "FRACTION,X", "X");
    row("none",                      "A=FOUR",            "",        "");
    row("two signs",                 "X=1=1",             "X",       "");
    row("an empty side",             "X= ",               "X",       "");
    // clang-format on
}

void EquationSetTest::Blocks_data()
{
    // The cursor stands at the bar. No equations: no block.
    const Table row([](QString text, bool inside, const QString& equations) {
        const qsizetype position = text.indexOf(u'|');
        text.remove(u'|');
        QStringList lines;
        const bool found =
            ExtractEquationBlock(text, position, lines, [](const QString& line) { return line.trimmed().toUpper(); });
        QCOMPARE(IsInsideEquationBlock(text, position), inside);
        QCOMPARE(lines.join(u';'), equations);
        QCOMPARE(found, !lines.isEmpty());
    });
    // clang-format off
    row("behind the block",         "{X=1\n\n y = 2 }\n|after", false, "X=1;Y = 2");
    row("the last of two blocks",   "{a}\n{b}|",                false, "B");
    row("in the first of two",      "{a|}\n{b}",                true,  "");
    row("between two",              "{a}|\n{b}",                false, "A");
    row("an open block behind one", "{a}\n{b|",                 true,  "A");
    row("an inner block",           "{a{b}|c}",                 false, "B");
    row("closed twice",             "{a}b}|",                   false, "");
    row("never opened",             "a}|",                      false, "");
    row("only closed",              "}|",                       false, "");
    row("empty",                    "{ \n }|",                  false, "");
    row("at the start",             "|{a}",                     false, "");
    // clang-format on
}

QTEST_APPLESS_MAIN(EquationSetTest)
#include "EquationSetTest.moc"
