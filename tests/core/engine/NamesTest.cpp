// The language's names stand in several tables, each for a use of its own: what runs a function, what describes it,
// what is closed to variables, and what is no unknown of an equation. No name may be missing in one of them.
#include "../Table.h"
#include "core/engine/Functions.h"
#include "core/engine/ReservedNames.h"
#include "core/engine/SyntaxCatalog.h"
#include "core/engine/Variables.h"
#include "core/solver/EquationText.h"

#include <QSet>

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
    void NamesOfVariables() { CheckRow(); }
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
    const Table row([](const QString& text, const QString& expectedName, const QString& expectedExpression) {
        QString name;
        QString expression;
        const bool assignment = ParseVariableAssignment(text, name, expression);
        QCOMPARE(name, expectedName);
        QCOMPARE(expression, expectedExpression);
        QCOMPARE(assignment, !name.isEmpty());
    });
    // clang-format off
    row("trimmed on both sides",     " rate_2 =  5 ", "rate_2", "5");
    row("an underscore may lead",    "_=1",           "_",      "1");
    row("without a value",           "x =",           "x",      "");
    row("no equal sign",             "x",             "",       "");
    row("two equal signs",           "x == 2",        "",       "");
    row("a name cannot begin so",    "2x = 4",        "",       "");
    row("an expression is no name",  "x + 1 = 4",     "",       "");
    row("ASCII only",                "é = 4",         "",       "");
    row("no name at all",            "= 4",           "",       "");
    // clang-format on
}

QTEST_APPLESS_MAIN(NamesTest)
#include "NamesTest.moc"
