#include "core/engine/SyntaxCatalog.h"
#include "../Table.h"

#include "core/engine/WordOperators.h"

using namespace Qt::StringLiterals;

class SyntaxCatalogTest : public QObject {
    Q_OBJECT

private slots:
    void TheTableHoldsTogether();
    void Items_data();
    void Items() { CheckRow(); }
    void FindingAName_data();
    void FindingAName() { CheckRow(); }
    void CustomItemsStandBehindTheTable();
};

void SyntaxCatalogTest::TheTableHoldsTogether()
{
    QCOMPARE(BuiltInSyntaxCatalog().size(), 226);
    int functions = 0;
    int commands = 0;
    int words = 0;
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        const QByteArray name = item.name.toUtf8();
        functions += item.isFunction;
        commands += item.isCommand;
        words += item.isWordOperator;
        QVERIFY2(item.isFunction + item.isCommand + item.isWordOperator <= 1, name);
        QVERIFY2(item.isFunction == item.syntax.startsWith(QString(item.name + u'(')), name);
        QVERIFY2(item.isCommand || item.isFunction || item.syntax.isEmpty(), name);
        for (const QString& parameter : item.parameters)
            QVERIFY2(item.syntax.contains(parameter, Qt::CaseInsensitive) || item.name == u"DATE", name);
        if (item.isWordOperator)
            QVERIFY2(WordOp(item.name) != item.name, name);
    }
    QCOMPARE(functions, 113);
    QCOMPARE(commands, 49);
    QCOMPARE(words, 59);
}

void SyntaxCatalogTest::Items_data()
{
    const Table row([](const QString& syntax, const QStringList& parameters) {
        const CalculatorSyntaxItem* item = FindCalculatorSyntaxItem(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(item);
        QCOMPARE(item->syntax, syntax);
        QCOMPARE(item->parameters, parameters);
    });
    const auto list = [](const QString& text) { return text.split(u'|', Qt::SkipEmptyParts); };
    // clang-format off
    row("SIN",             "SIN(angle)",                       list(u"angle"_s));
    row("RANDOM",          "RANDOM()",                         QStringList());
    row("ROUND",           "ROUND([decimalPlaces,] value)",    list(u"decimalPlaces|value"_s));
    row("SUM",             "SUM(value1, value2, ...)",         list(u"value1|value2, ..."_s));
    row("NPV",             "NPV(rate, cashFlow0, cashFlow1, ...)", list(u"rate|cashFlow0|cashFlow1, ..."_s));
    row("PV",              "PV(rate, periods, futureValue [, payment])", list(u"rate|periods|futureValue|payment"_s));
    row("DATE",            "DATE(\"M/D/YYYY [H:MM AM/PM]\")",  list(u"dateText"_s));
    row("CLEAR VARIABLES", "CLEAR VARIABLES",                  QStringList());
    row("FORMAT",          "FORMAT=formatString",              list(u"formatString"_s));
    row("MENU",            "MENU option [value]",              list(u"option|value"_s));
    row("MENU OUTPUT BASE", "MENU OUTPUT BASE [DEC/BIN/OCT/HEX]", list(u"base"_s));
    row("CREATE FUNCTION", "CREATE FUNCTION name(parameter, ...) = expression", list(u"name(parameter, ...)|expression"_s));
    row("ISOLATE",         "ISOLATE variable, equation",       list(u"variable|equation"_s));
    row("TODAY",           "",                                 QStringList());
    // clang-format on
}

void SyntaxCatalogTest::FindingAName_data()
{
    const Table row([](const QString& name, const QString& found, bool isFunction) {
        const CalculatorSyntaxItem* item = FindCalculatorSyntaxItem(name);
        QCOMPARE(item ? item->name : QString(), found);
        QCOMPARE(IsCatalogFunction(name), isFunction);
    });
    // clang-format off
    row("any case",                           "sIn",              "SIN",              true);
    row("the first of equal names",           "min",              "MIN",              true);
    row("lower case in the table",            "0X",               "0x",               true);
    row("the longest name",                   "menu output base hexadecimal", "MENU OUTPUT BASE HEXADECIMAL", false);
    row("one letter more than the longest",   "MENU OUTPUT BASE HEXADECIMALS", "",    false);
    row("nothing",                            "",                 "",                 false);
    row("a letter that equals in any case",   "\u017Fin",         "SIN",              true);
    // clang-format on
}

void SyntaxCatalogTest::CustomItemsStandBehindTheTable()
{
    const QList<CalculatorSyntaxItem> custom = {{u"SIN"_s, u"SIN(X)"_s, {u"X"_s}, true},
                                                {u"AREA"_s, u"AREA(W, H)"_s, {u"W"_s, u"H"_s}, true}};
    QCOMPARE(FindCalculatorSyntaxItem(u"sin"_s, custom)->syntax, u"SIN(angle)"_s);
    QCOMPARE(FindCalculatorSyntaxItem(u"area"_s, custom), &custom[1]);
    QVERIFY(!FindCalculatorSyntaxItem(u"AREAS"_s, custom));
    QCOMPARE(GetCalculatorSyntaxCatalog(custom).size(), BuiltInSyntaxCatalog().size() + 2);
    QVERIFY(GetCalculatorSyntaxCatalog({}).isSharedWith(BuiltInSyntaxCatalog()));
}

QTEST_APPLESS_MAIN(SyntaxCatalogTest)
#include "SyntaxCatalogTest.moc"
