// How long a line, and what is said of it, may be for the live preview; what it says is tested in the pad's sheets.
#include "Table.h"
#include "core/LineAnswers.h"

class PreviewTest : public QObject {
    Q_OBJECT

private slots:
    void Length_data();
    void Length() { CheckRow(); }
};

void PreviewTest::Length_data()
{
    const Table row([](const QString& line, const QString& end) {
        Calculator calculator;
        bool created = false;
        SubmitCustomFunctionCommand(calculator, "CREATE FUNCTION BODY(P) = P" + QString("+P").repeated(100), created);
        QVERIFY(created);
        calculator.values.variables = {{"X", 1.0 / 3}};
        const QString preview = PreviewText(calculator, line);
        QVERIFY2(end.isEmpty() ? preview.isEmpty() : preview.endsWith(end), qPrintable(preview));
    });
    // clang-format off
    row("a long line",                            "1" + QString("+1").repeated(4900),       "+1 = 4901");
    row("a chain of comparisons that fails",      "1" + QString("<2").repeated(4900),       "FALSE");
    row("too long a line",                        "1" + QString("+1").repeated(5000),       "");
    row("blanks around it do not count",          "1+1" + QString(" ").repeated(20000),     "1+1 = 2");
    row("a custom function that makes it longer", QString("BODY(0)+").repeated(60) + "1",   "");
    row("variables that make it longer",          "X" + QString("+X").repeated(1000),       "");
    row("a long line with a short preview",       "A = 1" + QString("+1").repeated(4900),   "A = 4901");
    // clang-format on
}

QTEST_APPLESS_MAIN(PreviewTest)
#include "PreviewTest.moc"
