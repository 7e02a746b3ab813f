// A data directory of the test's own, for as long as this lives.
#pragma once

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

class DataHome {
public:
    DataHome() { qputenv("XDG_DATA_HOME", home.path().toLocal8Bit()); }

    /// A file in it that the program keeps.
    QString Path(const QString& name) const
    {
        const QString directory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
        QDir().mkpath(directory);
        return QDir(directory).filePath(name);
    }

    QString LogPath() const { return Path("Quellbrook.log"); }
    QString SettingsPath() const { return Path("Quellbrook.ini"); }

private:
    QTemporaryDir home;
};

inline QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not readable)");
}

inline void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}
