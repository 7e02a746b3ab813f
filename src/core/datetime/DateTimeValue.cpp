#include "core/datetime/DateTimeValue.h"

DateTimeValue MakeNumberValue(double number)
{
    return {.kind = DateTimeKind::Number, .number = number};
}

DateTimeValue MakeTextValue(const QString& text)
{
    return {.kind = DateTimeKind::Text, .text = text};
}

DateTimeValue MakeDateValue(QDate date)
{
    if (!date.isValid())
        return {};
    return {.kind = DateTimeKind::Date, .date = date};
}

DateTimeValue MakeTimeValue(DateTimeKind kind, std::optional<qint64> seconds, bool showSeconds)
{
    if (!seconds)
        return {};
    return {.kind = kind, .seconds = *seconds, .showSeconds = showSeconds || *seconds % 60 != 0};
}

DateTimeValue MakeStampValue(const QDateTime& dateTime, bool showSeconds)
{
    if (!dateTime.isValid())
        return {};
    return {.kind = DateTimeKind::DateTimeStamp,
            .showSeconds = showSeconds || dateTime.time().second() != 0,
            .dateTime = dateTime};
}

QDate GetCalendarDate(const DateTimeValue& value)
{
    switch (value.kind) {
    case DateTimeKind::Date:
        return value.date;
    case DateTimeKind::DateTimeStamp:
        return value.dateTime.date();
    default:
        return {};
    }
}

qint64 SecondsOfDay(qint64 seconds)
{
    constexpr qint64 day = 86400;
    return (seconds % day + day) % day;
}

quint64 Magnitude(qint64 seconds)
{
    const auto bits = static_cast<quint64>(seconds);
    return seconds < 0 ? 0 - bits : bits;
}
