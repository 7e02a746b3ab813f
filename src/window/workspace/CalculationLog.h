// The user's log of past pads: one text file that is only ever appended to. It is made so that its owner alone can read
// it.
#pragma once

#include <QDateTime>
#include <QString>

/// The log file's path.
QString CalculationLogPath();

/// How an append to the log ended.
struct LogAppend {
    enum Outcome {
        Complete,   ///< all of it is on the disk
        CannotOpen, ///< there is no log that could be written; nothing has changed
        Incomplete, ///< not all of it found room
    };
    Outcome outcome;
    QString error; ///< the system's words for what went wrong; empty if nothing did
};

/// Appends one entry (LogEntry). Its header begins a line of its own, also behind an entry that was cut short by a
/// crash or a full disk.
///
/// @param time  when the pad stood so
LogAppend AppendToCalculationLog(const QString& padText, const QDateTime& time = QDateTime::currentDateTime());

/// Appends a line that is no entry; it ends in a line feed.
LogAppend AppendLineToCalculationLog(const QString& line);

/// Opens the log in the desktop's own viewer; makes an empty one first where there is none.
void OpenCalculationLog();
