#include "window/workspace/SettingsFile.h"

#include "core/workspace/FileReplacement.h"
#include "window/workspace/DataDirectory.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void CopyKeys(const QSettings& from, QSettings& to)
{
    for (const QString& key : from.allKeys())
        to.setValue(key, from.value(key));
}

// The file's next content, drafted beside the file. In a fresh file the sections stand in the order of their names, so
// a draft that ends with the last of all names is whole. Comparing values would not tell: those of a damaged file may
// not even equal themselves.
std::optional<QByteArray> ChangedContent(const QString& path, const std::function<void(QSettings&)>& change)
{
    const QString lastKey = u"\uffff/Complete"_s;
    const QByteArray lastSection("[%UFFFF]\nComplete=true\n");
    const QTemporaryDir drafts(path + u".XXXXXX"_s);
    const QString draftPath = drafts.filePath(u"draft.ini"_s);
    const QFileInfo file(path);
    if (!drafts.isValid() || (file.exists() && !file.isReadable()))
        return std::nullopt;
    {
        QSettings draft(draftPath, QSettings::IniFormat);
        CopyKeys(QSettings(path, QSettings::IniFormat), draft);
        change(draft);
        draft.setValue(lastKey, true);
    }
    const QByteArray content = BytesOf(draftPath);
    if (!content.endsWith(lastSection))
        return std::nullopt;
    return content.chopped(lastSection.size()).trimmed() + '\n';
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
