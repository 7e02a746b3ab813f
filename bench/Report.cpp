#include "Report.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns[] = {-58, 12, 12, 8, 20, 8}; // widths; below 0: flush left

QString Time(double seconds)
{
    const double size = std::abs(seconds);
    if (size < 1e-6)
        return QString::number(seconds * 1e9, 'f', 1) + u" ns"_s;
    if (size < 1e-3)
        return QString::number(seconds * 1e6, 'f', 1) + u" us"_s;
    return size < 1 ? QString::number(seconds * 1e3, 'f', 1) + u" ms"_s : QString::number(seconds, 'f', 2) + u" s"_s;
}

QString Text(double value, Report::Unit unit)
{
    switch (unit) {
    case Report::Unit::Seconds:
        return Time(value);
    case Report::Unit::LinesPerSecond:
        return QString::number(value / 1000, 'f', 0) + u" k/s"_s;
    case Report::Unit::Bytes:
        return QString::number(value / (1 << 20), 'f', 1) + u" MiB"_s;
    case Report::Unit::Times:
        return QString::number(value, 'f', 2);
    }
    return {};
}

bool IsRate(Report::Unit unit)
{
    return unit == Report::Unit::LinesPerSecond;
}

QString BoundText(const Report::Row& row)
{
    QStringList bounds;
    if (row.mostRatio > 0)
        bounds += u"<= %1 times"_s.arg(row.mostRatio);
    if (row.bound > 0)
        bounds += (IsRate(row.unit) ? u">= "_s : u"<= "_s) + Text(row.bound, row.unit);
    return bounds.join(u", ");
}

bool Reaches(const Report::Row& row)
{
    const bool ratio = row.mostRatio <= 0 || row.ratio <= row.mostRatio;
    const bool value = row.bound <= 0 || (IsRate(row.unit) ? row.measured >= row.bound : row.measured <= row.bound);
    return ratio && value;
}

void PrintLine(const QStringList& cells)
{
    QString line;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const int width = columns[i];
        line += width < 0 ? cells[i].leftJustified(-width) : u' ' + cells[i].rightJustified(width);
    }
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

QString ProcessorName()
{
    QFile file(u"/proc/cpuinfo"_s);
    if (!file.open(QIODevice::ReadOnly))
        return QSysInfo::currentCpuArchitecture();
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
    }
    return QSysInfo::currentCpuArchitecture();
}

} // namespace

void Report::PrintHead()
{
    PrintLine({u"what a user waits for"_s, u"measured"_s, u"floor"_s, u"times"_s, u"must reach"_s, u""_s});
}

void Report::Add(const Row& row)
{
    const bool judged = row.mostRatio > 0 || row.bound > 0;
    const bool hasFloor = !row.floorName.isEmpty();
    PrintLine({row.what, Text(row.measured, row.unit), hasFloor ? Text(row.floor, row.unit) : QString(),
               hasFloor ? QString::number(row.ratio, 'f', 2) : QString(), BoundText(row),
               !judged        ? QString()
               : Reaches(row) ? u"reached"_s
                              : u"MISSED"_s});

    constexpr const char* units[] = {"seconds", "lines per second", "bytes", "times"};
    QJsonObject object = {{u"what"_s, row.what},
                          {u"unit"_s, QLatin1StringView(units[static_cast<int>(row.unit)])},
                          {u"measured"_s, row.measured}};
    if (hasFloor) {
        object[u"floorName"_s] = row.floorName;
        object[u"floor"_s] = row.floor;
        object[u"ratio"_s] = row.ratio;
    }
    if (row.wall > 0)
        object[u"wallSeconds"_s] = row.wall;
    if (row.mostRatio > 0)
        object[u"mostRatio"_s] = row.mostRatio;
    if (row.bound > 0)
        object[u"bound"_s] = row.bound;
    if (judged)
        object[u"reached"_s] = Reaches(row);
    rows.append(object);
}

void Report::AddTimes(const QString& what, const Laps& laps, const QString& floorName, const Laps& floor,
                      double mostRatio, double items)
{
    Row row{what, Unit::Seconds, ProcessorTime(laps) / items, floorName, ProcessorTime(floor) / items};
    row.ratio = TimesFloor(laps, floor);
    row.mostRatio = mostRatio;
    row.wall = WallTime(laps) / items;
    Add(row);
}

void Report::AddTime(const QString& what, const Laps& laps, double most, double items)
{
    Row row{what, Unit::Seconds, ProcessorTime(laps) / items};
    row.bound = most;
    row.wall = WallTime(laps) / items;
    Add(row);
}

void Report::AddRate(const QString& what, const Laps& laps, double items, double least)
{
    Row row{what, Unit::LinesPerSecond, items / ProcessorTime(laps)};
    row.bound = least;
    Add(row);
}

QByteArray Report::Json() const
{
    const QJsonObject all = {{u"system"_s, QSysInfo::prettyProductName()},
                             {u"processor"_s, ProcessorName()},
                             {u"qt"_s, QLatin1StringView(qVersion())},
                             {u"rows"_s, rows}};
    return QJsonDocument(all).toJson();
}
