#include "core/engine/SyntaxCatalog.h"

#include "core/engine/WordOperators.h"

#include <QTest>

using namespace Qt::StringLiterals;

class SyntaxCatalogTest : public QObject {
    Q_OBJECT

private slots:
    void TheTableHoldsTogether();
    void Items_data();
    void Items();
    void FindingAName_data();
    void FindingAName();
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
    QTest::addColumn<QString>("syntax");
    QTest::addColumn<QStringList>("parameters");
    const auto list = [](const QString& text) { return text.split(u'|', Qt::SkipEmptyParts); };
    // clang-format off
    QTest::newRow("SIN")             << "SIN(angle)"                       << list(u"angle"_s);
    QTest::newRow("RANDOM")          << "RANDOM()"                         << QStringList();
    QTest::newRow("ROUND")           << "ROUND([decimalPlaces,] value)"    << list(u"decimalPlaces|value"_s);
    QTest::newRow("SUM")             << "SUM(value1, value2, ...)"         << list(u"value1|value2, ..."_s);
    QTest::newRow("NPV")             << "NPV(rate, cashFlow0, cashFlow1, ...)" << list(u"rate|cashFlow0|cashFlow1, ..."_s);
    QTest::newRow("PV")              << "PV(rate, periods, futureValue [, payment])" << list(u"rate|periods|futureValue|payment"_s);
    QTest::newRow("DATE")            << "DATE(\"M/D/YYYY [H:MM AM/PM]\")"  << list(u"dateText"_s);
    QTest::newRow("CLEAR VARIABLES") << "CLEAR VARIABLES"                  << QStringList();
    QTest::newRow("FORMAT")          << "FORMAT=formatString"              << list(u"formatString"_s);
    QTest::newRow("MENU")            << "MENU option [value]"              << list(u"option|value"_s);
    QTest::newRow("MENU OUTPUT BASE") << "MENU OUTPUT BASE [DEC/BIN/OCT/HEX]" << list(u"base"_s);
    QTest::newRow("CREATE FUNCTION") << "CREATE FUNCTION name(parameter, ...) = expression" << list(u"name(parameter, ...)|expression"_s);
    QTest::newRow("ISOLATE")         << "ISOLATE variable, equation"       << list(u"variable|equation"_s);
    QTest::newRow("TODAY")           << ""                                 << QStringList();
    // clang-format on
}

void SyntaxCatalogTest::Items()
{
    const CalculatorSyntaxItem* item = FindCalculatorSyntaxItem(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(item);
    QTEST(item->syntax, "syntax");
    QTEST(item->parameters, "parameters");
}

void SyntaxCatalogTest::FindingAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("found"); // empty: none
    QTest::addColumn<bool>("isFunction");
    // clang-format off
    QTest::newRow("any case")                           << "sIn"              << "SIN"              << true;
    QTest::newRow("the first of equal names")           << "min"              << "MIN"              << true;
    QTest::newRow("lower case in the table")            << "0X"               << "0x"               << true;
    QTest::newRow("the longest name")                   << "menu output base hexadecimal" << "MENU OUTPUT BASE HEXADECIMAL" << false;
    QTest::newRow("one letter more than the longest")   << "MENU OUTPUT BASE HEXADECIMALS" << ""    << false;
    QTest::newRow("nothing")                            << ""                 << ""                 << false;
    QTest::newRow("a letter that equals in any case")   << "\u017Fin"         << "SIN"              << true;
    // clang-format on
}

void SyntaxCatalogTest::FindingAName()
{
    QFETCH(QString, name);
    const CalculatorSyntaxItem* item = FindCalculatorSyntaxItem(name);
    QTEST(item ? item->name : QString(), "found");
    QTEST(IsCatalogFunction(name), "isFunction");
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
