#include "core/manual/HelpEntry.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString NormalizeHelpKey(QStringView text)
{
    QString key;
    for (const QChar c : text) {
        if (IsHelpWordPart(c))
            key.append(c.toUpper());
    }
    return key;
}

QString HelpSection(const HelpEntry& entry, QStringView heading)
{
    const QString opening = u'\n' + heading + u":\n"_s;
    const auto start = entry.details.indexOf(opening);
    if (start < 0)
        return QString();
    const auto lines = start + opening.size();
    const auto end = entry.details.indexOf(u"\n\n"_s, lines);
    return entry.details.mid(lines, end < 0 ? -1 : end - lines);
}

const HelpEntry* FindHelpTopic(const QList<HelpEntry>& entries, QStringView word)
{
    const QString key = NormalizeHelpKey(word);
    const auto isKey = [&](const QString& name) { return NormalizeHelpKey(name) == key; };
    for (const HelpEntry& entry : entries) {
        if (isKey(entry.title) || std::any_of(entry.aliases.begin(), entry.aliases.end(), isKey))
            return &entry;
    }
    return nullptr;
}

bool HelpHasCategory(const QList<HelpEntry>& entries, QStringView category)
{
    return std::any_of(entries.begin(), entries.end(), [&](const HelpEntry& entry) {
        return category.compare(entry.category, Qt::CaseInsensitive) == 0;
    });
}
