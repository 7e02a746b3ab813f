#include "core/engine/Statistics.h"

#include "LibraryCalls.h"

#include <algorithm>

namespace {

// Michelson's speed of light of 1879 in thousands of kilometres per second, 100 measurements.
QList<double> SpeedOfLight()
{
    // clang-format off
    const QList<double> aboveBase = {
        850, 740, 900, 1070, 930, 850, 950, 980, 980, 880, 1000, 980, 930, 650, 760, 810, 1000, 1000, 960, 960,
        960, 940, 960, 940, 880, 800, 850, 880, 900, 840, 830, 790, 810, 880, 880, 830, 800, 790, 760, 800,
        880, 880, 880, 860, 720, 720, 620, 860, 970, 950, 880, 910, 850, 870, 840, 840, 850, 840, 840, 840,
        890, 810, 810, 820, 800, 770, 760, 740, 750, 760, 910, 920, 890, 860, 880, 720, 840, 850, 850, 780,
        890, 840, 780, 810, 760, 810, 790, 810, 820, 850, 870, 870, 810, 740, 810, 940, 950, 800, 810, 870};
    // clang-format on
    QList<double> values;
    for (const double value : aboveBase)
        values << (299000 + value) / 1000;
    return values;
}

// Deflections of a beam, 200 observations.
QList<double> BeamDeflections()
{
    // clang-format off
    return {
        -213, -564, -35, -15, 141, 115, -420, -360, 203, -338, -431, 194, -220, -513, 154, -125, -559, 92, -21, -579,
        -52, 99, -543, -175, 162, -457, -346, 204, -300, -474, 164, -107, -572, -8, 83, -541, -224, 180, -420, -374,
        201, -236, -531, 83, 27, -564, -112, 131, -507, -254, 199, -311, -495, 143, -46, -579, -90, 136, -472, -338,
        202, -287, -477, 169, -124, -568, 17, 48, -568, -135, 162, -430, -422, 172, -74, -577, -13, 92, -534, -243,
        194, -355, -465, 156, -81, -578, -64, 139, -449, -384, 193, -198, -538, 110, -44, -577, -6, 66, -552, -164,
        161, -460, -344, 205, -281, -504, 134, -28, -576, -118, 156, -437, -381, 200, -220, -540, 83, 11, -568, -160,
        172, -414, -408, 188, -125, -572, -32, 139, -492, -321, 205, -262, -504, 142, -83, -574, 0, 48, -571, -106,
        137, -501, -266, 190, -391, -406, 194, -186, -553, 83, -13, -577, -49, 103, -515, -280, 201, 300, -506, 131,
        -45, -578, -80, 138, -462, -361, 201, -211, -554, 32, 74, -533, -235, 187, -372, -442, 182, -147, -566, 25,
        68, -535, -244, 194, -351, -463, 174, -125, -570, 15, 72, -550, -190, 172, -424, -385, 198, -218, -536, 96};
    // clang-format on
}

// `base` + 0.2, then 500 pairs of `base` + 0.1 and `base` + 0.3.
QList<double> Alternating(double base)
{
    QList<double> values = {base + 0.2};
    for (int pair = 0; pair < 500; ++pair)
        values << base + 0.1 << base + 0.3;
    return values;
}

} // namespace

class StatisticsTest : public QObject {
    Q_OBJECT

private slots:
    void Reference_data();
    void Reference() { CheckRow(); }
    void Calls_data();
    void Calls() { CheckRow(); }
    void Random_data();
    void Random() { CheckRow(); }
    void GlobalRandom();
};

// Certified values of the NIST Statistical Reference Datasets, univariate summary statistics (NumAcc1 to NumAcc4,
// Michelso, Lew). The deviation's tolerance is what doubles and one pass leave of it: some 1e-16 of the mean.
void StatisticsTest::Reference_data()
{
    const Table row([](const QList<double>& values, double mean, double deviation, double tolerance) {
        const auto call = [&values](const QString& name) {
            bool ok = false;
            bool handled = false;
            const double value = RunStatisticsFunction(name, values, ok, handled);
            return ok ? value : std::nan("");
        };
        QVERIFY(std::fabs(call(QStringLiteral("AVG")) - mean) <= 1e-14 * std::fabs(mean));
        QVERIFY(std::fabs(call(QStringLiteral("STDEV")) - deviation) <= tolerance * deviation);
    });
    // clang-format off
    row("whole numbers",      QList<double>{10000001, 10000003, 10000002}, 10000002.0, 1.0, 0.0);
    row("alternating at 1",   Alternating(1),    1.2,        0.1,                1e-14);
    row("alternating at 1e6", Alternating(1e6),  1000000.2,  0.1,                1e-9);
    row("alternating at 1e7", Alternating(1e7),  10000000.2, 0.1,                1e-8);
    row("speed of light",     SpeedOfLight(),    299.8524,   0.0790105478190518, 1e-12);
    row("beam",               BeamDeflections(), -177.435,   277.332168044316,   4e-15);
    // clang-format on
}

// Expected values by hand; those with many digits with mpmath at 50 digits.
void StatisticsTest::Calls_data()
{
    const Table row(
        [](const QString& calls, double expected) { VerifyCalls(RunStatisticsFunction, calls, expected, 2e-15); });
    const double fails = std::nan("");
    // clang-format off
    row("smallest and largest",               "MIN 3 -1 2; MAX -3 -1 -2; MIN -1; max -1",  -1.0);
    row("how many",                           "COUNT 1 1 1",                               3.0);
    row("a sum goes in the given order",      "SUM 1e16 1 -1e16 1",                        1.0);
    row("a mean whose sum would overflow",    "AVG 1e308 1e308 1e308",                     1e308);
    row("middle of a list",                   "MEDIAN 9 1 5; MEDIAN 9 1 8 2; MEDIAN 5",    5.0);
    row("most frequent value",                "MODE 2 3 3 4; MODE 4 4 3 5 3",              3.0);
    row("zeros of both signs are one value",  "MODE -0 5 0",                               0.0);
    row("range",                              "RANGE 4 -3 1",                              7.0);
    row("sample variance",                    "VARIANCE 2 4 4 4 5 5 7 9",                  32.0 / 7);
    row("sample deviation",                   "STDEV 2 4 4 4 5 5 7 9",                     2.13808993529939508);
    row("population variance",                "VARIANCEP 2 4 4 4 5 5 7 9",                 4.0);
    row("population deviation",               "STDEVP 2 4 4 4 5 5 7 9",                    2.0);
    row("one value does not deviate",         "STDEVP 5; VARIANCEP 5; RANGE 5",            0.0);
    row("variance without cancellation",      "VARIANCE 1000000004 1000000007 1000000013 1000000016", 30.0);
    row("geometric mean",                     "GEOMEAN 3 7 11 13",                         7.40267755851090875);
    row("harmonic mean",                      "HARMEAN 3 7 11 13",                         6.2109617373319545);
    row("root of the mean square",            "RMS 3 -7 11 13",                            9.32737905308881505);
    row("means of the hugest",                "GEOMEAN 1e308 1e308; RMS -1e308 1e308",     1e308);
    row("means of the tiniest",               "HARMEAN 5e-324 5e-324; RMS 5e-324; GEOMEAN 5e-324", 5e-324);
    row("squares keep more than a double",    "SUMSQ 1e8 -1 1",                            10000000000000002.0);
    row("percentile between two values",      "PERCENTILE 25 4 1 3 2; PERCENTILE 12.5 0 14", 1.75);
    row("ends of the percentiles",            "PERCENTILE 0 4 9 5; PERCENTILE 100 1 4 3; PERCENTILE 50 4", 4.0);
    row("quartile",                           "QUARTILE 2 1 2 3 4; QUARTILE 4 1 2.5; QUARTILE 2.0000000000000009 0 5", 2.5);
    row("skewness",                           "SKEW 2 8 0 4 1 9 9 0",                      0.330582180407974662);
    row("symmetric data far from zero",       "SKEW 1000000004 1000000007 1000000013 1000000016", 0.0);
    row("kurtosis",                           "KURTOSIS 2 8 0 4 1 9 9 0",                  -2.09860225809608665);
    row("kurtosis far from zero",             "KURTOSIS 1000000004 1000000007 1000000013 1000000016", -3.3);
    row("no choice",                          "RANDINT 3 3; RANDINT 3.0000000000005 3",    3.0);

    row("beyond the doubles",                 "SUM 1e308 1e308; AVG 1e308 -1e308; MEDIAN 1e308 1e308; RANGE 1e308 -1e308; STDEV 1e200 -1e200; SUMSQ 1e200; PERCENTILE 50 1e308 -1e308; SKEW 1e200 0 -1e200; KURTOSIS 1e200 0 0 -1e200", fails);
    row("no value twice",                     "MODE 1 2 3; MODE 1",                        fails);
    row("means of positive values only",      "GEOMEAN 0 1; GEOMEAN 4 -1; HARMEAN 1 0; HARMEAN -1 1", fails);
    row("percentile out of range",            "PERCENTILE 101 1 2; PERCENTILE -1e-9 1 2",  fails);
    row("quartile out of range or not whole", "QUARTILE 5 1 2; QUARTILE -1 1 2; QUARTILE 1.5 1 2; QUARTILE 1.00000000001 1 2", fails);
    row("no shape of constant data",          "SKEW 1 1 1; KURTOSIS 2 2 2 2",              fails);
    row("random bounds not whole",            "RANDINT 1.5 3; RANDINT 1 3.00000000001",    fails);
    row("random bounds out of range",         "RANDINT 5 1; RANDINT -9007199254740994 0; RANDINT 0 9007199254740994", fails);
    row("too few arguments",                  "MIN; MAX; SUM; AVG; MEDIAN; MODE; COUNT; RANGE; STDEV 5; STDEVP; VARIANCE 5; VARIANCEP; GEOMEAN; HARMEAN; RMS; SUMSQ; PERCENTILE 5; QUARTILE 1; SKEW 1 2; KURTOSIS 1 2 4; RANDINT 3", fails);
    row("too many arguments",                 "RANDOM 1; RANDINT 3 3 3",                   fails);
    // clang-format on
}

void StatisticsTest::Random_data()
{
    const Table row([](const QString& name, const QList<double>& arguments, quint64 bits, double expected) {
        const FunctionLibrary library = StatisticsFunctions();
        const auto function =
            std::find_if(library.begin(), library.end(), [&](const auto& candidate) { return name == candidate.name; });
        QVERIFY(function != library.end());
        const auto value = CallFunction(*function, arguments, [bits] { return bits; });
        QVERIFY(value.has_value());
        QCOMPARE(*value, expected);
    });
    const quint64 ones = ~quint64(0);
    const quint64 half = quint64(1) << 63;
    const double limit = 9007199254740992;
    // clang-format off
    row("no bits are zero",                "RANDOM",  QList<double>{},                   quint64(0),    0.0);
    row("eleven low bits do not count",    "RANDOM",  QList<double>{},                   quint64(2047), 0.0);
    row("the least fraction",              "RANDOM",  QList<double>{},                   quint64(2048), 0x1p-53);
    row("the high bit is a half",          "RANDOM",  QList<double>{},                   half,          0.5);
    row("all bits stay below one",         "RANDOM",  QList<double>{},                   ones,          1 - 0x1p-53);
    row("a die's lowest",                  "RANDINT", QList<double>{1, 6},               quint64(0),    1.0);
    row("a die's middle",                  "RANDINT", QList<double>{1, 6},               half,          4.0);
    row("just below a die's middle",       "RANDINT", QList<double>{1, 6},               half - 1,      3.0);
    row("a die's highest",                 "RANDINT", QList<double>{1, 6},               ones,          6.0);
    row("below zero",                      "RANDINT", QList<double>{-3, -2},             half,          -2.0);
    row("nearly whole bounds are rounded", "RANDINT", QList<double>{1 + 5e-13, 3 - 5e-13}, ones,        3.0);
    row("the widest range, lowest",        "RANDINT", QList<double>{-limit, limit},      quint64(0),    -limit);
    row("the widest range, middle",        "RANDINT", QList<double>{-limit, limit},      half,          0.0);
    // clang-format on
}

void StatisticsTest::GlobalRandom()
{
    bool ok = false;
    bool handled = false;
    const double first = RunStatisticsFunction(QStringLiteral("random"), {}, ok, handled);
    QVERIFY(ok && first >= 0 && first < 1);
    QVERIFY(RunStatisticsFunction(QStringLiteral("random"), {}, ok, handled) != first);
}

QTEST_APPLESS_MAIN(StatisticsTest)
#include "StatisticsTest.moc"
