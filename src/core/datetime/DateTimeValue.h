// The values of the date and time language. What may be done with them stands in DateTimeArithmetic.h, how they are
// printed in DateTimeText.h.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

enum class DateTimeKind { Invalid, Number, Duration, ClockTime, Date, DateTimeStamp, Text };

/// A value of one kind; the fields of the other kinds stay as they are here. `Invalid` is the value of whatever failed.
struct DateTimeValue {
    DateTimeKind kind = DateTimeKind::Invalid;
    double number = 0;
    qint64 seconds = 0;       ///< Duration: elapsed, may be negative. ClockTime: since midnight, may leave the day
    bool showSeconds = false; ///< print the seconds field; a bare number beside the value counts seconds, not minutes
    QDate date{};
    QDateTime dateTime{}; ///< local time, whole seconds
    QString text{};

    bool IsValid() const { return kind != DateTimeKind::Invalid; }
};

DateTimeValue MakeNumberValue(double number);
DateTimeValue MakeTextValue(const QString& text);

/// Invalid unless `date` is valid.
DateTimeValue MakeDateValue(QDate date);

/// A Duration or a ClockTime, Invalid without seconds. Shows its seconds also where they make no whole minute.
DateTimeValue MakeTimeValue(DateTimeKind kind, std::optional<qint64> seconds, bool showSeconds);

/// Invalid unless `dateTime` is valid. Shows its seconds also where they are not zero.
DateTimeValue MakeStampValue(const QDateTime& dateTime, bool showSeconds);

/// The date of a Date, the date part of a DateTimeStamp, otherwise an invalid date.
QDate GetCalendarDate(const DateTimeValue& value);

/// A clock time's seconds brought into its day: 0 to 86399.
qint64 SecondsOfDay(qint64 seconds);

/// |seconds|, for every value of 64 bits.
quint64 Magnitude(qint64 seconds);
