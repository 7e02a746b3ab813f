#include "core/WindowCommands.h"

#include "core/CommandText.h"
#include "core/engine/Characters.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template <auto act>
QString ActOnHandle(const QString& rest)
{
    bool ok = false;
    const unsigned long long handle = GetHandleFromText(rest, ok);
    if (!ok)
        return u"Invalid Handle"_s;
    return act(handle) ? u"1"_s : u"0"_s;
}

bool KeepOnTop(unsigned long long handle)
{
    return WindowsSetTopMost(handle, true);
}

bool LetGoFromTop(unsigned long long handle)
{
    return WindowsSetTopMost(handle, false);
}

struct WindowCommand {
    QStringView word;
    QString (*run)(const QString& rest);
};

// clang-format off
constexpr WindowCommand commands[] = {
    {u"HANDLE",        WindowsHandleList},
    {u"SETNOTTOPMOST", ActOnHandle<LetGoFromTop>},
    {u"SETTOPMOST",    ActOnHandle<KeepOnTop>},
    {u"DISABLE",       ActOnHandle<WindowsDisableWindow>},
    {u"ENABLE",        ActOnHandle<WindowsEnableWindow>},
    {u"SHOW",          ActOnHandle<WindowsShowWindow>},
    {u"HIDE",          ActOnHandle<WindowsHideWindow>},
};
// clang-format on

} // namespace

bool HandleWindowsCommand(const QString& text, QString& result)
{
    QString rest;
    for (const WindowCommand& command : commands) {
        if (!MatchCommand(text, command.word, rest))
            continue;
        result = command.run(rest);
        return true;
    }
    return false;
}

unsigned long long GetHandleFromText(const QString& text, bool& ok)
{
    const auto first = std::find_if(text.begin(), text.end(), IsDigit);
    const auto end = std::find_if_not(first, text.end(), IsDigit);
    return QStringView(first, end).toULongLong(&ok, 10);
}

QString WindowsHandleList(const QString&)
{
    return u"Windows handle tools are only available on Windows."_s;
}

bool WindowsSetTopMost(unsigned long long, bool)
{
    return false;
}

bool WindowsShowWindow(unsigned long long)
{
    return false;
}

bool WindowsHideWindow(unsigned long long)
{
    return false;
}

bool WindowsEnableWindow(unsigned long long)
{
    return false;
}

bool WindowsDisableWindow(unsigned long long)
{
    return false;
}
