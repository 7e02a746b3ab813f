// Time value of money: loans, compounding, cash flows, and the percentages of business.
//
// Pure functions over doubles; no text, no state. Rates are fractions per period (0.05 is 5 %); amounts are in one
// currency, whichever the caller means. A rate under 1e-15 in magnitude counts as none. The names that the pad's
// language gives these functions stand in the table of Financial.cpp, and only there.
#pragma once

#include "core/engine/FunctionTable.h"

#include <functional>

/// Level payment at the end of each period that takes a loan from `presentValue` to `futureValue`.
///
/// @param rate          interest per period, a fraction above -1
/// @param periods       number of payments, above 0; need not be whole
/// @param presentValue  amount borrowed now, at least 0
/// @param futureValue   amount still owed after the last payment, at least 0
/// @return the payment, or nothing where an argument is out of range or the result is not finite
///
/// Formula: (P g - F) r / (g - 1) with g = (1 + r)^n, and (P - F) / n without interest. Ordinary annuity, payments in
/// arrears; S. G. Kellison, The Theory of Interest, the chapters on annuities and on amortization. The difference g - 1
/// costs digits at tiny rates: about 1e-16 / rate of the result is noise.
Value LoanPayment(double rate, double periods, double presentValue, double futureValue);

/// What is still owed on a loan, or has grown from a deposit, after `periods` level payments in arrears.
///
/// @param rate          interest per period, a fraction above -1
/// @param periods       payments made, at least 0; need not be whole
/// @param presentValue  amount borrowed or deposited at the start
/// @param payment       paid in at the end of each period; a loan's repayment is negative
/// @return the amount; not finite where it leaves the range of double
///
/// Formula: P g + p (g - 1) / r with g = (1 + r)^n, and P + p n without interest.
double ValueAfterPayments(double rate, double periods, double presentValue, double payment);

/// Number of payments in arrears that take a loan from `presentValue` to `futureValue`.
///
/// @param rate          interest per period, a fraction above -1
/// @param payment       paid at the end of each period, above 0
/// @param presentValue  amount borrowed now, at least 0
/// @param futureValue   amount still owed at the end, at least 0
/// @return the number, not rounded; nothing where an argument is out of range, where the payment does not cover the
/// interest, or where only going back in time would do. Without interest that last case gives a negative number.
///
/// Formula: ln((p / r - F) / (p / r - P)) / ln(1 + r), and (P - F) / p without interest.
Value LoanPeriods(double rate, double payment, double presentValue, double futureValue);

/// The rate per period at which a loan's level payment is `payment`: the root of LoanPayment in its rate.
///
/// @param periods       number of payments, above 0
/// @param payment       paid at the end of each period, at least 0
/// @param presentValue  amount borrowed now, at least 0
/// @param futureValue   amount still owed after the last payment, at least 0
/// @return a rate within what FindFinancialRate accepts as a root, or nothing where there is none
Value LoanRate(double periods, double payment, double presentValue, double futureValue);

/// What cash flows are worth today.
///
/// @param rate       discount per period, a fraction above -1
/// @param cashFlows  a flow a period; the first is today's and is not discounted
/// @return the sum of cashFlow_i / (1 + rate)^i; not finite where it leaves the range of double
double NetPresentValue(double rate, Arguments cashFlows);

/// The rate per period at which cash flows are worth nothing today.
///
/// @param cashFlows  a flow a period, the first today; at least one positive and one negative
/// @return a rate within what FindFinancialRate accepts as a root (flows that change their sign more than once can have
/// several), or nothing where there is none
Value InternalRateOfReturn(Arguments cashFlows);

/// A function of a rate per period whose root is sought; nothing where the rate is outside its domain.
using RateResidual = std::function<Value(double rate)>;

/// A root of `residual` between -1 and 1000000.
///
/// Newton's method with a central difference from ten seeds, the likeliest rates first; then a scan from -0.9999 to
/// 1000, dense where rates usually lie, with a bisection at the first change of sign.
///
/// @return a rate whose residual is under 1e-10 in magnitude (under 1e-8 where Newton's steps got shorter than 1e-12),
/// or within 1e-12 of a change of sign; nothing where the search finds none after at most some 23000 residuals
Value FindFinancialRate(const RateResidual& residual);

/// All functions of this library, a row each.
FunctionLibrary FinancialFunctions();

/// A call by name, in any case of letters.
///
/// @param ok       whether the call gave a value
/// @param handled  whether the name is one of this library; `ok` and the result are final then
/// @return the value, 0 where there is none
double RunFinancialFunction(const QString& name, const QList<double>& arguments, bool& ok, bool& handled);
