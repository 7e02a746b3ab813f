#include "core/manual/HelpText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The details without the title that their first line repeats.
QString WithoutTitle(const HelpEntry& entry)
{
    QString text = entry.details.trimmed();
    const auto firstLineEnd = text.indexOf(u'\n');
    const QString firstLine = text.first(firstLineEnd < 0 ? text.size() : firstLineEnd).trimmed();
    if (NormalizeHelpKey(firstLine) != NormalizeHelpKey(entry.title))
        return text;
    return firstLineEnd < 0 ? QString() : text.sliced(firstLineEnd).trimmed();
}

bool HasAllWords(const HelpEntry& entry, const QStringList& words)
{
    const QString text =
        QStringList{entry.title, entry.aliases.join(u' '), entry.category, entry.summary, entry.details}.join(u' ');
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

QString NothingFound(const QString& query, bool afterFailedTopic)
{
    if (!afterFailedTopic)
        return u"No help description containing \""_s + query + u"\" was found."_s;
    return u"No help topic or description containing \""_s + query +
           u"\" was found.\n\nTry HELP for the index or HELP /ALL for the complete manual."_s;
}

QString SearchHeader(const QString& query, bool afterFailedTopic)
{
    if (!afterFailedTopic)
        return u"================== Help Search ==================\n\nSearch: "_s + query + u"\n\n"_s;
    return u"No exact help topic named \""_s + query + u"\" was found.\n\nPossible matches:\n\n"_s;
}

} // namespace

QString FormatHelpTopic(const HelpEntry& entry)
{
    return u"================ "_s + entry.title + u" ================\n\n"_s + WithoutTitle(entry) + u'\n' +
           QString(60, u'=');
}

QString BuildFullHelp(const QList<HelpEntry>& entries)
{
    QString text = u"================ Quellbrook Complete Help ================\n"_s;
    QString category;
    for (const HelpEntry& entry : entries) {
        if (entry.category.compare(category, Qt::CaseInsensitive) != 0) {
            category = entry.category;
            text += u"\n\n-------------------- "_s + category.toUpper() + u" --------------------\n\n"_s;
        }
        text += FormatHelpTopic(entry) + u"\n\n"_s;
    }
    return text + u"====================== End Help =========================="_s;
}

QString BuildSearchResults(const QList<HelpEntry>& entries, const QString& query, bool afterFailedTopic)
{
    QStringList words = query.simplified().split(u' ', Qt::SkipEmptyParts);
    words.removeDuplicates();
    QString matches;
    int count = 0;
    for (const HelpEntry& entry : entries) {
        if (words.isEmpty() || !HasAllWords(entry, words))
            continue;
        matches += entry.title + u"\n  "_s + entry.summary + u"\n\n"_s;
        ++count;
    }
    if (count == 0)
        return NothingFound(query, afterFailedTopic);
    return SearchHeader(query, afterFailedTopic) + matches + QString::number(count) +
           (count == 1 ? u" match found."_s : u" matches found."_s);
}
