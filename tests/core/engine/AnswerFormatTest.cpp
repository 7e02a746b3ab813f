#include "core/engine/AnswerFormat.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <cstring>

class AnswerFormatTest : public QObject {
    Q_OBJECT

private slots:
    void Pattern_data();
    void Pattern();
    void DefaultFormat_data();
    void DefaultFormat();
    void DefaultFormatIsTheToolkits();
    void SnappingIsThePlainRules();
    void Base_data();
    void Base();
    void EveryPatternIsGood();
};

void AnswerFormatTest::Pattern_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    const double notANumber = std::nan("");
    // clang-format off
    QTest::newRow("money")                                   << "$#,###,##0.00" << 1234.5   << "$1,234.50";
    QTest::newRow("the sign stands behind the prefix")       << "$#,###,##0.00" << -1234.5  << "$-1,234.50";
    QTest::newRow("money of nothing")                        << "$#,###,##0.00" << 0.0      << "$0.00";
    QTest::newRow("a trailing point prints nothing")         << "#,###,##0."    << 1234.6   << "1,235";
    QTest::newRow("a positive value takes the first section")  << "0.00;(0.00);zero" << 1.5  << "1.50";
    QTest::newRow("a negative value takes the second, unsigned") << "0.00;(0.00);zero" << -1.5 << "(1.50)";
    QTest::newRow("zero takes the third")                    << "0.00;(0.00);zero" << 0.0    << "zero";
    QTest::newRow("NaN takes the third")                     << "0.00;(0.00);zero" << notANumber << "zero";
    QTest::newRow("of two sections zero takes the first")    << "0.0;(0)"       << 0.0      << "0.0";
    QTest::newRow("further sections are ignored")            << "0;0;0;x"       << 5.0      << "5";
    QTest::newRow("an empty section prints nothing")         << "0.00;"         << -2.0     << "";
    QTest::newRow("percent")                                 << "0%"            << 0.25     << "25%";
    QTest::newRow("percent in a prefix")                     << "% 0.0"         << 0.255    << "% 25.5";
    QTest::newRow("exponent with its plus")                  << "0.00E+00"      << 12345.0  << "1.23E+04";
    QTest::newRow("exponent without a plus")                 << "0.0e-0"        << 50.0     << "5.0e1";
    QTest::newRow("exponent below one")                      << "0.0e-0"        << 0.5      << "5.0e-1";
    QTest::newRow("exponent of a negative value")            << "0.0E+0"        << -1234.0  << "-1.2E+3";
    QTest::newRow("an exponent form ignores its literal text") << "x0.0E+0y"    << 10.0     << "1.0E+1";
    QTest::newRow("an exponent form has no NaN")             << "0.0E+00"       << notANumber << "NANE+00";
    QTest::newRow("required digits of the integer part")     << "000"           << 5.0      << "005";
    QTest::newRow("grouping discards them")                  << "0,000"         << 5.0      << "5";
    QTest::newRow("required digits of a negative value")     << "000"           << -5.0     << "-005";
    QTest::newRow("optional decimals, none")                 << "0.##"          << 2.0      << "2";
    QTest::newRow("optional decimals, one")                  << "0.##"          << 2.5      << "2.5";
    QTest::newRow("optional behind required")                << "0.0#"          << 2.0      << "2.0";
    QTest::newRow("a number sign suppresses no digit")       << "#.##"          << 0.0      << "0";
    QTest::newRow("a trailing comma scales")                 << "0,"            << 1600.0   << "2";
    QTest::newRow("two scale twice")                         << "0.0,,"         << 1.5      << "1.5"; // behind the point they are text
    QTest::newRow("scaling by a million")                    << "0,,"           << 2.4e6    << "2";
    QTest::newRow("grouping and scaling")                    << "#,##0,"        << 1.2e9    << "1,200,000";
    QTest::newRow("beyond 64 bits the groups stay")          << "#,##0"         << 1e20     << "100,000,000,000,000,000,000";
    QTest::newRow("no placeholder, no number")               << "none"          << 7.0      << "none";
    QTest::newRow("suffix")                                  << "0.0 kg"        << 7.0      << "7.0 kg";
    QTest::newRow("infinity passes through")                 << "$0.00"         << HUGE_VAL << "$inf";
    QTest::newRow("rounding is the toolkit's")               << "0.0"           << 0.25     << "0.3";
    // clang-format on
}

void AnswerFormatTest::Pattern()
{
    QFETCH(QString, pattern);
    QFETCH(double, value);
    QTEST(FormatAnswer(value, {pattern, 10}), "text");
}

void AnswerFormatTest::DefaultFormat_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    // clang-format off
    QTest::newRow("residue is snapped off")         << 0.1 + 0.2          << "0.3";
    QTest::newRow("fifteen digits")                 << 1.0 / 3            << "0.333333333333333";
    QTest::newRow("more than twelve decimals stay") << 1.2345678901234    << "1.2345678901234";
    QTest::newRow("residue of a large value")       << 1e15 / 3 * 3 + 0.1 << "1e+15";
    QTest::newRow("large")                          << 1e20               << "1e+20";
    QTest::newRow("small")                          << 1e-5               << "1e-05";
    QTest::newRow("smaller than the residue")       << 1e-15              << "0";
    QTest::newRow("no negative zero")               << -0.0               << "0";
    QTest::newRow("not a number")                   << std::nan("")       << "nan";
    QTest::newRow("negative infinity")              << -HUGE_VAL          << "-inf";
    // clang-format on
}

void AnswerFormatTest::DefaultFormat()
{
    QFETCH(double, value);
    QTEST(FormatAnswer(value, {}), "text");
}

void AnswerFormatTest::DefaultFormatIsTheToolkits()
{
    QRandomGenerator random(1729);
    for (int i = 0; i < 200000; ++i) {
        const quint64 bits = random.generate64();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (i % 3 == 1)
            value = static_cast<double>(random.bounded(quint64(1) << 53)) / (1 << random.bounded(20));
        else if (i % 3 == 2)
            value = (random.generateDouble() - 0.5) * 1e7 / std::pow(10.0, random.bounded(8));
        QCOMPARE(FormatAnswer(value, {}), QString::number(SnapResidue(value), 'g', 15));
    }
}

// The rule as it is said, a division at each scale.
static double SnappedPlainly(double value)
{
    const double tolerance = std::max(1e-14, std::fabs(value) * 1e-14);
    double scale = 1;
    for (int decimals = 0; decimals <= 12; ++decimals, scale *= 10.0) {
        const double scaled = value * scale;
        const double snapped = std::round(scaled) / scale;
        if (std::isfinite(scaled) && std::fabs(value - snapped) <= tolerance)
            return snapped;
    }
    return value;
}

// About as many values lie just inside the tolerance of a short number as just outside.
void AnswerFormatTest::SnappingIsThePlainRules()
{
    QRandomGenerator random(1013);
    int snapped = 0;
    for (int i = 0; i < 500000; ++i) {
        const double size = std::pow(10.0, random.bounded(-14, 18));
        double value = std::round(random.generateDouble() * size) / std::pow(10.0, random.bounded(14));
        value += std::max(1e-14, value * 1e-14) * (random.bounded(9) - 4) * random.generateDouble() / 2;
        if (random.bounded(4) == 0)
            value = (random.generateDouble() - 0.5) * size;
        const double expected = SnappedPlainly(value);
        snapped += expected != value;
        QVERIFY2(SnapResidue(value) == expected, qPrintable(QString::number(value, 'g', 17)));
    }
    QVERIFY2(snapped > 100000 && snapped < 400000, qPrintable(QString::number(snapped)));
    for (const double value : {HUGE_VAL, -HUGE_VAL, 1.7e308, 4503599627370497.5, 5e-324, -0.0})
        QCOMPARE(SnapResidue(value), SnappedPlainly(value));
    QVERIFY(std::isnan(SnapResidue(std::nan(""))));
}

void AnswerFormatTest::Base_data()
{
    QTest::addColumn<int>("base");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    // clang-format off
    QTest::newRow("hexadecimal")                      << 16 << 255.0                << "FF";
    QTest::newRow("negative")                         << 16 << -255.0               << "-FF";
    QTest::newRow("zero")                             << 2  << 0.0                  << "0";
    QTest::newRow("binary")                           << 2  << 5.0                  << "101";
    QTest::newRow("octal")                            << 8  << 64.0                 << "100";
    QTest::newRow("the largest safe integer")         << 16 << 9007199254740991.0   << "1FFFFFFFFFFFFF";
    QTest::newRow("one more is shown as a pattern")   << 16 << 9007199254740992.0   << "9007199254740992.0";
    QTest::newRow("a fraction is shown as a pattern") << 16 << 1.5                  << "1.5";
    // clang-format on
}

void AnswerFormatTest::Base()
{
    QFETCH(int, base);
    QFETCH(double, value);
    QTEST(FormatAnswer(value, {"0.0", base}), "text");
}

// Any text is a pattern; none takes long and none takes the program down.
void AnswerFormatTest::EveryPatternIsGood()
{
    const QString pieces = "0#,.%;eE+- x\"";
    QRandomGenerator random(42);
    for (int i = 0; i < 20000; ++i) {
        QString pattern;
        for (int n = random.bounded(12); n > 0; --n)
            pattern += pieces[random.bounded(static_cast<int>(pieces.size()))];
        for (const double value : {0.0, -1.5, 1234567.891, 1e300, -1e-300, HUGE_VAL, std::nan("")})
            FormatAnswer(value, {pattern, 10});
    }
    QElapsedTimer clock;
    clock.start();
    for (const QString piece : {"0", "#", ",", "0.", "0,", "E+0", ";", "."})
        FormatAnswer(1234.5, {piece.repeated(100000), 10});
    FormatAnswer(1234.5, {"0." + QString("0").repeated(1000000), 10});
    QVERIFY2(clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_APPLESS_MAIN(AnswerFormatTest)
#include "AnswerFormatTest.moc"
