#include "window/workspace/DataDirectory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QString DataFilePath(const QString& fileName)
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(fileName);
}

void PrepareDataDirectory()
{
    const QString directory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (directory.isEmpty() || !QDir().mkpath(directory))
        return;
    for (const QString& fileName : {u"Quellbrook.ini"_s, u"Quellbrook.log"_s}) {
        const QString old = QDir(QCoreApplication::applicationDirPath()).filePath(fileName);
        const QString own = DataFilePath(fileName);
        if (old != own && QFile::exists(old) && !QFile::exists(own) && QFile::copy(old, own))
            QFile::setPermissions(own, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
}
