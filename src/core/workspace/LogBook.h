// The calculation log: how an entry is written, and how the log is read back by day.
//
// The log is a sequence of entries. Each is a header line (twenty hyphens, a time, twenty hyphens), the pad's text as
// it stood, and a line feed. Nothing in the text is escaped: a line of the pad that looks like a header is one.
#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>

/// An entry as it is appended to the log.
QString LogEntry(const QDateTime& written, const QString& padText);

struct LogDay {
    QDate date;
    QString text; ///< the day's entries with their headers, in the order in which they stand in the log
};

/// The days of a log, the newest first. An entry whose header tells no date is in none of them. Whatever the bytes are,
/// they are some log; what is no UTF-8 becomes replacement characters.
QList<LogDay> ReadLogDays(QByteArrayView log);
