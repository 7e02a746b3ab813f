#include "core/engine/GDT.h"

#include "LibraryCalls.h"

class GDTTest : public QObject {
    Q_OBJECT

private slots:
    void Calls_data();
    void Calls();
};

// Expected values are sums, differences and Pythagorean triples done by hand.
void GDTTest::Calls_data()
{
    AddCallColumns();
    const double fails = std::nan("");
    // clang-format off
    QTest::newRow("a position is a diameter")                 << "POSITION 3 -4; TRUEPOSITION -3 4; DIAMETRALDEV 3 4" << 10.0;
    QTest::newRow("a radial deviation is half of it")         << "RADIALDEV 3 4; RADIALDEV -3 -4"                     << 5.0;
    QTest::newRow("squares beyond the doubles do not matter") << "RADIALDEV 0 5e200; POSITION 2.5e200 0"             << 5e200;
    QTest::newRow("three axes")                               << "POSITION3D 1 -2 2; position3d 2 2 1"                << 6.0;
    QTest::newRow("a coordinate deviation has a sign")        << "COORDDEV 9.75 10"                                   << -0.25;
    QTest::newRow("a bonus has none")                         << "BONUSTOL 10 10.25; BONUSTOL 10.25 10; ZEROTOLMMC 9.75 10" << 0.25;
    QTest::newRow("the bonus adds to the stated tolerance")   << "TOTALTOL 0.5 0.25; POSITIONALLOW 0.5 9.75 10; POSITIONALLOW 0.5 10.25 10" << 0.75;
    QTest::newRow("boundaries that the tolerance widens")     << "VCEXTERNAL 10 0.5; RCINTERNAL 10 0.5; BOUNDARYEXTERNAL 10 0.5" << 10.5;
    QTest::newRow("boundaries that the tolerance narrows")    << "VCINTERNAL 10 0.5; RCEXTERNAL 10 0.5; BOUNDARYINTERNAL 10 0.5" << 9.5;
    QTest::newRow("nothing may be left")                      << "VCINTERNAL 2 2; RCEXTERNAL 2 2; FIXEDFASTENER 8 8; TOTALTOL 0 0" << 0.0;
    QTest::newRow("a floating fastener has all clearance")    << "FLOATINGFASTENER 10 8"                              << 2.0;
    QTest::newRow("a fixed fastener has half of it")          << "FIXEDFASTENER 10 8"                                 << 1.0;
    QTest::newRow("out of position is a negative margin")     << "POSITIONMARGIN 1 3"                                 << -2.0;
    QTest::newRow("percent of the allowance used")            << "POSITIONUTIL 5 4"                                   << 125.0;
    QTest::newRow("a tolerance above the size")               << "VCINTERNAL 1 2; RCEXTERNAL 1 2; BOUNDARYINTERNAL 1 2" << fails;
    QTest::newRow("a fastener wider than its hole")           << "FLOATINGFASTENER 8 10; FIXEDFASTENER 8 10"          << fails;
    QTest::newRow("a negative size")                          << "VCEXTERNAL -1 2; RCINTERNAL -1 2; BOUNDARYEXTERNAL -1 2; VCINTERNAL -1 -2; RCEXTERNAL -1 -2; BOUNDARYINTERNAL -1 -2; FIXEDFASTENER -1 -2" << fails;
    QTest::newRow("a negative tolerance")                     << "VCEXTERNAL 1 -2; RCINTERNAL 1 -2; BOUNDARYEXTERNAL 1 -2; VCINTERNAL 1 -2; TOTALTOL -1 2; TOTALTOL 2 -1; POSITIONALLOW -1 10 10" << fails;
    QTest::newRow("a negative position")                      << "POSITIONMARGIN 1 -1; POSITIONMARGIN -1 1; POSITIONUTIL -1 1" << fails;
    QTest::newRow("a share of no allowance")                  << "POSITIONUTIL 1 0; POSITIONUTIL 0 0; POSITIONUTIL 1 -1"                              << fails;
    QTest::newRow("beyond the doubles")                       << "POSITION 1e308 0; TOTALTOL 1e308 1e308"             << fails;
    QTest::newRow("too few arguments")                        << "POSITION 1; TRUEPOSITION; RADIALDEV 1; POSITION3D 1 2; POSITIONALLOW 1 2; COORDDEV 1" << fails;
    QTest::newRow("too many arguments")                       << "POSITION 1 2 3; POSITION3D 1 2 3 4; TOTALTOL 1 2 3; POSITIONUTIL 1 2 3" << fails;
    // clang-format on
}

void GDTTest::Calls()
{
    QFETCH(QString, calls);
    QFETCH(double, expected);
    VerifyCalls(RunGDTFunction, calls, expected, 0);
}

QTEST_APPLESS_MAIN(GDTTest)
#include "GDTTest.moc"
