#include "core/workspace/LogBook.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ruleLength = 20;    // hyphens on either side of a header's time
constexpr qsizetype longestTime = 1000; // characters; what is longer is not read for a time
constexpr QByteArrayView byteOrderMark = "\xef\xbb\xbf";

bool IsRule(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == '-'; });
}

// What stands between the rules of a header, given its line with its end; nothing for a line that is none.
std::optional<QByteArrayView> HeaderText(QByteArrayView line)
{
    if (!line.startsWith("--") || !line.endsWith('\n')) // most lines are told by their first bytes
        return std::nullopt;
    line.chop(line.endsWith("\r\n") ? 2 : 1);
    if (line.size() < 2 * ruleLength || !IsRule(line.first(ruleLength)) || !IsRule(line.last(ruleLength)))
        return std::nullopt;
    return line.sliced(ruleLength, line.size() - 2 * ruleLength);
}

bool IsTimeOfDay(QStringView text)
{
    const auto number = [&](qsizetype at, int bound) {
        const int tens = text[at].unicode() - u'0';
        const int ones = text[at + 1].unicode() - u'0';
        return tens >= 0 && tens <= 9 && ones >= 0 && ones <= 9 && tens * 10 + ones < bound;
    };
    return text[2] == u':' && text[5] == u':' && number(0, 24) && number(3, 60) && number(6, 60);
}

// The dates of headers. Most differ from the one before in their time of day alone, and a million of them in a log are
// not read anew for that.
class HeaderDates {
public:
    QDate Read(QByteArrayView headerText)
    {
        const QString text = QString::fromUtf8(headerText).trimmed();
        if (text.size() > longestTime)
            return {};
        QString withoutTime = WithoutTimeOfDay(text);
        if (withoutTime.isEmpty() || withoutTime != previous) {
            previous = std::move(withoutTime);
            date = QDateTime::fromString(text, Qt::TextDate).date(); // also where the clocks skip that hour here
        }
        return date;
    }

private:
    // "Sun Nov 15 05:33:44 2026" without its fourth word; nothing where the text does not end like that.
    static QString WithoutTimeOfDay(const QString& text)
    {
        constexpr qsizetype timeLength = 8;
        constexpr qsizetype yearLength = 5; // with its blank
        const qsizetype time = text.size() - yearLength - timeLength;
        if (time <= 0 || !IsTimeOfDay(QStringView(text).sliced(time, timeLength)))
            return {};
        return text.first(time) + text.last(yearLength);
    }

    QString previous;
    QDate date;
};

// The parts of the log that are a day's. Those that follow each other are one.
struct Part {
    qsizetype from;
    qsizetype end;
};
using PartsOfDays = std::map<QDate, QList<Part>, std::greater<>>;

void Append(QList<Part>& parts, const Part& part)
{
    if (!parts.isEmpty() && parts.last().end == part.from)
        parts.last().end = part.end;
    else
        parts.append(part);
}

PartsOfDays FindParts(QByteArrayView log)
{
    PartsOfDays days;
    HeaderDates dates;
    QDate date; // of the entry that is being read
    qsizetype from = 0;
    for (qsizetype at = 0; at < log.size();) {
        const qsizetype lineFeed = log.indexOf('\n', at);
        const qsizetype next = lineFeed < 0 ? log.size() : lineFeed + 1;
        if (const auto header = HeaderText(log.sliced(at, next - at))) {
            if (date.isValid())
                Append(days[date], {from, at});
            date = dates.Read(*header);
            from = at;
        }
        at = next;
    }
    if (date.isValid())
        Append(days[date], {from, log.size()});
    return days;
}

} // namespace

QString LogEntry(const QDateTime& written, const QString& padText)
{
    const QString rule(ruleLength, u'-');
    return rule + written.toString(Qt::TextDate) + rule + u'\n' + padText + u'\n';
}

QList<LogDay> ReadLogDays(QByteArrayView log)
{
    if (log.startsWith(byteOrderMark))
        log = log.sliced(byteOrderMark.size());
    QList<LogDay> days;
    for (const auto& [date, parts] : FindParts(log)) {
        LogDay day{date, {}};
        for (const Part& part : parts)
            day.text += QString::fromUtf8(log.sliced(part.from, part.end - part.from));
        days.append(std::move(day));
    }
    return days;
}
