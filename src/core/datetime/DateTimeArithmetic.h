// What + - * / do with each pair of kinds of the date and time language.
//
// A number beside a duration or a clock time counts minutes, or seconds where the time shows its seconds, and is
// rounded once it is seconds: 1:30 + 0.5 is 1:30:30. Beside a date it counts calendar days. Durations and clock times
// never wrap. A result that leaves 64 bits of seconds or the calendar is Invalid; so is a date with a time of day more
// than 1.1 million years from today.
//
// Daylight saving: days are days of the calendar and keep the time of day (one that the clocks skip on the day reached
// moves on past the gap); durations are elapsed time, so 24:00 over a change of the clocks lands an hour earlier or
// later in the day. A date counts from the first moment of its day.
#pragma once

#include "core/datetime/DateTimeValue.h"

enum class DateTimeOperator { Add, Subtract, Multiply, Divide };

/// Invalid for every pair of kinds that the operator is not made for.
DateTimeValue CombineValues(DateTimeOperator operation, const DateTimeValue& left, const DateTimeValue& right);

/// The value with its sign changed; Invalid unless it is a Number or a Duration.
DateTimeValue NegateValue(const DateTimeValue& value);
