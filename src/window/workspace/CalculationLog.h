// The user's log of past pads: one text file that is only ever appended to. It is made so that its owner alone can read
// it.
#pragma once

#include <QString>

/// The log file's path.
QString CalculationLogPath();

/// Appends one entry: a header line with the local time between two rows of twenty hyphens, the pad's text, a line
/// feed. The header begins a line of its own, also behind an entry that was cut short by a crash or a full disk. A log
/// that cannot be written loses the entry in silence.
void AppendToCalculationLog(const QString& padText);

/// Opens the log in the desktop's own viewer; makes an empty one first where there is none.
void OpenCalculationLog();
