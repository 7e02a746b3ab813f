#include "core/solver/Comparison.h"

#include "core/engine/AnswerFormat.h"

#include <QTest>

namespace {

EquationSetting Setting()
{
    EquationSetting setting;
    setting.variables = {{"A", 3}};
    setting.lastAnswer = 2;
    setting.formatAnswer = [](double value) { return FormatAnswer(value, {}); };
    return setting;
}

// What stands in the pad, bold text between asterisks.
QString PadText(const Submission& submission)
{
    QString text;
    for (const PadRun& run : submission.runs)
        text += run.bold ? u'*' + run.text + u'*' : run.text;
    return text;
}

} // namespace

class ComparisonTest : public QObject {
    Q_OBJECT

private slots:
    void Answer_data();
    void Answer();
    void ALongChain();
};

void ComparisonTest::Answer_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("status"); // empty: no comparison
    // clang-format off
    QTest::newRow("sides of equal value")                      << "2+3=5"                        << "TRUE";
    QTest::newRow("variables and ANS have their values")       << "A = ANS+1"                    << "TRUE";
    QTest::newRow("a chain holds if every link does")          << "1<2<3"                        << "TRUE";
    QTest::newRow("one link that fails")                       << "1<2<2"                        << "FALSE";
    QTest::newRow("equal within the last digits")              << "0.1+0.2=0.3"                  << "TRUE";
    QTest::newRow("equal by magnitude")                        << "1000000000000=1000000000000.5" << "TRUE";
    QTest::newRow("not equal by magnitude")                    << "1000000000000=1000000000002"  << "FALSE";
    QTest::newRow("below has no tolerance")                    << "1 < 1.0000000000001"          << "TRUE";
    QTest::newRow("different has one")                         << "1 <> 1.0000000000001"         << "FALSE";
    QTest::newRow("at most")                                   << "2<=2"                         << "TRUE";
    QTest::newRow("above is not at most")                      << "3<=2"                         << "FALSE";
    QTest::newRow("a chain of both")                           << "1<=2<=2>=2>=1"                << "TRUE";
    QTest::newRow("at least")                                  << "2 >= 3"                       << "FALSE";
    QTest::newRow("an unknown between equal signs: equation")  << "X = 5"                        << "";
    QTest::newRow("also in a chain")                           << "1 = 1 = X"                    << "";
    QTest::newRow("an unknown elsewhere")                      << "1 < X"                        << "Cannot Compare";
    QTest::newRow("no operator")                               << "1+1"                          << "";
    QTest::newRow("nothing before the first operator")         << "= 5"                          << "Cannot Compare";
    QTest::newRow("nothing behind the last operator")          << "1 <"                          << "Cannot Compare";
    QTest::newRow("nothing between two operators")             << "1 == 1"                       << "Cannot Compare";
    QTest::newRow("brackets protect no operator")              << "(1<2)<3"                      << "Cannot Compare";
    // clang-format on
}

void ComparisonTest::Answer()
{
    QFETCH(QString, line);
    QFETCH(QString, status);
    const std::optional<Submission> submission = HandleComparisonSubmission(line, Setting());
    QCOMPARE(submission.has_value(), !status.isEmpty());
    if (!submission)
        return;
    QCOMPARE(*submission->status, status);
    if (status == "FALSE")
        QVERIFY(PadText(*submission).startsWith("*FALSE*\n"));
    else
        QCOMPARE(PadText(*submission), status == "TRUE" ? "*TRUE*\n" : "Cannot Compare\n");
}

// All operands with their values; one that grows beyond measure is no report.
void ComparisonTest::ALongChain()
{
    const auto report = HandleComparisonSubmission("1+1<A<=  2", Setting());
    QCOMPARE(PadText(*report), "*FALSE*\n"
                               "*1+1* < A <= 2  ->  2\n"
                               "1+1 < *A* <= 2  ->  3\n"
                               "1+1 < A <= *2*  ->  2\n"
                               "2 < 3 <= 2  ->  FALSE\n");
    const QString endless = QString("1>").repeated(100000) + u'1';
    QCOMPARE(*HandleComparisonSubmission(endless, Setting())->status, "Cannot Compare");
}

QTEST_APPLESS_MAIN(ComparisonTest)
#include "ComparisonTest.moc"
