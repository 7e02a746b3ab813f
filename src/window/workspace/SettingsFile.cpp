#include "window/workspace/SettingsFile.h"

#include "core/workspace/FileReplacement.h"
#include "window/workspace/DataDirectory.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 4'000'000; // bytes; tens of thousands of functions, and read within a second

bool MayBeSettings(const QString& path)
{
    const QFileInfo file(path);
    return !file.exists() || (file.isFile() && file.isReadable() && file.size() <= largestFile);
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Two programs that change keys at the same time wait for each other, but neither for long. The lock ends with the
// program that holds it, however that ends, and leaves nothing behind.
class DirectoryLock {
public:
    explicit DirectoryLock(const QString& directory)
        : descriptor(open(QFile::encodeName(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        const QDeadlineTimer patience(std::chrono::seconds(1));
        while (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK && !patience.hasExpired())
            QThread::msleep(10);
    }
    ~DirectoryLock()
    {
        if (descriptor >= 0)
            close(descriptor);
    }
    Q_DISABLE_COPY_MOVE(DirectoryLock)

private:
    int descriptor;
};

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
    if (!drafts.isValid() || !MayBeSettings(path))
        return std::nullopt;
    {
        QSettings draft(draftPath, QSettings::IniFormat);
        CopyKeys(QSettings(path, QSettings::IniFormat), draft);
        change(draft);
        draft.setValue(lastKey, true);
    }
    const QByteArray content = BytesOf(draftPath);
    if (!content.endsWith(lastSection) || content.size() > largestFile)
        return std::nullopt;
    return content.chopped(lastSection.size()).trimmed() + '\n';
}

} // namespace

QString SettingsFilePath()
{
    return DataFilePath(u"Quellbrook.ini"_s);
}

std::unique_ptr<QSettings> ReadSettingsFile()
{
    const QString path = SettingsFilePath();
    return std::make_unique<QSettings>(MayBeSettings(path) ? path : QString(), QSettings::IniFormat);
}

bool ChangeSettingsFile(const std::function<void(QSettings&)>& change)
{
    const QString path = SettingsFilePath();
    const DirectoryLock lock(QFileInfo(path).path());
    const std::optional<QByteArray> content = ChangedContent(path, change);
    return content && ReplaceFileContents(path, *content, NewFile::ForOwnerAlone) == FileReplacement::Complete;
}
