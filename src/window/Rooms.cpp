#include "window/Rooms.h"

#include "window/MainWindow.h"
#include "window/workspace/CalculationLog.h"
#include "window/workspace/LogViewer.h"
#include "window/workspace/SearchDialog.h"

#include "ui_MainWindow.h"

namespace {

CalculatorOptions CheckedOptions(const Ui::MainWindow& form)
{
    CalculatorOptions options;
    options.useWordOperators = form.actionUse_Word_Oporators->isChecked();
    options.ignoreText = form.actionIgnore_Text_When_Cannot_Solve->isChecked();
    if (form.actionOutputBaseBinary->isChecked())
        options.outputBase = 2;
    else if (form.actionOutputBaseOctal->isChecked())
        options.outputBase = 8;
    else if (form.actionOutputBaseHexadecimal->isChecked())
        options.outputBase = 16;
    return options;
}

} // namespace

Rooms::Rooms(MainWindow& window, Ui::MainWindow& form, const QElapsedTimer& uptimeClock)
    : calculator({[&form] { return CheckedOptions(form); }}), pad(form.Text1), wordWrap(*form.Text1),
      commands(window, form, calculator, pad), snapshot(form, calculator, &window),
      recovery(window, snapshot, *form.Text1->document()), undo(UndoSurroundingsOf(window, form)),
      documents(window, *form.Text1, *form.Label1, *form.actionSave_Document, undo),
      information(window, form, calculator, documents, uptimeClock), help(window), releaseNotice(window, form),
      submission(calculator, pad, *form.Label1, activity, commands, information, help),
      menus(window, form, pad, submission, activity, MenuHooksOf(window, form)),
      predictiveText(window, pad, *form.actionPredictive_Text_Complete, calculator, activity, undo),
      syntaxHint(pad, *form.actionSyntax_Help, calculator, activity)
{
    form.Text1->beforeInsertion = [this] { TakeUndoInsertion(undo); };
    information.undoStates = [this] { return undo.UndoCount(); };
    information.redoStates = [this] { return undo.RedoCount(); };
}

UndoSurroundings Rooms::UndoSurroundingsOf(MainWindow& window, Ui::MainWindow& form)
{
    return {[this] { return snapshot.CaptureUndoState(); },
            [this, &window](const UndoState& state) {
                snapshot.RestoreUndoState(state);
                window.ForgetEnter();
                UpdatePredictiveText();
            },
            [this] { return activity.IsBusy(); },
            [this, &form] {
                form.actionUndo->setEnabled(undo.CanUndo());
                form.actionRedo->setEnabled(undo.CanRedo());
            }};
}

MenuHooks Rooms::MenuHooksOf(MainWindow& window, const Ui::MainWindow& form)
{
    MenuHooks hooks;
    hooks.takeUndoStep = [this] {
        undo.SaveUndoState();
        undo.CloseUndoEditTransaction();
    };
    hooks.beginUndoEditTransaction = [this] { undo.BeginUndoEditTransaction(); };
    hooks.undoPadState = [this] { undo.UndoPadState(); };
    hooks.redoPadState = [this] { undo.RedoPadState(); };
    hooks.updateUndoRedoActions = [this, &form] {
        form.actionUndo->setEnabled(undo.CanUndo());
        form.actionRedo->setEnabled(undo.CanRedo());
    };
    hooks.updateUndoHistoryWordOperators = [this, &form] {
        undo.UpdateUndoHistoryWordOperators(form.actionUse_Word_Oporators->isChecked());
    };
    hooks.updateUndoHistoryIgnoreText = [this, &form] {
        undo.UpdateUndoHistoryIgnoreText(form.actionIgnore_Text_When_Cannot_Solve->isChecked());
    };
    hooks.keepUndoHistoryClean = [this](const MenuHooks::Hook& runMenu) { undo.RunEditingMenu(runMenu); };
    hooks.showSearchDialog = [this, &window] { Search(window).OpenSearch(); };
    hooks.findNext = [this, &window] { Search(window).FindNext(); };
    hooks.findPrevious = [this, &window] { Search(window).FindPrevious(); };
    hooks.showLogViewer = [this, &window] { ShowLogViewer(window); };
    hooks.showUpdateWindow = [this] { releaseNotice.ShowUpdateWindow(); };
    return hooks;
}

void Rooms::ShowLogViewer(MainWindow& window)
{
    if (!logViewer)
        logViewer = new LogViewer(&window);
    logViewer->OpenLogFile(CalculationLogPath());
}

SearchDialog& Rooms::Search(MainWindow& window)
{
    if (!searchDialog) {
        searchDialog = new SearchDialog(pad.Editor(), &window);
        searchDialog->isTargetBusy = [this] { return activity.IsBusy(); };
    }
    return *searchDialog;
}

void Rooms::UpdatePredictiveText()
{
    predictiveText.Update();
    syntaxHint.Update();
}

void Rooms::HidePredictiveText()
{
    predictiveText.Hide();
    syntaxHint.Hide();
}
