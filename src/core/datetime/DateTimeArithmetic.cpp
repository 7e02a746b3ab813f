#include "core/datetime/DateTimeArithmetic.h"

#include <QtNumeric>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

using Kind = DateTimeKind;
using Operand = const DateTimeValue&;
using Seconds = std::optional<qint64>;

constexpr qint64 secondsPerDay = 86400;

// Days from 1970 (1.1 million years) within which local times are reckoned. QDateTime keeps a local time in 56 bits of
// milliseconds, 417 million days, and counting days past them silently gives another date.
constexpr qint64 farthestDay = 400'000'000;

Seconds Rounded(double seconds)
{
    if (!(seconds >= -0x1p63 && seconds < 0x1p63)) // written so that NaN is refused as well
        return std::nullopt;
    return std::llround(seconds);
}

Seconds Sum(qint64 left, qint64 right)
{
    qint64 sum = 0;
    return qAddOverflow(left, right, &sum) ? std::nullopt : Seconds(sum);
}

Seconds Difference(qint64 left, qint64 right)
{
    qint64 difference = 0;
    return qSubOverflow(left, right, &difference) ? std::nullopt : Seconds(difference);
}

bool IsNearEnough(QDate date)
{
    return date.isValid() && std::abs(QDate(1970, 1, 1).daysTo(date)) <= farthestDay;
}

// A date counts from its first moment, which is 0:00:00 but for the days on which the clocks skip that hour.
QDateTime Moment(Operand calendar)
{
    if (calendar.kind == Kind::DateTimeStamp)
        return calendar.dateTime;
    return IsNearEnough(calendar.date) ? calendar.date.startOfDay() : QDateTime();
}

// Seconds that a bare number beside the time stands for.
Seconds SecondsBeside(Operand time, double number)
{
    return Rounded(number * (time.showSeconds ? 1 : 60));
}

DateTimeValue AddNumbers(Operand left, Operand right)
{
    return MakeNumberValue(left.number + right.number);
}

DateTimeValue SubtractNumbers(Operand left, Operand right)
{
    return MakeNumberValue(left.number - right.number);
}

DateTimeValue MultiplyNumbers(Operand left, Operand right)
{
    return MakeNumberValue(left.number * right.number);
}

DateTimeValue DivideNumbers(Operand left, Operand right)
{
    return right.number == 0 ? DateTimeValue() : MakeNumberValue(left.number / right.number);
}

// A duration beside either kind of time; the kind is the left one's.
DateTimeValue AddDuration(Operand time, Operand duration)
{
    return MakeTimeValue(time.kind, Sum(time.seconds, duration.seconds), time.showSeconds || duration.showSeconds);
}

DateTimeValue AddNumberToTime(Operand time, Operand number)
{
    const DateTimeValue added = MakeTimeValue(Kind::Duration, SecondsBeside(time, number.number), false);
    return added.IsValid() ? AddDuration(time, added) : DateTimeValue();
}

DateTimeValue SubtractTimes(Operand left, Operand right)
{
    const Kind kind = right.kind == Kind::ClockTime ? Kind::Duration : left.kind;
    return MakeTimeValue(kind, Difference(left.seconds, right.seconds), left.showSeconds || right.showSeconds);
}

DateTimeValue SubtractDurationFromNumber(Operand number, Operand duration)
{
    const DateTimeValue left = MakeTimeValue(Kind::Duration, SecondsBeside(duration, number.number), false);
    return left.IsValid() ? SubtractTimes(left, duration) : DateTimeValue();
}

DateTimeValue MultiplyDuration(Operand duration, Operand number)
{
    const double seconds = static_cast<double>(duration.seconds) * number.number;
    return MakeTimeValue(Kind::Duration, Rounded(seconds), duration.showSeconds);
}

DateTimeValue DivideDuration(Operand duration, Operand number)
{
    if (number.number == 0)
        return {};
    const double seconds = static_cast<double>(duration.seconds) / number.number;
    return MakeTimeValue(Kind::Duration, Rounded(seconds), duration.showSeconds);
}

DateTimeValue AddDays(Operand calendar, Operand number)
{
    const Seconds days = Rounded(number.number);
    if (!days || std::abs(number.number - std::round(number.number)) > 1e-9)
        return {};
    const QDate date = GetCalendarDate(calendar).addDays(*days);
    if (calendar.kind == Kind::Date)
        return MakeDateValue(date);
    return IsNearEnough(date) ? MakeStampValue(calendar.dateTime.addDays(*days), calendar.showSeconds)
                              : DateTimeValue();
}

DateTimeValue AddElapsed(Operand calendar, Operand duration)
{
    const QDateTime start = Moment(calendar);
    const Seconds end = start.isValid() ? Sum(start.toSecsSinceEpoch(), duration.seconds) : std::nullopt;
    constexpr qint64 farthest = farthestDay * secondsPerDay;
    if (!end || *end < -farthest || *end > farthest)
        return {};
    return MakeStampValue(start.addSecs(duration.seconds), calendar.showSeconds || duration.showSeconds);
}

DateTimeValue DaysBetween(Operand left, Operand right)
{
    return MakeNumberValue(static_cast<double>(right.date.daysTo(left.date)));
}

DateTimeValue ElapsedBetween(Operand left, Operand right)
{
    const QDateTime end = Moment(left);
    const QDateTime start = Moment(right);
    if (!end.isValid() || !start.isValid())
        return {};
    return MakeTimeValue(Kind::Duration, start.secsTo(end), left.showSeconds || right.showSeconds);
}

template <auto operation>
DateTimeValue Swapped(Operand left, Operand right)
{
    return operation(right, left);
}

template <auto operation>
DateTimeValue Negated(Operand left, Operand right)
{
    const DateTimeValue negative = NegateValue(right);
    return negative.IsValid() ? operation(left, negative) : DateTimeValue();
}

struct PairRow {
    DateTimeOperator operation;
    Kind left;
    Kind right;
    DateTimeValue (*value)(Operand, Operand);
};

// clang-format off
constexpr PairRow pairs[] = {
    {DateTimeOperator::Add,      Kind::Number,        Kind::Number,        AddNumbers},
    {DateTimeOperator::Add,      Kind::Duration,      Kind::Duration,      AddDuration},
    {DateTimeOperator::Add,      Kind::Duration,      Kind::Number,        AddNumberToTime},
    {DateTimeOperator::Add,      Kind::Number,        Kind::Duration,      Swapped<AddNumberToTime>},
    {DateTimeOperator::Add,      Kind::ClockTime,     Kind::Duration,      AddDuration},
    {DateTimeOperator::Add,      Kind::Duration,      Kind::ClockTime,     Swapped<AddDuration>},
    {DateTimeOperator::Add,      Kind::ClockTime,     Kind::Number,        AddNumberToTime},
    {DateTimeOperator::Add,      Kind::Number,        Kind::ClockTime,     Swapped<AddNumberToTime>},
    {DateTimeOperator::Add,      Kind::Date,          Kind::Number,        AddDays},
    {DateTimeOperator::Add,      Kind::Number,        Kind::Date,          Swapped<AddDays>},
    {DateTimeOperator::Add,      Kind::Date,          Kind::Duration,      AddElapsed},
    {DateTimeOperator::Add,      Kind::Duration,      Kind::Date,          Swapped<AddElapsed>},
    {DateTimeOperator::Add,      Kind::DateTimeStamp, Kind::Number,        AddDays},
    {DateTimeOperator::Add,      Kind::Number,        Kind::DateTimeStamp, Swapped<AddDays>},
    {DateTimeOperator::Add,      Kind::DateTimeStamp, Kind::Duration,      AddElapsed},
    {DateTimeOperator::Add,      Kind::Duration,      Kind::DateTimeStamp, Swapped<AddElapsed>},

    {DateTimeOperator::Subtract, Kind::Number,        Kind::Number,        SubtractNumbers},
    {DateTimeOperator::Subtract, Kind::Number,        Kind::Duration,      SubtractDurationFromNumber},
    {DateTimeOperator::Subtract, Kind::Duration,      Kind::Duration,      SubtractTimes},
    {DateTimeOperator::Subtract, Kind::Duration,      Kind::Number,        Negated<AddNumberToTime>},
    {DateTimeOperator::Subtract, Kind::ClockTime,     Kind::ClockTime,     SubtractTimes},
    {DateTimeOperator::Subtract, Kind::ClockTime,     Kind::Duration,      SubtractTimes},
    {DateTimeOperator::Subtract, Kind::ClockTime,     Kind::Number,        Negated<AddNumberToTime>},
    {DateTimeOperator::Subtract, Kind::Date,          Kind::Date,          DaysBetween},
    {DateTimeOperator::Subtract, Kind::Date,          Kind::DateTimeStamp, ElapsedBetween},
    {DateTimeOperator::Subtract, Kind::DateTimeStamp, Kind::Date,          ElapsedBetween},
    {DateTimeOperator::Subtract, Kind::DateTimeStamp, Kind::DateTimeStamp, ElapsedBetween},
    {DateTimeOperator::Subtract, Kind::Date,          Kind::Duration,      Negated<AddElapsed>},
    {DateTimeOperator::Subtract, Kind::Date,          Kind::Number,        Negated<AddDays>},
    {DateTimeOperator::Subtract, Kind::DateTimeStamp, Kind::Duration,      Negated<AddElapsed>},
    {DateTimeOperator::Subtract, Kind::DateTimeStamp, Kind::Number,        Negated<AddDays>},

    {DateTimeOperator::Multiply, Kind::Number,        Kind::Number,        MultiplyNumbers},
    {DateTimeOperator::Multiply, Kind::Duration,      Kind::Number,        MultiplyDuration},
    {DateTimeOperator::Multiply, Kind::Number,        Kind::Duration,      Swapped<MultiplyDuration>},

    {DateTimeOperator::Divide,   Kind::Number,        Kind::Number,        DivideNumbers},
    {DateTimeOperator::Divide,   Kind::Duration,      Kind::Number,        DivideDuration},
};
// clang-format on

} // namespace

DateTimeValue CombineValues(DateTimeOperator operation, const DateTimeValue& left, const DateTimeValue& right)
{
    const auto* const pair = std::find_if(std::begin(pairs), std::end(pairs), [&](const PairRow& row) {
        return row.operation == operation && row.left == left.kind && row.right == right.kind;
    });
    return pair == std::end(pairs) ? DateTimeValue() : pair->value(left, right);
}

DateTimeValue NegateValue(const DateTimeValue& value)
{
    if (value.kind == Kind::Number)
        return MakeNumberValue(-value.number);
    if (value.kind == Kind::Duration)
        return MakeTimeValue(Kind::Duration, Difference(0, value.seconds), value.showSeconds);
    return {};
}
