// The typed commands that act on other programs' windows by a numeric handle: list them, keep them on top or not, show,
// hide, enable and disable them.
//
// Recognising a command and reading its handle is the same everywhere. What acts is a thin layer of the platform; here
// there are no window handles, so it refuses every time.
#pragma once

#include <QString>

/// Runs a window command, in any case.
///
/// @param result  the text for the pad: the list for HANDLE, "1" or "0" for whether the others acted, "Invalid Handle"
///                where no usable handle stands behind them; unchanged where the text is none of these commands
/// @return whether the text is one of them
bool HandleWindowsCommand(const QString& text, QString& result);

/// The number in the first run of digits, whatever stands around it; 0 where `ok` is false.
///
/// @param ok  false without a digit, above 64 bits, or if a digit is none of 0 to 9
unsigned long long GetHandleFromText(const QString& text, bool& ok);

/// The windows whose title holds `filter`, as text for the pad.
QString WindowsHandleList(const QString& filter);

// Each returns whether it acted.
bool WindowsSetTopMost(unsigned long long handle, bool on);
bool WindowsShowWindow(unsigned long long handle);
bool WindowsHideWindow(unsigned long long handle);
bool WindowsEnableWindow(unsigned long long handle);
bool WindowsDisableWindow(unsigned long long handle);
