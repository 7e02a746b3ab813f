#include "core/symbolic/SymbolicCommands.h"

#include "core/CommandText.h"
#include "core/symbolic/Isolation.h"
#include "core/symbolic/Simplification.h"

namespace {

struct SymbolicCommand {
    QStringView name;
    bool (*run)(const QString& text, QString& result);
    QStringView success;
    QStringView failure;
};

// clang-format off
constexpr SymbolicCommand commands[] = {
    {u"ISOLATE",  IsolateText,  u"Isolated",   u"Cannot Isolate"},
    {u"SIMPLIFY", SimplifyText, u"Simplified", u"Cannot Simplify"},
};
// clang-format on

} // namespace

std::optional<Submission> HandleSymbolicCommand(const QString& line)
{
    QString argument;
    for (const SymbolicCommand& command : commands) {
        if (!MatchCommand(line, command.name, argument))
            continue;
        QString result;
        const bool success = command.run(argument, result);
        return LineWithStatus(result, success, (success ? command.success : command.failure).toString());
    }
    return std::nullopt;
}
