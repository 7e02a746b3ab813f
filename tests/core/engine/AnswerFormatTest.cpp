#include "core/engine/AnswerFormat.h"
#include "../Table.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <cmath>
#include <cstring>

class AnswerFormatTest : public QObject {
    Q_OBJECT

private slots:
    void Pattern_data();
    void Pattern() { CheckRow(); }
    void DefaultFormat_data();
    void DefaultFormat() { CheckRow(); }
    void DefaultFormatIsTheToolkits();
    void SnappingIsThePlainRules();
    void Base_data();
    void Base() { CheckRow(); }
    void EveryPatternIsGood();
};

void AnswerFormatTest::Pattern_data()
{
    const Table row([](const QString& pattern, double value, const QString& text) {
        QCOMPARE(FormatAnswer(value, {pattern, 10}), text);
    });
    const double notANumber = std::nan("");
    // clang-format off
    row("money",                                   "$#,###,##0.00", 1234.5,   "$1,234.50");
    row("the sign stands behind the prefix",       "$#,###,##0.00", -1234.5,  "$-1,234.50");
    row("money of nothing",                        "$#,###,##0.00", 0.0,      "$0.00");
    row("a trailing point prints nothing",         "#,###,##0.",    1234.6,   "1,235");
    row("a positive value takes the first section",  "0.00;(0.00);zero", 1.5,  "1.50");
    row("a negative value takes the second, unsigned", "0.00;(0.00);zero", -1.5, "(1.50)");
    row("zero takes the third",                    "0.00;(0.00);zero", 0.0,    "zero");
    row("NaN takes the third",                     "0.00;(0.00);zero", notANumber, "zero");
    row("of two sections zero takes the first",    "0.0;(0)",       0.0,      "0.0");
    row("further sections are ignored",            "0;0;0;x",       5.0,      "5");
    row("an empty section prints nothing",         "0.00;",         -2.0,     "");
    row("percent",                                 "0%",            0.25,     "25%");
    row("percent in a prefix",                     "% 0.0",         0.255,    "% 25.5");
    row("exponent with its plus",                  "0.00E+00",      12345.0,  "1.23E+04");
    row("exponent without a plus",                 "0.0e-0",        50.0,     "5.0e1");
    row("exponent below one",                      "0.0e-0",        0.5,      "5.0e-1");
    row("exponent of a negative value",            "0.0E+0",        -1234.0,  "-1.2E+3");
    row("an exponent form ignores its literal text", "x0.0E+0y",    10.0,     "1.0E+1");
    row("an exponent form has no NaN",             "0.0E+00",       notANumber, "NANE+00");
    row("required digits of the integer part",     "000",           5.0,      "005");
    row("grouping discards them",                  "0,000",         5.0,      "5");
    row("required digits of a negative value",     "000",           -5.0,     "-005");
    row("optional decimals, none",                 "0.##",          2.0,      "2");
    row("optional decimals, one",                  "0.##",          2.5,      "2.5");
    row("optional behind required",                "0.0#",          2.0,      "2.0");
    row("a number sign suppresses no digit",       "#.##",          0.0,      "0");
    row("a trailing comma scales",                 "0,",            1600.0,   "2");
    row("two scale twice",                         "0.0,,",         1.5,      "1.5"); // behind the point they are text
    row("scaling by a million",                    "0,,",           2.4e6,    "2");
    row("grouping and scaling",                    "#,##0,",        1.2e9,    "1,200,000");
    row("beyond 64 bits the groups stay",          "#,##0",         1e20,     "100,000,000,000,000,000,000");
    row("no placeholder, no number",               "none",          7.0,      "none");
    row("suffix",                                  "0.0 kg",        7.0,      "7.0 kg");
    row("infinity passes through",                 "$0.00",         HUGE_VAL, "$inf");
    row("rounding is the toolkit's",               "0.0",           0.25,     "0.3");
    // clang-format on
}

void AnswerFormatTest::DefaultFormat_data()
{
    const Table row([](double value, const QString& text) { QCOMPARE(FormatAnswer(value, {}), text); });
    // clang-format off
    row("residue is snapped off",         0.1 + 0.2,          "0.3");
    row("fifteen digits",                 1.0 / 3,            "0.333333333333333");
    row("more than twelve decimals stay", 1.2345678901234,    "1.2345678901234");
    row("residue of a large value",       1e15 / 3 * 3 + 0.1, "1e+15");
    row("large",                          1e20,               "1e+20");
    row("small",                          1e-5,               "1e-05");
    row("smaller than the residue",       1e-15,              "0");
    row("no negative zero",               -0.0,               "0");
    row("not a number",                   std::nan(""),       "nan");
    row("negative infinity",              -HUGE_VAL,          "-inf");
    // clang-format on
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
    const Table row([](int base, double value, const QString& text) {
        QCOMPARE(FormatAnswer(value, {"0.0", base}), text);
    });
    // clang-format off
    row("hexadecimal",                      16, 255.0,                "FF");
    row("negative",                         16, -255.0,               "-FF");
    row("zero",                             2,  0.0,                  "0");
    row("binary",                           2,  5.0,                  "101");
    row("octal",                            8,  64.0,                 "100");
    row("the largest safe integer",         16, 9007199254740991.0,   "1FFFFFFFFFFFFF");
    row("one more is shown as a pattern",   16, 9007199254740992.0,   "9007199254740992.0");
    row("a fraction is shown as a pattern", 16, 1.5,                  "1.5");
    // clang-format on
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
