// The settings file: what is copied between it and the live state at start and on request.
//
// There is no settings object. The check marks of the menus, the pad's font, the number format and the window are the
// live state. A file that is missing or damaged leaves that state as it is, key by key, without a word.
#pragma once

class Calculator;
class MainWindow;

namespace Ui {
class MainWindow;
}

/// Puts what the file holds into the live state.
void LoadWorkspaceSettings(MainWindow& window, Ui::MainWindow& form, Calculator& calculator);

/// Writes the live state; the keys of others stay. A file that cannot be written stays as it is, without a word.
void SaveWorkspaceSettings(const MainWindow& window, const Ui::MainWindow& form, const Calculator& calculator);

/// Keeps the window above others, or no longer.
void ApplyTopMostState(MainWindow& window, bool on);
