// The names that no variable can have, because the language has them.
#pragma once

#include <QString>
#include <QStringView>

/// Whether the trimmed name is, in any case, a constant, a function, a command, a word operator or a number word. The
/// user's own functions are not known here.
bool IsReservedBuiltInName(QStringView name);
