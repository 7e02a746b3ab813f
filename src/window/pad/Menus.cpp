#include "window/pad/Menus.h"

#include "window/MainWindow.h"
#include "window/pad/MenuTree.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"
#include "window/pad/PadContextMenu.h"

#include "ui_MainWindow.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMessageBox>
#include <QShortcut>
#include <QSignalBlocker>

#include <memory>

using namespace Qt::StringLiterals;

Menus::Menus(MainWindow& mainWindow, Ui::MainWindow& mainForm, Pad& mainPad, LineSubmission& submission,
             PadActivity& padActivity, MenuHooks menuHooks)
    : window(mainWindow), form(mainForm), pad(mainPad), activity(padActivity), hooks(std::move(menuHooks)),
      insertion(mainPad, submission, *mainForm.Label1, padActivity, hooks, [&mainWindow] { mainWindow.ForgetEnter(); }),
      bulk(mainPad, *mainForm.Label1, padActivity, hooks, [&mainWindow](int position) { mainWindow.EnterAt(position); })
{
}

void Menus::InitializeMenus()
{
    if (menusInitialized)
        return;
    menusInitialized = true;
    pad.Editor()->document()->setUndoRedoEnabled(false); // the program's own undo is the only one
    BuildMenus(window, {[this](QAction* action, const QString& text) {
                            connect(action, &QAction::triggered, this, [this, text] { insertion.InsertText(text); });
                        },
                        [this](QAction* action, const QString& command, bool execute) {
                            ConnectMenuCommand(action, command, execute);
                        }});
    SetShortcuts();
    ConnectEdit();
    ConnectOptions();
    ConnectHelp();
    for (const QString& name : {u"menuOptions"_s, u"menuFile"_s, u"menuEdit"_s})
        connect(window.findChild<QMenu*>(name), &QMenu::aboutToShow, this, &Menus::RefreshMenus);
    HideWindowControl();
    RefreshMenus();
}

void Menus::SetShortcuts()
{
    form.actionUndo->setShortcuts(QKeySequence::Undo);
    form.actionRedo->setShortcuts(QKeySequence::Redo);
    form.actionCut->setShortcuts(QKeySequence::Cut);
    form.actionCopy->setShortcuts(QKeySequence::Copy);
    form.actionPaste->setShortcuts(QKeySequence::Paste);
    form.actionSelectAll->setShortcuts(QKeySequence::SelectAll);
    const QList<QAction*> menus = form.menubar->actions();
    OpenMenuBy(Qt::Key_F10, menus.constFirst());
    for (QAction* menu : menus) // whose titles have no marks
        OpenMenuBy(QKeySequence(u"Alt+"_s + menu->text().front()), menu);
}

void Menus::OpenMenuBy(const QKeySequence& keys, QAction* menu)
{
    connect(new QShortcut(keys, &window), &QShortcut::activated, this,
            [this, menu] { form.menubar->setActiveAction(menu); });
}

// An action whose room does not stand has nothing to do.
void Menus::ConnectHook(QAction* action, const MenuHooks::Hook& hook)
{
    action->setEnabled(static_cast<bool>(hook));
    connect(action, &QAction::triggered, this, [&hook] { Call(hook); });
}

void Menus::ConnectEdit()
{
    QPlainTextEdit* editor = pad.Editor();
    connect(form.actionUndo, &QAction::triggered, this, [this] { Call(hooks.undoPadState); });
    connect(form.actionRedo, &QAction::triggered, this, [this] { Call(hooks.redoPadState); });
    connect(form.actionCut, &QAction::triggered, this, [this, editor] {
        if (!editor->textCursor().hasSelection())
            return;
        Call(hooks.beginUndoEditTransaction);
        editor->cut();
    });
    connect(form.actionCopy, &QAction::triggered, editor, &QPlainTextEdit::copy);
    connect(form.actionPaste, &QAction::triggered, this, [this, editor] {
        if (!editor->canPaste())
            return;
        Call(hooks.beginUndoEditTransaction);
        editor->paste();
    });
    connect(form.actionSelectAll, &QAction::triggered, editor, &QPlainTextEdit::selectAll);
    ConnectHook(form.actionFind, hooks.showSearchDialog);
    ConnectHook(form.actionFindNext, hooks.findNext);
    ConnectHook(form.actionFindPrevious, hooks.findPrevious);
    connect(form.actionExecuteSelectedLines, &QAction::triggered, this, &Menus::ExecuteSelectedLines);
    connect(editor, &QPlainTextEdit::copyAvailable, this, &Menus::RefreshSelectionActions);
}

void Menus::ConnectOptions()
{
    connect(form.actionUse_Word_Oporators, &QAction::triggered, this,
            [this] { Call(hooks.updateUndoHistoryWordOperators); });
    connect(form.actionIgnore_Text_When_Cannot_Solve, &QAction::triggered, this,
            [this] { Call(hooks.updateUndoHistoryIgnoreText); });
    connect(form.actionAlwaysOnTop, &QAction::triggered, this, [this](bool on) {
        on ? window.on_actionSet_As_Top_Most_TopMost_triggered()
           : window.on_actionSet_As_Not_Top_Most_Not_TopMost_triggered();
        RefreshMenus();
    });
    auto* bases = new QActionGroup(&window);
    for (QAction* base : {form.actionOutputBaseDecimal, form.actionOutputBaseBinary, form.actionOutputBaseOctal,
                          form.actionOutputBaseHexadecimal})
        bases->addAction(base);
    connect(bases, &QActionGroup::triggered, this,
            [this](const QAction* base) { form.Label1->setText(u"Output Base = "_s + base->text()); });
}

void Menus::ConnectHelp()
{
    form.actionLog_Viewer->setEnabled(static_cast<bool>(hooks.showLogViewer));
    ConnectHook(form.actionCheckForUpdates, hooks.showUpdateWindow);
    connect(form.actionAbout, &QAction::triggered, this, [this] {
        QMessageBox::about(&window, u"About Quellbrook"_s,
                           u"Quellbrook\n\nA calculator pad with variables, equation solving, symbolic tools, and "
                           "typed commands."_s);
    });
}

// Other programs' windows cannot be commanded on this platform.
void Menus::HideWindowControl()
{
    for (const QString& name : {u"menuWindowControl"_s, u"menuWindowControlCommands"_s})
        window.findChild<QMenu*>(name)->menuAction()->setVisible(false);
    window.findChild<QAction*>(u"actionHelpWindows"_s)->setVisible(false);
}

void Menus::ConnectMenuCommand(QAction* action, const QString& command, bool execute)
{
    connect(action, &QAction::triggered, this, [this, command, execute] { InsertMenuCommand(command, execute); });
}

void Menus::InsertMenuCommand(const QString& command, bool execute)
{
    if (insertion.InsertMenuCommand(command, execute))
        RefreshMenus();
}

void Menus::RefreshMenus()
{
    {
        const QSignalBlocker blocker(form.actionAlwaysOnTop);
        form.actionAlwaysOnTop->setChecked(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
    Call(hooks.updateUndoRedoActions);
    form.actionPaste->setEnabled(pad.Editor()->canPaste());
    RefreshSelectionActions();
}

void Menus::RefreshSelectionActions()
{
    const bool selected = pad.Editor()->textCursor().hasSelection();
    form.actionCut->setEnabled(selected && !pad.Editor()->isReadOnly());
    form.actionCopy->setEnabled(selected);
    form.actionCopyWithoutFormatting->setEnabled(selected);
    form.actionExecuteSelectedLines->setEnabled(selected && !activity.IsBusy());
}

bool Menus::ShowContextMenu(const QObject* watched, const QContextMenuEvent& event)
{
    const bool byKey = watched == pad.Editor() && event.reason() == QContextMenuEvent::Keyboard;
    if (watched != pad.Editor()->viewport() && !byKey)
        return false;
    const QPoint place =
        byKey ? pad.Editor()->viewport()->mapToGlobal(pad.Editor()->cursorRect().center()) : event.globalPos();
    RefreshMenus();
    const std::unique_ptr<QMenu> menu(
        MakePadContextMenu(*pad.Editor(), form.actionCopyWithoutFormatting, form.actionExecuteSelectedLines));
    const auto run = [&menu, place] { menu->exec(place); };
    const bool mayEdit = pad.Editor()->textCursor().hasSelection() || pad.Editor()->canPaste();
    if (hooks.keepUndoHistoryClean && mayEdit)
        hooks.keepUndoHistoryClean(run);
    else
        run();
    return true;
}
