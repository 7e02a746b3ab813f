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
    void Calls();
    void OutputConversion_data();
    void OutputConversion();
    void BaseLiteralIdentifiers_data();
    void BaseLiteralIdentifiers();
};

// Values with many digits: Abramowitz and Stegun, tables 1.1 and 4.6; the others by hand.
void MathFunctionsTest::Calls_data()
{
    AddCallColumns();
    const double fails = std::nan("");
    // clang-format off
    QTest::newRow("radians")                           << "SIN 1"                                           << 0.8414709848078965;
    QTest::newRow("cosine")                            << "COS 1"                                           << 0.5403023058681398;
    QTest::newRow("tangent")                           << "TAN 1"                                           << 1.5574077246549023;
    QTest::newRow("arc functions give radians")        << "ASIN 1; ACOS 0; ATAN2 1 0"                       << 1.5707963267948966;
    QTest::newRow("y comes first")                     << "ATAN 1; ATAN2 1 1; ATAN2 3 3"                    << 0.78539816339744831;
    QTest::newRow("the quadrant counts")               << "ATAN2 -1 -1"                                     << -2.3561944901923448;
    QTest::newRow("degrees to radians")                << "RAD 180; ACOS -1"                                << 3.141592653589793;
    QTest::newRow("radians to degrees")                << "DEG 3.141592653589793"                           << 180.0;
    QTest::newRow("square root")                       << "SQRT 2"                                          << 1.4142135623730951;
    QTest::newRow("LOG has base 10")                   << "LOG 1000; LN 20.085536923187668; EXP 1.0986122886681098; ABS -3" << 3.0;
    QTest::newRow("the largest exponential")           << "EXP 709"                                         << 8.2184074615549724e307;
    QTest::newRow("signs")                             << "SIGN 5; SIGN 1e-300; ABS -1; CEIL 0.5; COS 0"    << 1.0;
    QTest::newRow("a negative sign")                   << "SIGN -2; FLOOR -0.5; ROUND -0.5; SIN -1.5707963267948966" << -1.0;
    QTest::newRow("nothing has no sign")               << "SIGN 0; SQRT 0; LOG 1; LN 1; SIN 0; FLOOR 0.9"   << 0.0;
    QTest::newRow("halves go away from zero")          << "ROUND 2.5; ROUND 0 2.5; CEIL 2.1; FLOOR 3.9"     << 3.0;
    QTest::newRow("decimal places come first")         << "ROUND 2 3.141527"                                << 3.14;
    QTest::newRow("four decimal places")               << "ROUND 4 3.141527"                                << 3.1415;
    QTest::newRow("fifteen are the most")              << "ROUND 15 0.1234567890123456"                     << 0.123456789012346;
    QTest::newRow("divisors")                          << "GCD 12 18; GCD -12 18; GCD 6 0; GCD 0 -6"        << 6.0;
    QTest::newRow("no divisor")                        << "GCD 0 0; LCM 0 5; LCM 5 0"                       << 0.0;
    QTest::newRow("multiples")                         << "LCM 4 6; LCM -4 6; LCM 12 12"                    << 12.0;
    QTest::newRow("a multiple within 64 bits")         << "LCM 9007199254740991 1024"                       << 9007199254740991.0 * 1024;

    QTest::newRow("outside of the domain")             << "SQRT -1; LOG 0; LN 0; LN -1; LOG -1; ASIN 1.5; ACOS -1.5; EXP 710" << fails;
    QTest::newRow("no places, or too many")            << "ROUND 16 1; ROUND -1 1.5; ROUND 1.5 1; ROUND 15 1e300" << fails;
    QTest::newRow("fractions have no divisor")         << "GCD 1.5 2; LCM 2 1.5; GCD 9007199254740992 2; LCM 2 -1e300" << fails;
    QTest::newRow("a multiple beyond 64 bits")         << "LCM 9007199254740991 9007199254740989"           << fails;
    QTest::newRow("no argument")                       << "SIN; COS; TAN; SQRT; ABS; LOG; LN; EXP; ASIN; ACOS; ATAN; ROUND; FLOOR; CEIL; SIGN; RAD; DEG; ATAN2; GCD; LCM" << fails;
    QTest::newRow("one argument too many")             << "SIN 1 2; SQRT 1 2; ABS 1 2; LOG 1 2; FLOOR 1 2; RAD 1 2; ROUND 1 2 3; ATAN2 1 2 3; GCD 1 2 3; LCM 1 2 3" << fails;
    QTest::newRow("one argument too few")              << "ATAN2 1; GCD 1; LCM 1"                           << fails;

    QTest::newRow("an integer in any base is itself")  << "BIN 5; OCT 5; HEX 5; DEC 5; bin 5"               << 5.0;
    QTest::newRow("complement")                        << "NOT 0; BITNOT 0; OR -1 5; BITOR 5 -1"            << -1.0;
    QTest::newRow("and")                               << "AND 12 10; BITAND 12 10; AND -1 8; SHL 1 3; LSHIFT 4 1; SHR 16 1; RSHIFT 32 2" << 8.0;
    QTest::newRow("or")                                << "OR 12 10; BITOR 12 10"                           << 14.0;
    QTest::newRow("exclusive or")                      << "XOR 12 10; BITXOR 12 10"                         << 6.0;
    QTest::newRow("a shift to the right keeps the sign") << "SHR -8 1; RSHIFT -7 1"                         << -4.0;
    QTest::newRow("the longest shift")                 << "SHL 1 52"                                        << 4503599627370496.0;
    QTest::newRow("a negative value shifted")          << "SHL -1 52"                                       << -4503599627370496.0;
    QTest::newRow("a shift too far")                   << "SHL 1 53; SHL 2 52; SHL -2 52; SHL 1 -1; SHR 1 53; SHR 1 -1" << fails;
    QTest::newRow("no safe integer")                   << "BIN 1.5; AND 9007199254740992 1; OR 1 0.5; NOT 1e300; XOR 1 -9007199254740992; SHL 0.5 1" << fails;
    QTest::newRow("a wrong count")                     << "BIN; HEX 1 2; AND 1; OR 1 2 3; XOR; NOT 1 2; SHL 1; SHR 1 2 3; BITAND 1; LSHIFT 1" << fails;
    // clang-format on
}

void MathFunctionsTest::Calls()
{
    QFETCH(QString, calls);
    QFETCH(double, expected);
    VerifyCalls(RunMathOrProgrammer, calls, expected, 4e-16);
}

void MathFunctionsTest::OutputConversion_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inner");
    QTest::addColumn<int>("base");
    // clang-format off
    QTest::newRow("a whole line")                   << " hex ( 255 ) " << "255"       << 16;
    QTest::newRow("brackets inside")                << "BIN((1)+(2))"  << "(1)+(2)"   << 2;
    QTest::newRow("octal")                          << "OCT(8)"        << "8"         << 8;
    QTest::newRow("decimal")                        << "DEC(0xFF)"     << "0xFF"      << 10;
    QTest::newRow("something behind it")            << "HEX(255)+1"    << ""          << 0;
    QTest::newRow("two calls")                      << "HEX(1)(2)"     << ""          << 0;
    QTest::newRow("an open bracket")                << "HEX((1)"       << ""          << 0;
    QTest::newRow("nothing in it")                  << "HEX( )"        << ""          << 0;
    QTest::newRow("another function")               << "SIN(1)"        << ""          << 0;
    QTest::newRow("no function")                    << "(1)"           << ""          << 0;
    // clang-format on
}

void MathFunctionsTest::OutputConversion()
{
    QFETCH(QString, text);
    QString inner;
    int base = 0;
    const bool conversion = ProgrammerMath::TryExtractOutputConversion(text, inner, base);
    QTEST(inner, "inner");
    QTEST(base, "base");
    QCOMPARE(conversion, base != 0);
}

void MathFunctionsTest::BaseLiteralIdentifiers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("tail");
    QTest::addColumn<bool>("invalid");
    // clang-format off
    QTest::newRow("the tail of a literal")            << "0x1F"   << true  << false;
    QTest::newRow("of an invalid one, too")           << "0b102"  << true  << true;
    QTest::newRow("without a digit")                  << "0O"     << true  << true;
    QTest::newRow("too large")                        << "0x20000000000000" << true << true;
    QTest::newRow("a zero inside a number is none")   << "10X"    << false << false;
    QTest::newRow("nor is one behind a point")        << ".0X"    << false << false;
    QTest::newRow("nor is one inside a name")         << "a0x1"   << false << false;
    QTest::newRow("another letter")                   << "0e1"    << false << false;
    // clang-format on
}

void MathFunctionsTest::BaseLiteralIdentifiers()
{
    QFETCH(QString, text);
    const int letter = static_cast<int>(text.indexOf(u'0')) + 1;
    QTEST(ProgrammerMath::IsBaseLiteralIdentifier(text, letter), "tail");
    QTEST(ProgrammerMath::ContainsInvalidBaseLiteral(QString(text + " + 1")), "invalid");
}

QTEST_APPLESS_MAIN(MathFunctionsTest)
#include "MathFunctionsTest.moc"
