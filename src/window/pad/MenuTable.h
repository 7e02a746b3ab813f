// Every entry of the menus, in the order in which they stand: a row says where the entry stands, what it shows, its
// object name and what it does to the pad. Actions and menus are made from the rows and from nothing else.
//
// What the real operations do (documents, options, fonts, the clipboard ...) is no business of the table: their actions
// are the form's, and a row only gives them their place.
#pragma once

#include <QStringView>

#include <span>

enum class MenuEntry {
    Menu,      ///< a menu; the rows behind it that are deeper stand in it
    Separator, ///< a line between groups
    Existing,  ///< an action that the form or a row above has made; its text stands there
    Insert,    ///< puts its words into the pad at the cursor
    Run,       ///< writes its words at the pad's end as a command, and runs it
    Prepare,   ///< writes its words at the pad's end as a command, for the user to complete
    Unbound,   ///< does nothing
    HelpOf,    ///< stands for the entries of the menu of that name: each again, running the help on what it inserts
};

struct MenuRow {
    int depth; ///< 0 is the menu bar; a row stands in the last menu above it that is less deep
    MenuEntry entry;
    QStringView text{}; ///< as the user reads it
    QStringView name{}; ///< the object name
    QStringView words{};
};

/// The depth of what exists and stands in no menu.
constexpr int unlisted = -1;

std::span<const MenuRow> MenuRows();
