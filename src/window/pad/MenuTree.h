// Makes the window's menus and actions from the rows of MenuTable.h.
#pragma once

#include <functional>

class QAction;
class QMainWindow;
class QString;

/// What becomes of an action that writes into the pad when it is triggered.
struct MenuBindings {
    std::function<void(QAction*, const QString& text)> insert;
    std::function<void(QAction*, const QString& command, bool execute)> command;
};

/// Fills the menu bar. All that it makes is a child of the window and has its object name; the actions that the rows
/// take for granted must be the window's already.
void BuildMenus(QMainWindow& window, const MenuBindings& bindings);
