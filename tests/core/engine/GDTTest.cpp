#include "core/engine/GDT.h"

#include "LibraryCalls.h"

class GDTTest : public QObject {
    Q_OBJECT

private slots:
    void Calls_data();
    void Calls() { CheckRow(); }
};

// Expected values are sums, differences and Pythagorean triples done by hand.
void GDTTest::Calls_data()
{
    const Table row([](const QString& calls, double expected) { VerifyCalls(RunGDTFunction, calls, expected, 0); });
    const double fails = std::nan("");
    // clang-format off
    row("a position is a diameter",                 "POSITION 3 -4; TRUEPOSITION -3 4; DIAMETRALDEV 3 4", 10.0);
    row("a radial deviation is half of it",         "RADIALDEV 3 4; RADIALDEV -3 -4",                     5.0);
    row("squares beyond the doubles do not matter", "RADIALDEV 0 5e200; POSITION 2.5e200 0",             5e200);
    row("three axes",                               "POSITION3D 1 -2 2; position3d 2 2 1",                6.0);
    row("a coordinate deviation has a sign",        "COORDDEV 9.75 10",                                   -0.25);
    row("a bonus has none",                         "BONUSTOL 10 10.25; BONUSTOL 10.25 10; ZEROTOLMMC 9.75 10", 0.25);
    row("the bonus adds to the stated tolerance",   "TOTALTOL 0.5 0.25; POSITIONALLOW 0.5 9.75 10; POSITIONALLOW 0.5 10.25 10", 0.75);
    row("boundaries that the tolerance widens",     "VCEXTERNAL 10 0.5; RCINTERNAL 10 0.5; BOUNDARYEXTERNAL 10 0.5", 10.5);
    row("boundaries that the tolerance narrows",    "VCINTERNAL 10 0.5; RCEXTERNAL 10 0.5; BOUNDARYINTERNAL 10 0.5", 9.5);
    row("nothing may be left",                      "VCINTERNAL 2 2; RCEXTERNAL 2 2; FIXEDFASTENER 8 8; TOTALTOL 0 0", 0.0);
    row("a floating fastener has all clearance",    "FLOATINGFASTENER 10 8",                              2.0);
    row("a fixed fastener has half of it",          "FIXEDFASTENER 10 8",                                 1.0);
    row("out of position is a negative margin",     "POSITIONMARGIN 1 3",                                 -2.0);
    row("percent of the allowance used",            "POSITIONUTIL 5 4",                                   125.0);
    row("a tolerance above the size",               "VCINTERNAL 1 2; RCEXTERNAL 1 2; BOUNDARYINTERNAL 1 2", fails);
    row("a fastener wider than its hole",           "FLOATINGFASTENER 8 10; FIXEDFASTENER 8 10",          fails);
    row("a negative size",                          "VCEXTERNAL -1 2; RCINTERNAL -1 2; BOUNDARYEXTERNAL -1 2; VCINTERNAL -1 -2; RCEXTERNAL -1 -2; BOUNDARYINTERNAL -1 -2; FIXEDFASTENER -1 -2", fails);
    row("a negative tolerance",                     "VCEXTERNAL 1 -2; RCINTERNAL 1 -2; BOUNDARYEXTERNAL 1 -2; VCINTERNAL 1 -2; TOTALTOL -1 2; TOTALTOL 2 -1; POSITIONALLOW -1 10 10", fails);
    row("a negative position",                      "POSITIONMARGIN 1 -1; POSITIONMARGIN -1 1; POSITIONUTIL -1 1", fails);
    row("a share of no allowance",                  "POSITIONUTIL 1 0; POSITIONUTIL 0 0; POSITIONUTIL 1 -1",                              fails);
    row("beyond the doubles",                       "POSITION 1e308 0; TOTALTOL 1e308 1e308",             fails);
    row("too few arguments",                        "POSITION 1; TRUEPOSITION; RADIALDEV 1; POSITION3D 1 2; POSITIONALLOW 1 2; COORDDEV 1", fails);
    row("too many arguments",                       "POSITION 1 2 3; POSITION3D 1 2 3 4; TOTALTOL 1 2 3; POSITIONUTIL 1 2 3", fails);
    // clang-format on
}

QTEST_APPLESS_MAIN(GDTTest)
#include "GDTTest.moc"
