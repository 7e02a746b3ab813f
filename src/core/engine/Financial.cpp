#include "core/engine/Financial.h"

#include <algorithm>
#include <cmath>

namespace {

// Checks are written so that NaN fails them.

bool IsZeroRate(double rate)
{
    return std::fabs(rate) < 1e-15;
}

Value FiniteOrNothing(double value)
{
    return std::isfinite(value) ? Value(value) : std::nullopt;
}

double ArgumentOrZero(Arguments arguments, size_t index)
{
    return index < arguments.size() ? arguments[index] : 0;
}

// What one unit gains over the periods, (1 + rate)^periods - 1, without the digits that the subtraction would cancel.
double Gain(double rate, double periods)
{
    return std::expm1(periods * std::log1p(rate));
}

// What one unit grows to over the periods, (1 + rate)^periods. A rounding of 1 + rate would count once a period, so
// that the power is taken only where there is none.
double Growth(double rate, double periods)
{
    const double base = 1 + rate;
    return base - 1 == rate ? std::pow(base, periods) : 1 + Gain(rate, periods);
}

Value FutureValue(Arguments arguments)
{
    const double rate = arguments[0];
    const double periods = arguments[1];
    if (!(rate > -1) || !(periods >= 0))
        return std::nullopt;
    return ValueAfterPayments(rate, periods, arguments[2], ArgumentOrZero(arguments, 3));
}

Value PresentValue(Arguments arguments)
{
    const double rate = arguments[0];
    const double periods = arguments[1];
    const double futureValue = arguments[2];
    const double payment = ArgumentOrZero(arguments, 3);
    if (!(rate > -1) || !(periods >= 0))
        return std::nullopt;
    if (IsZeroRate(rate))
        return futureValue - payment * periods;
    const double growth = Growth(rate, periods);
    return (futureValue - payment * Gain(rate, periods) / rate) / growth;
}

Value Payment(Arguments arguments)
{
    return LoanPayment(arguments[0], arguments[1], arguments[2], ArgumentOrZero(arguments, 3));
}

Value Periods(Arguments arguments)
{
    return LoanPeriods(arguments[0], arguments[1], arguments[2], ArgumentOrZero(arguments, 3));
}

Value Rate(Arguments arguments)
{
    return LoanRate(arguments[0], arguments[1], arguments[2], ArgumentOrZero(arguments, 3));
}

// One payment of a loan that is repaid to the end, and how much of it is interest.
struct PaymentParts {
    double payment = 0;
    double interest = 0;
};

std::optional<PaymentParts> PaymentOfPeriod(Arguments arguments)
{
    const double rate = arguments[0];
    const double period = arguments[1];
    const double periods = arguments[2];
    const double presentValue = arguments[3];
    if (!(period > 0) || !(period <= periods))
        return std::nullopt;
    const Value payment = LoanPayment(rate, periods, presentValue, 0);
    if (!payment)
        return std::nullopt;
    return PaymentParts{*payment, ValueAfterPayments(rate, period - 1, presentValue, -*payment) * rate};
}

Value InterestPart(Arguments arguments)
{
    const auto parts = PaymentOfPeriod(arguments);
    return parts ? Value(parts->interest) : std::nullopt;
}

Value PrincipalPart(Arguments arguments)
{
    const auto parts = PaymentOfPeriod(arguments);
    return parts ? Value(parts->payment - parts->interest) : std::nullopt;
}

Value Balance(Arguments arguments)
{
    const double rate = arguments[0];
    const double periods = arguments[1];
    const double presentValue = arguments[2];
    const double paymentsMade = arguments[3];
    if (!(paymentsMade >= 0) || !(paymentsMade <= periods))
        return std::nullopt;
    const Value payment = LoanPayment(rate, periods, presentValue, 0);
    return payment ? Value(ValueAfterPayments(rate, paymentsMade, presentValue, -*payment)) : std::nullopt;
}

Value TotalInterest(Arguments arguments)
{
    const double periods = arguments[1];
    const double presentValue = arguments[2];
    const Value payment = LoanPayment(arguments[0], periods, presentValue, 0);
    return payment ? Value(*payment * periods - presentValue) : std::nullopt;
}

Value CompoundAmount(Arguments arguments)
{
    const double principal = arguments[0];
    const double annualRate = arguments[1];
    const double compoundsPerYear = arguments[2];
    const double years = arguments[3];
    if (!(compoundsPerYear > 0) || !(years >= 0) || !(1 + annualRate / compoundsPerYear > 0))
        return std::nullopt;
    return principal * Growth(annualRate / compoundsPerYear, compoundsPerYear * years);
}

Value EffectiveYield(Arguments arguments)
{
    const double nominalRate = arguments[0];
    const double compoundsPerYear = arguments[1];
    if (!(compoundsPerYear > 0) || !(1 + nominalRate / compoundsPerYear > 0))
        return std::nullopt;
    return Gain(nominalRate / compoundsPerYear, compoundsPerYear);
}

Value NominalRate(Arguments arguments)
{
    const double effectiveYield = arguments[0];
    const double compoundsPerYear = arguments[1];
    if (!(compoundsPerYear > 0) || !(1 + effectiveYield > 0))
        return std::nullopt;
    return compoundsPerYear * Gain(effectiveYield, 1 / compoundsPerYear);
}

Value PresentValueOfFlows(Arguments arguments)
{
    const double rate = arguments[0];
    return rate > -1 ? Value(NetPresentValue(rate, arguments.subspan(1))) : std::nullopt;
}

Value RelativeChange(Arguments arguments)
{
    const double from = arguments[0];
    const double to = arguments[1];
    return from != 0 ? Value((to - from) / from) : std::nullopt;
}

Value AnnualGrowthRate(Arguments arguments)
{
    const double initialValue = arguments[0];
    const double finalValue = arguments[1];
    const double years = arguments[2];
    if (!(initialValue > 0) || !(finalValue > 0) || !(years > 0))
        return std::nullopt;
    return std::pow(finalValue / initialValue, 1 / years) - 1;
}

Value Increased(Arguments arguments)
{
    return arguments[0] * (1 + arguments[1]);
}

Value Decreased(Arguments arguments)
{
    return arguments[0] * (1 - arguments[1]);
}

Value Margin(Arguments arguments)
{
    const double revenue = arguments[0];
    const double cost = arguments[1];
    return revenue != 0 ? Value((revenue - cost) / revenue) : std::nullopt;
}

// clang-format off
constexpr FunctionRow functions[] = {
    {QLatin1StringView("FV"),            3, 4,        FutureValue},          // rate, periods, presentValue [, payment]
    {QLatin1StringView("PV"),            3, 4,        PresentValue},         // rate, periods, futureValue [, payment]
    {QLatin1StringView("PMT"),           3, 4,        Payment},              // rate, periods, presentValue [, futureValue]
    {QLatin1StringView("NPER"),          3, 4,        Periods},              // rate, payment, presentValue [, futureValue]
    {QLatin1StringView("RATE"),          3, 4,        Rate},                 // periods, payment, presentValue [, futureValue]
    {QLatin1StringView("IPMT"),          4, 4,        InterestPart},         // rate, period, periods, presentValue
    {QLatin1StringView("PPMT"),          4, 4,        PrincipalPart},        // rate, period, periods, presentValue
    {QLatin1StringView("BALANCE"),       4, 4,        Balance},              // rate, periods, presentValue, paymentsMade
    {QLatin1StringView("INTEREST"),      3, 3,        TotalInterest},        // rate, periods, presentValue
    {QLatin1StringView("COMPOUND"),      4, 4,        CompoundAmount},       // principal, annualRate, compoundsPerYear, years
    {QLatin1StringView("APY"),           2, 2,        EffectiveYield},       // apr, compoundsPerYear
    {QLatin1StringView("APR"),           2, 2,        NominalRate},          // apy, compoundsPerYear
    {QLatin1StringView("NPV"),           2, anyCount, PresentValueOfFlows},  // rate, cashFlow0, cashFlow1 ...
    {QLatin1StringView("IRR"),           2, anyCount, InternalRateOfReturn}, // cashFlow0, cashFlow1 ...
    {QLatin1StringView("ROI"),           2, 2,        RelativeChange},       // initialValue, finalValue
    {QLatin1StringView("PERCENTCHANGE"), 2, 2,        RelativeChange},       // oldValue, newValue
    {QLatin1StringView("CAGR"),          3, 3,        AnnualGrowthRate},     // initialValue, finalValue, years
    {QLatin1StringView("MARKUP"),        2, 2,        Increased},            // cost, markupRate
    {QLatin1StringView("MARGIN"),        2, 2,        Margin},               // revenue, cost
    {QLatin1StringView("DISCOUNT"),      2, 2,        Decreased},            // price, discountRate
    {QLatin1StringView("TAX"),           2, 2,        Increased},            // amount, taxRate
};
// clang-format on

constexpr double seeds[] = {0.1, 0.01, 0.25, 0.5, 1.0, -0.1, -0.5, 2.0, 5.0, 10.0};
constexpr double lowestRate = -0.999999999; // Newton's method comes no closer to -1
constexpr double highestRate = 1e6;

Value FiniteResidual(const RateResidual& residual, double rate)
{
    const Value value = residual(rate);
    return value ? FiniteOrNothing(*value) : std::nullopt;
}

bool IsRoot(double residual)
{
    return std::fabs(residual) < 1e-10;
}

// Where the tangent at `rate` meets zero; nothing where the slope says nothing or leads out of the range of rates.
Value NewtonStep(const RateResidual& residual, double rate, double atRate)
{
    const double step = (std::fabs(rate) + 1) * 1e-6;
    const double up = rate + step;
    const double down = std::max(rate - step, lowestRate);
    const Value atUp = FiniteResidual(residual, up);
    const Value atDown = FiniteResidual(residual, down);
    if (!atUp || !atDown)
        return std::nullopt;
    const double slope = (*atUp - *atDown) / (up - down);
    if (std::fabs(slope) < 1e-15)
        return std::nullopt;
    const double next = rate - atRate / slope;
    return next > lowestRate && next <= highestRate ? Value(next) : std::nullopt; // NaN is refused as well
}

Value NewtonFrom(double seed, const RateResidual& residual)
{
    double rate = seed;
    for (int iteration = 0; iteration < 100; ++iteration) {
        const Value atRate = FiniteResidual(residual, rate);
        if (!atRate)
            return std::nullopt;
        if (IsRoot(*atRate))
            return rate;
        const Value next = NewtonStep(residual, rate, *atRate);
        if (!next)
            return std::nullopt;
        if (std::fabs(*next - rate) < 1e-12) {
            const Value atNext = FiniteResidual(residual, *next);
            return atNext && std::fabs(*atNext) < 1e-8 ? next : std::nullopt;
        }
        rate = *next;
    }
    return std::nullopt;
}

bool HaveOppositeSigns(double left, double right)
{
    return (left < 0 && right > 0) || (left > 0 && right < 0);
}

Value Bisect(const RateResidual& residual, double low, double high, double atLow)
{
    for (int iteration = 0; iteration < 150; ++iteration) {
        const double middle = (low + high) * 0.5;
        const Value atMiddle = FiniteResidual(residual, middle);
        if (!atMiddle)
            return std::nullopt;
        if (IsRoot(*atMiddle) || std::fabs(high - low) < 1e-12)
            return middle;
        if (HaveOppositeSigns(atLow, *atMiddle)) {
            high = middle;
        } else {
            low = middle;
            atLow = *atMiddle;
        }
    }
    return std::nullopt;
}

// The points lie densely near -1 and 0, where most rates do, and reach 1000.
Value ScanForRate(const RateResidual& residual)
{
    double previous = -0.9999;
    Value atPrevious = FiniteResidual(residual, previous);
    for (int i = 1; i <= 20000; ++i) {
        const double fraction = i / 20000.0;
        const double candidate = fraction * fraction * 1000.9999 - 0.9999;
        const Value atCandidate = FiniteResidual(residual, candidate);
        if (atPrevious && atCandidate) {
            if (IsRoot(*atCandidate))
                return candidate;
            if (HaveOppositeSigns(*atPrevious, *atCandidate)) {
                if (const Value root = Bisect(residual, previous, candidate, *atPrevious))
                    return root;
            }
        }
        previous = candidate;
        atPrevious = atCandidate;
    }
    return std::nullopt;
}

// NetPresentValue for a search, which asks some 20000 times: the powers are one running product and not a call of pow
// for each flow, and a long list ends where the flows that are left no longer count. Extended precision keeps the
// product as exact as pow: where flows have several roots, the last bit can decide which one is found.
double DiscountedSum(double rate, Arguments cashFlows)
{
    double sum = 0;
    long double product = 1;
    for (const double cashFlow : cashFlows) {
        const auto growth = static_cast<double>(product);
        sum += cashFlow / growth;
        if (std::isinf(growth) || !std::isfinite(sum))
            break;
        product *= 1 + rate;
    }
    return sum;
}

} // namespace

Value LoanPayment(double rate, double periods, double presentValue, double futureValue)
{
    if (!(periods > 0) || !(presentValue >= 0) || !(futureValue >= 0))
        return std::nullopt;
    if (IsZeroRate(rate))
        return FiniteOrNothing((presentValue - futureValue) / periods);
    if (!(rate > -1))
        return std::nullopt;
    const double growth = Growth(rate, periods);
    const double gain = Gain(rate, periods);
    if (!std::isfinite(growth) || std::fabs(gain) < 1e-15)
        return std::nullopt;
    return FiniteOrNothing((presentValue * growth - futureValue) * rate / gain);
}

double ValueAfterPayments(double rate, double periods, double presentValue, double payment)
{
    if (IsZeroRate(rate))
        return presentValue + payment * periods;
    const double growth = Growth(rate, periods);
    return presentValue * growth + payment * Gain(rate, periods) / rate;
}

Value LoanPeriods(double rate, double payment, double presentValue, double futureValue)
{
    if (!(rate > -1) || !(payment > 0) || !(presentValue >= 0) || !(futureValue >= 0))
        return std::nullopt;
    if (IsZeroRate(rate))
        return FiniteOrNothing((presentValue - futureValue) / payment);
    const double perpetuity = payment / rate; // what the payment keeps paying interest on for ever
    if (!(perpetuity - futureValue > 0) || !(perpetuity - presentValue > 0))
        return std::nullopt;
    const double repaid = (presentValue - futureValue) / (perpetuity - presentValue);
    const double periods = std::log1p(repaid) / std::log1p(rate);
    return periods >= 0 ? FiniteOrNothing(periods) : std::nullopt;
}

Value LoanRate(double periods, double payment, double presentValue, double futureValue)
{
    if (!(periods > 0) || !(payment >= 0) || !(presentValue >= 0) || !(futureValue >= 0))
        return std::nullopt;
    return FindFinancialRate([=](double rate) -> Value {
        const Value candidate = LoanPayment(rate, periods, presentValue, futureValue);
        return candidate ? Value(*candidate - payment) : std::nullopt;
    });
}

double NetPresentValue(double rate, Arguments cashFlows)
{
    double sum = 0;
    for (size_t i = 0; i < cashFlows.size(); ++i)
        sum += cashFlows[i] / std::pow(1 + rate, static_cast<double>(i));
    return sum;
}

Value InternalRateOfReturn(Arguments cashFlows)
{
    const auto isPositive = [](double cashFlow) { return cashFlow > 0; };
    const auto isNegative = [](double cashFlow) { return cashFlow < 0; };
    if (std::none_of(cashFlows.begin(), cashFlows.end(), isPositive) ||
        std::none_of(cashFlows.begin(), cashFlows.end(), isNegative))
        return std::nullopt;
    return FindFinancialRate([=](double rate) { return DiscountedSum(rate, cashFlows); });
}

Value FindFinancialRate(const RateResidual& residual)
{
    for (const double seed : seeds) {
        if (const Value root = NewtonFrom(seed, residual))
            return root;
    }
    return ScanForRate(residual);
}

FunctionLibrary FinancialFunctions()
{
    return functions;
}

double RunFinancialFunction(const QString& name, const QList<double>& arguments, bool& ok, bool& handled)
{
    return RunLibraryFunction(functions, name.toUpper(), arguments, ok, handled);
}
