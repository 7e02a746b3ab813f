#include "core/solver/Comparison.h"
#include "../Table.h"

#include "core/engine/AnswerFormat.h"

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
    void Answer() { CheckRow(); }
    void ALongChain();
};

void ComparisonTest::Answer_data()
{
    // No status: no comparison.
    const Table row([](const QString& line, const QString& status) {
        const std::optional<Submission> submission = HandleComparisonSubmission(line, Setting());
        QCOMPARE(submission.has_value(), !status.isEmpty());
        if (!submission)
            return;
        QCOMPARE(*submission->status, status);
        if (status == "FALSE")
            QVERIFY(PadText(*submission).startsWith("*FALSE*\n"));
        else
            QCOMPARE(PadText(*submission), status == "TRUE" ? "*TRUE*\n" : "Cannot Compare\n");
    });
    // clang-format off
    row("sides of equal value",                      "2+3=5",                        "TRUE");
    row("variables and ANS have their values",       "A = ANS+1",                    "TRUE");
    row("a chain holds if every link does",          "1<2<3",                        "TRUE");
    row("one link that fails",                       "1<2<2",                        "FALSE");
    row("equal within the last digits",              "0.1+0.2=0.3",                  "TRUE");
    row("equal by magnitude",                        "1000000000000=1000000000000.5", "TRUE");
    row("not equal by magnitude",                    "1000000000000=1000000000002",  "FALSE");
    row("below has no tolerance",                    "1 < 1.0000000000001",          "TRUE");
    row("different has one",                         "1 <> 1.0000000000001",         "FALSE");
    row("at most",                                   "2<=2",                         "TRUE");
    row("above is not at most",                      "3<=2",                         "FALSE");
    row("a chain of both",                           "1<=2<=2>=2>=1",                "TRUE");
    row("at least",                                  "2 >= 3",                       "FALSE");
    row("an unknown between equal signs: equation",  "X = 5",                        "");
    row("also in a chain",                           "1 = 1 = X",                    "");
    row("an unknown elsewhere",                      "1 < X",                        "Cannot Compare");
    row("no operator",                               "1+1",                          "");
    row("nothing before the first operator",         "= 5",                          "Cannot Compare");
    row("nothing behind the last operator",          "1 <",                          "Cannot Compare");
    row("nothing between two operators",             "1 == 1",                       "Cannot Compare");
    row("brackets protect no operator",              "(1<2)<3",                      "Cannot Compare");
    // clang-format on
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
