// The workspace as a state of the undo history: reading it from the window and putting it back.
//
// The pad's text is followed edit by edit, so that taking a state copies nothing, and putting one back touches only
// what differs from it in the pad.
#pragma once

#include "core/workspace/UndoHistory.h"

#include <QObject>

class Calculator;
class QKeyEvent;
class QPlainTextEdit;

namespace Ui {
class MainWindow;
}

class WorkspaceSnapshot : public QObject {
    Q_OBJECT

public:
    /// Serves the form and the calculator, which must outlive it, and switches the editor's own undo off.
    WorkspaceSnapshot(Ui::MainWindow& mainForm, Calculator& workspace, QObject* parent);

    /// The pad's text as its document holds it. A copy costs nothing and may be read in another thread.
    const SharedText& Text() const { return padText; }

    UndoState CaptureUndoState() const;

    /// Makes the workspace equal to the state, with the editor's signals blocked. The keyboard goes to the pad, and the
    /// cursor is scrolled into view if it was not when the state was taken.
    void RestoreUndoState(const UndoState& state);

private:
    void FollowEdit(int from, int removed, int added);
    void RestoreText(const UndoState& state);
    void RestoreCursor(int anchor, int position);

    Ui::MainWindow& form;
    QPlainTextEdit& pad;
    Calculator& calculator;
    SharedText padText;
};

/// A key that the pad is about to get: Undo and Redo are carried out, and before an edit a state is taken.
///
/// @return whether the key is done with
bool TakeUndoKey(const QKeyEvent& key, UndoHistory& history);

/// Text is about to come into the pad, by a key, an input method or the mouse: a state is taken.
void TakeUndoInsertion(UndoHistory& history);
