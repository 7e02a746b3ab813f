#include "core/engine/CustomFunctions.h"
#include "../Table.h"

#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

CustomFunctionMap Definitions(const QList<CustomFunctionDefinition>& list)
{
    CustomFunctionMap map;
    for (const CustomFunctionDefinition& definition : list)
        map.insert(definition.name, definition);
    return map;
}

const CustomFunctionMap sample = Definitions({
    {u"SQ"_s, {u"X"_s}, u"X*X"_s},
    {u"AREA"_s, {u"W"_s, u"H"_s}, u"w * SQ(h)"_s},
    {u"ID"_s, {u"X"_s}, u"X"_s},
    {u"SEVEN7"_s, {}, u"7"_s},
    {u"HALF"_s, {u"E3"_s}, u"E3/2e3+0xE3"_s},
    {u"LOOP"_s, {}, u"LOOP()"_s},
});

// A workspace that reserves SIN, has the variable RATE, and cannot evaluate what holds the name BAD.
CustomFunctionSurroundings Around(const CustomFunctions& functions)
{
    return {[](const QString& name) { return name == u"SIN"; }, [](const QString& name) { return name == u"RATE"; },
            [&functions](const QString& expression) {
                QString expanded;
                QString errorText;
                return functions.ExpandCustomFunctions(expression, expanded, errorText) && !expanded.contains(u"BAD"_s);
            }};
}

QString PadText(const Submission& submission)
{
    QString text;
    for (const PadRun& run : submission.runs)
        text += run.bold ? u"<b>"_s + run.text : run.text;
    return text;
}

} // namespace

class CustomFunctionsTest : public QObject {
    Q_OBJECT

private slots:
    void IdentifierTokens_data();
    void IdentifierTokens() { CheckRow(); }
    void Expansion_data();
    void Expansion() { CheckRow(); }
    void ExpansionHasLimits_data();
    void ExpansionHasLimits() { CheckRow(); }
    void ATextWithoutCallsIsShared();
    void Commands_data();
    void Commands() { CheckRow(); }
    void ALongChainOfFunctionsIsNoCycle();
    void SettingsKeepFunctions();
    void SettingsWithInvalidEntries();
};

void CustomFunctionsTest::IdentifierTokens_data()
{
    const Table row([](const QString& text, const QString& replaced) {
        const QMap<QString, QString> replacements = {
            {u"X"_s, u"(2)"_s}, {u"E3"_s, u"(3)"_s}, {u"E"_s, u"(4)"_s}, {u"F"_s, u"(5)"_s}};
        QCOMPARE(ReplaceIdentifierTokens(text, replacements), replaced);
    });
    // clang-format off
    row("any case, whole identifiers",   "x+X1+_X+X_+éX",      "(2)+X1+_X+X_+éX");
    row("a number ends before a letter", "10X+2.5X+3.x",       "10(2)+2.5(2)+3.(2)");
    row("base literals are one thing",   "0xF+0XE3+0b1X+0o7F", "0xF+0XE3+0b1X+0o7F");
    row("only a leading 0 has a base",   "100X5+10X+1.0x",     "100X5+10(2)+1.0(2)");
    row("exponents are one thing",       "1E3+1e-06+.5E+3+2.E3", "1E3+1e-06+.5E+3+2.E3");
    row("no digits, no exponent",        "2E+X+2E+1e+",        "2(4)+(2)+2E+1(4)+");
    row("behind an exponent",            "1e3X 1e3E3",         "1e3(2) 1e3(3)");
    // clang-format on
}

void CustomFunctionsTest::Expansion_data()
{
    const Table row([](const QString& text, const QString& expected, const QString& errorText) {
        CustomFunctions functions;
        functions.SetDefinitions(sample);
        QString expanded;
        QString error;
        QCOMPARE(functions.ExpandCustomFunctions(text, expanded, error), errorText.isEmpty());
        QCOMPARE(error, errorText);
        if (errorText.isEmpty())
            QCOMPARE(expanded, expected);
        else
            QCOMPARE(expanded, text);
    });
    const QString none;
    // clang-format off
    row("arguments stand in brackets",   "2sq (1+2)",         "2((1+2)*(1+2))",             none);
    row("bodies call functions",         "AREA( 2, (3,4) )",  "((2) * ((((3,4)))*(((3,4)))))", none);
    row("arguments call functions",      "SQ(SEVEN7())",      "(((7))*((7)))",              none);
    row("a name alone is no call",       "SEVEN7+SQ",         "SEVEN7+SQ",                  none);
    row("an expansion can make a call",  "1 SQ SQ SEVEN7 ()", "1 (((7)*(7))*((7)*(7)))", none);
    row("numbers stay whole",            "HALF(1)+0xHALF(1)", "((1)/2e3+0xE3)+0xHALF(1)",   none);
    row("never closed",                  "1+sq((1)",          none, "Unclosed custom function call: SQ");
    row("an empty argument",             "AREA(1, )",         none, "Invalid arguments for AREA");
    row("too many arguments",            "SQ(1,2)",           none, "SQ expects 1 argument(s)");
    row("too few arguments",             "AREA( )",           none, "AREA expects 2 argument(s)");
    row("a circle meets the limit",      "LOOP()",            none, "Custom function expansion limit reached");
    // clang-format on
}

void CustomFunctionsTest::ExpansionHasLimits_data()
{
    const Table row([](const QString& text, bool succeeds) {
        CustomFunctions functions;
        functions.SetDefinitions(sample);
        QString expanded;
        QString error;
        QCOMPARE(functions.ExpandCustomFunctions(text, expanded, error), succeeds);
        QCOMPARE(error, succeeds ? QString() : u"Custom function expansion limit reached"_s);
    });
    const QString half = u"1+"_s.repeated(250'000) + u'1';
    // clang-format off
    row("99 calls",                      u"SEVEN7()+"_s.repeated(99),  true);
    row("100 calls",                     u"SEVEN7()+"_s.repeated(100), false);
    row("a text that doubles too often", QString(u"SQ(SQ("_s + half + u"))"_s), false);
    row("two long arguments",            QString(u"ID("_s + half + u")+1+ID("_s + half + u')'), false);
    row("a long text that does not",     QString(u"SEVEN7()+"_s + half), true);
    row("calls in calls in calls",       QString(u"SQ("_s.repeated(100'000) + u")"_s.repeated(100'000)), false);
    row("a long chain of names",         QString(u"SQ "_s.repeated(100'000) + u"SEVEN7()"_s), false);
    // clang-format on
}

void CustomFunctionsTest::ATextWithoutCallsIsShared()
{
    CustomFunctions functions;
    functions.SetDefinitions(sample);
    const QString text = u"SIN(2)+SQ 3"_s;
    QString expanded;
    QString error;
    QVERIFY(functions.ExpandCustomFunctions(text, expanded, error));
    QCOMPARE(expanded.constData(), text.constData());
}

void CustomFunctionsTest::Commands_data()
{
    // No status: not a command of ours.
    const Table row([](const QString& line, const QString& status, const QString& padText, bool expected) {
        CustomFunctions functions;
        CustomFunctionMap before = sample;
        for (const QString& name : {u"LOOP"_s, u"SEVEN7"_s, u"HALF"_s, u"ID"_s})
            before.remove(name);
        functions.SetDefinitions(before);
        bool changed = false;
        const std::optional<Submission> submission =
            functions.HandleCustomFunctionCommand(line, Around(functions), changed);
        QCOMPARE(submission.has_value(), !status.isEmpty());
        if (submission) {
            QCOMPARE(submission->status.value_or(QString()), status);
            QCOMPARE(PadText(*submission), padText);
        }
        QCOMPARE(changed, expected);
        QCOMPARE(functions.Definitions() != before, expected);
    });
    const QString usage = u"Use CREATE FUNCTION NAME(parameter, ...) = expression"_s;
    const QString recursive = u"Custom functions cannot call themselves recursively"_s;
    const QString none;
    // clang-format off
    row("a new function",          "create function  dbl ( x ) =  2x ", "Function created: DBL", "DBL(X) = 2x\n", true);
    row("no parameters",           "CREATE FUNCTION N() = RATE",   "Function created: N",  "N() = RATE\n",        true);
    row("an existing function",    "CREATE FUNCTION SQ(A,B)=A*b",  "Function updated: SQ", "SQ(A, B) = A*b\n",    true);
    row("nothing to create",       "CREATE FUNCTION",              usage, none, false);
    row("no brackets",             "CREATE FUNCTION F = 2",        usage, none, false);
    row("brackets in brackets",    "CREATE FUNCTION F((X)) = X",   usage, none, false);
    row("no expression",           "CREATE FUNCTION F(X) = ",      usage, none, false);
    row("a reserved name",         "CREATE FUNCTION sin(X) = X",   "Cannot use SIN as a function name",  none, false);
    row("a variable's name",       "CREATE FUNCTION RATE(X) = X",  "Cannot use RATE as a function name", none, false);
    row("a repeated parameter",    "CREATE FUNCTION F(X, x) = X",  "Invalid function parameter: x",      none, false);
    row("an empty parameter",      "CREATE FUNCTION F(X,) = X",    "Invalid function parameter: ",       none, false);
    row("a parameter as typed",    "CREATE FUNCTION F( 2y ) = 1",  "Invalid function parameter: 2y",     none, false);
    row("a function as parameter", "CREATE FUNCTION F(sq) = 1",    "Invalid function parameter: sq",     none, false);
    row("a reserved parameter",    "CREATE FUNCTION F(sin) = 1",   "Invalid function parameter: sin",    none, false);
    row("a second equals sign",    "CREATE FUNCTION F(X) = X = 1", "A function definition must contain one expression", none, false);
    row("calls itself",            "CREATE FUNCTION F(X) = F (X)", recursive, none, false);
    row("calls itself by another", "CREATE FUNCTION SQ(X) = AREA(X, 1)", recursive, none, false);
    row("has no value at 2",       "CREATE FUNCTION F(X) = BAD+X", "Cannot solve function expression",   none, false);
    row("wrong call in the body",  "CREATE FUNCTION F(X) = SQ(X, X)", "Cannot solve function expression", none, false);
    row("the list",                "functions",                    "Custom functions listed", "AREA(W, H) = w * SQ(h)\nSQ(X) = X*X\n", false);
    row("the delete commands",     "Delete Function",              "Delete commands listed",  "DELETE FUNCTION AREA\nDELETE FUNCTION SQ\n", false);
    row("deleting",                "DELETE FUNCTION  sq ",         "Function deleted: SQ",    "Function deleted: SQ\n", true);
    row("deleting what is not",    "DELETE FUNCTION sqr",          "No custom function named sqr", none, false);
    row("another line",            "FUNCTIONS 1",                  none, none, false);
    row("another word",            "CREATE FUNCTIONS",             none, none, false);
    // clang-format on
}

void CustomFunctionsTest::ALongChainOfFunctionsIsNoCycle()
{
    CustomFunctionMap map;
    for (int i = 0; i < 20'000; ++i) {
        const QString name = u"F"_s + QString::number(i);
        const QString next = u"F"_s + QString::number(i + 1);
        map.insert(name, {name, {}, i + 1 < 20'000 ? QString(next + u"()") : u"1"_s});
    }
    CustomFunctions functions;
    functions.SetDefinitions(map);
    bool changed = false;
    functions.HandleCustomFunctionCommand(u"CREATE FUNCTION G() = 1"_s, Around(functions), changed);
    QVERIFY(changed);
    const auto circle =
        functions.HandleCustomFunctionCommand(u"CREATE FUNCTION F19999() = F0()"_s, Around(functions), changed);
    QCOMPARE(*circle->status, u"Custom functions cannot call themselves recursively"_s);
}

void CustomFunctionsTest::SettingsKeepFunctions()
{
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"settings.ini"_s);
    CustomFunctions functions;
    functions.SetDefinitions(sample);
    {
        QSettings settings(file, QSettings::IniFormat);
        functions.SaveCustomFunctions(settings);
        CustomFunctionMap fewer = sample;
        fewer.remove(u"SQ"_s);
        functions.SetDefinitions(fewer);
        functions.SaveCustomFunctions(settings); // the longer array must leave nothing behind
    }
    QSettings settings(file, QSettings::IniFormat);
    CustomFunctions loaded;
    loaded.SetDefinitions(sample);
    loaded.LoadCustomFunctions(settings, [](const QString&) { return false; });
    QVERIFY(loaded.Definitions() == functions.Definitions());
    QVERIFY(!settings.contains(u"CustomFunctions/6/Name"_s));

    const QList<CalculatorSyntaxItem> items = loaded.GetCustomFunctionSyntaxItems();
    QCOMPARE(items.size(), 5);
    QCOMPARE(items[0].syntax, u"AREA(W, H)"_s);
    QCOMPARE(items[0].parameters, (QStringList{u"W"_s, u"H"_s}));
    QVERIFY(items[0].isFunction && !items[0].isCommand && !items[0].isWordOperator);
    QCOMPARE(GetCalculatorSyntaxCatalog(items).last().syntax, u"SEVEN7()"_s);
}

void CustomFunctionsTest::SettingsWithInvalidEntries()
{
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(u"settings.ini"_s), QSettings::IniFormat);
    const auto write = [&](int entry, const QString& name, const QString& parameters, const QString& expression) {
        const QString group = u"CustomFunctions/"_s + QString::number(entry) + u'/';
        settings.setValue(QString(group + u"Name"), name);
        settings.setValue(QString(group + u"Parameters"), parameters.split(u' '));
        settings.setValue(QString(group + u"Expression"), expression);
    };
    settings.setValue(u"CustomFunctions/size"_s, 2'000'000'000);
    write(1, u" good "_s, u"a b"_s, u" A+b "_s);
    write(2, u"GOOD"_s, u"x"_s, u"2"_s);
    write(3, u"sin"_s, u"x"_s, u"x"_s);
    write(4, u"2F"_s, u"x"_s, u"x"_s);
    write(5, u"EMPTY"_s, u"x"_s, u"  "_s);
    write(6, u"TWICE"_s, u"x X"_s, u"x"_s);
    write(7, u"TAKEN"_s, u"good"_s, u"1"_s);
    write(12, u"LAST"_s, u"x"_s, u"x"_s);
    write(2'000'000'001, u"BEYOND"_s, u"x"_s, u"x"_s);
    CustomFunctions functions;
    functions.LoadCustomFunctions(settings, [](const QString& name) { return name == u"SIN"; });
    QCOMPARE(functions.GetCustomFunctionsList(), u"GOOD(A, B) = A+b\nLAST(X) = x"_s);
    functions.SetDefinitions({});
    QCOMPARE(functions.GetDeleteCustomFunctionCommands(), u"-No Custom Functions-"_s);
}

QTEST_APPLESS_MAIN(CustomFunctionsTest)
#include "CustomFunctionsTest.moc"
