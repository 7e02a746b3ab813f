#include "window/workspace/CalculationLog.h"

#include "window/workspace/DataDirectory.h"

#include <QDateTime>
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

QString Entry(const QString& padText)
{
    const QString hyphens(20, u'-');
    return hyphens + QDateTime::currentDateTime().toString(Qt::TextDate) + hyphens + u'\n' + padText + u'\n';
}

// A pipe in the log's place would make the program wait for a reader.
bool IsFileOrNothing(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() || !info.exists();
}

} // namespace

QString CalculationLogPath()
{
    return DataFilePath(u"Quellbrook.log"_s);
}

void AppendToCalculationLog(const QString& padText)
{
    const QString path = CalculationLogPath();
    if (!IsFileOrNothing(path))
        return;
    const QString lineEnd = EndsTorn(path) ? u"\n"_s : QString();
    QFile file(path);
    // Unbuffered, so that an entry goes out in one piece and mixes with none of another window's.
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text | QIODevice::Unbuffered, forOwnerAlone))
        file.write(QString(lineEnd + Entry(padText)).toUtf8());
}

void OpenCalculationLog()
{
    const QString path = CalculationLogPath();
    if (!QFile::exists(path))
        QFile(path).open(QIODevice::WriteOnly | QIODevice::Text, forOwnerAlone);
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
