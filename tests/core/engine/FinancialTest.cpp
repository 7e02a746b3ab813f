#include "core/engine/Financial.h"

#include "LibraryCalls.h"

class FinancialTest : public QObject {
    Q_OBJECT

private slots:
    void Calls_data();
    void Calls() { CheckRow(); }
    void RateIsTheRootOfItsLoan();
    void SearchEnds();
};

// Expected values with many digits: the textbook formulas (for rates their roots) in mpmath at 50 digits, over the
// decimal numbers as they stand here. The others by hand.
void FinancialTest::Calls_data()
{
    const Table row(
        [](const QString& calls, double expected) { VerifyCalls(RunFinancialFunction, calls, expected, 1e-10); });
    const double fails = std::nan("");
    // clang-format off
    row("deposit and payments grow",         "FV 0.005 120 1000 50",          10013.364074355445547);
    row("withdrawals at a negative rate",    "FV -0.01 24 1000 -10",          571.35628161443792325);
    row("a deposit alone",                   "FV 0.05 2.5 100; fv 0.05 2.5 100 0", 112.97263219470457218);
    row("present value",                     "PV 0.08 10 1000",               463.19348808468448047);
    row("present value less payments",       "PV 0.005 120 10000 50",         992.65466728313463279);
    row("mortgage payment",                  "PMT 0.005 360 300000",          1798.6515754582571838);
    row("payment to a balloon",              "PMT 0.01 60 20000 5000",        383.66671527352666474);
    row("payment at a negative rate",        "PMT -0.01 12 1200",             93.619737276691262476);
    row("payment at a tiny rate",            "PMT 1e-6 12 1200",              100.00065000119166607);
    row("payment at next to no rate",        "PMT 1e-12 12 1200",             100.0000000000650000000);
    row("many periods at a tiny rate",       "NPER 1e-9 1 1000",              1000.0005005003335834);
    row("without interest",                  "FV 0 10 80 2; PV 9e-16 10 150 5; PMT 0 10 1000; PMT 0 10 1400 400; NPER 0 5 500; BALANCE 0 10 1000 9", 100.0);
    row("number of payments",                "NPER 0.005 600 25000",          46.839680564951384949);
    row("number of payments to a balloon",   "NPER 0.01 500 20000 5000",      40.74890715609405773);
    row("back in time without interest",     "NPER 0 50 1000 1100",           -2.0);
    row("rate of a loan",                    "RATE 60 483.32 25000",          0.004999997259014510023);
    row("rate of a loan with a balloon",     "RATE 48 400 20000 5000",        0.0067018180124382879845);
    row("rate of a loan not repaid in full", "RATE 10 90 1000",               -0.018711665422904579209);
    row("rate of growth without payments",   "RATE 5 0 100 200",              0.1486983549970350068);
    row("rate where all seeds overflow",     "RATE 100000 1 1000",            0.001);
    row("rate beyond all seeds",             "RATE 1 3000 1; IRR -1 3000",    2999.0);
    row("first interest",                    "IPMT 0.005 1 360 300000",       1500.0);
    row("interest half-way",                 "IPMT 0.005 180 360 300000",     1069.3790295009469872);
    row("principal half-way",                "PPMT 0.005 180 360 300000",     729.27254595731019655);
    row("balance half-way",                  "BALANCE 0.005 360 300000 180",  213146.53335423208725);
    row("total interest",                    "INTEREST 0.005 360 300000",     347514.56716497258616);
    row("monthly compounding",               "COMPOUND 1000 0.06 12 5",       1348.8501525493160693);
    row("daily compounding",                 "COMPOUND 1000 0.05 365 2.5",    1133.1387523807825365);
    row("an annual loss above all, shared",  "COMPOUND 1000 -2 4 0.5",        250.0);
    row("effective yield",                   "APY 0.06 12",                   0.06167781186449956879);
    row("nominal rate",                      "APR 0.05 4",                    0.049088937716157082973);
    row("the first flow is today's",         "NPV 0.1 -1000 300 400 500",     -21.03681442524417731);
    row("flows at a negative rate",          "NPV -0.5 -1000 300 400 500; NPV 3 5200", 5200.0);
    row("internal rate",                     "IRR -1000 300 400 500",         0.088963394693349935318);
    row("internal rate of a loss",           "IRR -1000 200 300 100",         -0.23600396689700827799);
    row("internal rate near total loss",     "IRR -1000 1",                   -0.999);
    row("flows whose rounding hides zero",   "IRR -1e9 1e8 2e8 3e8 4e8 5e8",  0.1200576195419627267);
    row("of two roots the likelier",         "IRR -1600 10000 -10000",        0.25);
    row("growth a year",                     "CAGR 10 500 7",                 0.74867862159013998097);
    row("shares",                            "ROI -50 -62.5; PERCENTCHANGE 80 100; MARGIN 80 60", 0.25);
    row("prices",                            "MARKUP 48 0.25; TAX 80 -0.25; DISCOUNT 80 0.25", 60.0);

    row("a rate of -1 or less",     "FV -1 2 100; PV -1 2 100; PMT -1 10 1; NPER -2 50 1; IPMT -1 1 2 3; BALANCE -1 2 3 1; NPV -1 5 5; APR -1 12", fails);
    row("all lost at once",         "COMPOUND 1 -12 12 1; APY -12 12",                     fails);
    row("negative time",            "FV 0.1 -1 100; PV 0.1 -1 100; COMPOUND 1 0.1 1 -1",   fails);
    row("no periods",               "PMT 0 0 1; RATE 0 50 1; BALANCE 0.01 0 1 0; INTEREST 0 0 1; COMPOUND 1 0.1 0 1; APY 0.1 0; APR 0.1 0; CAGR 5 5 0", fails);
    row("negative loan",            "PMT 0.01 10 -1; NPER 0 50 -1; RATE 10 50 -1; IPMT 0.01 1 10 -1; PPMT 0.01 1 10 -1; BALANCE 0.01 10 -1 1; INTEREST 0.01 10 -1", fails);
    row("negative balloon",         "PMT 0.01 10 1 -1; NPER 0 50 1 -1; RATE 10 50 1000 -1", fails);
    row("payment out of range",     "NPER 0.01 0 1000; NPER 0 0 1000; RATE 10 -50 1000",   fails);
    row("payment below interest",   "NPER 0.01 10 1000; NPER 0.01 10 100 1000",            fails);
    row("back in time with interest", "NPER 0.01 50 1000 1100",                            fails);
    row("growth too small to see",  "PMT 1e-15 0.1 1; PMT 1e-15 0.4 1",                     fails);
    row("beyond the doubles",       "FV 1 2000 100; PV -0.9999 1e6 100; PMT 1 2000 1; COMPOUND 1 1 1 2000; MARKUP 1e308 1; NPV -0.9999999 1 0 1e300", fails);
    row("period outside the loan",  "IPMT 0.01 0 10 100; IPMT 0.01 10.5 10 100; PPMT 0.01 0 10 100; PPMT 0.01 11 10 100", fails);
    row("payments outside the loan", "BALANCE 0.01 10 100 -1; BALANCE 0.01 10 100 11",     fails);
    row("no such rate",             "RATE 10 500 0; RATE 1 2e6 1; IRR 100 -150 100",       fails);
    row("flows of one sign",        "IRR 100 0 200; IRR -100 0",                           fails);
    row("a share of nothing",       "ROI 0 5; PERCENTCHANGE 0 5; MARGIN 0 1; CAGR 0 5 1; CAGR 5 0 1", fails);
    row("too few arguments",        "FV 0 1; PV 0 1; PMT 0 1; NPER 0 1; RATE 1 2; IPMT 0 1 2; PPMT 0 1 2; BALANCE 0 2 1; INTEREST 0 1; COMPOUND 1 1 1; APY 1; APR 1; NPV 0; IRR 1; ROI 1; PERCENTCHANGE 1; CAGR 1 2; MARKUP 1; MARGIN 1; DISCOUNT 1; TAX", fails);
    row("too many arguments",       "FV 0 1 1 1 1; PV 0 1 1 1 1; PMT 0 1 1 1 1; NPER 0 1 1 1 1; RATE 1 2 1 1 1; IPMT 0 1 2 1 1; PPMT 0 1 2 1 1; BALANCE 0 2 1 1 1; INTEREST 0 1 1 1; COMPOUND 1 1 1 1 1; APY 1 1 1; APR 1 1 1; ROI 1 1 1; PERCENTCHANGE 1 1 1; CAGR 1 2 1 1; MARKUP 1 1 1; MARGIN 1 1 1; DISCOUNT 1 1 1; TAX 1 1 1", fails);
    // clang-format on
}

// The payment of a known rate, computed in extended precision, must lead back to that rate.
void FinancialTest::RateIsTheRootOfItsLoan()
{
    for (const double rate : {-0.2, -0.01, 1e-4, 0.003, 0.0425, 0.3, 1.0, 12.0, 400.0}) {
        for (const double periods : {1.0, 7.5, 48.0}) {
            for (const double presentValue : {1000.0, 1e9}) {
                const auto growth = std::pow(1 + static_cast<long double>(rate), static_cast<long double>(periods));
                const auto payment = static_cast<double>(presentValue * growth * rate / (growth - 1));
                const double found = LoanRate(periods, payment, presentValue, 0).value_or(std::nan(""));
                QVERIFY2(std::fabs(found - rate) <= 1e-9 * (1 + rate), qPrintable(QString::number(rate)));
            }
        }
    }
}

// A residual without a slope, nor a value above -0.5, leaves only the scan to find where it dips below zero.
void FinancialTest::SearchEnds()
{
    int calls = 0;
    const auto dipAt = [&calls](double root) {
        return [&calls, root](double rate) -> Value {
            ++calls;
            return rate > -0.5 ? std::nullopt : Value(rate > root && rate < root + 0.01 ? -1 : 1);
        };
    };
    const Value found = FindFinancialRate(dipAt(-0.73));
    QVERIFY(found && std::fabs(*found + 0.73) < 1e-12);
    calls = 0;
    QVERIFY(!FindFinancialRate(dipAt(-0.25)));
    QVERIFY(calls > 20000 && calls < 24000);
    // Nothing has a value where the sign changes.
    QVERIFY(!FindFinancialRate(
        [](double rate) { return std::fabs(rate + 0.5) < 1e-5 ? std::nullopt : Value(rate < -0.5 ? -1 : 1); }));
}

QTEST_APPLESS_MAIN(FinancialTest)
#include "FinancialTest.moc"
