// The language's names stand in several tables, each for a use of its own: what runs a function, what describes it,
// what is closed to variables, and what is no unknown of an equation. No name may be missing in one of them.
#include "core/engine/Functions.h"
#include "core/engine/ReservedNames.h"
#include "core/engine/SyntaxCatalog.h"
#include "core/engine/Variables.h"
#include "core/solver/EquationText.h"

#include <QSet>
#include <QTest>

namespace {

// Functions of the catalog that no call of the evaluator runs: the forms of number literals, the command FRACTION and
// the words of the date and time language.
const QSet<QString> runElsewhere = {"0b",  "0o",      "0x",    "FRACTION", "DATE", "DAYS",   "AGE",
                                    "DAY", "WEEKDAY", "MONTH", "YEAR",     "HOUR", "MINUTE", "SECOND"};

bool Runs(const QString& name)
{
    return FindFunction(name.toStdString()) != nullptr;
}

} // namespace

class NamesTest : public QObject {
    Q_OBJECT

private slots:
    void EveryFunctionIsDescribedAndReserved();
    void NoFunctionIsAnUnknown();
    void EveryDescribedFunctionRuns();
    void EveryDescribedWordIsReserved();
    void NamesOfVariables_data();
    void NamesOfVariables();
};

void NamesTest::EveryFunctionIsDescribedAndReserved()
{
    int functions = 0;
    for (const FunctionLibrary library : FunctionLibraries()) {
        for (const FunctionRow& row : library) {
            const QString name = row.name;
            QVERIFY2(IsCatalogFunction(name), qPrintable(name));
            QVERIFY2(IsReservedBuiltInName(name), qPrintable(name));
            QVERIFY2(name.size() <= static_cast<qsizetype>(longestName), qPrintable(name));
            ++functions;
        }
    }
    QCOMPARE(functions, 99);
}

// Else a search would give the function's name a value.
void NamesTest::NoFunctionIsAnUnknown()
{
    for (const FunctionLibrary library : FunctionLibraries()) {
        for (const FunctionRow& row : library) {
            const QString equation = row.name + QString("(X)=1");
            QString left, right, variable;
            QStringList names;
            ParseSingleVariableEquation(equation, left, right, variable, {});
            FindEquationSystemVariables({equation}, names, {});
            QVERIFY2(variable == "X" && names == QStringList("X"), qPrintable(equation));
        }
    }
}

void NamesTest::EveryDescribedFunctionRuns()
{
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        if (item.isFunction)
            QVERIFY2(Runs(item.name) != runElsewhere.contains(item.name), qPrintable(item.name));
    }
}

// Except those of several words, whose first word alone is a command or reserved with them, and the literals' forms.
void NamesTest::EveryDescribedWordIsReserved()
{
    const QSet<QString> free = {"OF"};
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        if (IsValidVariableName(item.name) && !free.contains(item.name))
            QVERIFY2(IsReservedBuiltInName(item.name), qPrintable(item.name));
    }
}

void NamesTest::NamesOfVariables_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expression");
    // clang-format off
    QTest::newRow("trimmed on both sides")     << " rate_2 =  5 " << "rate_2" << "5";
    QTest::newRow("an underscore may lead")    << "_=1"           << "_"      << "1";
    QTest::newRow("without a value")           << "x ="           << "x"      << "";
    QTest::newRow("no equal sign")             << "x"             << ""       << "";
    QTest::newRow("two equal signs")           << "x == 2"        << ""       << "";
    QTest::newRow("a name cannot begin so")    << "2x = 4"        << ""       << "";
    QTest::newRow("an expression is no name")  << "x + 1 = 4"     << ""       << "";
    QTest::newRow("ASCII only")                << "é = 4"         << ""       << "";
    QTest::newRow("no name at all")            << "= 4"           << ""       << "";
    // clang-format on
}

void NamesTest::NamesOfVariables()
{
    QFETCH(QString, text);
    QString name;
    QString expression;
    const bool assignment = ParseVariableAssignment(text, name, expression);
    QTEST(name, "name");
    QTEST(expression, "expression");
    QCOMPARE(assignment, !name.isEmpty());
}

QTEST_APPLESS_MAIN(NamesTest)
#include "NamesTest.moc"
