#include "window/assist/Help.h"

#include "core/manual/HelpArticles.h"
#include "core/manual/HelpCommand.h"
#include "core/manual/HelpMenus.h"
#include "core/manual/HelpText.h"
#include "window/assist/HelpWindow.h"

namespace {

QList<HelpWindowArticle> Articles(const QList<HelpEntry>& entries)
{
    QList<HelpWindowArticle> articles;
    for (const HelpEntry& entry : entries)
        articles.append({entry.title, entry.category, entry.aliases, entry.summary, FormatHelpTopic(entry)});
    return articles;
}

// The menus of those categories that have one.
QMap<QString, QString> CategoryTexts(const QList<HelpEntry>& entries)
{
    QMap<QString, QString> texts;
    for (const HelpEntry& entry : entries) {
        QString text;
        if (!texts.contains(entry.category) && BuildHelpSubmenu(entry.category, entries, text))
            texts.insert(entry.category, text);
    }
    return texts;
}

} // namespace

void Help::Show(const HelpPage& page)
{
    EnsureHelpWindow().ShowHelp(page.key, page.text);
}

HelpWindow& Help::EnsureHelpWindow()
{
    if (!helpWindow) {
        QList<HelpEntry> entries;
        BuildGeneralHelpEntries(entries);
        helpWindow = new HelpWindow(Articles(entries), CategoryTexts(entries), BuildHelpIndex(entries),
                                    BuildHelpAboutHelp(), BuildFullHelp(entries), &owner);
    }
    return *helpWindow;
}
