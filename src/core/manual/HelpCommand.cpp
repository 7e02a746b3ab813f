#include "core/manual/HelpCommand.h"

#include "core/manual/HelpArticles.h"
#include "core/manual/HelpMenus.h"
#include "core/manual/HelpText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Entries = QList<HelpEntry>;

qsizetype NextWordPart(QStringView text, qsizetype from)
{
    const auto found = std::find_if(text.begin() + from, text.end(), IsHelpWordPart);
    return found - text.begin();
}

// What stands behind HELP, trimmed.
std::optional<QString> HelpArgument(QStringView line)
{
    constexpr QStringView word = u"HELP";
    if (!line.startsWith(word, Qt::CaseInsensitive) || (line.size() > word.size() && IsHelpWordPart(line[word.size()])))
        return std::nullopt;
    return line.sliced(word.size()).trimmed().toString();
}

std::optional<HelpPage> IndexPage(const QString& argument, const Entries& entries)
{
    if (!argument.isEmpty())
        return std::nullopt;
    return HelpPage{u"SPECIAL:INDEX"_s, BuildHelpIndex(entries)};
}

std::optional<HelpPage> AboutPage(const QString& argument, const Entries&)
{
    if (NextWordPart(argument, 0) < argument.size())
        return std::nullopt;
    return HelpPage{u"SPECIAL:ABOUT"_s, BuildHelpAboutHelp()};
}

std::optional<HelpPage> WholeManual(const QString& argument, const Entries& entries)
{
    QString rest = argument;
    if (!RemoveHelpSwitch(rest, u"ALL") || !rest.isEmpty())
        return std::nullopt;
    return HelpPage{u"SPECIAL:ALL"_s, BuildFullHelp(entries)};
}

std::optional<HelpPage> Search(const QString& argument, const Entries& entries)
{
    for (const QStringView name : {u"DESCRIPTION", u"SEARCH", u"DESC", u"S"}) {
        QString query = argument;
        if (!RemoveHelpSwitch(query, name))
            continue;
        if (query.isEmpty())
            return HelpPage{{}, u"Help search needs something to search for.\n\nExample:\n  HELP /S window handle"_s};
        return HelpPage{{}, BuildSearchResults(entries, query, false)};
    }
    return std::nullopt;
}

std::optional<HelpPage> CategoryMenu(const QString& argument, const Entries& entries)
{
    QString text;
    if (!BuildHelpSubmenu(argument, entries, text))
        return std::nullopt;
    return HelpPage{u"CATEGORY:"_s + NormalizeHelpKey(argument), text};
}

std::optional<HelpPage> Topic(const QString& argument, const Entries& entries)
{
    const HelpEntry* entry = FindHelpTopic(entries, argument);
    if (!entry)
        return std::nullopt;
    return HelpPage{u"TOPIC:"_s + NormalizeHelpKey(entry->title), FormatHelpTopic(*entry)};
}

std::optional<HelpPage> PossibleMatches(const QString& argument, const Entries& entries)
{
    return HelpPage{{}, BuildSearchResults(entries, argument, true)};
}

// What the words behind HELP can ask for. The first that knows them answers; the last knows all.
constexpr std::optional<HelpPage> (*readings[])(const QString&, const Entries&) = {
    IndexPage, AboutPage, WholeManual, Search, CategoryMenu, Topic, PossibleMatches,
};

} // namespace

std::optional<HelpPage> HandleHelpCommand(QStringView line)
{
    line = line.trimmed();
    const std::optional<QString> argument = line == u"?" ? QString() : HelpArgument(line);
    if (!argument)
        return std::nullopt;
    Entries entries;
    BuildGeneralHelpEntries(entries);
    for (const auto reading : readings) {
        if (std::optional<HelpPage> page = reading(*argument, entries))
            return page;
    }
    return std::nullopt;
}

QList<PadRun> FormattedHelpText(const QString& text)
{
    QList<PadRun> runs;
    for (const QString& line : text.split(u'\n')) {
        const bool heading = line.startsWith(u'=') && line.endsWith(u'=') && line.count(u'=') < line.size();
        if (runs.isEmpty() || runs.last().bold != heading)
            runs.append({QString(), heading});
        runs.last().text += line;
        if (heading)
            runs.append({QString(), false});
        runs.last().text += u'\n';
    }
    return runs;
}

bool RemoveHelpSwitch(QString& text, QStringView name)
{
    qsizetype position = 0;
    for (const QChar expected : name) {
        position = NextWordPart(text, position);
        if (position == text.size() || text[position].toUpper() != expected)
            return false;
        ++position;
    }
    if (position < text.size() && IsHelpWordPart(text[position]))
        return false;
    text = text.sliced(NextWordPart(text, position)).trimmed();
    return true;
}
