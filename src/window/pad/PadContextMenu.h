// The pad's context menu: the editor's own, with two entries of the window's beside it.
#pragma once

class QAction;
class QMenu;
class QPlainTextEdit;

/// Makes the menu; it is the caller's.
///
/// @param copyPlain  goes behind the editor's Copy, or to the end where there is none
/// @param execute    goes to the end, behind a separator
QMenu* MakePadContextMenu(QPlainTextEdit& editor, QAction* copyPlain, QAction* execute);
