// The window's menus: made, bound to what they do, and kept in step with the pad.
//
// Nearly every entry writes into the pad what could be typed as well (MenuTable.h has them all); the operations that
// the slots of the window stand for are connected by their names and not here.
#pragma once

#include "window/pad/BulkRun.h"
#include "window/pad/MenuHooks.h"
#include "window/pad/MenuInsertion.h"

#include <QObject>

class LineSubmission;
class MainWindow;
class Pad;
class QAction;
class QContextMenuEvent;
class QKeySequence;
struct PadActivity;

namespace Ui {
class MainWindow;
}

class Menus : public QObject {
public:
    /// Serves the window and its form, both of which must outlive the menus.
    Menus(MainWindow& mainWindow, Ui::MainWindow& mainForm, Pad& mainPad, LineSubmission& submission,
          PadActivity& padActivity, MenuHooks menuHooks);

    /// Makes and binds everything; a second call does nothing. To be called when the settings have set the check marks.
    void InitializeMenus();

    void ConnectMenuCommand(QAction* action, const QString& command, bool execute);
    void InsertMenuCommand(const QString& command, bool execute);
    void ShowLogViewer() { Call(hooks.showLogViewer); }
    void ExecuteSelectedLines() { bulk.ExecuteSelectedLines(); }

    /// Sets the check mark of Always On Top to the window's state, and enables what the pad's cursor and clipboard
    /// allow.
    void RefreshMenus();

    /// Shows the pad's context menu if the event asks for it.
    ///
    /// @param watched  who was sent the event: the editor's viewport by a mouse, the editor itself by a key
    /// @return whether it did
    bool ShowContextMenu(const QObject* watched, const QContextMenuEvent& event);

private:
    void SetShortcuts();
    void OpenMenuBy(const QKeySequence& keys, QAction* menu);
    void ConnectEdit();
    void ConnectOptions();
    void ConnectHelp();
    void ConnectHook(QAction* action, const MenuHooks::Hook& hook);
    void RefreshSelectionActions();
    void HideWindowControl();

    MainWindow& window;
    Ui::MainWindow& form;
    Pad& pad;
    PadActivity& activity;
    MenuHooks hooks;
    MenuInsertion insertion;
    BulkRun bulk;
    bool menusInitialized = false;
};
