// One article of the manual, and how words are compared with its titles.
#pragma once

#include "core/engine/Characters.h"

#include <QList>
#include <QString>
#include <QStringList>

struct HelpEntry {
    QString title;       ///< the heading; may stand twice in the manual
    QStringList aliases; ///< further words that open the article
    QString category;    ///< upper case
    QString summary;     ///< one sentence
    QString details;     ///< the whole text; its first line is the title
};

/// A character that counts when help words are compared: a letter or digit of any script.
inline bool IsHelpWordPart(QChar c)
{
    return c != u'_' && IsIdentifierPart(c);
}

/// A help word as it is compared: its letters and digits in upper case, all else dropped. `GD&T` and `gd t` are one.
QString NormalizeHelpKey(QStringView text);

/// The lines of a section of an article, such as "Syntax": what stands between the heading "Syntax:" and the next
/// section. Empty where the article has no such section.
QString HelpSection(const HelpEntry& entry, QStringView heading);

/// The first article whose title or one of whose aliases is the word; null where there is none.
const HelpEntry* FindHelpTopic(const QList<HelpEntry>& entries, QStringView word);

/// Whether an article has the category, in any case.
bool HelpHasCategory(const QList<HelpEntry>& entries, QStringView category);
