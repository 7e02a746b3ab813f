#include "core/datetime/DateTimeFunctions.h"

#include "core/datetime/DateTimeParser.h"

#include <QLocale>

#include <algorithm>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using Sources = DateTimeSources&;

DateTimeValue Today(DateTimeArguments, Sources sources)
{
    return MakeDateValue(sources.Now().date());
}

DateTimeValue Now(DateTimeArguments, Sources sources)
{
    return MakeStampValue(sources.Now(), true);
}

// The text is read as a line of its own, in which ANS is a plain number: an answer cannot refer to itself.
DateTimeValue Answer(DateTimeArguments, Sources sources)
{
    if (sources.ansText.isEmpty())
        return ResolveNumber(u"ANS"_s, sources);
    DateTimeSources withoutAnswer = {sources.resolver, sources.clock};
    return EvaluateDateTimeParser(sources.ansText, withoutAnswer);
}

DateTimeValue Date(DateTimeArguments arguments, Sources)
{
    return GetCalendarDate(arguments[0]).isValid() ? arguments[0] : DateTimeValue();
}

DateTimeValue Days(DateTimeArguments arguments, Sources)
{
    const QDate first = GetCalendarDate(arguments[0]);
    const QDate second = GetCalendarDate(arguments[1]);
    if (!first.isValid() || !second.isValid())
        return {};
    return MakeNumberValue(static_cast<double>(first.daysTo(second)));
}

DateTimeValue Age(DateTimeArguments arguments, Sources sources)
{
    const std::optional<QString> age = AgeText(GetCalendarDate(arguments[0]), sources.Now().date());
    return age ? MakeTextValue(*age) : DateTimeValue();
}

DateTimeValue Weekday(DateTimeArguments arguments, Sources)
{
    const QDate date = GetCalendarDate(arguments[0]);
    return date.isValid() ? MakeTextValue(QLocale::c().toString(date, u"dddd")) : DateTimeValue();
}

template <int (QDate::*field)() const>
DateTimeValue DateField(DateTimeArguments arguments, Sources)
{
    const QDate date = GetCalendarDate(arguments[0]);
    return date.isValid() ? MakeNumberValue((date.*field)()) : DateTimeValue();
}

// The seconds that a value's hour, minute and second are fields of.
std::optional<quint64> FieldSeconds(const DateTimeValue& value)
{
    switch (value.kind) {
    case DateTimeKind::Duration:
        return Magnitude(value.seconds);
    case DateTimeKind::ClockTime:
        return SecondsOfDay(value.seconds);
    case DateTimeKind::DateTimeStamp:
        return value.dateTime.time().msecsSinceStartOfDay() / 1000;
    default:
        return std::nullopt;
    }
}

// One field of a time: the whole `unit`s in it, those below `limit`.
template <quint64 unit, quint64 limit>
DateTimeValue TimeField(DateTimeArguments arguments, Sources)
{
    const std::optional<quint64> seconds = FieldSeconds(arguments[0]);
    return seconds ? MakeNumberValue(static_cast<double>(*seconds / unit % limit)) : DateTimeValue();
}

constexpr quint64 noLimit = std::numeric_limits<quint64>::max();

// clang-format off
constexpr DateTimeWord words[] = {
    {QLatin1StringView("DATE"),    WordRecognition::Alone,         1, true,  Date},
    {QLatin1StringView("DAYS"),    WordRecognition::Alone,         2, true,  Days}, // first, second
    {QLatin1StringView("AGE"),     WordRecognition::Alone,         1, true,  Age},
    {QLatin1StringView("HOUR"),    WordRecognition::Alone,         1, false, TimeField<3600, noLimit>},
    {QLatin1StringView("MINUTE"),  WordRecognition::Alone,         1, false, TimeField<60, 60>},
    {QLatin1StringView("SECOND"),  WordRecognition::Alone,         1, false, TimeField<1, 60>},
    {QLatin1StringView("WEEKDAY"), WordRecognition::Alone,         1, true,  Weekday},
    {QLatin1StringView("TODAY"),   WordRecognition::Alone,         0, false, Today},
    {QLatin1StringView("NOW"),     WordRecognition::Alone,         0, false, Now},
    {QLatin1StringView("DAY"),     WordRecognition::BeforeBracket, 1, true,  DateField<&QDate::day>},
    {QLatin1StringView("MONTH"),   WordRecognition::BeforeBracket, 1, true,  DateField<&QDate::month>},
    {QLatin1StringView("YEAR"),    WordRecognition::BeforeBracket, 1, true,  DateField<&QDate::year>},
    {QLatin1StringView("ANS"),     WordRecognition::AsAnswer,      0, false, Answer},
};
// clang-format on

QString Counted(qint64 count, QLatin1StringView unit)
{
    return QString::number(count) + u' ' + unit + (count == 1 ? ""_L1 : "s"_L1);
}

} // namespace

QDateTime DateTimeSources::Now()
{
    if (!moment) {
        const QDateTime now = clock ? clock() : QDateTime();
        moment = now.addMSecs(-now.time().msec());
    }
    return *moment;
}

std::span<const DateTimeWord> DateTimeWords()
{
    return words;
}

const DateTimeWord* FindDateTimeWord(QStringView name)
{
    const auto* const word =
        std::find_if(std::begin(words), std::end(words), [&](const DateTimeWord& row) { return name == row.name; });
    return word == std::end(words) ? nullptr : word;
}

DateTimeValue ResolveNumber(const QString& name, DateTimeSources& sources)
{
    const std::optional<double> number = sources.resolver ? sources.resolver(name) : std::nullopt;
    return number ? MakeNumberValue(*number) : DateTimeValue();
}

std::optional<QString> AgeText(QDate birth, QDate today)
{
    if (!birth.isValid() || !today.isValid() || birth > today)
        return std::nullopt;
    const qint64 span = static_cast<qint64>(today.year()) - birth.year();
    if (span > std::numeric_limits<int>::max())
        return std::nullopt;
    // There is no year 0, so the difference of a year before it and one after it is one too large.
    auto years = static_cast<int>(span);
    while (birth.addYears(years) > today)
        --years;
    const QDate anniversary = birth.addYears(years);
    int months = (today.year() - anniversary.year()) * 12 + today.month() - anniversary.month();
    if (anniversary.addMonths(months) > today)
        --months;
    const qint64 days = anniversary.addMonths(months).daysTo(today);
    return QString(Counted(years, "year"_L1) + ", "_L1 + Counted(months, "month"_L1) + ", "_L1 +
                   Counted(days, "day"_L1));
}
