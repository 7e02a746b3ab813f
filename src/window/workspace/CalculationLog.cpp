#include "window/workspace/CalculationLog.h"

#include "window/workspace/DataDirectory.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QFile>
#include <QTextStream>
#include <QUrl>

using namespace Qt::StringLiterals;

QString CalculationLogPath()
{
    return DataFilePath(u"Quellbrook.log"_s);
}

void AppendToCalculationLog(const QString& padText)
{
    QFile file(CalculationLogPath());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    const QString hyphens(20, u'-');
    QTextStream stream(&file);
    stream << hyphens << QDateTime::currentDateTime().toString(Qt::TextDate) << hyphens << u'\n' << padText << u'\n';
}

void OpenCalculationLog()
{
    const QString path = CalculationLogPath();
    if (!QFile::exists(path)) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly | QIODevice::Text))
            file.close();
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
