#include "window/workspace/CalculationLog.h"

#include "core/workspace/FileReplacement.h"
#include "core/workspace/LogBook.h"
#include "window/workspace/DataDirectory.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions forOwnerAlone = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// Whether the file ends in the middle of a line: its last entry was cut short.
bool EndsTorn(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(file.size() - 1) && file.read(1) != "\n";
}

// A pipe in the log's place would make the program wait for a reader.
bool IsFileOrNothing(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() || !info.exists();
}

// What is appended begins a line.
LogAppend Append(const QString& text)
{
    const QString path = CalculationLogPath();
    if (!IsFileOrNothing(path))
        return {LogAppend::CannotOpen, u"Not a file"_s};
    const QByteArray bytes = QString((EndsTorn(path) ? u"\n"_s : QString()) + text).toUtf8();
    QFile file(path);
    // Unbuffered, so that it goes out in one piece and mixes with nothing of another window's.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text | QIODevice::Unbuffered, forOwnerAlone))
        return {LogAppend::CannotOpen, file.errorString()};
    if (!TakeSpace(file.handle(), file.size(), bytes.size()))
        return {LogAppend::Incomplete, qt_error_string()};
    if (file.write(bytes) != bytes.size())
        return {LogAppend::Incomplete, file.errorString()};
    if (!ReachesDisk(file.handle()))
        return {LogAppend::Incomplete, qt_error_string()};
    return {LogAppend::Complete, {}};
}

} // namespace

QString CalculationLogPath()
{
    return DataFilePath(u"Quellbrook.log"_s);
}

LogAppend AppendToCalculationLog(const QString& padText, const QDateTime& time)
{
    return Append(LogEntry(time, padText));
}

LogAppend AppendLineToCalculationLog(const QString& line)
{
    return Append(line);
}

void OpenCalculationLog()
{
    const QString path = CalculationLogPath();
    if (!QFile::exists(path))
        QFile(path).open(QIODevice::WriteOnly | QIODevice::Text, forOwnerAlone);
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
