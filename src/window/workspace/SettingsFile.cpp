#include "window/workspace/SettingsFile.h"

#include "core/workspace/FileReplacement.h"
#include "window/workspace/DataDirectory.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

std::optional<QByteArray> BytesOf(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

QVariantMap ValuesOf(const QSettings& settings)
{
    QVariantMap values;
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

// The file gives back plain text for most types; read as the type that was written it must be the same value.
bool IsSameValue(QVariant read, const QVariant& written)
{
    read.convert(written.metaType());
    return read == written;
}

bool HoldsValues(const QString& path, const QVariantMap& values)
{
    const QSettings settings(path, QSettings::IniFormat);
    return std::all_of(values.keyValueBegin(), values.keyValueEnd(), [&](const auto& entry) {
        return settings.contains(entry.first) && IsSameValue(settings.value(entry.first), entry.second);
    });
}

// The file's next content. It is written and read back beside the file; the reading has a name of its own, since
// QSettings remembers what it wrote under the other.
std::optional<QByteArray> ChangedContent(const QString& path, const std::function<void(QSettings&)>& change)
{
    const std::optional<QByteArray> old = BytesOf(path);
    const QTemporaryDir drafts(path + u".XXXXXX"_s);
    const QString written = drafts.filePath(u"written.ini"_s);
    const QString read = drafts.filePath(u"read.ini"_s);
    if (!old || !drafts.isValid() || ReplaceFileContents(written, *old) != FileReplacement::Complete)
        return std::nullopt;
    QVariantMap values;
    {
        QSettings settings(written, QSettings::IniFormat);
        change(settings);
        settings.sync();
        values = ValuesOf(settings);
    }
    return QFile::rename(written, read) && HoldsValues(read, values) ? BytesOf(read) : std::nullopt;
}

} // namespace

QString SettingsFilePath()
{
    return DataFilePath(u"Quellbrook.ini"_s);
}

bool ChangeSettingsFile(const std::function<void(QSettings&)>& change)
{
    const QString path = SettingsFilePath();
    // Two programs that change keys at the same time wait for each other, but neither for long.
    QLockFile lock(path + u".lock"_s);
    lock.tryLock(std::chrono::seconds(1));
    const std::optional<QByteArray> content = ChangedContent(path, change);
    return content && ReplaceFileContents(path, *content, NewFile::ForOwnerAlone) == FileReplacement::Complete;
}
