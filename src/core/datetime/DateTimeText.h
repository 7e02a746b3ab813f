// The printed forms of the date and time language's values. U.S. order, AM and PM, English whatever the locale.
#pragma once

#include "core/datetime/DateTimeValue.h"

/// Hours (as many as there are), minutes and, if not zero or asked for, seconds: "26:00", "-0:30", "0:00:05".
QString FormatDurationText(qint64 seconds, bool showSeconds);

/// The time of day that the seconds come to, whichever day they fall on: "12:15 AM", "1:23:45 PM".
QString FormatClockTimeText(qint64 seconds, bool showSeconds);

/// "9/10/2026", "9/10/2026 11:30 PM", a time, a text. Empty for a Number, which its reader formats, and for Invalid.
QString FormatDateTimeValue(const DateTimeValue& value);
