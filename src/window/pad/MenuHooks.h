// What the menus call in rooms that are not theirs. An empty hook does nothing, and an action that has nothing else to
// do is disabled then.
#pragma once

#include <functional>

struct MenuHooks {
    using Hook = std::function<void()>;

    Hook takeUndoStep;             ///< saves the workspace as a step of its own; typing begins another behind it
    Hook beginUndoEditTransaction; ///< saves the workspace unless the newest step covers the user's edits already
    Hook undoPadState;
    Hook redoPadState;
    Hook updateUndoRedoActions;
    Hook updateUndoHistoryWordOperators;
    Hook updateUndoHistoryIgnoreText;
    /// Runs the pad's context menu, and takes back the step that was saved for it if the pad is as it was.
    std::function<void(const Hook& runMenu)> keepUndoHistoryClean;

    Hook showSearchDialog;
    Hook findNext;
    Hook findPrevious;
    Hook showLogViewer;
    Hook showUpdateWindow;
};

inline void Call(const MenuHooks::Hook& hook)
{
    if (hook)
        hook();
}
