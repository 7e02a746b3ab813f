#include "core/datetime/DateTimeText.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QString TwoDigits(quint64 field)
{
    return QString::number(field).rightJustified(2, u'0');
}

// ":" and minutes, and the seconds where they are wanted or not zero.
QString BehindHours(quint64 seconds, bool showSeconds)
{
    QString text = u':' + TwoDigits(seconds / 60 % 60);
    if (showSeconds || seconds % 60 != 0)
        text += u':' + TwoDigits(seconds % 60);
    return text;
}

} // namespace

QString FormatDurationText(qint64 seconds, bool showSeconds)
{
    const quint64 magnitude = Magnitude(seconds);
    const QString sign = seconds < 0 ? u"-"_s : QString();
    return sign + QString::number(magnitude / 3600) + BehindHours(magnitude, showSeconds);
}

QString FormatClockTimeText(qint64 seconds, bool showSeconds)
{
    const auto ofDay = static_cast<quint64>(SecondsOfDay(seconds));
    const quint64 hour = ofDay / 3600 % 12;
    return QString::number(hour == 0 ? 12 : hour) + BehindHours(ofDay, showSeconds) +
           (ofDay < 43200 ? " AM"_L1 : " PM"_L1);
}

QString FormatDateTimeValue(const DateTimeValue& value)
{
    switch (value.kind) {
    case DateTimeKind::Duration:
        return FormatDurationText(value.seconds, value.showSeconds);
    case DateTimeKind::ClockTime:
        return FormatClockTimeText(value.seconds, value.showSeconds);
    case DateTimeKind::Date:
        return QLocale::c().toString(value.date, u"M/d/yyyy");
    case DateTimeKind::DateTimeStamp:
        return QLocale::c().toString(value.dateTime, value.showSeconds ? u"M/d/yyyy h:mm:ss AP" : u"M/d/yyyy h:mm AP");
    case DateTimeKind::Text:
        return value.text;
    default:
        return {};
    }
}
