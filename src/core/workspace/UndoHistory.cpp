#include "core/workspace/UndoHistory.h"

#include <utility>

UndoHistory::UndoHistory(UndoSurroundings outside) : surroundings(std::move(outside)) {}

void UndoHistory::SaveUndoState()
{
    statesFallenOut += Push(undoStack, surroundings.capture()) ? 1 : 0;
    redoStack.clear();
    surroundings.changed();
}

void UndoHistory::BeginUndoEditTransaction()
{
    if (!transactionOpen)
        SaveUndoState();
    transactionOpen = true;
}

void UndoHistory::BeginFinalUndoEdit()
{
    BeginUndoEditTransaction();
    CloseUndoEditTransaction();
}

void UndoHistory::UndoPadState()
{
    Step(undoStack, redoStack);
}

void UndoHistory::RedoPadState()
{
    Step(redoStack, undoStack);
}

void UndoHistory::ForgetUndoHistory()
{
    undoStack.clear();
    redoStack.clear();
    CloseUndoEditTransaction();
    surroundings.changed();
}

// With a full stack the menu's state pushes an older one out. Taking it away brings that one back, and it is found by
// how many have gone since.
void UndoHistory::RunEditingMenu(const std::function<void()>& run)
{
    if (transactionOpen) {
        run();
        return;
    }
    const Stack before = undoStack;
    const QString text = surroundings.capture().text.Content().text;
    const qsizetype fallenOut = statesFallenOut;
    BeginUndoEditTransaction();
    run();
    const qsizetype menuState = before.size() - (statesFallenOut - fallenOut);
    if (surroundings.capture().text.Content().text == text) {
        if (undoStack.size() >= before.size())
            undoStack = before;
        CloseUndoEditTransaction();
    } else if (!transactionOpen && menuState >= 0 && menuState < undoStack.size()) {
        undoStack.removeAt(menuState);
    }
    surroundings.changed();
}

void UndoHistory::UpdateUndoHistoryValueFormat(const QString& pattern)
{
    RewriteStates([&](UndoState& state) { state.values.formatPattern = pattern; });
}

void UndoHistory::UpdateUndoHistoryWordOperators(bool use)
{
    RewriteStates([use](UndoState& state) { state.useWordOperators = use; });
}

void UndoHistory::UpdateUndoHistoryIgnoreText(bool ignore)
{
    RewriteStates([ignore](UndoState& state) { state.ignoreText = ignore; });
}

// Whether the oldest state has fallen out for it.
bool UndoHistory::Push(Stack& stack, const UndoState& state)
{
    stack.append(state);
    const bool full = stack.size() > maxUndoStates;
    if (full)
        stack.removeFirst();
    return full;
}

void UndoHistory::Step(Stack& from, Stack& to)
{
    if (from.isEmpty() || IsBusy())
        return;
    Push(to, surroundings.capture());
    surroundings.restore(from.takeLast());
    CloseUndoEditTransaction();
    surroundings.changed();
}

void UndoHistory::RewriteStates(const std::function<void(UndoState&)>& rewrite)
{
    for (Stack* stack : {&undoStack, &redoStack}) {
        for (UndoState& state : *stack)
            rewrite(state);
    }
}
