// The calculator and the rooms of the window, made in the order in which they need each other, and what the one calls
// in the other.
#pragma once

#include "core/Calculator.h"
#include "core/workspace/UndoHistory.h"
#include "window/assist/Help.h"
#include "window/assist/PredictiveText.h"
#include "window/assist/SyntaxHint.h"
#include "window/pad/LineSubmission.h"
#include "window/pad/MenuHooks.h"
#include "window/pad/Menus.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"
#include "window/pad/PadCommands.h"
#include "window/pad/WordWrap.h"
#include "window/status/Information.h"
#include "window/status/ReleaseNotice.h"
#include "window/workspace/Documents.h"
#include "window/workspace/RecoveryCopy.h"
#include "window/workspace/WorkspaceSnapshot.h"

class LogViewer;
class MainWindow;
class QElapsedTimer;
class SearchDialog;
namespace Ui {
class MainWindow;
} // namespace Ui

struct Rooms {
    /// @param uptimeClock  runs since the window's construction
    Rooms(MainWindow& window, Ui::MainWindow& form, const QElapsedTimer& uptimeClock);

    /// Popup and hint follow the pad's text and cursor.
    void UpdatePredictiveText();
    void HidePredictiveText();

    PadActivity activity;
    Calculator calculator;
    Pad pad;
    WordWrap wordWrap;
    PadCommands commands;
    WorkspaceSnapshot snapshot;
    RecoveryCopy recovery;
    UndoHistory undo;
    Documents documents;
    Information information;
    Help help;
    ReleaseNotice releaseNotice;
    LineSubmission submission;
    Menus menus;
    PredictiveText predictiveText;
    SyntaxHint syntaxHint;

private:
    UndoSurroundings UndoSurroundingsOf(MainWindow& window, Ui::MainWindow& form);
    MenuHooks MenuHooksOf(MainWindow& window, const Ui::MainWindow& form);
    void ShowLogViewer(MainWindow& window);
    SearchDialog& Search(MainWindow& window);

    // Made when they are first needed; closing only hides them.
    LogViewer* logViewer = nullptr;
    SearchDialog* searchDialog = nullptr;
};
