// The user's log of past pads: one text file that is only ever appended to.
#pragma once

#include <QString>

/// The log file's path.
QString CalculationLogPath();

/// Appends one entry: a header line with the local time between two rows of twenty hyphens, the pad's text, a line
/// feed. A log that cannot be written loses the entry in silence.
void AppendToCalculationLog(const QString& padText);

/// Opens the log in the desktop's own viewer; makes an empty one first where there is none.
void OpenCalculationLog();
