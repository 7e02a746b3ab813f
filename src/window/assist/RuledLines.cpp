#include "window/assist/RuledLines.h"

#include <QFontMetrics>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestRule = 3; // characters
constexpr qsizetype fewestEquals = 4; // of a title

// The longest of the lines, by their number of equals signs, that fits. A long page has hundreds of titles: the search
// begins where the width of one sign puts the end. No more signs than pixels, should a font draw nothing.
template <typename Line>
QString LongestFitting(int fewest, int width, const QFontMetricsF& metrics, Line line)
{
    const auto fits = [&](int count) { return metrics.horizontalAdvance(line(count)) <= width; };
    const double room = width - metrics.horizontalAdvance(line(fewest));
    int count = fewest + std::max(0, static_cast<int>(room / std::max(1.0, metrics.horizontalAdvance(u'='))));
    while (count > fewest && !fits(count))
        --count;
    while (count < width && fits(count + 1))
        ++count;
    return line(count);
}

QString WithoutEquals(QStringView line)
{
    while (line.startsWith(u'='))
        line = line.sliced(1);
    while (line.endsWith(u'='))
        line.chop(1);
    return line.trimmed().toString();
}

// The title of a ruled heading; empty where the line is none.
QString TitleOf(QStringView line)
{
    if (!line.startsWith(u'=') || !line.endsWith(u'=') || line.count(u'=') < fewestEquals)
        return QString();
    return WithoutEquals(line);
}

} // namespace

QString BuildFullWidthEquals(int width, const QFontMetricsF& metrics)
{
    return LongestFitting(1, width, metrics, [](int count) { return QString(count, u'='); });
}

QString BuildTitleLine(const QString& title, int width, const QFontMetricsF& metrics)
{
    const QString core = u' ' + title.trimmed() + u' ';
    return LongestFitting(2, width, metrics, [&core](int count) {
        QString line = QString(count - count / 2, u'=') + core + QString(count / 2, u'=');
        return line;
    });
}

QString FitRuledLines(const QString& text, int width, const QFontMetricsF& metrics)
{
    const QString rule = BuildFullWidthEquals(width, metrics);
    QStringList lines = text.split(u'\n');
    for (QString& line : lines) {
        const QStringView trimmed = QStringView(line).trimmed();
        if (trimmed.size() < shortestRule)
            continue;
        if (trimmed.count(u'=') == trimmed.size())
            line = rule;
        else if (const QString title = TitleOf(trimmed); !title.isEmpty())
            line = BuildTitleLine(title, width, metrics);
    }
    return lines.join(u'\n');
}
