#include "core/engine/Functions.h"
#include "core/engine/ProgrammerMath.h"

#include "LibraryCalls.h"

namespace {

// Programmer math by its own door, mathematics by the one for all libraries.
double RunMathOrProgrammer(const QString& name, const QList<double>& arguments, bool& ok, bool& handled)
{
    double value = 0;
    ProgrammerMath::RunFunction(name, arguments, value, ok, handled);
    if (handled)
        return value;
    handled = FindFunction(name.toStdString()) != nullptr;
    return RunFunction(name, arguments, ok);
}

} // namespace

class MathFunctionsTest : public QObject {
    Q_OBJECT

private slots:
    void Calls_data();
    void Calls() { CheckRow(); }
    void OutputConversion_data();
    void OutputConversion() { CheckRow(); }
    void BaseLiteralIdentifiers_data();
    void BaseLiteralIdentifiers() { CheckRow(); }
};

// Values with many digits: Abramowitz and Stegun, tables 1.1 and 4.6; the others by hand.
void MathFunctionsTest::Calls_data()
{
    const Table row(
        [](const QString& calls, double expected) { VerifyCalls(RunMathOrProgrammer, calls, expected, 4e-16); });
    const double fails = std::nan("");
    // clang-format off
    row("radians",                           "SIN 1",                                           0.8414709848078965);
    row("cosine",                            "COS 1",                                           0.5403023058681398);
    row("tangent",                           "TAN 1",                                           1.5574077246549023);
    row("arc functions give radians",        "ASIN 1; ACOS 0; ATAN2 1 0",                       1.5707963267948966);
    row("y comes first",                     "ATAN 1; ATAN2 1 1; ATAN2 3 3",                    0.78539816339744831);
    row("the quadrant counts",               "ATAN2 -1 -1",                                     -2.3561944901923448);
    row("degrees to radians",                "RAD 180; ACOS -1",                                3.141592653589793);
    row("radians to degrees",                "DEG 3.141592653589793",                           180.0);
    row("square root",                       "SQRT 2",                                          1.4142135623730951);
    row("LOG has base 10",                   "LOG 1000; LN 20.085536923187668; EXP 1.0986122886681098; ABS -3", 3.0);
    row("the largest exponential",           "EXP 709",                                         8.2184074615549724e307);
    row("signs",                             "SIGN 5; SIGN 1e-300; ABS -1; CEIL 0.5; COS 0",    1.0);
    row("a negative sign",                   "SIGN -2; FLOOR -0.5; ROUND -0.5; SIN -1.5707963267948966", -1.0);
    row("nothing has no sign",               "SIGN 0; SQRT 0; LOG 1; LN 1; SIN 0; FLOOR 0.9",   0.0);
    row("halves go away from zero",          "ROUND 2.5; ROUND 0 2.5; CEIL 2.1; FLOOR 3.9",     3.0);
    row("decimal places come first",         "ROUND 2 3.141527",                                3.14);
    row("four decimal places",               "ROUND 4 3.141527",                                3.1415);
    row("fifteen are the most",              "ROUND 15 0.1234567890123456",                     0.123456789012346);
    row("divisors",                          "GCD 12 18; GCD -12 18; GCD 6 0; GCD 0 -6",        6.0);
    row("no divisor",                        "GCD 0 0; LCM 0 5; LCM 5 0",                       0.0);
    row("multiples",                         "LCM 4 6; LCM -4 6; LCM 12 12",                    12.0);
    row("a multiple within 64 bits",         "LCM 9007199254740991 1024",                       9007199254740991.0 * 1024);

    row("outside of the domain",             "SQRT -1; LOG 0; LN 0; LN -1; LOG -1; ASIN 1.5; ACOS -1.5; EXP 710", fails);
    row("no places, or too many",            "ROUND 16 1; ROUND -1 1.5; ROUND 1.5 1; ROUND 15 1e300", fails);
    row("fractions have no divisor",         "GCD 1.5 2; LCM 2 1.5; GCD 9007199254740992 2; LCM 2 -1e300", fails);
    row("a multiple beyond 64 bits",         "LCM 9007199254740991 9007199254740989",           fails);
    row("no argument",                       "SIN; COS; TAN; SQRT; ABS; LOG; LN; EXP; ASIN; ACOS; ATAN; ROUND; FLOOR; CEIL; SIGN; RAD; DEG; ATAN2; GCD; LCM", fails);
    row("one argument too many",             "SIN 1 2; SQRT 1 2; ABS 1 2; LOG 1 2; FLOOR 1 2; RAD 1 2; ROUND 1 2 3; ATAN2 1 2 3; GCD 1 2 3; LCM 1 2 3", fails);
    row("one argument too few",              "ATAN2 1; GCD 1; LCM 1",                           fails);

    row("an integer in any base is itself",  "BIN 5; OCT 5; HEX 5; DEC 5; bin 5",               5.0);
    row("complement",                        "NOT 0; BITNOT 0; OR -1 5; BITOR 5 -1",            -1.0);
    row("and",                               "AND 12 10; BITAND 12 10; AND -1 8; SHL 1 3; LSHIFT 4 1; SHR 16 1; RSHIFT 32 2", 8.0);
    row("or",                                "OR 12 10; BITOR 12 10",                           14.0);
    row("exclusive or",                      "XOR 12 10; BITXOR 12 10",                         6.0);
    row("a shift to the right keeps the sign", "SHR -8 1; RSHIFT -7 1",                         -4.0);
    row("the longest shift",                 "SHL 1 52",                                        4503599627370496.0);
    row("a negative value shifted",          "SHL -1 52",                                       -4503599627370496.0);
    row("a shift too far",                   "SHL 1 53; SHL 2 52; SHL -2 52; SHL 1 -1; SHR 1 53; SHR 1 -1", fails);
    row("no safe integer",                   "BIN 1.5; AND 9007199254740992 1; OR 1 0.5; NOT 1e300; XOR 1 -9007199254740992; SHL 0.5 1", fails);
    row("a wrong count",                     "BIN; HEX 1 2; AND 1; OR 1 2 3; XOR; NOT 1 2; SHL 1; SHR 1 2 3; BITAND 1; LSHIFT 1", fails);
    // clang-format on
}

void MathFunctionsTest::OutputConversion_data()
{
    const Table row([](const QString& text, const QString& expectedInner, int expectedBase) {
        QString inner;
        int base = 0;
        const bool conversion = ProgrammerMath::TryExtractOutputConversion(text, inner, base);
        QCOMPARE(inner, expectedInner);
        QCOMPARE(base, expectedBase);
        QCOMPARE(conversion, base != 0);
    });
    // clang-format off
    row("a whole line",                   " hex ( 255 ) ", "255",       16);
    row("brackets inside",                "BIN((1)+(2))",  "(1)+(2)",   2);
    row("octal",                          "OCT(8)",        "8",         8);
    row("decimal",                        "DEC(0xFF)",     "0xFF",      10);
    row("something behind it",            "HEX(255)+1",    "",          0);
    row("two calls",                      "HEX(1)(2)",     "",          0);
    row("an open bracket",                "HEX((1)",       "",          0);
    row("nothing in it",                  "HEX( )",        "",          0);
    row("another function",               "SIN(1)",        "",          0);
    row("no function",                    "(1)",           "",          0);
    // clang-format on
}

void MathFunctionsTest::BaseLiteralIdentifiers_data()
{
    const Table row([](const QString& text, bool tail, bool invalid) {
        const int letter = static_cast<int>(text.indexOf(u'0')) + 1;
        QCOMPARE(ProgrammerMath::IsBaseLiteralIdentifier(text, letter), tail);
        QCOMPARE(ProgrammerMath::ContainsInvalidBaseLiteral(QString(text + " + 1")), invalid);
    });
    // clang-format off
    row("the tail of a literal",            "0x1F",   true,  false);
    row("of an invalid one, too",           "0b102",  true,  true);
    row("without a digit",                  "0O",     true,  true);
    row("too large",                        "0x20000000000000", true, true);
    row("a zero inside a number is none",   "10X",    false, false);
    row("nor is one behind a point",        ".0X",    false, false);
    row("nor is one inside a name",         "a0x1",   false, false);
    row("another letter",                   "0e1",    false, false);
    // clang-format on
}

QTEST_APPLESS_MAIN(MathFunctionsTest)
#include "MathFunctionsTest.moc"
