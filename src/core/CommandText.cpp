#include "core/CommandText.h"

#include "core/engine/Characters.h"

#include <QSet>

bool MatchCommand(QStringView text, QStringView command, QString& rest)
{
    rest.clear();
    text = text.trimmed();
    if (!text.startsWith(command, Qt::CaseInsensitive))
        return false;
    if (text.size() == command.size())
        return true;
    if (IsIdentifierPart(text[command.size()]))
        return false;
    rest = text.mid(command.size()).trimmed().toString();
    return true;
}

bool IsCommandName(QStringView name)
{
    static const QSet<QString> names = [] {
        // clang-format off
        constexpr QLatin1StringView words[] = {
            QLatin1StringView("CLEAR"),         QLatin1StringView("CLR"),       QLatin1StringView("CLS"),
            QLatin1StringView("VARS"),          QLatin1StringView("VARIABLES"), QLatin1StringView("EXIT"),
            QLatin1StringView("END"),           QLatin1StringView("CLOSE"),     QLatin1StringView("QUIT"),
            QLatin1StringView("MIN"),           QLatin1StringView("MAX"),       QLatin1StringView("RESTORE"),
            QLatin1StringView("TOPMOST"),       QLatin1StringView("ONTOP"),     QLatin1StringView("NOTONTOP"),
            QLatin1StringView("FONT"),          QLatin1StringView("FORMAT"),    QLatin1StringView("MENU"),
            QLatin1StringView("HELP"),          QLatin1StringView("INFO"),      QLatin1StringView("UPTIME"),
            QLatin1StringView("CREATE"),        QLatin1StringView("FUNCTION"),  QLatin1StringView("FUNCTIONS"),
            QLatin1StringView("DELETE"),        QLatin1StringView("SIMPLIFY"),  QLatin1StringView("ISOLATE"),
            QLatin1StringView("HANDLE"),        QLatin1StringView("SETTOPMOST"), QLatin1StringView("SETNOTTOPMOST"),
            QLatin1StringView("SHOW"),          QLatin1StringView("HIDE"),      QLatin1StringView("ENABLE"),
            QLatin1StringView("DISABLE"),
        };
        // clang-format on
        QSet<QString> set;
        for (const QLatin1StringView word : words)
            set.insert(word);
        return set;
    }();
    return names.contains(name.trimmed().toString().toUpper());
}
