#include "core/manual/HelpMenus.h"

#include "core/manual/HelpArticles.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int textColumns = 80;

struct HelpMenu {
    QStringList keys;
    QString needsCategory; // empty: none
    QString title;
    QString body;
};

// The menus are written like articles: their keys are the aliases, the category is the one that a menu needs.
QList<HelpMenu> ReadMenus()
{
    QList<HelpEntry> texts;
    ReadHelpArticles(ManualFile(u"ways-in/menus.txt"_s), texts);
    QList<HelpMenu> menus;
    for (const HelpEntry& text : texts)
        menus.append({text.aliases, text.category, text.title, text.details.sliced(text.title.size() + 2)});
    return menus;
}

// Drops the lines "{CATEGORY}..." whose category the manual does not have, and the marks of the others.
QString WithPresentCategories(const QString& text, const QList<HelpEntry>& entries)
{
    QStringList lines;
    for (const QString& line : text.split(u'\n')) {
        const auto close = line.startsWith(u'{') ? line.indexOf(u'}') : -1;
        if (close < 0)
            lines.append(line);
        else if (HelpHasCategory(entries, line.sliced(1, close - 1)))
            lines.append(line.sliced(close + 1));
    }
    return lines.join(u'\n');
}

QStringList Wrap(const QString& text, qsizetype columns)
{
    QStringList lines;
    for (const QString& word : text.split(u' ')) {
        if (!lines.isEmpty() && lines.last().size() + 1 + word.size() <= columns)
            lines.last() += u' ' + word;
        else
            lines.append(word);
    }
    return lines;
}

// What an item says of its article.
QStringList ItemLines(const HelpEntry& entry)
{
    static const QString indent(6, u' ');
    QStringList lines = HelpSection(entry, u"Syntax").split(u'\n', Qt::SkipEmptyParts);
    lines += Wrap(entry.summary, textColumns - indent.size());
    for (QString& line : lines)
        line.prepend(indent);
    return lines;
}

QString WithItemLines(const QString& body, const QList<HelpEntry>& entries)
{
    const QStringList given = body.split(u'\n');
    QStringList lines;
    for (qsizetype i = 0; i < given.size(); ++i) {
        lines.append(given[i]);
        const bool ownLines = i + 1 < given.size() && !given[i + 1].isEmpty();
        if (ownLines || !given[i].startsWith(u"  HELP "))
            continue;
        if (const HelpEntry* entry = FindHelpTopic(entries, QStringView(given[i]).sliced(7)))
            lines += ItemLines(*entry);
    }
    return lines.join(u'\n');
}

} // namespace

QString BuildHelpIndex(const QList<HelpEntry>& entries)
{
    return WithPresentCategories(ManualFile(u"ways-in/index.txt"_s).trimmed(), entries);
}

QString BuildHelpAboutHelp()
{
    return ManualFile(u"ways-in/about.txt"_s).trimmed();
}

bool BuildHelpSubmenu(QStringView word, const QList<HelpEntry>& entries, QString& text)
{
    static const QList<HelpMenu> menus = ReadMenus();
    const QString key = NormalizeHelpKey(word);
    for (const HelpMenu& menu : menus) {
        if (!menu.keys.contains(key) ||
            (!menu.needsCategory.isEmpty() && !HelpHasCategory(entries, menu.needsCategory)))
            continue;
        const QString body = WithPresentCategories(WithItemLines(menu.body, entries), entries);
        const QString rule(16, u'=');
        text = FormatHelpMenu(rule + u' ' + menu.title + u' ' + rule + u"\n\n"_s + body + u'\n' + QString(52, u'='));
        return true;
    }
    return false;
}

QString FormatHelpMenu(QString text)
{
    static const QString between = u'\n' + QString(60, u'-') + u"\n  HELP "_s;
    return text.replace(u"\n\n  HELP "_s, between);
}
