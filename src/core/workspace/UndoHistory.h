// Undo and redo of the whole workspace: two bounded stacks of its states, and when a state is taken.
//
// A step takes back all that a calculation changes: the pad with its bold answers, variables, custom functions, ANS,
// the number format. How a state is read from the window and put back is the window's part and handed in. A run of
// edits (typing, deleting, moving about) is one step: a transaction, which the first edit opens and Enter, a command
// or a restored state ends.
#pragma once

#include "core/Calculator.h"
#include "core/workspace/SharedText.h"

#include <QList>
#include <QString>

#include <functional>

/// The workspace at one moment. Copies share their data.
struct UndoState {
    SharedText text; ///< of the pad, as the document holds it: U+2028 and U+00A0 are themselves, "\n" ends a block
    WorkspaceValues values;
    CustomFunctionMap customFunctions;
    bool useWordOperators = true;
    bool ignoreText = true;
    QString statusText;     ///< of the status label
    int cursorPosition = 0; ///< in UTF-16 units from the text's start
    int anchorPosition = 0; ///< the selection's other end; the same where nothing is selected
    int lineCount = 0;      ///< of the pad on the screen, long lines broken
    int verticalScroll = 0; ///< the value of the pad's scroll bar: the line at the top
};

/// How the history reaches the workspace.
struct UndoSurroundings {
    std::function<UndoState()> capture;
    std::function<void(const UndoState&)> restore;
    std::function<bool()> isBusy;  ///< something runs in the pad that no undo may cut across
    std::function<void()> changed; ///< what can be undone or redone may be another now
};

class UndoHistory {
public:
    static constexpr qsizetype maxUndoStates = 100; ///< on each stack; the oldest fall out

    explicit UndoHistory(UndoSurroundings outside);

    /// Takes a state before something new happens. Nothing can be redone afterwards.
    void SaveUndoState();

    /// Before an edit: takes a state unless the run of edits that it belongs to has one.
    void BeginUndoEditTransaction();

    /// Before an edit that ends a run, as Enter does: takes a state unless the run has one.
    void BeginFinalUndoEdit();

    /// The next edit begins a run of its own.
    void CloseUndoEditTransaction() { transactionOpen = false; }

    /// One step back or forth. Nothing happens, without a word, where there is none or the workspace is busy.
    void UndoPadState();
    void RedoPadState();

    /// Forgets all states, as a new document does.
    void ForgetUndoHistory();

    /// Runs a menu whose entries may edit the pad: takes a state before, as for an edit, and takes it away again if the
    /// text is the same afterwards or an entry has taken a state of its own. What could be redone is lost either way.
    void RunEditingMenu(const std::function<void()>& run);

    /// Settings that a menu changes are not undone: they are rewritten in every state.
    void UpdateUndoHistoryValueFormat(const QString& pattern);
    void UpdateUndoHistoryWordOperators(bool use);
    void UpdateUndoHistoryIgnoreText(bool ignore);

    /// Whether what happens in the pad now belongs to a step that has been taken.
    bool IsBusy() const { return surroundings.isBusy(); }

    bool CanUndo() const { return !undoStack.isEmpty(); }
    bool CanRedo() const { return !redoStack.isEmpty(); }
    qsizetype UndoCount() const { return undoStack.size(); }
    qsizetype RedoCount() const { return redoStack.size(); }

private:
    using Stack = QList<UndoState>; // oldest first

    static bool Push(Stack& stack, const UndoState& state);
    void Step(Stack& from, Stack& to);
    void RewriteStates(const std::function<void(UndoState&)>& rewrite);

    UndoSurroundings surroundings;
    Stack undoStack;
    Stack redoStack;
    bool transactionOpen = false;
    qsizetype statesFallenOut = 0; // of the undo stack by new work
};
