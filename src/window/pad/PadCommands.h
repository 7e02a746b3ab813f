// The typed commands that act on the window: the pad's font, the window's state, the options' check marks.
//
// A command does its work and says what it has to say; what it says is written by who submitted the line.
#pragma once

#include "core/Submission.h"

#include <QString>

class Calculator;
class MainWindow;
class Pad;

namespace Ui {
class MainWindow;
}

class PadCommands {
public:
    PadCommands(MainWindow& mainWindow, Ui::MainWindow& mainForm, Calculator& workspace, Pad& mainPad)
        : window(mainWindow), form(mainForm), calculator(workspace), pad(mainPad)
    {
    }

    /// Empties pad, variables and label; the pad goes to the log first where that option is on.
    Submission Clear();

    Submission CloseWindow();
    Submission Minimize();
    Submission Maximize();
    Submission Restore();
    Submission SetTopmost();
    Submission ClearTopmost();

    /// @param rest  what stands behind FONT: a size in points, above 0
    Submission SetFontSize(const QString& rest);

    /// @param rest  what stands behind MENU: an option, alone to ask for it or with a value to set it
    Submission SetMenuOption(const QString& rest);

private:
    Submission KeepOnTop(bool on, const QString& status);

    MainWindow& window;
    Ui::MainWindow& form;
    Calculator& calculator;
    Pad& pad;
};
