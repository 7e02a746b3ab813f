// What a menu entry writes into the pad: a fixed text where the cursor stands, or a command at the end.
//
// While a calculation or a command runs, neither writes anything, and the status label says why.
#pragma once

#include "window/pad/MenuHooks.h"

#include <QString>

class LineSubmission;
class Pad;
class QLabel;
struct PadActivity;

class MenuInsertion {
public:
    /// @param forgetEnter  ends the wait for the line feed of an Enter key
    MenuInsertion(Pad& mainPad, LineSubmission& lineSubmission, QLabel& statusLabel, PadActivity& padActivity,
                  const MenuHooks& menuHooks, std::function<void()> forgetEnter)
        : pad(mainPad), submission(lineSubmission), label(statusLabel), activity(padActivity), hooks(menuHooks),
          forgetEnterKey(std::move(forgetEnter))
    {
    }

    /// Inserts the text at the cursor, as typing would.
    void InsertText(const QString& text);

    /// Writes a command on a line of its own at the pad's end, wherever the cursor stands.
    ///
    /// @param execute  whether it runs at once; otherwise the cursor waits one blank behind it
    /// @return whether it was written
    bool InsertMenuCommand(const QString& command, bool execute);

private:
    bool RefuseWhileBusy();
    void WriteAtEnd(const QString& command, QChar behind);
    void ShowCursor();

    Pad& pad;
    LineSubmission& submission;
    QLabel& label;
    PadActivity& activity;
    const MenuHooks& hooks;
    std::function<void()> forgetEnterKey;
};
