#include "window/pad/MenuInsertion.h"

#include "window/pad/LineSubmission.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"

#include <QLabel>
#include <QScopedValueRollback>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

bool MenuInsertion::RefuseWhileBusy()
{
    if (activity.IsBusy())
        label.setText(busyMessage.toString());
    return activity.IsBusy();
}

void MenuInsertion::InsertText(const QString& text)
{
    if (RefuseWhileBusy())
        return;
    Call(hooks.beginUndoEditTransaction);
    QTextCursor cursor = pad.Editor()->textCursor();
    cursor.insertText(text);
    pad.Editor()->setTextCursor(cursor);
    ShowCursor();
}

bool MenuInsertion::InsertMenuCommand(const QString& command, bool execute)
{
    if (RefuseWhileBusy())
        return false;
    Call(hooks.takeUndoStep);
    forgetEnterKey();
    WriteAtEnd(command, execute ? u'\n' : u' ');
    if (execute)
        submission.HandleSubmittedLine(pad.CursorPosition(), command);
    else
        label.setText(u"Complete the command, then press Enter"_s);
    ShowCursor();
    return true;
}

void MenuInsertion::WriteAtEnd(const QString& command, QChar behind)
{
    const QScopedValueRollback busy(activity.commandBusy, true);
    const QSignalBlocker blocker(pad.Editor());
    QTextCursor cursor = pad.Editor()->textCursor();
    cursor.movePosition(QTextCursor::End);
    pad.Editor()->setTextCursor(cursor);
    const int length = pad.Text().Length();
    const bool onNewLine = length == 0 || pad.Text().CharacterAt(length - 1) == u'\n';
    pad.Insert({{onNewLine ? QString() : u"\n"_s, false}, {command + behind, false}});
}

void MenuInsertion::ShowCursor()
{
    pad.Editor()->setFocus();
    pad.Editor()->ensureCursorVisible();
}
