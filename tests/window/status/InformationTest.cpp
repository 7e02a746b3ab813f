#include "window/status/Information.h"

#include "core/engine/SyntaxCatalog.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

class InformationTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void Report();
    void Value_data();
    void Value();
    void UptimeInThePad();
    void Uptime_data();
    void Uptime();

private:
    std::unique_ptr<DataHome> home;
};

void InformationTest::Report()
{
    TypedWindow typed;
    typed.pad()->setFont(QFont("Monospace", 13));
    typed.TypeLine("INFO");
    const QString expected = QString("INFO\n"
                                     "Quellbrook Information\n"
                                     "\n"
                                     "Application\n"
                                     "  Version:              2.0\n"
                                     "  Qt Version:           %1\n"
                                     "  Platform:             Linux\n"
                                     "\n"
                                     "Workspace\n"
                                     "  Variables:            0\n"
                                     "  Custom Functions:     0\n"
                                     "  ANS:                  0\n"
                                     "  Undo States:          1\n"
                                     "  Redo States:          0\n"
                                     "\n"
                                     "Calculation\n"
                                     "  Number Format:        Default\n"
                                     "  Output Base:          Decimal\n"
                                     "  Word Operators:       ON\n"
                                     "  Ignore Text:          ON\n"
                                     "\n"
                                     "Interface\n"
                                     "  Predictive Text:      ON\n"
                                     "  Predictive Items:     %2\n"
                                     "  Syntax Help:          ON\n"
                                     "  TopMost:              OFF\n"
                                     "  Font:                 Monospace\n"
                                     "  Font Size:            13\n"
                                     "\n"
                                     "Document\n"
                                     "  Name:                 (Untitled)\n"
                                     "  Path:                 (Not saved)\n"
                                     "  Lines:                2\n"
                                     "  Characters:           5\n"
                                     "  Modified:             YES\n")
                                 .arg(qVersion())
                                 .arg(GetCalculatorSyntaxCatalog({}).size());
    QCOMPARE(typed.Markup(), expected);
    QCOMPARE(typed.Label(), "Information displayed");
}

void InformationTest::Value_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    // clang-format off
    QTest::newRow("variables count")            << QStringList{"A = 1", "B = 2"}                    << "Variables"        << "2";
    QTest::newRow("custom functions count")     << QStringList{"CREATE FUNCTION F(X) = X"}          << "Custom Functions" << "1";
    QTest::newRow("ANS is formatted")           << QStringList{"FORMAT = 0.00", "1/3"}              << "ANS"              << "0.33";
    QTest::newRow("a date is ANS as it is read") << QStringList{"DATE(\"9/10/2026\") + 30"}            << "ANS"              << "DATE(\"10/10/2026\")";
    QTest::newRow("the format's text")          << QStringList{"FORMAT = $0.00"}                    << "Number Format"    << "$0.00";
    QTest::newRow("the base")                   << QStringList{"MENU OUTPUT BASE HEX"}              << "Output Base"      << "Hexadecimal";
    QTest::newRow("word operators off")         << QStringList{"MENU WORD OPERATORS OFF"}           << "Word Operators"   << "OFF";
    QTest::newRow("ignore text off")            << QStringList{"MENU IGNORE TEXT OFF"}              << "Ignore Text"      << "OFF";
    QTest::newRow("predictive text off")        << QStringList{"MENU PREDICTIVE TEXT OFF"}          << "Predictive Text"  << "OFF";
    QTest::newRow("syntax help off")            << QStringList{"MENU SYNTAX HELP OFF"}              << "Syntax Help"      << "OFF";
    QTest::newRow("on top")                     << QStringList{"TOPMOST"}                           << "TopMost"          << "ON";
    QTest::newRow("half a point")               << QStringList{"FONT 12.5"}                         << "Font Size"        << "12.5";
    // clang-format on
}

void InformationTest::Value()
{
    QFETCH(QStringList, lines);
    QFETCH(QString, label);
    TypedWindow typed;
    for (const QString& line : lines)
        typed.TypeLine(line);
    typed.TypeLine("info");
    const QStringList report = typed.pad()->toPlainText().split('\n').filter("  " + label + ":");
    QCOMPARE(report.size(), 1);
    QTEST(report.first().mid(24), "value");
}

void InformationTest::UptimeInThePad()
{
    TypedWindow typed;
    typed.TypeLine("uptime");
    QVERIFY(QRegularExpression("^uptime\n<b>\\d seconds?</b>\n$").match(typed.Markup()).hasMatch());
    QCOMPARE(typed.Label(), "Application uptime displayed");
}

void InformationTest::Uptime_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("text");
    const qint64 second = 1000, minute = 60 * second, hour = 60 * minute, day = 24 * hour;
    // clang-format off
    QTest::newRow("seconds always show")     << qint64(999)                      << "0 seconds";
    QTest::newRow("one is singular")         << second                           << "1 second";
    QTest::newRow("the last second")         << minute - 1                       << "59 seconds";
    QTest::newRow("a minute")                << minute                           << "1 minute, 0 seconds";
    QTest::newRow("a gap stays")             << day + 5 * second                 << "1 day, 0 hours, 0 minutes, 5 seconds";
    QTest::newRow("an hour without days")    << 2 * hour + minute + second       << "2 hours, 1 minute, 1 second";
    QTest::newRow("days do not end")         << 400 * day + 23 * hour            << "400 days, 23 hours, 0 minutes, 0 seconds";
    // clang-format on
}

void InformationTest::Uptime()
{
    QFETCH(qint64, milliseconds);
    QTEST(UptimeText(milliseconds), "text");
}

QTEST_MAIN(InformationTest)
#include "InformationTest.moc"
