#include "core/CommandText.h"

#include "core/engine/Characters.h"
#include "core/engine/WordSet.h"

namespace {

// clang-format off
constexpr const char* commandNames[] = {
    "CLEAR", "CLR", "CLS", "VARS", "VARIABLES", "EXIT", "END", "CLOSE", "QUIT", "MIN", "MAX", "RESTORE", "TOPMOST",
    "ONTOP", "NOTONTOP", "FONT", "FORMAT", "MENU", "HELP", "INFO", "UPTIME", "CREATE", "FUNCTION", "FUNCTIONS",
    "DELETE", "SIMPLIFY", "ISOLATE", "HANDLE", "SETTOPMOST", "SETNOTTOPMOST", "SHOW", "HIDE", "ENABLE", "DISABLE",
};
// clang-format on

} // namespace

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
    static const WordSet names(commandNames);
    return names.Contains(name);
}
