// The self-test of an installation: whether the program can write, read back and keep its files.
//
// Of the user's data nothing changes. What a test leaves behind is a token in the settings file, which tells the next
// one that settings are kept, and a line in the log.
#pragma once

#include <QString>

class QWidget;

/// Runs all tests and tells of each in a line. One that fails holds up none of the others.
QString StorageDiagnosticsReport();

/// Shows the report in a dialog, from which it can be copied, and comes back when that is closed.
void RunOstrellStorageDiagnostics(QWidget* parent);
