#include "core/engine/Fractions.h"
#include "../Table.h"

#include <QRandomGenerator>

#include <cmath>
#include <numbers>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

struct PlainFraction {
    qint64 numerator = 0;
    qint64 denominator = 0;
    long double error = 0;
};

PlainFraction PlainNearest(long double magnitude, qint64 denominator)
{
    const qint64 numerator = llroundl(magnitude * static_cast<long double>(denominator));
    return {numerator, denominator,
            fabsl(static_cast<long double>(numerator) / static_cast<long double>(denominator) - magnitude)};
}

// The searches as plain loops over all denominators, for values whose products stay within 64 bits.
PlainFraction PlainSimple(double value)
{
    const long double x = fabs(value);
    for (qint64 d = 1; d <= 999'999; ++d) {
        const PlainFraction nearest = PlainNearest(x, d);
        if (nearest.error <= (x <= 1 ? 1e-14L : x * 1e-14L))
            return nearest;
    }
    return {};
}

PlainFraction PlainBest(long double magnitude, qint64 first)
{
    PlainFraction best = PlainNearest(magnitude, first);
    for (qint64 d = first + 1; d < 10 * first; ++d) {
        const PlainFraction nearest = PlainNearest(magnitude, d);
        if (nearest.error < best.error)
            best = nearest;
    }
    return best;
}

qint64 Numerator(const QString& fraction)
{
    return fraction.section(u'/', 0, 0).toLongLong();
}

qint64 Denominator(const QString& fraction)
{
    return fraction.section(u'/', 1, 1).toLongLong();
}

QList<double> SampleValues()
{
    QList<double> values = {0,     0.5,  1.0 / 3, 2.0 / 7,      123456.0 / 999'983, 999'998.0 / 999'999, 1e-14,
                            3e-15, 1e13, 12.5,    1e9 + 0.1,    123456.78901,       0.333333333333333,   1e-7,
                            9e12,  0.1,  5e-13,   65536.015625, std::sqrt(2.0),     std::numbers::e};
    QRandomGenerator random(31);
    for (int i = 0; i < 8; ++i) {
        values += random.generateDouble();
        values += std::exp(33 * random.generateDouble() - 4);
        values += std::floor(std::exp(21 * random.generateDouble())) + 1.0 / random.bounded(100'000, 1'000'000);
        values += random.bounded(1, 1'000'000) / static_cast<double>(random.bounded(100'000, 1'000'000));
    }
    return values;
}

} // namespace

class FractionsTest : public QObject {
    Q_OBJECT

private slots:
    void Commands_data();
    void Commands() { CheckRow(); }
    void Texts_data();
    void Texts() { CheckRow(); }
    void AgreesWithThePlainLoops();
};

void FractionsTest::Commands_data()
{
    const Table row([](const QString& line, bool isCommand, const QString& expected) {
        QString expression;
        QCOMPARE(MatchFractionCommand(line, expression), isCommand);
        QCOMPARE(expression, expected);
    });
    // clang-format off
    row("any case, blanks",           " fraction ( 0.5 ) ", true,  "0.5");
    row("the last bracket closes",    "FRACTION((1)/(3))",  true,  "(1)/(3)");
    row("nothing between",            "FRACTION( )",        true,  "");
    row("never closed",               "FRACTION(",          true,  "");
    row("something behind",           "FRACTION(1)+1",      true,  "");
    row("no bracket",                 "FRACTION",           false, "");
    row("another name",               "FRACTIONS(1)",       false, "");
    // clang-format on
}

void FractionsTest::Texts_data()
{
    // Nothing simple: no fraction.
    const Table row([](double value, const QString& simple, const QString& rows) {
        const QString text = FractionText(value).value_or(QString());
        QCOMPARE(text, simple.isEmpty() ? simple : QString(simple + "\n\nApproximate Values\n" + rows));
    });
    // clang-format off
    row("a row that a shorter one has is left out",      0.75,   "3/4", "3/4  0.75              error 0");
    row("whole numbers have a denominator",              5.0,    "5/1", "5/1  5                 error 0");
    row("no zero is negative",                           -0.0,   "0/1", "0/1  0                 error 0");
    row("what is within the tolerance of zero is zero",  -1e-18, "0/1", "0/1  0                 error 0");
    row("the sign is the numerator's", -0.15, "-3/20", "-1/7   -0.142857142857   error 0.00714285714286\n"
                                                       "-3/20  -0.15             error 0");
    row("the first of equals stays",  1 / 18.0, "1/18", "0/1   0                 error 0.0555555555556\n"
                                                        "1/18  0.0555555555556   error 0");
    row("the largest that fits", -9e18, "-9000000000000000000/1", "-9000000000000000000/1  -9e+18            error 0");
    // Nearest fractions by rational arithmetic; the errors of the last two rows are those of a 64-bit mantissa.
    row("no simple fraction: the decimals; four digits have nothing new",
        std::numbers::pi, "314159265358979/100000000000000", "22/7            3.14285714286     error 0.00126448926735\n"
                                                             "311/99          3.14141414141     error 0.000178512175649\n"
                                                             "355/113         3.14159292035     error 2.66764192301e-07\n"
                                                             "312689/99532    3.14159265362     error 2.91466234828e-11\n"
                                                             "3126535/995207  3.14159265359     error 1.13959861513e-12");
    row("eighteen decimals are the most", 1e-19,        "", "");
    row("more than 64 bits",              1e19,         "", "");
    row("infinity has none",              HUGE_VAL,     "", "");
    row("NaN has none",                   std::nan(""), "", "");
    // clang-format on
}

void FractionsTest::AgreesWithThePlainLoops()
{
    for (const double value : SampleValues()) {
        const QString context = QString::number(value, 'g', 17);
        const QStringList lines = FractionText(value).value_or(QString()).split(u'\n');
        const PlainFraction simple = PlainSimple(value);
        const qint64 divisor = std::max<qint64>(std::gcd(simple.numerator, simple.denominator), 1);
        if (simple.denominator != 0)
            QVERIFY2(lines[0] == QString(QString::number(simple.numerator / divisor) + u'/' +
                                         QString::number(simple.denominator / divisor)),
                     qPrintable(context));

        const qint64 denominator = Denominator(lines[0]);
        const long double base = static_cast<long double>(Numerator(lines[0])) / static_cast<long double>(denominator);
        qsizetype line = 3;
        for (qint64 first = 1; first <= std::min<qint64>(denominator, 100'000); first *= 10) {
            const PlainFraction best = PlainBest(base, first);
            const qint64 common = std::gcd(best.numerator, best.denominator);
            if (best.denominator / common < first)
                continue;
            QVERIFY2(line < lines.size(), qPrintable(context));
            const QString shown = lines[line++].section(u' ', 0, 0);
            QVERIFY2(Numerator(shown) == best.numerator / common && Denominator(shown) == best.denominator / common,
                     qPrintable(QString(context + u": "_s + shown)));
            const double error = best.error <= std::max(1.0L, base) * 1e-14L ? 0 : static_cast<double>(best.error);
            QCOMPARE(lines[line - 1].section(u' ', -1), QString::number(error, 'g', 12));
        }
        QCOMPARE(line, lines.size());
    }
}

QTEST_APPLESS_MAIN(FractionsTest)
#include "FractionsTest.moc"
